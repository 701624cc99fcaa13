#include "chemistry/chemistry_setup.h"

#include "modules/idbproject.h"
#include "reports/chemistry_report.h"
#include "site/chemistry.h"

#include <QCoreApplication>

std::optional<Document> chemistryDocument(IDBProject& project)
{
    if (project.getChemistry().empty())
        return std::nullopt;
    const std::wstring folder = QCoreApplication::applicationDirPath().toStdWString();
    std::vector<LimitMistake> mistakes;
    const AggressivenessLimits limits = limitsBeside(folder, mistakes);
    Document document = chemistryReport(project, limits);
    // Mistakes in the file of limits must not pass unseen.
    for (const LimitMistake& mistake : mistakes) {
        Paragraph line;
        line.style = Paragraph::Note;
        line.runs = {{L"aggressiveness.txt, строка " + std::to_wstring(mistake.line) + L": " + mistake.text
                + L" Взяты пределы программы.",
            true}};
        document.blocks.emplace_back(std::move(line));
    }
    return document;
}
