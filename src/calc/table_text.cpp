#include "calc/table_text.h"

std::wstring_view trimmedField(std::wstring_view text)
{
    const auto isBlank = [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\uFEFF'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::vector<std::wstring_view> partedFields(std::wstring_view text, wchar_t mark)
{
    std::vector<std::wstring_view> parts;
    while (true) {
        const std::size_t at = text.find(mark);
        parts.push_back(trimmedField(text.substr(0, at)));
        if (at == std::wstring_view::npos)
            return parts;
        text.remove_prefix(at + 1);
    }
}
