#pragma once

#include "drawing/drawing.h"

#include <string>
#include <string_view>

// Windows-1251, other characters as \U+XXXX; control characters become blanks, "%%" and "^" lose the meaning
// they have there.
std::string dxfText(std::wstring_view text);
// Letters, digits, $ - _ alone, at most 31 of them; others become _.
std::string dxfName(std::wstring_view name);
// The number of the nearest colour of the standard palette; 7 is black on white paper.
int dxfColor(const Color& color);
