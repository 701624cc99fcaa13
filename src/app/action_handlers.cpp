// What the actions do beyond changing the mode.

#include "app/about_dialog.h"
#include "app/main_controller.h"
#include "app/main_window.h"
#include "app/mdi_child.h"
#include "app/show_label.h"
#include "core/base/mexception.h"
#include "dialogs/stamp_dialog.h"
#include "dialogs/study_dialog.h"
#include "platform/files.h"
#include "platform/help_viewer.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QShortcut>
#include <QUrl>

#include <memory>

void MainController::saveByUser()
{
    if (!saveProject())
        return;
    life_.warnOfLosses();
    tellUnsavedCells();
}

void MainController::printReport()
{
    tellActive(&TXWidget::signalPrint);
}

// The menu entry is kept for what is to come.
void MainController::exportOgm() { }

void MainController::leave()
{
    QApplication::closeAllWindows();
}

void MainController::showAbout()
{
    AboutDialog(*controller_, mainWindow_).exec();
}

void MainController::undo()
{
    closeAllEditors();
    controller_->undo();
    updateActions();
}

void MainController::redo()
{
    closeAllEditors();
    controller_->redo();
    updateActions();
}

// Of the action and of the project register's signal alike.
void MainController::showListCoords()
{
    if (openFailed())
        return;
    if (!dbProject())
        newProject();
    changeMode(ModeListCoords);
}

void MainController::showColumn()
{
    hintLabel_->show();
    changeMode(dbProject() ? ModeStratigraphicIge : ModeStratigraphic);
}

void MainController::showStudy()
{
    syncMode(controller_->currentMode());
    StudyDialog dialog(dbProject(), mainWindow_);
    addHelpKey(&dialog);
    dialog.exec();
}

void MainController::showStamps()
{
    StampDialog dialog(settings_->reportLanguage() == 1, mainWindow_);
    addHelpKey(&dialog);
    dialog.exec();
}

void MainController::showSetup()
{
    const std::unique_ptr<QWidget> widget(createWidget(ModeSetup));
    auto* dialog = dynamic_cast<QDialog*>(widget.get());
    if (!dialog)
        return;
    addHelpKey(dialog);
    // Before it is shown: a window that stands already does not become modal by exec.
    dialog->setModal(true);
    dialog->show();
    if (!screenOf(ModeProjects))
        throw MException(L"Error find ProjectsWidget!");
    if (dialog->exec() == QDialog::Accepted)
        applySetup();
}

void MainController::applySetup()
{
    tell(ModeProjects, &TXWidget::signalUpdateProjectsPath);
    if (QAction* synchro = actions_[ShellAction::Synchro]; synchro && controller_->sectionEditorAvailable())
        synchro->setEnabled(settings_->isSectionEditorLocal());
    for (const TX_Modes mode : {ModeLaboratory, ModeConsolidated, ModeChemistry, ModeSubsidence})
        tell(mode, &TXWidget::signalChangeLanguage);
    setAutoSave();
    for (const TX_Modes mode : {ModeLaboratory, ModeIge, ModeIgk, ModeStatic, ModeSection})
        tell(mode, &TXWidget::signalUpdateSetup);
    updateActions();
    settings_->save();
}

void MainController::deleteRecords()
{
    tellActive(&TXWidget::signalDelSelectedRecord);
    updateActions();
}

void MainController::addRecord()
{
    tellActive(&TXWidget::signalAddSelectedRecord);
    updateActions();
}

namespace
{

// The signals of the two property sets, by page.
struct PropertySetRow {
    TX_Lab_Modes page;
    void (TXWidget::*takeMain)();
    void (TXWidget::*change)();
};

constexpr PropertySetRow propertySetRows[] = {
    {LabPhysical, &TXWidget::signalSetCommonDefPhysProp, &TXWidget::signalChangeCommonDefPhysProp},
    {LabCompression, &TXWidget::signalSetCommonDefCompProp, &TXWidget::signalChangeCommonDefCompProp},
    {LabShear, &TXWidget::signalSetCommonDefShiftProp, &TXWidget::signalChangeCommonDefShiftProp},
    {LabSwell, &TXWidget::signalSetCommonDefSwellProp, &TXWidget::signalChangeCommonDefSwellProp},
};

} // namespace

void MainController::emitPropertySet(bool isMain)
{
    if (!findSubWindow(ModeLaboratory))
        return;
    const TX_Lab_Modes page = controller_->labMode();
    for (const PropertySetRow& row : propertySetRows)
        if (row.page == page)
            tell(ModeLaboratory, isMain ? row.takeMain : row.change);
    controller_->setMainSetAccess(page, !isMain);
    controller_->setSetAccess(page, isMain);
    updateActions();
}

void MainController::takeMainPropertySet()
{
    emitPropertySet(true);
}

void MainController::takePropertySet()
{
    emitPropertySet(false);
}

void MainController::switchSampleSet()
{
    if (TXWidget* screen = screenOf(ModeLaboratory))
        Q_EMIT screen->signalSetPropertiesTest(actions_[ShellAction::SampleSet]->isChecked());
    updateActions();
}

void MainController::calculate()
{
    tellActive(&TXWidget::signalCalc);
    updateActions();
}

void MainController::clearData()
{
    tellActive(&TXWidget::signalClearTests);
    updateActions();
}

void MainController::sortData()
{
    tell(ModeStratigraphicIge, &TXWidget::signalSort);
}

void MainController::endEditing()
{
    tell(ModeLaboratory, &TXWidget::signalEndEditLaboratory);
}

void MainController::addHelpKey(QWidget* dialog)
{
    auto* key = new QShortcut(QKeySequence(Qt::Key_F1), dialog);
    QObject::connect(key, &QShortcut::activated, dialog, [this] { openHelp(); });
}

// The platform's own viewer where there is one, else the same help as pages.
void MainController::openHelp()
{
    const QString folder = QCoreApplication::applicationDirPath();
    if (showCompiledHelp((folder + QStringLiteral("\\Tellurix.chm")).toStdWString()))
        return;
    const QString page = folder + QStringLiteral("/help/index.html");
    if (!fileExists(page.toStdWString()) || !QDesktopServices::openUrl(QUrl::fromLocalFile(page)))
        showStatus(QStringLiteral("Справка не открывается. Проверьте наличие файла ") + page, 0);
}
