// Which action is enabled when: all of them at once, whatever has changed.

#include "app/main_controller.h"

#include <QAction>
#include <QMdiArea>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <initializer_list>

namespace
{

// What the states depend on.
struct ScreenState {
    TellurixController& facade;
    IDBProject* project;
    TX_Modes mode;
    TX_Lab_Modes labMode;
    bool accessible; // no laboratory sample is being edited
    bool dataMode; // a screen stands, and it is not the register of projects

    bool isIn(std::initializer_list<int> modes) const
    {
        return std::find(modes.begin(), modes.end(), int(mode)) != modes.end();
    }
    bool access(ActionKind kind, TX_Lab_Modes page) const { return facade.access({mode, kind, page}); }
    bool sampleIsEdited() const { return facade.labState() == 8; }
};

} // namespace

static bool never(const ScreenState&)
{
    return false;
}

static bool always(const ScreenState&)
{
    return true;
}

static bool inDataMode(const ScreenState& state)
{
    return state.dataMode;
}

static bool withProject(const ScreenState& state)
{
    return state.project != nullptr;
}

static bool accessibleDataMode(const ScreenState& state)
{
    return state.accessible && state.dataMode;
}

static bool projectInDataMode(const ScreenState& state)
{
    return state.project && state.dataMode;
}

static bool accessibleProject(const ScreenState& state)
{
    return state.project && state.accessible && state.dataMode;
}

static bool canReport(const ScreenState& state)
{
    if (!projectInDataMode(state))
        return false;
    if (state.isIn({1, 8, 19, 20, 21}))
        return true;
    if (state.mode == ModeLaboratory)
        return state.labMode >= LabCompression && state.labMode <= LabShrink && state.sampleIsEdited();
    const int view = state.facade.probingView();
    return state.mode == ModeStatic
        && (view == 2 || view == 4 || (view == 1 && state.facade.probingSubView() == 1));
}

static bool canShowListCoords(const ScreenState& state)
{
    return state.accessible && !state.facade.columnModified();
}

static bool canDelete(const ScreenState& state)
{
    return state.access(DeleteRecords, LabNone);
}

static bool canAdd(const ScreenState& state)
{
    return state.access(AddRecords, LabNone);
}

static bool canTakeMainSet(const ScreenState& state)
{
    return !state.sampleIsEdited() && state.access(MainPropertySet, state.labMode);
}

// Whether the project has a main property set for the page; pages without one answer false in the last.
static bool templateIsEmpty(IDBProject& project, TX_Lab_Modes page, bool& hasTemplate)
{
    hasTemplate = true;
    switch (page) {
    case LabPhysical:
        return project.getPhysicalTemplate().empty();
    case LabCompression:
        return project.getCompressionTemplate().empty();
    case LabShear:
        return project.getShearTemplate().empty();
    case LabSwell:
        return project.getSwellingTemplate().empty();
    default:
        hasTemplate = false;
        return true;
    }
}

static bool canTakeSet(const ScreenState& state)
{
    if (state.sampleIsEdited())
        return false;
    if (state.project && state.facade.labState() == 0) {
        bool hasTemplate = false;
        const bool isEmpty = templateIsEmpty(*state.project, state.labMode, hasTemplate);
        if (!hasTemplate)
            return false;
        if (!isEmpty)
            return !state.access(MainPropertySet, state.labMode);
    }
    return state.access(PropertySet, state.labMode);
}

static bool whileEditing(const ScreenState& state)
{
    return !state.accessible;
}

static bool canSort(const ScreenState& state)
{
    return state.mode == ModeStratigraphicIge;
}

static bool canUndo(const ScreenState& state)
{
    return state.facade.undoRedo()->canUndo(state.facade.undoContext());
}

static bool canRedo(const ScreenState& state)
{
    return state.facade.undoRedo()->canRedo(state.facade.undoContext());
}

static bool inSectionEditor(const ScreenState& state)
{
    return state.mode == ModeSectionEditor;
}

static bool canSetSample(const ScreenState& state)
{
    return state.facade.labState() != 0 && state.labMode != LabGranulometry && state.labMode != LabShrink;
}

static bool canCalculateOutsideLab(const ScreenState& state)
{
    const int view = state.facade.probingView();
    if (state.mode == ModeIge)
        return state.facade.igeView() != 1;
    if (state.mode == ModeStatic)
        return view == 0 || view == 2 || (view == 1 && state.facade.probingSubView() == 0);
    return state.isIn({19, 20, 21});
}

namespace
{

struct StateRow {
    ShellAction action;
    bool (*isEnabled)(const ScreenState&);
};

// Exit, about and settings keep the state of their start.
constexpr StateRow stateRows[] = {
    {ShellAction::Save, inDataMode},
    {ShellAction::Stamps, withProject},
    {ShellAction::Close, accessibleDataMode},
    {ShellAction::Report, canReport},
    {ShellAction::ListCoords, canShowListCoords},
    {ShellAction::ExportOgm, accessibleProject},
    {ShellAction::Litology, accessibleProject},
    {ShellAction::Tests, accessibleProject},
    {ShellAction::Waters, accessibleProject},
    {ShellAction::Consistents, accessibleProject},
    {ShellAction::Laboratory, projectInDataMode},
    {ShellAction::Ige, accessibleProject},
    {ShellAction::Static, accessibleProject},
    {ShellAction::Section, accessibleProject},
    {ShellAction::Igk, accessibleProject},
    {ShellAction::Subsidence, accessibleProject},
    {ShellAction::Chemistry, accessibleProject},
    {ShellAction::Consolidated, accessibleProject},
    {ShellAction::Column, always},
    {ShellAction::Study, projectInDataMode},
    {ShellAction::Delete, canDelete},
    {ShellAction::Add, canAdd},
    {ShellAction::MainSet, canTakeMainSet},
    {ShellAction::Set, canTakeSet},
    {ShellAction::EndEdit, whileEditing},
    {ShellAction::SampleSet, canSetSample},
    {ShellAction::Calc, canCalculateOutsideLab},
    {ShellAction::Clear, never},
    {ShellAction::Sort, canSort},
    {ShellAction::Undo, canUndo},
    {ShellAction::Redo, canRedo},
    {ShellAction::Synchro, inSectionEditor},
};

} // namespace

static bool isActionOf(const ActionRow& row, TX_Modes mode)
{
    if (row.action == ShellAction::ListCoords)
        return mode == ModeListCoords;
    if (row.action == ShellAction::Column)
        return mode == ModeStratigraphic || mode == ModeStratigraphicIge;
    return mode != ModeNone && row.mode == mode;
}

// The button of the screen on view looks pressed; the action is none that one could switch off. An action
// that changes makes its button plain again, so it comes after the states.
static void markCurrentMode(const QToolBar& bar, const ShellActions& actions, TX_Modes mode)
{
    for (const ActionRow& row : actionRows()) {
        QAction* action = actions[row.action];
        auto* button = action ? qobject_cast<QToolButton*>(bar.widgetForAction(action)) : nullptr;
        if (!button)
            continue;
        button->setCheckable(isActionOf(row, mode));
        button->setChecked(isActionOf(row, mode));
        button->update(); // one that may be checked no more is not painted anew by itself
    }
}

void MainController::updateActions()
{
    if (!mainWindow_ || !actions_[ShellAction::Save])
        return;
    const TX_Modes mode = controller_->currentMode();
    const bool dataMode = !mdiArea_->subWindowList().isEmpty() && mode != ModeProjects && mode != ModeNone;
    const ScreenState state{
        *controller_, dbProject(), mode, controller_->labMode(), modesAccessible_, dataMode};
    for (const StateRow& row : stateRows)
        if (QAction* action = actions_[row.action])
            action->setEnabled(row.isEnabled(state));
    // In the register of samples the sample's own property set takes the place of the three others.
    if (controller_->labState() != 0) {
        const bool ownSet = actions_[ShellAction::SampleSet]->isChecked();
        actions_[ShellAction::Calc]->setEnabled(!ownSet);
        actions_[ShellAction::Clear]->setEnabled(!ownSet);
        if (ownSet)
            actions_[ShellAction::EndEdit]->setEnabled(false);
    }
    markCurrentMode(*modeToolBar_, actions_, mode);
}
