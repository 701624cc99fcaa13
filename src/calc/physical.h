#pragma once

#include "calc/remark.h"
#include "core/base/typed_number.h"

#include <array>

// Phase relations of a soil: what follows from its moisture, densities and limits.

// Moistures are fractions, densities g/cm3, as the laboratory's cells have them.
struct PhysicalInput {
    Number moisture; // property 0
    Number density; // 1
    Number particleDensity; // 2
    Number liquidLimit; // 3
    Number plasticLimit; // 4
    Number dryDensity; // 5 as typed: stands in where 0 or 1 is missing
    bool isOrganic = false; // the limits of mineral soils do not hold
};

// Each is missing where one of its inputs is missing or impossible.
struct Physical {
    Number dryDensity; // property 5, g/cm3
    Number voidRatio; // 6
    Number porosity; // 7, %
    Number saturation; // 8
    Number fullMoisture; // 9, fraction
    Number saturatedDensity; // 10, g/cm3
    Number submergedDensity; // 11, g/cm3
    Number plasticity; // 12, %
    Number liquidity; // 13
    Number collapseIndicator; // 14
    Remarks remarks;
};

// Never throws, never answers what is not finite.
Physical physicalOf(const PhysicalInput& input);

// The derived properties by their numbers, in ascending order.
inline constexpr int firstDerivedProperty = 5;
inline constexpr int lastDerivedProperty = 14;
std::array<Number, 10> derivedProperties(const Physical& physical);
// How many decimals a derived property is written with; 5 to 14.
int derivedDecimals(int property);

// What the indicator of property 14 lets one suspect; the test itself decides.
enum class Suspicion { None, Collapse, Swelling };
Suspicion suspicionOf(const Physical& physical);
