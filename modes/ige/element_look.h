#pragma once

#include "site/element_texts.h"

#include <QColor>
#include <QIcon>
#include <QString>

class IDBProject;

// The colour of an element: its own, else by its kind.
QColor colorOf(const StrataElement& element);
// As StrataElement::valueB keeps it.
std::int32_t storedColor(const QColor& color);
QIcon swatch(const QColor& color);
// "2а  Суглинок тугопластичный": number and words, for lists.
QString elementTitle(IDBProject& project, const std::wstring& name);
// The number of the hatch in a pattern's bytes, 0 where there is none; and back.
std::uint32_t hatchNumber(const std::vector<std::uint8_t>& pattern);
std::vector<std::uint8_t> hatchBytes(std::uint32_t number);
