#pragma once

#include "modules/idbproject.h"

#include <string>

// What differs between the contents of two projects, in Russian, a line a row: added (+), removed (-) and
// changed (~) rows by register and key, changed fields with both values. Rows are found by their keys, lists
// without keys compared place by place; the order of rows does not count. Empty where nothing differs.
std::string diffProjects(IDBProject& a, IDBProject& b);
