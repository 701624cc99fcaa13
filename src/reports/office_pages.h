#pragma once

#include "document/document.h"
#include "document/office.h"
#include "plots/title_block.h"

class IDBProject;

// What an office puts on its papers, whatever stands in them.

// The cells of a title block that the office and the project know; null: no project.
TitleBlockTexts titleBlockTexts(const Office& office, IDBProject* project, int language);

// Author and foot, where the document has none of its own; lines for signatures below, where the office wants
// them there: people without a name are left out. The office's picture above, where one is given.
void addOffice(Document& document, const Office& office, const std::optional<Drawing>& logo = {});

// A frame on each page, form 5 on the first and form 6 on the others, in place of head and foot. Margins that
// are too narrow for it grow.
void addFrames(Document& document, const TitleBlockTexts& texts);
