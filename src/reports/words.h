#pragma once

#include "dictionaries/dictionary.h"

#include <span>
#include <string>

// Words of a report in both languages, side by side.
struct Words {
    const wchar_t* russian;
    const wchar_t* ukrainian;

    constexpr const wchar_t* in(int language) const
    {
        return language == languageUkrainian ? ukrainian : russian;
    }
};

// What a calculation says, which it says in Russian, by the rows that know it; as it is where none does.
inline std::wstring saidIn(const std::wstring& text, std::span<const Words> known, int language)
{
    for (const Words& words : known)
        if (text == words.russian)
            return words.in(language);
    return text;
}
