#pragma once

#include "drawing/drawing.h"
#include "modules/isettings.h"

#include <algorithm>
#include <cstdint>

// The colours of the curves, as the settings have them.

inline Color soundingColor(int red, int green, int blue)
{
    const auto channel = [](int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); };
    return {channel(red), channel(green), channel(blue)};
}

inline Color soundingTipColor(ISettings& settings)
{
    return soundingColor(settings.staticGraphColorForeheadStaticColorRed(),
        settings.staticGraphColorForeheadStaticColorGreen(),
        settings.staticGraphColorForeheadStaticColorBlue());
}

inline Color soundingSideColor(ISettings& settings)
{
    return soundingColor(settings.staticGraphColorSideStaticColorRed(),
        settings.staticGraphColorSideStaticColorGreen(),
        settings.staticGraphColorSideStaticColorBlue());
}
