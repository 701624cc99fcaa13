#pragma once

#include "plots/column.h"

class ISettings;
class ITellurixController;

// How columns are drawn by the user's settings (groups Igk and ScaleHatching), with the title block filled
// from the project, where one is open, and the office. Sheet, scale and lanes are left to the screen.
ColumnLook columnLookOf(ITellurixController& controller);
// The colour of the paper on the screen by the same settings.
Color columnPaper(ISettings& settings);
