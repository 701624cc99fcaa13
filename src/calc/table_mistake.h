#pragma once

#include <cstddef>
#include <string>

// What is wrong with the file of a standard's table.
struct TableMistake {
    std::size_t line = 0; // from 1; 0: of the whole file
    std::wstring text;
};
