#include "chemistry/chemistry_setup.h"

#include "modules/idbproject.h"
#include "reports/chemistry_report.h"
#include "site/chemistry.h"

std::optional<Document> chemistryDocument(IDBProject& project, int language)
{
    if (project.getChemistry().empty())
        return std::nullopt;
    Document document = chemistryReport(project, limitsInUse(), language);
    // Mistakes in the file of limits must not pass unseen.
    if (const std::wstring warning = limitsMessage(limitMistakes()); !warning.empty()) {
        Paragraph line;
        line.style = Paragraph::Note;
        line.runs = {{warning, true}};
        document.blocks.emplace_back(std::move(line));
    }
    return document;
}
