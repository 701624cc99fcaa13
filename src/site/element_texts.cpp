#include "site/element_texts.h"

#include "core/base/letters.h"
#include "core/base/text_number.h"

#include <algorithm>
#include <array>
#include <set>

static constexpr wchar_t firstAllowed = L'!';
static constexpr wchar_t lastAllowed = L'z';
static constexpr std::wstring_view uniformPrefix = L"ИГЭ-";

static bool isAllowed(wchar_t character)
{
    return character >= firstAllowed && character <= lastAllowed;
}

bool isElementText(std::wstring_view text)
{
    return std::all_of(text.begin(), text.end(), isAllowed);
}

// What stands at the same place looks the same.
static constexpr std::wstring_view foreign = L"АВЕЗКМНОРСТУХаеорсухІіЈјЅѕ–—−«»“”„‚";
static constexpr std::wstring_view similar = L"ABE3KMHOPCTYXaeopcyxIiJjSs---\"\"\"\"\",";
static_assert(foreign.size() == similar.size());

std::optional<std::wstring> latinLookAlike(std::wstring_view text)
{
    std::wstring latin;
    for (const wchar_t character : text) {
        if (character == L' ' || character == L'\u00a0')
            continue;
        if (const auto at = foreign.find(character); at != std::wstring_view::npos)
            latin += similar[at];
        else if (isAllowed(character))
            latin += character;
        else
            return std::nullopt;
    }
    return latin;
}

std::wstring elementTextProblem(std::wstring_view text)
{
    if (isElementText(text))
        return {};
    std::wstring why =
        L"Файл проекта хранит здесь только латинские буквы, цифры и простые знаки без пробелов; с другими он "
        L"больше не откроется.";
    if (const auto latin = latinLookAlike(text))
        return why + L" Введите «" + *latin + L"» латинскими буквами.";
    return why;
}

std::wstring elementNameProblem(
    const StrataElementMap& elements, std::wstring_view name, std::wstring_view renamed)
{
    if (name.empty())
        return L"Введите номер элемента.";
    if (name.find(L':') != std::wstring_view::npos)
        return L"В номере элемента не может быть двоеточия: им отделяется номер слоя.";
    int number = 0;
    if (!containsLetter(name)) {
        try {
            number = textToInt(name);
        } catch (const std::exception&) {
            return L"В номере элемента нужна буква или число.";
        }
        if (number == 0)
            return L"Номер элемента не может читаться как ноль.";
    }
    for (const auto& [other, element] : elements) {
        if (other == renamed)
            continue;
        if (other == name)
            return L"Элемент " + std::wstring(name) + L" уже есть.";
        if (number != 0 && !containsLetter(other) && textToInt(other) == number)
            return L"«" + std::wstring(name) + L"» и «" + other + L"» читаются как одно число.";
    }
    return {};
}

bool haveCommonOrder(const std::vector<std::wstring>& names)
{
    const auto lettered = std::count_if(
        names.begin(), names.end(), [](const std::wstring& name) { return containsLetter(name); });
    if (lettered == static_cast<std::ptrdiff_t>(names.size()))
        return true;
    if (lettered > 0)
        return false;
    std::set<int> numbers;
    for (const std::wstring& name : names)
        if (const int number = textToInt(name); number == 0 || !numbers.insert(number).second)
            return false;
    return true;
}

std::wstring uniformElementName(std::wstring_view name)
{
    return std::wstring(name.starts_with(uniformPrefix) ? L"" : uniformPrefix) + std::wstring(name);
}

std::wstring_view shortElementName(std::wstring_view name)
{
    return name.starts_with(uniformPrefix) && name.size() > uniformPrefix.size()
        ? name.substr(uniformPrefix.size())
        : name;
}

static constexpr std::array<std::wstring_view, elementKindCount> kindNames = {L"",
    L"Песок",
    L"Супесь",
    L"Суглинок",
    L"Глина",
    L"Крупнообломочный",
    L"Скальный",
    L"Органический",
    L"Техногенный"};

std::wstring_view elementKindName(ElementKind kind)
{
    const auto number = static_cast<std::size_t>(kind);
    return number < kindNames.size() ? kindNames[number] : std::wstring_view();
}

ElementKind elementKindNamed(std::wstring_view name)
{
    const auto found = std::find(kindNames.begin(), kindNames.end(), name);
    return found == kindNames.end() ? ElementKind::NotGiven
                                    : static_cast<ElementKind>(found - kindNames.begin());
}

ElementKind elementKindOf(const StrataElement& element)
{
    return element.code > 0 && element.code < elementKindCount ? static_cast<ElementKind>(element.code)
                                                               : ElementKind::NotGiven;
}
