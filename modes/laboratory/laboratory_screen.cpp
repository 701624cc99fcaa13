#include "laboratory/laboratory_screen.h"

#include "dictionaries/modes.h"
#include "dictionaries/properties.h"
#include "laboratory/register_page.h"
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
{
    addPage(new RegisterPage(*this), QStringLiteral("Реестр проб"));
    for (const PageRow& row : pageRows) {
        auto* page = new TestPage(*this, row.test);
        tests_.push_back(page);
        addPage(page, QString::fromUtf8(row.title));
        connect(page, &TestPage::editingChanged, this, [this, page](bool isEditing) {
            editingChanged(page, isEditing);
        });
    }
    start();
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
    const std::pair<void (TXWidget::*)(), LabTest> choices[] = {
        {&TXWidget::signalChangeCommonDefPhysProp, LabTest::Physical},
        {&TXWidget::signalChangeCommonDefCompProp, LabTest::Compression},
        {&TXWidget::signalChangeCommonDefShiftProp, LabTest::Shear},
        {&TXWidget::signalChangeCommonDefSwellProp, LabTest::Swelling},
    };
    for (const auto& [signal, test] : choices)
        connect(this, signal, this, [this, test = test] { attempt([this, test] { chooseSet(test); }); });
}

TestPage* LaboratoryScreen::testInFront() const
{
    return dynamic_cast<TestPage*>(page());
}

void LaboratoryScreen::becomeCurrent()
{
    PagedScreen::becomeCurrent();
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
    if (dialog.exec() != QDialog::Accepted)
        return;
    change<TemplateState>(putTemplate, templateOf(*open, test), dialog.chosen());
}
