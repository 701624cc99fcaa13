#pragma once

#include "common/clipboard_text.h"
#include "common/edit_grid_model.h"
#include "common/table_view.h"

#include <QKeySequence>

// An editable table: TableView with a delegate for the kinds of columns, and everything by keyboard. Enter,
// F2 or typing opens a cell; Tab, Enter and the arrows go on, past the end into a new row; Ins adds a row
// below; Space sets a flag; Del clears the selected cells, Ctrl+Del deletes the selected rows; Ctrl+C,
// Ctrl+X, Ctrl+V move blocks to and from a spreadsheet, and a block that is longer than the table adds rows.
// Every act of the user comes out as one edited(), so it is one undo step; the grid itself changes nothing:
// whoever listens stores the rows and gives them back by setRows, at once where the grid is to go on there.
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

    void addRow();
    void deleteSelectedRows();
    void paste();
    // Commits the text of an open editor.
    void closeEditor();
    // Makes the first cell of this column of the row current and scrolls to it.
    void showRow(qint64 id, int column = 0);
    // The id of the current row, 0 where there is none.
    qint64 currentRow() const;

Q_SIGNALS:
    // The user wants the table to look like this. Rows that are new have the id 0.
    void edited(const GridRows& after);
    void currentRowChanged(qint64 id);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    using TableView::edit;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

protected Q_SLOTS:
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    struct Act {
        QString text; // in the menu; a bar parts groups where it is empty
        QKeySequence keys;
        void (EditGrid::*run)();
    };
    static const QVector<Act>& acts();

    void setDefaultWidths(const QString& name);
    void fitRowHeights();
    const GridColumn& columnOf(const QModelIndex& seen) const { return model_->columns()[seen.column()]; }
    int firstEditableColumn() const;
    bool isLastCell(const QModelIndex& seen) const;
    // The cell as it would be stored if this text were pasted into it.
    void putCell(QVector<QString>& cells, int column, const QString& text) const;
    QModelIndex topLeftOfSelection() const;

    void submit(const GridRows& after);
    void goTo(const QModelIndex& seen);
    void goOn();
    void openOrGoOn();
    void toggleFlag();
    void copy() { copySelection(); }
    void cut();
    void clearSelectedCells();
    void fillSelection(const QString& text);
    void pasteBlock(const CellBlock& block);

    EditGridModel* model_;
    QString emptyText_;
    bool editingAllowed_ = true;
};
