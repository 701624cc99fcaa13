#pragma once

#include "core/base/typed_number.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class IDBProject;

// PointKey::pointKind.
enum class PointKind : std::uint8_t {
    Unknown, // stands in no register of points
    Borehole,
    Pit,
    Sounding,
};

// "Скважина", "Шурф", "Зондирование"; of other numbers the number itself.
std::wstring pointKindFullName(int kind);
// "Скв.", "Шурф", "Тсз.".
std::wstring pointKindShortName(int kind);

// A point of the register in numbers. Views into the project: look, use and let go before the next change.
struct SitePoint {
    std::wstring_view name;
    PointKind kind = PointKind::Unknown;
    Number x = {}; // north, m
    Number y = {}; // east, m
    Number mark = {}; // of the mouth, m
    std::wstring_view markText = {}; // as typed
    std::wstring_view date = {}; // as typed
};

// All points of the register, in its order.
std::vector<SitePoint> sitePoints(IDBProject& project);
// The first of that name.
std::optional<SitePoint> sitePoint(IDBProject& project, std::wstring_view name);
