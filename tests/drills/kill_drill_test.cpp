// Kills a program that saves without a pause, at random moments, and looks at what it left.

#include "app/project_writer.h"
#include "generated_site.h"
#include "site/plain_settings.h"
#include "support/project_bytes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int kills = TELLURIX_KILLS;
// Each of these begins in an empty work folder and is killed in the first save of all.
constexpr int firstSaves = kills / 10;

std::optional<Bytes> contentOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return {};
    return Bytes{std::istreambuf_iterator<char>(file), {}};
}

// Two states of one project and their bytes.
using Writers = std::array<ProjectWriter, 2>;
using Contents = std::array<Bytes, 2>;

// Another process, saving the two states in turn to the same place, which says so after each save.
class Saver
{
public:
    Saver(const Writers& writers, std::size_t next)
    {
        if (::pipe(pipe_.data()) != 0)
            return;
        process_ = ::fork();
        if (process_ != 0)
            return;
        for (;; next = 1 - next)
            if (!writers[next].write() || ::write(pipe_[1], ".", 1) != 1)
                ::_exit(1);
    }
    ~Saver()
    {
        for (const int end : pipe_)
            ::close(end);
    }
    Saver(const Saver&) = delete;
    Saver& operator=(const Saver&) = delete;

    bool waitForSave()
    {
        char said = 0;
        return ::read(pipe_[0], &said, 1) == 1;
    }
    // True where it was at work until then.
    bool kill() const
    {
        int status = 0;
        return ::kill(process_, SIGKILL) == 0 && ::waitpid(process_, &status, 0) == process_
            && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

private:
    std::array<int, 2> pipe_ = {-1, -1};
    pid_t process_ = -1;
};

Reference<DBProject> site(std::size_t points)
{
    auto project = generatedSite(points);
    project->setFilePath(L"Участок.TLX");
    project->setFileStem(L"Участок");
    return project;
}

class KillDrill : public testing::Test
{
protected:
    void SetUp() override
    {
        settings.setProjectPath(folder.file(L""));
        for (const Bytes& content : contents)
            ASSERT_TRUE(openBytes(content));
        ASSERT_NE(contents[0], contents[1]);
        emptyWorkFolder();
    }
    void emptyWorkFolder() const
    {
        fs::remove_all(projects());
        fs::create_directory(projects());
    }
    fs::path projects() const { return folder.path() / u8"Проекты"; }
    fs::path place() const { return projects() / u8"Участок"; }
    fs::path file() const { return place() / u8"Участок.TLX"; }
    bool isWhole(const Bytes& content) const
    {
        return std::find(contents.begin(), contents.end(), content) != contents.end();
    }
    std::ptrdiff_t temporaries() const
    {
        if (!fs::exists(place()))
            return 0;
        return std::count_if(fs::directory_iterator(place()), {}, [](const auto& entry) {
            return entry.path().extension() == ".tmp";
        });
    }
    // How long one save takes here, by the median.
    microseconds saveTime() const
    {
        std::vector<steady_clock::duration> times;
        for (int i = 0; i < 9; ++i) {
            const auto start = steady_clock::now();
            EXPECT_TRUE(writers[static_cast<std::size_t>(i % 2)].write());
            times.push_back(steady_clock::now() - start);
        }
        std::sort(times.begin(), times.end());
        return std::chrono::duration_cast<microseconds>(times[times.size() / 2]);
    }

    const TemporaryFolder folder;
    PlainSettings settings;
    // Large enough to be written while they are being encoded.
    const std::array<Reference<DBProject>, 2> sites = {site(500), site(700)};
    const Writers writers = {
        ProjectWriter{sites[0].get(), &settings}, ProjectWriter{sites[1].get(), &settings}};
    const Contents contents = {encodeProject(*sites[0]), encodeProject(*sites[1])};
};

} // namespace

TEST_F(KillDrill, ProjectOrItsBackupIsWholeWheneverTheProgramDies)
{
    const auto oneSave = saveTime();
    std::mt19937 random(20260);
    std::uniform_int_distribution<long> delay(0, 2 * oneSave.count());
    int inFirstSave = 0;
    int inBackup = 0;
    int inProject = 0;
    int between = 0;
    for (int i = 0; i < kills; ++i) {
        const bool isFirstSave = i < firstSaves;
        if (isFirstSave)
            emptyWorkFolder();
        // What a save has finished differs from the backup only if it differs from what was there before.
        const std::size_t next = contentOf(file()) == contents[0] ? 1 : 0;
        Saver saver(writers, next);
        if (!isFirstSave) {
            ASSERT_TRUE(saver.waitForSave()) << "what the last kill left disturbs the next save, kill " << i;
        }
        std::this_thread::sleep_for(microseconds(delay(random) / (isFirstSave ? 2 : 1)));
        ASSERT_TRUE(saver.kill()) << "kill " << i;

        const auto saved = contentOf(file());
        const auto backup = contentOf(place() / u8"Участок.bak");
        ASSERT_TRUE(saved || isFirstSave) << "kill " << i;
        ASSERT_TRUE(!saved || isWhole(*saved)) << "kill " << i;
        ASSERT_TRUE(!backup || isWhole(*backup)) << "kill " << i;
        ASSERT_LE(temporaries(), 1) << "kill " << i;
        // A finished save leaves a backup that differs from the project.
        if (!saved)
            inFirstSave += fs::exists(place()) ? 1 : 0;
        else if (backup == saved)
            (temporaries() == 1 ? inProject : between) += 1;
        else
            inBackup += temporaries() == 1 ? 1 : 0;
    }
    const int hits = inFirstSave + inBackup + between + inProject;
    std::printf(
        "%d kills, saves of %zu and %zu kB in %.1f ms: %d while the disk was at it (%d in a first save, "
        "%d in the backup, %d behind it, %d in the project)\n",
        kills,
        contents[0].size() / 1024,
        contents[1].size() / 1024,
        static_cast<double>(oneSave.count()) / 1000,
        hits,
        inFirstSave,
        inBackup,
        between,
        inProject);
    // How long each step takes is the disk's business; that steps were hit at all is ours.
    EXPECT_GE(hits, kills / 10);

    ASSERT_TRUE(writers[1].write());
    EXPECT_EQ(contentOf(file()), contents[1]);
    EXPECT_EQ(temporaries(), 0) << "the last save takes away what the dead left";
}
