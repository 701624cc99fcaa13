#include "platform/exclusive_file.h"
#include "platform/posix_support.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace
{

constexpr std::size_t largestContent = 0x10000;
constexpr auto patience = std::chrono::seconds(2);
constexpr auto betweenTries = std::chrono::milliseconds(10);

// File systems without such locks leave the turns to chance; a lock is better than none there too.
bool hasNoLocks(int error)
{
    return error == ENOLCK || error == ENOSYS || error == EINVAL || error == ENOTSUP;
}

// The one who had the turn before may have taken the file away, and another one stands in its place.
bool standsAt(const std::string& path, int file)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(file, &opened) == 0 && ::stat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino
        && opened.st_dev == named.st_dev;
}

Descriptor openOrMake(const std::string& path, ExclusiveFile::IfMissing ifMissing, bool& isNew)
{
    isNew = false;
    Descriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK));
    if (file || errno != ENOENT || ifMissing == ExclusiveFile::IfMissing::Fail)
        return file;
    file = Descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    isNew = bool(file);
    // Whoever may work in the folder may take over what stands in it: the folder decides, not the file.
    if (isNew)
        ::fchmod(file.get(), 0666);
    return file;
}

} // namespace

ExclusiveFile::ExclusiveFile(const std::wstring& path, IfMissing ifMissing)
    : path_(path)
    , result_(open(ifMissing))
{
}

ExclusiveFile::~ExclusiveFile()
{
    close();
}

FileResult ExclusiveFile::open(IfMissing ifMissing)
{
    const std::string name = posixPath(path_);
    const auto end = std::chrono::steady_clock::now() + patience;
    int error = 0;
    Descriptor file;
    do {
        // One that waits for its turn stays open: it was made by us, if it was, and by nobody else.
        if (!file)
            file = openOrMake(name, ifMissing, isNew_);
        error = errno;
        // Another program made it in between: the next round opens that one.
        const bool isRace = !file && error == EEXIST;
        if (!file && !isRace)
            return failedWithErrno(FileStep::Open, error);
        if (file) {
            const bool isLocked = ::flock(file.get(), LOCK_EX | LOCK_NB) == 0 || hasNoLocks(errno);
            error = errno;
            const bool isTheOne = standsAt(name, file.get());
            if (isLocked && isTheOne) {
                handle_ = file.release();
                return {};
            }
            if (!isLocked && error != EWOULDBLOCK && error != EINTR)
                return failedWithErrno(FileStep::Open, error);
            if (!isTheOne)
                file = Descriptor();
        }
        std::this_thread::sleep_for(betweenTries);
    } while (std::chrono::steady_clock::now() < end);
    return failedWithErrno(FileStep::Open, ETIMEDOUT);
}

void ExclusiveFile::close()
{
    if (handle_ >= 0)
        ::close(static_cast<int>(handle_));
    handle_ = -1;
}

std::string ExclusiveFile::read() const
{
    std::string content(largestContent, '\0');
    const ssize_t length = ::pread(static_cast<int>(handle_), content.data(), content.size(), 0);
    content.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return content;
}

FileResult ExclusiveFile::write(std::string_view content)
{
    // In one call and the end cut afterwards, so that readers hardly ever meet half of it.
    const int file = static_cast<int>(handle_);
    const ssize_t length = ::pwrite(file, content.data(), content.size(), 0);
    if (length != static_cast<ssize_t>(content.size()))
        return failedWithErrno(FileStep::Write, length < 0 ? errno : ENOSPC);
    if (::ftruncate(file, length) != 0)
        return failedWithErrno(FileStep::Write);
    return {};
}

FileResult ExclusiveFile::remove()
{
    if (::unlink(posixPath(path_).c_str()) != 0)
        return failedWithErrno(FileStep::Write);
    return {};
}
