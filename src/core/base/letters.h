#pragma once

#include <string_view>

// What counts as a letter in the names of points and sections: A-Z, a-z and every letter of any alphabet from
// U+0100 to U+FFFF. U+0080 to U+00FF hold none. The same on every system and in every locale, since these
// answers decide how a name is ordered, as a number or as text.
bool isLetter(wchar_t character);

// Latin, Russian and Ukrainian capitals as small letters, and Ё as Е, in any locale; all else as it is.
wchar_t withoutCase(wchar_t character);

// An empty text holds none.
bool containsLetter(std::wstring_view text);
