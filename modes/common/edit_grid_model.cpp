#include "common/edit_grid_model.h"

#include "common/number_sort_proxy.h"
#include "common/typed_text.h"

#include <QColor>
#include <QHash>

#include <algorithm>
#include <iterator>

static const QColor problemColor(0xfb, 0xda, 0xd7);
static const QColor warningColor(0xff, 0xf1, 0xc4);
static const QColor readOnlyColor(0x6b, 0x6b, 0x6b);
static const QColor computedColor(0xf1, 0xf2, 0xf4);

static bool hasBit(quint64 mask, int column)
{
    return column < 64 && (mask >> unsigned(column)) & 1U;
}

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

static bool isSame(const GridRow& a, const GridRow& b)
{
    return a.cells == b.cells && a.problems == b.problems && a.warnings == b.warnings && a.locked == b.locked
        && a.computed == b.computed;
}

static bool haveSameOrder(const GridRows& a, const GridRows& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const GridRow& x, const GridRow& y) {
        return x.id == y.id;
    });
}

// The same rows in the same order: only what differs is painted anew, be there thousands of them.
void EditGridModel::replaceCells(const GridRows& rows)
{
    int first = -1;
    int last = -1;
    for (int row = 0; row < rows.size(); ++row)
        if (!isSame(qAsConst(rows_)[row], rows[row])) {
            first = first < 0 ? row : first;
            last = row;
        }
    rows_ = rows;
    if (first >= 0)
        Q_EMIT dataChanged(index(first, 0), index(last, columns_.size() - 1));
}

void EditGridModel::setRows(const GridRows& rows)
{
    if (haveSameOrder(rows_, rows))
        return replaceCells(rows);
    const QHash<qint64, int> places = placesById(rows);
    const bool sameRowsAtAll =
        std::any_of(rows_.begin(), rows_.end(), [&](const GridRow& row) { return places.contains(row.id); });
    // An empty table keeps its spare row, in which the first row may be being typed.
    if (!sameRowsAtAll && !(rows_.isEmpty() && hasSpareRow_)) {
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
    if (haveSameOrder(rows, qAsConst(rows_)))
        return;
    Q_EMIT layoutAboutToBeChanged();
    const QHash<qint64, int> places = placesById(rows);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& old : before)
        after.append(isSpare(old.row()) ? old : index(places.value(rows_[old.row()].id), old.column()));
    rows_ = rows;
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

void EditGridModel::setSpareRow(bool shown)
{
    if (shown == hasSpareRow_)
        return;
    if (shown)
        beginInsertRows({}, rows_.size(), rows_.size());
    else
        beginRemoveRows({}, rows_.size(), rows_.size());
    hasSpareRow_ = shown;
    if (shown)
        endInsertRows();
    else
        endRemoveRows();
}

bool EditGridModel::isLocked(int row, int column) const
{
    return columns_[column].readOnly || (!isSpare(row) && hasBit(rows_[row].locked, column));
}

int EditGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_.size() + (hasSpareRow_ ? 1 : 0);
}

int EditGridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : columns_.size();
}

QString EditGridModel::cell(const QModelIndex& index) const
{
    return isSpare(index.row()) ? QString() : rows_[index.row()].cells.value(index.column());
}

QString EditGridModel::problemOf(const QModelIndex& index) const
{
    if (isSpare(index.row()))
        return {};
    const QString problem = rows_[index.row()].problems.value(index.column());
    return !problem.isEmpty() || isLocked(index.row(), index.column()) ? problem : lossProblem(cell(index));
}

QString EditGridModel::warningOf(const QModelIndex& index) const
{
    return isSpare(index.row()) ? QString() : rows_[index.row()].warnings.value(index.column());
}

bool EditGridModel::isComputed(const QModelIndex& index) const
{
    return !isSpare(index.row()) && hasBit(rows_[index.row()].computed, index.column());
}

QVariant EditGridModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const auto reason = [&] {
        const QString problem = problemOf(index);
        return problem.isEmpty() ? warningOf(index) : problem;
    };
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cell(index);
    case Qt::ToolTipRole: {
        const QString why = reason();
        return why.isEmpty() ? cell(index) : why;
    }
    case Qt::BackgroundRole:
        return !problemOf(index).isEmpty() ? QVariant(problemColor)
            : !warningOf(index).isEmpty()  ? QVariant(warningColor)
            : isComputed(index)            ? QVariant(computedColor)
                                           : QVariant();
    case Qt::ForegroundRole:
        return isLocked(index.row(), index.column()) || isComputed(index) ? QVariant(readOnlyColor)
                                                                          : QVariant();
    case Qt::TextAlignmentRole:
        return int(columns_[index.column()].kind == GridColumn::Number ? Qt::AlignRight : Qt::AlignLeft)
            | int(hasTallRows() ? Qt::AlignTop : Qt::AlignVCenter);
    case ProblemRole:
        return !problemOf(index).isEmpty();
    case WarningRole:
        return !warningOf(index).isEmpty();
    case ReasonRole:
        return reason();
    case NumberSortProxy::RowIdRole:
        return isSpare(index.row()) ? 0 : rows_[index.row()].id;
    case NumberSortProxy::SpareRole:
        return isSpare(index.row());
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
    if (index.isValid() && !isLocked(index.row(), index.column())
        && columns_[index.column()].kind != GridColumn::Flag)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool EditGridModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || isLocked(index.row(), index.column())
        || cell(index) == value.toString())
        return false;
    Q_EMIT typed(index.row(), index.column(), value.toString());
    return true;
}
