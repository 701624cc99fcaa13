#include "platform/posix_support.h"
#include "platform/safe_write.h"
#include "platform/temporary_name.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <vector>

namespace
{

// Writes the content into the open file.
using ContentWriter = std::function<FileResult(int file)>;

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// Where the path leads at last, by links that need not end at a file that exists. Links among its folders
// are of no account: the temporary file stands behind the same ones.
std::string withoutLinks(std::string path)
{
    constexpr int mostLinks = 40;
    for (int i = 0; i < mostLinks; ++i) {
        std::vector<char> target(4096);
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length <= 0)
            break;
        path = target.front() == '/' ? std::string() : folderOf(path) + '/';
        path.append(target.data(), static_cast<std::size_t>(length));
    }
    return path;
}

// Lets the disk begin with what it has, so that the flush at the end finds little left to wait for.
void beginFlush([[maybe_unused]] int file, [[maybe_unused]] off_t from, [[maybe_unused]] ssize_t count)
{
#ifdef SYNC_FILE_RANGE_WRITE
    // A hint: what fails is told by the flush.
    ::sync_file_range(file, from, count, SYNC_FILE_RANGE_WRITE);
#endif
}

FileResult writeAll(int file, std::span<const std::uint8_t> bytes)
{
    constexpr std::size_t piece = 1U << 20U;
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), std::min(bytes.size(), piece));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failedWithErrno(FileStep::Write);
        if (static_cast<std::size_t>(count) == piece)
            beginFlush(file, ::lseek(file, 0, SEEK_CUR) - count, count);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return {};
}

FileResult writeParts(int file, FileParts parts)
{
    for (const auto part : parts)
        if (FileResult result = writeAll(file, part); !result)
            return result;
    return {};
}

FileResult writeCopy(int from, int to)
{
    std::vector<std::uint8_t> block(1U << 20U);
    for (;;) {
        const ssize_t count = ::read(from, block.data(), block.size());
        if (count == 0)
            return {};
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failedWithErrno(FileStep::Read);
        if (FileResult result = writeAll(to, {block.data(), static_cast<std::size_t>(count)}); !result)
            return result;
    }
}

// Some file systems have nothing to flush and say so.
bool flush(int file)
{
    return ::fsync(file) == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
}

FileResult flushFolder(const std::string& folder)
{
    // A folder that may be written but not read cannot be flushed; the file is in its place all the same.
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor && !flush(descriptor.get()))
        return failedWithErrno(FileStep::FlushFolder);
    return {};
}

// The owner may be another one than ours when an administrator saves; where it cannot be kept the bits still
// are.
void copyOwnerAndMode(const struct stat& model, int file)
{
    constexpr mode_t permissions = 07777;
    [[maybe_unused]] const int owner = ::fchown(file, model.st_uid, model.st_gid);
    ::fchmod(file, model.st_mode & permissions);
}

FileResult flushed(const Descriptor& file)
{
    return flush(file.get()) ? FileResult{} : failedWithErrno(FileStep::Flush);
}

// In a folder where nothing may be made or renamed, the file itself may still be open to us.
bool onlyTargetIsWritable(int error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

FileResult writeInPlace(const std::string& path, const ContentWriter& content)
{
    // The old content goes only at the end: on a full disk its blocks are the ones to be written.
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666));
    if (!file)
        return failedWithErrno(FileStep::Open);
    FileResult result = content(file.get());
    if (result)
        result = flushed(file);
    const off_t end = ::lseek(file.get(), 0, SEEK_CUR);
    if (result && (::ftruncate(file.get(), end) != 0 || !file.close()))
        result = failedWithErrno(FileStep::Write);
    result.targetDamaged = !result;
    return result;
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

// No process of this machine writes the file, and none of another machine holds it: folders are shared.
bool isAbandoned(const std::string& path, std::uint64_t writer)
{
    if (::kill(static_cast<pid_t>(writer), 0) == 0 || errno != ESRCH)
        return false;
    const Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW));
    return file && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
}

// A program that died while it saved leaves a file as large as the project behind, on a disk that may be
// full.
void removeAbandoned(const std::string& folder)
{
    const std::unique_ptr<DIR, CloseFolder> listing(::opendir(folder.c_str()));
    while (const dirent* entry = listing ? ::readdir(listing.get()) : nullptr) {
        const std::uint64_t writer = writerOfTemporary(entry->d_name);
        if (writer == 0)
            continue;
        if (const std::string path = folder + '/' + entry->d_name; isAbandoned(path, writer))
            ::unlink(path.c_str());
    }
}

struct Temporary {
    std::string path;
    Descriptor file;
    int error = 0;
};

Temporary makeTemporary(const std::string& folder)
{
    constexpr int mostTries = 100;
    const auto process = static_cast<std::uint64_t>(::getpid());
    removeAbandoned(folder);
    Temporary temporary;
    for (int i = 0; i < mostTries && !temporary.file; ++i) {
        temporary.path = folder + '/' + temporaryName('.', process, i);
        temporary.file =
            Descriptor(::open(temporary.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        temporary.error = errno;
        if (!temporary.file && temporary.error != EEXIST)
            break;
    }
    // Tells the programs of other machines that the file is not abandoned, where the file system can.
    if (!temporary.file)
        temporary.path.clear();
    else
        ::flock(temporary.file.get(), LOCK_EX | LOCK_NB);
    return temporary;
}

// A file on its way into the target's place. Where the folder takes no new file the target itself is to be
// overwritten, which waits for the end, when all of the content is there.
class Replacement
{
public:
    // The permissions are those of the model, or those of any new file.
    Replacement(std::string target, const std::optional<struct stat>& model)
        : target_(std::move(target))
        , temporary_(makeTemporary(folderOf(target_)))
    {
        if (temporary_.file && model)
            copyOwnerAndMode(*model, temporary_.file.get());
        else if (!temporary_.file && !onlyTargetIsWritable(temporary_.error))
            failure_ = failedWithErrno(FileStep::CreateTemporary, temporary_.error);
    }
    explicit Replacement(const FileResult& failure)
        : failure_(failure)
    {
    }
    ~Replacement() { remove(); }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    // What fails is told at the end; the disk has its room back at once.
    void add(const ContentWriter& content)
    {
        if (!failure_ || !temporary_.file)
            return;
        failure_ = content(temporary_.file.get());
        if (!failure_)
            remove();
    }

    FileResult finish(const ContentWriter& whole)
    {
        if (!failure_)
            return failure_;
        if (!temporary_.file)
            return writeInPlace(target_, whole);
        if (FileResult result = flushed(temporary_.file); !result)
            return result;
        if (!temporary_.file.close())
            return failedWithErrno(FileStep::Write);
        if (::rename(temporary_.path.c_str(), target_.c_str()) == 0) {
            temporary_ = {};
            return flushFolder(folderOf(target_));
        }
        const int error = errno;
        remove();
        return onlyTargetIsWritable(error) ? writeInPlace(target_, whole)
                                           : failedWithErrno(FileStep::Replace, error);
    }

private:
    void remove()
    {
        if (!temporary_.path.empty())
            ::unlink(temporary_.path.c_str());
        temporary_ = {};
    }

    std::string target_;
    Temporary temporary_;
    FileResult failure_;
};

// Leaves existing empty where no file stands there yet.
FileResult examineTarget(const std::string& path, std::optional<struct stat>& existing)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return errno == ENOENT ? FileResult{} : failedWithErrno(FileStep::Open);
    if (!S_ISREG(status.st_mode))
        return {FileStep::NotARegularFile, {}};
    existing = status;
    return {};
}

} // namespace

struct FileReplacement::State {
    Replacement replacement;
};

FileReplacement::FileReplacement(const std::wstring& path)
{
    const std::string target = withoutLinks(posixPath(path));
    std::optional<struct stat> existing;
    FileResult result = examineTarget(target, existing);
    // Replacing asks only the folder for permission; the user who took it from the file means the file.
    if (result && existing && !Descriptor(::open(target.c_str(), O_WRONLY | O_CLOEXEC)))
        result = failedWithErrno(FileStep::Open);
    if (result)
        state_.reset(new State{Replacement(target, existing)});
    else
        state_.reset(new State{Replacement(result)});
}

FileReplacement::~FileReplacement() = default;

void FileReplacement::add(FileParts parts)
{
    state_->replacement.add([parts](int file) { return writeParts(file, parts); });
}

FileResult FileReplacement::finish(FileParts all)
{
    return state_->replacement.finish([all](int file) { return writeParts(file, all); });
}

FileResult FileReplacement::finish(const std::function<ByteBlocks()>& makeAgain)
{
    return state_->replacement.finish([&makeAgain](int file) {
        const ByteBlocks all = makeAgain();
        return writeParts(file, all.parts());
    });
}

FileResult copyFile(const std::wstring& from, const std::wstring& to)
{
    const Descriptor source(::open(posixPath(from).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat model = {};
    if (!source || ::fstat(source.get(), &model) != 0)
        return failedWithErrno(FileStep::Open);
    if (!S_ISREG(model.st_mode))
        return {FileStep::NotARegularFile, {}};
    const std::string target = withoutLinks(posixPath(to));
    std::optional<struct stat> existing;
    if (FileResult result = examineTarget(target, existing); !result)
        return result;
    Replacement replacement(target, model);
    const auto content = [&source](int file) {
        // The second attempt, in place, starts anew.
        ::lseek(source.get(), 0, SEEK_SET);
        return writeCopy(source.get(), file);
    };
    replacement.add(content);
    return replacement.finish(content);
}
