#pragma once

#include <string>
#include <string_view>

// The file name in a path, without its extension: behind the last slash of either kind, cut at its last dot.
inline std::wstring fileStem(std::wstring_view path)
{
    const auto slash = path.find_last_of(L"\\/");
    const std::wstring_view name = slash == std::wstring_view::npos ? path : path.substr(slash + 1);
    return std::wstring(name.substr(0, name.rfind(L'.')));
}
