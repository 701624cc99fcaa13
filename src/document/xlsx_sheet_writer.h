#pragma once

#include "document/xlsx_sheets.h"
#include "document/xlsx_styles.h"
#include "document/zip_archive.h"

#include <string>
#include <utility>

inline constexpr const char* spreadsheetSpace = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";

// What the workbook tells of a sheet.
struct SheetRanges {
    // The cells with the heads of the columns and all below them, "A3:K20"; empty where there is nothing to
    // filter.
    std::string filter;
    // The rows that repeat on paper, from 1 on; both 0 where there are none.
    std::pair<std::size_t, std::size_t> head;
};

// Writes the part of one sheet into the file that is begun in the archive. Remarks may be null.
SheetRanges writeSheet(const XlsxSheet& sheet, XlsxStyles& styles, ZipArchive& zip, ExportRemarks* remarks);
