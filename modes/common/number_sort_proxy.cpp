#include "common/number_sort_proxy.h"

#include "core/base/typed_number.h"

#include <QCollator>

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
    words_ = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

bool NumberSortProxy::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    const QString a = left.data(Qt::DisplayRole).toString();
    const QString b = right.data(Qt::DisplayRole).toString();
    // Empty cells stay at the end in either direction: whoever sorts looks for what is there.
    if (a.isEmpty() || b.isEmpty())
        return (sortOrder() == Qt::AscendingOrder) ? !a.isEmpty() && b.isEmpty()
                                                   : a.isEmpty() && !b.isEmpty();
    double numberA = 0;
    double numberB = 0;
    const bool isNumberA = readNumber(a, numberA);
    const bool isNumberB = readNumber(b, numberB);
    if (isNumberA && isNumberB)
        return numberA < numberB;
    if (isNumberA != isNumberB)
        return isNumberA;
    static const QCollator collator = [] {
        QCollator made{QLocale(QLocale::Russian)};
        made.setNumericMode(true);
        made.setCaseSensitivity(Qt::CaseInsensitive);
        return made;
    }();
    return collator.compare(a, b) < 0;
}

bool NumberSortProxy::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
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
