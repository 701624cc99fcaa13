#pragma once

#include <string>
#include <utility>

// The exception of the system: a message that a user can act on, and a code, which is 0 everywhere but
// for a project file that cannot be read (2).
class MException
{
public:
    explicit MException(std::wstring message, int code = 0)
        : message_(std::move(message))
        , code_(code)
    {
    }

    const std::wstring& message() const { return message_; }
    int code() const { return code_; }

private:
    std::wstring message_;
    int code_;
};
