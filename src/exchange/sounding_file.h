#pragma once

#include "core/base/typed_number.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

// Soundings out of files of other programs: tables of text (CSV, TXT) with columns that the user names, and
// GEF-CPT files, which name theirs. Nothing here touches a project.

// What a column of a table can be, with its unit.
enum class SoundingColumn {
    Ignored,
    DepthM,
    TipMPa,
    TipKPa,
    SleeveKPa,
    SleeveMPa,
    SideKN,
};
std::wstring_view soundingColumnName(SoundingColumn column);
inline constexpr SoundingColumn soundingColumns[] = {SoundingColumn::Ignored,
    SoundingColumn::DepthM,
    SoundingColumn::TipMPa,
    SoundingColumn::TipKPa,
    SoundingColumn::SleeveKPa,
    SoundingColumn::SleeveMPa,
    SoundingColumn::SideKN};

// The cells of a file as they stand, the lines before the first numbers apart.
struct SoundingTable {
    std::vector<std::wstring> head; // lines as they are
    std::vector<std::vector<std::wstring>> rows; // of numbers
    std::vector<SoundingColumn> columns; // proposed by the head's words and the size of the values
    std::wstring point, date; // where the file says them; the date as "27.05.2019"
    std::vector<std::wstring> remarks;
    bool isGef = false;
};

// Bytes in UTF-8 or in the code page 1251. Throws MException where there is no row of two numbers, and where
// the file is no text.
SoundingTable readSoundingFile(std::span<const std::uint8_t> bytes);

// A reading as the journal has it: m, MPa, kPa, kN.
struct ImportedReading {
    double depth = 0.0;
    Number tip, sleeve, side;
};
// The rows by the chosen columns; rows without a depth are left out. The later of two columns of one quantity
// counts.
std::vector<ImportedReading> importedReadings(
    const SoundingTable& table, std::span<const SoundingColumn> columns);
