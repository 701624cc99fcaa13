#pragma once

#include "common/sheet.h"

// What the screens without editing show, mode by mode. The tables are made once and stay.

const std::vector<Sheet>& laboratorySheets();
const std::vector<Sheet>& elementSheets();
const std::vector<Sheet>& soundingSheets();
const std::vector<Sheet>& sectionSheets();
// The first cells of the sheet of views of the whole site.
inline constexpr std::wstring_view siteViewAlongY = L"С запада на восток";
inline constexpr std::wstring_view siteViewAlongX = L"С юга на север";
const std::vector<Sheet>& columnSheets();
const std::vector<Sheet>& subsidenceSheets();
const std::vector<Sheet>& chemistrySheets();
const std::vector<Sheet>& overviewSheets();
const std::vector<Sheet>& stratigraphicColumnSheets();
const std::vector<Sheet>& stratigraphicOrderSheets();
