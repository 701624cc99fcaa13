#include "dictionaries/fractions.h"
#include "ground/soil_support.h"

namespace
{

using Fractions = GroundController::Fractions;

// Percentages by rank of the scale, from the coarsest fraction down.
Fractions ranked(const std::vector<std::wstring>& texts, int granGost)
{
    const auto& numbers = granGost == 1 ? fractionNumber200 : fractionNumber800;
    Fractions fractions;
    for (std::size_t i = 0; i < texts.size(); ++i)
        fractions.emplace(static_cast<std::uint8_t>(numbers.at(static_cast<int>(i + 1))), texts[i]);
    return fractions;
}

// The soil group as the frozen grades show it: its name, or what was there before for none.
std::wstring groupOf(Soils& soils, const Fractions& fractions)
{
    soils.setSoilGroup(9);
    soils.determineFrozenGrades(L"", L"", L"", L"", L"", L"", L"");
    soils.determineGroup(fractions);
    soils.determineFrozenGrades(L"", L"", L"", L"", L"", L"", L"");
    return soils.groupName() == L"Торф" ? L"нет" : soils.groupName();
}

const std::wstring coarse = L"Крупнообломочный грунт";
const std::wstring coarseSand = L"Песок гравелистый, крупный и средней крупности";
const std::wstring fineSand = L"Песок мелкий и пылеватый";

} // namespace

// Class minus 4 is what determineSand returns, so -4 is no class at all.
TEST(Grading, ClassesOfTheScale200)
{
    struct Row {
        std::vector<std::wstring> percentages;
        int sand;
        std::wstring group;
    };
    const Row rows[] = {
        {{L"60"}, 1 - 4, coarse},
        {{L"50"}, -4, L"нет"},
        {{L"50.0001"}, 1 - 4, coarse},
        {{L"0", L"20", L"20", L"10", L"0", L"0.01"}, 2 - 4, L"нет"},
        {{L"0", L"0", L"0", L"0", L"0", L"0", L"30", L"21"}, 3 - 4, L"нет"},
        {{L"0", L"0", L"0", L"0", L"0", L"0", L"30", L"20"}, 4 - 4, coarseSand},
        {{L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"25", L"0", L"26"}, 5 - 4, coarseSand},
        {{L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"25", L"0", L"25", L"1"}, 6 - 4, coarseSand},
        {{L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"50", L"25"}, 7 - 4, fineSand},
        {{L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"50", L"24.9"}, 8 - 4, fineSand},
        {{L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0.00001"}, -4, L"нет"},
        {{L"0", L"50", L"0", L"0", L"0", L"0"}, -4, L"нет"},
        // Nothing finer than the sand's bounds is looked at.
        {{L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"0", L"80"}, -4, L"нет"},
        // A hole forgets what stands above it.
        {{L"40", L"10", L"10", L"", L"0", L"40"}, -4, L"нет"},
        {{L"30", L"0", L"0", L"0", L"", L"51"}, 2 - 4, L"нет"},
        {{L"3e38", L"3e38"}, 1 - 4, coarse},
        {{L"0", L"3e38", L"3e38", L"-inf"}, -4, L"нет"},
        {{}, -4, L"нет"},
    };
    Soils soils;
    for (const Row& row : rows) {
        const Fractions fractions = ranked(row.percentages, 1);
        EXPECT_EQ(soils.determineSand(fractions), row.sand) << row.percentages.size() << " fractions";
        EXPECT_EQ(groupOf(soils, fractions), row.group) << row.percentages.size() << " fractions";
    }
}

TEST(Grading, ClassChangesJustBesideItsPercentage)
{
    struct Row {
        std::size_t rank; // of the only fraction that is there
        float bound;
        int below, at, above;
    };
    const Row rows[] = {{1, 50, 0, 0, 1},
        {6, 50, 0, 0, 2},
        {8, 50, 4, 4, 3},
        {8, 25, 0, 0, 4},
        {10, 50, 0, 0, 5},
        {11, 50, 0, 0, 6},
        {12, 75, 8, 7, 7},
        {12, 0.00001F, 0, 0, 8}};
    Soils soils;
    for (const Row& row : rows) {
        const auto classAt = [&](float percentage) {
            std::vector<std::wstring> texts(row.rank, L"0");
            texts.back() = textOf(percentage);
            return soils.determineSand(ranked(texts, 1)) + 4;
        };
        EXPECT_EQ(classAt(justBelow(row.bound)), row.below) << row.rank << ", below " << row.bound;
        EXPECT_EQ(classAt(row.bound), row.at) << row.rank << ", at " << row.bound;
        EXPECT_EQ(classAt(justAbove(row.bound)), row.above) << row.rank << ", above " << row.bound;
    }
}

// What one call found has no part in the next.
TEST(Grading, NothingIsLeftOfTheSoilBefore)
{
    const Fractions boulders = {{4, L"60"}};
    Soils soils;
    soils.determineGroup(boulders);
    soils.determineFrozenGrades(L"", L"", L"", L"", L"", L"", L"");
    EXPECT_EQ(soils.groupName(), coarse);
    soils.determineGroup({});
    EXPECT_EQ(
        failureOf([&] { soils.determineFrozenGrades(L"?", L"?", L"?", L"?", L"?", L"?", L"?"); }), "none")
        << "there is no group to grade";

    struct Row {
        const wchar_t* before;
        const wchar_t* plasticity;
        std::wstring group;
    };
    for (const Row& row : {Row{L"20", L"", coarse},
             Row{L"10", L"0.5", coarse},
             Row{L"5", L"nan", coarse},
             Row{L"5", L"10", L"Суглинок"},
             Row{L"5", L"20", L"Глина"},
             Row{L"10", L"20", L"Глина"},
             Row{L"20", L"5", L"Супесь"}}) {
        soils.determineCohesive(row.before, L"");
        soils.determineCohesive(row.plasticity, L"");
        EXPECT_EQ(groupOf(soils, boulders), row.group) << row.plasticity;
    }
}

TEST(Grading, TheScale800LooksAtBoundsAlone)
{
    Soils soils;
    soils.project().setGranGost(0);
    // Full columns end at rank 2 whatever they hold.
    EXPECT_EQ(soils.determineSand(ranked(std::vector<std::wstring>(16, L"0"), 0)), 12 - 19);
    EXPECT_EQ(soils.determineSand(ranked({L"100"}, 0)), -19);
    // One fraction alone, rank by rank.
    const int classes[] = {0, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26};
    for (int rank = 1; rank <= 16; ++rank) {
        const Fractions one = {{static_cast<std::uint8_t>(fractionNumber800.at(rank)), L""}};
        const int expected = classes[rank - 1];
        EXPECT_EQ(soils.determineSand(one), expected - 19) << "rank " << rank;
        const std::wstring group = expected >= 11 && expected <= 13 ? coarse
            : expected >= 19 && expected <= 23                      ? coarseSand
            : expected == 24 || expected == 25                      ? fineSand
                                                                    : L"нет";
        EXPECT_EQ(groupOf(soils, one), group) << "rank " << rank;
    }
}

TEST(Grading, CohesiveSoilsTakeTheGroupOfTheirName)
{
    struct Row {
        const wchar_t* plasticity;
        int granGost;
        Fractions fractions;
        std::wstring group;
    };
    const Row rows[] = {
        {L"5", 1, {{4, L"60"}}, L"Супесь"},
        {L"10", 1, {}, L"Суглинок"},
        {L"20", 1, {}, L"Глина"},
        {L"10", 0, {{5, L"60"}}, L"нет"},
        {L"10", 0, {{24, L"60"}}, L"Глина"},
        {L"20", 2, {}, L"нет"},
    };
    Soils soils;
    for (const Row& row : rows) {
        soils.project().setGranGost(row.granGost);
        soils.determineCohesive(row.plasticity, L"");
        EXPECT_EQ(groupOf(soils, row.fractions), row.group) << row.granGost;
    }
}

TEST(Grading, Failures)
{
    Soils soils;
    EXPECT_EQ(failureOf([&] { soils.determineSand({{1, L"5"}, {15, L"плохо"}}); }), "invalid map<K, T> key");
    EXPECT_EQ(failureOf([&] { soils.determineSand({{15, L"плохо"}}); }), "invalid stof argument");
    soils.project().setGranGost(0);
    EXPECT_EQ(failureOf([&] { soils.determineGroup({{4, L"5"}}); }), "invalid map<K, T> key");
    soils.project().setGranGost(7);
    EXPECT_EQ(soils.determineSand({{99, L"плохо"}}), 7);
}

TEST(Grading, FollowsTheProjectThatIsOpen)
{
    Soils soils;
    soils.classifyFor(nullptr);
    EXPECT_EQ(soils.determineSand({{4, L"60"}}), -1);
    EXPECT_EQ(groupOf(soils, {{4, L"60"}}), L"нет");
    const auto other = makeReference<DBProject>();
    other->setGranGost(0);
    soils.classifyFor(other.get());
    EXPECT_EQ(soils.determineSand({{15, L"60"}}), 0);
}
