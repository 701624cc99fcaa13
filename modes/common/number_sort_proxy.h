#pragma once

#include <QSortFilterProxyModel>

// The number in a cell as people type it, comma or point; false where the text is no number.
bool readNumber(const QString& text, double& number);

// Sorts a table as people read it: numbers by value and before texts, texts by the alphabet with numbers
// inside them by value ("Скв-2" before "Скв-10"), empty cells last. Shows only rows in which each word of the
// filter stands somewhere. A row stays where it is while it is edited; sort() puts it in its place again.
class NumberSortProxy : public QSortFilterProxyModel
{
public:
    explicit NumberSortProxy(QObject* parent = nullptr);

    void setFilterText(const QString& text);

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    QStringList words_;
};
