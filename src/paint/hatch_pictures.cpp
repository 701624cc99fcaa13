#include "paint/hatch_pictures.h"

#include <QPainter>
#include <QPolygonF>

static void paintOutline(QPainter& painter, const HatchOutline& outline, const QColor& color)
{
    QPolygonF polygon;
    for (const Spot& corner : outline.corners)
        polygon.append({corner.x, corner.y});
    // Round joins between the many short sides of an oval show as specks.
    const Qt::PenJoinStyle join = outline.isClosed ? Qt::MiterJoin : Qt::RoundJoin;
    painter.setPen(outline.isFilled ? QPen(Qt::NoPen) : QPen(color, 1, Qt::SolidLine, Qt::FlatCap, join));
    painter.setBrush(outline.isFilled ? QBrush(color) : QBrush(Qt::NoBrush));
    if (outline.isClosed)
        painter.drawPolygon(polygon);
    else
        painter.drawPolyline(polygon);
}

void paintHatchTile(QPainter& painter, const HatchTile& tile, const QColor& color)
{
    constexpr int roundCorners = 96; // not to be told from a circle at any density of display
    for (int row = -1; row <= 1; ++row)
        for (int column = -1; column <= 1; ++column) {
            painter.save();
            painter.translate(column * tile.width, row * tile.height);
            for (const HatchTile::Shape& shape : tile.shapes)
                paintOutline(painter, hatchOutline(shape, roundCorners), color);
            painter.restore();
        }
}

QPixmap hatchTilePicture(const HatchTile& tile, double density, const QColor& color)
{
    const QSize pixels(qMax(1, qRound(tile.width * density)), qMax(1, qRound(tile.height * density)));
    QPixmap picture(pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    // Horizontal and vertical strokes of whole numbers stand on the middle of a pixel, as sharp as they can
    // be.
    painter.translate(0.5, 0.5);
    // The sides are whole pixels; a stretch of less than a pixel keeps them so.
    painter.scale(pixels.width() / double(tile.width), pixels.height() / double(tile.height));
    paintHatchTile(painter, tile, color);
    return picture;
}
