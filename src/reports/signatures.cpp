#include "reports/signatures.h"

void addSignatures(Document& document, const Office& office)
{
    if (!office.isSignedBelow())
        return;
    for (const Office::Person& person : office.people)
        if (!person.name.empty()) {
            Paragraph line;
            line.runs = {{person.role + L"  ____________________  " + person.name}};
            document.blocks.emplace_back(std::move(line));
        }
}
