#include "ige/assignment_view.h"

#include "site/element_texts.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

static constexpr int columnWidth = 54;
static constexpr int columnStep = 68;
static constexpr int scaleWidth = 52;
static constexpr int headHeight = 24;
static constexpr int footRoom = 10;
static constexpr double largestZoom = 30;

AssignmentView::AssignmentView(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    setObjectName(QStringLiteral("assignment"));
    setAccessibleName(QStringLiteral("Слои всех точек"));
    viewport()->setBackgroundRole(QPalette::Base);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(false);
}

void AssignmentView::setPoints(const QVector<AssignedPoint>& points, const QHash<QString, QColor>& colors)
{
    points_ = points;
    colors_ = colors;
    touched_.clear();
    last_.reset();
    if (!isThere(current_))
        current_ = {};
    layOut();
}

void AssignmentView::layOut()
{
    highest_ = 0;
    lowest_ = 0;
    bool isFirst = true;
    for (const AssignedPoint& point : qAsConst(points_)) {
        const double bottom = point.mark - (point.layers.isEmpty() ? 0 : point.layers.last().bottom);
        highest_ = isFirst ? point.mark : qMax(highest_, point.mark);
        lowest_ = isFirst ? bottom : qMin(lowest_, bottom);
        isFirst = false;
    }
    const double room = qMax(viewport()->height() - headHeight - footRoom, 50);
    pixelsPerMetre_ = highest_ > lowest_ ? room / (highest_ - lowest_) * zoom_ : 10;
    const int height = int(std::ceil((highest_ - lowest_) * pixelsPerMetre_)) + headHeight + footRoom;
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(30);
    verticalScrollBar()->setRange(0, qMax(0, height - viewport()->height()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(columnStep);
    horizontalScrollBar()->setRange(
        0, qMax(0, scaleWidth + points_.size() * columnStep + 8 - viewport()->width()));
    viewport()->update();
}

double AssignmentView::yAt(const AssignedPoint& point, double depth) const
{
    return headHeight + (highest_ - point.mark + depth) * pixelsPerMetre_ - verticalScrollBar()->value();
}

QRectF AssignmentView::areaOf(const LayerPlace& place) const
{
    const AssignedPoint& point = points_[place.point];
    const AssignedLayer& layer = point.layers[place.layer];
    const double x = scaleWidth + place.point * columnStep - horizontalScrollBar()->value();
    const double top = yAt(point, layer.top);
    return {x, top, double(columnWidth), yAt(point, layer.bottom) - top};
}

bool AssignmentView::isThere(const LayerPlace& place) const
{
    return place.point >= 0 && place.point < points_.size() && place.layer >= 0
        && place.layer < points_[place.point].layers.size();
}

std::optional<LayerPlace> AssignmentView::layerAt(const QPointF& spot) const
{
    const double x = spot.x() - scaleWidth + horizontalScrollBar()->value();
    const int point = int(std::floor(x / columnStep));
    if (point < 0 || point >= points_.size() || spot.x() < scaleWidth || spot.y() < headHeight)
        return std::nullopt;
    for (int layer = 0; layer < points_[point].layers.size(); ++layer)
        if (const QRectF area = areaOf({point, layer}); spot.y() >= area.top() && spot.y() < area.bottom())
            return LayerPlace{point, layer};
    return std::nullopt;
}

void AssignmentView::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    const int first = qMax(0, (horizontalScrollBar()->value() - scaleWidth) / columnStep);
    const int last =
        qMin(points_.size() - 1, (horizontalScrollBar()->value() + viewport()->width()) / columnStep);
    for (int point = first; point <= last; ++point)
        paintPoint(painter, point);
    paintScale(painter);
    // Heads stay in view over what is scrolled below them.
    painter.fillRect(QRect(0, 0, viewport()->width(), headHeight), palette().window());
    painter.setPen(palette().color(QPalette::WindowText));
    for (int point = first; point <= last; ++point) {
        const QRect head(scaleWidth + point * columnStep - horizontalScrollBar()->value() - 6,
            0,
            columnWidth + 12,
            headHeight);
        painter.drawText(head,
            Qt::AlignCenter,
            fontMetrics().elidedText(points_[point].name, Qt::ElideMiddle, head.width()));
    }
    painter.fillRect(QRect(0, 0, scaleWidth - 6, headHeight), palette().window());
    painter.drawText(QRect(4, 0, scaleWidth - 6, headHeight), Qt::AlignVCenter, QStringLiteral("м"));
    if (points_.isEmpty())
        painter.drawText(viewport()->rect(), Qt::AlignCenter, QStringLiteral("В проекте нет слоёв."));
}

void AssignmentView::paintScale(QPainter& painter) const
{
    painter.fillRect(QRect(0, 0, scaleWidth - 6, viewport()->height()), palette().base());
    if (points_.isEmpty())
        return;
    constexpr double steps[] = {0.2, 0.5, 1, 2, 5, 10, 20, 50, 100, 500};
    const auto step = std::find_if(
        std::begin(steps), std::end(steps), [this](double metres) { return metres * pixelsPerMetre_ >= 26; });
    const double every = step == std::end(steps) ? 1000 : *step;
    painter.setPen(QColor(0x60, 0x60, 0x60));
    const double top = std::floor(highest_ / every) * every;
    for (int i = 0; top - i * every >= lowest_; ++i) {
        const double mark = top - i * every;
        const double y = headHeight + (highest_ - mark) * pixelsPerMetre_ - verticalScrollBar()->value();
        if (y < 0 || y > viewport()->height())
            continue;
        painter.drawText(QRectF(0, y - 8, scaleWidth - 12, 16),
            Qt::AlignRight | Qt::AlignVCenter,
            QString::number(mark, 'f', every < 1 ? 1 : 0));
        painter.drawLine(QPointF(scaleWidth - 10, y), QPointF(scaleWidth - 6, y));
    }
}

void AssignmentView::paintPoint(QPainter& painter, int point) const
{
    for (int layer = 0; layer < points_[point].layers.size(); ++layer)
        paintLayer(painter, {point, layer});
}

void AssignmentView::paintLayer(QPainter& painter, const LayerPlace& place) const
{
    const QRectF area = areaOf(place);
    if (area.bottom() < headHeight || area.top() > viewport()->height())
        return;
    const AssignedLayer& layer = points_[place.point].layers[place.layer];
    const bool isTouched = touched_.contains(place);
    const QString element = isTouched && brush_ ? *brush_ : layer.element;
    const bool isProposed = element.isEmpty() && !isTouched && !layer.proposed.isEmpty();
    const QString shown = isProposed ? layer.proposed : element;
    QColor ground = shown.isEmpty() ? QColor(Qt::white) : colors_.value(shown, QColor(0xe0, 0xe0, 0xe0));
    if (isProposed)
        ground = ground.lighter(112);
    const QColor border(0x55, 0x55, 0x55);
    painter.setBrush(Qt::NoBrush);
    if (shown.isEmpty() || isProposed) {
        painter.fillRect(area, ground);
        if (shown.isEmpty())
            painter.fillRect(area, QBrush(QColor(0xc8, 0xc8, 0xc8), Qt::BDiagPattern));
        painter.setPen(QPen(border, 1, isProposed ? Qt::DashLine : Qt::SolidLine));
        painter.drawRect(area);
    } else {
        // Two fills take a fraction of drawing a border, and hundreds of layers are in view.
        const QRect box(QPoint(qRound(area.left()), qRound(area.top())),
            QPoint(qRound(area.right()), qRound(area.bottom())));
        painter.fillRect(box, border);
        painter.fillRect(box.adjusted(1, 1, -1, -1), ground);
    }
    if (area.height() >= fontMetrics().height() - 2 && !shown.isEmpty()) {
        painter.setPen(Qt::black);
        const auto name = shown.toStdWString();
        const auto text = QString::fromStdWString(std::wstring(shortElementName(name)));
        painter.drawText(area, Qt::AlignCenter, isProposed ? text + QLatin1Char('?') : text);
    }
    if (place == current_) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), hasFocus() ? 3 : 2));
        painter.drawRect(area.adjusted(1, 1, -1, -1));
    }
}

void AssignmentView::resizeEvent(QResizeEvent*)
{
    layOut();
}

void AssignmentView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const double kept = (event->position().y() - headHeight + verticalScrollBar()->value()) / pixelsPerMetre_;
    zoom_ = qBound(1.0, zoom_ * std::pow(1.2, event->angleDelta().y() / 120.0), largestZoom);
    layOut();
    verticalScrollBar()->setValue(int(kept * pixelsPerMetre_ - event->position().y() + headHeight));
    event->accept();
}

void AssignmentView::setCurrent(const LayerPlace& place)
{
    if (place == current_)
        return;
    current_ = place;
    viewport()->update();
    Q_EMIT currentChanged(place);
}

void AssignmentView::showLayer(const LayerPlace& place)
{
    if (!isThere(place))
        return;
    const QRectF area = areaOf(place);
    if (area.left() < scaleWidth || area.right() > viewport()->width())
        horizontalScrollBar()->setValue(
            horizontalScrollBar()->value() + int(area.center().x()) - viewport()->width() / 2);
    if (area.top() < headHeight || area.bottom() > viewport()->height())
        verticalScrollBar()->setValue(
            verticalScrollBar()->value() + int(area.center().y()) - viewport()->height() / 2);
    setCurrent(place);
}

void AssignmentView::touch(const QPointF& spot)
{
    const QPointF from = last_.value_or(spot);
    const int steps = qMax(1, int(std::hypot(spot.x() - from.x(), spot.y() - from.y()) / 4));
    for (int step = 0; step <= steps; ++step) {
        const auto place = layerAt(from + (spot - from) * (double(step) / steps));
        if (place && points_[place->point].canBeLinked && !touched_.contains(*place))
            touched_.append(*place);
    }
    last_ = spot;
    viewport()->update();
}

void AssignmentView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (const auto place = layerAt(event->localPos()))
        setCurrent(*place);
    if (brush_)
        touch(event->localPos());
}

void AssignmentView::mouseMoveEvent(QMouseEvent* event)
{
    if (last_)
        touch(event->localPos());
}

void AssignmentView::mouseReleaseEvent(QMouseEvent*)
{
    last_.reset();
    const QVector<LayerPlace> touched = std::exchange(touched_, {});
    if (!touched.isEmpty() && brush_)
        Q_EMIT assigned(touched, *brush_);
    viewport()->update();
}

void AssignmentView::keyPressEvent(QKeyEvent* event)
{
    LayerPlace next = current_;
    switch (event->key()) {
    case Qt::Key_Up:
        --next.layer;
        break;
    case Qt::Key_Down:
        ++next.layer;
        break;
    case Qt::Key_Left:
        --next.point;
        break;
    case Qt::Key_Right:
        ++next.point;
        break;
    case Qt::Key_Space:
        if (isThere(current_) && brush_)
            Q_EMIT assigned({current_}, *brush_);
        return;
    case Qt::Key_Delete:
        if (isThere(current_))
            Q_EMIT assigned({current_}, QString());
        return;
    default:
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    if (next.point >= 0 && next.point < points_.size())
        next.layer = qMin(next.layer, points_[next.point].layers.size() - 1);
    showLayer(next);
}

bool AssignmentView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    auto* help = static_cast<QHelpEvent*>(event);
    if (const auto place = layerAt(help->pos()))
        QToolTip::showText(help->globalPos(), points_[place->point].layers[place->layer].tip, viewport());
    else
        QToolTip::hideText();
    return true;
}
