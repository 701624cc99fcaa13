#pragma once

#include <string>

// How far an operation on a file came.
enum class FileStep {
    Done,
    Open,
    NotARegularFile,
    TooLarge,
    Read,
    CreateTemporary,
    Write,
    Flush,
    Replace,
    FlushFolder,
    CreateFolder,
};

// Outcome of an operation on a file: Done, or the step that failed with the system's own words for it.
struct FileResult {
    FileStep step = FileStep::Done;
    std::wstring reason;
    // The file itself was being written when the operation failed, so it may hold half of the new content.
    bool targetDamaged = false;

    explicit operator bool() const { return step == FileStep::Done; }
};
