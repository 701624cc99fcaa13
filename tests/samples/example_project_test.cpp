#include "core/base/text_number.h"
#include "ground/soil_support.h"
#include "support/project_bytes.h"
#include "tlxtool/check.h"
#include "tlxtool/opened_bytes.h"
#include "tlxtool/project_json.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <string>

// The project that a new user opens first. An engineer will look whether its numbers are true to each other.

namespace
{

enum Property {
    Moisture = 0,
    Density = 1,
    ParticleDensity = 2,
    LiquidLimit = 3,
    PlasticLimit = 4,
    DryDensity = 5,
    VoidRatio = 6,
    Porosity = 7,
    Saturation = 8,
    FullMoisture = 9,
    SaturatedDensity = 10,
    BuoyantDensity = 11,
    PlasticityIndex = 12,
    LiquidityIndex = 13,
};

DBProject& example()
{
    static const Reference<DBProject> project = [] {
        std::ifstream file(TELLURIX_SAMPLES "/sources/zarechnaya.json");
        return reopened(*projectFromJson(Json::parse(file)));
    }();
    return *project;
}

// Whatever the locale of the process.
double numberIn(const std::wstring& text)
{
    return static_cast<double>(textToFloat(text));
}

std::string placeOf(const PointDepthKey& key)
{
    return toUtf8(key.pointName + L", " + key.depth + L" m");
}

// The layer that a point has at this depth.
const LithologyValue* layerAt(const PointDepthKey& place)
{
    for (const auto& [key, layer] : example().getLithology())
        if (key.pointName == place.pointName && numberIn(key.depth) >= numberIn(place.depth))
            return &layer;
    return nullptr;
}

std::map<int, std::wstring> texts(const LabSample& sample)
{
    std::map<int, std::wstring> values;
    for (const PropertyCell& cell : sample.physical)
        values[cell.id] = cell.value;
    return values;
}

std::map<int, double> numbers(const LabSample& sample)
{
    std::map<int, double> values;
    for (const PropertyCell& cell : sample.physical)
        values[cell.id] = numberIn(cell.value);
    return values;
}

} // namespace

TEST(ExampleProject, nothingIsLostOrDoubtful)
{
    const Bytes bytes = encodeProject(example());
    OpenedProject opened = fileOf(bytes, L"/П/ZARECHNAYA.TLX");
    // One sample contradicts itself on purpose, so that a new user sees how that is told.
    int contradictions = 0;
    for (const Finding& finding : checkProject(opened)) {
        if (finding.text.find("проба «Скв-5 / 5.0», physical/8: ") == 0)
            ++contradictions;
        else
            ADD_FAILURE() << toText(finding);
    }
    EXPECT_EQ(contradictions, 1);
    EXPECT_EQ(example().getPointRegister().size(), 14U);
}

TEST(ExampleProject, rowsStandWithinTheirPoints)
{
    std::map<std::wstring, double> bottoms;
    for (const auto& [key, layer] : example().getLithology())
        bottoms[key.pointName] = std::max(bottoms[key.pointName], numberIn(key.depth));
    EXPECT_EQ(bottoms.size(), 10U);
    const auto expectWithin = [&](const auto& rows) {
        EXPECT_FALSE(rows.empty());
        for (const auto& row : rows)
            EXPECT_LE(numberIn(row.first.depth), bottoms[row.first.pointName]) << placeOf(row.first);
    };
    expectWithin(example().getSamples());
    expectWithin(example().getWaterLevels());
    expectWithin(example().getConsistency());
    expectWithin(example().getChemistry());
    for (const auto& [key, sample] : example().getLabSamples())
        EXPECT_TRUE(example().getSamples().contains(key)) << placeOf(key);
}

TEST(ExampleProject, derivedPropertiesFollowFromTheMeasured)
{
    for (const auto& [key, sample] : example().getLabSamples()) {
        SCOPED_TRACE(placeOf(key));
        auto value = numbers(sample);
        const double dry = value[Density] / (1 + value[Moisture]);
        const double voids = (value[ParticleDensity] - dry) / dry;
        const double saturation = value[Moisture] * value[ParticleDensity] / voids;
        EXPECT_NEAR(value[DryDensity], dry, 0.006);
        EXPECT_NEAR(value[VoidRatio], voids, 0.0006);
        EXPECT_NEAR(value[Porosity], 100 * voids / (1 + voids), 0.06);
        EXPECT_NEAR(value[Saturation], saturation, 0.006);
        if (key.pointName != L"Скв-5" || key.depth != L"5.0") {
            EXPECT_LE(saturation, 1);
        }
        EXPECT_NEAR(value[FullMoisture], voids / value[ParticleDensity], 0.0006);
        EXPECT_NEAR(value[SaturatedDensity], (value[ParticleDensity] + voids) / (1 + voids), 0.006);
        EXPECT_NEAR(value[BuoyantDensity], (value[ParticleDensity] - 1) / (1 + voids), 0.006);
        if (!value.contains(LiquidLimit))
            continue;
        const double plasticity = value[LiquidLimit] - value[PlasticLimit];
        EXPECT_NEAR(value[PlasticityIndex], 100 * plasticity, 0.06);
        EXPECT_NEAR(value[LiquidityIndex], (value[Moisture] - value[PlasticLimit]) / plasticity, 0.006);
    }
}

TEST(ExampleProject, gradingsAreWhole)
{
    for (const auto& [key, sample] : example().getLabSamples()) {
        double sum = 0;
        for (const auto& [fraction, percentage] : sample.grading)
            sum += numberIn(percentage);
        if (!sample.grading.empty()) {
            EXPECT_NEAR(sum, 100, 1e-4) << placeOf(key);
        }
    }
}

TEST(ExampleProject, classificationFindsTheSoilOfTheLayer)
{
    static constexpr int fineSand = 3; // as determineSand counts
    static constexpr int mediumSand = 2;
    Soils soils;
    soils.project().setGranGost(example().getGranGost());
    for (const auto& [key, sample] : example().getLabSamples()) {
        SCOPED_TRACE(placeOf(key));
        const LithologyValue* layer = layerAt(key);
        ASSERT_TRUE(layer);
        if (sample.soilKind.text == L"Насыпной грунт") {
            EXPECT_TRUE(layer->description.starts_with(sample.soilKind.text));
            continue;
        }
        auto value = texts(sample);
        soils.determineCohesive(value[PlasticityIndex], value[LiquidityIndex]);
        std::wstring name = soils.soilName();
        std::wstring state = soils.consistencyName();
        if (value[PlasticityIndex].empty()) {
            const int sand = soils.determineSand(sample.grading);
            EXPECT_TRUE(sand == fineSand || sand == mediumSand) << sand;
            name = L"Песок";
            state = sand == fineSand ? L"мелкий" : L"средней крупности";
        }
        EXPECT_EQ(sample.soilKind.text, name + L" " + state);
        EXPECT_TRUE(layer->description.starts_with(name)) << toUtf8(layer->description);
        EXPECT_NE(layer->description.find(state), std::wstring::npos) << toUtf8(layer->description);
    }
}

// Sands have a great resistance of the cone and little friction on the sleeve. The last reading is the
// element.
TEST(ExampleProject, soundingsFollowTheLayers)
{
    EXPECT_EQ(example().getSoundings().size(), 4U);
    for (const auto& [key, journal] : example().getSoundings())
        for (const SoundingRow& row : journal) {
            SCOPED_TRACE(toUtf8(key.pointName + L", " + row.depth));
            const double cone = numberIn(row.cells[0]);
            const double sleeve = numberIn(row.cells[1]);
            EXPECT_TRUE(row.cells[2].empty()); // its probe has a sleeve
            const bool isSand = example().getStrataElementCode(row.cells[3]) == 1;
            EXPECT_EQ(cone > 5, isSand);
            EXPECT_EQ(sleeve / cone / 10 < 2, isSand);
        }
}

// In milligram-equivalents cations outweigh anions by nothing but the rounding.
TEST(ExampleProject, ionsOfTheWaterBalance)
{
    for (const auto& [key, analysis] : example().getChemistry()) {
        if (analysis.cells[29] == L"грунт")
            continue;
        const auto equivalents = [&cells = analysis.cells](std::size_t cell, double weight) {
            return numberIn(cells[cell]) / weight;
        };
        const double anions =
            equivalents(0, 48.03) + equivalents(1, 35.45) + equivalents(2, 61.02) + equivalents(8, 62.0);
        const double cations = equivalents(5, 20.04) + equivalents(6, 12.15) + equivalents(7, 22.99);
        EXPECT_NEAR(anions, cations, 0.02) << placeOf(key);
    }
}
