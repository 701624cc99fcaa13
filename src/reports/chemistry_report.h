#pragma once

#include "calc/aggressiveness.h"
#include "document/document.h"

class IDBProject;

// What an office hands over of a site's analyses: the table of waters in three units, Kurlov's formulas as
// fractions with the waters' names, aggressiveness to concrete, reinforcement and metals with the index that
// rules. A diagram closes it where waters have both cations and anions.
Document chemistryReport(IDBProject& project, const AggressivenessLimits& limits);
