#include "app/shell_assembly.h"

#include "app/generic_event_filter.h"
#include "app/module_loading.h"
#include "app/wheel_guard.h"
#include "platform/system_text.h"

#include <QCoreApplication>
#include <QPixmap>

// The first time the window is shown the title and the actions are brought up to date. The event itself never
// reaches the window, neither the first one nor later ones.
static void watchFirstShow(Shell& shell)
{
    auto* filter = new GenericQEventFilter(shell.splash.get(),
        [isFirst = true, controller = shell.mainController.get()](QObject*, QEvent* event) mutable {
            if (event->type() != QEvent::Show)
                return false;
            // Before the step, since that handles events, this kind among them.
            if (std::exchange(isFirst, false))
                controller->showFirst();
            return true;
        });
    shell.mainWindow->installEventFilter(filter);
}

// Every window of the toolkit is made so that drawings of the graphics library can stand in it, and the first
// one waits for the library: longer than for all else before it. The splash holds none.
static void showWithoutGraphicsLibrary(QWidget& window)
{
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets, true);
    window.show();
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets, false);
}

bool assembleShell(Shell& shell)
{
    shell.mainController = makeReference<MainController>();
    MainController& mainController = *shell.mainController;
    shell.controller = makeReference<TellurixController>(shell.settings.get(), mainController.dbProject());
    shell.splash =
        std::make_unique<SplashScreen>(QPixmap(QStringLiteral(":/images/logo.png")), *shell.controller);
    showWithoutGraphicsLibrary(*shell.splash);
    mainController.setSettings(shell.settings.get());
    mainController.setController(shell.controller.get());
    shell.mainWindow = std::make_unique<MainWindow>(&mainController);
    mainController.createUserInterface();
    watchFirstShow(shell);
    new WheelGuard(shell.mainWindow.get());
    shell.splash->repaint();
    QCoreApplication::processEvents();
    if (loadModules(shell.controller.get(), shell.splash.get()) == -1)
        return false;
    // Without the window: the splash would wait a whole second for one that is not shown yet.
    shell.splash->finish(nullptr);
    shell.splash->showMessage(QString(), Qt::AlignHCenter | Qt::AlignBottom, Qt::black);
    QCoreApplication::processEvents();
    shell.mainWindow->showMaximized();
    mainController.createSubWindow(ModeProjects);
    mainController.loadProjects();
    return true;
}

void openFromCommandLine(MainController& controller, const char* argument)
{
    controller.setProjectPath(fromSystemText(argument));
    controller.openProject();
    controller.showOpenProject();
}
