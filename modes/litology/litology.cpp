#include "common/edit_grid.h"
#include "common/lithology_column.h"
#include "common/number_sort_proxy.h"
#include "common/point_register_screen.h"
#include "litology/layer_register.h"
#include "modules/module_export.h"

namespace
{

// The layers of a point as a table and as a drawing, each showing what is chosen in the other.
class LithologyScreen : public PointRegisterScreen
{
public:
    LithologyScreen(TX_Modes mode, ITellurixController* controller)
        : PointRegisterScreen(mode, std::make_shared<LayerRegister>(), controller)
        , column_(new LithologyColumn(controller->hatch(), this))
    {
        connect(column_, &LithologyColumn::layerClicked, this, [this](qint64 id) {
            grid().closeEditor();
            grid().showRow(id, qMax(grid().currentIndex().column(), 0));
            grid().setFocus();
        });
        connect(&grid(), &EditGrid::currentRowChanged, column_, &LithologyColumn::setCurrentLayer);
        setSideView(column_);
    }

protected:
    void rowsShown(const GridRows& rows, const PointFacts& point) override
    {
        IDBProject* project = controller()->project();
        column_->setColumn(
            layersOf(rows), project ? drawnWaters(*project, point.name) : QVector<DrawnWater>());
        column_->setCurrentLayer(grid().currentRow());
    }

private:
    static QVector<DrawnLayer> layersOf(const GridRows& rows)
    {
        QVector<DrawnLayer> layers;
        double top = 0;
        for (const GridRow& row : rows) {
            double bottom = 0;
            if (!row.problems.value(LayerRegister::Bottom).isEmpty()
                || !readNumber(row.cells[LayerRegister::Bottom], bottom) || bottom <= top)
                continue;
            layers.append({row.id,
                top,
                bottom,
                row.cells[LayerRegister::Bottom],
                row.cells[LayerRegister::Thickness],
                row.cells[LayerRegister::Mark],
                row.cells[LayerRegister::Index],
                row.cells[LayerRegister::Description],
                hatchOfDescription(row.cells[LayerRegister::Description])});
            top = bottom;
        }
        return layers;
    }

    LithologyColumn* column_;
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new LithologyScreen(*mode, controller);
}
