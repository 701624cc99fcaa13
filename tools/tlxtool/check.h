#pragma once

#include "tlxtool/messages.h"
#include "tlxtool/opened_project.h"

#include <vector>

// Everything in the file that is wrong or will bite later: what keeps it from opening, rows refused and data
// dropped while reading, what a save would change or lose, names and depths that the orderings refuse, take
// for equal or cannot sort, rows of points that are not in the register, stored paths that belong to another
// file. Decodes the file on the way.
std::vector<Finding> checkProject(OpenedProject& opened);
