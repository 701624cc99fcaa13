#include "common/drawing_canvas.h"

#include "drawing/hit_test.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

static constexpr double margin = 12; // around a fitted sheet
static constexpr double smallestZoom = 0.02;
static constexpr double largestZoom = 64;
static constexpr double reachOfMouse = 4; // pixels
static constexpr double wheelStep = 1.2;

DrawingCanvas::DrawingCanvas(QWidget* parent)
    : QWidget(parent)
{
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(QStringLiteral("Чертёж"));
    setMinimumSize(120, 120);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DrawingCanvas::setDrawing(Drawing drawing, const Hatches& hatches)
{
    const Drawing& old = painter_.drawing();
    const bool isOtherSheet = old.width != drawing.width || old.height != drawing.height;
    painter_ = DrawingPainter(std::move(drawing), hatches);
    hovered_ = 0;
    sheet_ = {};
    if (isOtherSheet || isFitted_)
        fit();
    update();
}

void DrawingCanvas::setCurrent(std::int64_t id)
{
    current_ = id;
    update();
}

void DrawingCanvas::setPaper(const QColor& paper)
{
    paper_ = paper;
    sheet_ = {};
    update();
}

double DrawingCanvas::pixelsPerMillimetre() const
{
    return zoom_ * logicalDpiX() / 25.4;
}

Spot DrawingCanvas::spotAt(const QPointF& place) const
{
    const QPointF spot = (place - corner_) / pixelsPerMillimetre();
    return {spot.x(), spot.y()};
}

void DrawingCanvas::setZoom(double zoom, const QPointF& kept)
{
    const double before = pixelsPerMillimetre();
    zoom_ = std::clamp(zoom, smallestZoom, largestZoom);
    isFitted_ = false;
    moveTo(kept - (kept - corner_) * (pixelsPerMillimetre() / before));
    Q_EMIT zoomed(zoom_);
}

// A strip of the sheet stays to be seen, wherever it is dragged.
void DrawingCanvas::moveTo(const QPointF& corner)
{
    constexpr double seen = 40;
    const QSizeF sheet = QSizeF(drawing().width, drawing().height) * pixelsPerMillimetre();
    corner_.setX(std::clamp(corner.x(), qMin(seen - sheet.width(), width() - seen), width() - seen));
    corner_.setY(std::clamp(corner.y(), qMin(seen - sheet.height(), height() - seen), height() - seen));
    sheet_ = {};
    update();
}

void DrawingCanvas::fit()
{
    const double perMillimetre = logicalDpiX() / 25.4;
    const double wide = (width() - 2 * margin) / (qMax(1.0, drawing().width) * perMillimetre);
    const double high = (height() - 2 * margin) / (qMax(1.0, drawing().height) * perMillimetre);
    zoom_ = std::clamp(qMin(wide, high), smallestZoom, largestZoom);
    const QSizeF sheet = QSizeF(drawing().width, drawing().height) * pixelsPerMillimetre();
    corner_ = {std::round((width() - sheet.width()) / 2), std::round((height() - sheet.height()) / 2)};
    isFitted_ = true;
    sheet_ = {};
    update();
    Q_EMIT zoomed(zoom_);
}

void DrawingCanvas::showRealSize()
{
    setZoom(1, QPointF(width() / 2.0, height() / 2.0));
}

void DrawingCanvas::paintSheet()
{
    sheet_ = QPixmap(size() * devicePixelRatioF());
    sheet_.setDevicePixelRatio(devicePixelRatioF());
    sheet_.fill(palette().color(QPalette::Mid));
    QPainter painter(&sheet_);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const double scale = pixelsPerMillimetre();
    painter.fillRect(QRectF(corner_, QSizeF(drawing().width, drawing().height) * scale), paper_);
    painter.translate(corner_);
    painter.scale(scale, scale);
    painter_.paint(painter);
}

void DrawingCanvas::paintOverlay(QPainter& painter, std::int64_t id, const QColor& color) const
{
    const std::optional<Extent> extent = extentOf(drawing(), id);
    if (id == 0 || !extent)
        return;
    const double scale = pixelsPerMillimetre();
    const QRectF frame(corner_ + QPointF(extent->left, extent->top) * scale,
        corner_ + QPointF(extent->right, extent->bottom) * scale);
    QColor ground = color;
    ground.setAlpha(36);
    painter.setPen(QPen(color, 1.5));
    painter.setBrush(ground);
    painter.drawRect(frame.adjusted(-2, -2, 2, 2));
}

void DrawingCanvas::paintEvent(QPaintEvent*)
{
    if (sheet_.isNull())
        paintSheet();
    QPainter painter(this);
    painter.drawPixmap(0, 0, sheet_);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hovered_ != current_)
        paintOverlay(painter, hovered_, palette().color(QPalette::Dark));
    paintOverlay(painter, current_, palette().color(QPalette::Highlight));
}

void DrawingCanvas::resizeEvent(QResizeEvent*)
{
    if (isFitted_)
        fit();
    else
        moveTo(corner_);
}

void DrawingCanvas::wheelEvent(QWheelEvent* event)
{
    const double notches = event->angleDelta().y() / 120.0;
    if (notches != 0)
        setZoom(zoom_ * std::pow(wheelStep, notches), event->position());
    event->accept();
}

void DrawingCanvas::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->localPos();
    dragged_ = pressed_;
    isDragging_ = false;
    const std::int64_t under = event->button() == Qt::LeftButton && isMovable_ ? idUnder(pressed_) : 0;
    moving_ = under != 0 && isMovable_(under) ? under : 0;
}

void DrawingCanvas::mouseMoveEvent(QMouseEvent* event)
{
    constexpr int dragFrom = 4;
    if (!(event->buttons() & (Qt::LeftButton | Qt::MiddleButton))) {
        hover(idUnder(event->localPos()));
        return;
    }
    if (!isDragging_ && (event->localPos() - pressed_).manhattanLength() < dragFrom)
        return;
    isDragging_ = true;
    if (moving_ != 0) {
        const Spot spot = spotAt(event->localPos());
        setCursor(Qt::SizeVerCursor);
        Q_EMIT moved(moving_, spot.x, spot.y, false);
        return;
    }
    isFitted_ = false;
    setCursor(Qt::ClosedHandCursor);
    moveTo(corner_ + event->localPos() - dragged_);
    dragged_ = event->localPos();
}

void DrawingCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (!isDragging_ && event->button() == Qt::LeftButton)
        Q_EMIT clicked(idUnder(event->localPos()));
    const std::int64_t dropped = isDragging_ ? std::exchange(moving_, 0) : 0;
    isDragging_ = false;
    moving_ = 0;
    unsetCursor();
    if (dropped != 0) {
        const Spot spot = spotAt(event->localPos());
        Q_EMIT moved(dropped, spot.x, spot.y, true);
    }
}

void DrawingCanvas::mouseDoubleClickEvent(QMouseEvent*)
{
    fit();
}

void DrawingCanvas::leaveEvent(QEvent*)
{
    hover(0);
}

void DrawingCanvas::keyPressEvent(QKeyEvent* event)
{
    constexpr double step = 60;
    const QPointF middle(width() / 2.0, height() / 2.0);
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return setZoom(zoom_ * wheelStep, middle);
    case Qt::Key_Minus:
        return setZoom(zoom_ / wheelStep, middle);
    case Qt::Key_0:
        return fit();
    case Qt::Key_1:
        return showRealSize();
    case Qt::Key_Left:
        return moveTo(corner_ + QPointF(step, 0));
    case Qt::Key_Right:
        return moveTo(corner_ - QPointF(step, 0));
    case Qt::Key_Up:
        return moveTo(corner_ + QPointF(0, step));
    case Qt::Key_Down:
        return moveTo(corner_ - QPointF(0, step));
    default:
        QWidget::keyPressEvent(event);
    }
}

std::int64_t DrawingCanvas::idUnder(const QPointF& place) const
{
    return idAt(drawing(), spotAt(place), reachOfMouse / pixelsPerMillimetre());
}

void DrawingCanvas::hover(std::int64_t id)
{
    if (id == hovered_)
        return;
    hovered_ = id;
    update();
    Q_EMIT hovered(id);
}
