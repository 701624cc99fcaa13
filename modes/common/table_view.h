#pragma once

#include "common/number_sort_proxy.h"

#include <QTableView>

// The table of every screen: sorts by a click on a header (up, down, as stored), filters, copies the selected
// block for a spreadsheet, keeps the widths of its columns under its name.
class TableView : public QTableView
{
    Q_OBJECT

public:
    // The name stands in the file of view settings: mode and table, "tests/layers".
    explicit TableView(const QString& name, QWidget* parent = nullptr);

    // The table's own rows, in stored order, not owned. Call it once, when the columns stand.
    void setSourceModel(QAbstractItemModel* source);
    void setFilterText(const QString& text) { proxy_->setFilterText(text); }

    // Between the rows as seen and the rows as stored.
    QModelIndex sourceIndex(const QModelIndex& seen) const { return proxy_->mapToSource(seen); }
    QModelIndex seenIndex(const QModelIndex& source) const { return proxy_->mapFromSource(source); }
    // Rows of the source model that hold a selected cell, from top to bottom.
    QVector<int> selectedSourceRows() const;

    // Ctrl+C: the selected cells as a block, or the current one.
    void copySelection() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    // Another style may draw wider heads.
    void changeEvent(QEvent* event) override;

private:
    void sortByClick(int column);

    QString name_;
    NumberSortProxy* proxy_;
    int sortedColumn_ = -1;
    Qt::SortOrder sortedOrder_ = Qt::AscendingOrder;
};
