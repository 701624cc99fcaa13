#pragma once

// A point, a direction or a colour (red, green, blue from 0 to 1) in single precision.
struct Vec3 {
    float x = 0;
    float y = 0;
    float z = 0;

    bool operator==(const Vec3&) const = default;
};
