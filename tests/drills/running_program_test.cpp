// What happens to a program that is at work already: memory runs out, its folders vanish.

#include "drills/hindrances.h"
#include "generated_site.h"
#include "persistence/project_codec.h"
#include "program/program_test.h"
#include "support/project_bytes.h"

#include <fstream>

namespace
{

namespace fs = std::filesystem;

class RunningProgram : public ProgramTest
{
protected:
    static fs::path pathOf(const QString& text) { return text.toStdU16String(); }
    Bytes inMemory() { return encodeProject(*controller().project()); }
};

} // namespace

TEST_F(RunningProgram, KeepsItsProjectWhereMemoryIsTooShortForAnother)
{
#ifdef TELLURIX_SANITIZED
    GTEST_SKIP() << "the sanitizer's own map of the memory is larger than any limit";
#endif
    const fs::path large = pathOf(here(QStringLiteral("large.TLX")));
    {
        const Bytes bytes = encodeProject(*generatedSite(3000));
        std::ofstream(large, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    openFromCommandLine(controller(), project(QStringLiteral("LURGAN")).toLocal8Bit().constData());
    const IDBProject* const before = controller().project();
    ASSERT_NE(before, nullptr);
    const Bytes content = inMemory();
    int failures = 0;
    for (const std::size_t block : {1'000'000U, 3'000'000U, 8'000'000U, 12'000'000U, 16'000'000U}) {
        SCOPED_TRACE(block);
        MessageAnswers answers;
        {
            const MemoryLimit limit(block);
            controller().setProjectPath(QString::fromStdU16String(large.u16string()).toStdWString());
            controller().openProject();
        }
        if (!controller().openFailed())
            break;
        ++failures;
        EXPECT_EQ(answers.boxes().size(), 1U);
        ASSERT_EQ(controller().project(), before);
        EXPECT_EQ(inMemory(), content);
        MessageAnswers none;
        action(ShellAction::Save)->trigger();
        EXPECT_EQ(none.boxes(), std::vector<std::wstring>());
    }
    EXPECT_GE(failures, 3);
    controller().openProject();
    EXPECT_FALSE(controller().openFailed());
    EXPECT_NE(inMemory(), content); // not by its place, which the new one may have taken
}

TEST_F(RunningProgram, GoesOnWithoutItsWorkFolder)
{
    const fs::path work = pathOf(here(QStringLiteral("work")));
    const fs::path folder = work / u8"Проекты" / "LURGAN";
    fs::create_directories(folder);
    fs::copy_file(TELLURIX_SAMPLES "/LURGAN.TLX", folder / "LURGAN.TLX");
    shell.settings->setProjectPath(QString::fromStdU16String(work.u16string()).toStdWString());
    Q_EMIT bus(ModeProjects)->signalUpdateProjectsPath();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            const QTableView* list = table(ModeProjects);
            return list && list->model()->rowCount() == 1;
        },
        5000));
    {
        const Away away(work);
        const MessageAnswers answers;
        Q_EMIT bus(ModeProjects)->signalUpdateProjectsPath();
        // The table has given way to the words that there is nothing.
        EXPECT_TRUE(QTest::qWaitFor([&] { return table(ModeProjects) == nullptr; }, 60000));
        controller().newProject();
        EXPECT_FALSE(controller().saveProject());
        EXPECT_EQ(answers.boxes(), std::vector<std::wstring>{L"Tellurix: Ошибка при сохранения проекта!"});
        EXPECT_NE(controller().project(), nullptr);
    }
    MessageAnswers answers({QMessageBox::Yes});
    controller().closeProject();
    EXPECT_EQ(answers.boxes().size(), 1U);
    EXPECT_TRUE(fs::exists(work / u8"Проекты" / "TLXXXXX" / "TLXXXXX.TLX"));
    Q_EMIT bus(ModeProjects)->signalUpdateProjectsPath();
    EXPECT_TRUE(QTest::qWaitFor([&] { return table(ModeProjects) != nullptr; }, 60000));
}

// The file of settings is as good as before where the new one does not fit on the disk.
TEST_F(RunningProgram, SettingsStayWholeOnAFullDisk)
{
    shell.settings->setTimer(33);
    shell.settings->save();
    const QByteArray before = content(here(settingsFileName));
    ASSERT_TRUE(before.contains("timer=33"));
    shell.settings->setTimer(44);
    {
        const FileSizeLimit limit(1000);
        shell.settings->save();
    }
    EXPECT_EQ(content(here(settingsFileName)), before);
    shell.settings->save();
    EXPECT_TRUE(content(here(settingsFileName)).contains("timer=44"));
}
