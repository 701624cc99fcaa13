#include "platform/files.h"
#include "platform/safe_write.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <new>
#include <span>
#include <string>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

std::string contentOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void put(const fs::path& path, const std::string& content)
{
    std::ofstream(path, std::ios::binary) << content;
}

mode_t permissionsOf(const fs::path& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

const Bytes newContent = {'n', 'e', 'w'};

// Runs the check in a child, which may change its limits or its user for good. True where it said so.
bool inChild(const std::function<bool()>& check)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(check() ? 0 : 1);
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// The administrator may write everywhere; permissions bind only the others.
bool becomeOrdinaryUser()
{
    constexpr uid_t nobody = 65534;
    return ::geteuid() != 0 || (::setgid(nobody) == 0 && ::setuid(nobody) == 0);
}

} // namespace

TEST(SafeWrite, KeepsThePermissions)
{
    const TemporaryFolder folder;
    put(folder.path() / "a.TLX", "old");
    fs::permissions(folder.path() / "a.TLX", fs::perms(0640));
    ASSERT_TRUE(replaceFile(folder.file(L"a.TLX"), newContent));
    EXPECT_EQ(permissionsOf(folder.path() / "a.TLX"), 0640U);
    ASSERT_TRUE(copyFile(folder.file(L"a.TLX"), folder.file(L"a.bak")));
    EXPECT_EQ(permissionsOf(folder.path() / "a.bak"), 0640U);

    const mode_t before = ::umask(027);
    EXPECT_TRUE(replaceFile(folder.file(L"b.TLX"), newContent));
    ::umask(before);
    EXPECT_EQ(permissionsOf(folder.path() / "b.TLX"), 0640U) << "a new file has what the user's mask leaves";
}

TEST(SafeWrite, KeepsLinksAndReplacesWhatTheyLeadTo)
{
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "store");
    put(folder.path() / "store" / "real.TLX", "old");
    fs::create_symlink("store/real.TLX", folder.path() / "second.TLX");
    fs::create_symlink(folder.path() / "second.TLX", folder.path() / "first.TLX");
    ASSERT_TRUE(replaceFile(folder.file(L"first.TLX"), newContent));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "first.TLX"));
    EXPECT_TRUE(fs::is_symlink(folder.path() / "second.TLX"));
    EXPECT_EQ(contentOf(folder.path() / "store" / "real.TLX"), "new");

    fs::remove(folder.path() / "store" / "real.TLX");
    ASSERT_TRUE(replaceFile(folder.file(L"first.TLX"), newContent)) << "the target of the link is gone";
    EXPECT_TRUE(fs::is_symlink(folder.path() / "first.TLX"));
    EXPECT_EQ(contentOf(folder.path() / "store" / "real.TLX"), "new");

    fs::create_symlink("loop.TLX", folder.path() / "loop.TLX");
    EXPECT_EQ(replaceFile(folder.file(L"loop.TLX"), newContent).step, FileStep::Open);
}

TEST(SafeWrite, PipesAndDevicesAreRefusedWithoutWaiting)
{
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder.path() / "pipe.TLX").c_str(), 0600), 0);
    Bytes bytes;
    for (const std::wstring& path : {folder.file(L"pipe.TLX"), std::wstring(L"/dev/zero")}) {
        EXPECT_EQ(readFile(path, bytes).step, FileStep::NotARegularFile);
        EXPECT_EQ(replaceFile(path, newContent).step, FileStep::NotARegularFile);
        EXPECT_EQ(copyFile(path, folder.file(L"copy")).step, FileStep::NotARegularFile);
    }
}

TEST(SafeWrite, AHugeSparseFileIsRefusedBeforeMemoryIsTaken)
{
    const TemporaryFolder folder;
    put(folder.path() / "a.TLX", "x");
    fs::resize_file(folder.path() / "a.TLX", largestReadableFile + 1);
    Bytes bytes;
    EXPECT_EQ(readFile(folder.file(L"a.TLX"), bytes).step, FileStep::TooLarge);
    EXPECT_EQ(bytes.capacity(), 0U);
}

TEST(SafeWrite, AFullDiskLeavesTheOldFileWhole)
{
    const TemporaryFolder folder;
    put(folder.path() / "a.TLX", "old");
    put(folder.path() / "big", std::string(300'000, 'b'));
    EXPECT_TRUE(inChild([&folder] {
        // A write beyond the limit takes what fits and then fails, as one on a full disk does.
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {100'000, 100'000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return false;
        const FileResult saved = replaceFile(folder.file(L"a.TLX"), Bytes(300'000, 1));
        const FileResult copied = copyFile(folder.file(L"big"), folder.file(L"a.TLX"));
        return saved.step == FileStep::Write && !saved.targetDamaged && !saved.reason.empty()
            && copied.step == FileStep::Write && !copied.targetDamaged;
    }));
    EXPECT_EQ(contentOf(folder.path() / "a.TLX"), "old");
    EXPECT_EQ(folder.content().size(), 2U) << "no temporary file stays behind";
}

TEST(SafeWrite, TakesAwayTheTemporaryFilesOfDeadProgramsAlone)
{
    const TemporaryFolder folder;
    const pid_t dead = ::fork();
    if (dead == 0)
        ::_exit(0);
    ASSERT_EQ(::waitpid(dead, nullptr, 0), dead);
    const std::string ofDead = ".tellurix-" + std::to_string(dead);
    const std::string held = ofDead + "-1.tmp";
    const std::vector<std::string> kept = {held,
        ".tellurix-" + std::to_string(::getppid()) + "-0.tmp",
        ofDead + "-.tmp",
        ofDead + "-0.tmp.txt",
        "x" + ofDead + "-0.tmp"};
    for (const std::string& name : kept)
        put(folder.path() / name, "kept");
    put(folder.path() / (ofDead + "-0.tmp"), "gone");
    put(folder.path() / ('~' + ofDead.substr(1) + "-7.tmp"), "gone");
    const int other = ::open((folder.path() / held).c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0) << "as a program of another computer holds it";
    ASSERT_TRUE(replaceFile(folder.file(L"a.TLX"), newContent));
    ::close(other);
    EXPECT_EQ(folder.content().size(), kept.size() + 1);
    for (const std::string& name : kept)
        EXPECT_TRUE(fs::exists(folder.path() / name)) << name;
}

TEST(SafeWrite, AFileThatMayNotBeWrittenIsRefused)
{
    const TemporaryFolder folder;
    put(folder.path() / "a.TLX", "old");
    fs::permissions(folder.path() / "a.TLX", fs::perms(0444));
    fs::permissions(folder.path(), fs::perms(0777));
    EXPECT_TRUE(inChild([&folder] {
        return becomeOrdinaryUser() && replaceFile(folder.file(L"a.TLX"), newContent).step == FileStep::Open;
    }));
    EXPECT_EQ(contentOf(folder.path() / "a.TLX"), "old");
}

TEST(SafeWrite, WhereTheFolderTakesNoFileTheTargetIsOverwritten)
{
    const TemporaryFolder folder;
    put(folder.path() / "a.TLX", "old and longer");
    put(folder.path() / "b.TLX", "copied");
    fs::permissions(folder.path() / "a.TLX", fs::perms(0666));
    fs::permissions(folder.path(), fs::perms(0555));
    EXPECT_TRUE(inChild([&folder] {
        return becomeOrdinaryUser() && replaceFile(folder.file(L"a.TLX"), newContent)
            && replaceFile(folder.file(L"new.TLX"), newContent).step == FileStep::Open;
    }));
    EXPECT_EQ(contentOf(folder.path() / "a.TLX"), "new");
    // Who did not keep what was handed over makes it again, and if that fails nothing is lost.
    const auto overwritten = [&folder](const std::function<ByteBlocks()>& makeAgain) {
        FileReplacement file(folder.file(L"a.TLX"));
        const Bytes first = {'g', 'o', 'n', 'e'};
        const std::span<const std::uint8_t> part(first);
        file.add(FileParts(&part, 1));
        return static_cast<bool>(file.finish(makeAgain));
    };
    EXPECT_TRUE(inChild([&] {
        return becomeOrdinaryUser() && overwritten([] {
            ByteBlocks again;
            const auto room = again.open(5);
            std::copy_n("again", 5, room.begin());
            again.close(room.data() + 5);
            return again;
        });
    }));
    EXPECT_EQ(contentOf(folder.path() / "a.TLX"), "again");
    EXPECT_TRUE(inChild([&] {
        try {
            return becomeOrdinaryUser() && overwritten([]() -> ByteBlocks { throw std::bad_alloc(); });
        } catch (const std::bad_alloc&) {
            return true;
        }
    }));
    EXPECT_EQ(contentOf(folder.path() / "a.TLX"), "again");
    EXPECT_TRUE(inChild([&folder] {
        return becomeOrdinaryUser() && copyFile(folder.file(L"b.TLX"), folder.file(L"a.TLX"));
    }));
    EXPECT_EQ(contentOf(folder.path() / "a.TLX"), "copied");

    EXPECT_TRUE(inChild([&folder] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {100'000, 100'000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0 || !becomeOrdinaryUser())
            return false;
        return replaceFile(folder.file(L"a.TLX"), Bytes(300'000, 1)).targetDamaged;
    }));
    fs::permissions(folder.path(), fs::perms(0755));
}
