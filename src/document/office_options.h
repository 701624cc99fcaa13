#pragma once

#include "document/office_text.h"
#include "drawing/hatch.h"

// What the writers of files take beside the document.
struct OfficeOptions {
    const Hatches* hatches = nullptr; // of the drawings; without them areas stay without a hatch
    ExportRemarks* remarks = nullptr; // filled with what was changed on the way out
};
