#include "common/sheet_model.h"

#include <utility>

static constexpr int longText = 25; // letters from which a cell may be wider than its column

static QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

SheetModel::SheetModel(const std::vector<SheetColumn>& columns, QObject* parent)
    : QAbstractTableModel(parent)
    , columns_(columns)
    , rows_(columns.size())
{
}

bool SheetModel::setRows(SheetRows rows)
{
    if (rows == rows_)
        return false;
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
    return true;
}

int SheetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int SheetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant SheetModel::data(const QModelIndex& index, int role) const
{
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return fromWide(rows_.cell(row, column));
    case Qt::ToolTipRole: {
        const std::wstring_view text = rows_.cell(row, column);
        // As rich text a long description is broken into lines instead of running across the desktop.
        return text.size() < longText ? QVariant()
                                      : QStringLiteral("<p>%1</p>").arg(fromWide(text).toHtmlEscaped());
    }
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignVCenter
            | (columns_[column].kind == SheetColumn::Number ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return fromWide(columns_[static_cast<std::size_t>(section)].title);
    return QAbstractTableModel::headerData(section, orientation, role);
}
