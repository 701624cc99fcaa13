#pragma once

#include "calc/aggressiveness.h"
#include "document/document.h"

class IDBProject;

// What an office hands over of a site's analyses: the table of waters in three units, Kurlov's formulas as
// fractions with the waters' names, aggressiveness to concrete, reinforcement and metals with the index that
// rules. Piper's and Schoeller's diagrams where waters have ions for them. In a language of
// dictionaries/dictionary.h.
Document chemistryReport(IDBProject& project, const AggressivenessLimits& limits, int language);
