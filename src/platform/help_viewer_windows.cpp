#include "platform/files.h"
#include "platform/help_viewer.h"

#include <algorithm>
#include <windows.h>
// After the system's own header, which it leans on.
#include <htmlhelp.h>

bool showCompiledHelp(const std::wstring& path)
{
    // The viewer shows a message of its own for a file that is missing, and takes a path for an address where
    // slashes stand in it.
    std::wstring file = path;
    std::replace(file.begin(), file.end(), L'/', L'\\');
    return fileExists(file) && HtmlHelpW(GetDesktopWindow(), file.c_str(), HH_DISPLAY_TOPIC, 0) != nullptr;
}
