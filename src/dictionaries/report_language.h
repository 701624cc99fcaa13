#pragma once

#include "dictionaries/dictionary.h"

// What a settings file says of the language, as one of the two: Russian where it is neither. Dictionaries
// have no names for a third.
constexpr int knownLanguage(int language)
{
    return language == languageUkrainian ? languageUkrainian : languageRussian;
}
