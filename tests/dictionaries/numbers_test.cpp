#include "core/base/text_number.h"
#include "dictionaries/fractions.h"
#include "dictionaries/pile_coefficients.h"
#include "dictionaries/properties.h"
#include "dictionaries/property_sets.h"
#include "dictionaries/student_coefficients.h"
#include "dictionaries/test_loads.h"

#include <gtest/gtest.h>

#include <set>
#include <span>
#include <string_view>
#include <vector>

namespace
{

struct Scale {
    decltype(fractionRank200) ranks;
    decltype(fractionNumber200) numbers;
    decltype(fractionBound200) bounds;
    decltype(fractionCaptions200) captions;
    decltype(fractionRankByCaption200) ranksByCaption;
    int absent; // a number of the other scale
};

const Scale scales[] = {
    {fractionRank200, fractionNumber200, fractionBound200, fractionCaptions200, fractionRankByCaption200, 1},
    {fractionRank800, fractionNumber800, fractionBound800, fractionCaptions800, fractionRankByCaption800, 4},
};

// The two grain sizes of "60 - 40", the one of "> 200" or "< 0.005".
std::vector<float> sizesIn(std::wstring_view caption)
{
    const bool oneSided = caption.front() == L'>' || caption.front() == L'<';
    if (oneSided)
        return {textToFloat(caption.substr(2))};
    const std::size_t dash = caption.find(L" - ");
    return {textToFloat(caption.substr(0, dash)), textToFloat(caption.substr(dash + 3))};
}

TEST(Fractions, EachScaleIsAChainFromTheCoarsestDown)
{
    for (const Scale& scale : scales) {
        EXPECT_EQ(scale.ranks.find(scale.absent), nullptr);
        for (int rank = 1; rank <= 16; ++rank) {
            SCOPED_TRACE(rank);
            const int number = scale.numbers.at(rank);
            EXPECT_EQ(scale.ranks.at(number), rank);
            EXPECT_EQ(scale.captions.at(rank), fractionCaptions.at(number));
            EXPECT_EQ(scale.ranksByCaption.at(scale.captions.at(rank)), rank);
            if (rank == 1)
                continue;
            EXPECT_GT(number, scale.numbers.at(rank - 1));
            EXPECT_EQ(sizesIn(scale.captions.at(rank)).front(), scale.bounds.at(rank - 1));
        }
        EXPECT_EQ(sizesIn(scale.captions.at(1)).front(), scale.bounds.at(1));
        for (int rank = 2; rank < 16; ++rank)
            EXPECT_EQ(sizesIn(scale.captions.at(rank)).back(), scale.bounds.at(rank));
        EXPECT_EQ(scale.bounds.at(16), 0.001F);
    }
    for (int rank = 9; rank <= 14; ++rank)
        EXPECT_EQ(fractionNumber200.at(rank), fractionNumber800.at(rank));
    EXPECT_EQ(fractionCaptions.size(), 24U);
}

std::vector<int> numbersOf(std::span<const PropertyRow> rows)
{
    std::vector<int> numbers;
    for (const PropertyRow& row : rows)
        numbers.push_back(row.number);
    return numbers;
}

TEST(PropertySets, HoldKnownPropertiesOnceAndBlank)
{
    const std::span<const PropertyRow> sets[] = {propertySetAll,
        propertySetCohesive,
        propertySetCohesiveFrozen,
        propertySetCoarseFrozen,
        propertySetFull,
        propertySetRockFrozen,
        propertySetCoarse,
        propertySetRock};
    const std::size_t sizes[] = {68, 27, 40, 28, 45, 23, 15, 10};
    for (std::size_t i = 0; i < std::size(sets); ++i) {
        SCOPED_TRACE(i);
        const std::vector<int> numbers = numbersOf(sets[i]);
        EXPECT_EQ(numbers.size(), sizes[i]);
        EXPECT_EQ(std::set<int>(numbers.begin(), numbers.end()).size(), numbers.size());
        for (const PropertyRow& row : sets[i]) {
            EXPECT_NE(propertyNames.find(row.number), nullptr);
            EXPECT_TRUE(row.enabled && row.value.empty() && row.lower == 0 && row.upper == 999);
        }
    }
}

TEST(PropertySets, FrozenGroundAddsTheSamePropertiesBehindThoseOfEachSoil)
{
    const std::vector<int> frozen = {19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 41, 43, 44};
    const auto withFrozen = [&frozen](std::span<const PropertyRow> soil) {
        std::vector<int> numbers = numbersOf(soil);
        numbers.insert(numbers.end(), frozen.begin(), frozen.end());
        return numbers;
    };
    EXPECT_EQ(numbersOf(propertySetCohesiveFrozen), withFrozen(propertySetCohesive));
    EXPECT_EQ(numbersOf(propertySetCoarseFrozen), withFrozen(propertySetCoarse));
    EXPECT_EQ(numbersOf(propertySetRockFrozen), withFrozen(propertySetRock));

    // The full set is the union of the three, and only in its order a table of its own.
    std::set<int> all;
    for (const std::span<const PropertyRow> set : {std::span<const PropertyRow>(propertySetCohesiveFrozen),
             std::span<const PropertyRow>(propertySetRockFrozen)})
        for (const PropertyRow& row : set)
            all.insert(row.number);
    const std::vector<int> full = numbersOf(propertySetFull);
    EXPECT_EQ(std::set<int>(full.begin(), full.end()), all);
}

template <class Loads>
std::vector<float> ladder(const Loads& loads)
{
    std::vector<float> values;
    for (const auto& entry : loads) {
        EXPECT_EQ(entry.key, static_cast<int>(values.size()));
        values.push_back(textToFloat(entry.value));
        if (values.size() > 1) {
            EXPECT_LT(values[values.size() - 2], values.back()) << entry.key;
        }
    }
    return values;
}

TEST(TestLoads, LaddersRiseAndShearTakesTheMiddleOfCompression)
{
    const std::vector<float> compression = ladder(compressionLoads);
    EXPECT_EQ(compression.size(), 40U);
    EXPECT_EQ(ladder(shearLoads), std::vector<float>(compression.begin() + 1, compression.end() - 1));
    EXPECT_EQ(ladder(swellLoads).size(), 14U);
    // The texts are keys in samples, so their spelling counts.
    EXPECT_EQ(compressionLoadIds.at(L"1.00"), 38);
    EXPECT_EQ(shearLoadIds.at(L"1.0"), 37);
    EXPECT_EQ(shearLoadIds.at(L"0.1750"), 13);
    EXPECT_EQ(compressionRowsBlank.back().load, 39);
    EXPECT_EQ(shearRowsBlank.back().load, 37);
    EXPECT_EQ(swellRowsBlank.back().load, 13);
}

TEST(Coefficients, FallAsTheirArgumentRises)
{
    EXPECT_EQ(studentCoefficients.size(), 22U);
    double before = 2.36;
    for (const auto& entry : studentCoefficients) {
        EXPECT_LE(entry.value, before) << entry.key;
        before = entry.value;
    }
    EXPECT_EQ(before, 1.67);

    for (const int table : {0, 1})
        for (const int variant : {0, 1})
            for (int step = 40; step <= 120; step += 20)
                EXPECT_LE(pileDepthCoefficient(table, variant, step),
                    pileDepthCoefficient(table, variant, step - 20));
    EXPECT_EQ(pileDepthCoefficient(0, 1, 120), 0.3);
    EXPECT_EQ(pileDepthCoefficient(1, 0, 120), 0.5);
    EXPECT_EQ(pileConditionCoefficient(24), L"1.0");
    EXPECT_EQ(pileConditionCoefficient(35), L"0.8");
}

} // namespace
