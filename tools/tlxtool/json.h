#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <vector>

// JSON with its members in the order of the file. Its numbers with a fraction are singles, as those of a
// project are: written in the fewest digits that read back as the same single, and read without a detour over
// doubles.
using Json = nlohmann::
    basic_json<nlohmann::ordered_map, std::vector, std::string, bool, std::int64_t, std::uint64_t, float>;
