#include "platform/code_page.h"

#include "platform/wide_character.h"

#include <algorithm>

std::size_t codePageLength(std::wstring_view text)
{
    if constexpr (sizeof(wchar_t) == 2) {
        return text.size();
    } else {
        const auto needsTwoUnits = [](wchar_t c) { return codeOf(c) - 0x10000U < 0x100000U; };
        return text.size() + static_cast<std::size_t>(std::count_if(text.begin(), text.end(), needsTwoUnits));
    }
}

void appendCodePage(std::wstring_view text, std::vector<std::uint8_t>& out)
{
    const std::size_t before = out.size();
    out.resize(before + codePageLength(text));
    writeCodePage(text, out.data() + before);
}

std::string toCodePage(std::wstring_view text)
{
    std::string bytes(codePageLength(text), '\0');
    writeCodePage(text, reinterpret_cast<std::uint8_t*>(bytes.data()));
    return bytes;
}

void fromCodePage(const std::uint8_t* bytes, std::size_t count, std::wstring& out)
{
    const wchar_t* const characters = codePageCharacters().data();
    // A string that grows takes more room than it needs, one that is made takes what it needs: most texts of
    // a project are numbers of four or five characters, and there the difference is a third of its memory.
    if (out.capacity() < count)
        out = std::wstring(count, L'\0');
    else
        out.resize(count);
    wchar_t* to = out.data();
    for (std::size_t i = 0; i < count; ++i)
        to[i] = characters[bytes[i]];
}

std::wstring fromCodePage(std::string_view bytes)
{
    std::wstring text;
    fromCodePage(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size(), text);
    return text;
}
