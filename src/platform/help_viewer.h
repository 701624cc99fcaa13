#pragma once

#include <string>

// Opens a compiled help file in the system's viewer. False where the system has none, or the file is not
// there.
bool showCompiledHelp(const std::wstring& path);
