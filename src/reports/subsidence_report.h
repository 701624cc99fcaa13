#pragma once

#include "document/document.h"

class IDBProject;

struct SubsidenceReportLook {
    int language = 0; // of dictionaries/dictionary.h
    bool withFoundation = false; // subsidence under the foundation that is given for the site, too
    bool isSmooth = true; // curves of the pictures
};

// What an office hands over of collapsible soils: the summary of the points with thickness, lower boundary,
// initial pressure, sum and type, the list that a plan of isolines is drawn by, and for each point all steps
// of the calculation as a table with its picture. What was typed rules and is grey. Empty but for its title
// where no point can be judged.
Document subsidenceReport(IDBProject& project, const SubsidenceReportLook& look);
