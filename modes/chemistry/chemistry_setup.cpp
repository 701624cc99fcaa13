#include "chemistry/chemistry_setup.h"

#include "modules/idbproject.h"
#include "reports/chemistry_report.h"
#include "site/chemistry.h"

#include <QCoreApplication>

std::optional<Document> chemistryDocument(IDBProject& project, int language)
{
    if (project.getChemistry().empty())
        return std::nullopt;
    const std::wstring folder = QCoreApplication::applicationDirPath().toStdWString();
    std::vector<TableMistake> mistakes;
    const AggressivenessLimits limits = limitsBeside(folder, mistakes);
    Document document = chemistryReport(project, limits, language);
    // Mistakes in the file of limits must not pass unseen.
    if (!mistakes.empty()) {
        Paragraph line;
        line.style = Paragraph::Note;
        line.runs = {{limitsMessage(mistakes), true}};
        document.blocks.emplace_back(std::move(line));
    }
    return document;
}
