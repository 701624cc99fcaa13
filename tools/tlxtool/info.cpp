#include "tlxtool/info.h"

#include "persistence/format.h"
#include "platform/utf8.h"
#include "tlxtool/text_table.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <utility>

namespace
{

struct RegisterColumn {
    std::string_view title;
    std::size_t (*count)(IDBProject& project);
};

constexpr RegisterColumn registerColumns[] = {
    {"точки", [](IDBProject& project) { return project.getPointRegister().size(); }},
    {"слои", [](IDBProject& project) { return project.getLithology().size(); }},
    {"пробы", [](IDBProject& project) { return project.getSamples().size(); }},
    {"вода", [](IDBProject& project) { return project.getWaterLevels().size(); }},
    {"конс.", [](IDBProject& project) { return project.getConsistency().size(); }},
    {"лаб.", [](IDBProject& project) { return project.getLabSamples().size(); }},
    {"зонд.", [](IDBProject& project) { return project.getSoundings().size(); }},
    {"разрезы", [](IDBProject& project) { return project.getSectionLines().size(); }},
    {"ЦММ", [](IDBProject& project) { return project.getTerrainLines().size(); }},
    {"прод.", [](IDBProject& project) { return project.getLongInforms().size(); }},
    {"попер.", [](IDBProject& project) { return project.getCrossInforms().size(); }},
    {"связи", [](IDBProject& project) { return project.getNumberedLinks().size(); }},
    {"просад.", [](IDBProject& project) { return project.getSubsidence().size(); }},
    {"химия", [](IDBProject& project) { return project.getChemistry().size(); }},
    {"элем.", [](IDBProject& project) { return project.getStrataElements().size(); }},
};

} // namespace

std::vector<std::string> infoRow(const OpenedProject& opened)
{
    IDBProject& project = *opened.project;
    std::vector<std::string> row = {
        opened.name,
        oneLine(toUtf8(project.getProjectCode())),
        oneLine(toUtf8(project.getProjectName())),
        std::to_string(format::projectHead.version),
        std::to_string(opened.bytes.size()),
    };
    for (const RegisterColumn& column : registerColumns)
        row.push_back(std::to_string(column.count(project)));
    return row;
}

// On a terminal a register that is empty in all files takes no room; a program that reads the table finds its
// columns always in the same places.
static void leaveOutEmpty(
    std::vector<TextColumn>& columns, std::vector<std::vector<std::string>>& rows, std::size_t firstRegister)
{
    for (std::size_t i = columns.size(); i > firstRegister; --i) {
        const auto isZero = [i](const std::vector<std::string>& row) { return row[i - 1] == "0"; };
        if (!std::all_of(rows.begin(), rows.end(), isZero))
            continue;
        const auto at = static_cast<std::ptrdiff_t>(i - 1);
        columns.erase(columns.begin() + at);
        for (auto& row : rows)
            row.erase(row.begin() + at);
    }
}

std::string infoTable(std::vector<std::vector<std::string>> rows, std::size_t lineWidth)
{
    std::vector<TextColumn> columns = {
        {"файл", false, Cut::begin},
        {"шифр", false, Cut::end},
        {"наименование", false, Cut::end},
        {"версия", true, Cut::nothing},
        {"байт", true, Cut::nothing},
    };
    const std::size_t firstRegister = columns.size();
    for (const RegisterColumn& column : registerColumns)
        columns.push_back({std::string(column.title), true, Cut::nothing});
    if (lineWidth != 0)
        leaveOutEmpty(columns, rows, firstRegister);
    return formatTable(columns, std::move(rows), lineWidth);
}
