#pragma once

#include "db/db_project.h"

#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

// What a robot that types means, and what a project holds, in one form of plain texts. It shares nothing with
// the tables: their columns are written down here once more, as a person reads them from the screen.

// The columns that take what is typed, by their place in the table, and the place of the one that orders the
// rows.
struct MeantTable {
    QString name;
    std::vector<int> columns;
    int key = 0;
};

// A record: the texts of its columns, by their place in the table.
using MeantRecord = std::map<int, QString>;
// The records of a point, or of the whole list of coordinates.
using MeantRecords = std::vector<MeantRecord>;

// The records in an order that does not depend on how they came in.
QString toldInOrder(const MeantTable& table, const MeantRecords& records);

extern const MeantTable coordinates, layers, samples, waters, consistencies;

MeantRecords pointsIn(DBProject& project);
MeantRecords layersIn(DBProject& project, const std::wstring& point);
MeantRecords samplesIn(DBProject& project, const std::wstring& point);
MeantRecords watersIn(DBProject& project, const std::wstring& point);
MeantRecords consistenciesIn(DBProject& project, const std::wstring& point);
