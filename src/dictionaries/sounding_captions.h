#pragma once

#include "dictionaries/dictionary.h"

// Static sounding.

// Instruments.
inline constexpr auto soundingInstruments = bilingual({
    {0, L"Не определена", L"Не визначена"},
    {1, L"УралТИСИЗ",     L"УралТІСІЗ"},
    {2, L"C979",          L"C979"},
});

// The journal.
inline constexpr auto soundingJournalTexts = bilingual({
    {0, L"Журнал статического зондирования",                L"Журнал статического зондирования"},
    {1, L"Точка статического зондирования №: %1, зонд: %2", L"Точка статичного зондування №: %1, зонд: %2"},
    {2, L"Глубина",                                         L"Глибина"},
    {4, L"qc",                                              L"qc"},
    {3, L"fs",                                              L"fs"},
    {5, L"Qs",                                              L"Qs"},
});
