#include "calc/number_support.h"
#include "site/element_site.h"
#include "site/element_summary.h"
#include "site/standard_values.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

// Normative and design values as a report has them.

namespace
{

ElementSummary summaryIn(DBProject& project, bool withTyped = true)
{
    const SiteLaboratory laboratory(project, 0);
    return summariesOf(project, laboratory, withTyped).front();
}

StrataElement& elementIn(DBProject& project)
{
    return project.getStrataElements().begin()->second;
}

bool isNoted(const ElementSummary& summary, const wchar_t* text)
{
    return std::ranges::any_of(
        summary.notes, [&](const std::wstring& note) { return note.find(text) != std::wstring::npos; });
}

void expectValues(const DesignValues& values, double normative, double second, double first)
{
    expectNumber(values.normative, normative, 1e-2);
    expectNumber(values.second, second, 1e-2);
    expectNumber(values.first, first, 1e-2);
}

} // namespace

TEST(ElementSummaries, SamplesGiveNormativeAndDesignValues)
{
    const auto project = siteOfOneElement();
    addDensities(*project);
    addShearTests(*project);
    const ElementSummary summary = summaryIn(*project);
    EXPECT_EQ(summary.samples, 10U);
    EXPECT_EQ(summary.density.count, 10U);
    expectNumber(summary.density.normative, 1.93, 1e-9);
    expectNumber(summary.density.second, 1.92102, 1e-5);
    expectNumber(summary.density.first, 1.91506, 1e-5);
    // The tangents are averaged, not the angles: 20.3800 and not 20.3763.
    expectNumber(summary.friction.normative, 20.3800, 1e-4);
    expectValues(summary.friction, 20.3800, 19.9855, 19.6957);
    expectValues(summary.cohesion, 25, 22.97, 21.48);
    EXPECT_EQ(summary.shearWay, L"по частным значениям");
    EXPECT_EQ(valueMark(summary.friction, summary.friction.isTypedFirst), L"");
    EXPECT_TRUE(summary.notes.empty()) << testing::PrintToString(summary.notes);
}

TEST(ElementSummaries, TypedValuesWinWhereTheyAreWantedAndAreMarked)
{
    const auto project = siteOfOneElement();
    addDensities(*project);
    elementIn(*project).texts[element_text::DensityI] = L"1,8";
    elementIn(*project).texts[element_text::Modulus] = L"17";
    elementIn(*project).texts[element_text::CohesionNormative] = L"1.2.3";
    const ElementSummary typed = summaryIn(*project);
    EXPECT_EQ(typed.density.first, 1.8);
    EXPECT_EQ(valueMark(typed.density, typed.density.isTypedFirst), L"*");
    EXPECT_FALSE(typed.density.isTypedNormative);
    expectNumber(typed.density.second, 1.92102, 1e-5);
    EXPECT_EQ(typed.modulus.normative, 17);
    EXPECT_EQ(typed.modulus.first, 17) << "the modulus enters settlements as it is";
    EXPECT_FALSE(typed.cohesion.normative.has_value()) << "words are no number";
    const ElementSummary computed = summaryIn(*project, false);
    expectNumber(computed.density.first, 1.91506, 1e-5);
    EXPECT_FALSE(computed.modulus.normative.has_value());
}

TEST(ElementSummaries, TablesStandInWhereThereAreNoTestsAndSaySo)
{
    const auto project = siteOfOneElement();
    addLoam(*project);
    ElementSummary summary = summaryIn(*project);
    expectValues(summary.cohesion, 28.4169, 28.4169, 18.9446);
    expectValues(summary.friction, 23.5695, 23.5695, 20.4952);
    expectNumber(summary.modulus.normative, 19.8474, 1e-3);
    expectNumber(summary.resistance, 238.32, .01);
    EXPECT_EQ(valueMark(summary.friction, false), L"†");
    EXPECT_EQ(valueMark(summary.modulus, false), L"†");
    EXPECT_EQ(valueMark(summary.density, false), L"");
    ASSERT_TRUE(isNoted(summary, L"φ, c, E — по таблицам"));
    EXPECT_TRUE(isNoted(summary, L"φ 1.15, c 1.50"));

    // What is typed needs no table, and no design value of another origin stands beside it.
    elementIn(*project).texts[element_text::FrictionNormative] = L"21";
    elementIn(*project).texts[element_text::CohesionI] = L"10";
    summary = summaryIn(*project);
    EXPECT_FALSE(summary.friction.isFromTable);
    EXPECT_FALSE(summary.friction.first.has_value());
    EXPECT_EQ(summary.cohesion.first, 10);
    EXPECT_TRUE(isNoted(summary, L"c, E — по таблицам"));
    EXPECT_FALSE(isNoted(summary, L"φ"));

    // One test is enough to leave the table aside, though it gives no design value.
    addShearTests(*project);
    for (auto sample = std::next(project->getLabSamples().begin()); sample != project->getLabSamples().end();
         ++sample)
        sample->second.shear.clear();
    elementIn(*project).texts = {};
    summary = summaryIn(*project);
    expectNumber(summary.friction.normative, 19.7989, 1e-3);
    EXPECT_FALSE(summary.friction.isFromTable);
    EXPECT_TRUE(summary.modulus.isFromTable);
}

TEST(ElementSummaries, TablesAreForSoilsOfTheirAgeAndOrigin)
{
    const struct {
        const wchar_t* index;
        bool hasStrength;
        bool hasModulus;
    } rows[] = {{L"", true, true},
        {L"aQ_III", true, true},
        {L"adQ", true, true},
        {L"gQ_II", true, false},
        {L"N_2", false, false}};
    for (const auto& row : rows) {
        const auto project = siteOfOneElement();
        addLoam(*project);
        elementIn(*project).texts[element_text::GeologicalIndex] = row.index;
        const ElementSummary summary = summaryIn(*project);
        EXPECT_EQ(summary.friction.isFromTable, row.hasStrength) << testing::PrintToString(row.index);
        EXPECT_EQ(summary.modulus.isFromTable, row.hasModulus) << testing::PrintToString(row.index);
    }
}

TEST(ElementSummaries, TheSandIsKnownByItsNameElseByItsGradings)
{
    const auto project = siteOfOneElement(ElementKind::Sand);
    LabSample& sample = sampleAt(*project, 0);
    sample.physical = {{0, true, L"0.08"}, {1, true, L"1.75"}, {2, true, L"2.66"}}; // e .641600
    EXPECT_FALSE(summaryIn(*project).friction.normative.has_value()) << "which sand?";
    sample.grading = {{13, L"4"},
        {15, L"8"},
        {16, L"16"},
        {17, L"34"},
        {18, L"26"},
        {19, L"8"},
        {20, L"3"},
        {21, L"0.6"},
        {23, L"0.4"}};
    expectNumber(summaryIn(*project).friction.normative, 35.252, 1e-3); // medium
    project->addNumberedLink(L"ИГЭ 1:0", L"Песок мелкий");
    expectNumber(summaryIn(*project).friction.normative, 32.336, 1e-3);
    expectNumber(summaryIn(*project).friction.first, 32.336 / 1.1, 1e-3);
    expectNumber(summaryIn(*project).resistance, 300, 1e-9); // of medium density, little moist
    elementIn(*project).code = static_cast<std::int32_t>(ElementKind::Coarse);
    project->getNumberedLinks().find(L"ИГЭ 1:0")->second = L"Галечниковый грунт с песчаным заполнителем";
    expectNumber(summaryIn(*project).resistance, 600, 1e-9);
    elementIn(*project).code = static_cast<std::int32_t>(ElementKind::Organic);
    EXPECT_FALSE(summaryIn(*project).resistance.has_value());
}

TEST(ElementSummaries, BearsFewEqualAndOddValues)
{
    const auto project = siteOfOneElement(ElementKind::NotGiven);
    EXPECT_TRUE(isNoted(summaryIn(*project), L"нет проб"));
    EXPECT_FALSE(summaryIn(*project).density.normative.has_value());
    const auto add = [&](std::size_t number, const wchar_t* value) {
        sampleAt(*project, number).physical = {{1, true, value}, {16, true, L"0"}};
    };
    add(0, L"1.9");
    EXPECT_EQ(summaryIn(*project).density.normative, 1.9);
    EXPECT_TRUE(isNoted(summaryIn(*project), L"Плотность: определений 1, нужно не меньше 10; есть только"));
    add(1, L"1.9");
    EXPECT_FALSE(summaryIn(*project).density.first.has_value()) << "not from two";
    for (std::size_t number = 2; number < 12; ++number)
        add(number, L"1.9");
    const ElementSummary equal = summaryIn(*project);
    expectNumber(equal.density.first, 1.9, 1e-9); // no spread, nothing to take off
    EXPECT_TRUE(equal.notes.empty());
    const SiteLaboratory laboratory(*project, 0);
    const Statistics* zero = statisticsOf(laboratory.elements().front(), 16);
    ASSERT_NE(zero, nullptr);
    EXPECT_EQ(zero->mean, 0);
    EXPECT_FALSE(zero->variation.has_value()) << "nothing to divide by";
    // Everything left out by hand.
    for (auto& [key, sample] : project->getLabSamples())
        sample.physical[0].enabled = false;
    EXPECT_FALSE(summaryIn(*project).density.normative.has_value());
    // The element goes, its link stays.
    project->clearStrataElements();
    EXPECT_TRUE(summariesOf(*project, SiteLaboratory(*project, 0), true).empty());
}

TEST(ElementSummaries, ATrendWithDepthAsksForASplit)
{
    for (const bool rises : {true, false}) {
        const auto project = siteOfOneElement();
        for (std::size_t number = 0; number < 8; ++number)
            sampleAt(*project, number)
                .physical.push_back({1,
                    true,
                    numberText(rises ? 1.8 + .02 * double(number) : 1.9 + .02 * double(number % 2), 2)});
        const SiteLaboratory laboratory(*project, 0);
        const std::wstring warning =
            trendWarning(laboratory, propertyValues(laboratory, laboratory.elements().front(), 1));
        EXPECT_EQ(warning.find(L"растут с глубиной") != std::wstring::npos, rises) << rises;
    }
}

TEST(ElementSummaries, ValuesOfStrengthStandWithTheirSamples)
{
    const auto project = siteOfOneElement();
    addShearTests(*project);
    project->getLabSamples().begin()->second.shear[3].push_back({255, L"-"});
    const SiteLaboratory laboratory(*project, 0);
    const SiteElement& element = laboratory.elements().front();
    const auto values = propertyValues(laboratory, element, cohesionProperty);
    ASSERT_EQ(values.size(), 6U);
    EXPECT_NEAR(values[0].value, .026, 1e-9);
    EXPECT_EQ(values[0].excluded, ExcludedBy::Hand);
    EXPECT_NEAR(values[5].value, .028, 1e-9);
    EXPECT_EQ(values[5].excluded, ExcludedBy::Nobody);
    EXPECT_EQ(propertiesOf(element), (std::vector<int>{frictionProperty, cohesionProperty}));
}

TEST(StandardValues, TheFileBesideTheProgramIsReadOrTold)
{
    const auto folder = std::filesystem::temp_directory_path() / "tellurix standard tables";
    std::filesystem::create_directories(folder);
    const auto file = folder / "standard_tables.txt";
    std::filesystem::remove(file);
    const auto read = [&](std::vector<TableMistake>& mistakes) {
        return standardTablesBeside(folder.wstring(), mistakes).lateralExpansion(3);
    };
    std::vector<TableMistake> mistakes;
    EXPECT_EQ(read(mistakes), .6);
    EXPECT_EQ(standardTableWarning(mistakes), L"");
    std::string text(StandardTables::programText());
    const std::string row = "суглинок; -; 0.6;";
    text.replace(text.find(row), row.size(), "суглинок; -; 0.62;");
    std::ofstream(file, std::ios::binary) << text;
    EXPECT_EQ(read(mistakes), .62);
    EXPECT_TRUE(mistakes.empty());
    std::ofstream(file, std::ios::binary) << "бета; суглинок; -; 0.7\n" << text;
    EXPECT_EQ(read(mistakes), .6) << "with a mistake none of it is taken";
    EXPECT_NE(standardTableWarning(mistakes).find(L"standard_tables.txt, строка 1: "), std::wstring::npos);
    std::filesystem::remove_all(folder);
}
