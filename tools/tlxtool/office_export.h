#pragma once

#include "document/document.h"
#include "modules/idbproject.h"

#include <string>
#include <vector>

// The registers as a document: a heading and a table each, a sheet each in a workbook, by the names of the
// tables of a CSV export; those without rows are left out unless they are named. Throws ToolError for a name
// that no table has.
Document registersDocument(IDBProject& project, const std::vector<std::string>& names);
