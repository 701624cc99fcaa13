#pragma once

#include "ground/ladder.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

class IDBProject;
class ISettings;

// What to show while the soil type of every element of a project is determined, one after another.
inline constexpr const wchar_t* soilTypeWaitText =
    L"Определение типа грунта для каждого ИГЭ\nПодождите пожалуйста...";

// Turns measured properties into classes of soil and their names in the report language. It takes the values
// as the records hold them, leaves its answers in fields and hands those out; it owns nothing.
//
// Modules call the 20 operations by their position: never insert, remove or reorder one. There is no
// destructor among them, so the class is destroyed as part of a derived one alone.
//
// An empty text is an absent value and leaves "undetermined" in its field. A text that is no number throws as
// textToFloat does; a language without dictionary throws std::out_of_range("invalid map<K, T> key"). What a
// failing operation wrote before it failed stays written.
class GroundController
{
public:
    // Fraction number to percentage as typed.
    using Fractions = std::map<std::uint8_t, std::wstring>;

    // Sandy loam, loam or clay by the plasticity index, percent, and its consistency by the liquidity index,
    // which is read only where there is a plasticity index.
    virtual void determineCohesive(const std::wstring& plasticityIndex, const std::wstring& liquidityIndex);
    virtual const std::wstring& soilName() { return soilName_; }
    virtual const std::wstring& consistencyName() { return consistencyName_; }
    // A number that the caller leaves here and takes back.
    virtual const std::int32_t& elementValue() { return elementValue_; }
    virtual void setElementValue(const std::int32_t& value) { elementValue_ = value; }

    // The seven grades of rock. Density in g/cm3, filtration in m/day, strength in MPa, weathering and
    // softening as ratios, soluble salts in g/l and in percent.
    virtual void determineRockGrades(const std::wstring& dryDensity,
        const std::wstring& filtration,
        const std::wstring& strength,
        const std::wstring& weathering,
        const std::wstring& softening,
        const std::wstring& solubleGrams,
        const std::wstring& solublePercent);
    virtual const std::wstring& densityGrade() { return densityGrade_; }
    virtual const std::wstring& permeabilityGrade() { return permeabilityGrade_; }
    virtual const std::wstring& strengthGrade() { return strengthGrade_; }
    virtual const std::wstring& weatheringGrade() { return weatheringGrade_; }
    virtual const std::wstring& softeningGrade() { return softeningGrade_; }
    virtual const std::wstring& solubilityGrade() { return solubilityGrade_; }
    virtual const std::wstring& salinityGrade() { return salinityGrade_; }
    virtual const std::wstring& groupName() { return groupName_; }

    // Name of the soil group and, for other ground than peat, ice, salinity and state when frozen. Does
    // nothing while there is no soil group. Salinity in percent, ice content and filling as ratios,
    // temperatures in degrees, compressibility in 1/kPa; for the state an empty text counts as 0.
    virtual void determineFrozenGrades(const std::wstring& salinity,
        const std::wstring& iceContent,
        const std::wstring& thawTemperature,
        const std::wstring& soilTemperature,
        const std::wstring& freezeTemperature,
        const std::wstring& iceFilling,
        const std::wstring& compressibility);
    // The consistency once more. The ice grade would be expected here, but it is worked out and handed out by
    // nobody: modules rely on the consistency.
    virtual const std::wstring& consistencyNameAgain() { return consistencyName_; }
    virtual const std::wstring& frozenStateName() { return frozenStateName_; }

    // The soil group, 2 to 7 or 0 for none, by the grading (fraction number to percent) in the project's
    // scale and by the last determineCohesive; 0 too in a project of neither scale. Throws
    // std::out_of_range("invalid map<K, T> key") for a fraction that the scale lacks.
    virtual void determineGroup(const Fractions& fractions);
    // Which sand the grading says, 0 to 4 from the coarsest; any other number says no sand. A project in
    // neither scale gets its own scale back, which may look like a sand; without a project the answer is -1.
    // Throws likewise.
    virtual std::int32_t determineSand(const Fractions& fractions);
    // Groups 1, 8 and 9 (rock, peaty soil, peat) are set by the caller.
    virtual void setSoilGroup(const std::int32_t& value) { soilGroup_ = value; }

protected:
    // The settings give the language, the project the scale of fractions; the project may be null.
    GroundController(ISettings* settings, IDBProject* project);
    GroundController(const GroundController&) = delete;
    GroundController& operator=(const GroundController&) = delete;
    ~GroundController() = default;

    // Follows the project that is open now, or none.
    void classifyFor(IDBProject* project) { project_ = project; }

private:
    int gradingScale() const;
    std::wstring_view undetermined() const;
    template <class Names>
    void grade(std::wstring& field, const std::wstring& text, Ladder ladder, const Names& names);
    std::int32_t groupByGrading(int scale) const;
    std::int32_t groupOfCohesive(int scale) const;

    ISettings* settings_;
    IDBProject* project_;
    bool isSandyLoam_ = false;
    bool isLoam_ = false;
    bool isClay_ = false;
    std::wstring soilName_;
    std::wstring consistencyName_;
    std::int32_t elementValue_ = 0;
    std::wstring groupName_;
    std::wstring densityGrade_;
    std::wstring permeabilityGrade_;
    std::wstring strengthGrade_;
    std::wstring weatheringGrade_;
    std::wstring softeningGrade_;
    std::wstring solubilityGrade_;
    std::wstring salinityGrade_;
    std::wstring iceGrade_;
    std::wstring frozenStateName_;
    std::int32_t fractionClass_ = 0;
    std::int32_t soilGroup_ = 0;
    std::int32_t isSand_ = 0;
};
