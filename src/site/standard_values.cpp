#include "site/standard_values.h"

#include "platform/files.h"

namespace
{

struct TablesInUse {
    std::vector<TableMistake> mistakes;
    StandardTables tables;
};

std::wstring programFolder()
{
    const std::wstring path = executablePath();
    const std::size_t slash = path.find_last_of(L"/\\");
    return slash == std::wstring::npos ? std::wstring(L".") : path.substr(0, slash);
}

const TablesInUse& inUse()
{
    static const TablesInUse read = [] {
        TablesInUse found;
        found.tables = standardTablesBeside(programFolder(), found.mistakes);
        return found;
    }();
    return read;
}

} // namespace

StandardTables standardTablesBeside(const std::wstring& folder, std::vector<TableMistake>& mistakes)
{
    const std::wstring path = folder + L"/" + std::wstring(standardTablesFileName);
    if (fileKind(path) != FileKind::Regular)
        return StandardTables::ofProgram();
    std::vector<std::uint8_t> bytes;
    if (!readFile(path, bytes)) {
        mistakes.push_back({0, L"файл не читается"});
        return StandardTables::ofProgram();
    }
    StandardTables tables = StandardTables::read(std::string(bytes.begin(), bytes.end()), mistakes);
    return mistakes.empty() ? tables : StandardTables::ofProgram();
}

const StandardTables& standardTablesInUse()
{
    return inUse().tables;
}

const std::vector<TableMistake>& standardTableMistakes()
{
    return inUse().mistakes;
}

std::wstring standardTableWarning(const std::vector<TableMistake>& mistakes)
{
    if (mistakes.empty())
        return {};
    const TableMistake& first = mistakes.front();
    std::wstring text(standardTablesFileName);
    if (first.line > 0)
        text += L", строка " + std::to_wstring(first.line);
    text += L": " + first.text;
    if (mistakes.size() > 1)
        text += L" (ошибок всего: " + std::to_wstring(mistakes.size()) + L")";
    return text + L". Взяты таблицы программы.";
}

Number betaOfKind(int kind)
{
    return standardTablesInUse().lateralExpansion(kind);
}
