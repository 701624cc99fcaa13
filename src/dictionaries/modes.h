#pragma once

#include "dictionaries/dictionary.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

// Modes: what the user switches between. They go through signals, undo contexts and tables as plain integers.
enum TX_Modes : int {
    ModeProjects = 0,
    ModeListCoords = 1,
    ModeSetup = 2,
    ModeLitology = 3,
    ModeTests = 4,
    ModeWaters = 5,
    ModeConsistents = 6,
    ModeLaboratory = 7,
    ModeIge = 8,
    ModeStatic = 10,
    ModeSection = 11,
    ModeSectionTerrain = 13,
    ModeSectionLongitudinal = 14,
    ModeSectionCross = 15,
    ModeSectionEditor = 16,
    ModeIgk = 17,
    ModeIgkSetup = 18,
    ModeSubsidence = 19,
    ModeChemistry = 20,
    ModeConsolidated = 21,
    ModeStratigraphic = 22,
    ModeStratigraphicIge = 23,
    ModeGranulometry = 26,
    ModeNone = 99,
};

// Pages of the laboratory mode.
enum TX_Lab_Modes : int {
    LabNone = 0,
    LabPhysical = 1,
    LabGranulometry = 3,
    LabCompression = 4,
    LabShear = 5,
    LabSwell = 6,
    LabShrink = 7,
};

// One row a mode: the file of its module, its plain name, its caption in the window's title. An empty cell is
// one that the table in question does not hold. Modes 13 to 15 share the module of mode 11.
struct ModeRow {
    TX_Modes mode;
    std::wstring_view moduleFile;
    std::wstring_view name;
    std::wstring_view title;
};

inline constexpr ModeRow modeRows[] = {
    {ModeProjects,            L"projects19.dll",         L"",                                   L""},
    {ModeListCoords,          L"listCoords19.dll",       L"Ведомость координат",                L"[Ведомость координат]"},
    {ModeSetup,               L"setup19.dll",            L"",                                   L""},
    {ModeLitology,            L"litology19.dll",         L"Литология",                          L"[Литология]"},
    {ModeTests,               L"tests19.dll",            L"Пробы",                              L"[Пробы]"},
    {ModeWaters,              L"waters19.dll",           L"Уровень воды",                       L"[Уровень воды]"},
    {ModeConsistents,         L"consistents19.dll",      L"Консистенция",                       L"[Консистенция]"},
    {ModeLaboratory,          L"laboratory19.dll",       L"Лабораторные пробы",                 L"[Лабораторные пробы]"},
    {ModeIge,                 L"ige19.dll",              L"Инженерно-геологический элемент",    L"[Инженерно-геологический элемент]"},
    {ModeStatic,              L"static19.dll",           L"Статическое зондирование",           L"[Статическое зондирование]"},
    {ModeSection,             L"section19.dll",          L"Разрез",                             L"[Разрез]"},
    {ModeSectionTerrain,      L"",                       L"Разрез (Цифровая модель местности)", L""},
    {ModeSectionLongitudinal, L"",                       L"Разрез (Продольный профиль)",        L""},
    {ModeSectionCross,        L"",                       L"Разрез (Поперечный профиль)",        L""},
    {ModeSectionEditor,       L"sectionEditor19.dll",    L"",                                   L"[Редактор разреза]"},
    {ModeIgk,                 L"igk19.dll",              L"Инженерно-геологическая колонка",    L"[Инженерно-геологическая колонка]"},
    {ModeIgkSetup,            L"",                       L"Настройка ИГК",                      L""},
    {ModeSubsidence,          L"subsidence19.dll",       L"Общая просадочность",                L"[Общая просадочность]"},
    {ModeChemistry,           L"chemistry19.dll",        L"Химический анализ",                  L"[Химический анализ]"},
    {ModeConsolidated,        L"consolidated19.dll",     L"Генерация отчетной документации",    L"[Генерация отчетной документации]"},
    {ModeStratigraphic,       L"stratigraphic19.dll",    L"Стратиграфические колонки",          L"[Стратиграфические колонки]"},
    {ModeStratigraphicIge,    L"stratigraphicIge19.dll", L"Стратиграфическая колонка",          L"[Стратиграфическая колонка]"},
    {ModeGranulometry,        L"",                       L"Гранулометрия",                      L""},
};

template <std::wstring_view ModeRow::* column>
constexpr auto modeTexts()
{
    constexpr auto holds = [](const ModeRow& row) { return !(row.*column).empty(); };
    constexpr auto size
        = static_cast<std::size_t>(std::count_if(std::begin(modeRows), std::end(modeRows), holds));
    std::array<DictionaryEntry<int, std::wstring_view>, size> entries{};
    std::size_t next = 0;
    for (const ModeRow& row : modeRows)
        if (holds(row))
            entries[next++] = {row.mode, row.*column};
    return Dictionary<int, std::wstring_view, size>(entries);
}

inline constexpr auto moduleFiles = modeTexts<&ModeRow::moduleFile>();
inline constexpr auto modeNames = modeTexts<&ModeRow::name>();
inline constexpr auto modeTitles = modeTexts<&ModeRow::title>();

inline constexpr auto labModeTitles = textsByNumber({
    {LabPhysical,     L"Физические свойства"},
    {LabGranulometry, L"Гранулометрия"},
    {LabCompression,  L"Компрессия"},
    {LabShear,        L"Сдвиг"},
    {LabSwell,        L"Набухание/Усадка"},
    {LabShrink,       L"Набухание/Усадка"},
});
