// A program that dies: what was typed comes back at the next start.

#include "db/exact_key.h"
#include "program/program_test.h"
#include "shell/button_answers.h"

#include <QProcess>

#include <cstdio>

namespace
{

constexpr int depthColumn = 0;

QString copiesFolder()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/Восстановление");
}

class Crash : public ProgramTest
{
protected:
    // The test itself says when its program begins.
    void SetUp() override { QDir(copiesFolder()).removeRecursively(); }
    void TearDown() override
    {
        ProgramTest::TearDown();
        QDir(copiesFolder()).removeRecursively();
    }
    // On what is there.
    void startAgain()
    {
        shell.settings = makeReference<Settings>();
        shell.settings->initialise();
        ASSERT_TRUE(assembleShell(shell));
        QCoreApplication::processEvents();
    }
    static QStringList copies() { return QDir(copiesFolder()).entryList({QStringLiteral("*.TLX")}); }
};

// The process that is killed, run by the test below.
using Victim = ProgramTest;

} // namespace

TEST_F(Victim, DISABLED_TypesAndWaitsForItsEnd)
{
    openFromCommandLine(controller(), project(QStringLiteral("LURGAN")).toLocal8Bit().constData());
    action(ShellAction::Litology)->trigger();
    type(table(ModeLitology), 0, depthColumn, QStringLiteral("0.07"));
    controller().keepRecoveryCopy();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !controller().isCopying(); }, 20000));
    std::printf("point %ls.\n", shell.controller->editedSample().c_str());
    std::fflush(stdout);
    QTest::qWait(600000);
}

TEST_F(Crash, CostsNothingThatWasTyped)
{
    QProcess victim;
    victim.start(QCoreApplication::applicationFilePath(),
        {QStringLiteral("--gtest_also_run_disabled_tests"), QStringLiteral("--gtest_filter=Victim.*")});
    QByteArray output;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            output += victim.readAllStandardOutput();
            return output.contains(".\n") && output.contains("point ");
        },
        60000))
        << output.toStdString();
    const QString path = here(QStringLiteral("Проекты/LURGAN/LURGAN.TLX"));
    const QString lock = path + QStringLiteral(".lock");
    const QByteArray sample = content(QStringLiteral(TELLURIX_SAMPLES "/LURGAN.TLX"));
    EXPECT_TRUE(QFile::exists(lock));
    startAgain();
    {
        const ButtonAnswers answers;
        controller().offerRecovery();
        EXPECT_TRUE(answers.boxes().isEmpty()) << "the other program lives";
        openFromCommandLine(controller(), path.toLocal8Bit().constData());
        EXPECT_EQ(answers.boxes().size(), 1) << "and has the project open";
        EXPECT_TRUE(controller().openFailed());
        EXPECT_EQ(controller().dbProject(), nullptr);
    }
    victim.kill();
    ASSERT_TRUE(victim.waitForFinished());
    EXPECT_TRUE(QFile::exists(lock)) << "left behind";
    ASSERT_EQ(copies().size(), 1);

    {
        const ButtonAnswers answers({QStringLiteral("&Восстановить")});
        openFromCommandLine(controller(), path.toLocal8Bit().constData());
        EXPECT_NE(controller().dbProject(), nullptr);
        EXPECT_TRUE(answers.boxes().isEmpty()) << "a dead program asks nobody";
        controller().offerRecovery();
        EXPECT_EQ(answers.boxes().size(), 1);
    }
    const std::wstring point = QString::fromUtf8(output.mid(output.indexOf("point ") + 6))
                                   .section(QLatin1Char('.'), 0, 0)
                                   .toStdWString();
    auto& lithology = controller().dbProject()->getLithology();
    EXPECT_NE(findExact(lithology, {point, L"0.07"}), lithology.end());
    EXPECT_EQ(content(path), sample) << "the project's own file waits for a save";
    action(ShellAction::Litology)->trigger();
    EXPECT_EQ(cell(table(ModeLitology), 0, depthColumn), QStringLiteral("0.07"));
    EXPECT_TRUE(controller().saveProject());
    EXPECT_NE(content(path), sample);
    EXPECT_EQ(copies(), QStringList{});
    const MessageAnswers no({QMessageBox::No});
    action(ShellAction::Close)->trigger();
    EXPECT_FALSE(QFile::exists(lock));
}
