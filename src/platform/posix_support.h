#pragma once

#include "platform/file_result.h"

#include <cerrno>
#include <string>
#include <string_view>
#include <unistd.h>
#include <utility>

// What the POSIX files of this folder share.

// UTF-8 with slashes. Empty, which names no file, for a path that holds a zero character.
std::string posixPath(std::wstring_view path);

// The failure of a step in the system's words.
FileResult failedWithErrno(FileStep step, int error = errno);

// An open file, closed with the object.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : number_(number)
    {
    }
    Descriptor(Descriptor&& other) noexcept
        : number_(std::exchange(other.number_, -1))
    {
    }
    Descriptor& operator=(Descriptor other) noexcept
    {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor()
    {
        if (number_ >= 0)
            ::close(number_);
    }

    int get() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }
    // Closes now, to learn of a late failure: network file systems report the failed write here.
    bool close() { return ::close(std::exchange(number_, -1)) == 0; }
    // Hands the open file over.
    int release() { return std::exchange(number_, -1); }

private:
    int number_ = -1;
};
