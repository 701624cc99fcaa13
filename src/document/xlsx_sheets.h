#pragma once

#include "document/office_text.h"

#include <set>
#include <vector>

// Which part of a document stands on which sheet of a workbook.

struct XlsxSheet {
    std::wstring name;
    std::vector<const Block*> above; // headings and paragraphs
    const TableBlock* table = nullptr; // null: texts alone
    std::vector<const Block*> below; // notes of the table
    PageFormat page;
};

std::vector<XlsxSheet> sheetsOf(const Document& document);

// Names that spreadsheets take: 31 characters at most, none of []:*?/\, no apostrophe at either end, each
// once, whatever its capitals.
class SheetNames
{
public:
    std::wstring make(std::wstring_view wanted);

private:
    std::set<std::wstring> taken_;
};
