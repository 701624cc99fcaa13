#pragma once

#include "drawing/hatch.h"

#include <QColor>
#include <QHash>
#include <QPixmap>
#include <QPointF>
#include <QString>

class IDBHatch;
class QPainter;
class QPainterPath;

// The fill patterns of soils, ready to be painted with. Tiles are drawn once for each density of display.
class SoilPatterns
{
public:
    // Without a library, or with one in another form, areas stay without a pattern.
    explicit SoilPatterns(IDBHatch* library);

    bool has(std::uint32_t number) const { return hatches_.count(number) > 0; }
    QString name(std::uint32_t number) const;

    // Fills an area, its tiles counted from the origin, so that neighbouring areas of a soil go together.
    void fill(
        QPainter& painter, const QPainterPath& area, std::uint32_t number, const QPointF& origin = {}) const;

private:
    Hatches hatches_;
    mutable QHash<quint64, QPixmap> tiles_;
};

// The number of the hatch that fits the description of a layer, found by the first soil or rock that it
// names, in Russian or Ukrainian, or in capitals in an English one. 0 where it names none.
std::uint32_t hatchOfDescription(const QString& description);

// A soft ground under the pattern of a soil, in the colours in which sections are usually painted.
QColor tintOfHatch(std::uint32_t number);
