#pragma once

#include "dictionaries/dictionary.h"

// Words of a report in both languages, side by side.
struct Words {
    const wchar_t* russian;
    const wchar_t* ukrainian;

    constexpr const wchar_t* in(int language) const
    {
        return language == languageUkrainian ? ukrainian : russian;
    }
};
