#pragma once

#include "platform/running_process.h"

#include <cstdint>
#include <optional>
#include <string>

// Who has a project open. Times are seconds since 1 January 1970, UTC.
struct LockOwner {
    std::wstring user; // empty in the record of an unreadable lock
    std::wstring computer;
    RunningProcess process;
    std::int64_t openedAt = 0;
    std::int64_t lastSign = 0;
    std::string token; // random, another one for each lock

    bool operator==(const LockOwner&) const = default;
};

// A mark beside a project's saving place that a program has it open: the file <place>.lock, lines of text
// that a person can read. It binds only those who look. It is stale, and taken over without a question, when
// its owner is a process of this computer that no longer runs, or one of another computer that has given no
// sign of life for five minutes; an unreadable one when it is as old.
//
// The object is the lock: it takes its own file away when it goes.
class ProjectLock
{
public:
    enum class State {
        Held,
        HeldByOther,
        CannotLock, // no such folder, no rights, a full disk
    };
    struct Attempt;

    static Attempt tryTake(const std::wstring& place);
    // Takes it from a living owner too.
    static Attempt takeOver(const std::wstring& place);

    ProjectLock(ProjectLock&& other) noexcept;
    ProjectLock& operator=(ProjectLock&& other) noexcept;
    ~ProjectLock();

    const std::wstring& place() const { return place_; }
    // False where another one has taken it over or the file is gone.
    bool isStillOurs() const;
    // A sign of life. False where it could not be given: it is another one's, gone, or out of reach.
    bool refresh();

private:
    ProjectLock(std::wstring place, LockOwner owner);
    static Attempt take(const std::wstring& place, bool fromTheLiving);
    void release();

    std::wstring place_;
    std::optional<LockOwner> owner_; // of the file; without one there is nothing to take away
};

struct ProjectLock::Attempt {
    State state = State::CannotLock;
    std::optional<ProjectLock> lock;
    LockOwner owner; // the other one
};

inline constexpr std::wstring_view lockSuffix = L".lock";

// Whether it is a lock of the very process that asks.
bool isThisProgram(const LockOwner& owner);

// Who has the place locked now, and who beside this very program; nothing for a stale lock.
std::optional<LockOwner> livingOwner(const std::wstring& place);
std::optional<LockOwner> foreignOwner(const std::wstring& place);

// The record of a place's lock, whoever it is and whether it is stale or not.
std::optional<LockOwner> lockRecord(const std::wstring& place);
