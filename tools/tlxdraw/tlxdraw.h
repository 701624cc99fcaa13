#pragma once

#include "drawing/drawing.h"
#include "drawing/hatch.h"

#include <string>
#include <vector>

// What crosses the border between tlxtool and the library that it loads; both come from one build.
struct DrawOrder {
    std::wstring path; // the format by its suffix
    const std::vector<Drawing>* pages = nullptr;
    const Hatches* hatches = nullptr;
    double dotsPerInch = 300;
    std::wstring failure = {}; // out: what went wrong; empty where all was written
    std::wstring warning = {}; // out: what the user should know all the same
    std::size_t files = 0; // out: written
};
inline constexpr char drawFunctionName[] = "tellurixDraw";
using DrawFunction = void (*)(DrawOrder& order);
