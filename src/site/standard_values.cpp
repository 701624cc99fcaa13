#include "site/standard_values.h"

#include "site/table_beside.h"

static const TablesInUse<StandardTables>& inUse()
{
    static const TablesInUse<StandardTables> read(standardTablesFileName);
    return read;
}

StandardTables standardTablesBeside(const std::wstring& folder, std::vector<TableMistake>& mistakes)
{
    return tablesBeside<StandardTables>(folder, standardTablesFileName, mistakes);
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
