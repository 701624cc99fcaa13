#include "laboratory/laboratory_screen.h"

#include "dictionaries/modes.h"
#include "laboratory/register_page.h"
#include "laboratory/sample_cells.h"
#include "laboratory/set_dialog.h"
#include "laboratory/test_page.h"

#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace
{

struct PageRow {
    LabTest test;
    const char* title;
};

constexpr PageRow pageRows[] = {
    {LabTest::Physical, "Физические свойства"},
    {LabTest::Grading, "Гранулометрия"},
    {LabTest::Compression, "Компрессия"},
    {LabTest::Shear, "Сдвиг"},
    {LabTest::Swelling, "Набухание"},
    {LabTest::Shrinkage, "Усадка"},
};

} // namespace

LaboratoryScreen::LaboratoryScreen(TX_Modes mode, ITellurixController* controller)
    : PagedScreen(mode, controller, QStringLiteral("laboratory"))
    , store_(*this)
{
    addPage(new RegisterPage(*this, store_), QStringLiteral("Реестр проб"));
    for (const PageRow& row : pageRows) {
        auto* page = new TestPage(*this, store_, row.test);
        tests_.push_back(page);
        addPage(page, QString::fromUtf8(row.title));
        connect(page, &TestPage::editingChanged, this, [this, page](bool isEditing) {
            editingChanged(page, isEditing);
        });
        connect(page, &TestPage::setWanted, this, [this, page] { chooseSet(page->test()); });
    }
    start();
    connect(findChild<QTabWidget*>(QStringLiteral("pages")), &QTabWidget::currentChanged, this, [this] {
        tellSets();
    });
    connectLaboratory();
}

void LaboratoryScreen::connectLaboratory()
{
    connect(this, &TXWidget::signalEndEditLaboratory, this, [this] {
        attempt([this] {
            for (TestPage* page : tests_)
                page->endEditing();
        });
    });
    connect(this, &TXWidget::signalSetPropertiesTest, this, [this](bool all) {
        attempt([this, all] {
            if (TestPage* page = testInFront())
                page->showAllRows(all);
        });
    });
    struct SetRow {
        void (TXWidget::*takeMain)();
        void (TXWidget::*choose)();
        LabTest test;
    };
    static constexpr SetRow rows[] = {
        {&TXWidget::signalSetCommonDefPhysProp, &TXWidget::signalChangeCommonDefPhysProp, LabTest::Physical},
        {&TXWidget::signalSetCommonDefCompProp,
            &TXWidget::signalChangeCommonDefCompProp,
            LabTest::Compression},
        {&TXWidget::signalSetCommonDefShiftProp, &TXWidget::signalChangeCommonDefShiftProp, LabTest::Shear},
        {&TXWidget::signalSetCommonDefSwellProp,
            &TXWidget::signalChangeCommonDefSwellProp,
            LabTest::Swelling},
    };
    for (const SetRow& row : rows) {
        connect(this, row.takeMain, this, [this, test = row.test] {
            attempt([this, test] { takeMainSet(test); });
        });
        connect(this, row.choose, this, [this, test = row.test] {
            attempt([this, test] {
                main_.erase(test);
                chooseSet(test);
            });
        });
    }
}

TestPage* LaboratoryScreen::testInFront() const
{
    return dynamic_cast<TestPage*>(page());
}

void LaboratoryScreen::becomeCurrent()
{
    PagedScreen::becomeCurrent();
    tellSets();
    TestPage* page = testInFront();
    if (page && page->isEditing())
        editingChanged(page, true);
}

// While a sample is being edited no other mode and no other page may be reached.
void LaboratoryScreen::editingChanged(TestPage* page, bool isEditing)
{
    if (auto* tabs = findChild<QTabWidget*>(QStringLiteral("pages")))
        for (int i = 0; i < tabs->count(); ++i)
            tabs->setTabEnabled(i, !isEditing || tabs->widget(i) == page);
    Q_EMIT signalSetAccessAllModes(!isEditing);
    if (isEditing)
        Q_EMIT signalChangeLaboratoryTitle(controller()->labMode());
    else
        Q_EMIT signalChangeTitle(mode());
    Q_EMIT signalUpdateMenus();
}

void LaboratoryScreen::chooseSet(LabTest test)
{
    IDBProject* open = project();
    if (!open)
        return;
    SetDialog dialog(*open, test, this);
    if (dialog.exec() == QDialog::Accepted && dialog.hasChanged())
        change<SetState>(putSetState, setStateOf(*open), dialog.chosen());
}

void LaboratoryScreen::takeMainSet(LabTest test)
{
    IDBProject* open = project();
    if (!open)
        return;
    main_.insert(test);
    if (!ownSet(*open, test).empty())
        change<SetState>(putSetState, setStateOf(*open), withSet(setStateOf(*open), test, {}));
    say(QStringLiteral("Выбран основной набор; «Набор свойств» задает набор проекта."));
}

// The shell offers the project's own set after the main one has been taken, so the main one is offered until
// then.
void LaboratoryScreen::tellSets()
{
    const TestPage* front = testInFront();
    if (!front || !project() || controller()->currentMode() != mode())
        return;
    if (main_.contains(front->test()))
        Q_EMIT signalDropDefProp(labModeOf(front->test()));
    else
        Q_EMIT signalSetDefProp(labModeOf(front->test()));
    Q_EMIT signalUpdateMenus();
}

void LaboratoryScreen::forgetProject()
{
    PagedScreen::forgetProject();
    main_.clear();
}

void LaboratoryScreen::showEvent(QShowEvent* event)
{
    store_.setInSight(true);
    PagedScreen::showEvent(event);
}

void LaboratoryScreen::hideEvent(QHideEvent* event)
{
    store_.setInSight(false);
    PagedScreen::hideEvent(event);
}
