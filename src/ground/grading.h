#pragma once

#include <cstdint>
#include <map>
#include <string>

// The two scales of fractions, as a project names them.
inline constexpr int gradingScale800 = 0;
inline constexpr int gradingScale200 = 1;

// No class was found.
inline constexpr int noFractionClass = 0;

// The class of a soil by its grading, a number of fractionSoilNames: 1 to 8 in the scale 200, 11 to 26 in the
// scale 800, 0 for none. Takes the common fraction numbers to their percentages as typed. Throws
// std::out_of_range("invalid map<K, T> key") where the scale lacks a fraction, and as textToFloat does.
int fractionClassOf(int scale, const std::map<std::uint8_t, std::wstring>& fractions);
