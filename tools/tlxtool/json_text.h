#pragma once

#include "tlxtool/json.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

// Parses UTF-8 text, with or without a mark of its byte order. Throws ToolError with line and column where
// the text is no JSON, is no valid UTF-8, holds a number beyond single
// precision, or gives a member of an object twice.
Json parseJson(std::span<const std::uint8_t> text);

// Writes the value as UTF-8, in pieces of some size, to the sink: indented by two blanks a level, or compact
// in one line. Singles stand in the shortest form that reads back as the same single. No line break at the
// end.
void writeJson(const Json& value, bool compact, const std::function<void(std::string_view)>& sink);

// The same as one text.
std::string jsonText(const Json& value, bool compact);
