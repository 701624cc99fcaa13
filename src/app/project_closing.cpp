// How a project, a column and the window are closed.

#include "app/main_controller.h"
#include "app/main_window.h"
#include "app/mdi_child.h"
#include "app/message_box.h"
#include "app/show_label.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QMdiArea>
#include <QMessageBox>

int MainController::askToSave(const QString& title, const QString& text)
{
    QMessageBox box(QMessageBox::Warning,
        title,
        text,
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
        mainWindow_);
    box.setDefaultButton(QMessageBox::Cancel);
    return box.exec();
}

void MainController::closeModeWindows()
{
    const auto windows = mdiArea_->subWindowList();
    for (QMdiSubWindow* window : windows) {
        auto* child = dynamic_cast<MdiChild*>(window);
        if (!child || child->mode() == ModeProjects)
            continue;
        try {
            child->close();
        } catch (...) {
            // A screen that fails on its way out must not keep the others open, and none of them may find the
            // project again when the current one is asked to store.
            takeProject({});
            updateActions();
            finishModeLeave();
        }
    }
}

bool MainController::closeProjectPrompt()
{
    if (!project_)
        return true;
    const int answer = askToSave(QStringLiteral("Проект"), QStringLiteral("Сохранить текущий проект?"));
    if (answer != QMessageBox::Yes && answer != QMessageBox::No)
        return false;
    hintLabel_->hide();
    if (answer == QMessageBox::Yes) {
        if (!saveProject())
            return false;
        warnOfLosses();
    }
    dropProject();
    return true;
}

void MainController::dropProject()
{
    closeModeWindows();
    updateActions();
    finishModeLeave();
    takeProject({});
    rowsWereRefused_ = false;
    guard_.release();
    // Also where the user did not want it saved: he threw it away knowingly.
    recovery_.remove();
}

bool MainController::closeColumnPrompt()
{
    if (!controller_->columnModified())
        return true;
    const int answer =
        askToSave(QStringLiteral("Стратиграфическая колонка"), QStringLiteral("Сохранить текущую колонку?"));
    if (answer != QMessageBox::Yes && answer != QMessageBox::No)
        return false;
    hintLabel_->hide();
    if (answer == QMessageBox::Yes)
        tell(ModeStratigraphic, &TXWidget::signalSaveColumn);
    closeModeWindows();
    updateActions();
    finishModeLeave();
    return true;
}

void MainController::closeProject()
{
    closeAllEditors();
    if (project_)
        closeProjectPrompt();
    else
        closeColumnPrompt();
    resetFacade();
}

void MainController::closeWindow(QCloseEvent* event)
{
    if (controller_->labState() == 8) {
        event->ignore();
        showMessageBox(ModeNone,
            L"Необходмо закончить режим редактирования\n<Реестра проб>!",
            mainWindow_,
            QMessageBox::Warning);
    } else if (project_ ? closeProjectPrompt() : closeColumnPrompt()) {
        leaving_ = true;
        mdiArea_->closeAllSubWindows();
        QCoreApplication::exit(0);
    } else {
        event->ignore();
    }
    // Also where the window stays: the screens take up their work again without a current mode.
    resetFacade();
}
