#include "core/base/reading_order.h"

#include "core/base/letters.h"

#include <cstddef>

namespace
{

bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

std::wstring_view takeDigits(std::wstring_view& text)
{
    std::size_t length = 0;
    while (length < text.size() && isDigit(text[length]))
        ++length;
    std::wstring_view digits = text.substr(0, length);
    text.remove_prefix(length);
    while (digits.size() > 1 && digits.front() == L'0')
        digits.remove_prefix(1);
    return digits;
}

// Below, equal, above: -1, 0, 1.
int comparedDigits(std::wstring_view& a, std::wstring_view& b)
{
    const std::wstring_view left = takeDigits(a);
    const std::wstring_view right = takeDigits(b);
    if (left.size() != right.size())
        return left.size() < right.size() ? -1 : 1;
    const int compared = left.compare(right);
    return compared < 0 ? -1 : compared > 0 ? 1 : 0;
}

int comparedNames(std::wstring_view a, std::wstring_view b)
{
    while (!a.empty() && !b.empty()) {
        if (isDigit(a.front()) && isDigit(b.front())) {
            if (const int compared = comparedDigits(a, b); compared != 0)
                return compared;
            continue;
        }
        const wchar_t left = withoutCase(a.front());
        const wchar_t right = withoutCase(b.front());
        if (left != right)
            return left < right ? -1 : 1;
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return a.empty() == b.empty() ? 0 : a.empty() ? -1 : 1;
}

} // namespace

bool standsBefore(std::wstring_view a, std::wstring_view b)
{
    const int compared = comparedNames(a, b);
    return compared != 0 ? compared < 0 : a < b;
}
