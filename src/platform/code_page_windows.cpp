#include "platform/code_page.h"

#include <windows.h>

namespace
{

// A code page with several bytes a character cannot be written unit by unit without losing text.
UINT filePage()
{
    static const UINT page = [] {
        CPINFO info{};
        const bool singleByte = GetCPInfo(CP_ACP, &info) != 0 && info.MaxCharSize == 1;
        return singleByte ? static_cast<UINT>(CP_ACP) : 1251U;
    }();
    return page;
}

// Keeps the lengths that the calls take within an int.
constexpr std::size_t longestPiece = 0x10000000;

void writeUnitByUnit(std::wstring_view piece, std::uint8_t* out)
{
    for (const wchar_t& unit : piece) {
        *out = '?';
        WideCharToMultiByte(filePage(), 0, &unit, 1, reinterpret_cast<char*>(out), 1, nullptr, nullptr);
        ++out;
    }
}

} // namespace

const std::array<wchar_t, 256>& codePageCharacters()
{
    static const std::array<wchar_t, 256> characters = [] {
        std::array<wchar_t, 256> table{};
        for (std::size_t i = 0; i < table.size(); ++i) {
            const char byte = static_cast<char>(static_cast<unsigned char>(i));
            if (MultiByteToWideChar(filePage(), 0, &byte, 1, &table[i], 1) != 1)
                table[i] = static_cast<wchar_t>(i);
        }
        return table;
    }();
    return characters;
}

std::uint8_t* writeCodePage(std::wstring_view text, std::uint8_t* out)
{
    while (!text.empty()) {
        const std::wstring_view piece = text.substr(0, longestPiece);
        const int length = static_cast<int>(piece.size());
        char* const to = reinterpret_cast<char*>(out);
        // A pair of surrogates may come out as one character; every unit has its own byte in the file.
        if (WideCharToMultiByte(filePage(), 0, piece.data(), length, to, length, nullptr, nullptr) != length)
            writeUnitByUnit(piece, out);
        out += piece.size();
        text.remove_prefix(piece.size());
    }
    return out;
}

bool codePageHolds(wchar_t character)
{
    std::array<std::uint8_t, 2> bytes{};
    writeCodePage({&character, 1}, bytes.data());
    return codePageCharacters()[bytes[0]] == character;
}
