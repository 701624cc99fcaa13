#pragma once

#include <QColor>
#include <QPixmap>
#include <QPointF>
#include <QSize>
#include <QString>
#include <QVector>

#include <cstdint>
#include <optional>
#include <vector>

class QPainter;

// A fill pattern of the hatch library: a tile that repeats in both directions, drawn from strokes. Its unit
// is a point on the screen; on paper the hatching scale says what it is. data/README.md tells the bytes.
class HatchPattern
{
public:
    // Nothing where the bytes are of another form.
    static std::optional<HatchPattern> parse(const std::vector<std::uint8_t>& bytes);

    const QString& name() const { return name_; }
    QSize tile() const { return tile_; }

    // The strokes of one tile with its corner at the origin, those of the tiles around it included where they
    // reach in.
    void paintTile(QPainter& painter, const QColor& color) const;
    // A tile on a transparent ground; pixels per unit.
    QPixmap picture(double density, const QColor& color) const;

private:
    enum class Stroke {
        Line,
        Fill,
        Dot,
        Oval,
    };
    struct Shape {
        Stroke stroke;
        QVector<double> numbers;
    };

    static std::optional<Shape> shapeOf(const QString& line);
    static void paintShape(QPainter& painter, const Shape& shape, const QColor& color);

    QString name_;
    QSize tile_;
    QVector<Shape> shapes_;
};
