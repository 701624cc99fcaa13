#pragma once

#include <optional>
#include <string>
#include <string_view>

// Between wide text and UTF-8, for paths, JSON and the command line. Wide text is UTF-16 or UTF-32, as
// wchar_t is.

// A lone surrogate and a value beyond Unicode become U+FFFD.
std::string toUtf8(std::wstring_view text);

// Nothing where the bytes are no well-formed UTF-8 (overlong forms and surrogates included).
std::optional<std::wstring> fromUtf8(std::string_view bytes);
