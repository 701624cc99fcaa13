#include "platform/help_viewer.h"

#include <windows.h>
// After the system's own header, which it leans on.
#include <htmlhelp.h>

bool showCompiledHelp(const std::wstring& path)
{
    return HtmlHelpW(GetDesktopWindow(), path.c_str(), HH_DISPLAY_TOPIC, 0) != nullptr;
}
