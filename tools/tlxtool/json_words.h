#pragma once

#include "tlxtool/json.h"

#include <optional>

// Singles in JSON: a number where it is finite, else its word as a string, "0x7fc00000", because JSON knows
// neither infinities nor NaN and a NaN has bits of its own.
Json singleToJson(float value);

// Nothing where the value is neither a number nor such a word. Whole numbers are singles too.
std::optional<float> singleFromJson(const Json& value);
