#pragma once

#include "dictionaries/dictionary.h"

#include <cstddef>

// What a settings file says of the language, as one of the two: Russian where it is neither. Dictionaries
// have no names for a third.
constexpr int knownLanguage(int language)
{
    return language == languageUkrainian ? languageUkrainian : languageRussian;
}

// The place of a language among the texts of both, which stand Russian first.
constexpr std::size_t languagePlace(int language)
{
    return language == languageUkrainian ? 1 : 0;
}
