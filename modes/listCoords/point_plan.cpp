#include "listCoords/point_plan.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

// Room for labels, above for the scale bar too.
static const QMarginsF sheetMargins(64, 64, 64, 40);
static constexpr double reach = 12; // px around a point in which a click is meant for it

PointPlan::PointPlan(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("pointPlan"));
    setAccessibleName(QStringLiteral("План точек"));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    frame_.sheet = size();
}

void PointPlan::setPoints(const QVector<PlanPoint>& points)
{
    if (points_.isEmpty())
        showsAll_ = true;
    points_ = points;
    if (showsAll_)
        fitAll();
    update();
}

void PointPlan::setCurrent(qint64 id)
{
    if (id == current_)
        return;
    current_ = id;
    const auto point =
        std::find_if(points_.begin(), points_.end(), [&](const PlanPoint& each) { return each.id == id; });
    // The sheet follows only where the point would be out of sight.
    if (point != points_.end() && !QRectF(rect()).contains(screenPlace(*point))) {
        frame_.center = ground(*point);
        showsAll_ = false;
    }
    update();
}

void PointPlan::setXUp(bool up)
{
    xUp_ = up;
    fitAll();
}

void PointPlan::fitAll()
{
    showsAll_ = true;
    if (!points_.isEmpty()) {
        QPointF low = ground(points_.first());
        QPointF high = low;
        for (const PlanPoint& point : qAsConst(points_)) {
            const QPointF place = ground(point);
            low = {qMin(low.x(), place.x()), qMin(low.y(), place.y())};
            high = {qMax(high.x(), place.x()), qMax(high.y(), place.y())};
        }
        frame_.fit({low, high}, sheetMargins);
    }
    update();
}

const PlanPoint* PointPlan::pointAt(const QPointF& screen) const
{
    const PlanPoint* nearest = nullptr;
    double least = reach * reach;
    for (const PlanPoint& point : points_) {
        const QPointF away = screenPlace(point) - screen;
        if (const double distance = QPointF::dotProduct(away, away); distance < least) {
            least = distance;
            nearest = &point;
        }
    }
    return nearest;
}

bool PointPlan::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const PlanPoint* point = pointAt(help->pos());
        QToolTip::showText(help->globalPos(), point ? point->tip : QString(), this);
        return true;
    }
    return QWidget::event(event);
}

void PointPlan::resizeEvent(QResizeEvent*)
{
    frame_.sheet = size();
    if (showsAll_)
        fitAll();
}

void PointPlan::wheelEvent(QWheelEvent* event)
{
    showsAll_ = false;
    frame_.zoom(std::pow(1.2, event->angleDelta().y() / 120.0), event->position());
    event->accept();
    update();
}

void PointPlan::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->localPos();
    dragged_ = pressed_;
    drags_ = false;
}

void PointPlan::mouseMoveEvent(QMouseEvent* event)
{
    if (!(event->buttons() & (Qt::LeftButton | Qt::MiddleButton)))
        return;
    constexpr double tremble = 4;
    drags_ = drags_ || (event->localPos() - pressed_).manhattanLength() > tremble;
    if (!drags_)
        return;
    setCursor(Qt::ClosedHandCursor);
    showsAll_ = false;
    frame_.moveBy(event->localPos() - dragged_);
    dragged_ = event->localPos();
    update();
}

void PointPlan::mouseReleaseEvent(QMouseEvent* event)
{
    setCursor(Qt::CrossCursor);
    if (drags_ || event->button() != Qt::LeftButton)
        return;
    if (const PlanPoint* point = pointAt(event->localPos()))
        Q_EMIT pointChosen(point->id);
}

void PointPlan::mouseDoubleClickEvent(QMouseEvent*)
{
    fitAll();
}

void PointPlan::keyPressEvent(QKeyEvent* event)
{
    constexpr double step = 60;
    const QPointF middle = rect().center();
    // The key F under the Russian layout too.
    if (event->key() == Qt::Key_F || event->text().toLower() == QStringLiteral("а")) {
        fitAll();
        return;
    }
    const bool shownAll = std::exchange(showsAll_, false);
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        frame_.zoom(1.2, middle);
        break;
    case Qt::Key_Minus:
        frame_.zoom(1 / 1.2, middle);
        break;
    case Qt::Key_Left:
        frame_.moveBy({step, 0});
        break;
    case Qt::Key_Right:
        frame_.moveBy({-step, 0});
        break;
    case Qt::Key_Up:
        frame_.moveBy({0, step});
        break;
    case Qt::Key_Down:
        frame_.moveBy({0, -step});
        break;
    default:
        showsAll_ = shownAll;
        QWidget::keyPressEvent(event);
        return;
    }
    update();
}
