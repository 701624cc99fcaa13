#pragma once

#include "common/edit_grid_model.h"
#include "db/records/laboratory.h"
#include "db/records/point_keys.h"
#include "laboratory/test_choice.h"

#include <QString>

#include <algorithm>
#include <set>
#include <string_view>

class IDBProject;

// Reaching the cells of a sample's record, and the columns that show them.

QString qText(std::wstring_view text);
// One text for a sample's key, that no other key has.
QString textOf(const PointDepthKey& key);

// The cell of this number; null where the record has none.
template <class Cells>
const typename Cells::value_type* existing(const Cells& cells, int id)
{
    const auto place =
        std::find_if(cells.begin(), cells.end(), [&](const auto& cell) { return cell.id == id; });
    return place == cells.end() ? nullptr : &*place;
}

// The cell of this number, made in its place where the record has none.
PropertyCell& propertyOf(LabSample& sample, int id);
CompressionCell& stageOf(LabSample& sample, int test, int id);
ShearCell& shearCellOf(LabSample& sample, int method, int id);
SwellingCell& swellCellOf(LabSample& sample, int id);

// The usual properties or loads of a test, and those that the project has chosen instead: empty where it has
// not.
std::set<int> mainSet(LabTest test);
std::set<int> ownSet(IDBProject& project, LabTest test);
// What the table and the form have: the project's own set, else the main one, and what any sample holds.
std::set<int> propertiesInUse(IDBProject& project);
std::set<int> loadsInUse(IDBProject& project, const TestChoice& choice);

QString propertyTitle(int property, int language);
// Every load of a test by its number, as text; empty where there is none.
QString loadText(LabTest test, int number);

GridColumn numberColumn(const QString& title, int width, bool isComputed = false);
GridColumn readOnlyColumn(const QString& title, int width);
