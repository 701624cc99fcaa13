#include "tlxtool/office_export.h"

#include "core/base/mexception.h"
#include "document/column_widths.h"
#include "document/document_file.h"
#include "document/office.h"
#include "persistence/grammar/project.h"
#include "platform/files.h"
#include "platform/system_text.h"
#include "platform/utf8.h"
#include "reports/office_pages.h"
#include "tlxtool/commands.h"
#include "tlxtool/csv_archive.h"
#include "tlxtool/opened_project.h"
#include "tlxtool/tool_error.h"

#include <algorithm>
#include <memory>
#include <numeric>

namespace
{

// What people call the tables; of the others the name stands.
struct Title {
    const char* table;
    const wchar_t* title;
};
constexpr Title titles[] = {
    {"project", L"Проект"},
    {"pointRegister", L"Точки"},
    {"lithology", L"Слои"},
    {"samples", L"Пробы"},
    {"waterLevels", L"Уровни воды"},
    {"consistency", L"Консистенция"},
    {"labSamples", L"Лабораторные пробы"},
    {"labSamples.physical", L"Физические свойства"},
    {"labSamples.grading", L"Гранулометрия"},
    {"labSamples.compression", L"Компрессия"},
    {"labSamples.compression.cells", L"Компрессия, ступени"},
    {"labSamples.shear", L"Сдвиг"},
    {"labSamples.swelling", L"Набухание"},
    {"labSamples.shrinkage", L"Усадка"},
    {"strataElements", L"ИГЭ"},
    {"soundings", L"Зондирование"},
    {"chemistry", L"Химические анализы"},
    {"subsidence", L"Просадочность"},
    {"sectionLines", L"Разрезы"},
    {"sectionPoints", L"Точки разрезов"},
    {"sectionCurves", L"Кривые разрезов"},
};

std::wstring titleOf(const std::string& name)
{
    for (const Title& title : titles)
        if (name == title.table)
            return title.title;
    return fromUtf8(name).value_or(std::wstring());
}

TableCell cellOf(const std::string& text)
{
    TableCell cell;
    cell.runs = {{fromUtf8(text).value_or(std::wstring())}};
    return cell;
}

// A register's numbers are texts as they were typed: those that read as numbers are numbers in a workbook. A
// name or a code of noughts ("007") stays what it is.
TableCell numberOrText(const std::string& text)
{
    TableCell cell = cellOf(text);
    const std::wstring& typed = cell.runs.front().text;
    const std::optional<Decimal> decimal = readDecimal(typed);
    const std::size_t digit = typed.find_first_of(L"0123456789");
    const bool isCode = digit != std::wstring::npos && typed[digit] == L'0' && digit + 1 < typed.size()
        && typed[digit + 1] >= L'0' && typed[digit + 1] <= L'9';
    if (decimal && !isCode) {
        cell.number = readNumber(typed);
        cell.decimals = decimal->decimals;
        cell.align = Align::Right;
    }
    return cell;
}

TableBlock blockOf(const std::shared_ptr<const CsvTable>& table)
{
    TableBlock block;
    block.title = titleOf(table->name);
    std::vector<TableCell> head;
    for (const std::string& column : table->columns)
        head.push_back(cellOf(column));
    block.head = {head};
    block.madeRows = table->rows.size();
    block.makeRow = [table](std::size_t row) {
        std::vector<TableCell> cells;
        cells.reserve(table->columns.size());
        for (std::size_t i = 0; i < table->rows[row].size(); ++i) {
            const bool isName = table->columns[i] == "pointName" || table->columns[i] == "name";
            cells.push_back(isName ? cellOf(table->rows[row][i]) : numberOrText(table->rows[row][i]));
        }
        return cells;
    };
    return block;
}

// The page that a table wants: upright, across, or large across.
PageFormat pageFor(const TableBlock& table)
{
    constexpr double anyRoom = 1e6;
    const std::vector<double> widths = columnWidths(table, anyRoom);
    const double wanted = std::accumulate(widths.begin(), widths.end(), 0.0);
    return wanted <= 180 ? PageFormat()
        : wanted <= 500  ? PageFormat{297, 210, 15, 20, 15, 15}
                         : PageFormat{420, 297, 15, 20, 15, 15};
}

} // namespace

Document registersDocument(IDBProject& project, const std::vector<std::string>& names)
{
    CsvArchive archive;
    projectFields(archive, project);
    Document document;
    document.title = project.getProjectName();
    document.header = project.getProjectCode();
    for (const std::string& name : names)
        if (std::none_of(archive.tables().begin(), archive.tables().end(), [&](const CsvTable& table) {
                return table.name == name;
            }))
            throw ToolError("реестра «" + name + "» нет; имена — как у файлов, которые пишет export --csv");
    for (const CsvTable& table : archive.tables()) {
        const bool isWanted = names.empty()
            ? !table.rows.empty()
            : std::find(names.begin(), names.end(), table.name) != names.end();
        if (!isWanted)
            continue;
        TableBlock block = blockOf(std::make_shared<const CsvTable>(table));
        const PageFormat page = pageFor(block);
        if (document.blocks.empty())
            document.page = page;
        else
            document.blocks.emplace_back(Section{page});
        document.blocks.emplace_back(std::move(block));
    }
    return document;
}

int runOfficeExport(Output& output, const std::string& file, const OfficeFiles& files)
{
    const OpenedProject opened = openProject(file);
    Document document = registersDocument(*opened.project, files.tables);
    addOffice(document, officeForFile(executableFolder(), fromSystemText(file)));
    const std::pair<const std::string*, DocumentFormat> wanted[] = {{&files.xlsx, DocumentFormat::Xlsx},
        {&files.docx, DocumentFormat::Docx},
        {&files.odt, DocumentFormat::Odt},
        {&files.html, DocumentFormat::Html}};
    for (const auto& [path, format] : wanted) {
        if (path->empty())
            continue;
        ExportRemarks remarks;
        const std::wstring widePath = fromSystemText(*path);
        try {
            writeOfficeFile(widePath, documentBytes(document, format, {nullptr, &remarks}));
        } catch (const MException& failure) {
            throw ToolError(toUtf8(failure.message()));
        }
        const auto tables = std::count_if(document.blocks.begin(),
            document.blocks.end(),
            [](const Block& block) { return std::holds_alternative<TableBlock>(block); });
        output.line(toUtf8(widePath) + ": записано таблиц: " + std::to_string(tables));
        for (const std::wstring& remark : remarks)
            complain(toUtf8(remark));
    }
    return exitStatus::good;
}
