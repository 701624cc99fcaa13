#include "calc/physical.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{

constexpr double waterDensity = 1.0;

// What a measured value may be. Outside the outer limits it is impossible, outside the inner ones doubtful.
// The outer limits are those of any soil; the inner ones (a proposal) those of mineral soils alone.
struct LimitRow {
    int property;
    Number PhysicalInput::*value;
    double least;
    double low;
    double high;
    double most;
    double mostOfOrganic;
    const wchar_t* name;
    const wchar_t* hint;
};

constexpr LimitRow limitRows[] = {
    {0, &PhysicalInput::moisture, 0, 0, 1, 5, 50, L"Влажность", L"д.е.; похоже на проценты"},
    {1, &PhysicalInput::density, 0.8, 1.3, 2.4, 2.8, 2.8, L"Плотность", L"г/см3"},
    {2, &PhysicalInput::particleDensity, 1.0, 2.55, 2.85, 4.5, 4.5, L"Плотность частиц", L"г/см3"},
    {3,
        &PhysicalInput::liquidLimit,
        0,
        0,
        1.5,
        5,
        50,
        L"Влажность на границе текучести",
        L"д.е.; похоже на проценты"},
    {4,
        &PhysicalInput::plasticLimit,
        0,
        0,
        1.5,
        5,
        50,
        L"Влажность на границе раскатывания",
        L"д.е.; похоже на проценты"},
};

std::string cellOf(int property)
{
    return "physical/" + std::to_string(property);
}

// Collects remarks; an impossible input is taken away, so that nothing is calculated from it.
class InputCheck
{
public:
    InputCheck(PhysicalInput& input, Remarks& remarks)
        : input_(input)
        , remarks_(remarks)
    {
    }

    void run()
    {
        for (const LimitRow& row : limitRows)
            checkLimits(row);
        checkMoistureAgainstLimit();
        checkLimitsOfPlasticity();
        checkParticles();
    }

private:
    void say(Remark::Kind kind, int property, std::wstring text)
    {
        remarks_.push_back({kind, cellOf(property), std::move(text)});
    }

    void checkLimits(const LimitRow& row)
    {
        Number& value = input_.*row.value;
        if (!value)
            return;
        const double most = input_.isOrganic ? row.mostOfOrganic : row.most;
        if (*value < row.least || *value > most) {
            const bool isAbove = *value > most;
            say(Remark::Impossible,
                row.property,
                std::wstring(row.name) + L" " + significantText(value, 4)
                    + (isAbove ? L" больше " : L" меньше ") + significantText(isAbove ? most : row.least, 3)
                    + L" "
                    + (isAbove ? row.hint
                               : std::wstring(row.hint).substr(0, std::wstring(row.hint).find(L';'))));
            value.reset();
        } else if (!input_.isOrganic && (*value < row.low || *value > row.high)) {
            say(Remark::Doubtful,
                row.property,
                std::wstring(row.name) + L" " + significantText(value, 4) + L" редко бывает вне пределов "
                    + significantText(row.low, 3) + L" – " + significantText(row.high, 3));
        }
    }

    // The commonest slip: one moisture in per cent beside another in fractions.
    void checkMoistureAgainstLimit()
    {
        if (!input_.moisture || !input_.liquidLimit || input_.isOrganic
            || *input_.moisture <= 3 * *input_.liquidLimit)
            return;
        say(Remark::Impossible,
            0,
            L"Влажность больше трёх влажностей на границе текучести; похоже, что она введена в процентах");
        input_.moisture.reset();
    }

    void checkLimitsOfPlasticity()
    {
        if (!input_.liquidLimit || !input_.plasticLimit || *input_.plasticLimit <= *input_.liquidLimit)
            return;
        say(Remark::Impossible, 4, L"Влажность на границе раскатывания больше, чем на границе текучести");
        input_.plasticLimit.reset();
    }

    void checkParticles()
    {
        if (!input_.particleDensity || !input_.density || input_.isOrganic
            || *input_.particleDensity > *input_.density)
            return;
        say(Remark::Impossible, 2, L"Плотность частиц не больше плотности грунта");
        input_.particleDensity.reset();
    }

    PhysicalInput& input_;
    Remarks& remarks_;
};

void deriveFromVoids(const PhysicalInput& input, double dryDensity, double particleDensity, Physical& result)
{
    const double voidRatio = (particleDensity - dryDensity) / dryDensity;
    result.voidRatio = voidRatio;
    result.porosity = 100 * (1 - dryDensity / particleDensity);
    result.fullMoisture = voidRatio * waterDensity / particleDensity;
    result.saturatedDensity = (particleDensity + voidRatio * waterDensity) / (1 + voidRatio);
    result.submergedDensity = (particleDensity - waterDensity) / (1 + voidRatio);
    if (input.moisture)
        result.saturation = *input.moisture * particleDensity / (voidRatio * waterDensity);
    if (input.liquidLimit)
        result.collapseIndicator =
            (*input.liquidLimit * particleDensity / waterDensity - voidRatio) / (1 + voidRatio);
}

void deriveDensities(const PhysicalInput& input, Physical& result)
{
    if (input.moisture && input.density)
        result.dryDensity = *input.density / (1 + *input.moisture);
    const Number dry = result.dryDensity ? result.dryDensity : input.dryDensity;
    if (!dry || *dry <= 0 || !input.particleDensity)
        return;
    if (*input.particleDensity <= *dry) {
        result.remarks.push_back(
            {Remark::Impossible, cellOf(5), L"Плотность сухого грунта не меньше плотности частиц"});
        return;
    }
    deriveFromVoids(input, *dry, *input.particleDensity, result);
}

void derivePlasticity(const PhysicalInput& input, Physical& result)
{
    if (!input.liquidLimit || !input.plasticLimit)
        return;
    const double range = *input.liquidLimit - *input.plasticLimit;
    result.plasticity = 100 * range;
    // Below one per cent the soil is not plastic and has no consistency; binary fractions of 0.18 - 0.17
    // must not decide it.
    if (input.moisture && roundedTo(*result.plasticity, 6) >= 1)
        result.liquidity = (*input.moisture - *input.plasticLimit) / range;
}

struct ResultLimitRow {
    int property;
    Number Physical::*value;
    double low;
    double high;
    bool isOfOrganicToo;
    const wchar_t* text;
};

constexpr ResultLimitRow resultLimitRows[] = {
    {5,
        &Physical::dryDensity,
        0.8,
        2.4,
        false,
        L"Плотность сухого грунта редко бывает вне пределов 0.8 – 2.4 г/см3"},
    {6, &Physical::voidRatio, 0.25, 3, false, L"Коэффициент пористости редко бывает вне пределов 0.25 – 3"},
    {13, &Physical::liquidity, -1.5, 2.5, true, L"Показатель текучести редко бывает вне пределов -1.5 – 2.5"},
};

// Full pores, more water than they hold and a density above the saturated one are one and the same fault, so
// it is told once.
void checkResults(const PhysicalInput& input, Physical& result)
{
    for (const ResultLimitRow& row : resultLimitRows) {
        const Number& value = result.*row.value;
        if (value && (row.isOfOrganicToo || !input.isOrganic) && (*value < row.low || *value > row.high))
            result.remarks.push_back({Remark::Doubtful, cellOf(row.property), row.text});
    }
    if (!result.saturation)
        return;
    const double saturation = roundedTo(*result.saturation, 6);
    if (saturation > 1.05)
        result.remarks.push_back({Remark::Impossible,
            cellOf(8),
            L"Коэффициент водонасыщения " + numberText(result.saturation, 2)
                + L" больше 1: влажность, плотность и плотность частиц противоречат друг другу"});
    else if (saturation > 1)
        result.remarks.push_back({Remark::Doubtful,
            cellOf(8),
            L"Коэффициент водонасыщения " + numberText(result.saturation, 3)
                + L" больше 1 в пределах погрешности определений"});
}

} // namespace

Physical physicalOf(const PhysicalInput& given)
{
    Physical result;
    PhysicalInput input = given;
    InputCheck(input, result.remarks).run();
    deriveDensities(input, result);
    derivePlasticity(input, result);
    checkResults(input, result);
    return result;
}

std::array<Number, 10> derivedProperties(const Physical& physical)
{
    return {physical.dryDensity,
        physical.voidRatio,
        physical.porosity,
        physical.saturation,
        physical.fullMoisture,
        physical.saturatedDensity,
        physical.submergedDensity,
        physical.plasticity,
        physical.liquidity,
        physical.collapseIndicator};
}

int derivedDecimals(int property)
{
    constexpr int decimals[] = {2, 3, 1, 2, 3, 2, 2, 1, 2, 2};
    return decimals[std::clamp(property, firstDerivedProperty, lastDerivedProperty) - firstDerivedProperty];
}

Suspicion suspicionOf(const Physical& physical)
{
    // Upper bound of the plasticity index, %, and the indicator below which collapse is suspected.
    struct Row {
        double plasticity;
        double indicator;
    };
    constexpr Row rows[] = {{10, 0.10}, {14, 0.17}, {22, 0.24}};
    if (!physical.collapseIndicator)
        return Suspicion::None;
    const double indicator = *physical.collapseIndicator;
    if (indicator >= 0.3)
        return Suspicion::Swelling;
    if (!physical.saturation || *physical.saturation >= 0.8 || !physical.plasticity
        || roundedTo(*physical.plasticity, 6) < 1)
        return Suspicion::None;
    const auto row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& each) {
        return roundedTo(*physical.plasticity, 6) < each.plasticity;
    });
    return row != std::end(rows) && indicator < row->indicator ? Suspicion::Collapse : Suspicion::None;
}
