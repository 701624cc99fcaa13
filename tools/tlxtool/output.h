#pragma once

#include <cstdio>
#include <string_view>

// Text for the standard output. A write that fails (full disk, closed pipe) throws ToolError at once;
// finish() must be called at the end, because buffered text fails only there.
class Output
{
public:
    explicit Output(std::FILE* stream)
        : stream_(stream)
    {
    }

    void write(std::string_view text);
    void line(std::string_view text);
    void finish();

private:
    std::FILE* stream_;
};
