#pragma once

#include <cstdint>
#include <string>

// A point of the site. Only the name takes part in the ordering: a point has one entry, whatever its kind.
struct PointKey {
    std::wstring pointName;
    std::uint8_t pointKind = 0;
};

// A row of a point: the point's name and a depth in metres, both as the user typed them.
struct PointDepthKey {
    std::wstring pointName;
    std::wstring depth;
};
