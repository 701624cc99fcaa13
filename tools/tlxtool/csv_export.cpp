#include "tlxtool/csv_export.h"

#include "persistence/grammar/project.h"
#include "platform/files.h"
#include "platform/safe_write.h"
#include "tlxtool/messages.h"
#include "tlxtool/tool_error.h"

#include <cstdint>
#include <span>

static void appendCell(std::string& text, const std::string& cell)
{
    if (cell.find_first_of(";\"\r\n") == std::string::npos) {
        text += cell;
        return;
    }
    text += '"';
    for (const char character : cell) {
        if (character == '"')
            text += '"';
        text += character;
    }
    text += '"';
}

static void appendLine(std::string& text, const std::vector<std::string>& cells)
{
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i != 0)
            text += ';';
        appendCell(text, cells[i]);
    }
    text += "\r\n";
}

std::string csvText(const CsvTable& table)
{
    std::string text = "\xEF\xBB\xBF";
    appendLine(text, table.columns);
    for (const auto& row : table.rows)
        appendLine(text, row);
    return text;
}

std::size_t exportCsv(IDBProject& project, const std::wstring& folder)
{
    CsvArchive archive;
    projectFields(archive, project);
    if (const FileResult made = createFolder(folder); !made)
        throw ToolError(toUtf8(folder) + ": " + describe(made));
    for (const CsvTable& table : archive.tables()) {
        const std::wstring path = folder + L"/" + *fromUtf8(table.name) + L".csv";
        const std::string text = csvText(table);
        const std::span bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
        if (const FileResult written = replaceFile(path, bytes); !written)
            throw ToolError(toUtf8(path) + ": " + describe(written));
    }
    return archive.tables().size();
}
