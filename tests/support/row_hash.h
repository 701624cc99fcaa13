#pragma once

#include <cstdint>
#include <string>

// FNV-1a of 64 bits: holds a whole table against one number that another program computed.
inline std::uint64_t rowHash(const std::string& bytes)
{
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<std::uint8_t>(byte)) * 0x100000001b3U;
    return hash;
}
