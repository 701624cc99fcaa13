#include "reports/chemistry_report.h"

#include "modules/idbproject.h"
#include "plots/piper.h"
#include "site/chemistry.h"

#include <algorithm>
#include <string_view>

namespace
{

TableCell textCell(std::wstring_view text, Align align = Align::Left, int columns = 1, int rows = 1)
{
    TableCell cell;
    cell.runs = {{std::wstring(text)}};
    cell.align = align;
    cell.columns = columns;
    cell.rows = rows;
    return cell;
}

TableCell headCell(std::wstring_view text, int columns = 1, int rows = 1)
{
    return textCell(text, Align::Centre, columns, rows);
}

TableCell numberCell(const Number& value, int decimals, int rows = 1)
{
    TableCell cell = textCell(value ? numberText(value, decimals) : L"–", Align::Right, 1, rows);
    cell.number = value;
    cell.decimals = decimals;
    return cell;
}

// "HCO3" with its figures lowered.
Runs ionRuns(std::wstring_view name)
{
    Runs runs;
    for (const wchar_t character : name) {
        const bool isFigure = character >= L'0' && character <= L'9';
        const Run::Position position = isFigure ? Run::Lowered : Run::Normal;
        if (runs.empty() || runs.back().position != position)
            runs.push_back({{}, false, false, false, position});
        runs.back().text += character;
    }
    return runs;
}

std::wstring wide(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

struct Water {
    const SiteAnalysis* site = nullptr;
    WaterChemistry chemistry;
};

// ---- the table of analyses ----

constexpr const char* tableIons[] = {"Na", "K", "Ca", "Mg", "NH4", "HCO3", "CO3", "SO4", "Cl", "NO3"};

TableRows analysesHead()
{
    std::vector<TableCell> top{headCell(L"Точка", 1, 2),
        headCell(L"Глубина отбора, м", 1, 2),
        headCell(L"Единицы", 1, 2),
        headCell(L"Катионы", 5),
        headCell(L"Анионы", 5),
        headCell(L"pH", 1, 2),
        headCell(L"Жесткость общая, °Ж", 1, 2),
        headCell(L"Сухой остаток, мг/л", 1, 2),
        headCell(L"Минерализация, г/л", 1, 2)};
    std::vector<TableCell> below;
    for (const char* ion : tableIons) {
        TableCell cell = headCell({});
        cell.runs = ionRuns(wide(ion));
        below.push_back(std::move(cell));
    }
    return {std::move(top), std::move(below)};
}

// Three lines: mg, mg-equivalents, per cent of them.
void addAnalysisRows(TableRows& rows, const Water& water)
{
    constexpr int lines = 3;
    const Analysis& analysis = water.site->analysis;
    const wchar_t* const units[lines] = {L"мг/л", L"мг-экв/л", L"%-экв"};
    for (int line = 0; line < lines; ++line) {
        std::vector<TableCell> row;
        if (line == 0) {
            row.push_back(textCell(water.site->point, Align::Left, 1, lines));
            row.push_back(textCell(water.site->depth, Align::Right, 1, lines));
        }
        row.push_back(textCell(units[line]));
        for (const char* ion : tableIons) {
            const IonShare* share = water.chemistry.share(ion);
            Number value;
            if (share)
                value = line == 0 ? share->mg : line == 1 ? share->meq : share->percent;
            row.push_back(numberCell(value, line == 0 ? 1 : line == 1 ? 2 : 0));
        }
        if (line == 0) {
            const auto typedOr = [&](ChemistryCell cell, const Number& computed) {
                return analysis[cell].exact() ? analysis[cell].exact() : computed;
            };
            row.push_back(numberCell(analysis[CellPH].exact(), 2, lines));
            row.push_back(numberCell(typedOr(CellHardness, water.chemistry.hardness), 2, lines));
            row.push_back(numberCell(typedOr(CellDryResidue, water.chemistry.dryResidueMgL), 0, lines));
            row.push_back(numberCell(water.chemistry.mineralisationGL, 2, lines));
        }
        rows.push_back(std::move(row));
    }
}

// ---- Kurlov ----

// "HCO3 48 SO4 32" with lowered figures in the ions.
Runs sideRuns(const std::vector<Kurlov::Part>& side)
{
    Runs runs;
    for (const Kurlov::Part& part : side) {
        Runs ion = ionRuns(part.ion);
        runs.insert(runs.end(), ion.begin(), ion.end());
        runs.push_back({L" " + numberText(part.percent, 0) + L"  "});
    }
    return runs;
}

// The fraction is two rows: anions above the rule, cations below it.
void addFormulaRows(TableRows& rows, const Water& water)
{
    const std::optional<Kurlov> formula = kurlov(water.chemistry);
    if (!formula)
        return;
    constexpr int lines = 2;
    TableCell mineralisation = textCell({}, Align::Right, 1, lines);
    mineralisation.runs = {{L"M "}, {formula->mineralisation, false, false, false, Run::Lowered}};
    TableCell anions = textCell({}, Align::Centre);
    anions.runs = sideRuns(formula->anions);
    TableCell cations = textCell({}, Align::Centre);
    cations.runs = sideRuns(formula->cations);
    std::wstring name = waterName(water.chemistry);
    if (water.chemistry.mineralisationGL)
        name += L", " + std::wstring(mineralisationClass(*water.chemistry.mineralisationGL));
    if (water.chemistry.hardness)
        name += L", " + std::wstring(hardnessClass(*water.chemistry.hardness));
    TableCell balance = numberCell(water.chemistry.balancePercent, 1, lines);
    constexpr double greatestBalance = 5;
    balance.isMarked =
        water.chemistry.balancePercent && std::abs(*water.chemistry.balancePercent) > greatestBalance;
    rows.push_back({textCell(water.site->point, Align::Left, 1, lines),
        textCell(water.site->depth, Align::Right, 1, lines),
        mineralisation,
        anions,
        textCell(name, Align::Left, 1, lines),
        balance});
    rows.push_back({cations});
}

// ---- aggressiveness ----

const wchar_t* levelName(Aggressiveness level)
{
    switch (level) {
    case Aggressiveness::None:
        return L"неагрессивная";
    case Aggressiveness::Weak:
        return L"слабоагрессивная";
    case Aggressiveness::Medium:
        return L"среднеагрессивная";
    case Aggressiveness::Strong:
        return L"сильноагрессивная";
    }
    return L"";
}

const wchar_t* metalLevelName(Aggressiveness level)
{
    return level == Aggressiveness::None  ? L"низкая"
        : level == Aggressiveness::Strong ? L"высокая"
                                          : L"средняя";
}

TableCell verdictCell(const AggressivenessVerdict& verdict, bool isMetal)
{
    if (!verdict.level)
        return textCell(L"–", Align::Centre);
    std::wstring text = isMetal ? metalLevelName(*verdict.level) : levelName(*verdict.level);
    if (!verdict.by.empty())
        text += L" (" + wide(verdict.by) + L")";
    return textCell(text);
}

constexpr const char* grades[] = {"W4", "W6", "W8", "W10-W14", "W16-W20"};

TableBlock aggressivenessTable(const std::vector<SiteAnalysis>& analyses,
    bool isWater,
    const AggressivenessLimits& limits,
    const ProtectionChoice& choice)
{
    TableBlock table;
    table.title = isWater ? L"Агрессивность воды" : L"Агрессивность грунтов";
    std::vector<TableCell> top{headCell(L"Точка", 1, 2),
        headCell(L"Глубина, м", 1, 2),
        headCell(L"К бетону марки по водонепроницаемости", static_cast<int>(std::size(grades))),
        headCell(L"К арматуре железобетона", 1, 2),
        headCell(L"К углеродистой стали", 1, 2)};
    if (!isWater) {
        top.push_back(headCell(L"К свинцу", 1, 2));
        top.push_back(headCell(L"К алюминию", 1, 2));
    }
    std::vector<TableCell> below;
    for (const char* grade : grades)
        below.push_back(headCell(wide(grade)));
    table.head = {std::move(top), std::move(below)};
    for (const SiteAnalysis& site : analyses) {
        if (site.analysis.isWater != isWater)
            continue;
        const WaterChemistry chemistry = waterChemistry(site.analysis);
        std::vector<TableCell> row{textCell(site.point), textCell(site.depth, Align::Right)};
        for (const char* grade : grades)
            row.push_back(
                verdictCell(concreteVerdict(limits, site.analysis, chemistry, choice, grade), false));
        row.push_back(verdictCell(reinforcementVerdict(limits, site.analysis, choice), false));
        row.push_back(verdictCell(steelVerdict(limits, site.analysis, site.cathodeCurrent), !isWater));
        if (!isWater) {
            row.push_back(verdictCell(sheathVerdict(limits, site.analysis, Attacked::Lead), true));
            row.push_back(verdictCell(sheathVerdict(limits, site.analysis, Attacked::Aluminium), true));
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

Paragraph note(std::wstring text)
{
    return {{{std::move(text)}}, Paragraph::Note, Align::Left};
}

void addWaters(Document& document, const std::vector<Water>& waters)
{
    TableBlock analyses;
    analyses.title = L"Химический состав воды";
    analyses.head = analysesHead();
    TableBlock formulas;
    formulas.title = L"Формулы солевого состава";
    formulas.head = {{headCell(L"Точка"),
        headCell(L"Глубина отбора, м"),
        headCell(L"Формула Курлова", 2),
        headCell(L"Наименование воды"),
        headCell(L"Невязка, %")}};
    std::vector<PiperSample> samples;
    for (const Water& water : waters) {
        addAnalysisRows(analyses.rows, water);
        addFormulaRows(formulas.rows, water);
        if (const auto sample = piperSample(water.chemistry,
                std::wstring(water.site->point) + L", " + std::wstring(water.site->depth) + L" м"))
            samples.push_back(*sample);
    }
    document.blocks.emplace_back(std::move(analyses));
    if (!formulas.rows.empty()) {
        document.blocks.emplace_back(std::move(formulas));
        document.blocks.emplace_back(
            note(L"В числителе анионы, в знаменателе катионы, %-экв; ионы менее 10 %-экв не показаны. "
                 L"Серым выделена невязка более 5 %."));
    }
    if (!samples.empty())
        document.blocks.emplace_back(Figure{piperDiagram(samples), L"Диаграмма Пайпера"});
}

} // namespace

Document chemistryReport(IDBProject& project, const AggressivenessLimits& limits)
{
    Document document;
    document.title = L"Химический состав и агрессивность воды и грунтов";
    document.header = project.getProjectCode();
    document.page = {297, 210, 20, 15, 10, 15};
    document.blocks.emplace_back(Heading{document.title, 1});
    if (!project.getProjectName().empty())
        document.blocks.emplace_back(Paragraph{{{L"Объект: " + project.getProjectName()}}});

    const std::vector<SiteAnalysis> analyses = siteAnalyses(project);
    std::vector<Water> waters;
    for (const SiteAnalysis& site : analyses)
        if (site.analysis.isWater)
            waters.push_back({&site, waterChemistry(site.analysis)});
    if (!waters.empty())
        addWaters(document, waters);
    const ProtectionChoice choice = protectionChoice(project);
    for (const bool isWater : {true, false}) {
        TableBlock table = aggressivenessTable(analyses, isWater, limits, choice);
        if (!table.rows.empty())
            document.blocks.emplace_back(std::move(table));
    }
    if (!analyses.empty())
        document.blocks.emplace_back(
            note(L"Цемент: " + choice.cement + L"; защитный слой " + std::to_wstring(choice.coverMm)
                + L" мм. В скобках показатель, по которому принята степень. Пределы взяты из вторых рук: "
                  L"перед выпуском сверьте их с "
                  L"действующей редакцией СП 28.13330."));
    return document;
}
