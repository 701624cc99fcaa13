#pragma once

#include "plots/sketch.h"

#include <span>
#include <string_view>

// Sheets of the office: formats, the frame, the field that is left to draw in.

struct SheetFormat {
    const wchar_t* name; // "A4", "A3x3"
    double shortSide; // mm
    double longSide;
};

// A4 to A1, then the long formats.
std::span<const SheetFormat> sheetFormats();
// A4 where there is no format of that name.
const SheetFormat& sheetFormat(std::wstring_view name);

struct Sheet {
    double width = 210; // mm
    double height = 297;
    bool hasFrame = true;

    // Inside the frame: 20 mm on the left for binding, 5 mm elsewhere.
    Extent field() const;
};
Sheet sheetOf(const SheetFormat& format, bool isLandscape);

// A drawing of the sheet's size with the frame and nothing else in it.
Drawing emptySheet(const Sheet& sheet);
