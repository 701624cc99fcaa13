#include "dialogs/tx_table.h"

TXTable::TXTable(QWidget* parent)
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
