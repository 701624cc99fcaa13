#pragma once

#include "common/edit_grid_model.h"
#include "db/records/point_register.h"

#include <string>
#include <utility>
#include <vector>

// A point of the register as a row of cells and back. Only the first of a point's rows is seen and edited;
// further ones stay as they are.

enum PointColumn : int {
    PointNameColumn,
    PointKindColumn,
    PointXColumn,
    PointYColumn,
    PointMarkColumn,
    PointRelativeMarkColumn,
    PointProfileColumn,
    PointRightColumn,
    PointLeftColumn,
    PointDateColumn,
    PointTypeColumn,
    PointColumnCount,
};

using PointEntry = std::pair<PointKey, std::vector<PointRow>>;

QVector<GridColumn> pointColumns();

QVector<QString> pointCells(const PointKey& key, const std::vector<PointRow>& rows);

// Puts the text of a cell into the point, as typed. False, and nothing changed, where it is none of the names
// and no number of a column that holds one.
bool setPointCell(PointEntry& point, int column, const QString& text);

// The number of the kind that a cell of PointKindColumn shows; 0 where it shows none.
int pointKindNamed(const QString& text);

// What is odd about a text that is stored all the same; empty where nothing is.
QString pointCellWarning(int column, const QString& text);

// Why a text that setPointCell refuses is not stored.
QString pointCellProblem(int column);
