#pragma once

#include "document/office_options.h"

// One page without anything beside it: styles in its head, drawings as SVG inside.
std::string toHtml(const Document& document, const OfficeOptions& options = {});
// A table alone, as the clipboard takes it: text processors and spreadsheets paste it as a table.
std::string toHtmlFragment(const TableBlock& table);
