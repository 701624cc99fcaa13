#include "platform/system_text.h"

#include <windows.h>

std::wstring fromSystemText(std::string_view bytes)
{
    const int count = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, text.data(), length);
    return text;
}
