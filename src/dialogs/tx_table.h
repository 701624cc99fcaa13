#pragma once

#include <QTableView>

// The table that others derive from: one selected row at a time, a double click or the edit key opens a cell.
class TXTable : public QTableView
{
    Q_OBJECT

public:
    explicit TXTable(QWidget* parent = nullptr);

Q_SIGNALS:
    // Makes the cell current and opens its editor.
    void signalEditCell(QModelIndex index);
    // For derived tables and those who listen to them; not emitted here.
    void signalClearCalcStatus();
};
