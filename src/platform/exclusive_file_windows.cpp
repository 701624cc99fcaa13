#include "platform/exclusive_file.h"
#include "platform/windows_support.h"

#include <windows.h>

namespace
{

constexpr DWORD largestContent = 0x10000;
// Milliseconds.
constexpr ULONGLONG patience = 2000;
constexpr ULONGLONG patienceWithRefusal = 200;
constexpr DWORD betweenTries = 10;

// A turn of another program, or a scanner that looks at the file.
bool isBusy(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

// A file that is removed but still open elsewhere is refused like one without rights: only time tells them
// apart.
bool mayBeOnItsWayOut(DWORD error)
{
    return error == ERROR_ACCESS_DENIED || error == ERROR_DELETE_PENDING;
}

HANDLE asHandle(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle); // NOLINT(performance-no-int-to-ptr)
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
    const std::wstring name = windowsPath(path_);
    const ULONGLONG begin = GetTickCount64();
    for (;;) {
        // Shared with readers alone: every other one who wants a turn asks to write, and is refused.
        const HANDLE file = CreateFileW(name.c_str(),
            GENERIC_READ | GENERIC_WRITE | DELETE,
            FILE_SHARE_READ,
            nullptr,
            ifMissing == IfMissing::Create ? OPEN_ALWAYS : OPEN_EXISTING,
            FILE_ATTRIBUTE_NORMAL,
            nullptr);
        const DWORD error = GetLastError();
        if (file != INVALID_HANDLE_VALUE) {
            handle_ = reinterpret_cast<std::intptr_t>(file);
            isNew_ = ifMissing == IfMissing::Create && error != ERROR_ALREADY_EXISTS;
            return {};
        }
        const ULONGLONG longest = isBusy(error) ? patience
            : mayBeOnItsWayOut(error)           ? patienceWithRefusal
                                                : 0;
        if (GetTickCount64() - begin >= longest)
            return failedWithCode(FileStep::Open, error);
        Sleep(betweenTries);
    }
}

void ExclusiveFile::close()
{
    if (handle_ != -1)
        CloseHandle(asHandle(handle_));
    handle_ = -1;
}

std::string ExclusiveFile::read() const
{
    std::string content(largestContent, '\0');
    DWORD length = 0;
    SetFilePointer(asHandle(handle_), 0, nullptr, FILE_BEGIN);
    if (ReadFile(asHandle(handle_), content.data(), largestContent, &length, nullptr) == 0)
        length = 0;
    content.resize(length);
    return content;
}

FileResult ExclusiveFile::write(std::string_view content)
{
    const HANDLE file = asHandle(handle_);
    DWORD length = 0;
    SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    if (WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &length, nullptr) == 0)
        return failedWithLastError(FileStep::Write);
    if (length != content.size())
        return failedWithCode(FileStep::Write, ERROR_DISK_FULL);
    if (SetEndOfFile(file) == 0)
        return failedWithLastError(FileStep::Write);
    return {};
}

FileResult ExclusiveFile::remove()
{
    // By the open file and not by its name; it is gone when the file is closed.
    FILE_DISPOSITION_INFO disposition = {};
    disposition.DeleteFile = TRUE;
    if (SetFileInformationByHandle(asHandle(handle_), FileDispositionInfo, &disposition, sizeof disposition)
        == 0)
        return failedWithLastError(FileStep::Write);
    close();
    return {};
}
