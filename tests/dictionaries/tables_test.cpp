#include "dictionaries/captions.h"
#include "dictionaries/dictionary.h"
#include "dictionaries/fractions.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/modes.h"
#include "dictionaries/pile_captions.h"
#include "dictionaries/pile_coefficients.h"
#include "dictionaries/properties.h"
#include "dictionaries/property_sets.h"
#include "dictionaries/rock_names.h"
#include "dictionaries/scale_lists.h"
#include "dictionaries/section_captions.h"
#include "dictionaries/soil_names.h"
#include "dictionaries/sounding_captions.h"
#include "dictionaries/student_coefficients.h"
#include "dictionaries/test_loads.h"
#include "platform/utf8.h"
#include "support/row_hash.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

// Every letter and every number of the shared vocabulary. Each table is written as text, a line a row in
// ascending order of its keys: the key, then the values from left to right (Russian before Ukrainian,
// language behind the name it belongs to), parted by '|', numbers that are not whole in ten thousandths,
// flags as 0 and 1. The hash is FNV-1a, of 64 bits, over its UTF-8; those below were computed by another
// program from the lists that the trade handed over, not from ours. Where a list really changes, the text
// that the failure prints is read against it letter by letter, and only then its hash taken over.

namespace
{

std::wstring cell(std::wstring_view text)
{
    return std::wstring(text);
}
std::wstring cell(int number)
{
    return std::to_wstring(number);
}
std::wstring cell(double number)
{
    return std::to_wstring(std::lround(number * 10000));
}
std::wstring cell(float number)
{
    return cell(static_cast<double>(number));
}
std::wstring cell(const ScaleRow& scale)
{
    return cell(scale.text) + L'|' + cell(scale.value);
}
std::wstring cell(const std::pair<std::wstring_view, int>& name)
{
    return cell(name.first) + L'|' + cell(name.second);
}

template <class First, class... Others>
std::wstring rowText(const First& first, const Others&... others)
{
    return cell(first) + (std::wstring() + ... + (L'|' + cell(others))) + L'\n';
}

std::wstring rowText(const BilingualRow& row)
{
    return rowText(row.number, row.russian, row.ukrainian);
}
std::wstring rowText(const PropertyRow& row)
{
    return rowText(row.number, row.enabled ? 1 : 0, row.value, row.lower, row.upper);
}
std::wstring rowText(const CompressionRowBlank& row)
{
    return rowText(row.load, row.textA, row.textB, row.textC, row.aux, row.note);
}
std::wstring rowText(const ShearRowBlank& row)
{
    return rowText(row.load, row.value);
}
std::wstring rowText(const SwellRowBlank& row)
{
    return rowText(row.load, row.textA, row.textB, row.textC);
}
template <class Key, class Value>
std::wstring rowText(const DictionaryEntry<Key, Value>& entry)
{
    return rowText(entry.key, entry.value);
}

template <class Table>
std::string written(const Table& table)
{
    std::wstring text;
    for (const auto& row : table)
        text += rowText(row);
    return toUtf8(text);
}

std::string conditionCoefficients()
{
    std::wstring text;
    for (int number = 0; number < 36; ++number)
        text += rowText(number, pileConditionCoefficient(number));
    return toUtf8(text);
}

// Table, variant, step.
std::string depthCoefficients()
{
    std::wstring text;
    for (const int table : {0, 1})
        for (const int variant : {0, 1})
            for (const PileDepthRow& row : pileDepthCoefficients)
                text += rowText(table, variant, row.step, pileDepthCoefficient(table, variant, row.step));
    return toUtf8(text);
}

// In the order in which they stand in their header.
std::string singleTexts()
{
    using namespace captions;
    // clang-format off
    const std::wstring_view texts[] = {
        absoluteMarkShort, longAndCross, boreholeShortRussian, boreholeShortUkrainian, consistencyContour,
        elementContour, line, polyline, spline, sampleRegister, geologyShort, absoluteMarkMetres, sampleCode, code,
        samplingDepth, fractionBounds, particleContent, integralCurve, conventional, propertyName, value,
        laboratoryNumber, excavation, undisturbedShort, sampleType, shearLoadsMpa, shearResistanceMpa,
        specimenDiameter, dryingStage, specimenHeight, specimenMoisture, specimenVolume, specimenWeight,
        specimenHeightSpaced, loadMpa, relativeSwelling, absoluteSwelling, toLeft, toRight, relativeMarkMetres,
        soilTypes, soilDescription, hatchType, type, profileType, boreholeType, measuringDate, xMetres, yMetres,
        lithologyContour, mappingBoreholeShort, minimumDistance, pit, pointOutsideContour, minimumLayerThickness,
        projects, properties, full, half, third, soundingPointShort, sample, sectionZero, unknownError, virtualShort,
        withoutProfile, instrumentLacksFriction, calculatedData, pileCalculation, instrumentSsz1,
        soundingJournalUkrainian, beginning, allBoreholesChosen, noBoreholesChosen, modeUndetermined, reliefBlock,
        absoluteMarkSpaced, absoluteMarkAbbreviated, metreCount, distance, layerBottom, onTheRight, layerTop, scaleX,
        scaleY, boreholeChoice, tipResistanceColour, sideResistanceColour, pointCount, date, greatestSoundingDepth,
        lastProfilePicket, firstBorehole, backgroundOpen, ofGeology, soilName, showHide, horizontal,
        firstProfilePicket, inCadCoordinates, contourLines, lowestScaleMark, noObjectsChosen, nothingChosen,
        oneByOne, contourPoints, polylinePoints, profileScales, sectionParameters, lastBorehole, characteristics,
        splinePoints, graphShift, sampleNumber, sampleShift, vertical, waterLevelShift, boreholeBinding, probeType,
        boreholeNumberRussian, totalDepthRussian, mouthMarkRussian, verticalScale, boreholeNumberUkrainian,
        totalDepthUkrainian, mouthMarkUkrainian,
    };
    // clang-format on
    return written(texts);
}

struct HashedTable {
    const char* name;
    std::string text;
    std::uint64_t hash;
};

// clang-format off
#define TABLE(name) #name, written(name)
const HashedTable tables[] = {
    {TABLE(propertyNames), 0xb4e8ae55a8da88cf},
    {TABLE(propertySymbols), 0xa2c11df6e5f5c6e4},
    {TABLE(propertySetAll), 0x6560220761317ff1},
    {TABLE(propertySetCohesive), 0x8982134718bc5d29},
    {TABLE(propertySetCohesiveFrozen), 0x62a3e17d82d3199d},
    {TABLE(propertySetCoarseFrozen), 0x0c270bc005b659d3},
    {TABLE(propertySetFull), 0xebc999fbf8bf6e23},
    {TABLE(propertySetRockFrozen), 0xc5b8af8de4747c3d},
    {TABLE(propertySetCoarse), 0x4caf72487a3e682b},
    {TABLE(propertySetRock), 0xff9a1acfbbeaee89},
    {TABLE(fractionCaptions), 0x6d047b66b74e09f8},
    {TABLE(fractionRank200), 0x26cd1939f613c764},
    {TABLE(fractionNumber200), 0x2dd0b3da9b71d8ac},
    {TABLE(fractionBound200), 0x67d10f18bc9bf645},
    {TABLE(fractionCaptions200), 0xbe524e909cfd2fa4},
    {TABLE(fractionRankByCaption200), 0xb9a9ede9cfa5cdf2},
    {TABLE(fractionRank800), 0x464e3ecebc5cd473},
    {TABLE(fractionNumber800), 0xf5d797fe5ba89da7},
    {TABLE(fractionBound800), 0xaf5a4fcd7cfb0f83},
    {TABLE(fractionCaptions800), 0x8beb7b21cacc1024},
    {TABLE(fractionRankByCaption800), 0x5f399b4f409b87b2},
    {TABLE(soilGroupNames), 0x13b2a25b14ea2f5c},
    {TABLE(plasticSoilNames), 0x37b4020eff27b62a},
    {TABLE(plasticSoilIds), 0x9f1c8aefa0a21049},
    {TABLE(sandAndClayNames), 0x2845d82c57087704},
    {TABLE(consistencyNames), 0x4444e2ec92400442},
    {TABLE(frozenGradeNames), 0x7393429ec49ddac3},
    {TABLE(rockGradeNames), 0x405cff12a73e123f},
    {TABLE(fractionSoilNames), 0xefdc99ef2b4fb86b},
    {TABLE(rockNames), 0x93331a5c6ff0fd77},
    {TABLE(shearMethodNames), 0x6ea9dfd52be901ce},
    {TABLE(subsidenceMethodNames), 0x4b49ae9dd34f62d3},
    {TABLE(sampleKinds), 0x7e6eca7a4a1ca035},
    {TABLE(sampleKindIds), 0xfe3a756de80acb37},
    {TABLE(soilCategories), 0xd66d9b46e34c45dd},
    {TABLE(soilCategoryIds), 0x36d0caa6a5d68d75},
    {TABLE(soilCategoriesShort), 0xa1c47285dc6a141d},
    {TABLE(soilCategoryShortIds), 0xc7f768ecbddbb68b},
    {TABLE(lengthUnits), 0x0a7df76655cb76cc},
    {TABLE(compressionLoads), 0xae76c7ddebfe001b},
    {TABLE(compressionLoadIds), 0xe37f170848f37c0d},
    {TABLE(shearLoads), 0x0cd7d87d67ded2ac},
    {TABLE(shearLoadIds), 0xa55fed6f02808fdc},
    {TABLE(swellLoads), 0x1934371a65751d43},
    {TABLE(swellLoadIds), 0x0a6a2b030c0388b5},
    {TABLE(compressionRowsBlank), 0x8a4e1efa9c15a071},
    {TABLE(shearRowsBlank), 0x5eae589aff057f26},
    {TABLE(swellRowsBlank), 0x24c3147370b330fe},
    {TABLE(studentCoefficients), 0xa88607abfbf1d032},
    {TABLE(moduleFiles), 0x1af40cf6ace9de24},
    {TABLE(modeNames), 0x30748f00678c4fdc},
    {TABLE(modeTitles), 0xb829579a64756d98},
    {TABLE(labModeTitles), 0x015e92db2d807042},
    {TABLE(sectionColumnCaptions), 0x328762d7588b117b},
    {TABLE(sectionColumnIds), 0xf90cc5c66893712b},
    {TABLE(sectionColumnCaptionsWrapped), 0x09fc083a587b365f},
    {TABLE(registerColumns), 0x71ca5c1ed4f234c9},
    {TABLE(pointLabelKinds), 0xa21c394356ea70fc},
    {TABLE(profilePrompts), 0xaf328e3c49ec7afc},
    {TABLE(scaleList100), 0xe95d30bc18260995},
    {TABLE(scaleList100Ids), 0x4c663f37e98f999a},
    {TABLE(scaleList10), 0xbf51e0df1169642a},
    {TABLE(scaleList10Ids), 0xbe81a853651d837b},
    {TABLE(scaleList2), 0xdd8709904b6c5e78},
    {TABLE(scaleList2Ids), 0x9a414eca3eb7c373},
    {TABLE(scaleList5), 0x2fca128b3e5a829f},
    {TABLE(scaleList5Ids), 0x7a9ad4bd252c548b},
    {"captions", singleTexts(), 0x52ef9b4abd817c58},
    {TABLE(pileReportColumns), 0x4a575a9b8fe033ea},
    {TABLE(pileReportTexts), 0xa83ea414bcb286ba},
    {TABLE(soundingInstruments), 0x1c0115403d02676f},
    {TABLE(soundingJournalTexts), 0xbb73f9f69002ac22},
    {TABLE(pileTypes), 0xf3ed49e43ed12bc5},
    {"pileConditionCoefficients", conditionCoefficients(), 0xe1118ac042678bfe},
    {TABLE(pileConditionValues), 0x7a1a9aad8904f975},
    {TABLE(pileConditionValuesSoil), 0x255645cf9a7f69b4},
    {"pileDepthCoefficients", depthCoefficients(), 0x640771c91a25e2bb},
};
#undef TABLE
// clang-format on

} // namespace

TEST(DictionaryTables, HoldEveryLetterAndEveryNumber)
{
    for (const HashedTable& table : tables)
        EXPECT_EQ(rowHash(table.text), table.hash) << table.name << ":\n" << table.text;
}
