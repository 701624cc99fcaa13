#pragma once

#include "core/base/reference.h"

#include <QMainWindow>

class MainController;

// The main window: an area for the screens, and three events that go to the main controller.
class MainWindow : public QMainWindow
{
public:
    explicit MainWindow(MainController* controller);
    // Closes the screens and takes leave of the controller, which outlives the window.
    ~MainWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    // No key but F1 does anything here, not even in the base class.
    void keyPressEvent(QKeyEvent* event) override;

private:
    MainController* controller_;
};
