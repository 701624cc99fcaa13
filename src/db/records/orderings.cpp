#include "db/records/orderings.h"

#include "core/base/letters.h"
#include "core/base/text_number.h"
#include "db/records/section_records.h"
#include "db/records/sounding.h"

int wideCompare(std::wstring_view a, std::wstring_view b)
{
    return a.compare(b);
}

bool nameOrder(std::wstring_view a, std::wstring_view b)
{
    if (containsLetter(a) || containsLetter(b))
        return wideCompare(a, b) < 0;
    const int numberA = textToInt(a);
    return numberA < textToInt(b);
}

bool numericTextOrder(std::wstring_view a, std::wstring_view b)
{
    if (!containsLetter(a) && !containsLetter(b)) {
        const int numberA = textToInt(a);
        const int numberB = textToInt(b);
        if (numberA != 0 && numberB != 0)
            return numberA < numberB;
    }
    return wideCompare(a, b) < 0;
}

bool pointDepthOrder(const PointDepthKey& a, const PointDepthKey& b)
{
    const bool numeric = !containsLetter(a.pointName) && !containsLetter(b.pointName);
    // Both depths first, even where the names decide: a depth that is no number is refused at the first
    // comparison and not only beside a row of its own point.
    const float depthA = textToFloat(a.depth);
    const float depthB = textToFloat(b.depth);
    if (numeric) {
        const int numberA = textToInt(a.pointName);
        const int numberB = textToInt(b.pointName);
        if (numberA == 0 || numberB == 0)
            return false;
        return numberA != numberB ? numberA < numberB : depthB > depthA;
    }
    const int names = wideCompare(a.pointName, b.pointName);
    return names != 0 ? names < 0 : depthB > depthA;
}

// What stands behind the last delimiter; a delimiter at the very end leaves no empty piece behind it, and a
// text without any has no piece at all.
static std::wstring_view lastPiece(std::wstring_view text, wchar_t delimiter)
{
    if (text.find(delimiter) == std::wstring_view::npos)
        return {};
    if (text.back() == delimiter)
        text.remove_suffix(1);
    return text.substr(text.rfind(delimiter) + 1);
}

int sectionNumber(std::wstring_view name)
{
    const std::wstring_view piece = lastPiece(lastPiece(name, L' '), L'\'');
    return containsLetter(piece) ? 0 : textToInt(piece);
}

bool sectionNameOrder(std::wstring_view a, std::wstring_view b)
{
    const int numberA = sectionNumber(a);
    const int numberB = sectionNumber(b);
    return numberA != numberB ? numberA < numberB : wideCompare(a, b) < 0;
}

static int numberBehindColon(std::wstring_view text)
{
    const auto colon = text.find(L':');
    if (colon != std::wstring_view::npos)
        text.remove_prefix(colon + 1);
    return containsLetter(text) ? 0 : textToInt(text);
}

bool colonNumberOrder(std::wstring_view a, std::wstring_view b)
{
    const int numberA = numberBehindColon(a);
    const int numberB = numberBehindColon(b);
    return numberA != numberB ? numberA < numberB : wideCompare(a, b) < 0;
}

bool PointNameOrder::operator()(const SoundingKey& a, const SoundingKey& b) const
{
    return nameOrder(a.pointName, b.pointName);
}

bool CurveOrder::operator()(const CurveKey& a, const CurveKey& b) const
{
    const int firsts = wideCompare(a.first, b.first);
    return firsts != 0 ? firsts < 0 : wideCompare(a.second, b.second) < 0;
}
