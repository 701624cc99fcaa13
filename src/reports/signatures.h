#pragma once

#include "document/document.h"
#include "document/office.h"

// Lines for the signatures of the office's people behind what a document holds, where the office wants them
// there; people without a name are left out.
void addSignatures(Document& document, const Office& office);
