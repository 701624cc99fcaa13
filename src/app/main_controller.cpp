#include "app/main_controller.h"

#include "app/main_window.h"
#include "app/show_label.h"
#include "app/mdi_child.h"
#include "app/message_box.h"
#include "app/recovery_clock.h"
#include "app/show_label.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <climits>

static constexpr int millisecondsPerMinute = 60000;

MainController::MainController() = default;

MainController::~MainController() = default;

QMainWindow* MainController::mainWindow()
{
    return mainWindow_;
}

void MainController::setMainWindow(MainWindow* window)
{
    mainWindow_ = window;
    autoSaveTimer_ = new QTimer(window);
    autoSaveTimer_->setObjectName(QStringLiteral("autoSave"));
    QObject::connect(autoSaveTimer_, &QTimer::timeout, window, [this] { life_.saveByTimer(); });
    setAutoSave();
    auto* signOfLife = new QTimer(window);
    QObject::connect(signOfLife, &QTimer::timeout, window, [this] { giveSignOfLife(); });
    signOfLife->start(millisecondsPerMinute);
    new RecoveryClock([this] { return keepRecoveryCopy(); }, window);
}

void MainController::forgetMainWindow()
{
    // The screens go while actions and status bar still stand, since they speak to both when they go.
    qDeleteAll(mdiArea_->subWindowList());
    for (const ActionRow& row : actionRows())
        actions_[row.action] = nullptr;
    handActionsToFacade();
    mdiArea_ = nullptr;
    mainWindow_ = nullptr;
    modeToolBar_ = nullptr;
    autoSaveTimer_ = nullptr;
    hintLabel_ = nullptr;
    progressBar_ = nullptr;
}

void MainController::setAutoSave()
{
    autoSaveTimer_->stop();
    if (!settings_->isSetTimer())
        return;
    // A timer of nothing would save without a pause, one of 36000 minutes does not fit into an int.
    const std::int64_t minutes = std::max<std::int64_t>(settings_->timer(), 1);
    const std::int64_t milliseconds = minutes * millisecondsPerMinute;
    autoSaveTimer_->start(static_cast<int>(std::min<std::int64_t>(milliseconds, INT_MAX)));
}

void MainController::showFirst()
{
    updateTitle(controller_->currentMode());
    QCoreApplication::processEvents();
    updateActions();
}

std::vector<QAction*> MainController::contextMenuActions() const
{
    using A = ShellAction;
    return {actions_[A::Stamps], actions_[A::Column], actions_[A::ListCoords], actions_[A::Exit]};
}

void MainController::pressKey(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F1)
        openHelp();
}

// A text that has to be read is not cut by the hint beside it; the next short one brings the hint back.
void MainController::makeRoomForStatus(const QString& text)
{
    if (!mainWindow_ || !hintLabel_)
        return;
    const QStatusBar* bar = mainWindow_->statusBar();
    const bool fits = bar->fontMetrics().horizontalAdvance(text) < bar->width() - hintLabel_->width() - 150;
    if (!fits && hintLabel_->isVisible()) {
        hintLabel_->hide();
        hintMadeRoom_ = true;
    } else if (fits && std::exchange(hintMadeRoom_, false)) {
        hintLabel_->show();
    }
}

void MainController::showStatus(const QString& text, int milliseconds)
{
    makeRoomForStatus(text);
    if (mainWindow_)
        mainWindow_->statusBar()->showMessage(text, milliseconds);
}

void MainController::hideHint()
{
    hintLabel_->hide();
}

void MainController::closeModeWindows(const std::function<void()>& afterFailure)
{
    const auto windows = mdiArea_->subWindowList();
    for (QMdiSubWindow* window : windows) {
        auto* child = dynamic_cast<MdiChild*>(window);
        if (!child || child->mode() == ModeProjects)
            continue;
        try {
            child->close();
        } catch (...) {
            // A screen that fails on its way out must not keep the others open.
            afterFailure();
        }
    }
}

void MainController::closeProject()
{
    closeAllEditors();
    if (life_.project())
        life_.closePrompt();
    else
        life_.closeColumnPrompt();
    life_.resetFacade();
}

void MainController::closeWindow(QCloseEvent* event)
{
    if (controller_->labState() == 8) {
        event->ignore();
        showMessageBox(ModeNone,
            L"Необходмо закончить режим редактирования\n<Реестра проб>!",
            mainWindow_,
            QMessageBox::Warning);
    } else if (life_.project() ? life_.closePrompt() : life_.closeColumnPrompt()) {
        leaving_ = true;
        mdiArea_->closeAllSubWindows();
        QCoreApplication::exit(0);
    } else {
        event->ignore();
    }
    // Also where the window stays: the screens take up their work again without a current mode.
    life_.resetFacade();
}
