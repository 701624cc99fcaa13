#include "document/xlsx.h"

#include "document/office_package.h"
#include "document/xlsx_sheet_writer.h"

#include <algorithm>

namespace
{

struct WrittenSheet {
    std::string name; // for XML
    std::string quoted; // for a reference, in XML
    SheetRanges ranges;
};

std::string absolute(const std::string& range)
{
    std::string text;
    bool wasLetter = false;
    for (const char character : range) {
        const bool isLetter = character >= 'A' && character <= 'Z';
        if (character != ':' && (text.empty() || text.back() == ':' || (wasLetter && !isLetter)))
            text += '$';
        text += character;
        wasLetter = isLetter;
    }
    return text;
}

std::string workbookPart(const std::vector<WrittenSheet>& sheets)
{
    std::string text = xmlDeclaration + std::string("<workbook xmlns=\"") + spreadsheetSpace + "\" xmlns:r=\""
        + relationSpace
        + R"("><bookViews><workbookView xWindow="0" yWindow="0" windowWidth="24000" windowHeight="12000"/></bookViews><sheets>)";
    std::string names;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const WrittenSheet& sheet = sheets[i];
        const std::string number = std::to_string(i + 1);
        text.append("<sheet name=\"").append(sheet.name).append("\" sheetId=\"").append(number);
        text.append("\" r:id=\"rId").append(number).append("\"/>");
        const std::string local = " localSheetId=\"" + std::to_string(i) + "\"";
        if (!sheet.ranges.filter.empty())
            names += "<definedName name=\"_xlnm._FilterDatabase\"" + local + " hidden=\"1\">" + sheet.quoted
                + "!" + absolute(sheet.ranges.filter) + "</definedName>";
        if (sheet.ranges.head.first > 0)
            names += "<definedName name=\"_xlnm.Print_Titles\"" + local + ">" + sheet.quoted + "!$"
                + std::to_string(sheet.ranges.head.first) + ":$" + std::to_string(sheet.ranges.head.second)
                + "</definedName>";
    }
    text += "</sheets>";
    if (!names.empty())
        text += "<definedNames>" + names + "</definedNames>";
    return text + "</workbook>";
}

void addFrameParts(ZipArchive& zip, const Document& document, std::size_t sheets)
{
    const std::string office = "application/vnd.openxmlformats-officedocument.spreadsheetml.";
    OfficePackage package("xl/workbook.xml", office + "sheet.main+xml");
    for (std::size_t i = 1; i <= sheets; ++i) {
        const std::string name = "worksheets/sheet" + std::to_string(i) + ".xml";
        package.addPart(name, office + "worksheet+xml", "worksheet");
    }
    package.addPart("styles.xml", office + "styles+xml", "styles");
    package.write(zip, document);
}

} // namespace

std::string toXlsx(const Document& document, const OfficeOptions& options)
{
    ExportRemarks* const remarks = options.remarks;
    const std::vector<XlsxSheet> sheets = sheetsOf(document);
    ZipArchive zip;
    XlsxStyles styles;
    addFrameParts(zip, document, sheets.size());
    std::vector<WrittenSheet> written;
    for (const XlsxSheet& sheet : sheets) {
        zip.begin("xl/worksheets/sheet" + std::to_string(written.size() + 1) + ".xml");
        SheetRanges ranges = writeSheet(sheet, styles, zip, remarks);
        zip.end();
        std::wstring quoted = L"'";
        for (const wchar_t character : sheet.name)
            quoted += character == L'\'' ? std::wstring(L"''") : std::wstring(1, character);
        written.push_back({markupText(sheet.name), markupText(quoted + L"'"), std::move(ranges)});
    }
    zip.add("xl/workbook.xml", workbookPart(written));
    zip.add("xl/styles.xml", styles.part());
    const auto isFigure = [](const Block& block) { return std::holds_alternative<Figure>(block); };
    if (remarks && std::any_of(document.blocks.begin(), document.blocks.end(), isFigure))
        remarks->push_back(L"Рисунки в книгу Excel не выводятся: они есть в DOCX, ODT, HTML и PDF.");
    return zip.bytes();
}
