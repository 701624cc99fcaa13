#include "paint/drawing_painter.h"

#include "drawing/text_layout.h"
#include "paint/drawing_fonts.h"

#include <QGlyphRun>
#include <QPaintEngine>
#include <QPainter>
#include <QPen>
#include <QRawFont>

#include <array>
#include <cmath>
#include <map>

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

// Hatches are thousands of strokes: whole numbers keep them short in a PDF.
constexpr double stepsPerMillimetre = 100;

static QPointF inSteps(const Spot& spot)
{
    return {std::nearbyint(spot.x * stepsPerMillimetre), std::nearbyint(spot.y * stepsPerMillimetre)};
}

static QPolygonF polygonOf(const std::vector<Spot>& spots)
{
    QPolygonF polygon;
    polygon.reserve(static_cast<int>(spots.size()));
    for (const Spot& spot : spots)
        polygon.append({spot.x, spot.y});
    return polygon;
}

static bool isUprightBox(const std::vector<Spot>& points)
{
    return points.size() == 4 && points[0].y == points[1].y && points[1].x == points[2].x
        && points[2].y == points[3].y && points[3].x == points[0].x;
}

// Boxes of tables by their sides: on pixels that takes a fraction of filling the stroke around them.
static void paintBox(QPainter& painter, const Line& line)
{
    QPen pen = penOf(line.pen);
    pen.setCapStyle(Qt::SquareCap);
    painter.setPen(pen);
    const QPolygonF corners = polygonOf(line.points);
    painter.drawLines(QVector<QLineF>{{corners[0], corners[1]},
        {corners[1], corners[2]},
        {corners[2], corners[3]},
        {corners[3], corners[0]}});
}

static bool isOnPixels(const QPainter& painter)
{
    return painter.paintEngine()->type() == QPaintEngine::Raster;
}

static void paintLine(QPainter& painter, const Line& line)
{
    if (line.closed && line.pen.dash == Dash::Solid && isUprightBox(line.points) && isOnPixels(painter))
        return paintBox(painter, line);
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

namespace
{

// Texts as glyphs that stand where the table of widths puts them: nothing is left to be shaped.
class TextPainter
{
public:
    explicit TextPainter(QPainter& painter)
        : painter_(painter)
    {
    }

    void paint(const Text& text)
    {
        const double width = textWidth(text.text, text.font, text.height);
        const double shift = text.align == Align::Left ? 0 : text.align == Align::Centre ? width / 2 : width;
        const double scale = emOfHeight(text.font, text.height) / drawingFontPixels;
        const QTransform before = painter_.transform();
        painter_.setPen(colorOf(text.color));
        painter_.translate(text.at.x, text.at.y);
        painter_.rotate(-text.angle);
        painter_.translate(-shift, 0);
        painter_.scale(scale, scale);
        const QString letters = QString::fromStdWString(text.text);
        if (!paintGlyphs(text, letters)) {
            painter_.setFont(drawingFont(text.font));
            painter_.drawText(QPointF(0, 0), letters);
        }
        painter_.setTransform(before);
    }

private:
    // False where the font lacks a character: the toolkit then looks for another font.
    bool paintGlyphs(const Text& text, const QString& letters)
    {
        QRawFont& font = fonts_[static_cast<std::size_t>(text.font)];
        if (!font.isValid())
            font = QRawFont::fromFont(drawingFont(text.font));
        const auto length = static_cast<std::size_t>(letters.size());
        if (!font.isValid() || length != text.text.size())
            return false;
        glyphs_.resize(letters.size());
        int count = letters.size();
        if (!font.glyphIndexesForChars(letters.constData(), letters.size(), glyphs_.data(), &count)
            || count != letters.size() || glyphs_.contains(0))
            return false;
        places_.resize(letters.size());
        const double em = drawingFontPixels * text.height / emOfHeight(text.font, text.height);
        double x = 0;
        for (std::size_t at = 0; at < length; ++at) {
            places_[static_cast<int>(at)] = QPointF(x, 0);
            x += textWidth({&text.text[at], 1}, text.font, em);
        }
        QGlyphRun run;
        run.setRawFont(font);
        run.setGlyphIndexes(glyphs_);
        run.setPositions(places_);
        painter_.drawGlyphRun(QPointF(0, 0), run);
        return true;
    }

    QPainter& painter_;
    std::array<QRawFont, 4> fonts_; // in the order of Font
    QVector<quint32> glyphs_;
    QVector<QPointF> places_;
};

} // namespace

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
            painted.lines.append({inSteps(line.from), inSteps(line.to)});
        painted.dots = strokes.dots;
        for (const std::vector<Spot>& fill : strokes.fills) {
            painted.fills.addPolygon(polygonOf(fill));
            painted.fills.closeSubpath();
        }
    }
}

static void paintDots(QPainter& painter, const HatchStrokes::Dots& dots, const QColor& ink)
{
    painter.setPen(QPen(ink, 2 * dots.radius, Qt::SolidLine, Qt::RoundCap));
    painter.drawPoints(polygonOf(dots.centres));
}

// A row of dots is one dashed line with round ends: in a PDF a tenth of what the dots take one by one.
static void paintDotsAsDashes(QPainter& painter, const HatchStrokes::Dots& dots, const QColor& ink)
{
    constexpr double hair = 1e-6;
    constexpr double dash = 0.001; // of the width
    const std::vector<Spot>& centres = dots.centres;
    const double width = 2 * dots.radius;
    std::map<std::int64_t, QVector<QLineF>> rowsBySpacing; // in nanometres
    for (std::size_t first = 0; first < centres.size();) {
        std::size_t next = first + 1;
        const double spacing = next < centres.size() ? centres[next].x - centres[first].x : 0;
        while (spacing > width && next < centres.size() && centres[next].y == centres[first].y
            && std::abs(centres[next].x - centres[next - 1].x - spacing) < hair)
            ++next;
        const auto key = next > first + 1 ? std::llround(spacing / hair) : 0;
        const QPointF end(centres[next - 1].x + width * dash, centres[first].y);
        rowsBySpacing[key].append({{centres[first].x, centres[first].y}, end});
        first = next;
    }
    QPen pen(ink, width, Qt::SolidLine, Qt::RoundCap);
    for (const auto& [spacing, rows] : rowsBySpacing) {
        if (spacing > 0)
            pen.setDashPattern({dash, static_cast<double>(spacing) * hair / width - dash});
        painter.setPen(pen);
        painter.drawLines(rows);
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
    if (area.hatch == 0)
        return;
    const QColor ink = colorOf(area.hatchColor);
    if (!hatch.fills.isEmpty())
        painter.fillPath(hatch.fills, ink);
    for (const HatchStrokes::Dots& dots : hatch.dots)
        if (painter.paintEngine()->type() == QPaintEngine::Pdf)
            paintDotsAsDashes(painter, dots, ink);
        else
            paintDots(painter, dots, ink);
    if (hatch.lines.isEmpty())
        return;
    // A stroke of the tile is one unit wide, but never so thick that the hatch turns black.
    constexpr double thickest = 0.18;
    painter.save();
    painter.scale(1 / stepsPerMillimetre, 1 / stepsPerMillimetre);
    const double width = qMin(area.hatchUnit, thickest) * stepsPerMillimetre;
    painter.setPen(QPen(ink, width, Qt::SolidLine, Qt::FlatCap));
    painter.drawLines(hatch.lines);
    painter.restore();
}

void DrawingPainter::paint(QPainter& painter) const
{
    TextPainter texts(painter);
    for (std::size_t item = 0; item < drawing_.items.size(); ++item) {
        const auto& shape = drawing_.items[item].shape;
        if (const auto* line = std::get_if<Line>(&shape))
            paintLine(painter, *line);
        else if (const auto* area = std::get_if<Area>(&shape))
            paintArea(painter, *area, hatches_[item]);
        else if (const auto* circle = std::get_if<Circle>(&shape))
            paintCircle(painter, *circle);
        else if (const auto* text = std::get_if<Text>(&shape))
            texts.paint(*text);
    }
}

void paint(QPainter& painter, const Drawing& drawing, const Hatches& hatches)
{
    DrawingPainter(drawing, hatches).paint(painter);
}
