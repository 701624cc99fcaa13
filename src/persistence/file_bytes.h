#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Reads a whole regular file of at least two bytes into memory and returns true. Whatever goes wrong, the
// caller sees MException with "Can't open file " and the path, code 0.
bool readFileBytes(const std::wstring& path, std::vector<std::uint8_t>& bytes);
