#pragma once

#include "persistence/format.h"

#include <stdexcept>

// One level of blocks, inform records or property items inside one another, for as long as it lives. Throws
// std::length_error below format::nestingLimit, before the stack gets into danger.
class NestingLevel
{
public:
    explicit NestingLevel(int& depth)
        : depth_(depth)
    {
        if (depth_ >= format::nestingLimit)
            throw std::length_error("nesting too deep");
        ++depth_;
    }
    ~NestingLevel() { --depth_; }
    NestingLevel(const NestingLevel&) = delete;
    NestingLevel& operator=(const NestingLevel&) = delete;

private:
    int& depth_;
};
