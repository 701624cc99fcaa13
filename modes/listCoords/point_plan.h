#pragma once

#include "listCoords/plan_frame.h"

#include <QVector>
#include <QWidget>

struct PlanPoint {
    qint64 id = 0;
    int kind = 0; // 1 borehole, 2 pit, 3 sounding
    double x = 0; // m
    double y = 0;
    QString name;
    QString tip;
};

// A plan of points to scale. The wheel zooms at the cursor, a drag moves the sheet, a click chooses a point;
// a double click or F shows all points, plus, minus and the arrows do what the mouse does.
class PointPlan : public QWidget
{
    Q_OBJECT

public:
    explicit PointPlan(QWidget* parent = nullptr);

    // The first points after none are shown all; later ones leave the sheet where it is.
    void setPoints(const QVector<PlanPoint>& points);
    void setCurrent(qint64 id);
    // On a surveyor's sheet X runs north, up; data from mapping systems often have it run east.
    void setXUp(bool up);
    bool isXUp() const { return xUp_; }
    void fitAll();

    const PlanFrame& frame() const { return frame_; }
    QPointF screenPlace(const PlanPoint& point) const { return frame_.toScreen(ground(point)); }

    QSize sizeHint() const override { return {420, 420}; }
    QSize minimumSizeHint() const override { return {160, 160}; }

Q_SIGNALS:
    void pointChosen(qint64 id);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPointF ground(const PlanPoint& point) const
    {
        return xUp_ ? QPointF(point.y, point.x) : QPointF(point.x, point.y);
    }
    const PlanPoint* pointAt(const QPointF& screen) const;

    QVector<const PlanPoint*> pointsInView() const;
    void drawGrid(QPainter& painter) const;
    void drawDots(QPainter& painter, const QVector<const PlanPoint*>& points) const;
    void drawSymbols(QPainter& painter, const QVector<const PlanPoint*>& points) const;
    void drawLabels(QPainter& painter, const QVector<const PlanPoint*>& points) const;
    const PlanPoint* currentPoint() const; // null where it is not on the plan
    QFont currentFont() const;
    QRectF currentLabel(const PlanPoint& point, const QVector<const PlanPoint*>& points) const;
    void drawCurrent(QPainter& painter, const QVector<const PlanPoint*>& points) const;
    void drawScaleBar(QPainter& painter) const;
    void drawAxes(QPainter& painter) const;

    QVector<PlanPoint> points_;
    qint64 current_ = 0;
    bool xUp_ = true;
    bool showsAll_ = true; // until the user moves the sheet
    PlanFrame frame_;
    QPointF pressed_;
    QPointF dragged_;
    bool drags_ = false;
};
