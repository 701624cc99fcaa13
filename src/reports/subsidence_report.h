#pragma once

#include "document/document.h"

class IDBProject;

// Subsidence of the site by own weight: a summary of all points with collapse tests, then for each point all
// steps in a table that a person can check, and its picture. Nothing in it where no point has a test.
Document subsidenceReport(IDBProject& project, int language);
