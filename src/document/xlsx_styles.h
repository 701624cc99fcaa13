#pragma once

#include <compare>
#include <map>
#include <string>
#include <vector>

// How a cell of a workbook looks. Each look that is used becomes one format.
struct XlsxLook {
    enum Kind : char {
        Plain, // no rules around it
        Body,
        Head,
        Title, // a heading above a table
    };
    Kind kind = Plain;
    char align = 0; // 0 left, 1 centre, 2 right
    int decimals = -1; // of a number; below 0: text
    bool isWrapped = false;
    bool isMarked = false;
    bool isBold = false;
    bool isItalic = false;
    bool isStruck = false;

    auto operator<=>(
        const XlsxLook&) const = default; // NOLINT(modernize-use-nullptr): it means the library's zero
};

class XlsxStyles
{
public:
    XlsxStyles() { number({}); }
    // The number of the format in the part below.
    int number(const XlsxLook& look);
    // xl/styles.xml
    std::string part() const;

private:
    std::map<XlsxLook, int> numbers_;
    std::vector<XlsxLook> looks_;
};
