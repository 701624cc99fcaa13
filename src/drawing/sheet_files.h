#pragma once

#include "drawing/drawing.h"

#include <string>
#include <vector>

// The files of the sheets under a path, in their order. A PDF holds them all, and one sheet is the path
// itself; of the other formats each sheet has a file of its own: "план_1.dxf", "план_2.dxf" of one drawing,
// "колонки_Скв-1.dxf", "колонки_Скв-2.dxf", "колонки_Скв-2_2.dxf" where the sheets show several boreholes.
std::vector<std::wstring> sheetFiles(const std::wstring& path, const std::vector<Drawing>& pages);
