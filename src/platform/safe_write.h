#pragma once

#include "platform/file_result.h"

#include <cstdint>
#include <span>
#include <string>

// Both write beside the target into a temporary file of the same folder, flush it and put it in the target's
// place in one step, so that a failure leaves the old file whole. Symbolic links stay, and what they lead to
// is replaced. Only where the folder takes no new file, or does not let the target be replaced, is the target
// itself overwritten. What a program that died left there of its temporary files goes with the next write.

// Makes bytes the content of the file and keeps its permissions. A file that may not be written is refused,
// although the folder would allow its replacement.
FileResult replaceFile(const std::wstring& path, std::span<const std::uint8_t> bytes);
// The same with the bytes in several pieces.
using FileParts = std::span<const std::span<const std::uint8_t>>;
FileResult replaceFileWithParts(const std::wstring& path, FileParts parts);

// Makes the target a copy of a regular file, its permissions included (on Windows without the read-only
// mark). An older target is replaced even if it may not be written: it is a backup that has had its day.
FileResult copyFile(const std::wstring& from, const std::wstring& to);
