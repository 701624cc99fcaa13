#include "app/message_box.h"
#include "app/module_loading.h"
#include "core/facade/mode_libraries.h"
#include "shell/shell_test.h"

#include <QDir>
#include <QSplashScreen>
#include <QStatusBar>

namespace
{

// Puts a library of the folder in another one's place for the time of a test.
class InPlaceOf
{
public:
    // An empty stand-in leaves the place empty.
    InPlaceOf(const QString& library, const QString& standIn)
        : path_(inFolder(library))
    {
        QFile::rename(path_, path_ + QStringLiteral(".away"));
        if (!standIn.isEmpty())
            QFile::copy(inFolder(standIn), path_);
    }
    InPlaceOf(const InPlaceOf&) = delete;
    InPlaceOf& operator=(const InPlaceOf&) = delete;
    ~InPlaceOf()
    {
        QFile::remove(path_);
        QFile::rename(path_ + QStringLiteral(".away"), path_);
    }

private:
    static QString inFolder(const QString& name)
    {
        return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
    }

    QString path_;
};

class MessageSplash : public QSplashScreen
{
public:
    MessageSplash()
    {
        connect(
            this, &QSplashScreen::messageChanged, this, [this](const QString& text) { texts.append(text); });
    }
    QStringList texts;
};

class ModuleLoading : public testing::Test
{
protected:
    Reference<Settings> settings = makeReference<Settings>();
    Reference<TellurixController> facade = makeReference<TellurixController>(settings.get(), nullptr);
    MessageSplash splash;
    MessageAnswers answers;
};

// A library that has been loaded stays: each of these tests has a process of its own.
class OddModules : public ShellTest
{
protected:
    void SetUp() override { }
};

constexpr const wchar_t* closing = L"Critical error. Application will be closed!";

} // namespace

TEST(ModeLibraries, AreEighteenInLoadOrder)
{
    QStringList names;
    for (const auto& [name, mode] : modeLibraries())
        names += QString(name).remove(QStringLiteral("19.dll"));
    EXPECT_EQ(names.join(QLatin1Char(' ')),
        QStringLiteral(
            "chemistry consistents consolidated ige igk laboratory listCoords litology projects section "
            "sectionEditor setup static stratigraphic stratigraphicIge subsidence tests waters"));
}

TEST_F(ModuleLoading, CountsToAHundredAlsoWithoutTheSectionEditor)
{
    EXPECT_EQ(loadModules(facade.get(), &splash), 1);
    ASSERT_EQ(splash.texts.size(), 18);
    EXPECT_EQ(splash.texts.mid(0, 4).join(QLatin1Char('|')),
        QStringLiteral(
            "Загрузка модулей: 6%|Загрузка модулей: 12%|Загрузка модулей: 17%|Загрузка модулей: 23%"));
    EXPECT_EQ(splash.texts.last(), QStringLiteral("Загрузка модулей: 100%"));
    EXPECT_EQ(facade->libraryOf(ModeSectionEditor), nullptr);
    EXPECT_NE(facade->libraryOf(ModeWaters), nullptr);
    EXPECT_TRUE(answers.boxes().empty());
}

TEST_F(ModuleLoading, StopsAtTheFirstMissingLibrary)
{
    const InPlaceOf nothing(QStringLiteral("waters19.dll"), {});
    EXPECT_EQ(loadModules(facade.get(), &splash), -1);
    EXPECT_EQ(answers.boxes(),
        std::vector<std::wstring>{
            L"Tellurix: Invalid load libray: waters19.dll\r\n" + std::wstring(closing)});
    EXPECT_NE(facade->libraryOf(ModeTests), nullptr) << "what was loaded stays";
}

TEST_F(OddModules, FileThatIsNoLibraryIsAsGoodAsMissing)
{
    const auto settings = makeReference<Settings>();
    const auto facade = makeReference<TellurixController>(settings.get(), nullptr);
    QSplashScreen splash;
    const MessageAnswers answers;
    const InPlaceOf data(QStringLiteral("chemistry19.dll"), QStringLiteral("hatch/gl/hatch.dat"));
    EXPECT_EQ(loadModules(facade.get(), &splash), -1);
    ASSERT_EQ(answers.boxes().size(), 1U);
    EXPECT_EQ(
        answers.boxes()[0], L"Tellurix: Invalid load libray: chemistry19.dll\r\n" + std::wstring(closing));
}

TEST_F(OddModules, LibraryWithoutSymbolLeavesThePreviousScreenOnTop)
{
    const InPlaceOf odd(QStringLiteral("litology19.dll"), QStringLiteral("no_symbol.dll"));
    start();
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeTests);
    controller().changeMode(ModeLitology);
    EXPECT_EQ(controller().findSubWindow(ModeLitology), nullptr);
    EXPECT_EQ(shell.controller->currentMode(), ModeLitology);
    EXPECT_EQ(
        shell.mainWindow->windowTitle(), QStringLiteral("Tellurix 2019 - Инженерная геология - [Литология]"));
}

TEST_F(OddModules, ScreenThatDoesNotComeLeavesTheShellAtWork)
{
    const InPlaceOf odd(QStringLiteral("litology19.dll"), QStringLiteral("throwing.dll"));
    start();
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeTests);
    EXPECT_THROW(controller().changeMode(ModeLitology), std::runtime_error);
    controller().changeMode(ModeWaters);
    EXPECT_NE(screen(ModeWaters), nullptr);
}

TEST_F(OddModules, SectionEditorComesWithItsActionAndItsStatusLine)
{
    const InPlaceOf editor(QStringLiteral("sectionEditor19.dll"), QStringLiteral("editor.dll"));
    start();
    EXPECT_TRUE(shell.controller->sectionEditorAvailable());
    ASSERT_NE(action(ShellAction::Synchro), nullptr);
    shell.controller->setCurrentMode(ModeSection);
    const std::unique_ptr<QWidget> widget(controller().createWidget(ModeSectionEditor));
    EXPECT_EQ(widget->property("given").toString(), QStringLiteral("mode 11, facade in 11, main"));
    Q_EMIT dynamic_cast<TXWidget*>(widget.get())->signalShowStatusMessage(L"контур замкнут");
    EXPECT_EQ(shell.mainWindow->statusBar()->currentMessage(), QStringLiteral("контур замкнут"));
}

TEST(PatternLibraries, MissingOneEndsTheStart)
{
    struct Row {
        const QString file;
        const wchar_t* message;
    };
    const Row rows[] = {
        {hatchLibraryName, L"Нет файла штриховок.\nПроверьте правильность установки Tellurix!"},
        {igkPresetLibraryName, L"Нет файла установок ИГК.\nПроверьте правильность установки Tellurix!"}};
    for (const Row& row : rows) {
        const InPlaceOf nothing(row.file, {});
        Shell shell;
        shell.settings = makeReference<Settings>();
        EXPECT_EQ(failureOf([&] { assembleShell(shell); }), std::wstring(row.message) + L"\r\n");
    }
}

TEST(PatternLibraries, FileOfAnotherKindLeavesNone)
{
    const InPlaceOf other(hatchLibraryName, igkPresetLibraryName);
    const auto settings = makeReference<Settings>();
    EXPECT_EQ(makeReference<TellurixController>(settings.get(), nullptr)->hatch(), nullptr);
}
