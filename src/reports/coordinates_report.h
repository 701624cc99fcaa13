#pragma once

#include "document/document.h"

class IDBProject;

// The register of coordinates and heights of a site's points as an office hands it over: numbered rows,
// coordinates, mark of the mouth, depth of the deepest layer, date of the survey.
Document coordinatesReport(IDBProject& project);
