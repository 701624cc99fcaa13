#pragma once

#include "tables/table.h"

// What the screens without editing show, mode by mode. The tables are made once and stay.

const std::vector<Table>& laboratoryTables();
const std::vector<Table>& elementTables();
const std::vector<Table>& soundingTables();
const std::vector<Table>& sectionTables();
// The first cells of the table of views of the whole site.
inline constexpr std::wstring_view siteViewAlongY = L"С запада на восток";
inline constexpr std::wstring_view siteViewAlongX = L"С юга на север";
const std::vector<Table>& columnTables();
const std::vector<Table>& subsidenceTables();
const std::vector<Table>& chemistryTables();
const std::vector<Table>& overviewTables();
const std::vector<Table>& stratigraphicColumnTables();
const std::vector<Table>& stratigraphicOrderTables();
