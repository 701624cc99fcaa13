#pragma once

#include "modules/idbproject.h"
#include "tlxtool/csv_archive.h"

#include <string>

// The table as spreadsheets under a Russian system open it: UTF-8 with a mark of the byte order, semicolons,
// lines that end in CR LF; a cell with a semicolon, a quotation mark or a line break stands in quotation
// marks. Cells are not guarded in any other way: what was typed is what comes out.
std::string csvText(const CsvTable& table);

// Writes one file a table into the folder, which is made where it is missing (one level). Files that are
// there are replaced. Returns the number of files; throws ToolError.
std::size_t exportCsv(IDBProject& project, const std::wstring& folder);
