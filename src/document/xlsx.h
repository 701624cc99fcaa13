#pragma once

#include "document/office_options.h"

// A workbook: a sheet for each table, named by its title, with what stands above the table in the document
// above its head; the texts alone where there is no table. Numbers are numbers in formats with their
// decimals, everything else stays text whatever it begins with; heads are frozen, filtered, repeated on
// paper. Drawings are left out. Texts beyond 32,767 characters are cut with a mark and a remark.
std::string toXlsx(const Document& document, const OfficeOptions& options = {});
