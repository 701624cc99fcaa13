#include "listCoords/point_plan.h"

#include <QPainter>
#include <QPainterPath>
#include <QSet>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

const QColor paper(0xff, 0xff, 0xff);
const QColor gridColor(0xe3, 0xe7, 0xea);
const QColor gridTextColor(0x6c, 0x75, 0x7d);
const QColor nameGround(0xff, 0xff, 0xff, 0xd8);
const QColor inkColor(0x22, 0x2b, 0x33);
const QColor currentColor(0xd9, 0x3a, 0x1e);

// More symbols than that run into each other: dots tell more, and are drawn at once.
constexpr int mostSymbols = 1200;
constexpr int mostLabels = 500;
const QColor veil(255, 255, 255, 210); // below what stands on top of the points
const QSizeF axesSize(54, 42);
constexpr int symbolSize = 13; // px

struct KindStyle {
    QColor color;
    QPainterPath (*outline)();
};

QPainterPath circle()
{
    QPainterPath path;
    path.addEllipse(QPointF(), 4.5, 4.5);
    return path;
}

QPainterPath square()
{
    QPainterPath path;
    path.addRect(-4, -4, 8, 8);
    return path;
}

QPainterPath triangle()
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{-5, -4}, {5, -4}, {0, 5}, {-5, -4}}));
    return path;
}

QPainterPath diamond()
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{0, -5}, {5, 0}, {0, 5}, {-5, 0}, {0, -5}}));
    return path;
}

// By kind of point; the first for kinds without a symbol of their own.
const std::array<KindStyle, 4> styles{{
    {QColor(0x7a, 0x7a, 0x7a), diamond},
    {QColor(0x1f, 0x6f, 0xb2), circle},
    {QColor(0x8a, 0x5a, 0x1c), square},
    {QColor(0x2f, 0x8f, 0x5b), triangle},
}};

std::size_t styleOf(const PlanPoint& point)
{
    return point.kind >= 1 && point.kind < int(styles.size()) ? std::size_t(point.kind) : 0;
}

QPixmap symbolOf(const KindStyle& style, qreal pixelRatio)
{
    QPixmap symbol(QSize(symbolSize, symbolSize) * pixelRatio);
    symbol.setDevicePixelRatio(pixelRatio);
    symbol.fill(Qt::transparent);
    QPainter painter(&symbol);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(symbolSize / 2.0, symbolSize / 2.0);
    painter.setPen(QPen(style.color.darker(130), 1.2));
    painter.setBrush(style.color.lighter(165));
    painter.drawPath(style.outline());
    return symbol;
}

// Places on the sheet that hold a label or symbol already, in cells of a few pixels.
class TakenPlaces
{
public:
    bool isFree(const QRectF& place) const
    {
        const QRect cells = cellsOf(place);
        for (int row = cells.top(); row <= cells.bottom(); ++row)
            for (int column = cells.left(); column <= cells.right(); ++column)
                if (taken_.contains(key(column, row)))
                    return false;
        return true;
    }
    void take(const QRectF& place)
    {
        const QRect cells = cellsOf(place);
        for (int row = cells.top(); row <= cells.bottom(); ++row)
            for (int column = cells.left(); column <= cells.right(); ++column)
                taken_.insert(key(column, row));
    }

private:
    static int cell(double at) { return int(std::floor(at / 3)); }
    static QRect cellsOf(const QRectF& place)
    {
        return {
            QPoint(cell(place.left()), cell(place.top())), QPoint(cell(place.right()), cell(place.bottom()))};
    }
    static qint64 key(int column, int row) { return (qint64(row) << 32) + column; }

    QSet<qint64> taken_;
};

// Where a name of this size may stand beside a symbol, the usual places first: right, left, above, below,
// then the corners.
std::array<QRectF, 8> placesBeside(const QPointF& symbol, const QSizeF& size, double gap)
{
    const double left = -gap - size.width();
    const double middle = -size.width() / 2;
    const double above = -gap - size.height();
    const double level = -size.height() / 2;
    const double corner = gap * 0.7;
    const QPointF places[] = {{gap, level},
        {left, level},
        {middle, above},
        {middle, gap},
        {corner, above + gap - corner},
        {corner, corner},
        {left + gap - corner, above + gap - corner},
        {left + gap - corner, corner}};
    std::array<QRectF, 8> boxes;
    std::transform(std::begin(places), std::end(places), boxes.begin(), [&](const QPointF& place) {
        return QRectF(symbol + place, size);
    });
    return boxes;
}

QString lengthText(double metres)
{
    return metres >= 1000 ? QStringLiteral("%1 км").arg(metres / 1000) : QStringLiteral("%1 м").arg(metres);
}

// Full digits: coordinates are compared by eye with those in the table.
QString coordinateText(double metres, double step)
{
    return QString::number(metres, 'f', step < 1 ? int(std::ceil(-std::log10(step))) : 0);
}

} // namespace

QVector<const PlanPoint*> PointPlan::pointsInView() const
{
    const QRectF sheet = QRectF(rect()).adjusted(-symbolSize, -symbolSize, symbolSize, symbolSize);
    QVector<const PlanPoint*> points;
    for (const PlanPoint& point : points_)
        if (sheet.contains(screenPlace(point)))
            points.append(&point);
    return points;
}

void PointPlan::drawGrid(QPainter& painter) const
{
    const QPointF low = frame_.toGround(QPointF(0, height()));
    const QPointF high = frame_.toGround(QPointF(width(), 0));
    const int textHeight = fontMetrics().height();
    const double stepUp = roundLength(70 / frame_.scale);
    const double step = qMax(stepUp,
        roundLength((fontMetrics().horizontalAdvance(coordinateText(high.x(), stepUp)) + 16) / frame_.scale));
    // Lines by their numbers: a sum of steps would drift away from round coordinates.
    for (auto line = static_cast<long long>(std::ceil(low.x() / step));
         static_cast<double>(line) * step < high.x();
         ++line) {
        const double across = static_cast<double>(line) * step;
        const double at = std::floor(frame_.toScreen({across, 0}).x()) + 0.5;
        const QString text = coordinateText(across, step);
        painter.setPen(gridColor);
        painter.drawLine(QPointF(at, 0), QPointF(at, height()));
        painter.setPen(gridTextColor);
        if (at + fontMetrics().horizontalAdvance(text) + 6 < width())
            painter.drawText(QPointF(at + 3, height() - 5), text);
    }
    for (auto line = static_cast<long long>(std::ceil(low.y() / step));
         static_cast<double>(line) * step < high.y();
         ++line) {
        const double up = static_cast<double>(line) * step;
        const double at = std::floor(frame_.toScreen({0, up}).y()) + 0.5;
        painter.setPen(gridColor);
        painter.drawLine(QPointF(0, at), QPointF(width(), at));
        painter.setPen(gridTextColor);
        if (at < height() - 2 * textHeight)
            painter.drawText(QPointF(4, at - 3), coordinateText(up, step));
    }
}

void PointPlan::drawDots(QPainter& painter, const QVector<const PlanPoint*>& points) const
{
    painter.setRenderHint(QPainter::Antialiasing, false);
    for (std::size_t kind = 0; kind < styles.size(); ++kind) {
        QVector<QRect> dots;
        for (const PlanPoint* point : points)
            if (styleOf(*point) == kind)
                dots.append(QRect(screenPlace(*point).toPoint() - QPoint(1, 1), QSize(3, 3)));
        painter.setPen(Qt::NoPen);
        painter.setBrush(styles[kind].color);
        painter.drawRects(dots);
    }
}

void PointPlan::drawSymbols(QPainter& painter, const QVector<const PlanPoint*>& points) const
{
    std::array<QPixmap, styles.size()> symbols;
    for (std::size_t kind = 0; kind < styles.size(); ++kind)
        symbols[kind] = symbolOf(styles[kind], devicePixelRatioF());
    for (const PlanPoint* point : points)
        painter.drawPixmap(
            screenPlace(*point) - QPointF(symbolSize / 2.0, symbolSize / 2.0), symbols[styleOf(*point)]);
}

void PointPlan::drawLabels(QPainter& painter, const QVector<const PlanPoint*>& points) const
{
    TakenPlaces taken;
    if (const PlanPoint* current = currentPoint())
        taken.take(currentLabel(*current, points));
    for (const PlanPoint* point : points)
        taken.take({screenPlace(*point) - QPointF(5, 5), QSizeF(10, 10)});
    const QFontMetrics metrics = fontMetrics();
    painter.setPen(inkColor);
    for (const PlanPoint* point : points) {
        if (point->id == current_)
            continue;
        const QSizeF size(metrics.horizontalAdvance(point->name), metrics.ascent());
        const auto places = placesBeside(screenPlace(*point), size, 9);
        const auto box = std::find_if(places.begin(), places.end(), [&](const QRectF& place) {
            return QRectF(rect()).contains(place) && taken.isFree(place);
        });
        if (box == places.end())
            continue;
        taken.take(*box);
        // Over a line of the grid or one of its numbers it is the name that is to be read.
        painter.fillRect(*box, nameGround);
        painter.drawText(QPointF(box->left(), box->bottom() - metrics.descent() / 2.0), point->name);
    }
}

const PlanPoint* PointPlan::currentPoint() const
{
    const auto point = std::find_if(
        points_.begin(), points_.end(), [&](const PlanPoint& each) { return each.id == current_; });
    return point == points_.end() ? nullptr : &*point;
}

QFont PointPlan::currentFont() const
{
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

// It is always there, so where every side has other points it covers as few of them as can be.
QRectF PointPlan::currentLabel(const PlanPoint& point, const QVector<const PlanPoint*>& points) const
{
    const QFontMetrics metrics(currentFont());
    const QSizeF size(metrics.horizontalAdvance(point.name) + 6, metrics.height());
    const auto places = placesBeside(screenPlace(point), size, 12);
    std::array<int, places.size()> covered{};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const QRectF around = places[i].adjusted(-5, -5, 5, 5);
        covered[i] = int(std::count_if(points.begin(), points.end(), [&](const PlanPoint* other) {
            return other->id != point.id && around.contains(screenPlace(*other));
        }));
        if (!QRectF(rect()).contains(places[i]))
            covered[i] += int(points.size());
    }
    return places[std::size_t(std::min_element(covered.begin(), covered.end()) - covered.begin())];
}

void PointPlan::drawCurrent(QPainter& painter, const QVector<const PlanPoint*>& points) const
{
    const PlanPoint* point = currentPoint();
    if (!point)
        return;
    painter.setPen(QPen(currentColor, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(screenPlace(*point), 9, 9);
    painter.setFont(currentFont());
    const QRectF label = currentLabel(*point, points);
    painter.fillRect(label, veil);
    painter.drawText(label, Qt::AlignCenter, point->name);
    painter.setFont(font());
}

void PointPlan::drawScaleBar(QPainter& painter) const
{
    const double length = roundLength(60 / frame_.scale);
    const double pixels = length * frame_.scale;
    const QRectF box(width() - axesSize.width() - pixels - 26, 6, pixels + 14, axesSize.height());
    painter.fillRect(box, veil);
    const double left = box.left() + 7;
    const double base = box.bottom() - 8;
    painter.setPen(QPen(inkColor, 1.5));
    painter.drawPolyline(
        QPolygonF({{left, base - 5}, {left, base}, {left + pixels, base}, {left + pixels, base - 5}}));
    painter.drawText(box.adjusted(0, 0, 0, -14), Qt::AlignHCenter | Qt::AlignBottom, lengthText(length));
}

void PointPlan::drawAxes(QPainter& painter) const
{
    constexpr double arm = 22;
    const QRectF box(QPointF(width() - axesSize.width() - 6, 6), axesSize);
    const QPointF corner = box.bottomLeft() + QPointF(14, -8);
    const QPointF up = corner - QPointF(0, arm);
    const QPointF across = corner + QPointF(arm, 0);
    painter.fillRect(box, veil);
    painter.setPen(QPen(inkColor, 1.2));
    painter.setBrush(inkColor);
    painter.drawLine(corner, up);
    painter.drawLine(corner, across);
    painter.drawPolygon(QPolygonF({up, up + QPointF(-3, 7), up + QPointF(3, 7)}));
    painter.drawPolygon(QPolygonF({across, across + QPointF(-7, -3), across + QPointF(-7, 3)}));
    painter.drawText(up + QPointF(6, 8), xUp_ ? QStringLiteral("X") : QStringLiteral("Y"));
    painter.drawText(across + QPointF(4, 4), xUp_ ? QStringLiteral("Y") : QStringLiteral("X"));
}

void PointPlan::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), paper);
    if (points_.isEmpty()) {
        painter.setPen(gridTextColor);
        painter.drawText(rect().adjusted(16, 16, -16, -16),
            Qt::AlignCenter | Qt::TextWordWrap,
            QStringLiteral("На плане пока нет точек.\nВведите их координаты X и Y в таблице."));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    drawGrid(painter);
    const QVector<const PlanPoint*> points = pointsInView();
    if (points.size() > mostSymbols)
        drawDots(painter, points);
    else
        drawSymbols(painter, points);
    painter.setRenderHint(QPainter::Antialiasing);
    if (points.size() <= mostLabels)
        drawLabels(painter, points);
    drawCurrent(painter, points);
    drawScaleBar(painter);
    drawAxes(painter);
}
