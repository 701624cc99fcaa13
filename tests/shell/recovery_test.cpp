// The copy of the open project: when it comes, when it goes, and who is offered it.

#include "app/project_reading.h"
#include "app/recovery_clock.h"
#include "app/recovery_dialog.h"
#include "generated_site.h"
#include "persistence/project_codec.h"
#include "platform/running_process.h"
#include "shell/button_answers.h"
#include "shell/shell_test.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QPushButton>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTableWidget>
#include <QTimer>

#include <algorithm>
#include <limits>

using std::chrono::milliseconds;

namespace
{

class Recovery : public ShellTest
{
protected:
    void SetUp() override
    {
        QStandardPaths::setTestModeEnabled(true);
        for (const QString& folder : {folder_, own()})
            QDir(folder).removeRecursively();
        QFile::remove(folder_);
        ShellTest::SetUp();
    }
    void TearDown() override
    {
        ShellTest::TearDown();
        for (const QString& folder : {folder_, own()})
            QDir(folder).removeRecursively();
        QFile::remove(folder_);
    }
    static QString own()
    {
        return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
            + QStringLiteral("/recovery");
    }
    static QStringList copiesIn(const QString& folder)
    {
        return QDir(folder).entryList({QStringLiteral("*.TLX")}, QDir::Files);
    }
    QStringList copies() const { return copiesIn(folder_); }
    QString status() const { return shell.mainWindow->statusBar()->currentMessage(); }
    // A round of the clock, and the thread at its end.
    void keep()
    {
        controller().keepRecoveryCopy();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !controller().isCopying(); }, 20000));
    }
    void openSample() { open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX")); }
    void type(const wchar_t* name) { controller().dbProject()->setProjectName(name); }
    // What a crash leaves: a copy of this content with the lock of a process that runs no more.
    QString leaveCopy(const QString& name, const QByteArray& bytes)
    {
        QDir().mkpath(folder_);
        QString path = folder_ + QLatin1Char('/') + name;
        write(path, bytes);
        write(path + QStringLiteral(".lock"),
            "user=Иванов\ncomputer=" + QString::fromStdWString(computerName()).toUtf8()
                + "\nprocess=999999999\nstarted=1\ntoken=01\n");
        return path;
    }
    static QByteArray sample(const QString& name)
    {
        QFile file(QStringLiteral(TELLURIX_SAMPLES "/") + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static void write(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QString folder_ = here(QStringLiteral("Восстановление"));
};

} // namespace

TEST_F(Recovery, CopyComesWithAChangeAndGoesWhenNobodyNeedsIt)
{
    openSample();
    keep();
    EXPECT_EQ(copies(), QStringList{}) << "nothing has been changed";
    type(L"новое имя");
    keep();
    ASSERT_EQ(copies().size(), 1);
    EXPECT_TRUE(copies()[0].startsWith(QStringLiteral("LURGAN-")));
    const QString path = folder_ + QLatin1Char('/') + copies()[0];
    EXPECT_TRUE(QFile::exists(path + QStringLiteral(".lock")));
    EXPECT_EQ(readProjectFile(path.toStdWString())->getProjectName(), L"новое имя");
    const auto written = QFileInfo(path).lastModified();
    keep();
    EXPECT_EQ(QFileInfo(path).lastModified(), written) << "copied already";
    type(L"ещё новее");
    keep();
    EXPECT_EQ(readProjectFile(path.toStdWString())->getProjectName(), L"ещё новее");
    EXPECT_TRUE(controller().saveProject());
    EXPECT_EQ(QDir(folder_).entryList(QDir::Files), QStringList{});

    const std::wstring saved = controller().dbProject()->getProjectName();
    type(L"опечатка");
    keep();
    EXPECT_EQ(copies().size(), 1);
    type(saved.c_str());
    keep();
    EXPECT_EQ(copies(), QStringList{}) << "undone";

    type(L"не нужно");
    keep();
    EXPECT_EQ(copies().size(), 1);
    const MessageAnswers no({QMessageBox::No});
    EXPECT_TRUE(controller().closeProjectPrompt());
    EXPECT_EQ(QDir(folder_).entryList(QDir::Files), QStringList{});
    controller().newProject();
    type(L"первые слова");
    keep();
    ASSERT_EQ(copies().size(), 1);
    EXPECT_TRUE(copies()[0].startsWith(QStringLiteral("TLXXXXX-")));
}

TEST_F(Recovery, CopyGoesElsewhereWhereTheWorkFolderTakesNone)
{
    write(folder_, "a file in the way");
    openSample();
    type(L"новое имя");
    keep();
    ASSERT_EQ(copiesIn(own()).size(), 1);
    // Neither folder: told once, and the program goes on.
    EXPECT_TRUE(controller().saveProject());
    QDir(own()).removeRecursively();
    write(own(), "in the way, too");
    type(L"ещё");
    keep();
    keep();
    EXPECT_TRUE(status().startsWith(QStringLiteral("Копия проекта на случай сбоя не записана")));
    shell.mainWindow->statusBar()->showMessage(QString());
    keep();
    EXPECT_EQ(status(), QString());
    QFile::remove(own());
    keep();
    EXPECT_EQ(copiesIn(own()).size(), 1);
}

TEST_F(Recovery, CopiesOfACrashAreOfferedAndOneIsOpened)
{
    {
        const ButtonAnswers answers;
        controller().offerRecovery();
        EXPECT_TRUE(answers.boxes().isEmpty()) << "nothing to offer";
    }
    leaveCopy(QStringLiteral("PORTADOWN-1.TLX"), sample(QStringLiteral("PORTADOWN.TLX")));
    const QString damaged =
        leaveCopy(QStringLiteral("cut.TLX"), sample(QStringLiteral("LURGAN.TLX")).left(3000));
    const QString living = leaveCopy(QStringLiteral("LURGAN-1.TLX"), sample(QStringLiteral("LURGAN.TLX")));
    QFile::remove(living + QStringLiteral(".lock"));
    const auto lock = ProjectLock::tryTake(living.toStdWString());
    auto found = findRecoveryCopies(*shell.settings);
    ASSERT_EQ(found.size(), 2U);

    RecoveryDialog dialog(found, shell.settings->projectPath(), shell.mainWindow.get());
    auto* table = dialog.findChild<QTableWidget*>();
    auto* restore = dialog.findChild<QPushButton*>(QStringLiteral("restore"));
    const int row = found[0].isDamaged ? 0 : 1;
    table->selectRow(row);
    EXPECT_FALSE(restore->isEnabled());
    dialog.show();
    QTimer::singleShot(50, qApp, [] {
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); // whoever does not read
    });
    table->setFocus();
    QTest::keyClick(table, Qt::Key_Delete);
    ASSERT_TRUE(QFile::exists(damaged)) << "the key at hand deletes nothing";
    {
        const ButtonAnswers answers({QString(), QStringLiteral("Удалить")});
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Delete);
        EXPECT_TRUE(QFile::exists(damaged)) << "thought better of it";
        dialog.findChild<QPushButton*>(QStringLiteral("delete"))->click();
        EXPECT_EQ(answers.boxes().size(), 2);
    }
    EXPECT_FALSE(QFile::exists(damaged));
    EXPECT_FALSE(QFile::exists(damaged + QStringLiteral(".lock")));
    EXPECT_EQ(table->rowCount(), 1);
    EXPECT_TRUE(restore->isEnabled());
    EXPECT_EQ(table->item(0, 3)->text(), QStringLiteral("не сохранялся"));
    dialog.hide();

    {
        const ButtonAnswers answers({QStringLiteral("&Позже")});
        controller().offerRecovery();
        EXPECT_EQ(answers.boxes(), QStringList{QStringLiteral("Восстановление проектов")});
        EXPECT_EQ(controller().dbProject(), nullptr);
    }
    {
        const ButtonAnswers answers({QStringLiteral("&Восстановить")});
        controller().offerRecovery();
    }
    ASSERT_NE(controller().dbProject(), nullptr);
    EXPECT_EQ(controller().dbProject()->getProjectCode(), L"19-0217");
    EXPECT_EQ(shell.controller->currentMode(), ModeListCoords);
    EXPECT_EQ(copies().size(), 2) << "it stays until the project is saved";
    EXPECT_TRUE(findRecoveryCopies(*shell.settings).empty());
    type(L"дальше");
    keep();
    EXPECT_EQ(copies().size(), 3);
    EXPECT_TRUE(controller().saveProject());
    EXPECT_EQ(copies(), QStringList{QStringLiteral("LURGAN-1.TLX")});
    EXPECT_TRUE(QFile::exists(here(QStringLiteral("Проекты/PORTADOWN/PORTADOWN.TLX"))));
}

// The command line opened the project that the crash left a copy of, and it is offered first.
TEST_F(Recovery, CopyOfTheOpenProjectComesFirstAndTakesItsPlace)
{
    openSample();
    auto changed = readProjectFile(here(QStringLiteral("a.TLX")).toStdWString());
    changed->setProjectName(L"час работы");
    const auto bytes = encodeProject(*changed);
    const QString path = leaveCopy(QStringLiteral("LURGAN-1.TLX"),
        QByteArray(reinterpret_cast<const char*>(bytes.data()), int(bytes.size())));
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::ReadWrite));
    old.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime);
    old.close();
    leaveCopy(QStringLiteral("PORTADOWN-1.TLX"), sample(QStringLiteral("PORTADOWN.TLX")));
    controller().showOpenProject();
    const ButtonAnswers answers({QStringLiteral("&Восстановить")});
    controller().offerRecovery();
    EXPECT_EQ(answers.boxes().size(), 1) << "no question about a project that nobody has touched";
    EXPECT_EQ(controller().dbProject()->getProjectName(), L"час работы");
}

// What the user's hands wait for is the encoding alone, whatever the machine.
TEST_F(Recovery, BarelyHoldsUpTheScreen)
{
#ifdef NDEBUG
    constexpr std::size_t points = 2300; // ten megabytes
#else
    constexpr std::size_t points = 230; // builds that check every access
#endif
    const auto site = generatedSite(points);
    const auto bytes = encodeProject(*site);
    write(here(QStringLiteral("big.TLX")),
        QByteArray(reinterpret_cast<const char*>(bytes.data()), int(bytes.size())));
    controller().setProjectPath(here(QStringLiteral("big.TLX")).toStdWString());
    controller().openProject();
    ASSERT_NE(controller().dbProject(), nullptr);
    qint64 encoding = std::numeric_limits<qint64>::max();
    qint64 copying = encoding;
    QElapsedTimer timer;
    for (int i = 0; i < 6; ++i) {
        type(std::to_wstring(i).c_str());
        timer.start();
        encodeProject(*controller().dbProject());
        encoding = std::min(encoding, timer.nsecsElapsed() / 1000);
        timer.start();
        controller().keepRecoveryCopy();
        copying = std::min(copying, timer.nsecsElapsed() / 1000);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !controller().isCopying(); }, 20000));
    }
    std::printf("copy of %zu bytes: %lld us on the GUI thread, the encoding alone %lld us\n",
        bytes.size(),
        static_cast<long long>(copying),
        static_cast<long long>(encoding));
    EXPECT_LT(copying, 2 * encoding + 5000);
    EXPECT_EQ(copies().size(), 1);
}

TEST_F(Recovery, ClockWaitsForAQuietMomentButNotForEver)
{
    int rounds = 0;
    const RecoveryClock clock(
        [&] {
            ++rounds;
            return milliseconds(0);
        },
        shell.mainWindow.get(),
        {milliseconds(20), milliseconds(600), milliseconds(1500)});
    EXPECT_TRUE(QTest::qWaitFor([&] { return rounds > 2; }));
    // One more may come before the first key.
    const int wanted = rounds + 2;
    QElapsedTimer typing;
    typing.start();
    while (rounds < wanted && typing.elapsed() < 20000) {
        QTest::keyClick(shell.mainWindow.get(), Qt::Key_A);
        QTest::qWait(5);
    }
    EXPECT_GE(rounds, wanted);
    EXPECT_GE(typing.elapsed(), 1400);
}
