#include "reports/sounding_report.h"

#include "dictionaries/pile_captions.h"
#include "dictionaries/pile_coefficients.h"
#include "dictionaries/sounding_captions.h"
#include "modules/idbproject.h"
#include "reports/table_cells.h"
#include "site/by_point.h"
#include "site/points.h"

#include <algorithm>
#include <array>

namespace
{

constexpr std::size_t pileColumns = 9;

struct Texts {
    // clang-format off
    static constexpr Words date{L"Дата: ", L"Дата: "};
    static constexpr Words mark{L"; отметка устья, м: ", L"; позначка гирла, м: "};
    static constexpr Words borehole{L"; соседняя скважина: ", L"; сусідня свердловина: "};
    static constexpr Words element{L"ИГЭ", L"ІГЕ"};
    static constexpr Words graphs{L"Графики статического зондирования", L"Графіки статичного зондування"};
    static constexpr Words capacity{L"Несущая способность свай", L"Несуча здатність паль"};
    static constexpr Words byDepth{L"Несущая способность по глубине", L"Несуча здатність за глибиною"};
    static constexpr Words screwPile{L"винтовой сваи", L"гвинтової палі"};
    static constexpr Words toBeChecked{
        L"Коэффициенты СП 24.13330 взяты из вторичных источников и подлежат сверке с нормами.",
        L"Коефіцієнти СП 24.13330 взято з вторинних джерел, їх треба звірити з нормами."};
    static constexpr Words metres{L" м: ", L" м: "};
    // What the calculation remarks, as it says it.
    static constexpr Words remarks[] = {
        {L"Зондирование не доходит до 4d ниже острия сваи", L"Зондування не доходить до 4d нижче вістря палі"},
        {L"У острия сваи нет отсчетов qc", L"Біля вістря палі немає відліків qc"},
        {L"Вид грунта одного из слоев вдоль ствола не задан", L"Вид ґрунту одного із шарів уздовж стовбура не задано"},
        {L"Слои вдоль ствола известны не до острия сваи", L"Шари вздовж стовбура відомі не до вістря палі"},
        {L"На глубине острия нет отсчета Qs", L"На глибині вістря немає відліку Qs"},
        {L"Вдоль ствола нет отсчетов fs", L"Уздовж стовбура немає відліків fs"},
        {L"Размеры сечения сваи не заданы", L"Розміри перерізу палі не задано"},
        {L"Острие сваи должно лежать ниже поверхности", L"Вістря палі має лежати нижче поверхні"},
        {L"Размеры сечения или вид сваи не заданы", L"Розміри перерізу або вид палі не задано"},
        {L"Сопротивление R под острием не задано", L"Опір R під вістрям не задано"},
        {L"Сопротивления f или виды грунта вдоль ствола заданы не до острия",
            L"Опори f або види ґрунту вздовж стовбура задано не до вістря"}};
    // clang-format on
};

// %1, %2, ... replaced by the texts.
std::wstring filled(std::wstring text, const std::vector<std::wstring>& values)
{
    for (std::size_t i = values.size(); i > 0; --i) {
        const std::wstring mark = L"%" + std::to_wstring(i);
        for (std::size_t at = text.find(mark); at != std::wstring::npos;
             at = text.find(mark, at + values[i - 1].size()))
            text.replace(at, mark.size(), values[i - 1]);
    }
    return text;
}

// Centimetres without needless decimals: "30", "32.5".
std::wstring centimetres(double metres)
{
    const double value = metres * 100.0;
    return numberText(value, roundedTo(value, 0) == roundedTo(value, 1) ? 0 : 1);
}

std::wstring sectionSize(const PileSection& section)
{
    if (section.form == PileSection::Rectangular)
        return centimetres(section.sideM) + L"x" + centimetres(section.secondSideM);
    if (section.form == PileSection::Square)
        return centimetres(section.sideM) + L"x" + centimetres(section.sideM);
    return centimetres(section.sideM);
}

std::wstring kindText(const PileTask& task, int language)
{
    if (task.kind == 10)
        return Texts::screwPile.in(language);
    return std::wstring(pileReportTexts.at(language, 6 + std::clamp(task.kind, 0, 9)));
}

TableCell readCell(std::wstring_view text)
{
    TableCell cell;
    cell.runs = {{std::wstring(text)}};
    if (const Number number = readNumber(text)) {
        cell.number = number;
        const std::size_t mark = text.find_first_of(L".,");
        cell.decimals = mark == std::wstring_view::npos ? 0 : static_cast<int>(text.size() - mark - 1);
        cell.align = Align::Right;
    }
    return cell;
}

Paragraph paragraph(std::wstring text, Paragraph::Style style, Align align = Align::Left)
{
    Paragraph made;
    made.runs = {{std::move(text)}};
    made.style = style;
    made.align = align;
    return made;
}

// Each line of a title is a paragraph.
void addLines(Document& document, std::wstring_view text, Paragraph::Style style, Align align)
{
    while (!text.empty()) {
        const std::size_t end = text.find(L'\n');
        document.blocks.emplace_back(paragraph(std::wstring(text.substr(0, end)), style, align));
        text.remove_prefix(end == std::wstring_view::npos ? text.size() : end + 1);
    }
}

// What one row of the table prints; the parts' tables give the mean of the part alone.
struct PileNumbers {
    Number values[pileColumns];
};
constexpr int pileDecimals[pileColumns] = {2, 2, 0, 1, 1, 3, 3, 1, 1};

Number partOf(const PileResistance& resistance, PilePart part)
{
    return part == PilePart::Tip ? resistance.tipKN
        : part == PilePart::Side ? resistance.sideKN
                                 : resistance.totalKN();
}

PileNumbers numbersOf(const PileRow& row, const PileTask& task, PilePart part)
{
    PileGroup group = row.group;
    if (part != PilePart::Whole) {
        std::vector<double> known;
        for (const PilePoint& point : row.points)
            if (const Number value = partOf(point.resistance, part))
                known.push_back(*value);
        group = pileGroup(known, {task.isBored() ? 1.0 : task.condition, task.importance, 1.25});
    }
    return {{row.tipDepth,
        row.tipMark,
        static_cast<double>(group.n),
        group.resistanceKN,
        group.deviationKN,
        group.variation,
        group.coefficient,
        group.capacityKN,
        group.loadKN}};
}

TableBlock pileTable(const std::vector<PileRow>& rows, const PileTask& task, PilePart part, int language)
{
    TableBlock table;
    table.widths = {18, 22, 20, 22, 22, 18, 22, 20, 20};
    table.head.emplace_back();
    for (std::size_t i = 0; i < pileColumns; ++i) {
        std::wstring title(pileReportColumns.at(language, static_cast<int>(i)));
        std::ranges::replace(title, L'\n', L' ');
        table.head.back().push_back(textCell(title, Align::Centre));
    }
    for (const PileRow& row : rows) {
        const PileNumbers numbers = numbersOf(row, task, part);
        table.rows.emplace_back();
        for (std::size_t i = 0; i < pileColumns; ++i)
            table.rows.back().push_back(numberCell(numbers.values[i], pileDecimals[i]));
    }
    return table;
}

std::vector<std::wstring> pointNames(const std::vector<PileRow>& rows)
{
    std::vector<std::wstring> names;
    if (!rows.empty())
        for (const PilePoint& point : rows.front().points)
            names.emplace_back(point.point);
    return names;
}

void addRemarks(Document& document, const std::vector<PileRow>& rows, int language)
{
    std::vector<std::wstring> told;
    for (const PileRow& row : rows)
        for (const PilePoint& point : row.points)
            for (const Remark& remark : point.resistance.remarks) {
                std::wstring text = std::wstring(point.point) + L", " + numberText(row.tipDepth, 2)
                    + Texts::metres.in(language) + saidIn(remark.text, Texts::remarks, language);
                if (told.size() < 50)
                    told.push_back(std::move(text));
            }
    for (std::wstring& text : told)
        document.blocks.emplace_back(paragraph(std::move(text), Paragraph::Note));
}

} // namespace

Document soundingJournals(IDBProject& project,
    const SiteSoundings& soundings,
    const std::vector<std::wstring>& points,
    int language)
{
    Document document;
    document.title = soundingJournalTexts.at(language, 0);
    bool isFirst = true;
    for (const auto* journal : inReadingOrder(project.getSoundings())) {
        const auto& [key, rows] = *journal;
        if (!points.empty() && std::ranges::find(points, key.pointName) == points.end())
            continue;
        if (!isFirst)
            document.blocks.emplace_back(PageBreak{});
        isFirst = false;
        document.blocks.emplace_back(Heading{std::wstring(soundingJournalTexts.at(language, 0)), 1});
        document.blocks.emplace_back(paragraph(filled(std::wstring(soundingJournalTexts.at(language, 1)),
                                                   {key.pointName, key.device.empty() ? L"–" : key.device}),
            Paragraph::Body));
        const SiteSounding* sounding = soundings.find(key.pointName);
        std::wstring line =
            std::wstring(Texts::date.in(language)) + (key.date.empty() ? std::wstring(L"–") : key.date);
        if (sounding && sounding->place && !sounding->place->markText.empty())
            line += Texts::mark.in(language) + std::wstring(sounding->place->markText);
        if (sounding && !sounding->borehole.empty())
            line += Texts::borehole.in(language) + std::wstring(sounding->borehole);
        document.blocks.emplace_back(paragraph(std::move(line), Paragraph::Body));
        TableBlock table;
        table.head = {{textCell(std::wstring(soundingJournalTexts.at(language, 2)) + L", м", Align::Centre),
            textCell(std::wstring(soundingJournalTexts.at(language, 4)) + L", МПа", Align::Centre),
            textCell(std::wstring(soundingJournalTexts.at(language, 3)) + L", кПа", Align::Centre),
            textCell(std::wstring(soundingJournalTexts.at(language, 5)) + L", кН", Align::Centre),
            textCell(Texts::element.in(language), Align::Centre)}};
        for (const SoundingRow& row : rows)
            table.rows.push_back({readCell(row.depth),
                readCell(row.cells[0]),
                readCell(row.cells[1]),
                readCell(row.cells[2]),
                readCell(row.cells[3])});
        document.blocks.emplace_back(std::move(table));
    }
    return document;
}

Document soundingGraphs(const std::vector<Drawing>& pages, int language)
{
    Document document;
    document.title = Texts::graphs.in(language);
    // A sheet is the whole page already.
    document.page = {210, 297, 0, 0, 0, 0};
    for (const Drawing& page : pages) {
        if (!document.blocks.empty())
            document.blocks.emplace_back(PageBreak{});
        document.blocks.emplace_back(Figure{page, {}});
    }
    return document;
}

std::wstring pileTitle(
    const PileTask& task, const std::vector<std::wstring>& points, PilePart part, int language)
{
    const int text = (part == PilePart::Whole        ? 0
                             : part == PilePart::Tip ? 2
                                                     : 4)
        + (points.size() == 1 ? 0 : 1);
    std::wstring names;
    for (const std::wstring& name : points)
        names += (names.empty() ? L"" : L", ") + name;
    return filled(std::wstring(pileReportTexts.at(language, text)),
        {kindText(task, language),
            std::wstring(pileReportTexts.at(language, 16 + static_cast<int>(task.section.form))),
            sectionSize(task.section),
            names,
            task.planningMark ? numberText(task.planningMark, 2) : std::wstring(L"–")});
}

std::wstring pileConditionsText(const PileTask& task, int language)
{
    if (!task.isBored())
        return std::wstring(pileReportTexts.at(language, 21));
    std::vector<std::wstring> values = {numberText(task.condition, 2), numberText(task.tipCondition, 2)};
    for (int soil = 0; soil < 4; ++soil)
        values.emplace_back(pileConditionCoefficient((task.kind - 1) * 4 + soil));
    return filled(std::wstring(pileReportTexts.at(language, 22)), values);
}

std::vector<SoundingCalcRow> pileCalcRows(const std::vector<PileRow>& rows)
{
    std::vector<SoundingCalcRow> made;
    for (const PileRow& row : rows) {
        const PileNumbers numbers = numbersOf(row, {}, PilePart::Whole);
        SoundingCalcRow cells;
        for (std::size_t i = 0; i + 1 < pileColumns; ++i)
            cells.cells[i] = numberText(numbers.values[i], pileDecimals[i]);
        made.push_back(std::move(cells));
    }
    return made;
}

CapacityGraph capacityGraph(const std::vector<PileRow>& rows)
{
    CapacityGraph graph;
    graph.title = Texts::byDepth.russian;
    for (const PileRow& row : rows) {
        std::vector<Number> tips;
        std::vector<Number> sides;
        for (const PilePoint& point : row.points) {
            tips.push_back(point.resistance.tipKN);
            sides.push_back(point.resistance.sideKN);
        }
        graph.points.push_back({row.tipDepth,
            spreadOf(std::span<const Number>(tips)).mean,
            spreadOf(std::span<const Number>(sides)).mean,
            row.group.capacityKN});
    }
    return graph;
}

Document pileReport(const std::vector<PileRow>& rows, const PileTask& task, bool hasParts, int language)
{
    Document document;
    document.title = Texts::capacity.in(language);
    const std::vector<std::wstring> points = pointNames(rows);
    std::vector<PilePart> parts = {PilePart::Whole};
    if (hasParts)
        parts = {PilePart::Whole, PilePart::Tip, PilePart::Side};
    for (const PilePart part : parts) {
        addLines(document, pileTitle(task, points, part, language), Paragraph::Body, Align::Centre);
        document.blocks.emplace_back(pileTable(rows, task, part, language));
        addLines(document, pileConditionsText(task, language), Paragraph::Note, Align::Left);
    }
    CapacityGraph graph = capacityGraph(rows);
    graph.title = Texts::byDepth.in(language);
    graph.language = language;
    document.blocks.emplace_back(Figure{capacityDrawing(graph), document.title});
    document.blocks.emplace_back(paragraph(Texts::toBeChecked.in(language), Paragraph::Note));
    addRemarks(document, rows, language);
    return document;
}
