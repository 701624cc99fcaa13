#include "reports/chemistry_report.h"

#include "modules/idbproject.h"
#include "plots/piper.h"
#include "plots/schoeller.h"
#include "reports/table_cells.h"
#include "site/chemistry.h"

#include <algorithm>
#include <string_view>

namespace
{

TableCell spanning(TableCell cell, int columns, int rows)
{
    cell.columns = columns;
    cell.rows = rows;
    return cell;
}

TableCell headCell(std::wstring_view text, int columns = 1, int rows = 1)
{
    return spanning(textCell(text, Align::Centre), columns, rows);
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

struct Texts {
    // clang-format off
    static constexpr Words title{L"Химический состав и агрессивность воды и грунтов", L"Хімічний склад та агресивність води і ґрунтів"};
    static constexpr Words object{L"Объект: ", L"Об'єкт: "};
    static constexpr Words point{L"Точка", L"Точка"};
    static constexpr Words sampleDepth{L"Глубина отбора, м", L"Глибина відбору, м"};
    static constexpr Words depth{L"Глубина, м", L"Глибина, м"};
    static constexpr Words units{L"Единицы", L"Одиниці"};
    static constexpr Words cations{L"Катионы", L"Катіони"};
    static constexpr Words anions{L"Анионы", L"Аніони"};
    static constexpr Words hardness{L"Жесткость общая, °Ж", L"Твердість загальна, °Ж"};
    static constexpr Words dryResidue{L"Сухой остаток, мг/л", L"Сухий залишок, мг/л"};
    static constexpr Words mineralisation{L"Минерализация, г/л", L"Мінералізація, г/л"};
    static constexpr Words unitNames[] = {{L"мг/л", L"мг/л"}, {L"мг-экв/л", L"мг-екв/л"}, {L"%-экв", L"%-екв"}};
    static constexpr Words metres{L" м", L" м"};
    static constexpr Words levels[] = {
        {L"неагрессивная", L"неагресивна"}, {L"слабоагрессивная", L"слабоагресивна"},
        {L"среднеагрессивная", L"середньоагресивна"}, {L"сильноагрессивная", L"сильноагресивна"}};
    static constexpr Words metalLevels[] = {
        {L"низкая", L"низька"}, {L"низкая", L"низька"}, {L"средняя", L"середня"}, {L"высокая", L"висока"}};
    static constexpr Words waterTable{L"Агрессивность воды", L"Агресивність води"};
    static constexpr Words soilTable{L"Агрессивность грунтов", L"Агресивність ґрунтів"};
    static constexpr Words toConcrete{L"К бетону марки по водонепроницаемости", L"До бетону марки за водонепроникністю"};
    static constexpr Words toReinforcement{L"К арматуре железобетона", L"До арматури залізобетону"};
    static constexpr Words toSteel{L"К углеродистой стали", L"До вуглецевої сталі"};
    static constexpr Words toLead{L"К свинцу", L"До свинцю"};
    static constexpr Words toAluminium{L"К алюминию", L"До алюмінію"};
    static constexpr Words composition{L"Химический состав воды", L"Хімічний склад води"};
    static constexpr Words soilComposition{L"Химический состав водной вытяжки грунтов", L"Хімічний склад водної витяжки ґрунтів"};
    static constexpr Words milligramsPerKg{L", мг/кг", L", мг/кг"};
    static constexpr Words humus{L"Гумус, %", L"Гумус, %"};
    static constexpr Words resistivity{L"Удельное сопротивление, Ом·м", L"Питомий опір, Ом·м"};
    static constexpr Words formulas{L"Формулы солевого состава", L"Формули сольового складу"};
    static constexpr Words kurlov{L"Формула Курлова", L"Формула Курлова"};
    static constexpr Words waterName{L"Наименование воды", L"Назва води"};
    static constexpr Words balance{L"Невязка, %", L"Нев'язка, %"};
    static constexpr Words formulaNote{
        L"В числителе анионы, в знаменателе катионы, %-экв; ионы менее 10 %-экв не показаны. "
        L"Серым выделена невязка более 5 %.",
        L"У чисельнику аніони, у знаменнику катіони, %-екв; іони менше 10 %-екв не показано. "
        L"Сірим виділено нев'язку понад 5 %."};
    static constexpr Words piper{L"Диаграмма Пайпера", L"Діаграма Пайпера"};
    static constexpr Words schoeller{L"Диаграмма Шеллера", L"Діаграма Шеллера"};
    static constexpr Words sulphateResistant{L"сульфатостойкий", L"сульфатостійкий"};
    static constexpr Words cement{L"Цемент: ", L"Цемент: "};
    static constexpr Words cover{L"; защитный слой ", L"; захисний шар "};
    static constexpr Words millimetres{L" мм; ", L" мм; "};
    static constexpr Words filtering{L"коэффициент фильтрации от 0,1 м/сут", L"коефіцієнт фільтрації від 0,1 м/добу"};
    static constexpr Words notFiltering{L"коэффициент фильтрации до 0,1 м/сут", L"коефіцієнт фільтрації до 0,1 м/добу"};
    static constexpr Words oldEdition{L"; хлориды воды по СНиП 2.03.11-85", L"; хлориди води за СНиП 2.03.11-85"};
    static constexpr Words limitsNote{
        L". В скобках показатель, по которому принята степень. Пределы взяты из вторых рук: перед выпуском "
        L"сверьте их с действующей редакцией СП 28.13330.",
        L". У дужках показник, за яким прийнято ступінь. Межі взято з других рук: перед випуском "
        L"звірте їх із чинною редакцією СП 28.13330."};
    // clang-format on
};

struct Water {
    const SiteAnalysis* site = nullptr;
    WaterChemistry chemistry;
};

// ---- the table of analyses ----

constexpr const char* tableIons[] = {"Na", "K", "Ca", "Mg", "NH4", "HCO3", "CO3", "SO4", "Cl", "NO3"};

TableRows analysesHead(int language)
{
    std::vector<TableCell> top{headCell(Texts::point.in(language), 1, 2),
        headCell(Texts::sampleDepth.in(language), 1, 2),
        headCell(Texts::units.in(language), 1, 2),
        headCell(Texts::cations.in(language), 5),
        headCell(Texts::anions.in(language), 5),
        headCell(L"pH", 1, 2),
        headCell(Texts::hardness.in(language), 1, 2),
        headCell(Texts::dryResidue.in(language), 1, 2),
        headCell(Texts::mineralisation.in(language), 1, 2)};
    std::vector<TableCell> below;
    for (const char* ion : tableIons) {
        TableCell cell = headCell({});
        cell.runs = ionRuns(wide(ion));
        below.push_back(std::move(cell));
    }
    return {std::move(top), std::move(below)};
}

// Three lines: mg, mg-equivalents, per cent of them.
void addAnalysisRows(TableRows& rows, const Water& water, int language)
{
    constexpr int lines = 3;
    const Analysis& analysis = water.site->analysis;
    for (int line = 0; line < lines; ++line) {
        std::vector<TableCell> row;
        if (line == 0) {
            row.push_back(spanning(textCell(water.site->point, Align::Left), 1, lines));
            row.push_back(spanning(textCell(water.site->depth, Align::Right), 1, lines));
        }
        row.push_back(textCell(Texts::unitNames[line].in(language)));
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
            row.push_back(spanning(numberCell(analysis[CellPH].exact(), 2), 1, lines));
            row.push_back(spanning(numberCell(typedOr(CellHardness, water.chemistry.hardness), 2), 1, lines));
            row.push_back(
                spanning(numberCell(typedOr(CellDryResidue, water.chemistry.dryResidueMgL), 0), 1, lines));
            row.push_back(spanning(numberCell(water.chemistry.mineralisationGL, 2), 1, lines));
        }
        rows.push_back(std::move(row));
    }
}

// ---- the table of soils ----

struct SoilColumn {
    const char* name; // of the ion; null: the title says all
    Words title;
    ChemistryCell cell;
    ChemistryCell other; // stands in for an empty one
    bool isAlways; // the others are left out where no soil has them
};

constexpr SoilColumn soilColumns[] = {
    {nullptr, {L"pH", L"pH"}, CellPH, CellPH, true},
    {"SO4", Texts::milligramsPerKg, CellSoilSO4, CellSO4, true},
    {"Cl", Texts::milligramsPerKg, CellSoilCl, CellCl, true},
    {"HCO3", Texts::milligramsPerKg, CellHCO3, CellHCO3, false},
    {"CO3", Texts::milligramsPerKg, CellCO3, CellCO3, false},
    {"NO3", Texts::milligramsPerKg, CellNO3, CellNO3, false},
    {"Ca", Texts::milligramsPerKg, CellCa, CellCa, false},
    {"Mg", Texts::milligramsPerKg, CellMg, CellMg, false},
    {"Na+K", Texts::milligramsPerKg, CellNaK, CellNaK, false},
    {"Fe", Texts::milligramsPerKg, CellFe, CellFe, false},
    {"NH4", Texts::milligramsPerKg, CellNH4, CellNH4, false},
    {nullptr, Texts::humus, CellHumus, CellHumus, true},
    {nullptr, Texts::resistivity, CellResistivity, CellResistivity, true},
};

const std::wstring& textIn(const ChemistryRecord& record, const SoilColumn& column)
{
    const std::wstring& own = record.cells[column.cell];
    return own.empty() ? record.cells[column.other] : own;
}

// As it was typed: "< 20" stays, and so do the decimals of the laboratory.
TableCell typedCell(const std::wstring& text)
{
    TableCell cell = textCell(text.empty() ? L"–" : std::wstring_view(text), Align::Right);
    cell.number = readNumber(text);
    const std::size_t mark = text.find_first_of(L".,");
    cell.decimals = mark == std::wstring::npos ? 0 : static_cast<int>(text.size() - mark - 1);
    return cell;
}

TableBlock soilTable(IDBProject& project, int language)
{
    TableBlock table;
    table.title = Texts::soilComposition.in(language);
    std::vector<std::pair<const PointDepthKey*, const ChemistryRecord*>> soils;
    for (const auto& [key, record] : project.getChemistry())
        if (!analysisOf(record.cells).isWater)
            soils.emplace_back(&key, &record);
    table.head = {{headCell(Texts::point.in(language)), headCell(Texts::sampleDepth.in(language))}};
    std::vector<const SoilColumn*> columns;
    for (const SoilColumn& column : soilColumns) {
        const auto has = [&](const auto& soil) { return !textIn(*soil.second, column).empty(); };
        if (!column.isAlways && std::ranges::none_of(soils, has))
            continue;
        columns.push_back(&column);
        TableCell title = headCell(column.title.in(language));
        if (column.name) {
            Runs name = ionRuns(wide(column.name));
            title.runs.insert(title.runs.begin(), name.begin(), name.end());
        }
        table.head.front().push_back(std::move(title));
    }
    for (const auto& [key, record] : soils) {
        std::vector<TableCell> row{textCell(key->pointName), textCell(key->depth, Align::Right)};
        for (const SoilColumn* column : columns)
            row.push_back(typedCell(textIn(*record, *column)));
        table.rows.push_back(std::move(row));
    }
    return table;
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
void addFormulaRows(TableRows& rows, const Water& water, int language)
{
    const std::optional<Kurlov> formula = kurlov(water.chemistry);
    if (!formula)
        return;
    constexpr int lines = 2;
    constexpr double nameFrom = 20; // %-eq
    TableCell mineralisation = spanning(textCell({}, Align::Right), 1, lines);
    mineralisation.runs = {{L"M "}, {formula->mineralisation, false, false, false, Run::Lowered}};
    TableCell anions = textCell({}, Align::Centre);
    anions.runs = sideRuns(formula->anions);
    TableCell cations = textCell({}, Align::Centre);
    cations.runs = sideRuns(formula->cations);
    std::wstring name = waterName(water.chemistry, nameFrom, language);
    if (water.chemistry.mineralisationGL)
        name += L", " + std::wstring(mineralisationClass(*water.chemistry.mineralisationGL, language));
    if (water.chemistry.hardness)
        name += L", " + std::wstring(hardnessClass(*water.chemistry.hardness, language));
    TableCell balance = spanning(numberCell(water.chemistry.balancePercent, 1), 1, lines);
    constexpr double greatestBalance = 5;
    balance.isMarked =
        water.chemistry.balancePercent && std::abs(*water.chemistry.balancePercent) > greatestBalance;
    rows.push_back({spanning(textCell(water.site->point, Align::Left), 1, lines),
        spanning(textCell(water.site->depth, Align::Right), 1, lines),
        mineralisation,
        anions,
        spanning(textCell(name, Align::Left), 1, lines),
        balance});
    rows.push_back({cations});
}

// ---- aggressiveness ----

TableCell verdictCell(const AggressivenessVerdict& verdict, bool isMetal, int language)
{
    if (!verdict.level)
        return textCell(L"–", Align::Centre);
    std::wstring text =
        (isMetal ? Texts::metalLevels : Texts::levels)[static_cast<std::size_t>(*verdict.level)].in(language);
    TableCell cell = textCell(text);
    if (verdict.by.empty())
        return cell;
    cell.runs.front().text += L" (";
    const Runs by = ionRuns(wide(verdict.by));
    cell.runs.insert(cell.runs.end(), by.begin(), by.end());
    cell.runs.push_back({L")"});
    return cell;
}

constexpr const char* grades[] = {"W4", "W6", "W8", "W10-W14", "W16-W20"};

TableBlock aggressivenessTable(const std::vector<SiteAnalysis>& analyses,
    bool isWater,
    const AggressivenessLimits& limits,
    const ProtectionChoice& choice,
    int language)
{
    TableBlock table;
    table.title = (isWater ? Texts::waterTable : Texts::soilTable).in(language);
    std::vector<TableCell> top{headCell(Texts::point.in(language), 1, 2),
        headCell(Texts::depth.in(language), 1, 2),
        headCell(Texts::toConcrete.in(language), static_cast<int>(std::size(grades))),
        headCell(Texts::toReinforcement.in(language), 1, 2),
        headCell(Texts::toSteel.in(language), 1, 2)};
    if (!isWater) {
        top.push_back(headCell(Texts::toLead.in(language), 1, 2));
        top.push_back(headCell(Texts::toAluminium.in(language), 1, 2));
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
            row.push_back(verdictCell(
                concreteVerdict(limits, site.analysis, chemistry, choice, grade), false, language));
        row.push_back(verdictCell(reinforcementVerdict(limits, site.analysis, choice), false, language));
        row.push_back(
            verdictCell(steelVerdict(limits, site.analysis, site.cathodeCurrent), !isWater, language));
        if (!isWater) {
            row.push_back(verdictCell(sheathVerdict(limits, site.analysis, Attacked::Lead), true, language));
            row.push_back(
                verdictCell(sheathVerdict(limits, site.analysis, Attacked::Aluminium), true, language));
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

Paragraph note(std::wstring text)
{
    return {{{std::move(text)}}, Paragraph::Note, Align::Left};
}

void addWaters(Document& document, const std::vector<Water>& waters, int language)
{
    TableBlock analyses;
    analyses.title = Texts::composition.in(language);
    analyses.head = analysesHead(language);
    TableBlock formulas;
    formulas.title = Texts::formulas.in(language);
    formulas.head = {{headCell(Texts::point.in(language)),
        headCell(Texts::sampleDepth.in(language)),
        headCell(Texts::kurlov.in(language), 2),
        headCell(Texts::waterName.in(language)),
        headCell(Texts::balance.in(language))}};
    std::vector<PiperSample> samples;
    std::vector<SchoellerSample> lines;
    for (const Water& water : waters) {
        addAnalysisRows(analyses.rows, water, language);
        addFormulaRows(formulas.rows, water, language);
        const std::wstring name = std::wstring(water.site->point) + L", " + std::wstring(water.site->depth)
            + Texts::metres.in(language);
        if (const auto sample = piperSample(water.chemistry, name))
            samples.push_back(*sample);
        if (const auto sample = schoellerSample(water.chemistry, name))
            lines.push_back(*sample);
    }
    document.blocks.emplace_back(std::move(analyses));
    if (!formulas.rows.empty()) {
        document.blocks.emplace_back(std::move(formulas));
        document.blocks.emplace_back(note(Texts::formulaNote.in(language)));
    }
    if (!samples.empty())
        document.blocks.emplace_back(Figure{piperDiagram(samples), Texts::piper.in(language)});
    if (!lines.empty())
        document.blocks.emplace_back(
            Figure{schoellerDiagram(lines, language), Texts::schoeller.in(language)});
}

} // namespace

Document chemistryReport(IDBProject& project, const AggressivenessLimits& limits, int language)
{
    Document document;
    document.title = Texts::title.in(language);
    document.header = project.getProjectCode();
    document.page = {297, 210, 20, 15, 10, 15};
    document.blocks.emplace_back(Heading{document.title, 1});
    if (!project.getProjectName().empty())
        document.blocks.emplace_back(Paragraph{{{Texts::object.in(language) + project.getProjectName()}}});

    const std::vector<SiteAnalysis> analyses = siteAnalyses(project);
    std::vector<Water> waters;
    for (const SiteAnalysis& site : analyses)
        if (site.analysis.isWater)
            waters.push_back({&site, waterChemistry(site.analysis)});
    if (!waters.empty())
        addWaters(document, waters, language);
    if (TableBlock soils = soilTable(project, language); !soils.rows.empty())
        document.blocks.emplace_back(std::move(soils));
    const ProtectionChoice choice = protectionChoice(project);
    for (const bool isWater : {true, false}) {
        TableBlock table = aggressivenessTable(analyses, isWater, limits, choice, language);
        if (!table.rows.empty())
            document.blocks.emplace_back(std::move(table));
    }
    if (!analyses.empty())
        document.blocks.emplace_back(note(Texts::cement.in(language)
            + (choice.cement == Texts::sulphateResistant.russian ? Texts::sulphateResistant.in(language)
                                                                 : choice.cement)
            + Texts::cover.in(language) + std::to_wstring(choice.coverMm) + Texts::millimetres.in(language)
            + (choice.isFiltering ? Texts::filtering : Texts::notFiltering).in(language)
            + (choice.isOldEdition ? Texts::oldEdition.in(language) : L"") + Texts::limitsNote.in(language)));
    return document;
}
