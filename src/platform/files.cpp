#include "platform/files.h"

std::wstring executableFolder()
{
    const std::wstring path = executablePath();
    const std::size_t slash = path.find_last_of(L"/\\");
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash);
}
