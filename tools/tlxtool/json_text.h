#pragma once

#include "tlxtool/json.h"

#include <cstdint>
#include <span>

// Parses UTF-8 text, with or without a mark of its byte order. Throws ToolError with line and column where
// the text is no JSON, is no valid UTF-8, or gives a member of an object twice.
Json parseJson(std::span<const std::uint8_t> text);
