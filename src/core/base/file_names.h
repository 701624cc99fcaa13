#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// A part of a file's name out of any text: what no system takes in a name becomes a dash, blanks and dots at
// its edges go. Empty where nothing is left.
std::wstring fileNamePart(std::wstring_view text, std::size_t longest = 80);

// Where the suffix begins, at its dot; the end of the path without one.
std::size_t suffixPlace(std::wstring_view path);
// What stands behind that dot, in small letters: "pdf".
std::wstring fileSuffix(std::wstring_view path);
