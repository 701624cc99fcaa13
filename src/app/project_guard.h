#pragma once

#include "persistence/project_lock.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string>

class QWidget;

enum class SaveWay {
    ByHand, // may ask
    ByTimer, // must not
};

// Keeps two programs from writing over each other's work: it holds the lock at the open project's saving
// place and knows the file there as the program has last read or written it. The questions are its own.
class ProjectGuard
{
public:
    // Before a project that saves to this place becomes the open one, in the place of another one or none.
    // False where the user does not want it opened; all is as before then.
    bool mayOpen(const std::wstring& place, QWidget* parent);

    // Before each save: the lock must be ours, the file as we know it, or the user says so. The lock moves to
    // the place where the project saves now; its folder must stand. False where nothing may be written.
    bool maySave(const std::wstring& place, SaveWay way, QWidget* parent);
    // Why the last answer was false, for the status bar.
    const QString& reason() const { return reason_; }

    // The file at the place as it stands now is what the open project was read from or written to.
    void remember(const std::wstring& place);
    // The open project was written there just now: so many bytes of this hash.
    void wrote(const std::wstring& place, std::uint64_t size, std::uint64_t hash);

    // The project has been closed.
    void release();

    // To be called each minute. The words for the status bar where another one has taken the lock meanwhile,
    // once; else empty.
    QString giveSign();

private:
    struct KnownFile {
        std::wstring place;
        bool exists = false;
        std::uint64_t size = 0;
        std::int64_t modified = 0;
        std::uint64_t hash = 0;
    };

    // Ours after the call, or out of reach for everybody: nothing. Else who has it.
    std::optional<LockOwner> takeLock(const std::wstring& place);
    bool changedByOthers(const std::wstring& place);

    std::optional<ProjectLock> lock_;
    KnownFile known_;
    QString reason_;
};
