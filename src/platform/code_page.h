#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The text of project and library files: one byte per UTF-16 code unit in the machine's ANSI code page, on
// systems without one (and where the active one needs several bytes a character) in Windows-1251. Zero bytes
// are converted like all others; that one ends a text is the business of who reads the file.

// Bytes that the text takes: its UTF-16 code units, 2 for a character above U+FFFF, whatever wchar_t is.
std::size_t codePageLength(std::wstring_view text);

// Writes exactly codePageLength(text) bytes from out on and returns the place behind them. A unit that the
// code page does not hold becomes '?' (or what the system takes instead).
std::uint8_t* writeCodePage(std::wstring_view text, std::uint8_t* out);
void appendCodePage(std::wstring_view text, std::vector<std::uint8_t>& out);
std::string toCodePage(std::wstring_view text);

// Replaces out by the text of the bytes, one character a byte.
void fromCodePage(const std::uint8_t* bytes, std::size_t count, std::wstring& out);
std::wstring fromCodePage(std::string_view bytes);

// Whether the character comes back as itself after a save and an open.
bool codePageHolds(wchar_t character);

// The character of each byte.
const std::array<wchar_t, 256>& codePageCharacters();
