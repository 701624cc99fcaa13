#include "straight_ground.h"

#include "core/base/text_number.h"
#include "dictionaries/fractions.h"
#include "dictionaries/soil_names.h"
#include "modules/isettings.h"

#include <array>

namespace
{

int plasticity(float x)
{
    if (x < 1.0F)
        return -1;
    if (x <= 7.0F)
        return 0;
    if (x <= 17.0F)
        return 1;
    return x > 17.0F ? 2 : -1;
}

int consistency(int soil, float x)
{
    if (soil == 0)
        return x < 0.0F ? 0 : x <= 1.0F ? 1 : x > 1.0F ? 2 : -1;
    const bool isLoam = soil == 1;
    if (x < 0.0F)
        return isLoam ? 7 : 0;
    if (x <= 0.25F)
        return isLoam ? 8 : 3;
    if (x <= 0.5F)
        return isLoam ? 9 : 4;
    if (x <= 0.75F)
        return isLoam ? 10 : 5;
    if (x <= 1.0F)
        return isLoam ? 11 : 6;
    if (x > 1.0F)
        return isLoam ? 12 : 2;
    return -1;
}

int strengthOf(float x)
{
    if (x > 120.0F)
        return 0;
    if (x > 50.0F)
        return 1;
    if (x > 15.0F)
        return 2;
    if (x > 5.0F)
        return 3;
    if (x > 3.0F)
        return 4;
    return x >= 1.0F ? 5 : x < 1.0F ? 6 : -1;
}

int densityOf(float x)
{
    if (x > 2.5F)
        return 7;
    if (x > 2.1F)
        return 8;
    return x >= 1.2F ? 9 : x < 1.2F ? 10 : -1;
}

int weatheringOf(float x)
{
    if (x > 1.0F)
        return -1;
    if (x >= 1.0F)
        return 11;
    if (x >= 0.9F)
        return 12;
    return x >= 0.8F ? 13 : x < 0.8F ? 14 : -1;
}

int softeningOf(float x)
{
    return x >= 0.75F ? 15 : x < 0.75F ? 16 : -1;
}

int solubilityOf(float x)
{
    if (x < 0.01F)
        return 17;
    if (x < 1.0F)
        return 18;
    return x <= 10.0F ? 19 : x > 10.0F ? 20 : -1;
}

int permeabilityOf(float x)
{
    if (x < 0.005F)
        return 21;
    if (x < 0.3F)
        return 22;
    if (x < 3.0F)
        return 23;
    return x <= 30.0F ? 24 : x > 30.0F ? 25 : -1;
}

int rockSalinityOf(float x)
{
    return x <= 2.0F ? 26 : x > 2.0F ? 27 : -1;
}

// The group by the fraction's bound and what is coarser; 0 where this fraction says nothing.
int classOf(int rank, float coarser)
{
    switch (rank) {
    case 1:
        return coarser > 50.0F ? 1 : 0;
    case 6:
        return coarser > 50.0F ? 2 : 0;
    case 8:
        return coarser > 50.0F ? 3 : coarser > 25.0F ? 4 : 0;
    case 10:
        return coarser > 50.0F ? 5 : 0;
    case 11:
        return coarser > 50.0F ? 6 : 0;
    case 12:
        return coarser >= 75.0F ? 7 : coarser > 0.00001F ? 8 : 0;
    default:
        return 0;
    }
}

int fractionClass(const std::map<std::uint8_t, std::wstring>& fractions)
{
    std::array<const std::wstring*, fractionRanks + 1> byRank{};
    for (const auto& [number, percentage] : fractions)
        byRank[static_cast<std::size_t>(fractionRank200.at(number))] = &percentage;
    int found = 0;
    float sum = 0;
    for (std::size_t rank = 1; rank <= fractionRanks; ++rank) {
        if (!byRank[rank])
            continue;
        sum = byRank[rank]->empty() ? 0.0F : sum + textToFloat(*byRank[rank]);
        if (found == 0)
            found = classOf(static_cast<int>(rank), sum);
    }
    return found;
}

int iceOf(int group, float x)
{
    if (group == 1)
        return x <= 0.01F ? 0 : x <= 0.05F ? 1 : x > 0.05F ? 2 : -1;
    if (x < 0.2F)
        return 0;
    if (x <= 0.4F)
        return 1;
    if (x <= 0.6F)
        return 2;
    return x <= 0.9F ? 3 : -1;
}

int salinityOf(int group, float x)
{
    if (group <= 4) {
        if (x < 0.05F)
            return -1;
        if (x <= 0.1F)
            return 4;
        if (x < 1.0F)
            return -1;
        return x <= 2.0F ? 5 : x > 2.0F ? 6 : -1;
    }
    if (x < 0.2F)
        return -1;
    if (x <= 0.5F)
        return 4;
    return x <= 1.0F ? 5 : x > 1.0F ? 6 : -1;
}

bool thawsAt(int group, float thaw)
{
    switch (group) {
    case 3:
        return thaw == -0.1F;
    case 4:
        return thaw == -0.3F;
    case 5:
        return thaw == -0.6F;
    case 6:
        return thaw == -1.0F;
    case 7:
        return thaw == -1.5F;
    default:
        return thaw < 0.00001F;
    }
}

float valueOf(const std::wstring& text)
{
    return text.empty() ? 0.0F : textToFloat(text);
}

} // namespace

std::wstring_view StraightGround::undetermined() const
{
    return settings_->reportLanguage() == languageRussian ? L"Не определен" : L"Не визначений";
}

template <class Names>
void StraightGround::name(std::wstring& field, const Names& names, int number) const
{
    if (number >= 0)
        field = names.at(settings_->reportLanguage(), number);
}

template <class Names>
void StraightGround::grade(
    std::wstring& field, const std::wstring& text, int (*ladder)(float), const Names& names) const
{
    field = undetermined();
    if (!text.empty())
        name(field, names, ladder(textToFloat(text)));
}

void StraightGround::determineCohesive(
    const std::wstring& plasticityIndex, const std::wstring& liquidityIndex)
{
    soil_ = -1;
    soilName = undetermined();
    consistencyName = soilName;
    if (plasticityIndex.empty())
        return;
    soil_ = plasticity(textToFloat(plasticityIndex));
    name(soilName, plasticSoilNames, soil_);
    if (liquidityIndex.empty())
        return;
    const float liquidity = textToFloat(liquidityIndex);
    name(consistencyName, consistencyNames, soil_ < 0 ? -1 : consistency(soil_, liquidity));
}

void StraightGround::determineRockGrades(const std::wstring& dryDensity,
    const std::wstring& filtration,
    const std::wstring& strength,
    const std::wstring& weathering,
    const std::wstring& softening,
    const std::wstring& solubleGrams,
    const std::wstring& solublePercent)
{
    grade(strengthGrade, strength, strengthOf, rockGradeNames);
    grade(densityGrade, dryDensity, densityOf, rockGradeNames);
    grade(weatheringGrade, weathering, weatheringOf, rockGradeNames);
    grade(softeningGrade, softening, softeningOf, rockGradeNames);
    grade(solubilityGrade, solubleGrams, solubilityOf, rockGradeNames);
    grade(permeabilityGrade, filtration, permeabilityOf, rockGradeNames);
    grade(salinityGrade, solublePercent, rockSalinityOf, rockGradeNames);
}

void StraightGround::determineGroup(const std::map<std::uint8_t, std::wstring>& fractions)
{
    const int found = fractionClass(fractions);
    if (soil_ >= 0)
        group_ = soil_ + 5;
    else if (found == 1)
        group_ = 2;
    else if (found >= 4 && found <= 6)
        group_ = 3;
    else
        group_ = found == 7 || found == 8 ? 4 : 0;
}

void StraightGround::determineFrozenGrades(const std::wstring& salinity,
    const std::wstring& iceContent,
    const std::wstring& thawTemperature,
    const std::wstring& soilTemperature,
    const std::wstring& freezeTemperature,
    const std::wstring& iceFilling,
    const std::wstring& compressibility)
{
    if (group_ == 0)
        return;
    salinityGrade = undetermined();
    iceGrade = undetermined();
    frozenStateName = undetermined();
    groupName = soilGroupNames.at(settings_->reportLanguage(), group_);
    if (group_ > 7)
        return;
    if (group_ != 2 && !iceContent.empty())
        name(iceGrade, frozenGradeNames, iceOf(group_, textToFloat(iceContent)));

    const float thaw = valueOf(thawTemperature);
    const float now = valueOf(soilTemperature);
    const float soft = valueOf(compressibility);
    const float freezes = group_ == 1 ? 0 : valueOf(freezeTemperature);
    const float filling = group_ == 1 ? 0 : valueOf(iceFilling);
    if (thawsAt(group_, thaw) && now < thaw && soft <= 0.1F)
        name(frozenStateName, frozenGradeNames, 7);
    else if (group_ > 1 && thaw < now && now < freezes && (group_ > 4 || filling < 0.8F)
        && (group_ > 2 || soft > 0.1F))
        name(frozenStateName, frozenGradeNames, 8);
    else if (group_ > 1 && now < 0.0F && filling <= 0.15F)
        name(frozenStateName, frozenGradeNames, 9);

    if (group_ > 2 && !salinity.empty())
        name(salinityGrade, frozenGradeNames, salinityOf(group_, textToFloat(salinity)));
}
