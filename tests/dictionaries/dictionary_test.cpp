#include "dictionaries/dictionary.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/pile_coefficients.h"
#include "dictionaries/properties.h"
#include "dictionaries/rock_names.h"
#include "dictionaries/section_captions.h"
#include "dictionaries/soil_names.h"
#include "dictionaries/test_loads.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace
{

std::string failureOf(const std::function<void()>& lookUp)
{
    try {
        lookUp();
    } catch (const std::out_of_range& failure) {
        return failure.what();
    }
    return "found";
}

TEST(Dictionary, AMissingKeyIsOutOfRange)
{
    const std::function<void()> lookUps[] = {
        [] { static_cast<void>(propertyNames.at(0, 68)); },
        [] { static_cast<void>(propertyNames.at(2, 0)); },
        [] { static_cast<void>(propertyNames.at(-1, 0)); },
        [] { static_cast<void>(rockNames.at(0, 40)); },
        [] { static_cast<void>(propertySymbols.at(-1)); },
        [] { static_cast<void>(sampleKindIds.at(L"Монолит")); },
        [] { static_cast<void>(compressionLoadIds.at(L"1.0")); },
        [] { static_cast<void>(plasticSoilIds.at(L"Пісок", languageRussian)); },
        [] { static_cast<void>(plasticSoilIds.at(L"Суглинок", 2)); },
        [] { static_cast<void>(sectionColumnIds.at(sectionColumnCaptions.at(0, 11), 0)); },
        [] { static_cast<void>(pileConditionCoefficient(36)); },
        [] { static_cast<void>(pileConditionCoefficient(-1)); },
        [] { static_cast<void>(pileDepthCoefficient(2, 0, 20)); },
        [] { static_cast<void>(pileDepthCoefficient(0, 0, 30)); },
    };
    for (const auto& lookUp : lookUps)
        EXPECT_EQ(failureOf(lookUp), "invalid map<K, T> key") << "look-up " << (&lookUp - lookUps);
}

TEST(Dictionary, FindTellsAMissingKeyFromAnEmptyText)
{
    ASSERT_NE(soilCategories.find(3), nullptr);
    EXPECT_EQ(*soilCategories.find(3), L"");
    EXPECT_EQ(soilCategories.find(4), nullptr);
    EXPECT_EQ(*propertyNames.find(languageUkrainian, 13), L"Показник текучості/консистенції");
    EXPECT_EQ(propertyNames.find(2, 13), nullptr);
    EXPECT_EQ(propertyNames.find(languageRussian, -1), nullptr);
    EXPECT_EQ(plasticSoilIds.find(L"Песок", languageUkrainian), nullptr);
}

TEST(Dictionary, WalksInAscendingOrderWhateverTheOrderOfItsRows)
{
    int expected = 0;
    for (const BilingualRow& row : propertyNames)
        EXPECT_EQ(row.number, expected++);
    expected = 0;
    for (const auto& entry : propertySymbols)
        EXPECT_EQ(entry.key, expected++);
    expected = 1;
    for (const BilingualRow& row : shearMethodNames)
        EXPECT_EQ(row.number, expected++);
    EXPECT_EQ(profilePrompts.begin()->key, 1);
    EXPECT_EQ(sampleKindIds.begin()->key, L"Валовая (В)");
}

TEST(Dictionary, RefusesAKeyThatStandsTwice)
{
    using Numbers = Dictionary<int, int, 3>;
    EXPECT_THROW((Numbers({Numbers::Entry{3, 0}, {1, 0}, {3, 1}})), std::logic_error);
    EXPECT_THROW((NameDictionary<2>({BilingualRow{4, L"а", L"б"}, {4, L"в", L"г"}})), std::logic_error);
}

} // namespace
