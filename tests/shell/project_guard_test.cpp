// Two programs with one project: what the user is asked, and what happens without him.

#include "platform/files.h"
#include "shell/button_answers.h"
#include "shell/shell_test.h"

#include <QDateTime>
#include <QStatusBar>

namespace
{

class TwoPrograms : public ShellTest
{
protected:
    static QString place() { return here(QStringLiteral("Проекты/LURGAN/LURGAN.TLX")); }
    static QString lockFile() { return place() + QStringLiteral(".lock"); }
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
    // Another computer has the project open.
    static QByteArray foreignLock()
    {
        const QByteArray time = QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toLatin1();
        return "user=Петров\ncomputer=ПК-7\nprocess=4\nstarted=5\nopened=" + time + "\nalive=" + time
            + "\ntoken=00ff\n";
    }
    void openSample()
    {
        QDir().mkpath(here(QStringLiteral("Проекты/LURGAN")));
        open(QStringLiteral("LURGAN.TLX"), QStringLiteral("Проекты/LURGAN/LURGAN.TLX"));
        controller().changeMode(ModeLitology);
    }
    void lockBySomebodyElse() { write(lockFile(), foreignLock()); }
    void expireTimer()
    {
        auto* timer = shell.mainWindow->findChild<QTimer*>();
        // Connected behind the shell, so it hears when that is done.
        bool isDone = false;
        const auto connection = QObject::connect(timer, &QTimer::timeout, [&] { isDone = true; });
        timer->start(1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return isDone; }));
        timer->stop();
        QObject::disconnect(connection);
    }
    QString status() const { return shell.mainWindow->statusBar()->currentMessage(); }
    void type(const wchar_t* name) { controller().dbProject()->setProjectName(name); }
};

const QString view = QStringLiteral("Открыть для просмотра");
const QString seize = QStringLiteral("Открыть и занять");
const QString saveAllTheSame = QStringLiteral("Сохранить всё равно");

} // namespace

TEST_F(TwoPrograms, LockGoesWithTheOpenProjectAndItsPlace)
{
    {
        const ButtonAnswers answers;
        openSample();
        EXPECT_TRUE(content(lockFile()).contains("user="));
        const QByteArray first = content(lockFile());
        controller().openProject();
        EXPECT_EQ(content(lockFile()), first) << "opened once more in the same program";
        EXPECT_TRUE(answers.boxes().isEmpty());
    }
    // Another name: another place, from the next save on.
    const ButtonAnswers answers({QStringLiteral("&No")});
    controller().dbProject()->setFileStem(L"NEW");
    controller().dbProject()->setFilePath(L"NEW.TLX");
    EXPECT_TRUE(controller().saveProject());
    EXPECT_FALSE(QFile::exists(lockFile()));
    const QString moved = here(QStringLiteral("Проекты/NEW/NEW.TLX.lock"));
    EXPECT_TRUE(QFile::exists(moved));
    EXPECT_TRUE(answers.boxes().isEmpty());
    EXPECT_TRUE(controller().closeProjectPrompt());
    EXPECT_FALSE(QFile::exists(moved));
    openSample();
    EXPECT_TRUE(QFile::exists(lockFile()));
    shell.closeWindows();
    shell.mainController = {};
    EXPECT_FALSE(QFile::exists(lockFile())) << "also where the program ends with the project open";
}

TEST_F(TwoPrograms, OpeningAsksWhereAnotherOneHasTheProject)
{
    open(QStringLiteral("PORTADOWN.TLX"), QStringLiteral("other.TLX"));
    const auto* before = controller().dbProject();
    QDir().mkpath(here(QStringLiteral("Проекты/LURGAN")));
    lockBySomebodyElse();
    {
        const ButtonAnswers answers;
        openSample();
        ASSERT_EQ(answers.boxes().size(), 1);
        EXPECT_TRUE(answers.boxes()[0].contains(QStringLiteral("Петров, компьютер ПК-7, с ")));
    }
    EXPECT_TRUE(controller().openFailed());
    EXPECT_EQ(controller().dbProject(), before);
    {
        const ButtonAnswers answers({view});
        openSample();
    }
    EXPECT_FALSE(controller().openFailed());
    EXPECT_EQ(controller().dbProject()->getProjectCode(), L"20-1040");
    EXPECT_TRUE(content(lockFile()).contains("token=00ff"));
    {
        const ButtonAnswers answers({seize});
        openSample();
        EXPECT_EQ(answers.boxes().size(), 1);
    }
    EXPECT_FALSE(content(lockFile()).contains("token=00ff"));
    EXPECT_TRUE(controller().saveProject());
}

TEST_F(TwoPrograms, SavingWhereAnotherOneHasTheProjectNeedsTheUsersWord)
{
    openSample();
    const QByteArray before = content(place());
    type(L"моё");
    lockBySomebodyElse();
    controller().giveSignOfLife();
    EXPECT_TRUE(status().contains(QStringLiteral("Проект занял другой пользователь (Петров")));
    {
        const ButtonAnswers answers({QString(), QString()});
        expireTimer();
        EXPECT_TRUE(answers.boxes().isEmpty());
        EXPECT_TRUE(status().startsWith(QStringLiteral("Автосохранение ждёт: проект открыт")));
        EXPECT_FALSE(controller().saveProject());
        EXPECT_EQ(answers.boxes().size(), 1);
        EXPECT_TRUE(status().startsWith(QStringLiteral("Проект не сохранён: проект открыт")));
        EXPECT_EQ(content(place()), before);
        EXPECT_TRUE(content(lockFile()).contains("token=00ff"));
    }
    {
        // No at the second question: the project stays open, as after any save that fails.
        const ButtonAnswers answers({QStringLiteral("&Yes"), QString()});
        EXPECT_FALSE(controller().closeProjectPrompt());
        EXPECT_NE(controller().dbProject(), nullptr);
    }
    const ButtonAnswers answers({saveAllTheSame});
    EXPECT_TRUE(controller().saveProject());
    EXPECT_NE(content(place()), before);
    EXPECT_EQ(content(here(QStringLiteral("Проекты/LURGAN/LURGAN.bak"))), before);
    EXPECT_FALSE(content(lockFile()).contains("token=00ff"));
    EXPECT_TRUE(controller().saveProject());
    EXPECT_EQ(answers.boxes().size(), 1) << "it is ours now";
}

TEST_F(TwoPrograms, FileThatWasChangedByOthersIsNotWrittenOverWithoutAWord)
{
    openSample();
    const QByteArray sample = content(place());
    const auto rewrite = [](const QByteArray& bytes) {
        write(place(), bytes);
        QFile file(place());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime::currentDateTime().addSecs(-90), QFileDevice::FileModificationTime);
    };
    {
        const ButtonAnswers answers;
        rewrite(sample);
        EXPECT_TRUE(controller().saveProject()) << "another time, the same content";
        QFile::remove(place());
        EXPECT_TRUE(controller().saveProject()) << "what is gone is nobody's work";
        EXPECT_TRUE(answers.boxes().isEmpty());
    }
    const QByteArray foreign = content(QStringLiteral(TELLURIX_SAMPLES "/PORTADOWN.TLX"));
    rewrite(foreign);
    {
        const ButtonAnswers answers;
        expireTimer();
        EXPECT_TRUE(answers.boxes().isEmpty());
        EXPECT_TRUE(status().startsWith(QStringLiteral("Автосохранение ждёт: файл проекта изменила")));
        EXPECT_FALSE(controller().saveProject());
        EXPECT_EQ(answers.boxes().size(), 1);
        EXPECT_EQ(content(place()), foreign);
    }
    const ButtonAnswers answers({saveAllTheSame});
    EXPECT_TRUE(controller().saveProject());
    EXPECT_EQ(content(place()), sample);
    EXPECT_EQ(content(here(QStringLiteral("Проекты/LURGAN/LURGAN.bak"))), foreign);
    EXPECT_TRUE(controller().saveProject());
    EXPECT_EQ(answers.boxes().size(), 1);
}

TEST_F(TwoPrograms, CodeIsNotWrittenIntoAProjectThatAnotherOneHasOpen)
{
    openSample();
    {
        const MessageAnswers no({QMessageBox::No});
        EXPECT_TRUE(controller().closeProjectPrompt());
    }
    const QByteArray before = content(place());
    lockBySomebodyElse();
    controller().setProjectCodeOf(place().toStdWString(), L"Ш-7");
    EXPECT_EQ(content(place()), before);
    QFile::remove(lockFile());
    controller().setProjectCodeOf(place().toStdWString(), L"Ш-7");
    EXPECT_EQ(controller().projectCodeOf(place().toStdWString()), L"Ш-7");
    EXPECT_FALSE(QFile::exists(lockFile()));
}
