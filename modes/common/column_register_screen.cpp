#include "common/column_register_screen.h"

#include "common/edit_grid.h"
#include "common/lithology_column.h"
#include "common/number_sort_proxy.h"

#include <algorithm>

ColumnRegisterScreen::ColumnRegisterScreen(TX_Modes mode,
    std::shared_ptr<DepthRegister> depthRegister,
    ITellurixController* controller,
    int fromColumn,
    int toColumn)
    : PointRegisterScreen(mode, std::move(depthRegister), controller)
    , fromColumn_(fromColumn)
    , toColumn_(toColumn)
    , column_(new LithologyColumn(controller->hatch(), this))
{
    connect(&grid(), &EditGrid::currentRowChanged, this, &ColumnRegisterScreen::showStretch);
    setSideView(column_);
}

void ColumnRegisterScreen::rowsShown(const GridRows& rows, const PointFacts& point)
{
    shown_ = rows;
    if (IDBProject* project = controller()->project())
        column_->setColumn(drawnLayers(*project, point.name, point.mark.toStdWString()),
            drawnWaters(*project, point.name),
            drawnSamples(*project, point.name));
    else
        column_->setColumn({}, {});
    showStretch();
}

void ColumnRegisterScreen::showStretch()
{
    double from = 1;
    double to = 0;
    const auto row = std::find_if(shown_.begin(), shown_.end(), [this](const GridRow& shown) {
        return shown.id == grid().currentRow();
    });
    if (row == shown_.end() || !readNumber(row->cells[fromColumn_], from)
        || !readNumber(row->cells[toColumn_], to))
        column_->setStretch(1, 0);
    else
        column_->setStretch(from, to);
}
