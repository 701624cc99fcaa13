#include "reports/coordinates_report.h"

#include "modules/idbproject.h"
#include "reports/table_cells.h"
#include "site/by_point.h"
#include "site/points.h"

#include <algorithm>
#include <unordered_map>

namespace
{

// As typed, with the point of all documents; a dash where nothing was measured.
TableCell numberCell(std::wstring_view typed)
{
    TableCell cell = textCell(typed.empty() ? L"–" : typed, Align::Right);
    if (const std::optional<Decimal> decimal = readDecimal(typed)) {
        cell.number = readNumber(typed);
        cell.decimals = decimal->decimals;
        cell.runs = {{numberText(cell.number, cell.decimals)}};
    }
    return cell;
}

// How deep each point's layers reach, as typed.
std::unordered_map<std::wstring_view, std::wstring_view> depthsOf(IDBProject& project)
{
    std::unordered_map<std::wstring_view, std::wstring_view> depths;
    std::unordered_map<std::wstring_view, double> deepest;
    for (const auto& [key, layer] : project.getLithology())
        if (const Number depth = readNumber(key.depth)) {
            const auto [place, isNew] = deepest.try_emplace(key.pointName, *depth);
            if (isNew || *depth > place->second) {
                place->second = *depth;
                depths[key.pointName] = key.depth;
            }
        }
    return depths;
}

} // namespace

Document coordinatesReport(IDBProject& project)
{
    Document document;
    document.title = L"Ведомость координат и высот точек изысканий";
    document.header = project.getProjectCode();
    document.blocks.emplace_back(Heading{document.title, 1});
    if (!project.getProjectName().empty())
        document.blocks.emplace_back(Paragraph{{{L"Объект: " + project.getProjectName()}}});

    TableBlock table;
    table.title = L"Координаты и высоты";
    const auto head = [](const wchar_t* text, int columns, int rows) {
        TableCell cell = textCell(text, Align::Centre);
        cell.columns = columns;
        cell.rows = rows;
        return cell;
    };
    table.head = {{head(L"№ п/п", 1, 2),
                      head(L"Вид", 1, 2),
                      head(L"Номер", 1, 2),
                      head(L"Координаты, м", 2, 1),
                      head(L"Отметка устья, м", 1, 2),
                      head(L"Глубина, м", 1, 2),
                      head(L"Дата", 1, 2)},
        {head(L"X", 1, 1), head(L"Y", 1, 1)}};
    const auto depths = depthsOf(project);
    int number = 0;
    for (const auto* point : inReadingOrder(project.getPointRegister())) {
        const auto& [key, rows] = *point;
        if (rows.empty())
            continue;
        const PointRow& row = rows.front();
        TableCell count = textCell(std::to_wstring(++number), Align::Right);
        count.number = number;
        table.rows.push_back({count,
            textCell(pointKindFullName(key.pointKind)),
            textCell(key.pointName),
            numberCell(row.text0),
            numberCell(row.text1),
            numberCell(row.absoluteMark),
            numberCell(foundOr(depths, key.pointName)),
            textCell(row.text6)});
    }
    document.blocks.emplace_back(std::move(table));
    return document;
}
