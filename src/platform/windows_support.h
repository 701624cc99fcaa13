#pragma once

#include "platform/file_result.h"

#include <string>
#include <utility>

// What the Windows files of this folder share. Without the system's own header, so that this one compiles on
// every system.

// The failure of a step in the system's words, by the system's code for it.
FileResult failedWithCode(FileStep step, unsigned long error);
// The same by the code of the call that failed last.
FileResult failedWithLastError(FileStep step);

// The path as it is, empty where it holds a zero character, since the calls would stop there.
std::wstring windowsPath(const std::wstring& path);

// An open file, closed with the object.
class FileHandle
{
public:
    FileHandle(); // none
    explicit FileHandle(void* handle)
        : handle_(handle)
    {
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(FileHandle&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~FileHandle() { close(); }

    void* get() const { return handle_; }
    explicit operator bool() const;
    // Closes now, to learn of a late failure. True also where nothing is open.
    bool close();

private:
    void* handle_;
};
