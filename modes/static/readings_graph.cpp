#include "static/readings_graph.h"

#include "plots/graph.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace
{

const QColor paper(0xff, 0xff, 0xff);
const QColor gridColor(0xe3, 0xe7, 0xea);
const QColor frameColor(0xb9, 0xb9, 0xb9);
const QColor numberColor(0x6c, 0x75, 0x7d);
const QColor currentColor(0x2f, 0x8a, 0xc6);
const QColor doubtColor(0xd9, 0x3a, 0x1e);

constexpr double gap = 10;
constexpr double dot = 5;

// Beyond that many readings the line is drawn without smoothing: a keystroke must not wait for it.
constexpr int mostSmooth = 400;

// Of the places within a pixel of depth only the outermost: a probe writes more of them than a screen has
// lines.
QPolygonF withoutHidden(const QPolygonF& line)
{
    QPolygonF seen;
    for (int i = 0; i < line.size();) {
        int left = i;
        int right = i;
        const int first = i;
        for (; i < line.size() && line[i].y() < line[first].y() + 1; ++i) {
            left = line[i].x() < line[left].x() ? i : left;
            right = line[i].x() > line[right].x() ? i : right;
        }
        for (const int place : std::set<int>{first, left, right, i - 1})
            seen.append(line[place]);
    }
    return seen;
}

} // namespace

ReadingsGraph::ReadingsGraph(QWidget* parent)
    : QWidget(parent)
{
    setAccessibleName(QStringLiteral("График отсчётов"));
    setToolTip(QStringLiteral("Щелчок показывает отсчёт в журнале."));
    setMinimumWidth(180);
}

void ReadingsGraph::setReadings(const QVector<Reading>& readings, const Look& look)
{
    readings_ = readings;
    look_ = look;
    picture_ = {};
    update();
}

void ReadingsGraph::setCurrentRow(qint64 row)
{
    if (std::exchange(current_, row) != row)
        update();
}

QVector<ReadingsGraph::Lane> ReadingsGraph::lanes() const
{
    const double left = fontMetrics().horizontalAdvance(QStringLiteral("00.0")) + gap;
    const double top = heightAt(0);
    // The numbers stand about the ends of their lanes.
    const double ends = fontMetrics().horizontalAdvance(QStringLiteral("000"));
    const QRectF all(left, top, width() - left - ends, height() - top - gap);
    const double tipWidth = 0.6 * (all.width() - ends);
    const QRectF tip(all.topLeft(), QSizeF(tipWidth, all.height()));
    const QRectF side(tip.right() + ends, all.top(), all.width() - tipWidth - ends, all.height());
    return {lane(tip, &Reading::tip, QStringLiteral("qc, МПа"), look_.tipColor),
        lane(side, &Reading::side, look_.sideTitle, look_.sideColor)};
}

ReadingsGraph::Lane ReadingsGraph::lane(
    const QRectF& area, Value value, const QString& title, const QColor& color) const
{
    double most = 0;
    for (const Reading& reading : readings_)
        most = std::max(most, (reading.*value).value_or(0));
    const double numbers =
        std::max(1.0, std::floor(area.width() / fontMetrics().horizontalAdvance(QStringLiteral("00000"))));
    const double step = roundStep((most > 0 ? most : 1) / numbers);
    return {area, value, title, color, std::max(step, step * std::ceil(most / step)), step};
}

double ReadingsGraph::depthStep() const
{
    const double rows = std::max(1.0, height() / (2.5 * fontMetrics().height()));
    return std::max(0.1, roundStep(std::max(readings_.back().depth, 0.1) / rows));
}

double ReadingsGraph::heightAt(double depth) const
{
    const double top = 2 * fontMetrics().height() + gap;
    return top + (height() - top - gap) * depth / std::max(readings_.back().depth, 0.1);
}

void ReadingsGraph::drawDepths(QPainter& painter) const
{
    const double step = depthStep();
    for (int i = 0; i * step <= readings_.back().depth; ++i) {
        const double at = std::floor(heightAt(i * step)) + 0.5;
        painter.setPen(gridColor);
        painter.drawLine(QPointF(0, at), QPointF(width() - gap, at));
        painter.setPen(numberColor);
        painter.drawText(QPointF(2, at - 2), QString::number(i * step, 'g', 4));
    }
}

void ReadingsGraph::drawLane(QPainter& painter, const Lane& lane) const
{
    const int letters = fontMetrics().height();
    painter.setPen(lane.color);
    painter.drawText(QRectF(lane.area.left(), 2, lane.area.width(), letters), Qt::AlignCenter, lane.title);
    for (int i = 0; i * lane.step <= lane.most * 1.001; ++i) {
        const double at = std::floor(acrossAt(lane, i * lane.step)) + 0.5;
        painter.setPen(gridColor);
        painter.drawLine(QPointF(at, lane.area.top()), QPointF(at, lane.area.bottom()));
        painter.setPen(numberColor);
        painter.drawText(QRectF(at - 40, lane.area.top() - letters - 2, 80, letters),
            Qt::AlignCenter,
            QString::number(i * lane.step, 'g', 4));
    }
    QPolygonF line;
    QVector<QPointF> doubtful;
    const auto drawLine = [&] {
        painter.setPen(lane.color);
        painter.drawPolyline(withoutHidden(line));
        line.clear();
    };
    painter.setRenderHint(QPainter::Antialiasing, readings_.size() < mostSmooth);
    for (const Reading& reading : readings_) {
        const std::optional<double>& value = reading.*lane.value;
        if (!value) {
            drawLine();
            continue;
        }
        line.append(placeOf(lane, reading));
        if (reading.isDoubtful)
            doubtful.append(line.back());
    }
    drawLine();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(doubtColor, 2));
    for (const QPointF& place : qAsConst(doubtful))
        painter.drawEllipse(place, dot, dot);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

QPointF ReadingsGraph::placeOf(const Lane& lane, const Reading& reading) const
{
    return {acrossAt(lane, (reading.*lane.value).value_or(0)), heightAt(reading.depth)};
}

double ReadingsGraph::acrossAt(const Lane& lane, double value)
{
    return lane.area.left() + lane.area.width() * std::clamp(value / lane.most, 0.0, 1.0);
}

// The cursor moves over a picture that only a change of the readings draws anew.
void ReadingsGraph::drawPicture(const QVector<Lane>& all)
{
    picture_ = QPixmap(size() * devicePixelRatioF());
    picture_.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&picture_);
    painter.setFont(font());
    painter.fillRect(rect(), paper);
    drawDepths(painter);
    for (const Lane& lane : all)
        drawLane(painter, lane);
    painter.setPen(frameColor);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ReadingsGraph::drawCurrent(QPainter& painter, const QVector<Lane>& all) const
{
    const auto current = std::find_if(readings_.begin(), readings_.end(), [this](const Reading& reading) {
        return reading.row == current_;
    });
    if (current == readings_.end())
        return;
    const double at = std::floor(heightAt(current->depth)) + 0.5;
    painter.setPen(QPen(currentColor, 1, Qt::DashLine));
    painter.drawLine(QPointF(0, at), QPointF(width() - gap, at));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(currentColor, 2));
    for (const Lane& lane : all)
        if ((*current).*lane.value)
            painter.drawEllipse(placeOf(lane, *current), dot, dot);
}

void ReadingsGraph::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (readings_.isEmpty()) {
        painter.fillRect(rect(), paper);
        painter.setPen(frameColor);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
        painter.setPen(numberColor);
        painter.drawText(rect().adjusted(16, 16, -16, -16),
            Qt::AlignCenter | Qt::TextWordWrap,
            QStringLiteral("Здесь появится график: введите глубину и qc."));
        return;
    }
    const QVector<Lane> all = lanes();
    if (picture_.isNull() || picture_.size() != size() * devicePixelRatioF())
        drawPicture(all);
    painter.drawPixmap(0, 0, picture_);
    drawCurrent(painter, all);
}

void ReadingsGraph::mousePressEvent(QMouseEvent* event)
{
    const auto distance = [&](const Reading& reading) {
        return std::abs(heightAt(reading.depth) - event->localPos().y());
    };
    const auto nearest = std::min_element(readings_.begin(),
        readings_.end(),
        [&](const auto& a, const auto& b) { return distance(a) < distance(b); });
    if (event->button() == Qt::LeftButton && nearest != readings_.end())
        Q_EMIT chosen(nearest->row);
}
