#include "program/program_test.h"

#include <QDateTime>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace
{

enum Column { Code, Name, File, Points, Changed, Size, SavingPlace };

class Projects : public ProgramTest
{
protected:
    QTableView* registerTable() { return table(ModeProjects); }
    // The register as it is when every file has been read.
    void list()
    {
        Q_EMIT bus(ModeProjects)->signalUpdateProjectsPath();
        EXPECT_TRUE(QTest::qWaitFor([this] { return isRead(); }, 120000));
    }
    bool isRead()
    {
        const QTableView* view = registerTable();
        for (int row = 0; view && row < view->model()->rowCount(); ++row)
            if (cell(view, row, Name) == QStringLiteral("…"))
                return false;
        return true;
    }
    int rowOf(const QString& file)
    {
        for (int row = 0; row < registerTable()->model()->rowCount(); ++row)
            if (cell(registerTable(), row, File) == file)
                return row;
        return -1;
    }
    QString at(const QString& file, Column column) { return cell(registerTable(), rowOf(file), column); }
    void pressNewProject()
    {
        // Without projects the start stands in place of the register, with a button of its own.
        for (const char* name : {"newProject", "startNew"}) {
            auto* button = screen(ModeProjects)->findChild<QPushButton*>(QString::fromLatin1(name));
            if (button->isVisible()) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        FAIL() << "no button in view";
    }
    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(here(projectsFolder + QLatin1Char('/') + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

} // namespace

TEST_F(Projects, AreReadFromTheFolderWhateverStateTheyAreIn)
{
    const QByteArray sample = content(project(QStringLiteral("LURGAN")));
    QByteArray older = sample;
    older[12] = 103;
    write(QStringLiteral("older.TLX"), older);
    write(QStringLiteral("cut.TLX"), sample.left(5000));
    write(QStringLiteral("short.TLX"), "Tellurix");
    write(QStringLiteral("copy.TLX"), sample);
    list();
    EXPECT_EQ(registerTable()->model()->rowCount(), 5);
    EXPECT_EQ(at(QStringLiteral("LURGAN.TLX"), Code), QStringLiteral("20-1040"));
    EXPECT_EQ(at(QStringLiteral("LURGAN.TLX"), Points), QStringLiteral("24"));
    EXPECT_EQ(at(QStringLiteral("LURGAN.TLX"), SavingPlace), QStringLiteral("этот файл"));
    EXPECT_EQ(at(QStringLiteral("older.TLX"), Name), QStringLiteral("файл другой версии"));
    EXPECT_EQ(at(QStringLiteral("cut.TLX"), Name), QStringLiteral("файл повреждён"));
    EXPECT_EQ(at(QStringLiteral("short.TLX"), Name), QStringLiteral("файл повреждён"));
    EXPECT_TRUE(
        at(QStringLiteral("copy.TLX"), SavingPlace).endsWith(QStringLiteral("Проекты/LURGAN/LURGAN.TLX")));
    const auto* model = registerTable()->model();
    const auto tip = [&](const char* file) {
        return model->index(rowOf(QString::fromLatin1(file)), Name).data(Qt::ToolTipRole).toString();
    };
    EXPECT_TRUE(tip("cut.TLX").contains(QStringLiteral("Critical Error reading the file")));
    EXPECT_TRUE(tip("copy.TLX").contains(QStringLiteral("Там уже есть другой файл")));
}

TEST_F(Projects, EnterOpensWhatTheFilterLeaves)
{
    project(QStringLiteral("LURGAN"));
    project(QStringLiteral("PORTADOWN"));
    list();
    registerTable()->setFocus();
    QTest::keyClicks(registerTable(), QStringLiteral("p"));
    auto* filter = screen(ModeProjects)->findChild<QLineEdit*>(QStringLiteral("filter"));
    QTest::keyClicks(filter, QStringLiteral("ortadown"));
    EXPECT_EQ(registerTable()->model()->rowCount(), 1);
    QTest::keyClick(filter, Qt::Key_Return);
    ASSERT_NE(controller().dbProject(), nullptr);
    EXPECT_EQ(controller().dbProject()->getProjectCode(), L"19-0217");
    EXPECT_EQ(shell.controller->currentMode(), ModeListCoords);
}

TEST_F(Projects, DamagedFileIsRefusedInWordsAndNewProjectsStillCome)
{
    write(QStringLiteral("cut.TLX"), content(project(QStringLiteral("LURGAN"))).left(5000));
    list();
    registerTable()->setCurrentIndex(registerTable()->model()->index(rowOf(QStringLiteral("cut.TLX")), Name));
    {
        const MessageAnswers answers;
        QTest::keyClick(registerTable(), Qt::Key_Return);
        ASSERT_EQ(answers.boxes().size(), 1U);
        EXPECT_NE(answers.boxes()[0].find(L"Critical Error reading the file"), std::wstring::npos);
    }
    EXPECT_FALSE(controller().openFailed());
    // The list of points asks for the new project's name; later, says the user.
    bool asked = false;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, [&asked] {
        if (QWidget* dialog = QApplication::activeModalWidget())
            asked = dialog->close();
    });
    user.start(20);
    pressNewProject();
    EXPECT_TRUE(QTest::qWaitFor([&asked] { return asked; }));
    ASSERT_NE(controller().dbProject(), nullptr);
    EXPECT_EQ(controller().dbProject()->getFilePath(), L"TLXXXXX.TLX");
}

TEST_F(Projects, CodeIsEditedInPlaceWhereTheFileIsTheProjectsOwn)
{
    const QString path = project(QStringLiteral("LURGAN"));
    write(QStringLiteral("copy.TLX"), content(path));
    list();
    type(registerTable(), rowOf(QStringLiteral("LURGAN.TLX")), Name, QStringLiteral("Ш-9"));
    ASSERT_EQ(controller().dbProject(), nullptr) << "Enter closes the cell, it opens no project";
    EXPECT_EQ(at(QStringLiteral("LURGAN.TLX"), Code), QStringLiteral("Ш-9"));
    EXPECT_EQ(controller().projectCodeOf(path.toStdWString()), L"Ш-9");
    const auto* model = registerTable()->model();
    EXPECT_FALSE(model->flags(model->index(rowOf(QStringLiteral("copy.TLX")), Code)) & Qt::ItemIsEditable);
    EXPECT_FALSE(model->flags(model->index(rowOf(QStringLiteral("LURGAN.TLX")), Name)) & Qt::ItemIsEditable);
}

TEST_F(Projects, OpenProjectIsClosedFirst)
{
    project(QStringLiteral("LURGAN"));
    list();
    open(QStringLiteral("PORTADOWN.TLX"), QStringLiteral("a.TLX"));
    const auto* before = controller().dbProject();
    const MessageAnswers answers;
    registerTable()->setCurrentIndex(registerTable()->model()->index(0, Name));
    QTest::keyClick(registerTable(), Qt::Key_Return);
    ASSERT_EQ(answers.boxes().size(), 1U);
    EXPECT_NE(answers.boxes()[0].find(L"Сначала закройте текущий проект"), std::wstring::npos);
    pressNewProject();
    ASSERT_EQ(answers.boxes().size(), 2U);
    EXPECT_NE(answers.boxes()[1].find(L"Сначала закройте текущий проект"), std::wstring::npos);
    EXPECT_EQ(controller().dbProject(), before);
}

// The list may be older than the file: a code goes into no other project's place, nor into a file that would
// lose rows by being written.
TEST_F(Projects, CodeIsNotWrittenIntoAFileThatHasBecomeAnother)
{
    const QString path = project(QStringLiteral("LURGAN"));
    QByteArray twins = content(path);
    const QByteArray other = content(QStringLiteral(TELLURIX_SAMPLES "/PORTADOWN.TLX"));
    twins.replace("BH02", "BH01");
    const std::pair<QByteArray, const wchar_t*> cases[] = {
        {other, L"сохраняется в другое место"}, {twins, L"имена"}, {other.left(3000), L"Critical Error"}};
    for (const auto& [bytes, reason] : cases) {
        // The editor of the round before.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        project(QStringLiteral("LURGAN"));
        list();
        write(QStringLiteral("LURGAN/LURGAN.TLX"), bytes);
        const MessageAnswers answers;
        type(registerTable(), 0, Code, QStringLiteral("Ш-9"));
        ASSERT_EQ(answers.boxes().size(), 1U);
        EXPECT_NE(answers.boxes()[0].find(reason), std::wstring::npos)
            << QString::fromStdWString(answers.boxes()[0]).toStdString();
        EXPECT_EQ(content(path), bytes);
        EXPECT_FALSE(QFile::exists(here(projectsFolder + QStringLiteral("/PORTADOWN"))));
    }
}

TEST_F(Projects, ReadingStopsWhenAProjectIsOpenedAndGoesOnAfterIt)
{
    const QString path = project(QStringLiteral("LURGAN"));
    for (int i = 0; i < 60; ++i)
        QFile::copy(path, here(projectsFolder + QStringLiteral("/%1.TLX").arg(i)));
    Q_EMIT bus(ModeProjects)->signalUpdateProjectsPath();
    EXPECT_FALSE(isRead());
    auto* progress = shell.mainWindow->findChild<QProgressBar*>();
    EXPECT_FALSE(progress->isHidden());
    openFromCommandLine(controller(), path.toLocal8Bit().constData());
    QTest::qWait(300);
    EXPECT_FALSE(isRead());
    EXPECT_TRUE(progress->isHidden());
    const MessageAnswers answers({QMessageBox::No});
    action(ShellAction::Close)->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return isRead(); }, 120000));
    EXPECT_TRUE(QTest::qWaitFor([&] { return progress->isHidden(); }));
}

TEST_F(Projects, FilterAndOrderHoldForFilesThatComeLater)
{
    project(QStringLiteral("LURGAN"));
    project(QStringLiteral("PORTADOWN"));
    auto* filter = screen(ModeProjects)->findChild<QLineEdit*>(QStringLiteral("filter"));
    enter(filter, QStringLiteral("19-0217"));
    list();
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return registerTable() && registerTable()->model()->rowCount() == 1; }, 20000));
    enter(filter, QStringLiteral("нет такого"));
    EXPECT_EQ(registerTable(), nullptr) << "words instead of an empty table";
    QTest::keyClick(filter, Qt::Key_Escape);
    ASSERT_NE(registerTable(), nullptr);

    auto* header = registerTable()->horizontalHeader();
    for (int click = 0; click < 2; ++click)
        QTest::mouseClick(
            header->viewport(), Qt::LeftButton, {}, QPoint(header->sectionViewportPosition(Points) + 5, 5));
    EXPECT_EQ(cell(registerTable(), 0, File), QStringLiteral("PORTADOWN.TLX"));
    project(QStringLiteral("ALLTEXT"));
    list();
    EXPECT_EQ(cell(registerTable(), 0, File), QStringLiteral("PORTADOWN.TLX"));
    EXPECT_EQ(cell(registerTable(), 2, File), QStringLiteral("ALLTEXT.TLX"));
}

TEST_F(Projects, MarkOfATakenPlaceFollowsTheOtherFile)
{
    const QString path = project(QStringLiteral("LURGAN"));
    QFile::copy(path, here(projectsFolder + QStringLiteral("/copy.TLX")));
    const auto told = [this] {
        const auto* model = registerTable()->model();
        const QModelIndex index = model->index(rowOf(QStringLiteral("copy.TLX")), Name);
        return index.data(Qt::ToolTipRole).toString().contains(QStringLiteral("Там уже есть другой файл"));
    };
    list();
    EXPECT_TRUE(told());
    QFile::remove(path);
    list();
    EXPECT_FALSE(told());
    EXPECT_TRUE(at(QStringLiteral("copy.TLX"), SavingPlace).contains(QStringLiteral("LURGAN")));

    // The same file by another name is no other file.
    QFile::remove(here(projectsFolder + QStringLiteral("/copy.TLX")));
    const QString own = project(QStringLiteral("LURGAN"));
    ASSERT_TRUE(QFile::link(own, here(projectsFolder + QStringLiteral("/link.TLX"))));
    list();
    EXPECT_EQ(at(QStringLiteral("link.TLX"), SavingPlace), QStringLiteral("этот файл"));
}

TEST_F(Projects, NewProjectAfterAFailedOpenIsExplained)
{
    QByteArray older = content(project(QStringLiteral("LURGAN")));
    older[12] = 103;
    QDir(here(projectsFolder + QStringLiteral("/LURGAN"))).removeRecursively();
    write(QStringLiteral("older.TLX"), older);
    list();
    const MessageAnswers answers;
    registerTable()->setCurrentIndex(registerTable()->model()->index(0, Name));
    QTest::keyClick(registerTable(), Qt::Key_Return);
    pressNewProject();
    ASSERT_EQ(answers.boxes().size(), 2U);
    EXPECT_NE(answers.boxes()[0].find(L"Rar.exe"), std::wstring::npos) << "the shell's own words";
    EXPECT_NE(answers.boxes()[1].find(L"новый проект не создаётся"), std::wstring::npos);
}

TEST_F(Projects, ListComesBackWhenTheProjectIsClosed)
{
    list();
    EXPECT_EQ(registerTable(), nullptr) << "nothing there: words instead of an empty table";
    auto* start = screen(ModeProjects)->findChild<QPushButton*>(QStringLiteral("startNew"));
    EXPECT_TRUE(start->isVisible());
    EXPECT_TRUE(start->hasFocus() || shell.mainWindow->focusWidget() == start)
        << "Enter begins the first project";
    EXPECT_FALSE(screen(ModeProjects)->findChild<QPushButton*>(QStringLiteral("startExample"))->isVisible())
        << "no examples stand beside this program";
    const QString path = project(QStringLiteral("LURGAN"));
    openFromCommandLine(controller(), path.toLocal8Bit().constData());
    const MessageAnswers answers({QMessageBox::No});
    action(ShellAction::Close)->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return registerTable() != nullptr; }, 20000));
    ASSERT_NE(registerTable(), nullptr);
    EXPECT_FALSE(start->isVisible());
    EXPECT_EQ(registerTable()->model()->rowCount(), 1);
}

TEST_F(Projects, OneThatAnotherProgramHasOpenSaysSoAndKeepsItsCode)
{
    const QString path = project(QStringLiteral("LURGAN"));
    const QByteArray before = content(path);
    list();
    const QByteArray time = QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toLatin1();
    write(QStringLiteral("LURGAN/LURGAN.TLX.lock"),
        "user=Петров\ncomputer=ПК-7\nprocess=4\nopened=" + time + "\nalive=" + time + "\ntoken=0f\n");
    {
        // The list is older than the lock.
        const MessageAnswers answers;
        type(registerTable(), 0, Code, QStringLiteral("Ш-9"));
        ASSERT_EQ(answers.boxes().size(), 1U);
        EXPECT_NE(answers.boxes()[0].find(L"открыт в другом месте: Петров, ПК-7"), std::wstring::npos);
        EXPECT_EQ(content(path), before);
    }
    list();
    EXPECT_EQ(registerTable()->model()->rowCount(), 1) << "the lock is no project";
    EXPECT_EQ(at(QStringLiteral("LURGAN.TLX"), SavingPlace), QStringLiteral("открыт: Петров, ПК-7"));
    EXPECT_FALSE(
        registerTable()->model()->flags(registerTable()->model()->index(0, Code)) & Qt::ItemIsEditable);
    QFile::remove(path + QStringLiteral(".lock"));
    list();
    EXPECT_EQ(at(QStringLiteral("LURGAN.TLX"), SavingPlace), QStringLiteral("этот файл"));
}

TEST_F(Projects, FolderThatIsMissingIsMadeOrTold)
{
    QDir(here(projectsFolder)).removeRecursively();
    list();
    EXPECT_TRUE(QDir(here(projectsFolder)).exists());
    QFile blocker(here(QStringLiteral("blocker")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    shell.settings->setProjectPath(blocker.fileName().toStdWString());
    list();
    EXPECT_EQ(registerTable(), nullptr);
    bool told = false;
    for (const QLabel* label : screen(ModeProjects)->findChildren<QLabel*>())
        told = told || label->text().contains(QStringLiteral("не создаётся"));
    EXPECT_TRUE(told);
}
