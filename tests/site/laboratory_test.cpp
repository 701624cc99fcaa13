#include "calc/number_support.h"
#include "core/base/reference.h"
#include "db/db_project.h"
#include "site/derived_cells.h"
#include "site/elements.h"

// What the cells of the laboratory hold, and the names of soils.

namespace
{

SoilNaming nameOf(const LabSample& sample, GrainScale scale)
{
    const auto project = makeReference<DBProject>();
    project->setGranGost(scale == GrainScale::Above200 ? 1 : 0);
    SoilClassifier classifier(*project, 0);
    return nameSoil(classifier.ground(), sample, sampleResult(sample, {}, scale, 0), scale, 0);
}

LabSample withProperties(const std::vector<std::pair<int, const wchar_t*>>& values)
{
    LabSample sample;
    for (const auto& [number, value] : values)
        sample.physical.push_back({number, true, value});
    return sample;
}

} // namespace

TEST(LoadCells, LoadsThatTheLadderLacksStandBehindAnAt)
{
    struct Row {
        const wchar_t* text;
        Number value;
        Number load;
        bool isLeftOut;
        bool isText;
    };
    const Row rows[] = {
        {L"0.0567@0.04", .0567, .04, false, false},
        {L"0,0567 @ 0,04", .0567, .04, false, false},
        {L"(0.0567@0.04)", .0567, .04, true, false},
        {L"(0.0567)@0.04", .0567, .04, true, false},
        {L"@0.04", {}, .04, false, false},
        {L"0.063", .063, {}, false, false},
        {L"(0.063)", .063, {}, true, false},
        {L"", {}, {}, false, false},
        {L"0.05@", {}, {}, false, true},
        {L"0.05@x", {}, {}, false, true},
        {L"1.2.3", {}, {}, false, true},
        {L"-", {}, {}, false, true},
        {L"1e400", {}, {}, false, true},
        {L"< 20", {}, {}, false, true},
    };
    for (const Row& row : rows) {
        const LoadCell cell = readLoadCell(row.text);
        EXPECT_EQ(cell.number.value, row.value) << testing::PrintToString(row.text);
        if (!row.isText) {
            EXPECT_EQ(cell.load, row.load);
        }
        EXPECT_EQ(cell.number.isLeftOut, row.isLeftOut);
        EXPECT_EQ(cell.isText, row.isText);
    }
    EXPECT_TRUE(readLoadCell(L"0.212!@0.04").number.isKept);
    EXPECT_EQ(compressionLoad(38), 1.0);
    EXPECT_EQ(shearLoad(13), .175);
    EXPECT_FALSE(swellLoad(14).has_value());
}

TEST(SampleCells, ALoadBesideTheLadderIsTheLoadOfItsStage)
{
    LabSample sample;
    sample.compression[21].cells = {
        {0, L"0", L"", L"", 0, L""}, {3, L"0.3@0.04", L"", L"", 0, L""}, {3, L"0.2", L"", L"", 0, L""}};
    const SampleInput input = sampleInput(sample, {});
    ASSERT_EQ(input.compression.size(), 1U);
    EXPECT_EQ(input.compression[0].oedometer.stages[1].load, .04);
    EXPECT_EQ(input.compression[0].oedometer.stages[2].load, .0375);
    EXPECT_EQ(input.compression[0].oedometer.height, 25.0);
}

TEST(SampleCells, VoidRatioOfTheSpecimenIsTheMeasuredElseTheTyped)
{
    LabSample sample = withProperties({{0, L"0.212"}, {1, L"1.94"}, {2, L"2.71"}, {6, L"0.9"}});
    sample.compression[21].cells = {{0, L"0", L"", L"", 0, L""}, {8, L"0.5", L"", L"", 0, L""}};
    const auto ratioOf = [&] {
        return sampleResult(sample, {}, GrainScale::Above200, 0).compression[0].oedometer.voidRatio;
    };
    expectNumber(ratioOf(), .693052);
    sample.physical[0].value.clear();
    expectNumber(ratioOf(), .9);
    sample.physical[3].value.clear();
    EXPECT_FALSE(ratioOf().has_value());
}

TEST(SampleCells, TypedDerivedValuesAreHeldAgainstTheMeasured)
{
    const auto remarksOf = [](const wchar_t* typed) {
        const LabSample sample = withProperties({{0, L"0.212"}, {1, L"1.94"}, {2, L"2.71"}, {6, typed}});
        return sampleResult(sample, {}, GrainScale::Above200, 0).remarks;
    };
    for (const wchar_t* typed : {L"0.693", L"0.69", L"0,7", L""})
        EXPECT_TRUE(remarksOf(typed).empty()) << testing::PrintToString(typed);
    ASSERT_EQ(remarksOf(L"0.70").size(), 1U);
    EXPECT_EQ(remarksOf(L"0.70")[0].cell, "physical/6");
    EXPECT_EQ(remarksOf(L"0.694").size(), 1U);
}

TEST(SoilNames, ByTheProgramsOwnClassification)
{
    LabSample sand;
    for (const auto& [number, share] : std::map<int, const wchar_t*>{{13, L"4"},
             {15, L"8"},
             {16, L"16"},
             {17, L"34"},
             {18, L"26"},
             {19, L"8"},
             {20, L"3"},
             {21, L"0.6"},
             {23, L"0.4"}})
        sand.grading.emplace(static_cast<std::uint8_t>(number), share);
    SoilNaming naming = nameOf(sand, GrainScale::Above200);
    EXPECT_EQ(naming.text, L"Песок средней крупности");
    EXPECT_EQ(naming.group, 3);
    EXPECT_EQ(naming.fractionClass, 6);

    // The scale from 800 mm: the fraction that rules, not the coarsest.
    LabSample ruled;
    for (const auto& [number, share] :
        std::map<int, const wchar_t*>{{12, L"5"}, {14, L"10"}, {15, L"15"}, {17, L"40"}, {18, L"30"}})
        ruled.grading.emplace(static_cast<std::uint8_t>(number), share);
    naming = nameOf(ruled, GrainScale::Above800);
    EXPECT_EQ(naming.text, L"Песчанные частицы средние");
    EXPECT_EQ(naming.group, 3);

    struct Row {
        std::vector<std::pair<int, const wchar_t*>> properties;
        const wchar_t* text;
        int group;
    };
    const Row rows[] = {
        {{{0, L"0.212"}, {3, L"0.312"}, {4, L"0.188"}}, L"Суглинок полутвердый", 6},
        {{{0, L"0.19"}, {3, L"0.24"}, {4, L"0.17"}}, L"Супесь пластичная", 5},
        {{{12, L"21"}}, L"Глина", 7},
        {{{36, L"60"}}, L"Скальный грунт прочный", 1},
        {{{18, L"61"}}, L"Торф", 9},
        {{{3, L"0.2"}, {4, L"0.195"}}, L"", 0},
        {{}, L"", 0},
    };
    for (const Row& row : rows)
        for (const GrainScale scale : {GrainScale::Above200, GrainScale::Above800}) {
            naming = nameOf(withProperties(row.properties), scale);
            EXPECT_EQ(naming.text, row.text);
            EXPECT_EQ(naming.group, row.group);
        }
    // Fines without limits are no sand.
    LabSample silt;
    silt.grading = {{19, L"20"}, {20, L"50"}, {23, L"30"}};
    EXPECT_EQ(nameOf(silt, GrainScale::Above200).text, L"");
}

TEST(DerivedCells, EmptyOnesAreFilledAndTypedOnesStay)
{
    LabSample sample = withProperties({{0, L"0.212"},
        {1, L"1.94"},
        {2, L"2.71"},
        {3, L"0.312"},
        {4, L"0.188"},
        {6, L"0.70"},
        {7, L""},
        {15, L"0.4"}});
    sample.swelling = {{1, L"2.684", L"", L""}, {4, L"", L"0.05", L"0.9"}};
    const SampleResult result = sampleResult(sample, {}, GrainScale::Above200, 0);
    const SoilNaming soil{6, 0, L"Суглинок полутвердый", {}};
    ASSERT_TRUE(fillDerivedCells(sample, result, soil, Fill::Empty));
    const auto valueOf = [&](int property) { return propertyCell(sample, property)->value; };
    EXPECT_EQ(valueOf(5), L"1.60");
    EXPECT_EQ(valueOf(6), L"0.70");
    EXPECT_EQ(valueOf(7), L"40.9");
    EXPECT_EQ(valueOf(12), L"12.4");
    EXPECT_EQ(valueOf(31), L"0.074");
    EXPECT_TRUE(std::is_sorted(sample.physical.begin(),
        sample.physical.end(),
        [](const PropertyCell& a, const PropertyCell& b) { return a.id < b.id; }));
    EXPECT_EQ(sample.swelling[0].textB, L"0.184");
    EXPECT_EQ(sample.swelling[1].textC, L"0.9");
    EXPECT_EQ(sample.soilKind.text, L"Суглинок полутвердый");
    EXPECT_FALSE(fillDerivedCells(sample, result, soil, Fill::Empty));
    ASSERT_TRUE(fillDerivedCells(sample, result, soil, Fill::All));
    EXPECT_EQ(valueOf(6), L"0.693");
    sample.soilKind = {0, L"Ил"};
    EXPECT_FALSE(fillDerivedCells(sample, result, soil, Fill::Empty));
}
