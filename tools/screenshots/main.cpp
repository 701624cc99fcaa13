// A picture of every mode with a project open, of the dialogs, and of a project just begun:
// screenshots PROJECT FOLDER [WIDTHxHEIGHT [STYLE]], a dash for no project. Runs beside the module libraries.

#include "app/about_dialog.h"
#include "app/mdi_child.h"
#include "app/shell_assembly.h"
#include "app/splash_screen.h"
#include "app/tx_application.h"
#include "app/visual_style.h"
#include "dialogs/stamp_dialog.h"
#include "dialogs/study_dialog.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QIcon>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTabWidget>
#include <QTimer>

#include <cstdio>
#include <string_view>

static void settle(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

static void take(QWidget& widget, const QString& folder, const QString& name)
{
    settle(300);
    const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    std::printf("%s%s\n", qPrintable(path), widget.grab().save(path) ? "" : ": cannot be written");
}

// A screen behind each of its tabs; those after the first have their number in the name.
static void takeTabs(QMainWindow& window, const QString& folder, const QString& name)
{
    take(window, folder, name);
    const auto* area = window.findChild<QMdiArea*>();
    auto* tabs = area->currentSubWindow()->findChild<QTabWidget*>();
    for (int tab = 1; tabs && tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        take(window, folder, name + QStringLiteral("_%1").arg(tab + 1));
    }
}

static void takeModes(Shell& shell, const QString& folder)
{
    for (const ModeRow& row : modeRows) {
        if (row.moduleFile.empty() || row.mode == ModeSetup || row.mode == ModeSectionEditor
            || row.mode == ModeProjects)
            continue;
        shell.mainController->changeMode(row.mode);
        const QString file = QString::fromWCharArray(row.moduleFile.data(), int(row.moduleFile.size()));
        takeTabs(*shell.mainWindow,
            folder,
            QStringLiteral("%1_%2")
                .arg(int(row.mode), 2, 10, QLatin1Char('0'))
                .arg(file.section(QLatin1Char('1'), 0, 0)));
    }
}

static void takeDialogs(Shell& shell, const QString& folder)
{
    const std::unique_ptr<QWidget> setup(shell.mainController->createWidget(ModeSetup));
    setup->show();
    take(*setup, folder, QStringLiteral("02_setup"));
    AboutDialog about(*shell.controller, shell.mainWindow.get());
    about.show();
    take(about, folder, QStringLiteral("about"));
    SplashScreen splash(QPixmap(QStringLiteral(":/images/logo.png")), *shell.controller);
    splash.show();
    splash.showMessage(QStringLiteral("Загрузка модулей…"), Qt::AlignHCenter | Qt::AlignBottom, Qt::black);
    take(splash, folder, QStringLiteral("splash"));
    StudyDialog study(shell.mainController->project());
    study.show();
    take(study, folder, QStringLiteral("study"));
    for (const bool ukrainian : {false, true}) {
        StampDialog stamps(ukrainian);
        stamps.show();
        take(stamps, folder, ukrainian ? QStringLiteral("stamps_uk") : QStringLiteral("stamps_ru"));
    }
}

// What a user meets who has only pressed "new project": its question, and the screen behind it.
static void takeNewProject(Shell& shell, const QString& folder)
{
    QTimer::singleShot(1500, shell.mainWindow.get(), [&] {
        if (QWidget* question = QApplication::activeModalWidget()) {
            take(*question, folder, QStringLiteral("01_new_question"));
            question->close();
        }
    });
    shell.mainWindow->findChild<QAction*>(QStringLiteral("actListCoords"))->trigger();
    settle(2500);
    take(*shell.mainWindow, folder, QStringLiteral("01_new"));
}

static QSize sizeOf(const QString& text)
{
    return {text.section(QLatin1Char('x'), 0, 0).toInt(), text.section(QLatin1Char('x'), 1).toInt()};
}

int main(int argc, char** argv)
{
    const QSize size = argc > 3 ? sizeOf(QString::fromLocal8Bit(argv[3])) : QSize(1440, 900);
    if (argc < 3 || argc > 5 || size.isEmpty()) {
        std::fprintf(stderr, "screenshots PROJECT FOLDER [WIDTHxHEIGHT [STYLE]]\n");
        return 2;
    }
    Q_INIT_RESOURCE(tellurix);
    QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
    QIcon::setThemeName(QStringLiteral("tellurix"));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    Shell shell;
    shell.settings = makeReference<Settings>();
    const TXApplication application(argc, argv, shell.settings.get());
    shell.settings->initialise();
    const QString style = argc > 4 ? QString::fromLocal8Bit(argv[4]) : QStringLiteral("Fusion");
    shell.settings->saveVisualStyle(style);
    applyVisualStyle(style);
    const QString folder = QString::fromLocal8Bit(argv[2]);
    QDir().mkpath(folder);
    if (!assembleShell(shell))
        return 1;
    shell.mainWindow->showNormal();
    shell.mainWindow->resize(size);
    take(*shell.mainWindow, folder, QStringLiteral("00_projects"));
    if (std::string_view(argv[1]) == "-") {
        takeNewProject(shell, folder);
    } else {
        openFromCommandLine(*shell.mainController, argv[1]);
        if (!shell.mainController->project()) {
            std::fprintf(stderr, "%s cannot be opened\n", argv[1]);
            shell.closeWindows();
            return 1;
        }
        takeModes(shell, folder);
        takeDialogs(shell, folder);
    }
    shell.closeWindows();
    return 0;
}
