#pragma once

#include "common/clipboard_text.h"
#include "common/edit_grid_model.h"
#include "common/table_view.h"

#include <QKeySequence>

class GridDelegate;

// An editable table that behaves as a spreadsheet. Typing or F2 opens a cell. Enter commits and goes down, to
// the column where the row was begun; Tab goes on to the right and from the last cell to the next row, arrows
// commit and go where they point. Below the rows stands a spare one: what is typed there is a new row, and
// whoever enters rows is led to the next spare one, also where the row itself is sorted away; the cursor
// follows the record and never lands in another one unasked. Ins adds a row below; Space sets a flag; Del
// clears the selected cells, Ctrl+Del deletes the selected rows; Ctrl+D fills down; Ctrl+H replaces; Ctrl+C,
// Ctrl+X, Ctrl+V move blocks to and from a spreadsheet, and a block that is longer than the table adds rows.
// A click on a head chooses the column, a double click sorts by it. Every act of the user comes out as one
// edited(); the grid itself changes nothing: whoever listens stores the rows and gives them back by setRows,
// at once where the grid is to go on there.
class EditGrid : public TableView
{
    Q_OBJECT

public:
    EditGrid(const QString& name, const QVector<GridColumn>& columns, QWidget* parent = nullptr);

    EditGridModel& rows() { return *model_; }
    // Replaces the rows; the current cell stays on its row wherever that has gone.
    void setRows(const GridRows& rows);
    // Shown in place of rows where there are none; may have line breaks.
    void setEmptyText(const QString& text);
    // Off, the table shows and copies, but takes nothing.
    void setEditingAllowed(bool allowed);
    // Off, rows are neither added nor deleted and there is no spare one: a form with fixed lines.
    void setRowsGrow(bool grow);

    // While edited() is being told: the rows as typed, where something in them was mended (a comma in a
    // number became a point); empty where nothing was. Whoever keeps both as two steps of undo gives the
    // comma back by the first.
    const GridRows& asTyped() const { return asTyped_; }

    void addRow();
    void deleteSelectedRows();
    void paste();
    void fillDown();
    void replace();
    // Commits the text of an open editor.
    void closeEditor();
    // Makes the first cell of this column of the row current and scrolls to it; shows it in spite of a
    // filter.
    void showRow(qint64 id, int column = 0);
    // The id of the current row, 0 where there is none.
    qint64 currentRow() const;

Q_SIGNALS:
    // The user wants the table to look like this. Rows that are new have the id 0.
    void edited(const GridRows& after);
    void currentRowChanged(qint64 id);
    // A word for the status bar: what was mended, why the cell that the cursor came to is marked. Empty when
    // there is nothing to say any more.
    void told(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    using TableView::edit;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyboardSearch(const QString&) override { }
    bool holdsNumbers(int column) const override;
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;
    QString emptyMessage() const override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    enum class Way { Down, Up, Left, Right, Next, Previous, Enter };
    // A cell by the ids of the records around it, which hold when rows move. 0 is the spare row, -1 none.
    struct Place {
        qint64 record = -1;
        qint64 above = -1;
        qint64 below = -1;
        int column = 0;
    };
    struct Act {
        QString text; // in the menu; a bar parts groups where it is empty
        QKeySequence keys;
        void (EditGrid::*run)();
    };
    static const QVector<Act>& acts();

    void letLinesTakeTheRest();
    void setDefaultWidths();
    void connectHeads();
    void fitRowHeights();
    void showSpareRow();
    const GridColumn& columnOf(const QModelIndex& seen) const { return model_->columns()[seen.column()]; }
    bool isOpenTo(const QModelIndex& seen) const;
    int firstEditableColumn() const;
    int nextColumn(const QModelIndex& from, int step) const;
    qint64 idAt(int seenRow) const;
    QModelIndex cellOf(qint64 id, int column) const;
    QModelIndex lastCellOf(qint64 id) const;

    // Puts a text into a cell as typing and pasting do: fitted to the choices, a number mended.
    void putCell(GridRow& row, int column, const QString& text, bool isSpare = false) const;
    GridRow newRow() const { return {0, QVector<QString>(model_->columns().size())}; }
    QModelIndex topLeftOfSelection() const;

    void enterText(int row, int column, const QString& text);
    // Mends what is to be mended in the cells that differ from before, and tells edited().
    void submit(const GridRows& typed);
    bool mendRow(GridRow& row, const QVector<QString>& before) const;
    void noteCreated(const GridRows& before);
    void goTo(const QModelIndex& seen);
    Place place() const;
    void leaveEditor(QWidget* editor, int key, Qt::KeyboardModifiers modifiers);
    void go(Way way, const Place& from);
    void goDown(const Place& from, int column);
    void goNext(const Place& from, const QModelIndex& cell);
    static Way wayOf(int key, Qt::KeyboardModifiers modifiers);

    // The user goes elsewhere of his own: no new row is being entered any more.
    void endEntering();

    void toggleFlag();
    void copy() { copySelection(); }
    void exportAll()
    {
        closeEditor();
        exportRows();
    }
    void copyWithHeads() { copySelection(true); }
    void cut();
    void clearSelectedCells();
    void fillSelection(const QString& text);
    void pasteBlock(const CellBlock& block);
    void writeForFile(const QModelIndex& seen);
    QVector<QModelIndex> seenCells(bool onlySelected) const;
    void showHeadMenu(const QPoint& at);

    EditGridModel* model_;
    GridDelegate* delegate_;
    QString emptyText_;
    GridRows asTyped_;
    bool editingAllowed_ = true;
    bool rowsGrow_ = true;
    bool submitting_ = false;
    bool moving_ = false;
    bool placing_ = false; // the cursor goes somewhere, whatever keys are held
    qint64 created_ = 0; // by the last submit
    qint64 entered_ = 0; // the new row in which the user is
    int beganIn_ = -1; // the column from which Tab has come, for Enter
    bool toldReason_ = false; // of the cell that the cursor is on
    bool toldMending_ = false;
};
