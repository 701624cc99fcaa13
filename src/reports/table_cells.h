#pragma once

#include "core/base/typed_number.h"
#include "document/document.h"
#include "reports/words.h"

// Cells of the reports' tables.

inline TableCell textCell(std::wstring_view text, Align align = Align::Left, bool isBold = false)
{
    TableCell cell;
    cell.runs = {{std::wstring(text), isBold}};
    cell.align = align;
    return cell;
}

// A dash where there is no number; in a workbook a number.
inline TableCell numberCell(const Number& value, int decimals)
{
    TableCell cell = textCell(value ? numberText(value, decimals) : L"–", Align::Right);
    cell.number = value;
    cell.decimals = decimals;
    return cell;
}

template <std::size_t Size>
std::vector<TableCell> headRow(
    const Words (&words)[Size], int language, Align align = Align::Left, bool isBold = false)
{
    std::vector<TableCell> row;
    for (const Words& title : words)
        row.push_back(textCell(title.in(language), align, isBold));
    return row;
}
