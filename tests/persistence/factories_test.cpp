#include "persistence/file_bytes.h"
#include "persistence/file_head.h"
#include "persistence/project_file.h"
#include "platform/safe_write.h"
#include "support/project_bytes.h"
#include "support/random_project.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>

namespace
{

// The message of an MException, with its code behind a bar.
template <class Act>
std::wstring failureOf(Act act)
{
    try {
        act();
    } catch (const MException& failure) {
        return failure.message() + L"|" + std::to_wstring(failure.code());
    }
    return L"none";
}

// A file of these bytes in the folder; returns its path.
std::wstring fileOf(const TemporaryFolder& folder, const std::wstring& name, const Bytes& bytes)
{
    EXPECT_TRUE(replaceFile(folder.file(name), bytes));
    return folder.file(name);
}

} // namespace

TEST(FileBytes, EveryFailureIsTheOneMessage)
{
    const TemporaryFolder folder;
    const auto failure = [](const std::wstring& path) {
        return failureOf([&] {
            Bytes bytes;
            readFileBytes(path, bytes);
        });
    };
    EXPECT_EQ(failure(L"/нет такого.TLX"), L"Can't open file /нет такого.TLX|0");
    EXPECT_EQ(failure(L"/tmp"), L"Can't open file /tmp|0");
    EXPECT_EQ(failure(L""), L"Can't open file |0");
    const std::wstring one = fileOf(folder, L"one.TLX", {'T'});
    EXPECT_EQ(failure(one), L"Can't open file " + one + L"|0");
    const std::wstring two = fileOf(folder, L"two.TLX", {'T', 'e'});
    EXPECT_EQ(failure(two), L"none");
}

TEST(FileHead, SignatureVersionAndLength)
{
    Bytes head = {'T', 'e', 'l', 'l', 'u', 'r', 'i', 'x', 'D', 'B', 0, 9, 104, 0, 0, 0};
    std::size_t position = 0;
    EXPECT_TRUE(checkProjectHead(head, position));
    EXPECT_EQ(position, 16U);
    for (const std::size_t changed : {0U, 9U, 10U, 12U, 15U}) {
        Bytes other = head;
        ++other[changed];
        position = 3;
        EXPECT_FALSE(checkProjectHead(other, position)) << changed;
        EXPECT_EQ(position, 3U);
    }
    head.pop_back();
    EXPECT_THROW(checkProjectHead(head, position), std::out_of_range);
}

TEST(Factory, NeedsAPathAndBytes)
{
    const Bytes bytes = {1, 2};
    const Bytes none;
    const auto make = [](const std::wstring& path, const Bytes& content) {
        try {
            makeReference<DBFromFilev104Factory>(path, content);
        } catch (const std::wstring& failure) {
            return failure;
        }
        return std::wstring();
    };
    EXPECT_EQ(make(L"", bytes), L"Bad params");
    EXPECT_EQ(make(L"a.TLX", none), L"Bad params");
    EXPECT_EQ(make(L"a.TLX", bytes), L"");
}

TEST(Factory, CutFilesNameThePathThatIsKnownByThen)
{
    const auto project = randomProject(3, false);
    const Bytes bytes = encodeProject(*project);
    // The path in the file ends behind 2 bytes, its length and its characters.
    const std::size_t knownFrom = 16 + 2 + 4 + project->getFilePath().size();
    for (std::size_t size = 16; size < bytes.size(); size += size < 2 * knownFrom ? 1 : 29) {
        const Bytes cut(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
        ReadReport report;
        const std::wstring path = size < knownFrom ? L"/дано.TLX" : project->getFilePath();
        ASSERT_EQ(failureOf([&] { openBytes(cut, report, L"/дано.TLX"); }),
            L"Critical Error reading the file " + path + L"|2")
            << "cut at " << size;
        ASSERT_LE(report.position, size);
        ASSERT_FALSE(report.failure.empty());
    }
}

// Four bytes of a small file as a count of four thousand million: quick, small, and never a crash.
TEST(Factory, HugeCountsFailAtOnce)
{
    // Checked builds open some ten times as slowly; the step is no multiple of four and so meets every field.
#ifdef TELLURIX_SANITIZED
    constexpr std::size_t step = 11;
#else
    constexpr std::size_t step = 1;
#endif
    const Bytes bytes = encodeProject(*randomProject(5, true));
    const auto begin = std::chrono::steady_clock::now();
    std::size_t files = 0;
    for (std::size_t at = 16; at + 4 <= bytes.size(); at += step, ++files) {
        Bytes damaged = bytes;
        std::fill_n(damaged.begin() + static_cast<std::ptrdiff_t>(at), 4, std::uint8_t{0xFF});
        failureOf([&] { openBytes(damaged); });
    }
    const auto spent = std::chrono::steady_clock::now() - begin;
    const auto each = std::chrono::duration_cast<std::chrono::microseconds>(spent) / files;
    EXPECT_LT(each.count(), 50000) << "per damaged file of " << bytes.size() << " bytes";
}

TEST(ProjectFile, IsLookedAtBySuffixAndHead)
{
    const TemporaryFolder folder;
    const Bytes good = encodeProject(*makeReference<DBProject>());
    const std::wstring lower = fileOf(folder, L"a.tlx", good);
    const std::wstring text = fileOf(folder, L"a.txt", good);
    Bytes older = good;
    older[12] = 103;
    const std::wstring old = fileOf(folder, L"b.TLX", older);
    const std::wstring brief = fileOf(folder, L"c.TLX", {'T', 'e', 'l'});
    Bytes bytes;
    EXPECT_EQ(lookAtProjectFile(lower, bytes), ProjectFileState::current);
    EXPECT_EQ(bytes, good);
    EXPECT_EQ(lookAtProjectFile(text, bytes), ProjectFileState::wrongSuffix);
    EXPECT_EQ(lookAtProjectFile(old, bytes), ProjectFileState::otherVersion);
    EXPECT_EQ(lookAtProjectFile(L"/нет.TLX", bytes), ProjectFileState::missing);
    EXPECT_THROW(lookAtProjectFile(brief, bytes), std::out_of_range);
}

TEST(ProjectFile, IsWrittenWholeOrNotAtAll)
{
    const TemporaryFolder folder;
    const auto project = randomProject(9, false);
    const std::wstring target = fileOf(folder, L"w.TLX", {1, 2, 3});
    ASSERT_TRUE(writeProjectFile(target, *project));
    Bytes bytes;
    ASSERT_TRUE(readFile(target, bytes));
    EXPECT_EQ(bytes, encodeProject(*project));
    EXPECT_FALSE(writeProjectFile(L"/нет такой папки/w.TLX", *project));
}
