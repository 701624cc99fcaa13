#include "reports/office_pages.h"

#include "modules/idbproject.h"
#include "plots/sheet.h"

#include <algorithm>

namespace
{

constexpr double airInFrame = 5; // mm between frame or stamp and the texts
constexpr double edge = 5; // of the frame, mm; on the left the binding

Sheet sheetOfPage(const PageFormat& page)
{
    return {page.width, page.height};
}

void widenMargins(PageFormat& page)
{
    const Extent field = sheetOfPage(page).field();
    page.left = std::max(page.left, field.left + airInFrame);
    page.top = std::max(page.top, field.top + airInFrame);
    page.right = std::max(page.right, edge + airInFrame);
    page.bottom = std::max(page.bottom, edge + titleBlockHeight(TitleBlock::Following) + airInFrame);
}

Drawing framedPage(const PageFormat& page, TitleBlockTexts texts, int number, int count)
{
    const Sheet sheet = sheetOfPage(page);
    const Extent field = sheet.field();
    Drawing drawing = emptySheet(sheet);
    Sketch sketch(drawing);
    // Who counts the pages himself gets free cells.
    texts.sheet = count > 0 ? number : 0;
    texts.sheets = count;
    const bool isFirst = number == 1;
    addSheetBlocks(sketch, field, isFirst ? TitleBlock::Text : TitleBlock::Following, texts, isFirst);
    return drawing;
}

std::vector<TitleBlockTexts::Person> peopleOf(const std::vector<Office::Person>& people)
{
    std::vector<TitleBlockTexts::Person> made;
    made.reserve(people.size());
    for (const Office::Person& person : people)
        made.push_back({person.role, person.name});
    return made;
}

} // namespace

TitleBlockTexts titleBlockTexts(const Office& office, IDBProject* project, int language)
{
    TitleBlockTexts texts;
    texts.language = language;
    texts.company = office.company;
    texts.stage = office.stage;
    texts.date = office.date;
    texts.agreed = peopleOf(office.agreed);
    texts.people = peopleOf(office.people);
    if (!office.isSignedInTitleBlock())
        for (TitleBlockTexts::Person& person : texts.people)
            person.name.clear();
    if (project) {
        texts.designation = project->getProjectCode();
        texts.object = project->getProjectName();
    }
    return texts;
}

void addOffice(Document& document, const Office& office, const std::optional<Drawing>& logo)
{
    if (document.author.empty())
        document.author = office.company;
    if (document.footer.empty())
        document.footer = office.company;
    if (logo)
        document.blocks.insert(document.blocks.begin(), Figure{*logo, {}});
    if (!office.isSignedBelow())
        return;
    for (const Office::Person& person : office.people)
        if (!person.name.empty()) {
            Paragraph line;
            line.runs = {{person.role + L"  ____________________  " + person.name}};
            document.blocks.emplace_back(std::move(line));
        }
}

void addFrames(Document& document, const TitleBlockTexts& texts)
{
    widenMargins(document.page);
    for (Block& block : document.blocks)
        if (auto* section = std::get_if<Section>(&block))
            widenMargins(section->page);
    TitleBlockTexts own = texts;
    own.title = document.title;
    PageFrame& frame = document.frame;
    frame.draw = [own](const PageFormat& page, int number, int count) {
        return framedPage(page, own, number, count);
    };
    // The cells of the sheet's number in the forms, as plots/title_block.cpp has them.
    frame.firstNumber = {edge + 27.5, edge + 16.2};
    frame.firstCount = {edge + 10, edge + 16.2};
    frame.number = {edge + 5, edge + 2.7};
}
