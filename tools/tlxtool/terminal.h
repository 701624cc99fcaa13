#pragma once

#include <cstddef>

// What the system knows of the place where output goes.

// Once, before anything is printed: a pipe that nobody reads any more becomes an error of the write instead
// of the end of the process; text leaves as UTF-8, byte by byte.
void prepareOutput();

// Columns of the terminal behind the standard output; 0 where it is a file or a pipe.
std::size_t terminalWidth();
