#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

class ISettings;

// The classification of the engine written out by hand, each ladder as a chain of conditions: what the tables
// are held against. All the rest is as there: a field is undetermined before its value is read, and the
// settings are asked for the language of each name.
class StraightGround
{
public:
    explicit StraightGround(ISettings& settings)
        : settings_(&settings)
    {
    }

    std::wstring soilName;
    std::wstring consistencyName;
    std::wstring groupName;
    std::wstring densityGrade;
    std::wstring permeabilityGrade;
    std::wstring strengthGrade;
    std::wstring weatheringGrade;
    std::wstring softeningGrade;
    std::wstring solubilityGrade;
    std::wstring salinityGrade;
    std::wstring iceGrade;
    std::wstring frozenStateName;

    void determineCohesive(const std::wstring& plasticityIndex, const std::wstring& liquidityIndex);
    void determineRockGrades(const std::wstring& dryDensity,
        const std::wstring& filtration,
        const std::wstring& strength,
        const std::wstring& weathering,
        const std::wstring& softening,
        const std::wstring& solubleGrams,
        const std::wstring& solublePercent);
    void determineGroup(const std::map<std::uint8_t, std::wstring>& fractions);
    void determineFrozenGrades(const std::wstring& salinity,
        const std::wstring& iceContent,
        const std::wstring& thawTemperature,
        const std::wstring& soilTemperature,
        const std::wstring& freezeTemperature,
        const std::wstring& iceFilling,
        const std::wstring& compressibility);

private:
    std::wstring_view undetermined() const;
    template <class Names>
    void name(std::wstring& field, const Names& names, int number) const;
    template <class Names>
    void grade(std::wstring& field, const std::wstring& text, int (*ladder)(float), const Names& names) const;

    ISettings* settings_;
    int soil_ = -1;
    int group_ = 0;
};
