#pragma once

#include "db/records/point_keys.h"

#include <string>
#include <string_view>

struct CurveKey;
struct SoundingKey;

// The orderings of every map with a text key. They read the texts as numbers inside the comparison, so a
// text that is no number makes the map operation fail: std::invalid_argument ("invalid stoi argument",
// "invalid stof argument") or std::out_of_range ("stoi argument out of range", "stof argument out of range").
// They never touch the heap. Names that mix numbers and text have no consistent order, and several names
// can read as one number: never use erase(key), equal_range, count, operator[], try_emplace, emplace_hint or
// merge on such a map, but findExact and eraseExact (db/exact_key.h) and insert.

// Lexicographic by code unit; below zero, zero or above zero.
int wideCompare(std::wstring_view a, std::wstring_view b);

// Names without letters compare as integers ("9" before "10", "01" equals "1"), others as text.
bool nameOrder(std::wstring_view a, std::wstring_view b);

// As nameOrder, but a name that reads as 0 compares as text.
bool numericTextOrder(std::wstring_view a, std::wstring_view b);

// By name, then by depth. A purely numeric name that reads as 0 is equivalent to every purely numeric name:
// the behaviour that files rely on, not to be repaired.
bool pointDepthOrder(const PointDepthKey& a, const PointDepthKey& b);

// The number in a section's name: 2 of "Разрез 2-2'"; 0 where it holds a letter; throws where there is no
// blank or no apostrophe.
int sectionNumber(std::wstring_view name);

// By section number, then as text.
bool sectionNameOrder(std::wstring_view a, std::wstring_view b);

// By the number behind the first colon ("a:2" before "a:10"), then as text.
bool colonNumberOrder(std::wstring_view a, std::wstring_view b);

// The same as the comparison objects of the maps.
struct PointNameOrder {
    bool operator()(const PointKey& a, const PointKey& b) const
    {
        return nameOrder(a.pointName, b.pointName);
    }
    bool operator()(const SoundingKey& a, const SoundingKey& b) const;
};

struct PointDepthOrder {
    bool operator()(const PointDepthKey& a, const PointDepthKey& b) const { return pointDepthOrder(a, b); }
};

struct NumericTextOrder {
    bool operator()(const std::wstring& a, const std::wstring& b) const { return numericTextOrder(a, b); }
};

struct SectionNameOrder {
    bool operator()(const std::wstring& a, const std::wstring& b) const { return sectionNameOrder(a, b); }
};

struct ColonNumberOrder {
    bool operator()(const std::wstring& a, const std::wstring& b) const { return colonNumberOrder(a, b); }
};

struct CurveOrder {
    bool operator()(const CurveKey& a, const CurveKey& b) const;
};
