// What the screens may say, and what the shell does about it. Direct connections all: a screen goes on when
// the shell is done.

#include "app/main_controller.h"
#include "app/main_window.h"
#include "app/show_label.h"

#include <QStatusBar>

#include <algorithm>
#include <iterator>

// The modes whose screens say whether rows can be added and deleted, and write into the status bar.
static constexpr TX_Modes recordModes[] = {ModeListCoords,
    ModeLitology,
    ModeTests,
    ModeWaters,
    ModeConsistents,
    ModeStatic,
    ModeSection,
    ModeIgk,
    ModeStratigraphic};

void MainController::connectScreen(TX_Modes mode, TXWidget* screen)
{
    QObject::connect(screen, &TXWidget::signalUpdateMenus, mainWindow_, [this] { updateActions(); });
    QObject::connect(screen, &TXWidget::signalUpdateShowLabel, mainWindow_, [this](bool shown) {
        hintLabel_->setVisible(shown);
    });
    if (std::find(std::begin(recordModes), std::end(recordModes), mode) != std::end(recordModes))
        connectRecordSignals(screen);
    if (mode == ModeLaboratory)
        connectLaboratory(screen);
}

void MainController::connectRecordSignals(TXWidget* screen)
{
    QObject::connect(
        screen, &TXWidget::signalDeleteRecord, mainWindow_, [this](TX_Modes mode, bool possible) {
            controller_->setDeleteAccess(mode, possible);
            updateActions();
        });
    QObject::connect(screen, &TXWidget::signalAddRecord, mainWindow_, [this](TX_Modes mode, bool possible) {
        controller_->setAddAccess(mode, possible);
        updateActions();
    });
    QObject::connect(
        screen, &TXWidget::signalShowStatusMessage, mainWindow_, [this](const std::wstring& text) {
            showStatus(QString::fromStdWString(text), 0);
        });
}

void MainController::connectLaboratory(TXWidget* screen)
{
    QObject::connect(screen, &TXWidget::signalSetDefProp, mainWindow_, [this](TX_Lab_Modes page) {
        controller_->setMainSetAccess(page, true);
    });
    QObject::connect(screen, &TXWidget::signalDropDefProp, mainWindow_, [this](TX_Lab_Modes page) {
        controller_->setMainSetAccess(page, false);
    });
    QObject::connect(
        screen, &TXWidget::signalDeleteRecord, mainWindow_, [this](TX_Modes mode, bool possible) {
            controller_->setDeleteAccess(mode, possible);
            updateActions();
        });
    QObject::connect(screen, &TXWidget::signalChangeLaboratoryTitle, mainWindow_, [this](TX_Lab_Modes page) {
        updateLabTitle(page);
    });
    // Takes effect at the next update of the actions, which the laboratory asks for itself.
    QObject::connect(screen, &TXWidget::signalSetAccessAllModes, mainWindow_, [this](bool accessible) {
        modesAccessible_ = accessible;
    });
    QObject::connect(
        screen, &TXWidget::signalChangeTitle, mainWindow_, [this](TX_Modes mode) { updateTitle(mode); });
}
