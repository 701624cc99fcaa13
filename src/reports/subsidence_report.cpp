#include "reports/subsidence_report.h"

#include "modules/idbproject.h"
#include "plots/subsidence_picture.h"
#include "site/subsidence.h"

#include <algorithm>

namespace
{

TableCell textCell(std::wstring_view text, Align align = Align::Left)
{
    TableCell cell;
    cell.runs = {{std::wstring(text)}};
    cell.align = align;
    return cell;
}

TableCell numberCell(const Number& value, int decimals)
{
    TableCell cell = textCell(value ? numberText(value, decimals) : L"–", Align::Right);
    cell.number = value;
    cell.decimals = decimals;
    return cell;
}

const wchar_t* typeText(const std::optional<SubsidenceType>& type)
{
    return !type ? L"–" : *type == SubsidenceType::I ? L"I" : L"II";
}

TableBlock summaryOf(const std::vector<SubsidencePoint>& points)
{
    TableBlock table;
    table.title = L"Просадка от собственного веса грунта";
    table.head = {{textCell(L"Точка"),
        textCell(L"Мощность просадочной толщи, м"),
        textCell(L"Нижняя граница, м"),
        textCell(L"Начальное просадочное давление, кПа"),
        textCell(L"Коэффициент ksl"),
        textCell(L"Просадка, см"),
        textCell(L"Тип грунтовых условий")}};
    for (const SubsidencePoint& point : points) {
        const Subsidence& result = point.result;
        table.rows.push_back({textCell(point.point),
            numberCell(result.thicknessM, 2),
            numberCell(result.lowerBoundaryM, 2),
            numberCell(result.initialPressureKPa, 1),
            numberCell(result.coefficient, 2),
            numberCell(result.totalCm, 2),
            textCell(typeText(result.type), Align::Centre)});
    }
    return table;
}

std::wstring layerText(const SubsidencePoint& point, std::size_t layer)
{
    if (layer >= point.layers.size())
        return {};
    const SiteLayer& found = point.layers[layer];
    return found.element.empty() ? std::to_wstring(found.number) : L"ИГЭ " + std::wstring(found.element);
}

TableBlock stepsOf(const SubsidencePoint& point)
{
    TableBlock table;
    table.title = L"Точка " + std::wstring(point.point) + L". Расчет по слоям";
    table.head = {{textCell(L"Слой"),
        textCell(L"От, м"),
        textCell(L"До, м"),
        textCell(L"Толщина, м"),
        textCell(L"Плотность водонасыщенного грунта, г/см³"),
        textCell(L"Напряжение в середине, кПа"),
        textCell(L"Относительная просадочность"),
        textCell(L"Степень"),
        textCell(L"Просадка, см")}};
    for (const SubsidencePart& part : point.result.parts) {
        const Number density = part.layer < point.collapsible.size()
            ? point.collapsible[part.layer].saturatedDensity
            : std::nullopt;
        table.rows.push_back({textCell(layerText(point, part.layer)),
            numberCell(part.fromM, 2),
            numberCell(part.toM, 2),
            numberCell(part.toM - part.fromM, 2),
            numberCell(density, 2),
            numberCell(part.stressKPa, 1),
            numberCell(part.relative, 3),
            textCell(part.relative ? subsidenceGrade(*part.relative) : std::wstring_view()),
            numberCell(part.subsidenceCm, 2)});
    }
    return table;
}

void addPoint(Document& document, const SubsidencePoint& point)
{
    document.blocks.emplace_back(stepsOf(point));
    // One line for all layers that lack the same.
    std::vector<std::pair<std::wstring, std::wstring>> lines;
    for (const Remark& remark : point.remarks) {
        const std::string prefix = "layer/";
        std::wstring layer;
        if (remark.cell.rfind(prefix, 0) == 0)
            if (const Number place = readNumber(std::wstring(remark.cell.begin() + 6, remark.cell.end())))
                layer = layerText(point, static_cast<std::size_t>(*place));
        const auto known = std::find_if(
            lines.begin(), lines.end(), [&](const auto& line) { return line.first == remark.text; });
        if (known == lines.end())
            lines.emplace_back(remark.text, layer);
        else if (!layer.empty())
            known->second += (known->second.empty() ? L"" : L", ") + layer;
    }
    for (const auto& [text, layers] : lines) {
        Paragraph line;
        line.style = Paragraph::Note;
        line.runs = {{text + (layers.empty() ? L"" : L": " + layers) + L"."}};
        document.blocks.emplace_back(std::move(line));
    }
    const std::wstring title = L"Точка " + std::wstring(point.point);
    if (!point.result.parts.empty())
        document.blocks.emplace_back(Figure{
            subsidencePicture(point.result, title), title + L". Напряжение и относительная просадочность"});
}

} // namespace

Document subsidenceReport(IDBProject& project, int language)
{
    Document document;
    document.title = L"Просадочность грунтов";
    document.header = project.getProjectCode();
    const SiteLaboratory laboratory(project, language);
    const std::vector<SubsidencePoint> points = subsidencePoints(project, laboratory);
    if (points.empty())
        return document;
    document.blocks.emplace_back(Heading{document.title, 1});
    if (!project.getProjectName().empty())
        document.blocks.emplace_back(Paragraph{{{L"Объект: " + project.getProjectName()}}});
    document.blocks.emplace_back(summaryOf(points));
    Paragraph note;
    note.style = Paragraph::Note;
    note.runs = {{L"Учтены слои с относительной просадочностью 0,01 и более при напряжении от собственного "
                  L"веса водонасыщенного "
                  L"грунта. Тип I — просадка до 5 см включительно."}};
    document.blocks.emplace_back(std::move(note));
    for (const SubsidencePoint& point : points)
        addPoint(document, point);
    return document;
}
