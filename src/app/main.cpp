#include "app/message_box.h"
#include "app/office_files.h"
#include "app/shell_assembly.h"
#include "app/tx_application.h"
#include "app/visual_style.h"
#include "modules/program.h"
#include "platform/files.h"

#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QSurfaceFormat>
#include <QTimer>
#include <QTranslator>

static void initialiseResources()
{
    Q_INIT_RESOURCE(tellurix);
    // One family of icons on every desktop; without it some come from the desktop's own theme.
    QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
    QIcon::setThemeName(QStringLiteral("tellurix"));
    QFont::insertSubstitutions(QStringLiteral("Impact"),
        {QStringLiteral("Liberation Sans Narrow"), QStringLiteral("DejaVu Sans Condensed")});
}

// The toolkit's own words, Yes and No among them, in the language of ours. Shipped beside the program on
// systems that do not have them.
static void loadTranslation()
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/translations");
    const QString name = QStringLiteral("qtbase_ru");
    if (translator->load(name, beside)
        || translator->load(name, QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

// Multisampled surfaces for the drawings of the section.
static void setSurfaceFormat()
{
    QSurfaceFormat format;
    format.setDepthBufferSize(24);
    format.setStencilBufferSize(8);
    format.setSamples(16);
    QSurfaceFormat::setDefaultFormat(format);
}

// What needs the application object: the graphics, the settings' file and the look, in this order.
static void prepare(Settings& settings, const QString& style)
{
    QCoreApplication::setAttribute(Qt::AA_UseDesktopOpenGL, true);
    if (!QCoreApplication::testAttribute(Qt::AA_UseDesktopOpenGL))
        showMessageBox(ModeNone, limitedOpenGlText, nullptr, 2);
    settings.initialise();
    loadTranslation();
    setSurfaceFormat();
    applyVisualStyle(style);
}

// The shell from its assembly to the end of the event loop; the exit code.
static int runShell(Shell& shell, int argc, char** argv)
{
    if (!assembleShell(shell))
        return -1;
    if (argc > 1)
        openFromCommandLine(*shell.mainController, argv[1]);
    // After the command line's project, so that a copy of that very project can be offered first, and when
    // the desktop has put the window in its place, over whose middle the question stands.
    constexpr int untilWindowStands = 200;
    QTimer::singleShot(untilWindowStands, shell.mainWindow.get(), [&shell] {
        shell.mainController->offerRecovery();
        if (!shell.mainController->leaving())
            tellOfficeFiles(shell.mainWindow.get());
    });
    // A window that was closed while the shell came up: leaving an event loop that has not begun yet would
    // have no effect.
    return shell.mainController->leaving() ? 0 : QApplication::exec();
}

int main(int argc, char** argv)
{
    const QString folder = QString::fromStdWString(executableFolder());
    if (folder.isEmpty())
        return -1;
    initialiseResources();
    QCoreApplication::setApplicationName(applicationName);
    QCoreApplication::setOrganizationName(organisationName);
    QCoreApplication::setApplicationVersion(applicationVersion);
    QCoreApplication::setLibraryPaths(
        QCoreApplication::libraryPaths() << folder + QStringLiteral("/Qt/plugins"));

    // Sharp on dense displays: widgets in points, pictures in pixels.
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);

    Shell shell;
    shell.settings = makeReference<Settings>();
    // Taken before the settings are read from disk: every start comes up in the style of the initial value,
    // and the stored one stands in the chooser until the user picks it.
    const QString style = QString::fromStdWString(shell.settings->visualStyleName());
    auto application = std::make_unique<TXApplication>(argc, argv, shell.settings.get());
    prepare(*shell.settings, style);

    int exitCode = -1;
    const std::wstring failure = failureOf([&] { exitCode = runShell(shell, argc, argv); });
    shell.closeWindows();
    if (!failure.empty())
        showCriticalError(failure);
    application.reset();
    shell.controller = {};
    shell.mainController = {};
    shell.settings = {};
    return exitCode;
}
