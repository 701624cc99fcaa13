#pragma once

#include "drawing/drawing.h"

#include <cstdint>
#include <string_view>

// Which hatch a soil is drawn with, and on which ground.

// The number of the hatch that fits the description of a layer, found by the first soil or rock that it
// names, in Russian or Ukrainian, or in capitals in an English one. 0 where it names none.
std::uint32_t hatchOfDescription(std::wstring_view description);

// A soft ground under the hatch, in the colours in which sections are usually painted.
Color soilTint(std::uint32_t number);

// The soils whose colours the user chooses.
enum class SoilColor : std::uint8_t {
    None,
    Sand,
    SandyLoam,
    Loam,
    Clay,
};
SoilColor soilColorOf(std::uint32_t hatch);
