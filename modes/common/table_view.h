#pragma once

#include "common/number_sort_proxy.h"

#include <QKeySequence>
#include <QTableView>

class ColumnWidths;

// Opens the export of a table.
QKeySequence exportKeys();

// The table of every screen: sorts by a click on a header (up, down, as stored), filters, copies the selected
// block for a spreadsheet, keeps the widths of its columns under its name. A filter that nothing passes says
// so in the table's place.
class TableView : public QTableView
{
    Q_OBJECT

public:
    // The name stands in the file of view settings: mode and table, "tests/layers".
    explicit TableView(const QString& name, QWidget* parent = nullptr);

    // The table's own rows, in stored order, not owned. Call it once, when the columns stand.
    void setSourceModel(QAbstractItemModel* source);
    void setFilterText(const QString& text);
    // In pixels, for as long as the user has not dragged the column; its title has room in any case.
    void setFirstWidth(int column, int width);
    // When this column is scrolled out of view, the heads of the rows show it in place of their numbers; with
    // those beside it where a name takes several.
    void setNameColumn(int column, int columns = 1);

    // Between the rows as seen and the rows as stored.
    QModelIndex sourceIndex(const QModelIndex& seen) const { return proxy_->mapToSource(seen); }
    QModelIndex seenIndex(const QModelIndex& source) const { return proxy_->mapFromSource(source); }
    // Rows of the source model that hold a selected cell, from top to bottom.
    QVector<int> selectedSourceRows() const;

    // Ctrl+C: the selected cells as a block, or the current one; numbers with the decimal mark that the user
    // chose for spreadsheets. Ctrl+Shift+C: with the heads of the columns above.
    void copySelection(bool withHeads = false) const;
    // Ctrl+E: asks for rows, format and file. In the document the table is called by its accessible name.
    void exportRows();

    // Up, down, as stored.
    void sortByClick(int column);

protected:
    // Widens the columns, from the first of them, whose titles would be cut off.
    void makeRoomForTitles(int first = 0);
    NumberSortProxy* proxy() const { return proxy_; }
    // Whether the cells of the column are copied as numbers; where they stand on the right, they are.
    virtual bool holdsNumbers(int column) const;
    // What stands in the middle of a table without rows.
    virtual QString emptyMessage() const;
    void sortBy(int column, Qt::SortOrder order);
    int sortedColumn() const { return sortedColumn_; }

    // The selection follows the cursor also where Ctrl is held: nobody deletes a row that he has left.
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    // Another style may draw wider heads.
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void showRowHeads();

    QString name_;
    NumberSortProxy* proxy_;
    ColumnWidths* widths_ = nullptr; // a child
    int nameColumn_ = -1;
    int nameColumns_ = 1;
    int sortedColumn_ = -1;
    Qt::SortOrder sortedOrder_ = Qt::AscendingOrder;
};
