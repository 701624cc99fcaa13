#pragma once

#include "calc/table_mistake.h"
#include "platform/files.h"

#include <string_view>
#include <vector>

// The standards' tables of an office stand in text files beside the program.

// Of the file of that name in a folder. Where it is missing or has a mistake: the program's own tables.
template <class Tables>
Tables tablesBeside(
    const std::wstring& folder, std::wstring_view fileName, std::vector<TableMistake>& mistakes)
{
    const std::wstring path = folder + L'/' + std::wstring(fileName);
    if (fileKind(path) != FileKind::Regular)
        return Tables::ofProgram();
    std::vector<std::uint8_t> bytes;
    if (!readFile(path, bytes)) {
        mistakes.push_back({0, L"файл не читается"});
        return Tables::ofProgram();
    }
    Tables tables = Tables::read(std::string(bytes.begin(), bytes.end()), mistakes);
    return mistakes.empty() ? tables : Tables::ofProgram();
}

// Of the program's folder, as they are used while it runs.
template <class Tables>
struct TablesInUse {
    std::vector<TableMistake> mistakes;
    Tables tables;

    explicit TablesInUse(std::wstring_view fileName)
        : tables(tablesBeside<Tables>(executableFolder(), fileName, mistakes))
    {
    }
};
