#include "document/xlsx_sheets.h"

#include "platform/wide_character.h"

#include <algorithm>

namespace
{

constexpr std::size_t longestSheetName = 31;

wchar_t smallLetter(wchar_t letter)
{
    if ((letter >= L'A' && letter <= L'Z') || (letter >= L'А' && letter <= L'Я'))
        return static_cast<wchar_t>(letter + 32);
    return letter == L'Ё' ? L'ё' : letter;
}

std::wstring smallLetters(std::wstring text)
{
    std::transform(text.begin(), text.end(), text.begin(), smallLetter);
    return text;
}

// The beginning with so many units of UTF-16 at most, no character halved.
std::wstring beginningOf(std::wstring_view text, std::size_t units)
{
    std::wstring beginning;
    std::size_t length = 0;
    for (const wchar_t character : text) {
        length += utf16Length(character);
        if (length > units)
            break;
        beginning += character;
    }
    if (!beginning.empty() && (codeOf(beginning.back()) & 0xFFFFFC00U) == 0xD800)
        beginning.pop_back();
    return beginning;
}

std::wstring allowedName(std::wstring_view wanted)
{
    std::wstring name = cleanText(wanted);
    for (wchar_t& character : name)
        switch (character) {
        case L'[':
            character = L'(';
            break;
        case L']':
            character = L')';
            break;
        case L':':
        case L'*':
        case L'?':
        case L'/':
        case L'\\':
            character = L'-';
            break;
        case L'\n':
            character = L' ';
            break;
        default:
            break;
        }
    name = beginningOf(name, longestSheetName);
    const auto isEdge = [](wchar_t character) { return character == L'\'' || character == L' '; };
    while (!name.empty() && isEdge(name.back()))
        name.pop_back();
    while (!name.empty() && isEdge(name.front()))
        name.erase(0, 1);
    return name;
}

bool isNote(const Block& block)
{
    const auto* paragraph = std::get_if<Paragraph>(&block);
    return paragraph && paragraph->style == Paragraph::Note;
}

} // namespace

std::wstring SheetNames::make(std::wstring_view wanted)
{
    std::wstring name = allowedName(wanted);
    // A name that spreadsheets keep for themselves.
    if (name.empty() || smallLetters(name) == L"history")
        name = L"Лист";
    std::wstring made = name;
    for (int number = 2; !taken_.insert(smallLetters(made)).second; ++number) {
        const std::wstring tail = L" (" + std::to_wstring(number) + L")";
        made = beginningOf(name, longestSheetName - tail.size()) + tail;
    }
    return made;
}

std::vector<XlsxSheet> sheetsOf(const Document& document)
{
    std::vector<XlsxSheet> sheets;
    SheetNames names;
    std::vector<const Block*> texts;
    std::wstring heading;
    PageFormat page = document.page;
    for (const Block& block : document.blocks) {
        if (const auto* section = std::get_if<Section>(&block)) {
            page = section->page;
        } else if (const auto* table = std::get_if<TableBlock>(&block)) {
            std::wstring name = names.make(!table->title.empty() ? table->title : heading);
            sheets.push_back({std::move(name), std::move(texts), table, {}, page});
            texts.clear();
        } else if (std::holds_alternative<Heading>(block) || std::holds_alternative<Paragraph>(block)) {
            if (const auto* found = std::get_if<Heading>(&block))
                heading = found->text;
            const bool isBelow = texts.empty() && !sheets.empty() && isNote(block);
            (isBelow ? sheets.back().below : texts).push_back(&block);
        }
    }
    if (sheets.empty())
        sheets.push_back({names.make(document.title), std::move(texts), nullptr, {}, page});
    else
        sheets.back().below.insert(sheets.back().below.end(), texts.begin(), texts.end());
    return sheets;
}
