#pragma once

#include "modules/idb_igk_preset.h"
#include "plots/column.h"

#include <QString>

#include <map>

// The user's own presets of the column, in a file beside igkPreset.dat, which is the program's and read only.

struct UserPreset {
    IgkPreset preset;
    std::vector<ColumnLane> widths; // of all its columns
};
using UserPresets = std::map<QString, UserPreset>;

// Empty where there is no file; one that cannot be read counts as none and is kept under the suffix .bad.
UserPresets readUserPresets();
// Throws MException with a text for the user; the old file stays whole then.
void writeUserPresets(const UserPresets& presets);
