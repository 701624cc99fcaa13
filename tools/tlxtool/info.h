#pragma once

#include "tlxtool/opened_project.h"

#include <cstddef>
#include <string>
#include <vector>

// One row of the table of projects: file, code, name, version, size and the number of entries per register.
std::vector<std::string> infoRow(const OpenedProject& opened);

// The rows below their titles, fitted to a terminal of that many columns (0: no terminal, whole rows).
std::string infoTable(std::vector<std::vector<std::string>> rows, std::size_t lineWidth);
