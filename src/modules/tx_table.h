#pragma once

#include <QTableView>

// The table that shell and modules derive theirs from: one selected row at a time, a double click or the edit
// key opens a cell. Like the signal bus it is compiled on both sides of the border.
class TXTable : public QTableView
{
    Q_OBJECT

public:
    explicit TXTable(QWidget* parent = nullptr)
        : QTableView(parent)
    {
        setSelectionMode(SingleSelection);
        setEditTriggers(DoubleClicked | EditKeyPressed);
        viewport()->setAttribute(Qt::WA_Hover);
        viewport()->setMouseTracking(true);
        connect(this, &TXTable::signalEditCell, this, [this](const QModelIndex& index) {
            setCurrentIndex(index);
            edit(index);
        });
    }

Q_SIGNALS:
    // Makes the cell current and opens its editor.
    void signalEditCell(QModelIndex index);
    // For derived tables and those who listen to them; not emitted here.
    void signalClearCalcStatus();
};
