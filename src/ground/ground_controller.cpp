#include "ground/ground_controller.h"

#include "core/base/text_number.h"
#include "dictionaries/soil_names.h"
#include "ground/cohesive_ladders.h"
#include "ground/frozen_ground.h"
#include "ground/grading.h"
#include "ground/rock_ladders.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"

#include <algorithm>
#include <iterator>

namespace
{

// No project: neither scale.
constexpr int noGradingScale = -1;

constexpr std::int32_t noSoilGroup = 0;

// Groups of soils that the grading alone tells apart.
struct GradedGroup {
    int scale;
    int firstClass;
    int lastClass;
    std::int32_t group;
};

constexpr GradedGroup gradedGroups[] = {
    {gradingScale200, 1, 1, 2},
    {gradingScale200, 4, 6, 3},
    {gradingScale200, 7, 8, 4},
    {gradingScale800, 11, 13, 2},
    {gradingScale800, 19, 23, 3},
    {gradingScale800, 24, 25, 4},
};

constexpr std::int32_t sandyLoamGroup = 5;
constexpr std::int32_t loamGroup = 6;
constexpr std::int32_t clayGroup = 7;

// The class from which the sands are counted, and how many of them count.
constexpr std::int32_t coarsestSand200 = 4;
constexpr std::int32_t coarsestSand800 = 19;
constexpr std::int32_t lastSand = 4;

// "Clay particles", the one class by which the scale 800 knows a cohesive soil.
constexpr int clayParticles800 = 26;

bool isGradingScale(int scale)
{
    return scale == gradingScale200 || scale == gradingScale800;
}

float valueOrZero(const std::wstring& text)
{
    return text.empty() ? 0.0F : textToFloat(text);
}

} // namespace

GroundController::GroundController(ISettings* settings, IDBProject* project)
    : settings_(settings)
    , project_(project)
    , soilName_(undetermined())
    , consistencyName_(soilName_)
    , groupName_(soilName_)
    , densityGrade_(soilName_)
    , permeabilityGrade_(soilName_)
    , strengthGrade_(soilName_)
    , weatheringGrade_(soilName_)
    , softeningGrade_(soilName_)
    , solubilityGrade_(soilName_)
    , salinityGrade_(soilName_)
    , iceGrade_(soilName_)
    , frozenStateName_(soilName_)
{
}

int GroundController::gradingScale() const
{
    return project_ ? project_->getGranGost() : noGradingScale;
}

// Unlike every other name this one exists for any language: all but Russian read the Ukrainian text.
std::wstring_view GroundController::undetermined() const
{
    constexpr int undeterminedName = 4;
    const int language = settings_->reportLanguage() == languageRussian ? languageRussian : languageUkrainian;
    return plasticSoilNames.at(language, undeterminedName);
}

template <class Names>
void GroundController::grade(std::wstring& field, const std::wstring& text, Ladder ladder, const Names& names)
{
    field = undetermined();
    if (text.empty() || ladder.empty())
        return;
    const int found = gradeOf(ladder, textToFloat(text));
    if (found != noGrade)
        field = names.at(settings_->reportLanguage(), found);
}

void GroundController::determineCohesive(
    const std::wstring& plasticityIndex, const std::wstring& liquidityIndex)
{
    isSandyLoam_ = isLoam_ = isClay_ = false;
    soilName_ = undetermined();
    consistencyName_ = soilName_;
    if (plasticityIndex.empty())
        return;

    const int soil = gradeOf(plasticityLadder, textToFloat(plasticityIndex));
    if (soil != noGrade)
        soilName_ = plasticSoilNames.at(settings_->reportLanguage(), soil);
    isSandyLoam_ = soil == sandyLoam;
    isLoam_ = soil == loam;
    isClay_ = soil == clay;

    if (liquidityIndex.empty())
        return;
    // Read even where the soil is not cohesive: a text that is no number shows itself.
    const float liquidity = textToFloat(liquidityIndex);
    const int consistency = soil == noGrade ? noGrade : gradeOf(consistencyLadders[soil], liquidity);
    if (consistency != noGrade)
        consistencyName_ = consistencyNames.at(settings_->reportLanguage(), consistency);
}

void GroundController::determineRockGrades(const std::wstring& dryDensity,
    const std::wstring& filtration,
    const std::wstring& strength,
    const std::wstring& weathering,
    const std::wstring& softening,
    const std::wstring& solubleGrams,
    const std::wstring& solublePercent)
{
    // The order shows where a value is no number: grades before it are new, grades after it old.
    grade(strengthGrade_, strength, strengthLadder, rockGradeNames);
    grade(densityGrade_, dryDensity, densityLadder, rockGradeNames);
    grade(weatheringGrade_, weathering, weatheringLadder, rockGradeNames);
    grade(softeningGrade_, softening, softeningLadder, rockGradeNames);
    grade(solubilityGrade_, solubleGrams, solubilityLadder, rockGradeNames);
    grade(permeabilityGrade_, filtration, permeabilityLadder, rockGradeNames);
    grade(salinityGrade_, solublePercent, rockSalinityLadder, rockGradeNames);
}

void GroundController::determineFrozenGrades(const std::wstring& salinity,
    const std::wstring& iceContent,
    const std::wstring& thawTemperature,
    const std::wstring& soilTemperature,
    const std::wstring& freezeTemperature,
    const std::wstring& iceFilling,
    const std::wstring& compressibility)
{
    if (soilGroup_ == noSoilGroup)
        return;
    salinityGrade_ = iceGrade_ = frozenStateName_ = undetermined();
    if (!soilGroupNames.find(soilGroup_))
        return;
    groupName_ = soilGroupNames.at(settings_->reportLanguage(), soilGroup_);
    const FrozenGroup* group = findFrozenGroup(soilGroup_);
    if (!group)
        return;

    grade(iceGrade_, iceContent, group->ice, frozenGradeNames);

    FrozenValues values;
    values.thawTemperature = valueOrZero(thawTemperature);
    values.soilTemperature = valueOrZero(soilTemperature);
    values.compressibility = valueOrZero(compressibility);
    if (usesIceFilling(*group)) {
        values.freezeTemperature = valueOrZero(freezeTemperature);
        values.iceFilling = valueOrZero(iceFilling);
    }
    const int state = frozenStateOf(*group, values);
    if (state != noGrade)
        frozenStateName_ = frozenGradeNames.at(settings_->reportLanguage(), state);

    grade(salinityGrade_, salinity, group->salinity, frozenGradeNames);
}

void GroundController::determineGroup(const Fractions& fractions)
{
    fractionClass_ = noFractionClass;
    soilGroup_ = noSoilGroup;
    const int scale = gradingScale();
    if (!isGradingScale(scale))
        return;
    fractionClass_ = fractionClassOf(scale, fractions);
    soilGroup_ = isSandyLoam_ || isLoam_ || isClay_ ? groupOfCohesive(scale) : groupByGrading(scale);
}

std::int32_t GroundController::groupByGrading(int scale) const
{
    const auto* const row =
        std::find_if(std::begin(gradedGroups), std::end(gradedGroups), [&](const GradedGroup& each) {
            return each.scale == scale && fractionClass_ >= each.firstClass
                && fractionClass_ <= each.lastClass;
        });
    return row == std::end(gradedGroups) ? noSoilGroup : row->group;
}

std::int32_t GroundController::groupOfCohesive(int scale) const
{
    // In the scale 800 the plasticity does not count: a loam by its plasticity has no group there.
    if (scale == gradingScale800)
        return fractionClass_ == clayParticles800 ? clayGroup : noSoilGroup;
    if (isSandyLoam_)
        return sandyLoamGroup;
    return isLoam_ ? loamGroup : clayGroup;
}

std::int32_t GroundController::determineSand(const Fractions& fractions)
{
    fractionClass_ = noFractionClass;
    isSand_ = 0;
    const int scale = gradingScale();
    if (!isGradingScale(scale))
        return scale;
    fractionClass_ = fractionClassOf(scale, fractions);
    const std::int32_t sand = fractionClass_ - (scale == gradingScale200 ? coarsestSand200 : coarsestSand800);
    isSand_ = sand >= 0 && sand <= lastSand ? 1 : 0;
    return sand;
}
