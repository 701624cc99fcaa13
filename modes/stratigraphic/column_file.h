#pragma once

#include <QString>
#include <QVector>

// A stratigraphic column that belongs to no project: a JSON file of its own,
//     {"format": "Tellurix stratigraphic column", "version": 1, "title": "...",
//      "layers": [{"index": "J_3", "thickness": "12.5", "hatch": 7, "description": "..."}]}
// Texts are kept as they were typed.

struct StrataLayer {
    QString index;
    QString thickness; // m, as typed
    int hatch = 0; // number in the library; 0: by the description
    QString description;

    bool operator==(const StrataLayer&) const = default;
};

struct StrataColumn {
    QString title;
    QVector<StrataLayer> layers; // from above

    bool operator==(const StrataColumn&) const = default;
};

// Both throw MException with a text for the user; a file that could not be written stays as it was.
StrataColumn readStrataColumn(const QString& file);
void writeStrataColumn(const QString& file, const StrataColumn& column);
