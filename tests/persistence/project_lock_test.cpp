#include "persistence/project_lock.h"
#include "platform/files.h"
#include "platform/safe_write.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using State = ProjectLock::State;

namespace
{

class Locks : public testing::Test
{
protected:
    void write(const std::string& text, std::chrono::seconds age = {}) const
    {
        const std::vector<std::uint8_t> bytes(text.begin(), text.end());
        ASSERT_TRUE(replaceFile(place + L".lock", bytes));
        const auto path = folder.path() / std::filesystem::path(u8"Участок.TLX.lock");
        std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - age);
    }
    std::string text() const
    {
        std::vector<std::uint8_t> bytes;
        readFile(place + L".lock", bytes);
        return {bytes.begin(), bytes.end()};
    }
    static std::string record(const std::string& computer, const RunningProcess& process)
    {
        return "user=Иванов\ncomputer=" + computer + "\nprocess=" + std::to_string(process.number)
            + "\nstarted=" + process.start
            + "\nopened=2024-05-12T08:30:00Z\nalive=2024-05-12T08:31:00Z\ntoken=0123\n";
    }
    static std::string here() { return toUtf8(computerName()); }

    TemporaryFolder folder;
    std::wstring place = folder.file(L"Участок.TLX");
};

} // namespace

TEST_F(Locks, StandBesideTheProjectWhileTheyAreHeld)
{
    {
        auto attempt = ProjectLock::tryTake(place);
        ASSERT_EQ(attempt.state, State::Held);
        ProjectLock lock = std::move(*attempt.lock);
        attempt.lock.reset();
        EXPECT_TRUE(lock.isStillOurs());
        EXPECT_TRUE(lock.refresh());
        const auto record = lockRecord(place);
        ASSERT_TRUE(record);
        EXPECT_EQ(record->user, userName());
        EXPECT_EQ(record->process, currentProcess());
        EXPECT_GE(record->lastSign, record->openedAt);
        EXPECT_FALSE(foreignOwner(place)) << "this very program";
        const auto second = ProjectLock::tryTake(place);
        EXPECT_EQ(second.state, State::HeldByOther);
        EXPECT_EQ(second.owner, *record);
    }
    EXPECT_EQ(folder.content(), std::vector<std::wstring>{});
    EXPECT_EQ(ProjectLock::tryTake(folder.file(L"нет\\a.TLX")).state, State::CannotLock);
}

TEST_F(Locks, OnlyAStaleOneIsTakenWithoutAQuestion)
{
    const RunningProcess own = currentProcess();
    const RunningProcess gone{0x7FFFFFF0, "1"};
    RunningProcess reused = own;
    reused.start += "0";
    using std::chrono::minutes;
    struct Row {
        const char* what;
        std::string text;
        std::chrono::seconds age;
        State state;
    };
    const Row rows[] = {
        {"a process that runs, however long it was silent",
            record(here(), own),
            minutes(60),
            State::HeldByOther},
        {"a process that is gone", record(here(), gone), minutes(0), State::Held},
        {"its number belongs to another process", record(here(), reused), minutes(0), State::Held},
        {"another computer", record("ПК-7", gone), minutes(4), State::HeldByOther},
        {"another computer, silent", record("ПК-7", own), minutes(6), State::Held},
        {"an empty file", "", minutes(4), State::HeldByOther},
        {"an old empty file", "", minutes(6), State::Held},
        {"half a record", "user=Иванов\ncomputer=" + here(), minutes(4), State::HeldByOther},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        write(row.text, row.age);
        EXPECT_EQ(ProjectLock::tryTake(place).state, row.state);
        EXPECT_EQ(text(), row.state == State::Held ? "" : row.text)
            << "a lock that was taken goes with its owner";
    }
    write(record("ПК-7", gone));
    const auto owner = foreignOwner(place);
    ASSERT_TRUE(owner);
    EXPECT_EQ(owner->user, L"Иванов");
    EXPECT_EQ(owner->openedAt, 1715502600);
}

TEST_F(Locks, OneThatWasTakenOverIsLeftToItsNewOwner)
{
    auto first = ProjectLock::tryTake(place);
    ASSERT_TRUE(first.lock);
    auto second = ProjectLock::takeOver(place);
    ASSERT_EQ(second.state, State::Held);
    EXPECT_FALSE(first.lock->isStillOurs());
    EXPECT_FALSE(first.lock->refresh());
    const std::string ofTheSecond = text();
    first.lock.reset();
    EXPECT_EQ(text(), ofTheSecond);
    EXPECT_TRUE(second.lock->isStillOurs());
    // Somebody took the file away by hand.
    std::filesystem::remove(folder.path() / std::filesystem::path(u8"Участок.TLX.lock"));
    EXPECT_FALSE(second.lock->isStillOurs());
    EXPECT_FALSE(second.lock->refresh());
    EXPECT_EQ(ProjectLock::tryTake(place).state, State::Held);
}

TEST_F(Locks, OfManyThatFindTheSameStaleOneASingleOneGetsIt)
{
    constexpr int rounds = 40;
    constexpr int programs = 4;
    for (int round = 0; round < rounds; ++round) {
        // Every other round there is no file at all.
        if (round % 2 == 0)
            write(record(here(), {0x7FFFFFF0, "1"}));
        std::atomic<int> ready = 0;
        std::atomic<int> judged = 0;
        std::atomic<int> winners = 0;
        std::vector<std::thread> threads;
        threads.reserve(programs);
        for (int i = 0; i < programs; ++i)
            threads.emplace_back([&] {
                ++ready;
                while (ready < programs) { }
                const auto attempt = ProjectLock::tryTake(place);
                winners += attempt.state == State::Held ? 1 : 0;
                EXPECT_NE(attempt.state, State::CannotLock);
                // Held until everybody has tried.
                ++judged;
                while (judged < programs)
                    std::this_thread::yield();
                EXPECT_TRUE(!attempt.lock || attempt.lock->isStillOurs());
            });
        for (std::thread& thread : threads)
            thread.join();
        EXPECT_EQ(winners, 1);
        EXPECT_EQ(folder.content(), std::vector<std::wstring>{});
    }
}
