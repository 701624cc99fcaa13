#include "app/main_window.h"

#include "app/main_controller.h"
#include "app/mode_area.h"

#include <QContextMenuEvent>
#include <QMdiSubWindow>
#include <QMenu>

MainWindow::MainWindow(MainController* controller)
    : controller_(controller)
{
    auto* area = new ModeArea([controller] { controller->comeBack(); }, this);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Screens are maximised from the start; without this each change of mode would resize both four times.
    area->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    area->showMaximized();
    area->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setCentralWidget(area);
    controller_->setMdiArea(area);
    controller_->setMainWindow(this);
    setToolButtonStyle(Qt::ToolButtonFollowStyle);
}

MainWindow::~MainWindow()
{
    controller_->forgetMainWindow();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    controller_->closeWindow(event);
}

void MainWindow::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu;
    bool first = true;
    for (QAction* action : controller_->contextMenuActions()) {
        if (!action)
            continue;
        if (!std::exchange(first, false))
            menu.addSeparator();
        menu.addAction(action);
    }
    menu.exec(event->globalPos());
}

void MainWindow::keyPressEvent(QKeyEvent* event)
{
    controller_->pressKey(event);
}
