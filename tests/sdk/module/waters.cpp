#include "core/base/reference.h"
#include "core/base/undo_manager.h"
#include "ground/ground_controller.h"
#include "modules/idbproject.h"
#include "modules/itx_undo_redo.h"
#include "modules/module_export.h"
#include "modules/program.h"
#include "modules/tx_table.h"
#include "waters_screen.h"

#include <QStringList>
#include <QVariant>

namespace
{

// Adds a water level to the open project.
class AddLevel : public MUndoRedoCommand
{
public:
    AddLevel(ITellurixController* controller, const PointDepthKey& key)
        : controller_(controller)
        , key_(key)
    {
    }
    bool execute() override { return controller_->project()->addWaterLevel(key_, {}); }
    bool unexecute() override
    {
        auto& levels = controller_->project()->getWaterLevels();
        const auto found = levels.find(key_);
        if (found != levels.end())
            levels.erase(found);
        return true;
    }

private:
    ITellurixController* controller_;
    PointDepthKey key_;
};

class LevelTable : public TXTable
{
public:
    using TXTable::TXTable;
};

} // namespace

WatersScreen::WatersScreen(TX_Modes mode, ITellurixController* controller)
    : mode_(mode)
    , controller_(controller)
{
    new LevelTable(this);
    setProperty("words",
        QStringList{QString::fromWCharArray(soilTypeWaitText),
            QString::fromWCharArray(singleThreadedOpenGlText),
            convertorName,
            columnConvertorName,
            columnLibraryName,
            supportFolder});
    connect(this, &TXWidget::signalUpdateInfo, this, &WatersScreen::refresh);
    connect(this, &TXWidget::signalUpdateMode, this, [this] { Q_EMIT signalAddRecord(mode_, true); });
    connect(this, &TXWidget::signalUpdateDB, this, &WatersScreen::store);
    connect(this, &TXWidget::signalAddSelectedRecord, this, [this] {
        const auto command = makeReference<AddLevel>(controller_, PointDepthKey{L"FC2-BH01", L"77.5"});
        controller_->undoRedo()->execute(controller_->undoContext(), command.get());
        refresh();
    });
    refresh();
}

void WatersScreen::refresh()
{
    setProperty("levels", static_cast<int>(controller_->project()->getWaterLevels().size()));
    auto* ground = dynamic_cast<GroundController*>(controller_);
    ground->determineCohesive(L"20", L"0.1");
    setProperty("soil", QString::fromStdWString(ground->soilName()));
    Q_EMIT signalShowStatusMessage(L"Уровней воды: " + std::to_wstring(property("levels").toInt()));
    Q_EMIT signalUpdateMenus();
}

bool WatersScreen::store()
{
    return true;
}

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new WatersScreen(*mode, controller);
}
