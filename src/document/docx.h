#pragma once

#include "document/office_options.h"

// A text with styles by name, so that an office can restyle it: headings, body, captions, notes, lists, the
// texts of tables. Heads of tables repeat, pages are counted, the frame stands behind the text; drawings are
// metafiles (EMF), sharp at any size.
std::string toDocx(const Document& document, const OfficeOptions& options = {});
