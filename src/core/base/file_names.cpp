#include "core/base/file_names.h"

#include <algorithm>

std::wstring fileNamePart(std::wstring_view text, std::size_t longest)
{
    std::wstring name;
    for (const wchar_t character : text.substr(0, longest)) {
        const bool isForbidden = std::wstring_view(L"<>:\"/\\|?*").find(character) != std::wstring_view::npos;
        name += isForbidden ? L'-' : character < L' ' ? L' ' : character;
    }
    const auto isEdge = [](wchar_t character) { return character == L' ' || character == L'.'; };
    while (!name.empty() && isEdge(name.back()))
        name.pop_back();
    while (!name.empty() && isEdge(name.front()))
        name.erase(0, 1);
    return name;
}

std::size_t suffixPlace(std::wstring_view path)
{
    const std::size_t dot = path.find_last_of(L"./\\");
    return dot != std::wstring_view::npos && path[dot] == L'.' ? dot : path.size();
}

std::wstring fileSuffix(std::wstring_view path)
{
    std::wstring suffix(path.substr(std::min(suffixPlace(path) + 1, path.size())));
    std::transform(suffix.begin(), suffix.end(), suffix.begin(), [](wchar_t letter) {
        return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter + 0x20) : letter;
    });
    return suffix;
}
