#include "shell/shell_test.h"

#include <QMenu>
#include <QToolBar>

#include <algorithm>
#include <bit>
#include <functional>
#include <set>

namespace
{

using A = ShellAction;
using Actions = std::set<A>;

const Actions dataModes{A::Litology,
    A::Tests,
    A::Waters,
    A::Consistents,
    A::Laboratory,
    A::Ige,
    A::Static,
    A::Section,
    A::Igk,
    A::Subsidence,
    A::Chemistry,
    A::Consolidated,
    A::ExportOgm};
const Actions alwaysOn{A::Exit, A::About, A::Setup, A::Column};

Actions operator+(Actions a, const Actions& b)
{
    a.insert(b.begin(), b.end());
    return a;
}

Actions operator-(Actions a, const Actions& b)
{
    for (const A action : b)
        a.erase(action);
    return a;
}

// On with a project in any data mode.
const Actions openProject = alwaysOn + dataModes + Actions{A::ListCoords, A::Save, A::Close, A::Study};

class ActionStates : public ShellTest
{
protected:
    Actions enabled()
    {
        controller().updateActions();
        Actions on;
        for (const ActionRow& row : actionRows())
            if (action(row.action) && action(row.action)->isEnabled())
                on.insert(row.action);
        return on;
    }
    void openAndShow(TX_Modes mode)
    {
        open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
        controller().changeMode(mode);
        heard(mode);
    }
    static std::string names(const Actions& actions)
    {
        std::string text;
        for (const ActionRow& row : actionRows())
            if (actions.contains(row.action))
                text += std::string(row.name) + ' ';
        return text;
    }
};

struct StateRow {
    const char* situation;
    TX_Modes mode;
    std::function<void(TellurixController&)> arrange;
    Actions more; // than with any open project
    Actions less;
};

const StateRow stateRows[] = {
    {"layers, nothing else", ModeLitology, {}, {}, {}},
    {"points can be printed", ModeListCoords, {}, {A::Report}, {}},
    {"elements are computed", ModeIge, {}, {A::Report, A::Calc}, {}},
    {"elements in the view without computing",
        ModeIge,
        [](TellurixController& facade) { facade.setIgeView(1); },
        {A::Report},
        {}},
    {"rows can be deleted here",
        ModeTests,
        [](TellurixController& facade) { facade.setDeleteAccess(ModeTests, true); },
        {A::Delete},
        {}},
    {"rows can be added elsewhere",
        ModeTests,
        [](TellurixController& facade) { facade.setAddAccess(ModeWaters, true); },
        {},
        {}},
    {"probing, no view", ModeStatic, {}, {}, {}},
    {"probing 0", ModeStatic, [](TellurixController& facade) { facade.setProbingView(0); }, {A::Calc}, {}},
    {"probing 2",
        ModeStatic,
        [](TellurixController& facade) { facade.setProbingView(2); },
        {A::Calc, A::Report},
        {}},
    {"probing 4", ModeStatic, [](TellurixController& facade) { facade.setProbingView(4); }, {A::Report}, {}},
    {"probing 1, 0",
        ModeStatic,
        [](TellurixController& facade) {
            facade.setProbingView(1);
            facade.setProbingSubView(0);
        },
        {A::Calc},
        {}},
    {"probing 1, 1",
        ModeStatic,
        [](TellurixController& facade) {
            facade.setProbingView(1);
            facade.setProbingSubView(1);
        },
        {A::Report},
        {}},
    {"subsidence", ModeSubsidence, {}, {A::Report, A::Calc}, {}},
    {"chemistry", ModeChemistry, {}, {A::Report, A::Calc}, {}},
    {"documents", ModeConsolidated, {}, {A::Report, A::Calc}, {}},
    {"columns of elements are sorted", ModeStratigraphicIge, {}, {A::Sort}, {}},
    {"a changed column bars the list of points",
        ModeStratigraphicIge,
        [](TellurixController& facade) { facade.setColumnModified(true); },
        {A::Sort},
        {A::ListCoords}},
    {"laboratory", ModeLaboratory, {}, {}, {}},
    {"laboratory page whose main set is on offer",
        ModeLaboratory,
        [](TellurixController& facade) {
            facade.setLabMode(LabShear);
            facade.setMainSetAccess(LabShear, true);
        },
        {A::MainSet},
        {}},
    {"register of samples",
        ModeLaboratory,
        [](TellurixController& facade) {
            facade.setLabMode(LabShear);
            facade.setLabState(8);
        },
        {A::Report, A::SampleSet, A::Calc, A::Clear},
        {}},
    {"register of samples, granulometry",
        ModeLaboratory,
        [](TellurixController& facade) {
            facade.setLabMode(LabGranulometry);
            facade.setLabState(8);
        },
        {A::Calc, A::Clear},
        {}},
    {"a sample is looked at",
        ModeLaboratory,
        [](TellurixController& facade) {
            facade.setLabMode(LabPhysical);
            facade.setLabState(1);
            facade.setSetAccess(LabPhysical, true);
        },
        {A::Set, A::SampleSet, A::Calc, A::Clear},
        {}},
};

} // namespace

TEST_F(ActionStates, WithoutAProjectAlmostNothing)
{
    EXPECT_EQ(names(enabled()), names(alwaysOn + Actions{A::ListCoords}));
    // The column works without a project; saving and closing are its own then.
    controller().changeMode(ModeStratigraphic);
    EXPECT_EQ(names(enabled()), names(alwaysOn + Actions{A::ListCoords, A::Save, A::Close}));
}

TEST_F(ActionStates, FollowFromModeAndFacade)
{
    for (const StateRow& row : stateRows) {
        openAndShow(row.mode);
        if (row.arrange)
            row.arrange(*shell.controller);
        EXPECT_EQ(names(enabled()), names((openProject + row.more) - row.less)) << row.situation;
        shell.controller->setLabState(0);
        shell.controller->setColumnModified(false);
        shell.controller->setIgeView(3);
        for (const TX_Modes mode : {ModeTests, ModeWaters})
            shell.controller->setDeleteAccess(mode, false);
        shell.controller->setMainSetAccess(LabShear, false);
    }
}

TEST_F(ActionStates, EditingASampleBarsTheOtherModes)
{
    openAndShow(ModeLaboratory);
    Q_EMIT bus(ModeLaboratory)->signalSetAccessAllModes(false);
    EXPECT_TRUE(action(A::Litology)->isEnabled()) << "only stored until the next update";
    EXPECT_EQ(names(enabled()), names(alwaysOn + Actions{A::Save, A::Laboratory, A::Study, A::EndEdit}));
    shell.controller->setLabState(8);
    action(A::SampleSet)->setChecked(true);
    const Actions ownSet = enabled();
    for (const A off : {A::Calc, A::Clear, A::EndEdit})
        EXPECT_FALSE(ownSet.contains(off));
    EXPECT_TRUE(ownSet.contains(A::SampleSet));
}

TEST_F(ActionStates, PropertySetsTakeTurns)
{
    openAndShow(ModeLaboratory);
    shell.controller->setLabMode(LabCompression);
    controller().takeMainPropertySet();
    EXPECT_EQ(heard(ModeLaboratory), QStringList{QStringLiteral("signalSetCommonDefCompProp")});
    EXPECT_TRUE(action(A::Set)->isEnabled());
    EXPECT_FALSE(action(A::MainSet)->isEnabled());
    controller().takePropertySet();
    EXPECT_EQ(heard(ModeLaboratory), QStringList{QStringLiteral("signalChangeCommonDefCompProp")});
    EXPECT_FALSE(action(A::Set)->isEnabled());
    EXPECT_TRUE(action(A::MainSet)->isEnabled());
    // With a main set in the project the special one is offered as the counterpart.
    controller().dbProject()->setCompressionTemplate({{}});
    controller().updateActions();
    EXPECT_FALSE(action(A::Set)->isEnabled());
    shell.controller->setMainSetAccess(LabCompression, false);
    controller().updateActions();
    EXPECT_TRUE(action(A::Set)->isEnabled());
    shell.controller->setLabMode(LabGranulometry);
    controller().updateActions();
    EXPECT_FALSE(action(A::Set)->isEnabled());
    controller().takeMainPropertySet();
    EXPECT_TRUE(heard(ModeLaboratory).isEmpty());
}

TEST_F(ActionStates, HaveTheirTextsIconsAndPlaces)
{
    for (const ActionRow& row : actionRows()) {
        QAction* made = action(row.action);
        const bool optional = row.action == A::Stamps || row.action == A::Synchro;
        ASSERT_EQ(made == nullptr, optional) << row.name;
        if (!made)
            continue;
        EXPECT_EQ(made->parent(), shell.mainWindow.get());
        // Tool buttons count among the widgets too; menus and bars alone matter.
        const auto widgets = made->associatedWidgets();
        const auto places = std::count_if(widgets.begin(), widgets.end(), [](const QWidget* widget) {
            return dynamic_cast<const QMenu*>(widget) || dynamic_cast<const QToolBar*>(widget);
        });
        EXPECT_EQ(places, row.action == A::About ? 2 : std::popcount(row.places & 0xFFU)) << row.name;
    }
    EXPECT_EQ(action(A::Undo)->shortcut(), QKeySequence(QStringLiteral("Ctrl+Z")));
    // Those of the platform; some have none for leaving.
    EXPECT_EQ(action(A::Save)->shortcut(), QKeySequence(QKeySequence::Save));
    EXPECT_EQ(action(A::Exit)->shortcut(), QKeySequence(QKeySequence::Quit));
    EXPECT_EQ(action(A::Undo)->text(), QStringLiteral("Отменить(Ctrl+Z)"));
    EXPECT_TRUE(action(A::SampleSet)->isCheckable());
    EXPECT_EQ(shell.controller->sortAction(), action(A::Sort));
}
