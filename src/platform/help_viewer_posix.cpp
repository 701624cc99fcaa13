#include "platform/help_viewer.h"

bool showCompiledHelp(const std::wstring&)
{
    return false;
}
