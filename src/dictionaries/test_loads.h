#pragma once

#include "dictionaries/dictionary.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

// The ladders of loads, MPa, as texts: "1.00" is not "1.0".

// Compression.
inline constexpr auto compressionLoads = textsByNumber({
    {0,  L"0.0"},
    {1,  L"0.0125"},
    {2,  L"0.025"},
    {3,  L"0.0375"},
    {4,  L"0.05"},
    {5,  L"0.0625"},
    {6,  L"0.075"},
    {7,  L"0.0875"},
    {8,  L"0.1"},
    {9,  L"0.1125"},
    {10, L"0.125"},
    {11, L"0.1375"},
    {12, L"0.15"},
    {13, L"0.1625"},
    {14, L"0.175"},
    {15, L"0.1875"},
    {16, L"0.2"},
    {17, L"0.225"},
    {18, L"0.25"},
    {19, L"0.275"},
    {20, L"0.3"},
    {21, L"0.325"},
    {22, L"0.35"},
    {23, L"0.375"},
    {24, L"0.4"},
    {25, L"0.425"},
    {26, L"0.45"},
    {27, L"0.475"},
    {28, L"0.5"},
    {29, L"0.55"},
    {30, L"0.6"},
    {31, L"0.65"},
    {32, L"0.7"},
    {33, L"0.75"},
    {34, L"0.8"},
    {35, L"0.85"},
    {36, L"0.9"},
    {37, L"0.95"},
    {38, L"1.00"},
    {39, L"1.05"},
});
inline constexpr auto compressionLoadIds = reversed(compressionLoads);

// Shear.
inline constexpr auto shearLoads = textsByNumber({
    {0,  L"0.0125"},
    {1,  L"0.025"},
    {2,  L"0.0375"},
    {3,  L"0.05"},
    {4,  L"0.0625"},
    {5,  L"0.075"},
    {6,  L"0.0875"},
    {7,  L"0.1"},
    {8,  L"0.1125"},
    {9,  L"0.125"},
    {10, L"0.1375"},
    {11, L"0.15"},
    {12, L"0.1625"},
    {13, L"0.1750"},
    {14, L"0.1875"},
    {15, L"0.2"},
    {16, L"0.225"},
    {17, L"0.25"},
    {18, L"0.275"},
    {19, L"0.3"},
    {20, L"0.325"},
    {21, L"0.35"},
    {22, L"0.375"},
    {23, L"0.4"},
    {24, L"0.425"},
    {25, L"0.45"},
    {26, L"0.475"},
    {27, L"0.5"},
    {28, L"0.55"},
    {29, L"0.6"},
    {30, L"0.65"},
    {31, L"0.7"},
    {32, L"0.75"},
    {33, L"0.8"},
    {34, L"0.85"},
    {35, L"0.9"},
    {36, L"0.95"},
    {37, L"1.0"},
});
inline constexpr auto shearLoadIds = reversed(shearLoads);

// Swelling.
inline constexpr auto swellLoads = textsByNumber({
    {0,  L"0.0"},
    {1,  L"0.0025"},
    {2,  L"0.025"},
    {3,  L"0.05"},
    {4,  L"0.1"},
    {5,  L"0.2"},
    {6,  L"0.3"},
    {7,  L"0.4"},
    {8,  L"0.5"},
    {9,  L"0.6"},
    {10, L"0.7"},
    {11, L"0.8"},
    {12, L"0.9"},
    {13, L"1.0"},
});
inline constexpr auto swellLoadIds = reversed(swellLoads);

// The blank rows of a new sample, one a load.
struct CompressionRowBlank {
    int load = 0;
    std::wstring_view textA;
    std::wstring_view textB;
    std::wstring_view textC;
    int aux = 0;
    std::wstring_view note;
};

struct ShearRowBlank {
    int load = 0;
    std::wstring_view value;
};

struct SwellRowBlank {
    int load = 0;
    std::wstring_view textA;
    std::wstring_view textB;
    std::wstring_view textC;
};

template <class Row, std::size_t Size>
constexpr std::array<Row, Size> blankRows(const Dictionary<int, std::wstring_view, Size>& loads)
{
    std::array<Row, Size> rows{};
    std::transform(loads.begin(), loads.end(), rows.begin(), [](const auto& entry) {
        Row row;
        row.load = entry.key;
        return row;
    });
    return rows;
}

inline constexpr auto compressionRowsBlank = blankRows<CompressionRowBlank>(compressionLoads);
inline constexpr auto shearRowsBlank = blankRows<ShearRowBlank>(shearLoads);
inline constexpr auto swellRowsBlank = blankRows<SwellRowBlank>(swellLoads);
