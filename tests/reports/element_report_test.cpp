#include "dictionaries/dictionary.h"
#include "reports/element_report.h"
#include "site/element_site.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

std::wstring textOf(const TableCell& cell)
{
    std::wstring text;
    for (const Run& run : cell.runs)
        text += run.text;
    return text;
}

struct Report {
    explicit Report(DBProject& project, const ElementReportLook& look = {})
        : laboratory(project, look.language)
    {
        std::vector<const SiteElement*> elements;
        for (const SiteElement& element : laboratory.elements())
            elements.push_back(&element);
        document = elementReport(project, laboratory, elements, look);
    }

    const TableBlock* table(const wchar_t* title) const
    {
        for (const Block& block : document.blocks)
            if (const auto* found = std::get_if<TableBlock>(&block);
                found && found->title.find(title) != std::wstring::npos)
                return found;
        return nullptr;
    }
    std::size_t figures() const
    {
        return static_cast<std::size_t>(std::ranges::count_if(
            document.blocks, [](const Block& block) { return std::holds_alternative<Figure>(block); }));
    }
    std::wstring notes() const
    {
        std::wstring all;
        for (const Block& block : document.blocks)
            if (const auto* paragraph = std::get_if<Paragraph>(&block))
                for (const Run& run : paragraph->runs)
                    all += run.text + L"\n";
        return all;
    }

    SiteLaboratory laboratory;
    Document document;
};

} // namespace

TEST(ElementReport, ShowsComputedTypedAndTabledValuesEachWithItsMark)
{
    const auto project = siteOfOneElement();
    addLoam(*project);
    addDensities(*project);
    addShearTests(*project);
    project->getStrataElements().begin()->second.texts[element_text::DensityI] = L"1.80";
    const Report report(*project);
    const TableBlock* table = report.table(L"Нормативные и расчётные");
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->rows.size(), 1U);
    const auto& row = table->rows[0];
    ASSERT_EQ(row.size(), table->head[0].size()) << "a cell below each head";
    const auto under = [&](const wchar_t* head) -> const TableCell& {
        const auto place =
            std::ranges::find_if(table->head[0], [&](const TableCell& cell) { return textOf(cell) == head; });
        return row[static_cast<std::size_t>(place - table->head[0].begin())];
    };
    EXPECT_EQ(textOf(under(L"ρII")), L"1.92");
    EXPECT_EQ(under(L"ρII").decimals, 2);
    EXPECT_EQ(textOf(under(L"ρI")), L"1.80*");
    EXPECT_FALSE(under(L"ρI").number.has_value());
    EXPECT_EQ(textOf(under(L"φн, °")), L"20");
    EXPECT_EQ(textOf(under(L"cI")), L"21");
    EXPECT_EQ(textOf(under(L"E, МПа")).back(), L'†');
    EXPECT_EQ(textOf(under(L"R0, кПа")).back(), L'†');
    EXPECT_NE(report.notes().find(L"E — по таблицам СНиП"), std::wstring::npos);
    EXPECT_NE(report.notes().find(L"† — по таблицам норм"), std::wstring::npos);
    EXPECT_NE(report.notes().find(L"по частным значениям"), std::wstring::npos);
}

TEST(ElementReport, SingleValuesAndPicturesAreThereWhereAskedFor)
{
    const auto project = siteOfOneElement();
    addDensities(*project);
    sampleAt(*project, 30).physical.push_back({1, true, L"2.60"});
    EXPECT_EQ(Report(*project).table(L"частные значения"), nullptr);
    EXPECT_EQ(Report(*project).figures(), 0U);
    ElementReportLook look;
    look.withDensities = look.withFriction = look.withModuli = look.withSwelling = look.withGradings = true;
    const Report report(*project, look);
    const TableBlock* values = report.table(L"Плотность грунта, г/см3, частные значения");
    ASSERT_NE(values, nullptr);
    ASSERT_EQ(values->rows.size(), 11U);
    EXPECT_TRUE(values->rows[10][3].runs.front().isStruck);
    EXPECT_EQ(textOf(values->rows[10][4]), L"по правилу");
    EXPECT_FALSE(values->rows[0][3].runs.front().isStruck);
    EXPECT_EQ(report.table(L"Сцепление"), nullptr) << "of which there is none";
    EXPECT_EQ(report.figures(), 1U);
    const TableBlock* statistics = report.table(L"Статистика ИГЭ 1");
    ASSERT_NE(statistics, nullptr);
    const auto& row = statistics->rows[0];
    EXPECT_EQ(textOf(row[1]) + L" " + textOf(row[2]) + L" " + textOf(row[3]), L"10 1 1.93");
    EXPECT_EQ(textOf(row[8]) + L" " + textOf(row[10]), L"1.005 1.008");
}

// Letters that Ukrainian does not have give forgotten words away.
TEST(ElementReport, SpeaksTheLanguageOfTheDocuments)
{
    const auto project = siteOfOneElement();
    addDensities(*project);
    ElementReportLook look;
    look.withDensities = look.withFriction = look.withModuli = look.withGradings = true;
    look.language = languageUkrainian;
    const Report report(*project, look);
    EXPECT_TRUE(report.document.title.starts_with(L"Інженерно-геологічні елементи."));
    std::wstring said;
    std::size_t tables = 0;
    for (const Block& block : report.document.blocks) {
        if (const auto* heading = std::get_if<Heading>(&block); heading && heading->level == 1)
            said += heading->text;
        if (const auto* figure = std::get_if<Figure>(&block))
            said += figure->caption;
        if (const auto* table = std::get_if<TableBlock>(&block)) {
            ++tables;
            said += table->title;
            for (const TableCell& cell : table->head.front())
                said += textOf(cell);
        }
    }
    EXPECT_GE(tables, 3U);
    EXPECT_NE(said.find(L"Нормативні"), std::wstring::npos);
    EXPECT_EQ(said.find_first_of(L"ыэъёЫЭЪЁ"), std::wstring::npos);
    EXPECT_EQ(said.find(L"ИГЭ"), std::wstring::npos);
}

TEST(ElementReport, ElementsWithoutSamplesAreNoFault)
{
    const auto project = makeReference<DBProject>();
    EXPECT_TRUE(Report(*project).table(L"Нормативные")->rows.empty());
    project->addStrataElement(L"ИГЭ-2а", {});
    const Report report(*project);
    EXPECT_EQ(textOf(report.table(L"Нормативные")->rows[0][0]), L"2а") << "shown short";
    EXPECT_NE(report.notes().find(L"нет проб"), std::wstring::npos);
}
