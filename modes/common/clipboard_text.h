#pragma once

#include <QString>
#include <QVector>

// Blocks of cells as spreadsheets put them on the clipboard: rows parted by new lines, cells by tabs, a cell
// that holds either of them, or begins with a quote, in quotes with the quotes inside doubled.

using CellBlock = QVector<QVector<QString>>;

QString clipboardText(const CellBlock& block);
// The same as a table in HTML, which text processors and spreadsheets paste as one.
QString clipboardHtml(const CellBlock& block);

// The reverse. The last row may end in a new line; rows may differ in length.
CellBlock cellsOfClipboard(const QString& text);

// A block as a table of ours holds it, in the same form, beside the text for other programs.
inline const QLatin1String cellsMimeType("application/x-tellurix-cells");

// The block on the clipboard, ours before a text; empty where there is none.
CellBlock cellsOnClipboard();
