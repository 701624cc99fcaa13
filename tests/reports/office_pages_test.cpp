#include "db/db_project.h"
#include "document/docx.h"
#include "document/office_reader.h"
#include "document/pages.h"
#include "plots/plot_checks.h"
#include "reports/office_pages.h"

#include <gtest/gtest.h>

namespace
{

Office filledOffice()
{
    Office office;
    office.company = L"ООО «Грунт»";
    office.stage = L"П";
    office.date = L"22.11.26";
    office.people = {{L"Выполнил", L"Иванов"}, {L"Проверил", L""}};
    office.agreed = {{L"ГИП", L"Савин"}};
    return office;
}

Document longDocument()
{
    Document document;
    document.title = L"Ведомость";
    TableBlock table;
    table.head = {{TableCell{.runs = {{L"Номер"}}}}};
    for (int row = 0; row < 150; ++row)
        table.rows.push_back({TableCell{.runs = {{L"строка " + std::to_wstring(row)}}}});
    document.blocks.emplace_back(std::move(table));
    document.blocks.emplace_back(Section{{297, 210, 5, 5, 5, 5}});
    document.blocks.emplace_back(Paragraph{{{L"поперёк"}}});
    return document;
}

} // namespace

TEST(OfficePages, TextsStandInTheFrameAndAboveTheStamp)
{
    DBProject project;
    project.setProjectCode(L"2026-17");
    Document document = longDocument();
    addFrames(document, titleBlockTexts(filledOffice(), &project, 0));
    const std::vector<Drawing> pages = pagesOf(document);
    ASSERT_GE(pages.size(), 4U);
    int rows = 0;
    for (std::size_t page = 0; page < pages.size(); ++page) {
        const Drawing& drawing = pages[page];
        EXPECT_TRUE(textsAreApart(drawing)) << page;
        EXPECT_TRUE(hasText(drawing, L"2026-17")) << page;
        EXPECT_EQ(hasText(drawing, L"Иванов"), page == 0) << page;
        EXPECT_EQ(hasText(drawing, L"Савин"), page == 0) << page;
        EXPECT_TRUE(hasText(drawing, std::to_wstring(page + 1))) << page;
        const double stamp = page == 0 ? 40 : 15;
        for (const Item& item : drawing.items)
            if (const auto* text = std::get_if<Text>(&item.shape);
                text && text->text.rfind(L"строка", 0) == 0) {
                const Extent extent = *extentOf(item);
                EXPECT_GE(extent.left, 20);
                EXPECT_GE(extent.top, 5);
                EXPECT_LE(extent.right, drawing.width - 5);
                EXPECT_LE(extent.bottom, drawing.height - 5 - stamp);
                ++rows;
            }
    }
    EXPECT_EQ(rows, 150);
    EXPECT_TRUE(hasText(pages.front(), std::to_wstring(pages.size())));
}

// A text processor counts by itself: the frames of its headers hold no numbers, and the texts of the first
// page are moved up by a foot.
TEST(OfficePages, TextProcessorsGetFreeCellsAndAFootOfTheStampsHeight)
{
    Document document = longDocument();
    addFrames(document, titleBlockTexts(filledOffice(), nullptr, 0));
    const Drawing first = document.frame.draw(document.page, 1, 0);
    EXPECT_FALSE(hasText(first, L"1"));
    EXPECT_FALSE(hasText(first, L"0"));
    auto parts = partsOf(toDocx(document));
    EXPECT_NE(parts["word/document.xml"].find(R"(<w:footerReference w:type="first")"), std::string::npos);
    EXPECT_NE(parts["word/footer1.xml"].find(R"(w:lineRule="exact")"), std::string::npos);
}

TEST(OfficePages, NamesLeaveTheStampWhereTheySignBelow)
{
    Office office = filledOffice();
    office.signatures = Office::BelowTables;
    const TitleBlockTexts texts = titleBlockTexts(office, nullptr, 0);
    ASSERT_EQ(texts.people.size(), 2U);
    EXPECT_EQ(texts.people[0].role, L"Выполнил");
    EXPECT_EQ(texts.people[0].name, L"");
    Document document = longDocument();
    document.author = L"Автор";
    addOffice(document, office, Drawing{.width = 30, .height = 10});
    EXPECT_EQ(document.author, L"Автор");
    EXPECT_TRUE(std::holds_alternative<Figure>(document.blocks.front()));
    EXPECT_EQ(document.footer, L"ООО «Грунт»");
    // Whom nobody has named does not sign.
    EXPECT_EQ(document.blocks.size(), longDocument().blocks.size() + 2);
}
