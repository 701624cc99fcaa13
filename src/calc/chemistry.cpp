#include "calc/chemistry.h"

#include "dictionaries/report_language.h"

#include <algorithm>
#include <cmath>

namespace
{

// Masses of a mg-equivalent from the atomic masses.
constexpr Ion ionRows[] = {
    {"Ca", true, 20.039, CellCa},
    {"Mg", true, 12.1525, CellMg},
    {"Na", true, 22.9898, CellNa},
    {"K", true, 39.0983, CellK},
    {"NH4", true, 18.0385, CellNH4},
    {"HCO3", false, 61.0168, CellHCO3},
    {"SO4", false, 48.0313, CellSO4},
    {"Cl", false, 35.453, CellCl},
    {"NO3", false, 62.0049, CellNO3},
    {"CO3", false, 30.0045, CellCO3},
    {"NO2", false, 46.0055, CellNO2},
};

// Cells that make an analysis one of water when its kind is not named.
constexpr ChemistryCell waterIons[] = {CellSO4,
    CellCl,
    CellHCO3,
    CellCO3,
    CellCa,
    CellMg,
    CellNaK,
    CellNO3,
    CellFe,
    CellNH4,
    CellNO2,
    CellNa,
    CellK,
    CellFe2,
    CellFe3};

struct CellTitle {
    std::wstring_view water;
    std::wstring_view soil;
};
constexpr CellTitle cellTitles[ChemistryCellCount] = {
    {L"SO4, мг/л", L"SO4, мг/кг"},
    {L"Cl, мг/л", L"Cl, мг/кг"},
    {L"HCO3, мг/л", L"HCO3, мг/кг"},
    {L"CO3, мг/л", L"CO3, мг/кг"},
    {L"pH", L"pH"},
    {L"Ca, мг/л", L"Ca, мг/кг"},
    {L"Mg, мг/л", L"Mg, мг/кг"},
    {L"Na+K, мг/л", L"Na+K, мг/кг"},
    {L"NO3, мг/л", L"NO3, мг/кг"},
    {L"Fe общее, мг/л", L"Fe общее, мг/кг"},
    {L"CO2 агрессивная, мг/л", L"CO2 агрессивная, мг/л"},
    {L"Жесткость общая, °Ж", L"Жесткость общая, °Ж"},
    {L"Сухой остаток, мг/л", L"Сухой остаток, мг/л"},
    {L"NH4, мг/л", L"NH4, мг/кг"},
    {L"NO2, мг/л", L"NO2, мг/кг"},
    {L"Na, мг/л", L"Na, мг/л"},
    {L"K, мг/л", L"K, мг/л"},
    {L"CO2 свободная, мг/л", L"CO2 свободная, мг/л"},
    {L"Fe2+, мг/л", L"Fe2+, мг/л"},
    {L"Fe3+, мг/л", L"Fe3+, мг/л"},
    {L"H2S, мг/л", L"H2S, мг/л"},
    {L"SiO2, мг/л", L"SiO2, мг/л"},
    {L"Окисляемость, мг O/л", L"Окисляемость, мг O/л"},
    {L"Температура, °C", L"Температура, °C"},
    {L"Жесткость карбонатная, °Ж", L"Жесткость карбонатная, °Ж"},
    {L"Гумус, %", L"Гумус, %"},
    {L"SO4 грунта, мг/кг", L"SO4 грунта, мг/кг"},
    {L"Cl грунта, мг/кг", L"Cl грунта, мг/кг"},
    {L"Удельное сопротивление, Ом·м", L"Удельное сопротивление, Ом·м"},
    {L"Вода или грунт", L"Вода или грунт"},
};

std::wstring_view trimmed(std::wstring_view text)
{
    const auto isBlank = [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\u00A0'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string cellName(ChemistryCell cell)
{
    return "chemistry/" + std::to_string(static_cast<int>(cell));
}

// The amount of an ion, mg. Sodium and potassium stand by themselves only together.
Number amountOf(const Ion& ion, const Analysis& analysis)
{
    const Number amount = analysis[ion.cell].exact();
    if (ion.cell != CellNa && ion.cell != CellK)
        return amount;
    if (analysis[CellNa].exact() && analysis[CellK].exact())
        return amount;
    return ion.cell == CellNa ? analysis[CellNaK].exact() : std::nullopt;
}

void addShares(WaterChemistry& result, const Analysis& analysis)
{
    for (const Ion& ion : ionRows) {
        const Number amount = amountOf(ion, analysis);
        if (!amount)
            continue;
        if (*amount < 0.0) {
            result.remarks.push_back(
                {Remark::Impossible, cellName(ion.cell), L"Содержание иона не может быть отрицательным"});
            continue;
        }
        const double meq = *amount / ion.equivalent;
        result.shares.push_back({&ion, *amount, meq, 0.0});
        Number& sum = ion.isCation ? result.cationsMeq : result.anionsMeq;
        sum = sum.value_or(0.0) + meq;
    }
    for (IonShare& share : result.shares) {
        const double sum = *(share.ion->isCation ? result.cationsMeq : result.anionsMeq);
        share.percent = sum > 0.0 ? 100.0 * share.meq / sum : 0.0;
    }
}

void addBalance(WaterChemistry& result, double limitPercent)
{
    if (!result.cationsMeq || !result.anionsMeq) {
        if (!result.shares.empty())
            result.remarks.push_back({Remark::Missing,
                "chemistry",
                result.cationsMeq ? L"Нет ни одного аниона: баланс не определен"
                                  : L"Нет ни одного катиона: баланс не определен"});
        return;
    }
    const double sum = *result.cationsMeq + *result.anionsMeq;
    if (sum <= 0.0)
        return;
    result.balancePercent = 100.0 * (*result.cationsMeq - *result.anionsMeq) / sum;
    if (std::abs(*result.balancePercent) > limitPercent)
        result.remarks.push_back({Remark::Doubtful,
            "chemistry",
            L"Ошибка баланса " + numberText(result.balancePercent, 1) + L" % больше допустимой"});
}

void addTotals(WaterChemistry& result, const Analysis& analysis)
{
    if (!analysis.isWater || result.shares.empty())
        return;
    double sum = 0.0;
    for (const IonShare& share : result.shares)
        sum += share.mg;
    result.mineralisationGL = sum / 1000.0;
    const IonShare* bicarbonate = result.share("HCO3");
    result.dryResidueMgL = sum - (bicarbonate ? bicarbonate->mg / 2.0 : 0.0);
    const IonShare* calcium = result.share("Ca");
    const IonShare* magnesium = result.share("Mg");
    if (calcium && magnesium)
        result.hardness = calcium->meq + magnesium->meq;
    if (!result.hardness || !bicarbonate)
        return;
    result.carbonateHardness = std::min(bicarbonate->meq, *result.hardness);
    result.permanentHardness = *result.hardness - *result.carbonateHardness;
}

void addDoubts(WaterChemistry& result, const Analysis& analysis)
{
    const Number ph = analysis[CellPH].exact();
    if (ph && (*ph < 0.0 || *ph > 14.0))
        result.remarks.push_back({Remark::Impossible, cellName(CellPH), L"pH лежит вне пределов от 0 до 14"});
    const bool hasNa = analysis[CellNa].exact().has_value();
    const bool hasK = analysis[CellK].exact().has_value();
    if (hasNa != hasK && !analysis[CellNaK].exact())
        result.remarks.push_back({Remark::Missing,
            cellName(hasNa ? CellK : CellNa),
            L"Na и K учитываются, когда заданы оба или их сумма"});
}

std::wstring widened(const char* name)
{
    const std::string_view text = name;
    return {text.begin(), text.end()};
}

// The shares of one side with CO3 in HCO3 and potassium in sodium, falling.
std::vector<Kurlov::Part> joinedParts(const WaterChemistry& chemistry, bool areCations)
{
    std::vector<Kurlov::Part> parts;
    const auto add = [&](std::wstring name, double percent) { parts.push_back({std::move(name), percent}); };
    for (const IonShare& share : chemistry.shares) {
        if (share.ion->isCation != areCations)
            continue;
        const std::string_view name = share.ion->name;
        const bool isCarbonate = name == "CO3";
        const bool isPotassium = name == "K";
        if (!isCarbonate && !isPotassium) {
            add(widened(share.ion->name), share.percent);
            continue;
        }
        const auto host = std::ranges::find_if(
            parts, [&](const auto& part) { return part.ion == (isCarbonate ? L"HCO3" : L"Na"); });
        if (host == parts.end()) {
            add(widened(share.ion->name), share.percent);
            continue;
        }
        host->percent += share.percent;
        if (isPotassium && share.percent > 0.0)
            host->ion = L"Na+K";
    }
    std::ranges::stable_sort(parts, [](const auto& a, const auto& b) { return a.percent > b.percent; });
    return parts;
}

// In a row of names with a hyphen before the next, and as the last of them.
struct WaterWord {
    std::wstring_view ion;
    std::wstring_view inside[2]; // Russian, Ukrainian
    std::wstring_view last[2];
};
constexpr WaterWord waterWords[] = {
    {L"HCO3", {L"гидрокарбонатно", L"гідрокарбонатно"}, {L"гидрокарбонатная", L"гідрокарбонатна"}},
    {L"CO3", {L"карбонатно", L"карбонатно"}, {L"карбонатная", L"карбонатна"}},
    {L"SO4", {L"сульфатно", L"сульфатно"}, {L"сульфатная", L"сульфатна"}},
    {L"Cl", {L"хлоридно", L"хлоридно"}, {L"хлоридная", L"хлоридна"}},
    {L"NO3", {L"нитратно", L"нітратно"}, {L"нитратная", L"нітратна"}},
    {L"NO2", {L"нитритно", L"нітритно"}, {L"нитритная", L"нітритна"}},
    {L"Ca", {L"кальциево", L"кальцієво"}, {L"кальциевая", L"кальцієва"}},
    {L"Mg", {L"магниево", L"магнієво"}, {L"магниевая", L"магнієва"}},
    {L"Na", {L"натриево", L"натрієво"}, {L"натриевая", L"натрієва"}},
    {L"Na+K", {L"натриево", L"натрієво"}, {L"натриевая", L"натрієва"}},
    {L"K", {L"калиево", L"калієво"}, {L"калиевая", L"калієва"}},
    {L"NH4", {L"аммонийно", L"амонійно"}, {L"аммонийная", L"амонійна"}},
};

std::wstring sideName(
    const WaterChemistry& chemistry, bool areCations, double leastPercent, std::size_t language)
{
    std::vector<Kurlov::Part> parts = joinedParts(chemistry, areCations);
    std::erase_if(parts, [&](const auto& part) { return part.percent < leastPercent; });
    std::ranges::reverse(parts);
    std::wstring name;
    for (std::size_t i = 0; i < parts.size(); ++i)
        for (const WaterWord& word : waterWords)
            if (word.ion == parts[i].ion)
                name += i + 1 < parts.size() ? std::wstring(word.inside[language]) + L'-'
                                             : std::wstring(word.last[language]);
    return name;
}

struct ClassRow {
    double below;
    std::wstring_view names[2]; // Russian, Ukrainian
};
constexpr ClassRow mineralisationClasses[] = {
    {0.2, {L"ультрапресная", L"ультрапрісна"}},
    {1.0, {L"пресная", L"прісна"}},
    {3.0, {L"слабосолоноватая", L"слабосолонувата"}},
    {10.0, {L"солоноватая", L"солонувата"}},
    {35.0, {L"соленая", L"солона"}},
    {1e9, {L"рассол", L"розсіл"}},
};
constexpr ClassRow hardnessClasses[] = {
    {1.5, {L"очень мягкая", L"дуже м'яка"}},
    {3.0, {L"мягкая", L"м'яка"}},
    {6.0, {L"умеренно жесткая", L"помірно жорстка"}},
    {9.0, {L"жесткая", L"жорстка"}},
    {1e9, {L"очень жесткая", L"дуже жорстка"}},
};

std::wstring_view classOf(std::span<const ClassRow> rows, double value, int language)
{
    for (const ClassRow& row : rows)
        if (value < row.below)
            return row.names[languagePlace(language)];
    return rows.back().names[languagePlace(language)];
}

std::wstring scaledText(std::wstring_view text, double factor)
{
    const AnalysisValue value = readAnalysisValue(text);
    if (!value.value)
        return std::wstring(text);
    std::wstring scaled = numberText(*value.value * factor, 3);
    // Round figures as they are written: 6, not 6.000.
    while (scaled.find(L'.') != std::wstring::npos && (scaled.back() == L'0' || scaled.back() == L'.')) {
        const bool isPoint = scaled.back() == L'.';
        scaled.pop_back();
        if (isPoint)
            break;
    }
    return value.isAtMost ? L"<" + scaled : scaled;
}

} // namespace

AnalysisValue readAnalysisValue(std::wstring_view text)
{
    text = trimmed(text);
    AnalysisValue value;
    if (!text.empty() && (text.front() == L'<' || text.front() == L'\u2264')) {
        value.isAtMost = true;
        text.remove_prefix(1);
        if (!text.empty() && text.front() == L'=')
            text.remove_prefix(1);
    }
    value.value = readNumber(text);
    return value;
}

Analysis analysisOf(std::span<const std::wstring, ChemistryCellCount> texts)
{
    Analysis analysis;
    for (std::size_t i = 0; i < CellKind; ++i)
        analysis.cells[i] = readAnalysisValue(texts[i]);
    const std::wstring_view kind = trimmed(texts[CellKind]);
    if (kind == L"грунт" || kind == L"ґрунт")
        analysis.isWater = false;
    else if (kind != L"вода")
        analysis.isWater = std::ranges::any_of(
            waterIons, [&](ChemistryCell cell) { return analysis[cell].value.has_value(); });
    return analysis;
}

std::wstring_view chemistryCellTitle(ChemistryCell cell, bool isWater)
{
    const CellTitle& title = cellTitles[cell];
    return isWater ? title.water : title.soil;
}

Number cellEquivalent(ChemistryCell cell)
{
    if (cell == CellNaK)
        cell = CellNa;
    const auto* row = std::ranges::find_if(ionRows, [&](const Ion& ion) { return ion.cell == cell; });
    return row == std::end(ionRows) ? Number() : row->equivalent;
}

std::wstring textInEquivalents(ChemistryCell cell, std::wstring_view milligrams)
{
    const Number equivalent = cellEquivalent(cell);
    return equivalent ? scaledText(milligrams, 1.0 / *equivalent) : std::wstring(milligrams);
}

std::wstring textInMilligrams(ChemistryCell cell, std::wstring_view equivalents)
{
    const Number equivalent = cellEquivalent(cell);
    return equivalent ? scaledText(equivalents, *equivalent) : std::wstring(equivalents);
}

std::span<const Ion> ions()
{
    return ionRows;
}

const Ion* ionNamed(std::string_view name)
{
    const auto* row = std::ranges::find_if(ionRows, [&](const Ion& ion) { return ion.name == name; });
    return row == std::end(ionRows) ? nullptr : row;
}

const IonShare* WaterChemistry::share(std::string_view name) const
{
    const auto found = std::ranges::find_if(shares, [&](const IonShare& s) { return s.ion->name == name; });
    return found == shares.end() ? nullptr : &*found;
}

WaterChemistry waterChemistry(const Analysis& analysis, double balanceLimitPercent)
{
    WaterChemistry result;
    addShares(result, analysis);
    addBalance(result, balanceLimitPercent);
    addTotals(result, analysis);
    addDoubts(result, analysis);
    return result;
}

std::optional<Kurlov> kurlov(const WaterChemistry& chemistry, const KurlovLook& look)
{
    if (!chemistry.cationsMeq || !chemistry.anionsMeq || !chemistry.mineralisationGL)
        return std::nullopt;
    Kurlov formula;
    formula.mineralisation = numberText(chemistry.mineralisationGL, look.decimals);
    formula.anions = joinedParts(chemistry, false);
    formula.cations = joinedParts(chemistry, true);
    for (std::vector<Kurlov::Part>* side : {&formula.anions, &formula.cations})
        std::erase_if(*side, [&](const auto& part) { return part.percent < look.leastPercent; });
    return formula;
}

std::wstring kurlovText(const Kurlov& formula)
{
    std::wstring text = L"M" + formula.mineralisation;
    const auto add = [&](const std::vector<Kurlov::Part>& side) {
        for (const Kurlov::Part& part : side)
            text += L' ' + part.ion + L' ' + numberText(part.percent, 0);
    };
    add(formula.anions);
    text += L" /";
    add(formula.cations);
    return text;
}

std::wstring waterName(const WaterChemistry& chemistry, double leastPercent, int language)
{
    const std::wstring anions = sideName(chemistry, false, leastPercent, languagePlace(language));
    const std::wstring cations = sideName(chemistry, true, leastPercent, languagePlace(language));
    return anions.empty() || cations.empty() ? anions + cations : anions + L' ' + cations;
}

std::wstring_view mineralisationClass(double gramsPerLitre, int language)
{
    return classOf(mineralisationClasses, gramsPerLitre, language);
}

std::wstring_view hardnessClass(double degrees, int language)
{
    return classOf(hardnessClasses, degrees, language);
}
