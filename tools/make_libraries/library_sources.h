#pragma once

#include "modules/idb_hatch.h"
#include "modules/idb_igk_preset.h"

#include <cstdint>
#include <string_view>
#include <vector>

// From the readable sources of the libraries (data/README.md) to the files that the program reads.

// Both throw a std::exception that names the place where the source has a mistake.
IDBHatch::Patterns readHatchSource(std::string_view json);
IDBIgkPreset::Presets readPresetSource(std::string_view json);

// The bytes of hatch.dat and igkPreset.dat.
std::vector<std::uint8_t> encodeHatches(const IDBHatch::Patterns& hatches);
std::vector<std::uint8_t> encodePresets(const IDBIgkPreset::Presets& presets);
