#pragma once

#include <string_view>
#include <vector>

// The tables of standards that an office may change stand in text files of one row a line.

// Without blanks, the mark of the encoding and the end of a line around it.
std::wstring_view trimmedField(std::wstring_view text);
// The trimmed fields between the marks; one at least.
std::vector<std::wstring_view> partedFields(std::wstring_view text, wchar_t mark);
