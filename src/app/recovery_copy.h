#pragma once

#include "persistence/project_lock.h"
#include "platform/byte_blocks.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <thread>
#include <vector>

class ISettings;

// The folders for copies, in the order in which they are tried: in the work folder, and the user's own on
// this computer for a work folder that cannot be written to.
std::vector<std::wstring> recoveryFolders(ISettings& settings);

// The copy of the open project that outlives a crash: an ordinary project file of a name of its own with a
// lock beside it, so a copy without a living owner is one that a crash has left. A thread writes it; the
// calls are for the GUI thread. An object that goes leaves its copy behind: only remove() and a save say that
// nobody needs it.
class RecoveryCopy
{
public:
    RecoveryCopy() = default;
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;
    ~RecoveryCopy();

    // A project has been opened, and this hash of its bytes needs no copy. An earlier copy stays on the disk.
    void begin(std::uint64_t savedState);
    // It was opened from a copy that a crash had left: that file stays, unchanged, as long as ours does.
    void adopt(const std::wstring& path);
    // What is on the disk now; the copies go. Waits for a write that is under way.
    void saved(std::uint64_t savedState);
    // The project has been closed.
    void remove();

    bool isWriting() const { return isWriting_; }
    std::uint64_t savedState() const { return savedState_; }
    // Hands the bytes to the thread, which looks whether they are saved or copied already and writes them if
    // not, in a file named after the project. Waits for the last write.
    void keep(ByteBlocks bytes, const std::wstring& name, const std::vector<std::wstring>& folders);
    // How long the last write took; not while it is writing.
    std::chrono::milliseconds writingTime() const { return writingTime_; }
    // Why there is no copy, once for a row of failures; else empty.
    std::wstring newFailure();
    void giveSign();

private:
    void finishWriting();
    // In the thread.
    void write(const ByteBlocks& bytes, const std::wstring& name, const std::vector<std::wstring>& folders);
    bool choosePlace(const std::wstring& name, const std::vector<std::wstring>& folders);
    void takeAway(std::optional<ProjectLock>& copy);

    std::thread thread_;
    std::atomic<bool> isWriting_ = false;
    bool failureIsTold_ = false;

    // All that follows is the thread's while it writes: the calls wait for it before they touch any of it.
    std::optional<ProjectLock> copy_; // its place is the file
    std::optional<ProjectLock> adopted_;
    std::uint64_t savedState_ = 0;
    std::optional<std::uint64_t> copiedState_;
    std::size_t nextFolder_ = 0; // another one after a failure
    std::wstring failure_;
    std::chrono::milliseconds writingTime_{0};
};
