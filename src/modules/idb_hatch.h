#pragma once

#include <cstdint>
#include <map>
#include <vector>

// The library of fill patterns: numbers and blocks of bytes that only the drawing modules understand.
class IDBHatch
{
public:
    using Patterns = std::map<std::uint32_t, std::vector<std::uint8_t>>;

    virtual const Patterns& getHatches() = 0;
    // A number that is there already keeps its pattern.
    virtual void addHatch(std::uint32_t number, const std::vector<std::uint8_t>& pattern) = 0;

    virtual ~IDBHatch() = default;
};
