#pragma once

#include "platform/byte_blocks.h"
#include "platform/file_result.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

// All write beside the target into a temporary file of the same folder, flush it and put it in the target's
// place in one step, so that a failure leaves the old file whole. Symbolic links stay, and what they lead to
// is replaced. Only where the folder takes no new file, or does not let the target be replaced, is the target
// itself overwritten. What a program that died left there of its temporary files goes with the next write.

// The content of a file in several pieces.
using FileParts = std::span<const std::span<const std::uint8_t>>;

// A file whose content is written while it is being made. It keeps the permissions of the one that it
// replaces; one that may not be written is refused, although the folder would allow its replacement. Without
// finish, or when that fails, nothing of it stays on the disk.
class FileReplacement
{
public:
    explicit FileReplacement(const std::wstring& path);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // The next pieces, from any one thread. What fails is told by finish.
    void add(FileParts parts);
    // All pieces that were added, once more: they are needed where only the target itself may be written. Who
    // has not kept them makes them again, before the target is touched.
    FileResult finish(FileParts all);
    FileResult finish(const std::function<ByteBlocks()>& makeAgain);

private:
    struct State;
    std::unique_ptr<State> state_;
};

// The same in one go.
FileResult replaceFile(const std::wstring& path, std::span<const std::uint8_t> bytes);
FileResult replaceFileWithParts(const std::wstring& path, FileParts parts);

// Makes the target a copy of a regular file, its permissions included (on Windows without the read-only
// mark). An older target is replaced even if it may not be written: it is a backup that has had its day.
FileResult copyFile(const std::wstring& from, const std::wstring& to);
