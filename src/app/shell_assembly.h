#pragma once

#include "app/main_controller.h"
#include "app/main_window.h"
#include "app/splash_screen.h"
#include "core/base/reference.h"

#include <memory>
#include <string>

// The shell's objects, in the order in which they come and, from the last to the first, go. The reference
// counted ones outlive the application object.
struct Shell {
    Reference<Settings> settings;
    Reference<MainController> mainController;
    Reference<TellurixController> controller;
    std::unique_ptr<SplashScreen> splash;
    std::unique_ptr<MainWindow> mainWindow;

    // Takes window and splash down, which must be before the application object goes.
    void closeWindows()
    {
        mainWindow.reset();
        splash.reset();
    }
};

// Ties the shell together over the settings and shows the main window with the register of projects. False
// where the modules do not load, which the user has been told. Throws what the pattern libraries throw.
bool assembleShell(Shell& shell);

// Opens the project of the command line, given as the system handed it over.
void openFromCommandLine(MainController& controller, const char* argument);
