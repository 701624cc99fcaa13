#pragma once

#include <string>
#include <string_view>

// Text that the system or the run-time hands over as bytes: arguments of the command line and messages of
// exceptions. The active code page on Windows; elsewhere UTF-8 where the bytes are well-formed, otherwise the
// encoding of the process's locale, with U+FFFD for what that does not know.
std::wstring fromSystemText(std::string_view bytes);
