#include "dictionaries/dictionary.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/pile_coefficients.h"
#include "dictionaries/properties.h"
#include "dictionaries/rock_names.h"
#include "dictionaries/scale_lists.h"
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

template <class Texts, class Ids>
void expectInverse(const Texts& texts, const Ids& ids)
{
    EXPECT_EQ(texts.size(), ids.size());
    for (const auto& entry : texts)
        EXPECT_EQ(ids.at(entry.value), entry.key);
}

TEST(Dictionary, ReverseMapsLeadBack)
{
    expectInverse(sampleKinds, sampleKindIds);
    expectInverse(soilCategories, soilCategoryIds);
    expectInverse(soilCategoriesShort, soilCategoryShortIds);
    expectInverse(compressionLoads, compressionLoadIds);
    expectInverse(shearLoads, shearLoadIds);
    expectInverse(swellLoads, swellLoadIds);

    for (const int language : {languageRussian, languageUkrainian}) {
        for (const BilingualRow& row : plasticSoilNames)
            EXPECT_EQ(plasticSoilIds.at(*row.name(language), language), row.number);
        for (int number = 1; number <= 10; ++number)
            EXPECT_EQ(sectionColumnIds.at(sectionColumnCaptions.at(language, number), language), number);
    }
    EXPECT_EQ(plasticSoilIds.size(), 10U);
    EXPECT_EQ(sectionColumnIds.size(), 20U);
}

template <class Scales, class Ids>
void expectScales(const Scales& scales, const Ids& ids)
{
    float before = 0;
    for (const auto& entry : scales) {
        EXPECT_EQ(std::to_wstring(static_cast<int>(entry.value.value)), entry.value.text);
        EXPECT_LT(before, entry.value.value);
        EXPECT_EQ(ids.at(entry.value.text), entry.key);
        before = entry.value.value;
    }
}

TEST(Dictionary, AScaleIsTheNumberOfItsText)
{
    expectScales(scaleList100, scaleList100Ids);
    expectScales(scaleList10, scaleList10Ids);
    expectScales(scaleList2, scaleList2Ids);
    expectScales(scaleList5, scaleList5Ids);
    EXPECT_EQ(scaleList10.at(4).value, 500.0F);
    EXPECT_EQ(scaleList100.size() + scaleList10.size() + scaleList2.size() + scaleList5.size(), 22U);
}

} // namespace
