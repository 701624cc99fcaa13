#include "paint/drawing_painter.h"

#include "drawing/text_layout.h"
#include "paint/drawing_fonts.h"

#include <QPainter>
#include <QPen>

static QColor colorOf(const Color& color)
{
    return {color.red, color.green, color.blue};
}

static QPen penOf(const Pen& pen)
{
    // Strokes and gaps in millimetres.
    static const QVector<double> patterns[] = {{}, {3, 1.5}, {0.3, 1}, {5, 1.2, 0.3, 1.2}};
    QPen made(colorOf(pen.color), pen.width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (pen.dash == Dash::Solid || pen.width <= 0)
        return made;
    QVector<qreal> pattern;
    for (const double length : patterns[static_cast<std::size_t>(pen.dash)])
        pattern.append(length / pen.width);
    made.setDashPattern(pattern);
    return made;
}

static QPolygonF polygonOf(const std::vector<Spot>& spots)
{
    QPolygonF polygon;
    polygon.reserve(static_cast<int>(spots.size()));
    for (const Spot& spot : spots)
        polygon.append({spot.x, spot.y});
    return polygon;
}

static void paintLine(QPainter& painter, const Line& line)
{
    painter.setPen(penOf(line.pen));
    painter.setBrush(Qt::NoBrush);
    if (line.closed)
        painter.drawPolygon(polygonOf(line.points));
    else if (line.points.size() == 2)
        painter.drawLine(
            QPointF(line.points[0].x, line.points[0].y), QPointF(line.points[1].x, line.points[1].y));
    else
        painter.drawPolyline(polygonOf(line.points));
}

static void paintCircle(QPainter& painter, const Circle& circle)
{
    painter.setPen(penOf(circle.pen));
    painter.setBrush(circle.isFilled ? QBrush(colorOf(circle.pen.color)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QPointF(circle.centre.x, circle.centre.y), circle.radius, circle.radius);
}

static void paintText(QPainter& painter, const Text& text)
{
    const double width = textWidth(text.text, text.font, text.height);
    const double shift = text.align == Align::Left ? 0 : text.align == Align::Centre ? width / 2 : width;
    const double scale = emOfHeight(text.font, text.height) / drawingFontPixels;
    painter.save();
    painter.setPen(colorOf(text.color));
    painter.setFont(drawingFont(text.font));
    painter.translate(text.at.x, text.at.y);
    painter.rotate(-text.angle);
    painter.translate(-shift, 0);
    painter.scale(scale, scale);
    painter.drawText(QPointF(0, 0), QString::fromStdWString(text.text));
    painter.restore();
}

DrawingPainter::DrawingPainter(Drawing drawing, const Hatches& hatches)
    : drawing_(std::move(drawing))
    , hatches_(drawing_.items.size())
{
    for (std::size_t item = 0; item < drawing_.items.size(); ++item) {
        const auto* area = std::get_if<Area>(&drawing_.items[item].shape);
        if (!area || area->hatch == 0)
            continue;
        const HatchStrokes strokes = hatchStrokes(*area, hatches);
        PaintedHatch& painted = hatches_[item];
        painted.lines.reserve(static_cast<int>(strokes.lines.size()));
        for (const HatchStrokes::Segment& line : strokes.lines)
            painted.lines.append({line.from.x, line.from.y, line.to.x, line.to.y});
        for (const std::vector<Spot>& fill : strokes.fills) {
            painted.fills.addPolygon(polygonOf(fill));
            painted.fills.closeSubpath();
        }
    }
}

void DrawingPainter::paintArea(QPainter& painter, const Area& area, const PaintedHatch& hatch) const
{
    if (area.hasGround) {
        QPainterPath path;
        for (const std::vector<Spot>& ring : area.rings) {
            path.addPolygon(polygonOf(ring));
            path.closeSubpath();
        }
        painter.fillPath(path, colorOf(area.ground));
    }
    const QColor ink = colorOf(area.hatchColor);
    if (!hatch.lines.isEmpty()) {
        // A stroke of the tile is one unit wide, but never so thick that the hatch turns black.
        constexpr double thickest = 0.18;
        painter.setPen(QPen(ink, qMin(area.hatchUnit, thickest), Qt::SolidLine, Qt::FlatCap));
        painter.drawLines(hatch.lines);
    }
    if (!hatch.fills.isEmpty())
        painter.fillPath(hatch.fills, ink);
}

void DrawingPainter::paint(QPainter& painter) const
{
    for (std::size_t item = 0; item < drawing_.items.size(); ++item) {
        const auto& shape = drawing_.items[item].shape;
        if (const auto* line = std::get_if<Line>(&shape))
            paintLine(painter, *line);
        else if (const auto* area = std::get_if<Area>(&shape))
            paintArea(painter, *area, hatches_[item]);
        else if (const auto* circle = std::get_if<Circle>(&shape))
            paintCircle(painter, *circle);
        else if (const auto* text = std::get_if<Text>(&shape))
            paintText(painter, *text);
    }
}

void paint(QPainter& painter, const Drawing& drawing, const Hatches& hatches)
{
    DrawingPainter(drawing, hatches).paint(painter);
}
