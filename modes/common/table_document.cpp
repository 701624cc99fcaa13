#include "common/table_document.h"

#include "common/number_sort_proxy.h"
#include "document/column_widths.h"

#include <QAbstractItemModel>
#include <QHeaderView>
#include <QTableView>

#include <numeric>

namespace
{

Align alignOf(const QVariant& alignment)
{
    const int bits = alignment.toInt();
    return (bits & Qt::AlignRight) != 0  ? Align::Right
        : (bits & Qt::AlignHCenter) != 0 ? Align::Centre
                                         : Align::Left;
}

TableCell cellOf(const QModelIndex& index)
{
    TableCell cell;
    const QVariant shown = index.data(Qt::DisplayRole);
    const std::wstring text = shown.toString().toStdWString();
    cell.align = alignOf(index.data(Qt::TextAlignmentRole));
    if (cell.align == Align::Right)
        if (const std::optional<Decimal> number = readDecimal(text)) {
            cell.number = readNumber(text);
            cell.decimals = number->decimals;
        }
    cell.runs = {{text}};
    return cell;
}

} // namespace

int recordCount(const QAbstractItemModel& model)
{
    const int rows = model.rowCount();
    const bool hasSpare = rows > 0 && model.index(rows - 1, 0).data(NumberSortProxy::SpareRole).toBool();
    return hasSpare ? rows - 1 : rows;
}

TableBlock tableBlockOf(const QTableView& view, const QAbstractItemModel& model, const QString& title)
{
    TableBlock table;
    table.title = title.toStdWString();
    std::vector<int> columns;
    for (int place = 0; place < view.horizontalHeader()->count(); ++place) {
        const int column = view.horizontalHeader()->logicalIndex(place);
        if (!view.isColumnHidden(column))
            columns.push_back(column);
    }
    std::vector<TableCell> head;
    for (const int column : columns) {
        TableCell cell;
        cell.runs = {{model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().toStdWString()}};
        head.push_back(std::move(cell));
    }
    table.head = {head};
    table.madeRows = static_cast<std::size_t>(recordCount(model));
    table.makeRow = [&model, columns](std::size_t row) {
        std::vector<TableCell> cells;
        cells.reserve(columns.size());
        for (const int column : columns)
            cells.push_back(cellOf(model.index(static_cast<int>(row), column)));
        return cells;
    };
    return table;
}

Document tableDocument(TableBlock table, const QString& header)
{
    Document document;
    document.title = table.title;
    document.header = header.toStdWString();
    constexpr double anyRoom = 1e6;
    const std::vector<double> widths = columnWidths(table, anyRoom);
    const double wanted = std::accumulate(widths.begin(), widths.end(), 0.0);
    constexpr double acrossA4 = 297 - 30;
    if (wanted > document.page.width - document.page.left - document.page.right)
        document.page = {297, 210, 15, 20, 15, 15};
    if (wanted > 2 * acrossA4)
        document.page = {420, 297, 15, 20, 15, 15};
    document.blocks.emplace_back(std::move(table));
    return document;
}
