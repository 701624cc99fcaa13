#pragma once

#include <stdexcept>

// What ends a command: one sentence in UTF-8 that names the file and says what to do.
class ToolError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
