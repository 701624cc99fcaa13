#include "static/layers_canvas.h"

#include "plots/graph.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace
{

constexpr int left = 44;
constexpr int top = 36;
constexpr int labelWidth = 64; // the names of the layers stand beside the curve
constexpr int margin = 10;
constexpr double dragStep = 0.05; // m: nobody means the millimetres that the mouse happens to hit
constexpr double reach = 5.0; // pixels on either side of a boundary

} // namespace

LayersCanvas::LayersCanvas(QWidget* parent)
    : QWidget(parent)
{
    setMouseTracking(true);
    setMinimumSize(240, 260);
    setAccessibleName(QStringLiteral("График qc с границами слоев"));
    setToolTip(QStringLiteral("Потяните границу слоя мышью"));
}

void LayersCanvas::setReadings(const std::vector<SoundingReading>& readings)
{
    readings_ = readings;
    depth_ = readings.empty() ? 1.0 : std::max(0.1, readings.back().depth);
    greatest_ = 1.0;
    for (const SoundingReading& reading : readings)
        greatest_ = std::max(greatest_, reading.tip.value_or(0.0));
    update();
}

void LayersCanvas::setLayers(const std::vector<JournalLayer>& layers)
{
    layers_ = layers;
    update();
}

void LayersCanvas::setCurrent(int layer)
{
    current_ = layer;
    update();
}

double LayersCanvas::yOf(double depth) const
{
    return top + (height() - top - margin) * depth / depth_;
}

double LayersCanvas::depthOf(double y) const
{
    return std::clamp((y - top) / (height() - top - margin) * depth_, 0.0, depth_);
}

double LayersCanvas::scaleX() const
{
    return std::max(40, width() - left - margin - labelWidth) / greatest_;
}

void LayersCanvas::drawScale(QPainter& painter) const
{
    painter.setPen(QColor(0x55, 0x55, 0x55));
    const double depthStep = roundStep(depth_ / 10);
    for (int i = 0; i * depthStep <= depth_ + 1e-9; ++i) {
        const double y = yOf(i * depthStep);
        painter.drawLine(QPointF(left - 4, y), QPointF(left, y));
        painter.drawText(QRectF(0, y - 8, left - 7, 16),
            Qt::AlignRight | Qt::AlignVCenter,
            QString::fromStdWString(numberText(i * depthStep, depthStep < 1 ? 1 : 0)));
    }
    const double tipStep = axisStep(greatest_);
    for (int i = 0; i * tipStep <= greatest_; ++i) {
        const double x = left + i * tipStep * scaleX();
        painter.drawLine(QPointF(x, top - 3), QPointF(x, top));
        painter.drawText(QRectF(x - 20, top - 20, 40, 16),
            Qt::AlignCenter,
            QString::fromStdWString(numberText(i * tipStep, tipStep < 1 ? 1 : 0)));
    }
    painter.drawText(
        QRectF(0, top - 20, left - 8, 16), Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("м"));
    painter.drawText(QRectF(left, 0, width() - left - margin, 16),
        Qt::AlignLeft | Qt::AlignVCenter,
        QStringLiteral("qc, МПа"));
}

void LayersCanvas::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Qt::white);
    const double right = width() - margin;
    for (int i = 0; i < static_cast<int>(layers_.size()); ++i) {
        const JournalLayer& layer = layers_[static_cast<std::size_t>(i)];
        const QRectF band(left, yOf(layer.from), right - left, yOf(layer.to) - yOf(layer.from));
        painter.fillRect(band,
            i == current_    ? QColor(0xff, 0xf0, 0xc8)
                : i % 2 == 0 ? QColor(0xf3, 0xf6, 0xfa)
                             : QColor(0xe6, 0xec, 0xf3));
        painter.setPen(QColor(0x33, 0x33, 0x33));
        if (band.height() > 14)
            painter.drawText(band.adjusted(0, 1, -4, -1),
                Qt::AlignRight | Qt::AlignTop,
                layer.element.empty() ? QStringLiteral("по скважине")
                                      : QStringLiteral("ИГЭ %1").arg(QString::fromStdWString(layer.element)));
    }
    drawScale(painter);
    painter.setPen(QPen(QColor(0xc0, 0x20, 0x20), 1.2));
    QPainterPath path;
    bool isOpen = false;
    for (const SoundingReading& reading : readings_) {
        if (!reading.tip) {
            isOpen = false;
            continue;
        }
        const QPointF spot(left + *reading.tip * scaleX(), yOf(reading.depth));
        if (isOpen)
            path.lineTo(spot);
        else
            path.moveTo(spot);
        isOpen = true;
    }
    painter.drawPath(path);
    for (int i = 0; i + 1 < static_cast<int>(layers_.size()); ++i) {
        const double y = yOf(layers_[static_cast<std::size_t>(i)].to);
        painter.setPen(QPen(QColor(0x10, 0x50, 0xa0), i == grabbed_ ? 2.5 : 1.5));
        painter.drawLine(QPointF(left, y), QPointF(right, y));
    }
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.drawRect(QRectF(left, top, right - left, height() - top - margin));
}

int LayersCanvas::boundaryAt(double y) const
{
    for (int i = 0; i + 1 < static_cast<int>(layers_.size()); ++i)
        if (std::abs(yOf(layers_[static_cast<std::size_t>(i)].to) - y) <= reach)
            return i;
    return -1;
}

void LayersCanvas::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    grabbed_ = boundaryAt(event->localPos().y());
    if (grabbed_ < 0) {
        const double depth = depthOf(event->localPos().y());
        for (int i = 0; i < static_cast<int>(layers_.size()); ++i)
            if (depth <= layers_[static_cast<std::size_t>(i)].to) {
                Q_EMIT chosen(i);
                break;
            }
    }
    update();
}

void LayersCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (grabbed_ >= 0)
        Q_EMIT dragged(grabbed_, std::round(depthOf(event->localPos().y()) / dragStep) * dragStep);
    else
        setCursor(boundaryAt(event->localPos().y()) >= 0 ? Qt::SizeVerCursor : Qt::ArrowCursor);
}

void LayersCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || grabbed_ < 0)
        return;
    grabbed_ = -1;
    update();
    Q_EMIT dropped();
}
