#include "document/xlsx_measures.h"

#include "document/office_text.h"
#include "platform/wide_character.h"

#include <algorithm>

std::size_t longestLine(std::wstring_view text)
{
    std::size_t longest = 0;
    std::size_t length = 0;
    for (const wchar_t character : text) {
        length = character == L'\n' ? 0 : length + 1;
        longest = std::max(longest, length);
    }
    return longest;
}

std::size_t longestWord(std::wstring_view text)
{
    std::size_t longest = 0;
    std::size_t length = 0;
    for (const wchar_t character : text) {
        length = character == L'\n' || character == L' ' ? 0 : length + 1;
        longest = std::max(longest, length);
    }
    return longest;
}

std::wstring firstCharacters(std::wstring text, std::size_t units)
{
    std::size_t length = utf16Length(text);
    while (length > units && !text.empty()) {
        length -= utf16Length(text.back());
        text.pop_back();
    }
    if (!text.empty() && (codeOf(text.back()) & 0xFFFFFC00U) == 0xD800)
        text.pop_back();
    return text;
}

std::size_t linesOf(std::wstring_view text, std::size_t width)
{
    if (text.size() <= width && text.find(L'\n') == std::wstring_view::npos)
        return 1;
    std::size_t lines = 0;
    std::size_t begin = 0;
    while (begin <= text.size()) {
        const std::size_t end = std::min(text.find(L'\n', begin), text.size());
        lines += std::max<std::size_t>(1, (end - begin + width - 1) / width);
        begin = end + 1;
    }
    return lines;
}

std::size_t headLines(const TableGrid& grid, std::size_t row)
{
    std::size_t lines = 1;
    for (std::size_t column = 0; column < grid.columns(); ++column)
        if (const GridPlace& place = grid.at(row, column); place.isStart) {
            const std::wstring text = plainText(place.cell->runs);
            const std::size_t wide =
                std::max<std::size_t>(longestWord(text) + 3, 10 * static_cast<std::size_t>(place.columns));
            const std::size_t all = static_cast<std::size_t>(std::count(text.begin(), text.end(), L'\n'))
                + text.size() / wide + 1;
            const auto high = static_cast<std::size_t>(place.rows);
            lines = std::max(lines, (all + high - 1) / high);
        }
    return lines;
}
