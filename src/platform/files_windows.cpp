#include "platform/files.h"
#include "platform/windows_support.h"

#include <algorithm>
#include <new>
#include <utility>
#include <windows.h>

namespace
{

// Network shares refuse a read or a write of any size at once.
constexpr std::size_t largestBlock = 0x1000000;

FileKind kindOf(DWORD attributes)
{
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return FileKind::Folder;
    return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? FileKind::Other : FileKind::Regular;
}

std::uint64_t wideNumber(DWORD high, DWORD low)
{
    return std::uint64_t{high} << 32U | low;
}

// File times count tenths of a microsecond from 1 January 1601.
std::int64_t secondsSince1970(const FILETIME& time)
{
    constexpr std::int64_t ticksInSecond = 10'000'000;
    constexpr std::int64_t from1601To1970 = 11'644'473'600;
    const auto ticks = static_cast<std::int64_t>(wideNumber(time.dwHighDateTime, time.dwLowDateTime));
    return ticks / ticksInSecond - from1601To1970;
}

FileResult readAll(HANDLE file, std::vector<std::uint8_t>& bytes)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        const auto block = static_cast<DWORD>(std::min(bytes.size() - done, largestBlock));
        DWORD count = 0;
        if (ReadFile(file, bytes.data() + done, block, &count, nullptr) == 0)
            return failedWithLastError(FileStep::Read);
        if (count == 0)
            break;
        done += count;
    }
    bytes.resize(done);
    return {};
}

FileResult readRegularFile(const std::wstring& path, std::vector<std::uint8_t>& bytes)
{
    if (fileKind(path) == FileKind::Folder)
        return {FileStep::NotARegularFile, {}};
    const FileHandle file(CreateFileW(windowsPath(path).c_str(),
        GENERIC_READ,
        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
        nullptr,
        OPEN_EXISTING,
        FILE_FLAG_SEQUENTIAL_SCAN,
        nullptr));
    if (!file)
        return failedWithLastError(FileStep::Open);
    if (GetFileType(file.get()) != FILE_TYPE_DISK)
        return {FileStep::NotARegularFile, {}};
    LARGE_INTEGER size = {};
    if (GetFileSizeEx(file.get(), &size) == 0)
        return failedWithLastError(FileStep::Open);
    if (static_cast<std::uint64_t>(size.QuadPart) > largestReadableFile)
        return {FileStep::TooLarge, {}};
    try {
        bytes.resize(static_cast<std::size_t>(size.QuadPart));
    } catch (const std::bad_alloc&) {
        return failedWithCode(FileStep::TooLarge, ERROR_NOT_ENOUGH_MEMORY);
    }
    return readAll(file.get(), bytes);
}

} // namespace

FileResult failedWithCode(FileStep step, DWORD error)
{
    constexpr DWORD longestMessage = 1024;
    std::wstring reason(longestMessage, L'\0');
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr,
        error,
        0,
        reason.data(),
        longestMessage,
        nullptr);
    reason.resize(length);
    while (!reason.empty() && (reason.back() == L'\n' || reason.back() == L'\r' || reason.back() == L' '))
        reason.pop_back();
    return {step, reason};
}

FileResult failedWithLastError(FileStep step)
{
    return failedWithCode(step, GetLastError());
}

FileHandle::FileHandle()
    : handle_(INVALID_HANDLE_VALUE)
{
}

FileHandle::operator bool() const
{
    return handle_ != INVALID_HANDLE_VALUE;
}

bool FileHandle::close()
{
    const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
    return handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != 0;
}

std::wstring windowsPath(const std::wstring& path)
{
    return path.find(L'\0') == std::wstring::npos ? path : std::wstring();
}

std::wstring systemPath(std::wstring_view storedPath)
{
    return std::wstring(storedPath);
}

FileInfo fileInfo(const std::wstring& path)
{
    // The search takes wildcards, which stand in no file's name, for a pattern.
    const std::size_t name = path.starts_with(L"\\\\?\\") ? 4 : 0;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = path.find_first_of(L"*?", name) == std::wstring::npos
        ? FindFirstFileW(windowsPath(path).c_str(), &found)
        : INVALID_HANDLE_VALUE;
    if (search == INVALID_HANDLE_VALUE)
        // The root of a drive is found by no search.
        return {fileKind(path)};
    FindClose(search);
    return {kindOf(found.dwFileAttributes),
        wideNumber(found.nFileSizeHigh, found.nFileSizeLow),
        secondsSince1970(found.ftLastWriteTime),
        (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0};
}

FileKind fileKind(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(windowsPath(path).c_str());
    return attributes == INVALID_FILE_ATTRIBUTES ? FileKind::Missing : kindOf(attributes);
}

FileResult readFile(const std::wstring& path, std::vector<std::uint8_t>& bytes)
{
    bytes.clear();
    FileResult result = readRegularFile(path, bytes);
    if (!result)
        bytes.clear();
    return result;
}

FileResult createFolder(const std::wstring& path)
{
    if (CreateDirectoryW(windowsPath(path).c_str(), nullptr) != 0)
        return {};
    const DWORD error = GetLastError();
    if (error == ERROR_ALREADY_EXISTS && fileKind(path) == FileKind::Folder)
        return {};
    return failedWithCode(FileStep::CreateFolder, error);
}

std::wstring executablePath()
{
    // The call cuts what does not fit, without a failure on older systems.
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}
