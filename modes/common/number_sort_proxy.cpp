#include "common/number_sort_proxy.h"

#include "core/base/reading_order.h"
#include "core/base/typed_number.h"

#include <algorithm>

bool readNumber(const QString& text, double& number)
{
    const Number read = readNumber(text.toStdWString());
    number = read.value_or(number);
    return read.has_value();
}

NumberSortProxy::NumberSortProxy(QObject* parent)
    : QSortFilterProxyModel(parent)
{
    setDynamicSortFilter(false);
}

void NumberSortProxy::setFilterText(const QString& text)
{
    filterText_ = text.trimmed();
    words_ = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    kept_.clear();
    invalidateFilter();
}

void NumberSortProxy::keepInView(const QSet<qint64>& rows)
{
    if (words_.isEmpty() || kept_.contains(rows))
        return;
    kept_ |= rows;
    invalidateFilter();
}

void NumberSortProxy::setRowHeads(int column, int columns)
{
    if (column == headColumn_ && columns == headColumns_)
        return;
    headColumn_ = column;
    headColumns_ = columns;
    if (rowCount() > 0)
        Q_EMIT headerDataChanged(Qt::Vertical, 0, rowCount() - 1);
}

QVariant NumberSortProxy::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Vertical || role != Qt::DisplayRole)
        return QSortFilterProxyModel::headerData(section, orientation, role);
    const QModelIndex row = index(section, qMax(headColumn_, 0));
    if (row.data(SpareRole).toBool())
        return QStringLiteral("*");
    if (headColumn_ < 0)
        return QSortFilterProxyModel::headerData(section, orientation, role);
    QStringList names;
    for (int column = 0; column < headColumns_; ++column)
        if (const QString name = index(section, headColumn_ + column).data().toString(); !name.isEmpty())
            names += name;
    return names.join(QStringLiteral(" · "));
}

bool NumberSortProxy::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const bool ascends = sortOrder() == Qt::AscendingOrder;
    if (left.data(SpareRole).toBool() || right.data(SpareRole).toBool())
        return right.data(SpareRole).toBool() == ascends;
    const QString a = left.data(Qt::DisplayRole).toString();
    const QString b = right.data(Qt::DisplayRole).toString();
    // Empty cells stay at the end in either direction: whoever sorts looks for what is there.
    if (a.isEmpty() || b.isEmpty())
        return ascends ? !a.isEmpty() && b.isEmpty() : a.isEmpty() && !b.isEmpty();
    double numberA = 0;
    double numberB = 0;
    const bool isNumberA = readNumber(a, numberA);
    const bool isNumberB = readNumber(b, numberB);
    if (isNumberA && isNumberB)
        return numberA < numberB;
    if (isNumberA != isNumberB)
        return isNumberA;
    return standsBefore(a.toStdWString(), b.toStdWString());
}

bool NumberSortProxy::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    if (words_.isEmpty())
        return true;
    const QModelIndex row = sourceModel()->index(sourceRow, 0, sourceParent);
    if (row.data(SpareRole).toBool() || kept_.contains(row.data(RowIdRole).toLongLong()))
        return true;
    const auto standsInRow = [&](const QString& word) {
        for (int column = 0; column < sourceModel()->columnCount(sourceParent); ++column)
            if (sourceModel()
                    ->index(sourceRow, column, sourceParent)
                    .data()
                    .toString()
                    .contains(word, Qt::CaseInsensitive))
                return true;
        return false;
    };
    return std::all_of(words_.begin(), words_.end(), standsInRow);
}
