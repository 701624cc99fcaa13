#include "document/document_file.h"

#include "core/base/file_names.h"
#include "core/base/mexception.h"
#include "document/docx.h"
#include "document/html.h"
#include "document/odt.h"
#include "document/table_grid.h"
#include "document/xlsx.h"
#include "platform/safe_write.h"

#include <algorithm>
#include <span>

namespace
{

constexpr std::pair<const wchar_t*, DocumentFormat> formats[] = {
    {L".xlsx", DocumentFormat::Xlsx},
    {L".docx", DocumentFormat::Docx},
    {L".odt", DocumentFormat::Odt},
    {L".html", DocumentFormat::Html},
    {L".htm", DocumentFormat::Html},
    {L".csv", DocumentFormat::Csv},
};

void appendCell(std::string& csv, const TableCell& cell, bool decimalComma)
{
    std::wstring text = cleanText(plainText(cell.runs));
    if (decimalComma && cell.number)
        std::replace(text.begin(), text.end(), L'.', L',');
    const bool isFormula =
        !text.empty() && std::wstring_view(L"=@+-").find(text.front()) != std::wstring_view::npos;
    if (isFormula && text.size() > 1 && !readNumber(text))
        text.insert(0, 1, L'\'');
    if (text.find_first_of(L";\"\n") == std::wstring::npos) {
        csv += officeText(text);
        return;
    }
    csv += '"';
    for (const char character : officeText(text)) {
        if (character == '"')
            csv += '"';
        csv += character;
    }
    csv += '"';
}

void appendRows(std::string& csv, const TableRows& rows, std::size_t columns, bool decimalComma)
{
    const TableGrid grid(rows, columns);
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            if (column > 0)
                csv += ';';
            // A spanned place repeats nothing: its cell stands where it begins.
            if (const GridPlace& place = grid.at(row, column); place.isStart)
                appendCell(csv, *place.cell, decimalComma);
        }
        csv += "\r\n";
    }
}

const wchar_t* adviceFor(FileStep step)
{
    switch (step) {
    case FileStep::NotARegularFile:
        return L"Под этим именем стоит не файл. Выберите другое имя.";
    case FileStep::Open:
    case FileStep::Replace:
        return L"Возможно, файл открыт в другой программе или защищён от записи. Закройте его или выберите "
               L"другое имя.";
    case FileStep::CreateTemporary:
        return L"Папки нет, или в неё нельзя записывать. Выберите другую папку.";
    default:
        return L"Возможно, на диске нет места. Освободите его или выберите другой диск.";
    }
}

} // namespace

std::optional<DocumentFormat> documentFormatOf(std::wstring_view path)
{
    for (const auto& [ending, format] : formats) {
        const std::wstring_view wanted = ending;
        if (path.size() <= wanted.size())
            continue;
        const std::wstring_view end = path.substr(path.size() - wanted.size());
        if (std::equal(end.begin(), end.end(), wanted.begin(), [](wchar_t a, wchar_t b) {
                return (a >= L'A' && a <= L'Z' ? static_cast<wchar_t>(a + 32) : a) == b;
            }))
            return format;
    }
    return std::nullopt;
}

std::string documentBytes(const Document& document, DocumentFormat format, const OfficeOptions& options)
{
    switch (format) {
    case DocumentFormat::Xlsx:
        return toXlsx(document, options);
    case DocumentFormat::Docx:
        return toDocx(document, options);
    case DocumentFormat::Odt:
        return toOdt(document, options);
    case DocumentFormat::Html:
        return toHtml(document, options);
    case DocumentFormat::Csv:
        return toCsv(document, options);
    }
    return {};
}

std::string toCsv(const Document& document, const OfficeOptions& options, bool decimalComma)
{
    std::string csv = "\xEF\xBB\xBF";
    bool hasOther = false;
    bool isFirst = true;
    for (const Block& block : document.blocks) {
        const auto* table = std::get_if<TableBlock>(&block);
        hasOther =
            hasOther || std::holds_alternative<Figure>(block) || std::holds_alternative<Paragraph>(block);
        if (!table)
            continue;
        if (!isFirst)
            csv += "\r\n";
        isFirst = false;
        const std::size_t columns = columnCount(*table);
        const auto append = [&](const TableRows& rows) { appendRows(csv, rows, columns, decimalComma); };
        append(table->head);
        forRows(*table, append);
    }
    if (hasOther && options.remarks)
        options.remarks->push_back(L"В CSV выведены только таблицы: тексты и рисунки в него не помещаются.");
    return csv;
}

void writeOfficeFile(const std::wstring& path, std::string_view bytes)
{
    const auto* const begin = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const FileResult result = replaceFile(path, std::span(begin, bytes.size()));
    if (result)
        return;
    std::wstring message = L"Не удалось записать файл «" + path + L"».\n" + adviceFor(result.step);
    if (!result.reason.empty())
        message += L"\n\n" + result.reason;
    throw MException(message);
}

std::wstring fileNameOf(std::wstring_view text)
{
    const std::wstring name = fileNamePart(cleanText(text));
    return name.empty() ? L"Документ" : name;
}
