// Which mode is current, and how the shell gets from one to the other.

#include "app/main_controller.h"
#include "app/main_window.h"
#include "app/mdi_child.h"
#include "app/message_box.h"
#include "app/show_label.h"
#include "app/splash_screen.h"
#include "core/base/mexception.h"
#include "ground/ground_controller.h"

#include <QCoreApplication>
#include <QMdiArea>
#include <QSplashScreen>

#include <algorithm>
#include <iterator>

MdiChild* MainController::findSubWindow(TX_Modes mode) const
{
    if (!mdiArea_)
        return nullptr;
    const auto windows = mdiArea_->subWindowList(QMdiArea::CreationOrder);
    for (QMdiSubWindow* window : windows)
        if (auto* child = dynamic_cast<MdiChild*>(window); child && child->mode() == mode)
            return child;
    return nullptr;
}

TXWidget* MainController::screenOf(TX_Modes mode) const
{
    const MdiChild* child = findSubWindow(mode);
    return child ? dynamic_cast<TXWidget*>(child->widget()) : nullptr;
}

TXWidget* MainController::activeScreen() const
{
    const QMdiSubWindow* window = mdiArea_ ? mdiArea_->activeSubWindow() : nullptr;
    return window ? dynamic_cast<TXWidget*>(window->widget()) : nullptr;
}

void MainController::tell(TX_Modes mode, void (TXWidget::*signal)())
{
    if (TXWidget* screen = screenOf(mode))
        Q_EMIT(screen->*signal)();
}

void MainController::tellActive(void (TXWidget::*signal)())
{
    if (TXWidget* screen = activeScreen())
        Q_EMIT(screen->*signal)();
}

void MainController::closeAllEditors()
{
    if (!mdiArea_)
        return;
    const auto windows = mdiArea_->subWindowList();
    for (const QMdiSubWindow* window : windows)
        if (auto* screen = dynamic_cast<TXWidget*>(window->widget()))
            Q_EMIT screen->signalCloseAllEditCell();
}

MdiChild* MainController::createSubWindow(TX_Modes mode)
{
    QWidget* widget = createWidget(mode);
    if (!widget)
        return nullptr;
    auto* child = new MdiChild(mdiArea_, mode, widget);
    mdiArea_->addSubWindow(child);
    return child;
}

// The first look at the soundings classifies the soil of every element, which takes its time.
void MainController::createModeWindow(TX_Modes mode)
{
    if (mode == ModeStatic && dbProject() && dbProject()->getSoundingFlags().empty()) {
        QSplashScreen splash(QPixmap(QStringLiteral(":/images/static.png")));
        splash.show();
        splash.showMessage(QString::fromWCharArray(soilTypeWaitText), Qt::AlignCenter, Qt::black);
        QCoreApplication::processEvents();
        waitUntilPainted(splash);
        createSubWindow(mode);
        splash.close();
    } else {
        createSubWindow(mode);
    }
    if (TXWidget* screen = screenOf(mode)) {
        connectScreen(mode, screen);
        if (mode == ModeProjects)
            loadProjects();
    }
}

bool MainController::activateMode(TX_Modes mode)
{
    closeAllEditors();
    const bool existed = findSubWindow(mode) != nullptr;
    if (!existed)
        createModeWindow(mode);
    updateTitle(mode);
    QCoreApplication::processEvents();
    if (MdiChild* child = findSubWindow(mode))
        mdiArea_->setActiveSubWindow(child);
    controller_->setCurrentMode(mode);
    return existed;
}

bool MainController::syncMode(TX_Modes mode)
{
    const MdiChild* child = findSubWindow(mode);
    if (!child || mode == ModeProjects || mode == ModeIgk)
        return true;
    TXWidget* screen = dynamic_cast<TXWidget*>(child->widget());
    return screen && Q_EMIT screen->signalUpdateDB();
}

namespace
{

enum class Hint { show, hide, hideUnlessFromLaboratory };
enum class Refresh { ifItStood, always };

// What a change to a mode does beside activating it. Rows beyond those listed share the last one.
struct SwitchRow {
    TX_Modes mode;
    Hint hint;
    Refresh refresh;
    bool resetsLabPage;
};

// clang-format off
constexpr SwitchRow switchRows[] = {
    {ModeLaboratory,       Hint::hide, Refresh::ifItStood, false},
    {ModeStratigraphic,    Hint::show, Refresh::ifItStood, true},
    {ModeStratigraphicIge, Hint::hide, Refresh::ifItStood, true},
    {ModeIge,              Hint::hide, Refresh::always,    true},
    {ModeSection,          Hint::hide, Refresh::always,    true},
    {ModeIgk,              Hint::hide, Refresh::always,    true},
    {ModeSubsidence,       Hint::hide, Refresh::always,    true},
    {ModeChemistry,        Hint::hide, Refresh::always,    true},
    {ModeConsolidated,     Hint::hide, Refresh::always,    true},
    {ModeStatic,           Hint::show, Refresh::always,    true},
    {ModeListCoords,       Hint::hideUnlessFromLaboratory, Refresh::ifItStood, true},
    {ModeNone,             Hint::show, Refresh::ifItStood, true},
};
// clang-format on

const SwitchRow& switchRowOf(TX_Modes mode)
{
    const auto found = std::find_if(
        std::begin(switchRows), std::end(switchRows), [=](const SwitchRow& row) { return row.mode == mode; });
    return found == std::end(switchRows) ? *std::prev(found) : *found;
}

bool showsHint(Hint hint, TX_Modes from)
{
    if (hint == Hint::hideUnlessFromLaboratory)
        return from == ModeLaboratory || from == ModeIge;
    return hint == Hint::show;
}

} // namespace

void MainController::refreshMode(TX_Modes mode)
{
    tell(mode, &TXWidget::signalUpdateComplexPoints);
    tell(mode, &TXWidget::signalUpdateInfo);
}

void MainController::changeMode(TX_Modes mode)
{
    const TX_Modes current = controller_->currentMode();
    if (current != ModeIge && current != ModeIgk && current != ModeConsolidated)
        syncMode(current);

    const SwitchRow& row = switchRowOf(mode);
    if (hintLabel_)
        hintLabel_->setVisible(showsHint(row.hint, current));
    hintMadeRoom_ = false;
    const bool existed = activateMode(mode);
    if (existed || row.refresh == Refresh::always) {
        if (row.resetsLabPage)
            controller_->setLabMode(LabNone);
        refreshMode(mode);
    }
    updateActions();
    const auto* active = mdiArea_ ? dynamic_cast<MdiChild*>(mdiArea_->activeSubWindow()) : nullptr;
    // While the window is minimised the screen of before is still the active one; the new one is told when it
    // comes on view.
    if (active && (mdiArea_->isVisible() || active->mode() == mode))
        tellActive(&TXWidget::signalUpdateMode);
}

// A window that is minimised activates no screen: what was asked for meanwhile is made up for.
void MainController::comeBack()
{
    MdiChild* child = controller_ ? findSubWindow(controller_->currentMode()) : nullptr;
    if (!child || mdiArea_->activeSubWindow() == child)
        return;
    mdiArea_->setActiveSubWindow(child);
    tellActive(&TXWidget::signalUpdateMode);
}

void MainController::finishModeLeave()
{
    const TX_Modes mode = controller_->currentMode();
    if (!syncMode(mode)) {
        showMessageBox(ModeNone,
            L"Данные для режима " + std::wstring(modeTitles.at(mode))
                + L" не могут быть синхронизированны с базой проекта!\n"
                  L"Возможно есть пустые строки в текущих данных.",
            mainWindow_,
            2);
        updateActions();
        return;
    }
    controller_->setLabMode(LabNone);
    activateMode(ModeProjects);
    updateActions();
}

void MainController::loadProjects()
{
    TXWidget* screen = screenOf(ModeProjects);
    if (!screen)
        throw MException(L"Internal Error...");
    Q_EMIT screen->signalLoadProjects();
    QObject::connect(screen, &TXWidget::signalShowOpenProject, mainWindow_, [this] { showListCoords(); });
}

void MainController::showOpenProject()
{
    TXWidget* screen = screenOf(ModeProjects);
    if (!screen)
        throw MException(L"Internal Error...");
    Q_EMIT screen->signalShowOpenProject();
}
