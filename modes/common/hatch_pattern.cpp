#include "common/hatch_pattern.h"

#include <QPainter>
#include <QPolygonF>
#include <QStringList>

#include <algorithm>
#include <cmath>

static constexpr int largestTile = 400;

// Two numbers are the tile's sides; false for anything but two whole positive ones.
static bool readTile(const QString& line, QSize& tile)
{
    const QStringList sides = line.split(QLatin1Char(' '));
    bool isWidth = false;
    bool isHeight = false;
    tile = {sides.value(0).toInt(&isWidth), sides.value(1).toInt(&isHeight)};
    return sides.size() == 2 && isWidth && isHeight && !tile.isEmpty() && tile.width() <= largestTile
        && tile.height() <= largestTile;
}

std::optional<HatchPattern::Shape> HatchPattern::shapeOf(const QString& line)
{
    static const struct {
        QString word;
        Stroke stroke;
        int least;
        int most;
    } strokes[] = {
        {QStringLiteral("line"), Stroke::Line, 4, 1000},
        {QStringLiteral("fill"), Stroke::Fill, 6, 1000},
        {QStringLiteral("dot"), Stroke::Dot, 3, 3},
        {QStringLiteral("oval"), Stroke::Oval, 5, 5},
    };
    const QStringList words = line.split(QLatin1Char(' '));
    for (const auto& row : strokes) {
        if (words.front() != row.word)
            continue;
        Shape shape{row.stroke, {}};
        for (int word = 1; word < words.size(); ++word) {
            bool isNumber = false;
            shape.numbers.append(words[word].toDouble(&isNumber));
            if (!isNumber || !std::isfinite(shape.numbers.last()))
                return std::nullopt;
        }
        const int count = shape.numbers.size();
        const bool isWhole = row.least == row.most || count % 2 == 0;
        return count >= row.least && count <= row.most && isWhole ? std::optional(shape) : std::nullopt;
    }
    return std::nullopt;
}

std::optional<HatchPattern> HatchPattern::parse(const std::vector<std::uint8_t>& bytes)
{
    const QByteArray text(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()));
    QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
    if (lines.size() < 4 || !lines.takeLast().isEmpty())
        return std::nullopt;
    HatchPattern pattern;
    pattern.name_ = lines.takeFirst();
    if (!readTile(lines.takeFirst(), pattern.tile_))
        return std::nullopt;
    for (const QString& line : qAsConst(lines)) {
        const std::optional<Shape> shape = shapeOf(line);
        if (!shape)
            return std::nullopt;
        pattern.shapes_.append(*shape);
    }
    return pattern;
}

static QPolygonF polygonOf(const QVector<double>& numbers)
{
    QPolygonF polygon;
    for (int number = 0; number + 1 < numbers.size(); number += 2)
        polygon.append({numbers[number], numbers[number + 1]});
    return polygon;
}

void HatchPattern::paintShape(QPainter& painter, const Shape& shape, const QColor& color)
{
    const QVector<double>& numbers = shape.numbers;
    const QPointF place(numbers[0], numbers[1]);
    const bool isFilled = shape.stroke == Stroke::Fill || shape.stroke == Stroke::Dot;
    painter.setPen(isFilled ? QPen(Qt::NoPen) : QPen(color, 1, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    painter.setBrush(isFilled ? QBrush(color) : QBrush(Qt::NoBrush));
    switch (shape.stroke) {
    case Stroke::Line:
        painter.drawPolyline(polygonOf(numbers));
        break;
    case Stroke::Fill:
        painter.drawPolygon(polygonOf(numbers));
        break;
    case Stroke::Dot:
        painter.drawEllipse(place, numbers[2] / 2, numbers[2] / 2);
        break;
    case Stroke::Oval:
        painter.save();
        painter.translate(place);
        painter.rotate(numbers[4]);
        painter.drawEllipse(QPointF(), numbers[2] / 2, numbers[3] / 2);
        painter.restore();
        break;
    }
}

void HatchPattern::paintTile(QPainter& painter, const QColor& color) const
{
    for (int row = -1; row <= 1; ++row)
        for (int column = -1; column <= 1; ++column) {
            painter.save();
            painter.translate(column * tile_.width(), row * tile_.height());
            for (const Shape& shape : shapes_)
                paintShape(painter, shape, color);
            painter.restore();
        }
}

QPixmap HatchPattern::picture(double density, const QColor& color) const
{
    const QSize pixels(qMax(1, qRound(tile_.width() * density)), qMax(1, qRound(tile_.height() * density)));
    QPixmap picture(pixels);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    // Horizontal and vertical strokes of whole numbers stand on the middle of a pixel, as sharp as they can
    // be.
    painter.translate(0.5, 0.5);
    // The sides are whole pixels; a stretch of less than a pixel keeps them so.
    painter.scale(pixels.width() / double(tile_.width()), pixels.height() / double(tile_.height()));
    paintTile(painter, color);
    return picture;
}
