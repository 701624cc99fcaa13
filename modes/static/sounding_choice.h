#pragma once

#include <string>

// The sounding that all pages of the screen show.
struct SoundingChoice {
    std::wstring point;
};
