#pragma once

#include "document/office_options.h"

// The same text as an OpenDocument: styles by name, heads of tables that repeat, pages of several formats,
// drawings as SVG pictures.
std::string toOdt(const Document& document, const OfficeOptions& options = {});
