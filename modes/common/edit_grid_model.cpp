#include "common/edit_grid_model.h"

#include <QColor>
#include <QHash>

#include <algorithm>
#include <iterator>

static const QColor problemColor(0xfb, 0xda, 0xd7);
static const QColor warningColor(0xff, 0xf1, 0xc4);
static const QColor readOnlyColor(0x6b, 0x6b, 0x6b);

static QHash<qint64, int> placesById(const GridRows& rows)
{
    QHash<qint64, int> places;
    places.reserve(rows.size());
    for (int row = 0; row < rows.size(); ++row)
        places.insert(rows[row].id, row);
    return places;
}

EditGridModel::EditGridModel(const QVector<GridColumn>& columns, QObject* parent)
    : QAbstractTableModel(parent)
    , columns_(columns)
{
}

bool EditGridModel::hasTallRows() const
{
    return std::any_of(
        columns_.begin(), columns_.end(), [](const GridColumn& column) { return column.multiline; });
}

int EditGridModel::rowOf(qint64 id) const
{
    for (int row = 0; row < rows_.size(); ++row)
        if (rows_[row].id == id)
            return row;
    return -1;
}

void EditGridModel::setRows(const GridRows& rows)
{
    const QHash<qint64, int> places = placesById(rows);
    const bool sameRowsAtAll =
        std::any_of(rows_.begin(), rows_.end(), [&](const GridRow& row) { return places.contains(row.id); });
    if (!sameRowsAtAll) {
        beginResetModel();
        rows_ = rows;
        endResetModel();
        return;
    }
    removeMissing(rows);
    appendNew(rows);
    arrange(rows);
    rows_ = rows;
    if (!rows_.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rows_.size() - 1, columns_.size() - 1));
}

void EditGridModel::removeMissing(const GridRows& rows)
{
    const QHash<qint64, int> kept = placesById(rows);
    for (int last = rows_.size() - 1; last >= 0; --last) {
        if (kept.contains(rows_[last].id))
            continue;
        int first = last;
        while (first > 0 && !kept.contains(rows_[first - 1].id))
            --first;
        beginRemoveRows({}, first, last);
        rows_.remove(first, last - first + 1);
        endRemoveRows();
        last = first;
    }
}

void EditGridModel::appendNew(const GridRows& rows)
{
    const QHash<qint64, int> known = placesById(rows_);
    GridRows added;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(added), [&](const GridRow& row) {
        return !known.contains(row.id);
    });
    if (added.isEmpty())
        return;
    beginInsertRows({}, rows_.size(), rows_.size() + added.size() - 1);
    rows_ += added;
    endInsertRows();
}

void EditGridModel::arrange(const GridRows& rows)
{
    const bool inOrder = std::equal(
        rows.begin(), rows.end(), rows_.begin(), rows_.end(), [](const GridRow& a, const GridRow& b) {
            return a.id == b.id;
        });
    if (inOrder)
        return;
    Q_EMIT layoutAboutToBeChanged();
    const QHash<qint64, int> places = placesById(rows);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& old : before)
        after.append(index(places.value(rows_[old.row()].id), old.column()));
    rows_ = rows;
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

int EditGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_.size();
}

int EditGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns_.size();
}

QString EditGridModel::cell(const QModelIndex& index) const
{
    return rows_[index.row()].cells.value(index.column());
}

QVariant EditGridModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const GridColumn& column = columns_[index.column()];
    const QString problem = rows_[index.row()].problems.value(index.column());
    const QString warning = rows_[index.row()].warnings.value(index.column());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cell(index);
    case Qt::ToolTipRole:
        return !problem.isEmpty() ? problem : !warning.isEmpty() ? warning : cell(index);
    case Qt::BackgroundRole:
        return !problem.isEmpty() ? problemColor : !warning.isEmpty() ? QVariant(warningColor) : QVariant();
    case Qt::ForegroundRole:
        return column.readOnly ? QVariant(readOnlyColor) : QVariant();
    case Qt::TextAlignmentRole:
        return int(column.kind == GridColumn::Number ? Qt::AlignRight : Qt::AlignLeft)
            | int(hasTallRows() ? Qt::AlignTop : Qt::AlignVCenter);
    case ProblemRole:
        return !problem.isEmpty();
    case WarningRole:
        return !warning.isEmpty();
    default:
        return {};
    }
}

QVariant EditGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return columns_[section].title;
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags EditGridModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && !columns_[index.column()].readOnly
        && columns_[index.column()].kind != GridColumn::Flag)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool EditGridModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || columns_[index.column()].readOnly
        || cell(index) == value.toString())
        return false;
    GridRows after = rows_;
    QVector<QString>& cells = after[index.row()].cells;
    cells.resize(columns_.size());
    cells[index.column()] = value.toString();
    Q_EMIT edited(after);
    return true;
}
