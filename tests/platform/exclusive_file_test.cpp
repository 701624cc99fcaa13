#include "platform/exclusive_file.h"
#include "platform/files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <vector>

TEST(ExclusiveFile, IsWrittenByTurns)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"счётчик");
    constexpr int programs = 4;
    constexpr int rounds = 50;
    std::vector<std::thread> threads;
    threads.reserve(programs);
    for (int i = 0; i < programs; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                ExclusiveFile file(path, ExclusiveFile::IfMissing::Create);
                ASSERT_TRUE(file.result());
                const std::string before = file.read();
                std::this_thread::yield();
                EXPECT_TRUE(file.write(std::to_string(before.empty() ? 1 : std::stoi(before) + 1)));
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(ExclusiveFile(path, ExclusiveFile::IfMissing::Fail).read(), std::to_string(programs * rounds));
}

TEST(ExclusiveFile, TellsWhoMadeItAndGoesWhenTakenAway)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.TLX.lock");
    EXPECT_EQ(ExclusiveFile(path, ExclusiveFile::IfMissing::Fail).result().step, FileStep::Open);
    EXPECT_EQ(fileKind(path), FileKind::Missing);
    EXPECT_EQ(ExclusiveFile(folder.file(L"нет\\a"), ExclusiveFile::IfMissing::Create).result().step,
        FileStep::Open);
    {
        ExclusiveFile file(path, ExclusiveFile::IfMissing::Create);
        ASSERT_TRUE(file.result());
        EXPECT_TRUE(file.isNew());
        EXPECT_TRUE(file.write("длинная строка"));
        EXPECT_TRUE(file.write("ab"));
    }
    std::vector<std::uint8_t> bytes;
    ASSERT_TRUE(readFile(path, bytes));
    EXPECT_EQ(bytes, (std::vector<std::uint8_t>{'a', 'b'}));
    // The next in the queue waits, and then gets a file of its own: the first one's is gone.
    std::optional<ExclusiveFile> first;
    first.emplace(path, ExclusiveFile::IfMissing::Create);
    EXPECT_FALSE(first->isNew());
    std::thread next([&] {
        ExclusiveFile file(path, ExclusiveFile::IfMissing::Create);
        EXPECT_TRUE(file.result());
        EXPECT_TRUE(file.isNew());
        EXPECT_EQ(file.read(), "");
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_TRUE(first->remove());
    first.reset();
    next.join();
    EXPECT_EQ(fileKind(path), FileKind::Regular);
}

TEST(ExclusiveFile, ATurnThatDoesNotEndIsNotWaitedForForEver)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a");
    const ExclusiveFile first(path, ExclusiveFile::IfMissing::Create);
    const ExclusiveFile second(path, ExclusiveFile::IfMissing::Create);
    EXPECT_FALSE(second.result());
    EXPECT_FALSE(second.result().reason.empty());
}
