#include "reports/subsidence_report.h"

#include "modules/idbproject.h"
#include "plots/subsidence_picture.h"
#include "reports/table_cells.h"
#include "site/by_point.h"
#include "site/points.h"
#include "site/subsidence.h"

#include <algorithm>
#include <unordered_map>

namespace
{

struct Texts {
    // clang-format off
    static constexpr Words title{L"Просадочность грунтов", L"Просідність ґрунтів"};
    static constexpr Words object{L"Объект: ", L"Об'єкт: "};
    static constexpr Words point{L"Точка", L"Точка"};
    static constexpr Words summary{L"Просадка от собственного веса грунта", L"Просідання від власної ваги ґрунту"};
    static constexpr Words summaryHead[] = {
        {L"Точка", L"Точка"},
        {L"Мощность просадочной толщи, м", L"Потужність просідної товщі, м"},
        {L"Нижняя граница, м", L"Нижня межа, м"},
        {L"Начальное просадочное давление, кПа", L"Початковий тиск просідання, кПа"},
        {L"Коэффициент ksl", L"Коефіцієнт ksl"},
        {L"Просадка, см", L"Просідання, см"},
        {L"Тип грунтовых условий", L"Тип ґрунтових умов"}};
    static constexpr Words summaryNote{
        L"Учтены слои с относительной просадочностью 0,01 и более при напряжении от собственного веса "
        L"водонасыщенного грунта. Тип I — просадка до 5 см включительно.",
        L"Враховано шари з відносною просідністю 0,01 і більше за напруження від власної ваги "
        L"водонасиченого ґрунту. Тип I — просідання до 5 см включно."};
    static constexpr Words typedNote{L"Серым выделено введенное вручную; рядом в скобках — рассчитанное.",
        L"Сірим виділено введене вручну; поруч у дужках — розраховане."};
    static constexpr Words isolines{L"Данные для изолиний на плане", L"Дані для ізоліній на плані"};
    static constexpr Words isolinesHead[] = {
        {L"Точка", L"Точка"}, {L"X, м", L"X, м"}, {L"Y, м", L"Y, м"}, {L"Отметка устья, м", L"Позначка гирла, м"},
        {L"Отметка нижней границы, м", L"Позначка нижньої межі, м"},
        {L"Начальное просадочное давление, кПа", L"Початковий тиск просідання, кПа"},
        {L"Просадка, см", L"Просідання, см"},
        {L"Просадка под фундаментом, см", L"Просідання під фундаментом, см"}};
    static constexpr Words steps{L". Расчет по слоям", L". Розрахунок за шарами"};
    static constexpr Words stepsHead[] = {
        {L"Слой", L"Шар"}, {L"От, м", L"Від, м"}, {L"До, м", L"До, м"}, {L"Толщина, м", L"Товщина, м"},
        {L"Плотность водонасыщенного грунта, г/см³", L"Щільність водонасиченого ґрунту, г/см³"},
        {L"Напряжение в середине, кПа", L"Напруження в середині, кПа"},
        {L"Относительная просадочность", L"Відносна просідність"}, {L"Степень", L"Ступінь"},
        {L"Просадка, см", L"Просідання, см"}};
    static constexpr Words element{L"ИГЭ ", L"ІГЕ "};
    static constexpr Words picture{L". Напряжение и относительная просадочность", L". Напруження і відносна просідність"};
    static constexpr Words foundation{L". Просадка под фундаментом", L". Просідання під фундаментом"};
    static constexpr Words foundationHead[] = {
        {L"Слой", L"Шар"}, {L"От, м", L"Від, м"}, {L"До, м", L"До, м"},
        {L"Напряжение от веса и фундамента, кПа", L"Напруження від ваги і фундаменту, кПа"},
        {L"Относительная просадочность", L"Відносна просідність"},
        {L"Коэффициент ksl", L"Коефіцієнт ksl"}, {L"Просадка, см", L"Просідання, см"}};
    static constexpr Words sum{L"Всего", L"Усього"};
    static constexpr Words strip{L"ленточный", L"стрічковий"};
    static constexpr Words foundationIs{L"Фундамент: ширина ", L"Фундамент: ширина "};
    static constexpr Words foundationLong{L" м, длина ", L" м, довжина "};
    static constexpr Words foundationDeep{L" м, глубина заложения ", L" м, глибина закладення "};
    static constexpr Words foundationPressed{L" м, среднее давление под подошвой ", L" м, середній тиск під підошвою "};
    static constexpr Words kilopascals{L" кПа.", L" кПа."};
    // What the calculation remarks, as it says it.
    static constexpr Words remarks[] = {
        {L"Нет плотности при полном водонасыщении", L"Немає щільності за повного водонасичення"},
        {L"В слое нет испытания на просадочность", L"У шарі немає випробування на просідність"},
        {L"Напряжение больше последней ступени испытания: взято ее значение",
            L"Напруження більше за останній ступінь випробування: взято його значення"}};
    // clang-format on
};

// Grey, with the calculated figure behind it.
TableCell typedCell(const Number& value, const Number& computed, int decimals)
{
    TableCell cell = numberCell(value, decimals);
    cell.isMarked = true;
    if (computed) {
        cell.runs.front().text += L" (" + numberText(computed, decimals) + L")";
        cell.number.reset();
    }
    return cell;
}

TableCell figureCell(const SubsidenceFigure& figure, int decimals)
{
    return figure.isTyped ? typedCell(figure.value, figure.computed, decimals)
                          : numberCell(figure.value, decimals);
}

const wchar_t* typeText(const std::optional<SubsidenceType>& type)
{
    return !type ? L"–" : *type == SubsidenceType::I ? L"I" : L"II";
}

TableBlock summaryOf(const std::vector<SubsidencePoint>& points, int language)
{
    TableBlock table;
    table.title = Texts::summary.in(language);
    table.head = {headRow(Texts::summaryHead, language)};
    for (const SubsidencePoint& point : points) {
        TableCell type = textCell(typeText(point.type), Align::Centre);
        type.isMarked = point.isTypeTyped;
        table.rows.push_back({textCell(point.point),
            numberCell(point.result.thicknessM, 2),
            figureCell(point.lowerBoundaryM, 2),
            figureCell(point.initialPressureKPa, 1),
            numberCell(point.result.coefficient, 2),
            figureCell(point.totalCm, 2),
            std::move(type)});
    }
    return table;
}

bool isTyped(const SubsidencePoint& point)
{
    return point.totalCm.isTyped || point.lowerBoundaryM.isTyped || point.initialPressureKPa.isTyped
        || point.isTypeTyped || std::ranges::any_of(point.typedParts, [](const auto& part) {
               return part[0] || part[1] || part[2];
           });
}

// A point a row, as a program that draws isolines takes it. Points without coordinates cannot stand on a
// plan.
TableBlock isolinesOf(const std::vector<SubsidencePoint>& points,
    const std::vector<FoundationSubsidence>& loaded,
    const std::vector<SitePoint>& places,
    int language)
{
    TableBlock table;
    table.title = Texts::isolines.in(language);
    table.head = {headRow(Texts::isolinesHead, language)};
    if (loaded.empty())
        table.head.front().pop_back();
    std::unordered_map<std::wstring_view, const SitePoint*> byName;
    for (const SitePoint& place : places)
        byName.try_emplace(place.name, &place);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const SubsidencePoint& point = points[i];
        const SitePoint* place = foundOr(byName, point.point);
        if (!place || !place->x || !place->y)
            continue;
        const Number& boundary = point.lowerBoundaryM.value;
        std::vector<TableCell> row{textCell(point.point),
            numberCell(place->x, 2),
            numberCell(place->y, 2),
            numberCell(place->mark, 2),
            numberCell(place->mark && boundary ? Number(*place->mark - *boundary) : Number(), 2),
            numberCell(point.initialPressureKPa.value, 1),
            numberCell(point.totalCm.value, 2)};
        if (!loaded.empty())
            row.push_back(numberCell(loaded[i].totalCm, 2));
        table.rows.push_back(std::move(row));
    }
    return table;
}

std::wstring layerText(const SubsidencePoint& point, std::size_t layer, int language)
{
    if (layer >= point.layers.size())
        return {};
    const SiteLayer& found = point.layers[layer];
    return found.element.empty() ? std::to_wstring(found.number)
                                 : Texts::element.in(language) + std::wstring(found.element);
}

TableBlock stepsOf(const SubsidencePoint& point, int language)
{
    TableBlock table;
    table.title = Texts::point.in(language) + (L" " + std::wstring(point.point)) + Texts::steps.in(language);
    table.head = {headRow(Texts::stepsHead, language)};
    for (std::size_t i = 0; i < point.result.parts.size(); ++i) {
        const SubsidencePart& part = point.result.parts[i];
        const SubsidencePart& computed = point.computed.parts[i];
        const std::array<bool, 3>& typed = point.typedParts[i];
        const Number density = part.layer < point.collapsible.size()
            ? point.collapsible[part.layer].saturatedDensity
            : std::nullopt;
        const auto cell = [&](int which, const Number& value, const Number& own, int decimals) {
            return typed[static_cast<std::size_t>(which)] ? typedCell(value, own, decimals)
                                                          : numberCell(value, decimals);
        };
        table.rows.push_back({textCell(layerText(point, part.layer, language)),
            numberCell(part.fromM, 2),
            numberCell(part.toM, 2),
            numberCell(part.toM - part.fromM, 2),
            numberCell(density, 2),
            cell(0, part.stressKPa, computed.stressKPa, 1),
            cell(1, part.relative, computed.relative, 3),
            textCell(part.relative ? subsidenceGrade(*part.relative, language) : std::wstring_view()),
            cell(2, part.subsidenceCm, computed.subsidenceCm, 2)});
    }
    return table;
}

TableBlock foundationSteps(const SubsidencePoint& point, const FoundationSubsidence& loaded, int language)
{
    TableBlock table;
    table.title =
        Texts::point.in(language) + (L" " + std::wstring(point.point)) + Texts::foundation.in(language);
    table.head = {headRow(Texts::foundationHead, language)};
    for (const FoundationPart& part : loaded.parts)
        table.rows.push_back({textCell(layerText(point, part.layer, language)),
            numberCell(part.fromM, 2),
            numberCell(part.toM, 2),
            numberCell(part.stressKPa, 1),
            numberCell(part.relative, 3),
            numberCell(part.coefficient, 2),
            numberCell(part.subsidenceCm, 2)});
    std::vector<TableCell> last(6);
    last.front() = textCell(Texts::sum.in(language));
    last.push_back(numberCell(loaded.totalCm, 2));
    table.rows.push_back(std::move(last));
    return table;
}

Paragraph note(std::wstring text)
{
    Paragraph line;
    line.style = Paragraph::Note;
    line.runs = {{std::move(text)}};
    return line;
}

// One line for all layers that lack the same.
void addRemarks(Document& document, const SubsidencePoint& point, int language)
{
    const std::string prefix = "layer/";
    std::vector<std::pair<std::wstring, std::wstring>> lines;
    for (const Remark& remark : point.remarks) {
        std::wstring layer;
        if (remark.cell.rfind(prefix, 0) == 0)
            if (const Number place = readNumber(std::wstring(
                    remark.cell.begin() + static_cast<std::ptrdiff_t>(prefix.size()), remark.cell.end())))
                layer = layerText(point, static_cast<std::size_t>(*place), language);
        const auto known = std::find_if(
            lines.begin(), lines.end(), [&](const auto& line) { return line.first == remark.text; });
        if (known == lines.end())
            lines.emplace_back(remark.text, layer);
        else if (!layer.empty())
            known->second += (known->second.empty() ? L"" : L", ") + layer;
    }
    for (const auto& [text, layers] : lines)
        document.blocks.emplace_back(
            note(saidIn(text, Texts::remarks, language) + (layers.empty() ? L"" : L": " + layers) + L"."));
}

void addPoint(Document& document,
    const SubsidencePoint& point,
    const FoundationSubsidence* loaded,
    const SubsidenceReportLook& look)
{
    document.blocks.emplace_back(stepsOf(point, look.language));
    addRemarks(document, point, look.language);
    if (loaded && !loaded->parts.empty())
        document.blocks.emplace_back(foundationSteps(point, *loaded, look.language));
    if (point.result.parts.empty())
        return;
    std::vector<SubsidenceStratum> strata;
    for (std::size_t i = 0; i < point.collapsible.size(); ++i) {
        const CollapsibleLayer& layer = point.collapsible[i];
        strata.push_back({layer.fromM,
            layer.toM,
            layerText(point, i, look.language),
            layer.initialPressureKPa ? layer.initialPressureKPa : initialPressureKPa(layer.curve)});
    }
    const std::wstring title = Texts::point.in(look.language) + (L" " + std::wstring(point.point));
    document.blocks.emplace_back(
        Figure{subsidencePicture(point.result, strata, title, {look.isSmooth, look.language}),
            title + Texts::picture.in(look.language)});
}

std::wstring foundationText(const Foundation& foundation, int language)
{
    const auto metres = [](double value) { return numberText(value, 2); };
    return Texts::foundationIs.in(language) + metres(foundation.widthM) + Texts::foundationLong.in(language)
        + (foundation.lengthM > 0 ? metres(foundation.lengthM) + Texts::foundationDeep.in(language)
                                  : std::wstring(L"– (") + Texts::strip.in(language) + L")"
                    + (Texts::foundationDeep.in(language) + 2))
        + metres(foundation.depthM) + Texts::foundationPressed.in(language)
        + numberText(foundation.pressureKPa, 0) + Texts::kilopascals.in(language);
}

} // namespace

Document subsidenceReport(IDBProject& project, const SubsidenceReportLook& look)
{
    const int language = look.language;
    Document document;
    document.title = Texts::title.in(language);
    document.header = project.getProjectCode();
    document.page = {297, 210, 20, 15, 10, 15};
    const SiteLaboratory laboratory(project, language, SiteLaboratory::Extent::Collapse);
    const std::vector<SubsidencePoint> points = allSubsidencePoints(project, laboratory);
    if (points.empty())
        return document;
    const std::optional<Foundation> foundation = look.withFoundation ? siteFoundation(project) : std::nullopt;
    std::vector<FoundationSubsidence> loaded;
    if (foundation)
        for (const SubsidencePoint& point : points)
            loaded.push_back(subsidenceUnderFoundation(point.collapsible, *foundation));
    document.blocks.emplace_back(Heading{document.title, 1});
    if (!project.getProjectName().empty())
        document.blocks.emplace_back(Paragraph{{{Texts::object.in(language) + project.getProjectName()}}});
    document.blocks.emplace_back(summaryOf(points, language));
    document.blocks.emplace_back(note(Texts::summaryNote.in(language)));
    if (std::ranges::any_of(points, isTyped))
        document.blocks.emplace_back(note(Texts::typedNote.in(language)));
    if (foundation)
        document.blocks.emplace_back(note(foundationText(*foundation, language)));
    TableBlock isolines = isolinesOf(points, loaded, sitePoints(project), language);
    if (!isolines.rows.empty())
        document.blocks.emplace_back(std::move(isolines));
    for (std::size_t i = 0; i < points.size(); ++i)
        addPoint(document, points[i], loaded.empty() ? nullptr : &loaded[i], look);
    return document;
}
