#pragma once

#include "tlxtool/calc/sections.h"

// All results of a project as one JSON object; docs/calc.schema.json tells its keys.
Results calculateAll(IDBProject& project, int language);
