#include "common/section_drawing.h"

#include "common/picture_actions.h"
#include "common/ruler_step.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

static constexpr double margin = 10;
static constexpr double axisTitleGap = 8; // clear of the name of the first point
static constexpr int tableRows = 3;
static constexpr double narrowestStrip = 4; // too narrow for a pattern
static constexpr double swatchWidth = 34;
static constexpr int legendColumns = 3;

static const QColor inkColor(0x2b, 0x2b, 0x2b);
static const QColor faintColor(0xb8, 0xb8, 0xb8);
static const QColor waterColor(0x1b, 0x5e, 0xc4);

static QStringList tableHeads()
{
    return {QStringLiteral("Отметка, м"), QStringLiteral("Глубина, м"), QStringLiteral("Расст., м")};
}

SectionDrawing::SectionDrawing(IDBHatch* hatches, QWidget* parent)
    : QWidget(parent)
    , patterns_(hatches)
{
    setObjectName(QStringLiteral("section"));
    setAccessibleName(QStringLiteral("Чертёж разреза"));
    setFocusPolicy(Qt::StrongFocus);
    addPictureActions(this, QStringLiteral("Разрез.png"), [this](QPainter& painter) { paintAll(painter); });
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.88);
    setFont(small);
}

void SectionDrawing::setSection(const DrawnSection& section)
{
    section_ = section;
    update();
}

QVector<std::uint32_t> SectionDrawing::soils() const
{
    QVector<std::uint32_t> soils;
    for (const DrawnPoint& point : section_.points)
        for (const DrawnLayer& layer : point.layers)
            if (patterns_.has(layer.hatch) && !soils.contains(layer.hatch))
                soils.append(layer.hatch);
    std::sort(soils.begin(), soils.end());
    return soils;
}

int SectionDrawing::legendHeight() const
{
    const int line = fontMetrics().lineSpacing() + 6;
    return (int(soils().size()) + legendColumns - 1) / legendColumns * line + line;
}

// Left of the drawing, where the heads of the table stand.
double SectionDrawing::headWidth() const
{
    int widest = 0;
    for (const QString& head : tableHeads())
        widest = std::max(widest, fontMetrics().horizontalAdvance(head));
    return widest + 16;
}

SectionDrawing::Frame SectionDrawing::frame() const
{
    const int line = fontMetrics().lineSpacing();
    double highest = section_.points.first().mark;
    double lowest = highest;
    for (const DrawnPoint& point : section_.points) {
        highest = std::max(highest, point.mark);
        lowest = std::min(lowest, point.mark - point.depth());
    }
    Frame frame;
    frame.field = QRectF(margin + headWidth(),
        margin + 2 * line + axisTitleGap,
        width() - 2 * margin - headWidth(),
        height() - 2 * margin - 3 * line - axisTitleGap - tableRows * (line + 4) - legendHeight());
    frame.field.setHeight(std::max(frame.field.height(), 60.0));
    frame.top = highest;
    frame.perMetreUp = frame.field.height() / std::max(highest - lowest, 0.1);
    // The outer columns stand a little inside, so that their names have room.
    const double length = section_.points.last().distance;
    const double inset = std::min(34.0, frame.field.width() / 6);
    frame.perMetreAlong = (frame.field.width() - 2 * inset) / std::max(length, 0.1);
    frame.left = -inset / frame.perMetreAlong;
    return frame;
}

double SectionDrawing::stripWidth(const Frame& frame) const
{
    return qBound(narrowestStrip, frame.field.width() / section_.points.size() * 0.4, 16.0);
}

// Two layers that go together are one area; a layer that only one side has ends half way.
void SectionDrawing::paintBetween(
    QPainter& painter, const Frame& frame, const DrawnPoint& left, const DrawnPoint& right) const
{
    const QPointF origin(0, frame.field.top());
    const double middle = (frame.x(left.distance) + frame.x(right.distance)) / 2;
    QPointF a(frame.x(left.distance), frame.y(left.mark));
    QPointF b(frame.x(right.distance), frame.y(right.mark));
    QPointF half = (a + b) / 2;
    for (const auto& [leftLayer, rightLayer] : joinedLayers(left, right)) {
        const DrawnLayer& layer = leftLayer >= 0 ? left.layers[leftLayer] : right.layers[rightLayer];
        QPointF below = a;
        QPointF belowRight = b;
        if (leftLayer >= 0)
            below.setY(frame.y(left.mark - left.layers[leftLayer].bottom));
        if (rightLayer >= 0)
            belowRight.setY(frame.y(right.mark - right.layers[rightLayer].bottom));
        const QPointF belowHalf =
            leftLayer >= 0 && rightLayer >= 0 ? QPointF(middle, (below.y() + belowRight.y()) / 2) : half;
        QPainterPath area;
        area.addPolygon(QPolygonF({a, half, b, belowRight, belowHalf, below}));
        area.closeSubpath();
        painter.fillPath(area, groundOfLayer(layer));
        patterns_.fill(painter, area, layer.hatch, origin);
        painter.setPen(QPen(inkColor, 0.8, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(QPolygonF({below, belowHalf, belowRight}));
        a = below;
        b = belowRight;
        half = belowHalf;
    }
}

// The ground, and the settled water from point to point.
void SectionDrawing::paintLines(QPainter& painter, const Frame& frame) const
{
    QPolygonF ground;
    QPolygonF water;
    for (const DrawnPoint& point : section_.points) {
        ground.append({frame.x(point.distance), frame.y(point.mark)});
        for (const DrawnWater& level : point.waters)
            if (level.settled)
                water.append({frame.x(point.distance), frame.y(point.mark - level.depth)});
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(waterColor, 1.4, Qt::DashLine));
    painter.drawPolyline(water);
    painter.setPen(QPen(inkColor, 1.8));
    painter.drawPolyline(ground);
}

void SectionDrawing::paintPoint(QPainter& painter, const Frame& frame, const DrawnPoint& point) const
{
    const double half = stripWidth(frame) / 2;
    const double x = frame.x(point.distance);
    for (const DrawnLayer& layer : point.layers) {
        const QRectF strip(QPointF(x - half, frame.y(point.mark - layer.top)),
            QPointF(x + half, frame.y(point.mark - layer.bottom)));
        QPainterPath area;
        area.addRect(strip);
        painter.fillRect(strip, groundOfLayer(layer));
        if (2 * half > narrowestStrip)
            patterns_.fill(painter, area, layer.hatch, QPointF(0, frame.field.top()));
        painter.setPen(QPen(inkColor, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(strip);
    }
    paintWaters(painter, frame, point);
}

void SectionDrawing::paintWaters(QPainter& painter, const Frame& frame, const DrawnPoint& point) const
{
    const double x = frame.x(point.distance) + stripWidth(frame) / 2 + 5;
    painter.setPen(QPen(waterColor, 1.2));
    for (const DrawnWater& level : point.waters) {
        const double y = frame.y(point.mark - level.depth);
        painter.setBrush(level.settled ? QBrush(waterColor) : QBrush(Qt::white));
        painter.drawPolygon(QPolygonF({QPointF(x, y), QPointF(x - 4, y - 7), QPointF(x + 4, y - 7)}));
    }
}

void SectionDrawing::paintMarks(QPainter& painter, const Frame& frame) const
{
    const int line = fontMetrics().lineSpacing();
    const double step = rulerStep(frame.perMetreUp, line * 1.6);
    painter.setPen(inkColor);
    painter.drawText(
        QRectF(margin, margin, width() - 2 * margin, line), Qt::AlignLeft, QStringLiteral("Абс. отметка, м"));
    const double lowest = frame.top - frame.field.height() / frame.perMetreUp;
    const double first = std::ceil(lowest / step);
    const int marks = int(std::floor(frame.top / step) - first) + 1;
    for (int number = 0; number < marks; ++number) {
        const double mark = (first + number) * step;
        const double y = frame.y(mark);
        painter.setPen(QPen(faintColor, 0.6));
        painter.drawLine(QPointF(frame.field.left() - 6, y), QPointF(frame.field.right(), y));
        painter.setPen(inkColor);
        painter.drawText(QRectF(margin, y - line / 2.0, headWidth() - 12, line),
            Qt::AlignRight | Qt::AlignVCenter,
            QString::number(mark, 'f', step < 1 ? 1 : 0));
    }
    painter.drawLine(frame.field.topLeft(), frame.field.bottomLeft());
}

// Names above the columns, marks, depths and distances below; where columns stand close, only as many texts
// as have room.
void SectionDrawing::paintTable(QPainter& painter, const Frame& frame) const
{
    const QStringList heads = tableHeads();
    const QFontMetrics metrics = fontMetrics();
    const int line = metrics.lineSpacing() + 4;
    const double top = frame.field.bottom() + line / 2.0;
    painter.setPen(QPen(faintColor, 1));
    for (int row = 0; row <= tableRows; ++row)
        painter.drawLine(QPointF(margin, top + row * line), QPointF(frame.field.right(), top + row * line));
    painter.setPen(inkColor);
    for (int row = 0; row < tableRows; ++row)
        painter.drawText(
            QRectF(margin, top + row * line, headWidth() - 8, line), Qt::AlignVCenter, heads[row]);

    double free[1 + tableRows] = {-1e9, -1e9, -1e9, -1e9};
    const auto write = [&](int row, double x, double y, const QString& text) {
        const double half = metrics.horizontalAdvance(text) / 2.0;
        if (x - half < free[row])
            return;
        free[row] = x + half + 6;
        painter.fillRect(QRectF(x - half - 2, y + 1, 2 * half + 4, line - 2), QColor(255, 255, 255, 200));
        painter.drawText(QRectF(x - half - 2, y, 2 * half + 4, line), Qt::AlignCenter, text);
    };
    for (int number = 0; number < section_.points.size(); ++number) {
        const DrawnPoint& point = section_.points[number];
        const double x = frame.x(point.distance);
        write(0, x, frame.y(point.mark) - line - 4, point.name);
        write(1, x, top, QString::number(point.mark, 'f', 2));
        write(2, x, top + line, QString::number(point.depth(), 'f', 2));
        if (number == 0)
            continue;
        const double before = section_.points[number - 1].distance;
        write(3, (x + frame.x(before)) / 2, top + 2 * line, QString::number(point.distance - before, 'f', 1));
    }
}

void SectionDrawing::paintLegend(QPainter& painter) const
{
    const int line = fontMetrics().lineSpacing() + 6;
    const double top = height() - margin - legendHeight() + line;
    const double column = (width() - 2 * margin) / legendColumns;
    const QVector<std::uint32_t> shown = soils();
    for (int number = 0; number < shown.size(); ++number) {
        const int row = number / legendColumns;
        const QRectF swatch(
            margin + number % legendColumns * column, top + row * line, swatchWidth, line - 5);
        QPainterPath area;
        area.addRect(swatch);
        painter.fillRect(swatch, tintOfHatch(shown[number]));
        patterns_.fill(painter, area, shown[number], swatch.topLeft());
        painter.setPen(QPen(inkColor, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(swatch);
        painter.drawText(QRectF(swatch.right() + 6, swatch.top(), column - swatchWidth - 12, swatch.height()),
            Qt::AlignVCenter,
            fontMetrics().elidedText(
                patterns_.name(shown[number]), Qt::ElideRight, int(column - swatchWidth - 12)));
    }
}

// Two figures are as much as a drawing on a screen is good for.
static int roundScale(double scale)
{
    const double step = std::pow(10, std::floor(std::log10(std::max(scale, 10.0))) - 1);
    return int(std::round(scale / step) * step);
}

void SectionDrawing::paintNote(QPainter& painter, const Frame& frame) const
{
    const int line = fontMetrics().lineSpacing() + 6;
    const double dotsPerMetre = logicalDpiX() / 0.0254;
    const QString between = section_.isLine
        ? QStringLiteral("Границы между выработками условны: соединены одинаковые грунты.")
        : QStringLiteral("Выработки всей площадки спроецированы на одну линию.");
    QString note = QStringLiteral("Масштаб гор. около 1:%1, верт. около 1:%2. ")
                       .arg(roundScale(dotsPerMetre / frame.perMetreAlong))
                       .arg(roundScale(dotsPerMetre / frame.perMetreUp))
        + between;
    if (!section_.leftOut.isEmpty())
        note += QStringLiteral(" Без координат или отметки: %1.")
                    .arg(section_.leftOut.join(QStringLiteral(", ")));
    const QRectF place(margin, height() - margin - legendHeight(), width() - 2 * margin, line);
    painter.setPen(QColor(0x60, 0x60, 0x60));
    painter.drawText(
        place, Qt::AlignVCenter, fontMetrics().elidedText(note, Qt::ElideRight, int(place.width())));
}

void SectionDrawing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintAll(painter);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void SectionDrawing::paintAll(QPainter& painter) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font());
    if (section_.points.size() < 2) {
        painter.setPen(QColor(0x60, 0x60, 0x60));
        painter.drawText(rect().adjusted(24, 0, -24, 0),
            Qt::AlignCenter | Qt::TextWordWrap,
            QStringLiteral("Для чертежа нужны хотя бы две точки с координатами и отметкой устья."));
        return;
    }
    const Frame frame = this->frame();
    paintMarks(painter, frame);
    if (section_.isLine) {
        for (int point = 1; point < section_.points.size(); ++point)
            paintBetween(painter, frame, section_.points[point - 1], section_.points[point]);
        paintLines(painter, frame);
    }
    for (const DrawnPoint& point : section_.points)
        paintPoint(painter, frame, point);
    paintTable(painter, frame);
    paintNote(painter, frame);
    paintLegend(painter);
}
