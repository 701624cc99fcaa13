#include "db/db_project.h"
#include "reports/coordinates_report.h"
#include "reports/office_pages.h"

#include <gtest/gtest.h>

TEST(CoordinatesReport, ListsPointsWithDepthsAndSignatures)
{
    DBProject project;
    project.setProjectCode(L"2026-17");
    project.setProjectName(L"Жилой дом");
    PointRow row;
    row.text0 = L"1025,50";
    row.text1 = L"";
    row.absoluteMark = L"152.35";
    row.text6 = L"07.08.2026";
    project.addPointRegisterEntry({L"Т-2", 1}, {row});
    project.addPointRegisterEntry({L"Т-11", 3}, {PointRow()});
    for (const wchar_t* depth : {L"9.5", L"12,40", L"2"})
        project.addLithology({L"Т-2", depth}, {});
    Office office = emptyOffice();
    office.company = L"ООО «Грунт»";
    office.people = {{L"Выполнил", L"Иванов"}, {L"Проверил", L""}};
    office.signatures = Office::BelowTables;

    Document document = coordinatesReport(project);
    addOffice(document, office);
    EXPECT_EQ(document.footer, L"ООО «Грунт»");
    const TableBlock* table = nullptr;
    std::vector<std::wstring> paragraphs;
    for (const Block& block : document.blocks) {
        if (const auto* found = std::get_if<TableBlock>(&block))
            table = found;
        if (const auto* found = std::get_if<Paragraph>(&block))
            paragraphs.push_back(found->runs.front().text);
    }
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->rows.size(), 2U);
    const auto text = [&](std::size_t at, std::size_t column) {
        return table->rows[at][column].runs.front().text;
    };
    EXPECT_EQ(text(0, 1), L"Скважина"); // as a person counts, not as the register has them
    EXPECT_EQ(text(0, 3), L"1025.50");
    EXPECT_EQ(table->rows[0][3].decimals, 2);
    EXPECT_EQ(text(0, 4), L"–");
    EXPECT_EQ(text(0, 6), L"12.40"); // the deepest, not the last by text
    EXPECT_EQ(text(1, 1), L"Зондирование");
    EXPECT_EQ(text(1, 6), L"–");
    // Whom nobody has named does not sign.
    ASSERT_EQ(paragraphs.size(), 2U);
    EXPECT_EQ(paragraphs[0], L"Объект: Жилой дом");
    EXPECT_NE(paragraphs[1].find(L"Иванов"), std::wstring::npos);
}
