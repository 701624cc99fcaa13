#pragma once

#include "calc/table_mistake.h"
#include "platform/utf8.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The tables of standards that an office may change stand in text files of one row a line; "#" begins a
// remark.

// Without blanks, the mark of the encoding and the end of a line around it.
std::wstring_view trimmedField(std::wstring_view text);
// The trimmed fields between the marks; one at least.
std::vector<std::wstring_view> partedFields(std::wstring_view text, wchar_t mark);

// The rows of a text in UTF-8. readRow(line, row) fills a row or says what is wrong with the line;
// areSameCase(one, other) tells a row that stands twice.
template <class Row, class ReadRow, class AreSameCase>
std::vector<Row> readTableRows(
    std::string_view text, ReadRow readRow, AreSameCase areSameCase, std::vector<TableMistake>& mistakes)
{
    std::vector<Row> rows;
    const std::optional<std::wstring> wide = fromUtf8(text);
    if (!wide) {
        mistakes.push_back({0, L"файл должен быть в кодировке UTF-8"});
        return rows;
    }
    std::size_t number = 0;
    for (const std::wstring_view line : partedFields(*wide, L'\n')) {
        ++number;
        if (line.empty() || line.front() == L'#')
            continue;
        Row row;
        std::wstring mistake = readRow(line, row);
        if (mistake.empty()
            && std::ranges::any_of(rows, [&](const Row& other) { return areSameCase(other, row); }))
            mistake = L"такая строка уже есть";
        if (mistake.empty())
            rows.push_back(std::move(row));
        else
            mistakes.push_back({number, std::move(mistake)});
    }
    return rows;
}
