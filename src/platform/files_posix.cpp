#include "platform/files.h"
#include "platform/posix_support.h"
#include "platform/system_text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>

namespace
{

FileKind kindOf(const struct stat& status)
{
    if (S_ISREG(status.st_mode))
        return FileKind::Regular;
    return S_ISDIR(status.st_mode) ? FileKind::Folder : FileKind::Other;
}

// Reads until the vector is full or the file ends, which may be earlier than its size said.
FileResult readAll(int file, std::vector<std::uint8_t>& bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::read(file, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return failedWithErrno(FileStep::Read);
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    bytes.resize(done);
    return {};
}

FileResult readRegularFile(const std::string& path, std::vector<std::uint8_t>& bytes)
{
    // Without O_NONBLOCK the opening of a pipe would wait for its writer.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file || ::fstat(file.get(), &status) != 0)
        return failedWithErrno(FileStep::Open);
    if (kindOf(status) != FileKind::Regular)
        return {FileStep::NotARegularFile, {}};
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size > largestReadableFile)
        return {FileStep::TooLarge, {}};
    try {
        bytes.resize(static_cast<std::size_t>(size));
    } catch (const std::bad_alloc&) {
        return failedWithErrno(FileStep::TooLarge, ENOMEM);
    }
    return readAll(file.get(), bytes);
}

} // namespace

std::string posixPath(std::wstring_view path)
{
    if (path.find(L'\0') != std::wstring_view::npos)
        return {};
    return toUtf8(systemPath(path));
}

FileResult failedWithErrno(FileStep step, int error)
{
    return {step, fromSystemText(std::strerror(error))};
}

std::wstring systemPath(std::wstring_view storedPath)
{
    std::wstring path(storedPath);
    std::replace(path.begin(), path.end(), L'\\', L'/');
    return path;
}

FileInfo fileInfo(const std::wstring& path)
{
    const std::string name = posixPath(path);
    struct stat status = {};
    if (::stat(name.c_str(), &status) != 0)
        return {};
    return {kindOf(status),
        static_cast<std::uint64_t>(status.st_size),
        static_cast<std::int64_t>(status.st_mtime),
        ::access(name.c_str(), W_OK) == 0};
}

FileKind fileKind(const std::wstring& path)
{
    struct stat status = {};
    return ::stat(posixPath(path).c_str(), &status) == 0 ? kindOf(status) : FileKind::Missing;
}

FileResult readFile(const std::wstring& path, std::vector<std::uint8_t>& bytes)
{
    bytes.clear();
    FileResult result = readRegularFile(posixPath(path), bytes);
    if (!result)
        bytes.clear();
    return result;
}

FileResult createFolder(const std::wstring& path)
{
    if (::mkdir(posixPath(path).c_str(), 0777) == 0)
        return {};
    const int error = errno;
    if (error == EEXIST && fileKind(path) == FileKind::Folder)
        return {};
    return failedWithErrno(FileStep::CreateFolder, error);
}

std::wstring executablePath()
{
    std::array<char, PATH_MAX> path{};
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    return length > 0 ? fromSystemText({path.data(), static_cast<std::size_t>(length)}) : std::wstring();
}
