#pragma once

#include "common/edit_grid_model.h"
#include "common/table_view.h"

// An editable table: TableView with a delegate for the kinds of columns, and everything by keyboard. Enter,
// F2 or typing opens a cell; Tab, Enter and the arrows go on; Ins adds a row below; Del clears the selected
// cells, Ctrl+Del deletes the selected rows; Ctrl+C, Ctrl+X, Ctrl+V move blocks to and from a spreadsheet,
// and a block that is longer than the table adds rows. Every act of the user comes out as one edited(), so it
// is one undo step; the grid itself changes nothing: whoever listens stores the rows and gives them back by
// setRows.
class EditGrid : public TableView
{
    Q_OBJECT

public:
    EditGrid(const QString& name, const QVector<GridColumn>& columns, QWidget* parent = nullptr);

    EditGridModel& rows() { return *model_; }
    // Replaces the rows; the current cell stays on its row wherever that has gone.
    void setRows(const GridRows& rows);

    void addRow();
    void deleteSelectedRows();
    void paste();
    // Commits the text of an open editor.
    void closeEditor();
    // Makes the first cell of this column of the row current and scrolls to it.
    void showRow(qint64 id, int column = 0);

Q_SIGNALS:
    // The user wants the table to look like this. Rows that are new have the id 0.
    void edited(const GridRows& after);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    EditGridModel* model_;
};
