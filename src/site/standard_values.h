#pragma once

#include "calc/standard_tables.h"

// The standards' tables that calculations use: those of the file beside the program, else the program's own.

inline constexpr std::wstring_view standardTablesFileName = L"standard_tables.txt";
// Of a folder. Where the file is missing or has a mistake: the program's own.
StandardTables standardTablesBeside(const std::wstring& folder, std::vector<TableMistake>& mistakes);

// Read once, from the program's folder.
const StandardTables& standardTablesInUse();
// What is wrong with the file, for the user; empty where nothing is.
const std::vector<TableMistake>& standardTableMistakes();
// The same as a sentence: "standard_tables.txt, строка 12: … Взяты таблицы программы."; empty where all is
// well.
std::wstring standardTableWarning(const std::vector<TableMistake>& mistakes);

// beta of a kind of soil (ElementKind as a number) by the tables in use.
Number betaOfKind(int kind);
