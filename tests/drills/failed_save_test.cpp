// Saves that something stands in the way of, by the user's own action in the running program.

#include "drills/hindrances.h"
#include "generated_site.h"
#include "persistence/project_codec.h"
#include "program/program_test.h"
#include "support/project_bytes.h"

#include <QMessageBox>

#include <fstream>
#include <functional>
#include <memory>
#include <optional>

namespace
{

namespace fs = std::filesystem;

constexpr std::size_t roomy = 16384; // kilobytes
const std::vector<std::wstring> savingFailed = {L"Tellurix: Ошибка при сохранения проекта!"};

// The files of the open project and what is above them.
struct Place {
    fs::path work;
    fs::path projects = work / u8"Проекты";
    fs::path folder = projects / "UCHASTOK";
    fs::path file = folder / "UCHASTOK.TLX";
    fs::path backup = folder / "UCHASTOK.bak";
};

enum class Outcome {
    saved,
    failed, // and the old file or its backup is whole
    failedWithoutOld, // the old file was not there any more
};

using Holder = std::shared_ptr<void>;

struct Hindrance {
    const char* name;
    Outcome outcome;
    Holder (*raise)(const Place&);
};

// Something else in the place of a file, which comes back in the end.
Holder instead(const fs::path& path, void (*make)(const fs::path& path))
{
    auto away = std::make_shared<Away>(path);
    make(path);
    return away;
}

const Hindrance hindrances[] = {
    {"files may not grow",
        Outcome::failed,
        [](const Place&) -> Holder { return std::make_shared<FileSizeLimit>(100'000); }},
    {"a folder in the project's place",
        Outcome::failedWithoutOld,
        [](const Place& place) {
            return instead(place.file, [](const fs::path& path) { fs::create_directory(path); });
        }},
    {"a folder in the backup's place",
        Outcome::failed,
        [](const Place& place) {
            fs::create_directories(place.backup / "in it");
            return Holder(nullptr, [backup = place.backup](void*) { fs::remove_all(backup); });
        }},
    {"a device in the project's place",
        Outcome::failedWithoutOld,
        [](const Place& place) {
            return instead(place.file, [](const fs::path& path) { fs::create_symlink("/dev/full", path); });
        }},
    {"the file may not be written",
        Outcome::failed,
        [](const Place& place) -> Holder {
            return std::make_shared<Forbidden>(place.file, fs::perms::owner_read);
        }},
    {"the file may not be read",
        Outcome::failed,
        [](const Place& place) -> Holder {
            return std::make_shared<Forbidden>(place.file, fs::perms::owner_write);
        }},
    {"the folder takes no files and has no backup yet",
        Outcome::failed,
        [](const Place& place) -> Holder {
            return std::make_shared<Forbidden>(place.folder, fs::perms::owner_read | fs::perms::owner_exec);
        }},
    {"the folder takes no files but has a backup, and both may be written",
        Outcome::saved,
        [](const Place& place) -> Holder {
            fs::copy_file(place.file, place.backup);
            return std::make_shared<Forbidden>(place.folder, fs::perms::owner_read | fs::perms::owner_exec);
        }},
    {"the folder lets nobody in",
        Outcome::failed,
        [](const Place& place) -> Holder {
            return std::make_shared<Forbidden>(place.folder, fs::perms::none);
        }},
    {"the folder is gone",
        Outcome::saved,
        [](const Place& place) {
            fs::remove_all(place.folder);
            return Holder();
        }},
    {"the folder of the projects is gone",
        Outcome::failedWithoutOld,
        [](const Place& place) -> Holder { return std::make_shared<Away>(place.projects); }},
    {"the folder of the projects is gone, a file has its name",
        Outcome::failedWithoutOld,
        [](const Place& place) {
            return instead(place.projects, [](const fs::path& path) { std::ofstream(path) << "no folder"; });
        }},
    {"a link to where there is no folder",
        Outcome::failedWithoutOld,
        [](const Place& place) {
            return instead(place.file,
                [](const fs::path& path) { fs::create_symlink("/nowhere/at all/UCHASTOK.TLX", path); });
        }},
    {"a link to itself",
        Outcome::failedWithoutOld,
        [](const Place& place) {
            return instead(
                place.file, [](const fs::path& path) { fs::create_symlink("UCHASTOK.TLX", path); });
        }},
    {"a link to a file that is gone, in a folder that is there",
        Outcome::saved,
        [](const Place& place) {
            fs::rename(place.file, place.folder / "far.TLX");
            fs::create_symlink("far2.TLX", place.file);
            return Holder();
        }},
};

class FailedSave : public ProgramTest
{
protected:
    void SetUp() override
    {
        ProgramTest::SetUp();
        place = {fs::path(here(QString()).toStdU16String())};
    }

    // A project on the disk and another state of it, larger, in the program.
    void openAndEdit(std::size_t points = 60)
    {
        std::error_code ignored;
        fs::remove_all(place.folder, ignored);
        fs::create_directories(place.folder);
        const auto project = generatedSite(points);
        project->setFilePath(L"UCHASTOK.TLX");
        project->setFileStem(L"UCHASTOK");
        old = encodeProject(*project);
        std::ofstream(place.file, std::ios::binary)
            .write(reinterpret_cast<const char*>(old.data()), static_cast<std::streamsize>(old.size()));
        controller().setProjectPath(QString::fromStdU16String(place.file.u16string()).toStdWString());
        controller().openProject();
        ASSERT_FALSE(controller().openFailed());
        controller().project()->setProjectCode(L"20-1040/26");
        controller().project()->setLithology(generatedSite(2 * points)->getLithology());
        edited = inMemory();
        ASSERT_GT(edited.size(), old.size());
    }
    Bytes inMemory() { return encodeProject(*controller().project()); }
    static fs::path pathOf(const std::wstring& text)
    {
        return QString::fromStdWString(text).toStdU16String();
    }
    static std::optional<Bytes> contentOf(const fs::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        if (!file || !fs::is_regular_file(path))
            return {};
        return Bytes{std::istreambuf_iterator<char>(file), {}};
    }
    // What the program said to a save by the menu.
    std::vector<std::wstring> save()
    {
        MessageAnswers answers;
        action(ShellAction::Save)->trigger();
        return answers.boxes();
    }
    bool oldIsThere() const { return contentOf(place.file) == old || contentOf(place.backup) == old; }
    void expectSaved()
    {
        EXPECT_EQ(save(), std::vector<std::wstring>());
        EXPECT_EQ(contentOf(place.file), edited);
        EXPECT_TRUE(openBytes(edited));
        std::vector<fs::path> temporaries;
        for (const auto& entry : fs::directory_iterator(place.folder))
            if (entry.path().extension() == ".tmp")
                temporaries.push_back(entry.path());
        EXPECT_EQ(temporaries, std::vector<fs::path>());
    }

    Place place;
    Bytes old;
    Bytes edited;
};

} // namespace

TEST_F(FailedSave, TellsTheUserAndLosesNothing)
{
    for (const Hindrance& hindrance : hindrances) {
        SCOPED_TRACE(hindrance.name);
        openAndEdit();
        {
            const Holder held = hindrance.raise(place);
            const bool saved = hindrance.outcome == Outcome::saved;
            EXPECT_EQ(save(), saved ? std::vector<std::wstring>() : savingFailed);
            EXPECT_EQ(saved, contentOf(place.file) == edited);
        }
        EXPECT_EQ(inMemory(), edited);
        if (hindrance.outcome == Outcome::failed) {
            EXPECT_TRUE(oldIsThere());
        }
        expectSaved();
    }
}

// The limit strikes in the backup's copy or behind it, and where the folder takes no new file in the midst of
// the file itself: then its old content comes back.
TEST_F(FailedSave, OnAFullFileSystem)
{
    openAndEdit();
    const std::size_t kilobytes[] = {old.size() / 1024, edited.size() / 1024};
    struct {
        const char* name;
        std::size_t size; // kB
        bool folderTakesFiles;
    } const rows[] = {
        {"full with the project alone", kilobytes[0] + 30, true},
        {"full in the midst of the backup", kilobytes[0] * 3 / 2, true},
        {"full behind the backup", kilobytes[0] * 2 + 30, true},
        {"full in the midst of the project", kilobytes[0] * 2 + kilobytes[1] / 2, true},
        {"full while the project itself is written over", (3 * kilobytes[0] + kilobytes[1]) / 2, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        fs::create_directories(place.folder);
        const SmallFileSystem small(place.folder, row.size);
        if (!small.refusal().empty())
            GTEST_SKIP() << small.refusal();
        openAndEdit();
        if (!row.folderTakesFiles)
            fs::copy_file(place.file, place.backup);
        std::optional<Forbidden> forbidden;
        if (!row.folderTakesFiles)
            forbidden.emplace(place.folder, fs::perms::owner_read | fs::perms::owner_exec);
        EXPECT_EQ(save(), savingFailed);
        EXPECT_EQ(contentOf(place.file), old);
        forbidden.reset();
        EXPECT_EQ(inMemory(), edited);
        ASSERT_TRUE(small.resize(roomy));
        expectSaved();
    }
}

TEST_F(FailedSave, ThroughALinkToAnotherFileSystem)
{
    openAndEdit();
    const fs::path far = place.work / "far";
    fs::create_directories(far);
    const SmallFileSystem small(far, old.size() * 3 / 2 / 1024);
    if (!small.refusal().empty())
        GTEST_SKIP() << small.refusal();
    fs::copy_file(place.file, far / "far.TLX");
    fs::remove(place.file);
    fs::create_symlink(far / "far.TLX", place.file);
    EXPECT_EQ(save(), savingFailed) << "the other file system is full";
    EXPECT_EQ(contentOf(far / "far.TLX"), old);
    EXPECT_EQ(contentOf(place.backup), old) << "the backup stands beside the link";
    ASSERT_TRUE(small.resize(roomy));
    expectSaved();
    EXPECT_TRUE(fs::is_symlink(place.file));
    EXPECT_EQ(contentOf(far / "far.TLX"), edited);
}

TEST_F(FailedSave, WithoutMemoryForIt)
{
#ifdef TELLURIX_SANITIZED
    GTEST_SKIP() << "the sanitizer's own map of the memory is larger than any limit";
#endif
    openAndEdit(2500);
    ASSERT_GT(edited.size(), 10'000'000U);
    {
        const MemoryLimit limit(2'000'000);
        EXPECT_EQ(save(), savingFailed);
    }
    EXPECT_EQ(contentOf(place.file), old);
    EXPECT_EQ(inMemory(), edited);
    expectSaved();
}

TEST_F(FailedSave, WithAPlaceThatNoSystemTakes)
{
    openAndEdit();
    const std::wstring longest(125, L'ы'); // with .TLX 254 of 255 bytes
    controller().project()->setFileStem(longest);
    controller().project()->setFilePath(longest + L".TLX");
    EXPECT_EQ(save(), std::vector<std::wstring>());
    EXPECT_EQ(save(), std::vector<std::wstring>()) << "with a backup";
    const fs::path folder = place.projects / pathOf(longest);
    EXPECT_EQ(contentOf(folder / pathOf(longest + L".TLX")), inMemory());

    controller().project()->setFilePath(longest + L"ы.TLX");
    EXPECT_EQ(save(), savingFailed);
    controller().project()->setFileStem(longest + longest);
    EXPECT_EQ(save(), savingFailed);
    std::wstring deep = shell.settings->projectPath();
    shell.settings->setProjectPath(deep + std::wstring(5000, L'/'));
    EXPECT_EQ(save(), savingFailed);
    shell.settings->setProjectPath(deep);
    controller().project()->setFilePath(L"UCHASTOK.TLX");
    controller().project()->setFileStem(L"UCHASTOK");
    expectSaved();
}

// Whether it is the timer's own box or the user's that is open: never a second one above it.
TEST_F(FailedSave, TheTimerShowsOneBoxAtATime)
{
    openAndEdit();
    fs::create_directories(place.backup / "in it");
    shell.settings->setIsSetTimer(true);
    shell.settings->setTimer(1);
    controller().setAutoSave();
    auto* autoSave = shell.mainWindow->findChild<QTimer*>(QStringLiteral("autoSave"));
    ASSERT_NE(autoSave, nullptr);

    std::size_t mostBoxes = 0;
    int seen = 0;
    int looks = 0;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &user, [&] {
        std::vector<QMessageBox*> open;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(window); box && box->isVisible())
                open.push_back(box);
        mostBoxes = std::max(mostBoxes, open.size());
        if (open.empty() || ++looks % 20 != 0)
            return;
        ++seen;
        open.back()->accept();
    });
    user.start(5);
    autoSave->setInterval(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return seen >= 3; }, 60000)) << "the timer goes on trying";

    autoSave->setInterval(10'000'000);
    seen = 0;
    int ticks = 0;
    QObject::connect(autoSave, &QTimer::timeout, &user, [&] { ++ticks; });
    QTimer::singleShot(0, &user, [&] { autoSave->setInterval(10); });
    action(ShellAction::Save)->trigger();
    EXPECT_GE(seen, 1);
    EXPECT_GT(ticks, 2);
    EXPECT_EQ(mostBoxes, 1U);

    autoSave->stop();
    EXPECT_EQ(inMemory(), edited);
    EXPECT_TRUE(oldIsThere());
    fs::remove_all(place.backup);
    autoSave->start(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return contentOf(place.file) == edited; }, 60000));
    autoSave->stop();
}
