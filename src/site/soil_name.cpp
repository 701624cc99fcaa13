#include "site/soil_name.h"

#include "dictionaries/soil_names.h"
#include "site/plain_settings.h"

#include <algorithm>
#include <exception>
#include <iterator>

namespace
{

enum Group {
    NoGroup = 0,
    Rock = 1,
    Coarse = 2,
    CoarseSand = 3,
    FineSand = 4,
    SandyLoam = 5,
    Peaty = 8,
    Peat = 9,
};

class Ground : public GroundController
{
public:
    Ground(ISettings* settings, IDBProject* project)
        : GroundController(settings, project)
    {
    }
    virtual ~Ground() = default;
};

std::wstring capitalised(std::wstring_view text)
{
    std::wstring result(text);
    // Names of the classes begin with small Russian or Ukrainian letters.
    constexpr std::wstring_view small = L"абвгґдеєжзиіїйклмнопрстуфхцчшщэюя";
    constexpr std::wstring_view large = L"АБВГҐДЕЄЖЗИІЇЙКЛМНОПРСТУФХЦЧШЩЭЮЯ";
    if (!result.empty())
        if (const std::size_t at = small.find(result[0]); at != std::wstring_view::npos)
            result[0] = large[at];
    return result;
}

// Particles coarser than 0.05 mm make a sand: without plastic limits nothing else may be called one.
double shareOfSandAndCoarser(const SampleResult& result)
{
    const auto& curve = result.grading.curve;
    const auto finest = std::find_if(
        curve.begin(), curve.end(), [](const GrainPoint& point) { return point.diameter <= 0.05 + 1e-9; });
    if (finest == curve.end())
        return curve.empty() ? 0 : 100;
    return 100 - finest->finer;
}

// Fractions as the classification wants them: of the scale from 200 mm the whole column without gaps, of the
// one from 800 mm the fraction that rules, because there the coarsest one listed decides.
GroundController::Fractions fractionsFor(const SampleResult& result, GrainScale scale)
{
    GroundController::Fractions fractions;
    const auto& shares = result.input.fractions;
    if (shares.empty() || !result.input.isGradingReadable || !result.grading.isComplete)
        return fractions;
    const auto textOf = [](double share) { return significantText(share, 7); };
    if (scale == GrainScale::Above800) {
        const int number = rulingFraction(shares);
        if (number != 0)
            fractions.emplace(static_cast<std::uint8_t>(number), textOf(shares.at(number)));
        return fractions;
    }
    for (int number = shares.begin()->first; number <= shares.rbegin()->first; ++number)
        if (fractionRank(number, scale) != 0) {
            const auto share = shares.find(number);
            fractions.emplace(static_cast<std::uint8_t>(number),
                share == shares.end() || share->second == 0 ? std::wstring(L"0") : textOf(share->second));
        }
    return fractions;
}

class Naming
{
public:
    Naming(GroundController& ground,
        const LabSample& sample,
        const SampleResult& result,
        GrainScale scale,
        int language)
        : ground_(ground)
        , sample_(sample)
        , result_(result)
        , scale_(scale)
        , language_(language)
    {
    }

    SoilNaming take()
    {
        if (nameCohesive() || nameByGrading() || nameRock())
            addOrganics();
        else
            nameOrganic();
        addState();
        addFrozen();
        return std::move(naming_);
    }

private:
    std::wstring typed(int property) const
    {
        const CellNumber number = propertyNumber(sample_, property);
        return number.value && !number.isLeftOut ? significantText(number.value, 7) : std::wstring();
    }

    Number value(int property) const
    {
        const CellNumber number = propertyNumber(sample_, property);
        return number.isLeftOut ? Number() : number.value;
    }

    bool isUndetermined(const std::wstring& name) const { return name == plasticSoilNames.at(language_, 4); }

    // A computed value counts before a typed one, rounded as its cell is.
    std::wstring index(int property, const Number& computed) const
    {
        return computed ? numberText(computed, derivedDecimals(property)) : typed(property);
    }

    bool nameCohesive()
    {
        ground_.determineCohesive(
            index(12, result_.physical.plasticity), index(13, result_.physical.liquidity));
        if (isUndetermined(ground_.soilName()))
            return false;
        naming_.text = ground_.soilName();
        if (!isUndetermined(ground_.consistencyName()))
            naming_.text += L" " + ground_.consistencyName();
        const int* number = plasticSoilIds.find(ground_.soilName(), language_);
        naming_.group = number ? SandyLoam + *number : NoGroup;
        naming_.fractionClass = classOf(fractionsFor(result_, scale_));
        return true;
    }

    int classOf(const GroundController::Fractions& fractions)
    {
        if (fractions.empty())
            return 0;
        const int first = scale_ == GrainScale::Above200 ? 4 : 19;
        return ground_.determineSand(fractions) + first;
    }

    bool nameByGrading()
    {
        const auto fractions = fractionsFor(result_, scale_);
        const int found = classOf(fractions);
        if (found == 0 || shareOfSandAndCoarser(result_) <= 50)
            return false;
        naming_.fractionClass = found;
        naming_.group = groupOf(found);
        if (const auto* name = fractionSoilNames.find(language_, found))
            naming_.text = capitalised(*name);
        return true;
    }

    // As determineGroup has it; gravel and pebbles, which it leaves without a group, are coarse soils too.
    int groupOf(int fractionClass) const
    {
        if (scale_ == GrainScale::Above200)
            return fractionClass <= 3 ? Coarse : fractionClass <= 6 ? CoarseSand : FineSand;
        if (fractionClass <= 18)
            return Coarse;
        if (fractionClass <= 23)
            return CoarseSand;
        return fractionClass <= 25 ? FineSand : 7;
    }

    bool nameRock()
    {
        const Number strength = value(36);
        if (!strength)
            return false;
        ground_.determineRockGrades(
            typed(5), typed(15), typed(36), typed(37), typed(38), typed(39), typed(40));
        naming_.group = Rock;
        constexpr double rockStrength = 5; // MPa, below it a soil is half a rock
        const bool isUkrainian = language_ == languageUkrainian;
        naming_.text = *strength >= rockStrength
            ? (isUkrainian ? L"Скельний ґрунт" : L"Скальный грунт")
            : (isUkrainian ? L"Напівскельний ґрунт" : L"Полускальный грунт");
        for (const std::wstring* grade :
            {&ground_.strengthGrade(), &ground_.weatheringGrade(), &ground_.softeningGrade()})
            if (!isUndetermined(*grade))
                naming_.text += L" " + *grade;
        return true;
    }

    bool nameOrganic()
    {
        const Number share = value(18);
        if (!share || *share <= 50)
            return false;
        naming_.group = Peat;
        naming_.text = soilGroupNames.at(language_, Peat);
        return true;
    }

    // By the share of organic matter, %: upper bounds inclusive.
    void addOrganics()
    {
        struct Row {
            double aboveOfSand;
            double aboveOfClay;
            const wchar_t* russian;
            const wchar_t* ukrainian;
        };
        constexpr Row rows[] = {
            {40, 40, L"сильнозаторфованный", L"сильнозаторфований"},
            {25, 25, L"среднезаторфованный", L"середньозаторфований"},
            {10, 10, L"слабозаторфованный", L"слабозаторфований"},
            {3, 5, L"с примесью органических веществ", L"з домішкою органічних речовин"},
        };
        const Number share = value(18);
        if (nameOrganic() || !share)
            return;
        const bool isClay = naming_.group >= SandyLoam;
        for (const Row& row : rows) {
            if (*share <= (isClay ? row.aboveOfClay : row.aboveOfSand))
                continue;
            addDetail(language_ == languageUkrainian ? row.ukrainian : row.russian);
            if (row.aboveOfClay >= 10)
                naming_.group = Peaty;
            return;
        }
    }

    void addDetail(std::wstring_view text)
    {
        if (!naming_.details.empty())
            naming_.details += L", ";
        naming_.details += text;
    }

    // Density of sands by the void ratio, and water in the pores: GOST 25100 (second-hand).
    void addState()
    {
        struct DensityRow {
            int lastClass; // of the scale from 200 mm: 6 medium and coarser, 7 fine, 8 silty
            double dense;
            double medium;
        };
        constexpr DensityRow rows[] = {{6, .55, .70}, {7, .60, .75}, {8, .60, .80}};
        if (naming_.group != CoarseSand && naming_.group != FineSand)
            return;
        const bool isUkrainian = language_ == languageUkrainian;
        const Number voids = result_.physical.voidRatio ? result_.physical.voidRatio : value(6);
        if (voids && scale_ == GrainScale::Above200 && naming_.fractionClass >= 4) {
            const auto row = std::find_if(std::begin(rows), std::end(rows), [&](const DensityRow& each) {
                return naming_.fractionClass <= each.lastClass;
            });
            if (row != std::end(rows))
                addDetail(*voids <= row->dense ? (isUkrainian ? L"щільний" : L"плотный")
                        : *voids <= row->medium
                        ? (isUkrainian ? L"середньої щільності" : L"средней плотности")
                        : (isUkrainian ? L"пухкий" : L"рыхлый"));
        }
        const Number water = result_.physical.saturation ? result_.physical.saturation : value(8);
        if (water)
            addDetail(*water <= .5
                    ? (isUkrainian ? L"малого ступеня водонасичення" : L"малой степени водонасыщения")
                    : *water <= .8
                    ? (isUkrainian ? L"середнього ступеня водонасичення" : L"средней степени водонасыщения")
                    : (isUkrainian ? L"насичений водою" : L"насыщенный водой"));
    }

    void addFrozen()
    {
        const Number temperature = value(44);
        if (!temperature || *temperature >= 0 || naming_.group == NoGroup)
            return;
        ground_.setSoilGroup(naming_.group);
        ground_.determineFrozenGrades(
            typed(40), typed(28), typed(41), typed(44), typed(25), typed(43), typed(26));
        if (naming_.group < Peaty && !isUndetermined(ground_.frozenStateName()))
            naming_.text += L" " + ground_.frozenStateName();
    }

    GroundController& ground_;
    const LabSample& sample_;
    const SampleResult& result_;
    GrainScale scale_;
    int language_;
    SoilNaming naming_;
};

} // namespace

SoilNaming nameSoil(GroundController& ground,
    const LabSample& sample,
    const SampleResult& result,
    GrainScale scale,
    int language)
{
    try {
        return Naming(ground, sample, result, scale, language).take();
    } catch (const std::exception&) {
        // A value beyond what the classification reads: there is no name.
        return {};
    }
}

struct SoilClassifier::Parts {
    Parts(IDBProject& project, int language)
        : ground(&settings, &project)
    {
        settings.setReportLanguage(language);
    }
    PlainSettings settings;
    Ground ground;
};

SoilClassifier::SoilClassifier(IDBProject& project, int language)
    : parts_(std::make_unique<Parts>(project, language))
{
}

SoilClassifier::~SoilClassifier() = default;

GroundController& SoilClassifier::ground()
{
    return parts_->ground;
}
