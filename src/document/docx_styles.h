#pragma once

#include <string>

// word/styles.xml
std::string docxStyles();
// word/numbering.xml: list 1 has bullets; the others, from 2 on, count, each from 1.
std::string docxNumbering(int lists);
inline constexpr const char* wordSpace = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
