#include "platform/safe_write.h"
#include "platform/temporary_name.h"
#include "platform/utf8.h"
#include "platform/windows_support.h"

#include <algorithm>
#include <functional>
#include <windows.h>

namespace
{

// Network shares refuse a write of any size at once.
constexpr std::size_t largestBlock = 0x1000000;

DWORD attributesOf(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str());
}

bool has(DWORD attributes, DWORD mark)
{
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & mark) != 0;
}

FileHandle openFile(const std::wstring& path, DWORD access, DWORD share, DWORD disposition)
{
    return FileHandle(
        CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::wstring withoutLinks(const std::wstring& path)
{
    if (!has(attributesOf(path), FILE_ATTRIBUTE_REPARSE_POINT))
        return path;
    const FileHandle file =
        openFile(path, 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING);
    if (!file)
        return path;
    std::wstring target(0x8000, L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(file.get(), target.data(), static_cast<DWORD>(target.size()), 0);
    if (length == 0 || length >= target.size())
        return path;
    target.resize(length);
    return target;
}

std::wstring folderOf(const std::wstring& target)
{
    const std::size_t separator = target.find_last_of(L"\\/:");
    return separator == std::wstring::npos ? std::wstring() : target.substr(0, separator + 1);
}

bool runs(std::uint64_t process)
{
    const HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process));
    if (handle == nullptr)
        return GetLastError() != ERROR_INVALID_PARAMETER;
    CloseHandle(handle);
    return true;
}

// A program that died while it saved leaves a file as large as the project behind, on a disk that may be
// full. What a program of another machine is writing cannot be deleted: folders are shared.
void removeAbandoned(const std::wstring& folder)
{
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((folder + L"?tellurix-*.tmp").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return;
    do {
        const std::wstring name = &found.cFileName[0];
        const std::uint64_t writer = writerOfTemporary(toUtf8(name));
        if (writer != 0 && !runs(writer))
            DeleteFileW((folder + name).c_str());
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
}

// A name beside the target that is free.
std::wstring temporaryBeside(const std::wstring& target)
{
    constexpr int mostTries = 100;
    const std::wstring folder = folderOf(target);
    removeAbandoned(folder);
    std::wstring path;
    for (int i = 0; i < mostTries; ++i) {
        const std::string name = temporaryName('~', GetCurrentProcessId(), i);
        path = folder + std::wstring(name.begin(), name.end());
        if (attributesOf(path) == INVALID_FILE_ATTRIBUTES)
            break;
    }
    return path;
}

FileResult writeAll(FileHandle& file, std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const auto block = static_cast<DWORD>(std::min(bytes.size(), largestBlock));
        DWORD count = 0;
        if (WriteFile(file.get(), bytes.data(), block, &count, nullptr) == 0)
            return failedWithLastError(FileStep::Write);
        bytes = bytes.subspan(count);
    }
    return {};
}

FileResult writeParts(FileHandle& file, FileParts parts)
{
    for (const auto part : parts)
        if (FileResult result = writeAll(file, part); !result)
            return result;
    return {};
}

FileResult flushed(FileHandle& file)
{
    return FlushFileBuffers(file.get()) != 0 ? FileResult{} : failedWithLastError(FileStep::Flush);
}

// In a folder where nothing may be made or renamed, or while another program reads the file, the file itself
// may still be open to us.
bool onlyTargetIsWritable(DWORD error)
{
    return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION || error == ERROR_WRITE_PROTECT;
}

// 0, or the code of the failure. Virus scanners and indexers hold a new file for a moment.
DWORD moveIntoPlace(const std::wstring& temporary, const std::wstring& target)
{
    constexpr int mostTries = 10;
    constexpr DWORD pause = 20;
    DWORD error = 0;
    for (int i = 0; i < mostTries; ++i) {
        if (MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
            != 0)
            return 0;
        error = GetLastError();
        if (error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION)
            break;
        Sleep(pause);
    }
    return error;
}

// Writes the content into the open file.
using ContentWriter = std::function<FileResult(FileHandle& file)>;

FileResult writeInPlace(const std::wstring& target, const ContentWriter& content)
{
    // The old content goes only at the end: on a full disk its blocks are the ones to be written.
    FileHandle file = openFile(target, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_ALWAYS);
    if (!file)
        return failedWithLastError(FileStep::Open);
    FileResult result = content(file);
    if (result)
        result = flushed(file);
    if (result && SetEndOfFile(file.get()) == 0)
        result = failedWithLastError(FileStep::Write);
    result.targetDamaged = !result;
    return result;
}

FileResult flushCopy(const std::wstring& path)
{
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    const FileHandle file = openFile(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING);
    if (!file || FlushFileBuffers(file.get()) == 0)
        return failedWithLastError(FileStep::Flush);
    return {};
}

FileResult copyInPlace(const std::wstring& source, const std::wstring& target)
{
    if (CopyFileW(source.c_str(), target.c_str(), FALSE) == 0)
        return failedWithLastError(FileStep::Write);
    return flushCopy(target);
}

} // namespace

struct FileReplacement::State {
    std::wstring target;
    DWORD attributes = INVALID_FILE_ATTRIBUTES;
    std::wstring temporary;
    FileHandle file;
    bool inPlace = false;
    FileResult failure;

    void remove()
    {
        if (temporary.empty())
            return;
        file.close();
        DeleteFileW(temporary.c_str());
        temporary.clear();
    }
    FileResult finish(const ContentWriter& whole);
};

FileReplacement::FileReplacement(const std::wstring& path)
    : state_(std::make_unique<State>())
{
    State& state = *state_;
    state.target = withoutLinks(windowsPath(path));
    state.attributes = attributesOf(state.target);
    if (has(state.attributes, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) {
        state.failure = {FileStep::NotARegularFile, {}};
    } else if (has(state.attributes, FILE_ATTRIBUTE_READONLY)) {
        state.failure = failedWithCode(FileStep::Open, ERROR_ACCESS_DENIED);
    } else {
        state.temporary = temporaryBeside(state.target);
        state.file = openFile(state.temporary, GENERIC_WRITE, 0, CREATE_NEW);
        if (state.file)
            return;
        const DWORD error = GetLastError();
        state.temporary.clear();
        state.inPlace = onlyTargetIsWritable(error);
        if (!state.inPlace)
            state.failure = failedWithCode(FileStep::CreateTemporary, error);
    }
}

FileReplacement::~FileReplacement()
{
    state_->remove();
}

void FileReplacement::add(FileParts parts)
{
    State& state = *state_;
    if (!state.failure || state.inPlace)
        return;
    state.failure = writeParts(state.file, parts);
    // The disk has its room back at once.
    if (!state.failure)
        state.remove();
}

FileResult FileReplacement::State::finish(const ContentWriter& whole)
{
    if (!failure)
        return failure;
    if (inPlace)
        return writeInPlace(target, whole);
    FileResult result = flushed(file);
    if (!file.close() && result)
        result = failedWithLastError(FileStep::Write);
    if (!result)
        return result;
    if (attributes != INVALID_FILE_ATTRIBUTES)
        SetFileAttributesW(temporary.c_str(), attributes);
    const DWORD error = moveIntoPlace(temporary, target);
    if (error == 0) {
        temporary.clear();
        return {};
    }
    remove();
    return onlyTargetIsWritable(error) ? writeInPlace(target, whole)
                                       : failedWithCode(FileStep::Replace, error);
}

FileResult FileReplacement::finish(FileParts all)
{
    return state_->finish([all](FileHandle& file) { return writeParts(file, all); });
}

FileResult FileReplacement::finish(const std::function<ByteBlocks()>& makeAgain)
{
    return state_->finish([&makeAgain](FileHandle& file) {
        const ByteBlocks all = makeAgain();
        return writeParts(file, all.parts());
    });
}

FileResult copyFile(const std::wstring& from, const std::wstring& to)
{
    const std::wstring source = windowsPath(from);
    const std::wstring target = withoutLinks(windowsPath(to));
    const DWORD sourceAttributes = attributesOf(source);
    if (sourceAttributes == INVALID_FILE_ATTRIBUTES)
        return failedWithLastError(FileStep::Open);
    const DWORD attributes = attributesOf(target);
    if (has(sourceAttributes, FILE_ATTRIBUTE_DIRECTORY) || has(attributes, FILE_ATTRIBUTE_DIRECTORY))
        return {FileStep::NotARegularFile, {}};
    if (has(attributes, FILE_ATTRIBUTE_READONLY))
        SetFileAttributesW(target.c_str(), FILE_ATTRIBUTE_NORMAL);

    const std::wstring temporary = temporaryBeside(target);
    if (CopyFileW(source.c_str(), temporary.c_str(), TRUE) == 0) {
        const DWORD error = GetLastError();
        // A copy that began is taken away by the call itself.
        return onlyTargetIsWritable(error) ? copyInPlace(source, target)
                                           : failedWithCode(FileStep::CreateTemporary, error);
    }
    FileResult result = flushCopy(temporary);
    const DWORD error = result ? moveIntoPlace(temporary, target) : 0;
    if (result && error == 0)
        return {};
    DeleteFileW(temporary.c_str());
    if (onlyTargetIsWritable(error))
        return copyInPlace(source, target);
    return result ? failedWithCode(FileStep::Replace, error) : result;
}
