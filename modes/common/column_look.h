#pragma once

#include "plots/column.h"

class IDBProject;
class ISettings;

// How columns are drawn by the user's settings (groups Igk and ScaleHatching), with the title block filled
// from the project, where one is open. Sheet, scale and lanes are left to the screen.
ColumnLook columnLookOf(ISettings& settings, IDBProject* project);
// The colour of the paper on the screen by the same settings.
Color columnPaper(ISettings& settings);
