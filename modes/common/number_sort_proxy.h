#pragma once

#include <QSet>
#include <QSortFilterProxyModel>

// The number in a cell as people type it, comma or point; false where the text is no number.
bool readNumber(const QString& text, double& number);

// Sorts a table as people read it: numbers by value and before texts, texts by the alphabet with numbers
// inside them by value ("Скв-2" before "Скв-10"), empty cells last. Shows only rows in which each word of the
// filter stands somewhere. A row stays where it is while it is edited; sort() puts it in its place again.
class NumberSortProxy : public QSortFilterProxyModel
{
public:
    // What a source model may answer beside the usual roles: the id of a row, which stays with it; whether
    // the row is the spare one at the end, which no order moves and no filter hides.
    enum Role { RowIdRole = Qt::UserRole + 40, SpareRole };

    explicit NumberSortProxy(QObject* parent = nullptr);

    void setFilterText(const QString& text);
    const QString& filterText() const { return filterText_; }
    // Rows that the user works on stay in view until the filter changes, whatever is typed into them.
    void keepInView(const QSet<qint64>& rows);

    // The heads of the rows show this column of the source, and further ones beside it, instead of numbers;
    // -1 for numbers.
    void setRowHeads(int column, int columns = 1);

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    QString filterText_;
    QStringList words_;
    QSet<qint64> kept_;
    int headColumn_ = -1;
    int headColumns_ = 1;
};
