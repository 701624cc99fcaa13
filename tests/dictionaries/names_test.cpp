#include "dictionaries/captions.h"
#include "dictionaries/dictionary.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/modes.h"
#include "dictionaries/pile_captions.h"
#include "dictionaries/properties.h"
#include "dictionaries/rock_names.h"
#include "dictionaries/section_captions.h"
#include "dictionaries/soil_names.h"
#include "dictionaries/sounding_captions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace
{

bool isLatin(wchar_t letter)
{
    return (letter >= L'A' && letter <= L'Z') || (letter >= L'a' && letter <= L'z');
}

bool isCyrillic(wchar_t letter)
{
    return letter >= 0x0400 && letter <= 0x04FF;
}

// Words that hold letters of both alphabets: each one is a Latin letter that looks like a Cyrillic one.
int mixedWords(std::wstring_view text)
{
    int count = 0;
    bool latin = false;
    bool cyrillic = false;
    for (const wchar_t letter : std::wstring(text) + L' ') {
        latin = latin || isLatin(letter);
        cyrillic = cyrillic || isCyrillic(letter);
        if (isLatin(letter) || isCyrillic(letter))
            continue;
        count += latin && cyrillic;
        latin = cyrillic = false;
    }
    return count;
}

bool holdsAny(std::wstring_view text, std::wstring_view letters)
{
    return text.find_first_of(letters) != std::wstring_view::npos;
}

constexpr std::wstring_view onlyUkrainian = L"ҐґЄєІіЇї";
constexpr std::wstring_view onlyRussian = L"ЫыЭэЪъЁё";

bool isUsualCharacter(wchar_t character)
{
    const std::wstring_view signs = L" \n,.:%/'()<>-№";
    const bool digit = character >= L'0' && character <= L'9';
    return digit || isLatin(character) || signs.find(character) != std::wstring_view::npos
        || (character >= L'А' && character <= L'я')
        || (onlyUkrainian.find(character) != std::wstring_view::npos);
}

// "1-38 42-52" for the numbers 1 to 38 and 42 to 52.
template <class Rows, class Number>
std::string runsOf(const Rows& rows, Number number)
{
    std::string runs;
    for (auto row = rows.begin(); row != rows.end();) {
        const int first = std::invoke(number, *row);
        int last = first;
        while (++row != rows.end() && std::invoke(number, *row) == last + 1)
            ++last;
        runs += (runs.empty() ? "" : " ") + std::to_string(first);
        if (last != first)
            runs += "-" + std::to_string(last);
    }
    return runs;
}

struct NameTable {
    const char* title;
    std::span<const BilingualRow> rows;
    std::string_view numbers;
    std::wstring_view first; // Russian, of the lowest number
    std::wstring_view last; // Ukrainian, of the highest number
    int mixedRussian = 0;
    int mixedUkrainian = 0;
    int russianInUkrainian = 0; // rows of the Ukrainian column with a letter that only Russian has
};

template <std::size_t Size>
std::span<const BilingualRow> rowsOf(const NameDictionary<Size>& names)
{
    return {names.begin(), names.end()};
}

const NameTable nameTables[] = {
    {"properties",
        rowsOf(propertyNames),
        "0-67",
        L"Влажность грунта пpиpодная",
        L"Гран. міцн. одноосн. сж. водонас, МПа",
        58,
        46},
    {"soil groups", rowsOf(soilGroupNames), "1-9", L"Все виды скальных и полускальных грунтов", L"Торф"},
    {"plastic soils", rowsOf(plasticSoilNames), "0-4", L"Супесь", L"Не визначений"},
    {"sand and clay", rowsOf(sandAndClayNames), "1-4", L"Песок", L"Глина"},
    {"consistency", rowsOf(consistencyNames), "0-12", L"твердая", L"текучий"},
    {"frozen grades", rowsOf(frozenGradeNames), "0-9", L"слабольдистый", L"сипкомерзлий"},
    {"rock grades", rowsOf(rockGradeNames), "0-27", L"очень прочный", L"засолений"},
    {"soils by fractions",
        rowsOf(fractionSoilNames),
        "0-8 11-26",
        L"Не определен",
        L"глинистые частицы",
        0,
        0,
        13},
    {"rocks", rowsOf(rockNames), "1-38 42-52", L"Перидотиты", L"Карноліти"},
    {"shear methods",
        rowsOf(shearMethodNames),
        "1-12",
        L"Неконсолидированно-недренированное испытание",
        L"Плашка по плашці, коли змочена поверхність"},
    {"subsidence methods",
        rowsOf(subsidenceMethodNames),
        "21-25",
        L"Испытание образца при природной влажности",
        L"Визначення просідання <комбінованим> методом (ДСТУ Б.В.2.1-22-2009)"},
    {"section columns",
        rowsOf(sectionColumnCaptions),
        "1-11",
        L"Геоиндекс",
        L"Геолого-\nлітологічна\nколонка"},
    {"wrapped section columns",
        rowsOf(sectionColumnCaptionsWrapped),
        "1-10",
        L"Геоиндекс",
        L"Графік\nстатичного зондування"},
    {"pile report columns",
        rowsOf(pileReportColumns),
        "0-8",
        L"Глубина\nпогружения\nострия\nсваи,\nм",
        L"Розрахункове\nнавантаження\nна палю\n,H кН"},
    {"sounding instruments", rowsOf(soundingInstruments), "0-2", L"Не определена", L"C979"},
    {"sounding journal", rowsOf(soundingJournalTexts), "0-5", L"Журнал статического зондирования", L"Qs"},
};

void expectTidy(std::wstring_view text)
{
    EXPECT_TRUE(std::all_of(text.begin(), text.end(), isUsualCharacter));
    EXPECT_EQ(text.find(L"  "), std::wstring_view::npos);
    EXPECT_FALSE(text.empty() || text.front() == L' ' || text.back() == L' ');
}

TEST(Names, EachTableIsWholeAndKeepsItsLetters)
{
    for (const NameTable& table : nameTables) {
        SCOPED_TRACE(table.title);
        ASSERT_EQ(runsOf(table.rows, &BilingualRow::number), table.numbers);
        EXPECT_EQ(table.rows.front().russian, table.first);
        EXPECT_EQ(table.rows.back().ukrainian, table.last);
        int mixedRussian = 0;
        int mixedUkrainian = 0;
        int russianInUkrainian = 0;
        for (const BilingualRow& row : table.rows) {
            SCOPED_TRACE(row.number);
            expectTidy(row.russian);
            expectTidy(row.ukrainian);
            EXPECT_FALSE(holdsAny(row.russian, onlyUkrainian));
            mixedRussian += mixedWords(row.russian);
            mixedUkrainian += mixedWords(row.ukrainian);
            russianInUkrainian += holdsAny(row.ukrainian, onlyRussian);
        }
        EXPECT_EQ(mixedRussian, table.mixedRussian);
        EXPECT_EQ(mixedUkrainian, table.mixedUkrainian);
        EXPECT_EQ(russianInUkrainian, table.russianInUkrainian);
    }
}

TEST(Names, SoilsOfTheFinerScaleHaveNoUkrainianNames)
{
    for (const BilingualRow& row : fractionSoilNames)
        EXPECT_EQ(row.russian == row.ukrainian, row.number >= 11) << row.number;
    EXPECT_EQ(fractionSoilNames.find(9), nullptr);
    EXPECT_EQ(fractionSoilNames.find(10), nullptr);
}

// "%1" and so on, in the order of their appearance.
std::vector<std::wstring> placeholders(std::wstring_view text)
{
    std::vector<std::wstring> found;
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] == L'%')
            found.emplace_back(text.substr(i, 2));
    return found;
}

TEST(Names, BothLanguagesOfAReportTakeTheSameValues)
{
    ASSERT_EQ(runsOf(pileReportTexts, &BilingualRow::number), "0-22");
    for (const BilingualRow& row : pileReportTexts) {
        EXPECT_EQ(placeholders(row.russian), placeholders(row.ukrainian)) << row.number;
        EXPECT_EQ(placeholders(row.russian).size(), row.number < 6 ? 5U : row.number == 22 ? 6U : 0U);
        EXPECT_EQ(std::count(row.russian.begin(), row.russian.end(), L'\n'),
            std::count(row.ukrainian.begin(), row.ukrainian.end(), L'\n'));
        EXPECT_EQ(mixedWords(row.russian) + mixedWords(row.ukrainian), 0) << row.number;
        EXPECT_FALSE(holdsAny(row.russian, onlyUkrainian) || holdsAny(row.ukrainian, onlyRussian));
    }
}

std::wstring unwrapped(std::wstring_view text)
{
    std::wstring line;
    for (const wchar_t character : text)
        if (character != L'\n')
            line += character;
        else if (line.back() != L'-')
            line += L' ';
    return line;
}

TEST(Names, NarrowHeadersSayTheSameAsTheWideOnes)
{
    for (const BilingualRow& row : sectionColumnCaptionsWrapped) {
        EXPECT_EQ(unwrapped(row.russian), sectionColumnCaptions.at(languageRussian, row.number));
        EXPECT_EQ(unwrapped(row.ukrainian), sectionColumnCaptions.at(languageUkrainian, row.number));
    }
}

TEST(Names, TextsWithoutASecondLanguage)
{
    const auto russian = [](const auto& texts, std::string_view numbers) {
        EXPECT_EQ(runsOf(texts, [](const auto& entry) { return entry.key; }), numbers);
        for (const auto& entry : texts) {
            EXPECT_EQ(mixedWords(entry.value), 0) << entry.key;
            EXPECT_FALSE(holdsAny(entry.value, onlyUkrainian)) << entry.key;
        }
    };
    russian(sampleKinds, "0-2");
    russian(registerColumns, "0-7");
    russian(pointLabelKinds, "0-3");
    russian(profilePrompts, "1-9 11-12 15 18");
    russian(pileTypes, "0-9");
    russian(labModeTitles, "1 3-7");
    EXPECT_EQ(profilePrompts.at(18), L"Выберите скважины слева направо для формирования разреза");
    EXPECT_EQ(sampleKinds.at(0), L"Нарушенная (Б|Н)");
    // The blank that joins a label to what follows belongs to the label.
    EXPECT_TRUE(captions::minimumDistance.ends_with(L' ') && captions::onTheRight.starts_with(L' '));
}

TEST(Names, SymbolsAreAsciiOrGlyphsOfTheSymbolFont)
{
    for (const auto& entry : propertySymbols) {
        EXPECT_EQ(entry.value.empty(), entry.key >= 46) << entry.key;
        for (const wchar_t character : entry.value)
            EXPECT_TRUE((character > 0x20 && character < 0x7F) || (character >= 0x80 && character <= 0xA2))
                << entry.key;
    }
    // A glyph's code must not swallow the letter behind it.
    EXPECT_EQ(propertySymbols.at(5), (std::wstring{wchar_t{0x95}, L'd'}));
    EXPECT_EQ(propertySymbols.at(31), (std::wstring{wchar_t{0x87}, L'0'}));
}

TEST(Names, ModesNameTheirModulesAndTitlesAlike)
{
    EXPECT_EQ(moduleFiles.size(), 18U);
    EXPECT_EQ(modeNames.size(), 20U);
    EXPECT_EQ(modeTitles.size(), 16U);
    std::set<std::wstring_view> files;
    for (const auto& entry : moduleFiles) {
        EXPECT_TRUE(entry.value.ends_with(L"19.dll")) << entry.key;
        files.insert(entry.value);
    }
    EXPECT_EQ(files.size(), moduleFiles.size());
    for (const auto& entry : modeTitles)
        if (const std::wstring_view* name = modeNames.find(entry.key)) {
            EXPECT_EQ(entry.value, L"[" + std::wstring(*name) + L"]");
        } else {
            EXPECT_EQ(entry.key, ModeSectionEditor);
        }
    EXPECT_FALSE(moduleFiles.contains(ModeSectionTerrain));
    EXPECT_FALSE(modeNames.contains(ModeNone));
}

} // namespace
