#pragma once

#include "common/lithology_column.h"

#include <QString>
#include <QVector>

#include <string>

class IDBProject;

// A point of a section, ready to be drawn.
struct DrawnPoint {
    QString name;
    double distance = 0; // m, along the section from its first point
    double mark = 0; // m, of the mouth
    QVector<DrawnLayer> layers;
    QVector<DrawnWater> waters;

    double depth() const { return layers.isEmpty() ? 0 : layers.last().bottom; }
};

struct DrawnSection {
    QVector<DrawnPoint> points; // in the order along the section
    QStringList leftOut; // names of points without coordinates or mark
    bool isLine = true; // false: a view of the site, whose neighbours may stand far behind one another
};

// Through the points of a line, in its order; distances from point to point.
DrawnSection sectionOfLine(IDBProject& project, const std::vector<std::wstring>& line);
// All points with layers, seen from a side: along Y or along X, distances along that axis.
DrawnSection sectionAlongAxis(IDBProject& project, bool isAlongY);

// How the layers of two neighbouring points go together, from the top: pairs of numbers of layers, -1 on the
// side where a layer ends on the way. The layers that are named alike are joined, as many as there are in the
// same order on both sides; below the last of them nothing is known to go on.
QVector<std::pair<int, int>> joinedLayers(const DrawnPoint& left, const DrawnPoint& right);
