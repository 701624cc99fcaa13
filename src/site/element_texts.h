#pragma once

#include "db/records/strata_element.h"
#include "site/cells.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What may stand in the names and the texts of elements, and how they are shown.

// Whether the file can give an element's text back: the characters from ! to z alone, no blank, no Cyrillic.
bool isElementText(std::wstring_view text);
// The same to the eye in characters that can: Cyrillic letters that look like Latin ones, long dashes, no
// blanks. Nothing where some character has no look-alike.
std::optional<std::wstring> latinLookAlike(std::wstring_view text);
// Why a text cannot stand in an element, with what to type instead; empty where it can.
std::wstring elementTextProblem(std::wstring_view text);

// Why an element cannot have this name beside the others; empty where it can. The element that is to be
// renamed is not counted among the others.
std::wstring elementNameProblem(
    const StrataElementMap& elements, std::wstring_view name, std::wstring_view renamed = {});
// Names of letters and names of digits together ("2а", "3", "10") have no common order in the register and
// get lost in look-ups; several that begin with one number ("2", "2.1") are one key.
bool haveCommonOrder(const std::vector<std::wstring>& names);
// One form for all, "ИГЭ-2а", and how that is shown, "2а".
std::wstring uniformElementName(std::wstring_view name);
std::wstring_view shortElementName(std::wstring_view name);

// "Песок", "Супесь" ...; of other numbers and of NotGiven empty.
std::wstring_view elementKindName(ElementKind kind);
ElementKind elementKindNamed(std::wstring_view name);
ElementKind elementKindOf(const StrataElement& element);
inline constexpr int elementKindCount = 9;
