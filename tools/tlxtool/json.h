#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <vector>

// JSON with its members in the order of the file. Its numbers with a fraction are singles, as those of a
// project are, so that they are read without a detour over doubles. To write it, use jsonText or writeJson
// (json_text.h): the library's own way of writing singles is not always the shortest one.
using Json = nlohmann::
    basic_json<nlohmann::ordered_map, std::vector, std::string, bool, std::int64_t, std::uint64_t, float>;
