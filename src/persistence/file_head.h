#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// Signature and version of the three formats. A match moves the position to the content. A file shorter than
// its head throws std::out_of_range ("invalid vector<T> subscript"); any other difference answers false.
bool checkProjectHead(const std::vector<std::uint8_t>& bytes, std::size_t& position);
// Returns the version minus 99, that is 1, where the head matches, else 0.
int checkHatchHead(const std::vector<std::uint8_t>& bytes, std::size_t& position);
bool checkIgkPresetHead(const std::vector<std::uint8_t>& bytes, std::size_t& position);
