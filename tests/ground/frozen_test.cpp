#include "ground/frozen_ground.h"
#include "ground/soil_support.h"

namespace
{

const std::wstring none = L"Не определен";

// The texts that the frozen grades are made of, by the names of the trade.
struct Readings {
    std::wstring thaw;
    std::wstring soil;
    std::wstring freeze;
    std::wstring filling;
    std::wstring compressibility;
};

std::wstring stateOf(Soils& soils, int group, const Readings& readings)
{
    soils.setSoilGroup(group);
    soils.determineFrozenGrades(
        L"", L"", readings.thaw, readings.soil, readings.freeze, readings.filling, readings.compressibility);
    return soils.frozenStateName();
}

const std::wstring hard = L"твердомерзлый";
const std::wstring plastic = L"пластичномерзлый";
const std::wstring loose = L"сыпучемерзлый";

} // namespace

TEST(FrozenSoil, StateByGroup)
{
    struct Row {
        std::vector<int> groups;
        Readings readings;
        std::wstring state;
    };
    const Row rows[] = {
        {{1, 2}, {L"-1", L"-2", L"", L"1", L"0.1"}, hard},
        {{1, 2}, {L"0", L"-2", L"", L"1", L""}, hard},
        {{1}, {L"0.00001", L"-2", L"", L"0", L"0"}, none},
        {{1}, {L"-1", L"-2", L"плохо", L"плохо", L"0.11"}, none},
        {{1}, {L"-1", L"-1", L"", L"0", L"0"}, none},
        // Exactly the group's temperature, as the single that its text reads as.
        {{3}, {L"-0.1", L"-2", L"", L"1", L"0.05"}, hard},
        {{3}, {L"-0.10", L"-2", L"", L"1", L"0.05"}, hard},
        {{3}, {L"-0.099", L"-2", L"", L"1", L"0.05"}, none},
        {{4}, {L"-0.3", L"-2", L"", L"1", L"0.05"}, hard},
        {{5}, {L"-0.6", L"-2", L"", L"1", L"0.05"}, hard},
        {{6}, {L"-1", L"-2", L"", L"1", L"0.05"}, hard},
        {{7}, {L"-1.5", L"-2", L"", L"1", L"0.05"}, hard},
        {{3, 4, 5, 6, 7}, {L"-1.2", L"-2", L"", L"1", L"0.05"}, none},
        // Between thawing and freezing.
        {{2, 3, 4, 5, 6, 7}, {L"-2", L"-1", L"-0.5", L"0.79", L"0.2"}, plastic},
        {{3, 4, 5, 6, 7}, {L"-2", L"-1", L"-0.5", L"0.79", L"0.1"}, plastic},
        {{2}, {L"-2", L"-1", L"-0.5", L"0.79", L"0.1"}, none},
        {{2, 3, 4}, {L"-2", L"-1", L"-0.5", L"0.8", L"0.2"}, none},
        {{5, 6, 7}, {L"-2", L"-1", L"-0.5", L"0.8", L"0.2"}, plastic},
        {{2, 3, 4, 5, 6, 7}, {L"-2", L"-0.5", L"-0.5", L"0.5", L"0.2"}, none},
        // Nearly empty pores below zero.
        {{2, 3, 4, 5, 6, 7}, {L"-2", L"-2", L"", L"0.15", L"0.2"}, loose},
        {{2, 3, 4, 5, 6, 7}, {L"-2", L"-2", L"", L"0.16", L"0.2"}, none},
        {{2, 3, 4, 5, 6, 7}, {L"", L"0", L"", L"", L""}, none},
        {{8, 9}, {L"плохо", L"плохо", L"", L"", L""}, none},
        // Just beside what is asked of compressibility and filling.
        {{1}, {L"-1", L"-2", L"", L"1", textOf(justAbove(0.1F))}, none},
        {{2}, {L"-2", L"-1", L"-0.5", L"0.5", textOf(justAbove(0.1F))}, plastic},
        {{3}, {L"-0.1", L"-2", L"", L"1", L"0.1"}, hard},
        {{3}, {L"-0.1", L"-2", L"", L"1", textOf(justAbove(0.1F))}, none},
        {{2, 3, 4}, {L"-2", L"-1", L"-0.5", textOf(justBelow(0.8F)), L"0.2"}, plastic},
        {{2, 3, 4, 5, 6, 7}, {L"-2", L"-2", L"", textOf(justAbove(0.15F)), L"0.2"}, none},
    };
    Soils soils;
    for (const Row& row : rows)
        for (const int group : row.groups)
            EXPECT_EQ(stateOf(soils, group, row.readings), row.state)
                << "group " << group << ", row " << &row - rows;
}

TEST(FrozenSoil, SalinityHasGapsBetweenItsBands)
{
    Soils soils;
    const auto salinityIn = [&](int group) {
        return [&soils, group](const std::wstring& text) {
            soils.setSoilGroup(group);
            soils.determineFrozenGrades(text, L"", L"", L"", L"", L"", L"");
            return soils.salinityGrade();
        };
    };
    const wchar_t* const gap = none.c_str();
    for (const int group : {3, 4})
        expectThresholds({{0.05F, gap, L"слабозасоленный", L"слабозасоленный"},
                             {0.1F, L"слабозасоленный", L"слабозасоленный", gap},
                             {1, gap, L"среднезасоленный", L"среднезасоленный"},
                             {2, L"среднезасоленный", L"среднезасоленный", L"сильнозасоленный"}},
            salinityIn(group));
    for (const int group : {5, 6, 7})
        expectThresholds({{0.2F, gap, L"слабозасоленный", L"слабозасоленный"},
                             {0.5F, L"слабозасоленный", L"слабозасоленный", L"среднезасоленный"},
                             {1, L"среднезасоленный", L"среднезасоленный", L"сильнозасоленный"}},
            salinityIn(group));
    EXPECT_EQ(salinityIn(2)(L"плохо"), none);
}

// The ice grade is handed out by nobody: its ladders are asked themselves, and that its text is read shows.
TEST(FrozenSoil, IceIsGradedInAllButCoarseSoilAndPeat)
{
    const auto expectIce = [](int group, float bound, int below, int at, int above) {
        const Ladder ice = findFrozenGroup(group)->ice;
        EXPECT_EQ(gradeOf(ice, justBelow(bound)), below) << group << " below " << bound;
        EXPECT_EQ(gradeOf(ice, bound), at) << group << " at " << bound;
        EXPECT_EQ(gradeOf(ice, justAbove(bound)), above) << group << " above " << bound;
    };
    expectIce(1, 0.01F, 0, 0, 1);
    expectIce(1, 0.05F, 1, 1, 2);
    Soils soils;
    const auto failureIn = [&](int group) {
        soils.setSoilGroup(group);
        return failureOf([&] { soils.determineFrozenGrades(L"", L"лед", L"", L"", L"", L"", L""); });
    };
    EXPECT_EQ(failureIn(1), "invalid stof argument");
    for (const int group : {3, 4, 5, 6, 7}) {
        expectIce(group, 0.2F, 0, 1, 1);
        expectIce(group, 0.4F, 1, 1, 2);
        expectIce(group, 0.6F, 2, 2, 3);
        expectIce(group, 0.9F, 3, 3, noGrade);
        EXPECT_EQ(failureIn(group), "invalid stof argument");
    }
    for (const int group : {2, 8, 9})
        EXPECT_EQ(failureIn(group), "none");
}

TEST(FrozenSoil, ABadTextLeavesTheNameNewAndTheGradesUndetermined)
{
    Soils soils;
    soils.setSoilGroup(5);
    soils.determineFrozenGrades(L"0.3", L"", L"-0.6", L"-2", L"", L"1", L"0.05");
    EXPECT_EQ(soils.salinityGrade(), L"слабозасоленный");
    EXPECT_EQ(soils.frozenStateName(), hard);
    soils.setSoilGroup(7);
    EXPECT_EQ(failureOf([&] { soils.determineFrozenGrades(L"0.3", L"", L"-1.5", L"-2", L"", L"?", L"0"); }),
        "invalid stof argument");
    EXPECT_EQ(soils.groupName(), L"Глина");
    EXPECT_EQ(soils.salinityGrade(), none);
    EXPECT_EQ(soils.frozenStateName(), none);
    EXPECT_EQ(failureOf([&] { soils.determineFrozenGrades(L"много", L"", L"-1.5", L"-2", L"", L"1", L"0"); }),
        "invalid stof argument");
    EXPECT_EQ(soils.frozenStateName(), hard);
    EXPECT_EQ(soils.salinityGrade(), none);
}

TEST(FrozenSoil, WithoutAGroupNothingHappensAndAnUnknownOneClearsTheTexts)
{
    Soils soils;
    stateOf(soils, 5, {L"-0.6", L"-2", L"", L"1", L"0.05"});
    EXPECT_EQ(stateOf(soils, 0, {L"плохо", L"", L"", L"", L""}), hard);
    EXPECT_EQ(soils.groupName(), L"Супесь");
    EXPECT_EQ(stateOf(soils, 12, {L"плохо", L"", L"", L"", L""}), none);
    EXPECT_EQ(soils.groupName(), L"Супесь");
}
