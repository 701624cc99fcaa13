#pragma once

#include "document/document.h"

#include <string>
#include <string_view>
#include <vector>

// Texts on their way into files of others.

// What was changed on the way out, a Russian sentence each; for the user, after the export.
using ExportRemarks = std::vector<std::wstring>;

// Without what no office file may hold: control characters (a tab becomes a blank, new lines stay) and what
// is no character at all.
std::wstring cleanText(std::wstring_view text);
// The same in UTF-8.
std::string officeText(std::wstring_view text);
// The same for XML and HTML, with quotes, also those of attributes, written out.
std::string markupText(std::wstring_view text);

std::wstring plainText(const Runs& runs);

// Characters as spreadsheets count them, in units of UTF-16.
std::size_t utf16Length(wchar_t character);
std::size_t utf16Length(std::wstring_view text);

// Shortest digits that read as this number, with a point under any locale, without an exponent.
std::string digitsOf(double value);
