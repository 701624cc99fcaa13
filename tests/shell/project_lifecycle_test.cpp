#include "app/project_reading.h"
#include "app/project_writer.h"
#include "core/base/mexception.h"
#include "shell/shell_test.h"

#include <QStatusBar>
#include <QTimer>

#include <stdexcept>
#include <vector>

namespace
{

class ProjectLifecycle : public ShellTest
{
protected:
    void TearDown() override
    {
        for (const QString& name : {archiverName, convertorName})
            QFile::remove(here(name));
        ShellTest::TearDown();
    }

    static QByteArray content(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }
    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    // A program of that name in the program's folder.
    static void program(const QString& name, const QByteArray& script)
    {
        write(here(name), "#!/bin/sh\n" + script);
        QFile::setPermissions(here(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    static QString sample() { return QStringLiteral(TELLURIX_SAMPLES "/LURGAN.TLX"); }
    // A file of an older program: its version is not 104.
    static QString oldFile(const QString& name)
    {
        QByteArray bytes = content(sample());
        bytes[12] = 103;
        write(here(name), bytes);
        return here(name);
    }
    void openPath(const QString& path)
    {
        controller().setProjectPath(path.toStdWString());
        controller().openProject();
    }
    QString place() const { return here(QStringLiteral("Проекты/LURGAN/LURGAN.TLX")); }
};

} // namespace

TEST_F(ProjectLifecycle, NewProjectTakesWhatTheSettingsSay)
{
    shell.settings->setTypeObject(3);
    shell.settings->setNewProjectMode(0);
    shell.settings->setGranGostLaboratory(2);
    action(ShellAction::ListCoords)->trigger();
    ASSERT_NE(controller().dbProject(), nullptr);
    DBProject& project = *controller().dbProject();
    EXPECT_EQ(project.getFilePath(), L"TLXXXXX.TLX");
    EXPECT_EQ(project.getTypeObject(), 3);
    EXPECT_EQ(project.getLabValueC(), 0);
    EXPECT_EQ(project.getGranGost(), 2);
    EXPECT_FALSE(shell.settings->isShowTypeObject());
    EXPECT_EQ(shell.controller->project(), controller().project());
    EXPECT_EQ(shell.controller->currentMode(), ModeListCoords);
}

TEST_F(ProjectLifecycle, OpensSavesToItsOwnPlaceAndKeepsTheOldFile)
{
    const QString opened = open(QStringLiteral("LURGAN.TLX"), QStringLiteral("elsewhere.tlx"));
    ASSERT_NE(controller().dbProject(), nullptr);
    controller().showOpenProject();
    EXPECT_EQ(shell.controller->currentMode(), ModeListCoords);
    heard(ModeListCoords);
    QTest::keyClick(shell.mainWindow.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(heard(ModeListCoords), QStringList{QStringLiteral("signalUpdateDB")});
    EXPECT_EQ(content(place()), content(sample())) << "not where it was opened, where it belongs";
    EXPECT_FALSE(QFile::exists(here(QStringLiteral("Проекты/LURGAN/LURGAN.bak"))));
    controller().dbProject()->setProjectName(L"другое имя");
    controller().saveProject();
    EXPECT_EQ(content(here(QStringLiteral("Проекты/LURGAN/LURGAN.bak"))), content(sample()));
    EXPECT_NE(content(place()), content(sample()));
    EXPECT_EQ(content(opened), content(sample()));
    EXPECT_EQ(shell.mainWindow->statusBar()->currentMessage(), QStringLiteral("Готово."));
    openPath(place());
    EXPECT_EQ(controller().dbProject()->getProjectName(), L"другое имя");
}

TEST_F(ProjectLifecycle, SaveThatFailsSaysSoAndKeepsTheProject)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    QDir(here(projectsFolder)).removeRecursively();
    const MessageAnswers answers;
    controller().saveProject();
    EXPECT_EQ(answers.boxes(), std::vector<std::wstring>{L"Tellurix: Ошибка при сохранения проекта!"});
    EXPECT_NE(controller().dbProject(), nullptr);
    EXPECT_THROW(ProjectWriter(nullptr, shell.settings.get()), MException);
    EXPECT_THROW(ProjectWriter(controller().project(), nullptr), MException);
}

TEST_F(ProjectLifecycle, FilesThatDoNotOpenSayWhatIsWrongAndLeaveTheOpenProject)
{
    write(here(QStringLiteral("one.TLX")), "x");
    write(here(QStringLiteral("short.TLX")), "TellurixDB");
    write(here(QStringLiteral("other.txt")), content(sample()));
    write(here(QStringLiteral("cut.TLX")), content(sample()).left(3000));
    struct Row {
        QString name;
        std::wstring message;
    };
    const std::wstring folder = here(QString()).toStdWString();
    const Row rows[] = {{QStringLiteral("missing.TLX"), L""},
        {QStringLiteral("other.txt"), L""},
        {QStringLiteral("one.TLX"), L"Can't open file " + folder + L"one.TLX"},
        {QStringLiteral("short.TLX"), L"Неизвестная ошибка при чтении файла проекта!"},
        {QStringLiteral("cut.TLX"), L"Critical Error reading the file LURGAN.TLX"}};
    open(QStringLiteral("PORTADOWN.TLX"), QStringLiteral("good.TLX"));
    const DBProject* before = controller().dbProject();
    for (const Row& row : rows) {
        const MessageAnswers answers;
        openPath(here(row.name));
        EXPECT_TRUE(controller().openFailed()) << row.name.toStdString();
        EXPECT_EQ(answers.boxes().empty(), row.message.empty());
        if (!answers.boxes().empty()) {
            EXPECT_EQ(answers.boxes()[0], L"Tellurix: " + row.message);
        }
        EXPECT_EQ(controller().dbProject(), before);
        // The way to a new project is barred until something opens.
        shell.controller->setCurrentMode(ModeNone);
        controller().showOpenProject();
        EXPECT_EQ(shell.controller->currentMode(), ModeNone);
    }
}

TEST_F(ProjectLifecycle, OldFileIsPutAsideAndConverted)
{
    const QString old = oldFile(QStringLiteral("site.v1.TLX"));
    const QByteArray oldBytes = content(old);
    program(archiverName, "");
    // Converts whatever path stands behind the dash, in place, and says so by a code that is not zero.
    program(convertorName,
        "path=${1#-}\nprintf '\\150' | dd of=\"$path\" bs=1 seek=12 conv=notrunc 2>/dev/null\nexit 1\n");
    openPath(old);
    EXPECT_NE(controller().dbProject(), nullptr);
    EXPECT_FALSE(controller().openFailed());
    EXPECT_EQ(content(here(QStringLiteral("site.old"))), oldBytes);
    QFile::remove(here(QStringLiteral("site.old")));
    openPath(old);
    EXPECT_FALSE(QFile::exists(here(QStringLiteral("site.old")))) << "needs no second conversion";
}

TEST_F(ProjectLifecycle, ConversionThatFailsIsToldInItsWords)
{
    struct Row {
        const char* archiver;
        const char* convertor;
        std::wstring message;
    };
    const std::wstring absent = L" не найден.\nПроверьте наличие файла по пути установки Tellurix.";
    const Row rows[] = {{nullptr, nullptr, L"Tellurix: Rar.exe" + absent},
        {"", nullptr, L"Tellurix: convertor19.exe" + absent},
        {"", "exit 0\n", L"Tellurix: Неизвестная ошибка при конвертации проекта!."},
        {"",
            "rm \"${1#-}\"; kill -SEGV $$\n",
            L"Tellurix: Can't open file " + here(QString()).toStdWString() + L"old.TLX"}};
    for (const Row& row : rows) {
        const QString old = oldFile(QStringLiteral("old.TLX"));
        if (row.archiver)
            program(archiverName, row.archiver);
        if (row.convertor)
            program(convertorName, row.convertor);
        const MessageAnswers answers;
        openPath(old);
        EXPECT_EQ(answers.boxes(), std::vector<std::wstring>{row.message});
        EXPECT_TRUE(controller().openFailed());
        EXPECT_EQ(QFile::exists(here(QStringLiteral("old.old"))), row.convertor != nullptr);
    }
    QFile::remove(here(QStringLiteral("old.old")));
}

TEST_F(ProjectLifecycle, FirstOldCopyStays)
{
    write(here(QStringLiteral("x.old")), "первая");
    write(here(QStringLiteral("x.y.TLX")), "вторая");
    backupOldFile(
        here(QStringLiteral("x.y.TLX")).replace(QLatin1Char('/'), QLatin1Char('\\')).toStdWString());
    EXPECT_EQ(content(here(QStringLiteral("x.old"))), QByteArray("первая"));
}

TEST_F(ProjectLifecycle, ClosingAsksAndDoesAsItIsTold)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeLitology);
    {
        const MessageAnswers answers({QMessageBox::Cancel});
        action(ShellAction::Close)->trigger();
        EXPECT_EQ(answers.boxes(), std::vector<std::wstring>{L"Проект: Сохранить текущий проект?"});
    }
    EXPECT_NE(controller().dbProject(), nullptr);
    EXPECT_NE(screen(ModeLitology), nullptr);
    EXPECT_EQ(shell.controller->currentMode(), ModeNone) << "the facade starts anew all the same";
    controller().changeMode(ModeLitology);
    {
        const MessageAnswers answers({QMessageBox::No});
        action(ShellAction::Close)->trigger();
    }
    EXPECT_EQ(controller().dbProject(), nullptr);
    EXPECT_EQ(shell.controller->project(), nullptr);
    EXPECT_EQ(screen(ModeLitology), nullptr);
    EXPECT_FALSE(QFile::exists(place()));
    EXPECT_TRUE(shell.settings->isShowTypeObject());

    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeLitology);
    const MessageAnswers answers({QMessageBox::Yes});
    action(ShellAction::Close)->trigger();
    EXPECT_EQ(content(place()), content(sample()));
    EXPECT_EQ(controller().dbProject(), nullptr);
}

// The program's application keeps what a handler throws; the toolkit's own doings on the way to it may fail
// all the same.
static const QObject* failingReceiver = nullptr;

static bool failToClose(void** data)
{
    if (data[0] != failingReceiver || static_cast<const QEvent*>(data[1])->type() != QEvent::Close)
        return false;
    failingReceiver = nullptr;
    throw std::runtime_error("on its way out");
}

TEST_F(ProjectLifecycle, ScreenThatFailsOnItsWayOutLeavesNoProjectToTheOthers)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeLitology);
    controller().changeMode(ModeTests);
    std::vector<bool> projectsSeen;
    QObject::connect(bus(ModeTests), &TXWidget::signalUpdateDB, bus(ModeTests), [&] {
        projectsSeen.push_back(shell.controller->project() != nullptr);
        return true;
    });
    failingReceiver = controller().findSubWindow(ModeLitology);
    QInternal::registerCallback(QInternal::EventNotifyCallback, failToClose);
    const MessageAnswers answers({QMessageBox::No});
    controller().closeProject();
    QInternal::unregisterCallback(QInternal::EventNotifyCallback, failToClose);
    ASSERT_EQ(failingReceiver, nullptr);
    ASSERT_FALSE(projectsSeen.empty());
    EXPECT_FALSE(projectsSeen.front());
    EXPECT_EQ(screen(ModeTests), nullptr) << "the others close all the same";
    EXPECT_EQ(controller().dbProject(), nullptr);
}

TEST_F(ProjectLifecycle, ProjectThatCannotBeSavedIsNotClosed)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeLitology);
    QDir(here(projectsFolder)).removeRecursively();
    const MessageAnswers answers({QMessageBox::Yes, QMessageBox::Ok});
    EXPECT_FALSE(shell.mainWindow->close());
    EXPECT_EQ(answers.boxes(),
        (std::vector<std::wstring>{
            L"Проект: Сохранить текущий проект?", L"Tellurix: Ошибка при сохранения проекта!"}));
    EXPECT_NE(controller().dbProject(), nullptr);
    EXPECT_NE(screen(ModeLitology), nullptr);
}

TEST_F(ProjectLifecycle, ColumnHasAQuestionOfItsOwn)
{
    EXPECT_TRUE(controller().closeColumnPrompt()) << "nothing to ask";
    controller().changeMode(ModeStratigraphic);
    heard(ModeStratigraphic);
    controller().saveProject();
    EXPECT_EQ(heard(ModeStratigraphic), QStringList{QStringLiteral("signalSaveColumn")});
    shell.controller->setColumnModified(true);
    {
        const MessageAnswers answers({QMessageBox::Cancel});
        EXPECT_FALSE(controller().closeColumnPrompt());
        EXPECT_EQ(answers.boxes(),
            std::vector<std::wstring>{L"Стратиграфическая колонка: Сохранить текущую колонку?"});
    }
    EXPECT_NE(screen(ModeStratigraphic), nullptr);
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        controller().changeMode(ModeStratigraphic);
        auto* hint = shell.mainWindow->findChild<QWidget*>(QStringLiteral("hintLabel"));
        ASSERT_FALSE(hint->isHidden());
        shell.controller->setColumnModified(true);
        const MessageAnswers answers({answer});
        EXPECT_TRUE(controller().closeColumnPrompt());
        EXPECT_EQ(screen(ModeStratigraphic), nullptr);
        EXPECT_TRUE(hint->isHidden()) << "it speaks of records, and the register of projects has none";
    }
    shell.controller->setColumnModified(false);
}

TEST_F(ProjectLifecycle, WindowStaysWhileASampleIsEditedOrTheUserThinksAgain)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeLitology);
    shell.controller->setLabState(8);
    {
        const MessageAnswers answers;
        EXPECT_FALSE(shell.mainWindow->close());
        EXPECT_EQ(answers.boxes(),
            std::vector<std::wstring>{
                L"Tellurix: Необходмо закончить режим редактирования\n<Реестра проб>!"});
    }
    EXPECT_EQ(shell.controller->labState(), 0);
    {
        const MessageAnswers answers({QMessageBox::Cancel});
        EXPECT_FALSE(shell.mainWindow->close());
    }
    EXPECT_FALSE(controller().leaving());
    const MessageAnswers answers({QMessageBox::No});
    EXPECT_TRUE(shell.mainWindow->close());
    EXPECT_TRUE(controller().leaving());
}

TEST_F(ProjectLifecycle, RegisterReadsAndChangesCodesOfClosedFiles)
{
    QDir().mkpath(here(QStringLiteral("Проекты/LURGAN")));
    QFile::copy(sample(), place());
    QFile::setPermissions(place(), QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(controller().projectCodeOf(place().toStdWString()), L"20-1040");
    controller().setProjectCodeOf(place().toStdWString(), L"Ш-7");
    EXPECT_EQ(controller().projectCodeOf(place().toStdWString()), L"Ш-7");
    EXPECT_EQ(controller().dbProject(), nullptr);
    EXPECT_EQ(controller().projectCodeOf(L"нет.TLX"), L"");
}

// Rows that read as the same number as another row's do not come in, and go for good at the next save.
TEST_F(ProjectLifecycle, RowsThatWereRefusedAreToldAndNotSavedOverByTheTimer)
{
    auto project = readProjectFile(sample().toStdWString());
    QByteArray bytes = content(sample());
    ASSERT_TRUE(project);
    const std::wstring first = project->getPointRegister().begin()->first.pointName;
    const std::wstring second = std::next(project->getPointRegister().begin())->first.pointName;
    const auto inFile = [](const std::wstring& name) {
        const auto size = static_cast<char>(name.size());
        return QByteArray(1, size) + QByteArray(3, '\0') + QString::fromStdWString(name).toLatin1();
    };
    ASSERT_EQ(first.size(), second.size());
    const int at = bytes.indexOf(inFile(second));
    ASSERT_GT(at, 0);
    bytes.replace(at, inFile(second).size(), inFile(first));
    write(here(QStringLiteral("twice.TLX")), bytes);
    {
        const MessageAnswers answers;
        openPath(here(QStringLiteral("twice.TLX")));
        ASSERT_EQ(answers.boxes().size(), 1U);
        EXPECT_NE(answers.boxes()[0].find(L"Из файла не прочитано строк: 1"), std::wstring::npos);
        EXPECT_NE(answers.boxes()[0].find(first), std::wstring::npos);
    }
    auto* timer = shell.mainWindow->findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    timer->start(1);
    QTest::qWait(30);
    timer->stop();
    EXPECT_FALSE(QFile::exists(place())) << "not by itself";
    controller().saveProject();
    EXPECT_TRUE(QFile::exists(place()));
    QFile::remove(place());
    timer->start(1);
    QTest::qWait(30);
    timer->stop();
    EXPECT_TRUE(QFile::exists(place()));
}

TEST_F(ProjectLifecycle, TimerRunsAsTheSettingsSay)
{
    auto* timer = shell.mainWindow->findChild<QTimer*>();
    EXPECT_FALSE(timer->isActive());
    shell.settings->setIsSetTimer(true);
    struct Row {
        int minutes;
        int milliseconds;
    };
    for (const Row& row : {Row{10, 600000}, Row{0, 60000}, Row{-5, 60000}, Row{2000000, 2147483647}}) {
        shell.settings->setTimer(row.minutes);
        controller().setAutoSave();
        EXPECT_TRUE(timer->isActive());
        EXPECT_EQ(timer->interval(), row.milliseconds);
    }
}
