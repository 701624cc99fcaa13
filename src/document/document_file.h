#pragma once

#include "document/office_options.h"

#include <optional>

// The formats that need no toolkit. PDF is made of the pages (document/pages.h) by src/paint.
enum class DocumentFormat : std::uint8_t {
    Xlsx,
    Docx,
    Odt,
    Html,
    Csv,
};

// By the end of the name, whatever its capitals; nothing where it is another one.
std::optional<DocumentFormat> documentFormatOf(std::wstring_view path);

std::string documentBytes(const Document& document, DocumentFormat format, const OfficeOptions& options = {});

// The tables one behind another, cells parted by semicolons, in UTF-8 with its mark, as spreadsheets of this
// country open it. A text that a spreadsheet would take for a formula gets an apostrophe in front. Where the
// spreadsheet waits for a comma in numbers, it takes "3.6" for a date.
std::string toCsv(const Document& document, const OfficeOptions& options = {}, bool decimalComma = false);

// Puts the bytes in the file's place in one step, so that a failure leaves the old file whole. Throws
// MException with what the user can do: the file is open elsewhere, may not be written, the disk is full.
void writeOfficeFile(const std::wstring& path, std::string_view bytes);

// A name for a file out of any text: what no system takes in a name becomes a dash; at most 80 characters.
std::wstring fileNameOf(std::wstring_view text);
