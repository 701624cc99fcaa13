#include "tables/cell_texts.h"

#include "tables/table.h"

#include <charconv>

bool TextRows::isColumnEmpty(std::size_t column) const
{
    for (std::size_t row = 0; row < size(); ++row)
        if (!cell(row, column).empty())
            return false;
    return true;
}

std::wstring singleText(float number)
{
    std::array<char, 64> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    return error == std::errc() ? std::wstring(digits.data(), end) : std::wstring();
}

std::wstring joined(const std::vector<std::wstring>& texts, std::wstring_view separator)
{
    std::wstring all;
    for (const std::wstring& text : texts) {
        all += text;
        all += separator;
    }
    all.resize(all.size() - (texts.empty() ? 0 : separator.size()));
    return all;
}
