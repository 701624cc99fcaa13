#pragma once

#include "platform/file_result.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Files by wide path. A path may have slashes of either kind: stored paths have backslashes, which become
// what the system takes here and nowhere else. On POSIX a path is UTF-8, whatever the locale. A path that
// holds a zero character names no file.

// The path as the system's file calls and other libraries take it.
std::wstring systemPath(std::wstring_view storedPath);

enum class FileKind { Missing, Regular, Folder, Other };

struct FileInfo {
    FileKind kind = FileKind::Missing;
    std::uint64_t size = 0;
    // Seconds since 1 January 1970, UTC.
    std::int64_t modified = 0;
    bool writable = false;
};

// Follows symbolic links; a link to nothing is missing.
FileInfo fileInfo(const std::wstring& path);
FileKind fileKind(const std::wstring& path);
inline bool fileExists(const std::wstring& path)
{
    return fileKind(path) != FileKind::Missing;
}

// No file of ours comes near this size; a larger one is refused before memory is taken for it.
inline constexpr std::uint64_t largestReadableFile = 0x7FFFFFFF;

// Replaces bytes by the content of a regular file. Folders, pipes and devices are refused without waiting for
// them; on failure bytes is empty.
FileResult readFile(const std::wstring& path, std::vector<std::uint8_t>& bytes);

// Makes one level; a folder that stands there already is fine.
FileResult createFolder(const std::wstring& path);

// Full path of the running program, empty where the system does not tell.
std::wstring executablePath();
// Its folder, without a slash at the end.
std::wstring executableFolder();
