#pragma once

#include "listCoords/point_plan.h"

class QLabel;
class QToolButton;

// The plan with its two buttons above and, below, how many points it shows and how many it cannot.
class PlanPane : public QWidget
{
    Q_OBJECT

public:
    explicit PlanPane(QWidget* parent = nullptr);

    void setPoints(const QVector<PlanPoint>& points, int withoutPlace);
    PointPlan& plan() { return *plan_; }

private:
    void showAxes(bool xUp);

    PointPlan* plan_;
    QLabel* counts_;
    QToolButton* axes_;
};
