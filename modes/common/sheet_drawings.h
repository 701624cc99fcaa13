#pragma once

#include "common/sheet_screen.h"

class ITellurixController;

// The column of the point in the first cell.
MakeDrawing columnDrawing(ITellurixController* controller);
// The sections through the points of lines, and the views of the whole site.
SheetDrawings sectionDrawings(ITellurixController* controller);
