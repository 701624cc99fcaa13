#include "listCoords/plan_pane.h"

#include "common/picture_actions.h"
#include "common/view_settings.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSettings>
#include <QToolButton>
#include <QVBoxLayout>

static const QString axesKey = QStringLiteral("listCoords/xUp");
// The symbols of the plan in their colours.
static const QString legend = QStringLiteral(
    "<span style='color:#1f6fb2'>●</span> скважина  <span style='color:#8a5a1c'>■</span> шурф  "
    "<span style='color:#2f8f5b'>▼</span> зондирование");

PlanPane::PlanPane(QWidget* parent)
    : QWidget(parent)
    , plan_(new PointPlan)
    , counts_(new QLabel)
    , axes_(new QToolButton)
{
    auto* fit = new QToolButton;
    fit->setText(QStringLiteral("Показать все"));
    fit->setToolTip(QStringLiteral("Показать все точки (F или двойной щелчок по плану)."));
    axes_->setCheckable(true);
    axes_->setObjectName(QStringLiteral("planAxes"));
    counts_->setObjectName(QStringLiteral("planCounts"));

    auto* head = new QHBoxLayout;
    head->addWidget(new QLabel(QStringLiteral("План точек")));
    head->addStretch();
    head->addWidget(axes_);
    head->addWidget(fit);
    auto* frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    auto* inside = new QVBoxLayout(frame);
    inside->setContentsMargins(1, 1, 1, 1);
    inside->addWidget(plan_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(head);
    layout->addWidget(frame, 1);
    auto* foot = new QHBoxLayout;
    // A narrow plan loses the legend before anything else.
    auto* kinds = new QLabel(legend);
    kinds->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    kinds->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    foot->addWidget(counts_);
    foot->addWidget(kinds, 1);
    layout->addLayout(foot);

    connect(fit, &QToolButton::clicked, plan_, &PointPlan::fitAll);
    auto* all = new QAction(QStringLiteral("Показать все точки"), plan_);
    connect(all, &QAction::triggered, plan_, &PointPlan::fitAll);
    plan_->addAction(all);
    addPictureActions(
        plan_, QStringLiteral("План точек.png"), [this](QPainter& painter) { plan_->render(&painter); });
    connect(axes_, &QToolButton::clicked, this, [this](bool xRight) {
        showAxes(!xRight);
        viewSettings()->setValue(axesKey, !xRight);
    });
    showAxes(viewSettings()->value(axesKey, true).toBool());
}

void PlanPane::showAxes(bool xUp)
{
    axes_->setChecked(!xUp);
    axes_->setText(xUp ? QStringLiteral("X вверх") : QStringLiteral("X вправо"));
    axes_->setToolTip(xUp
            ? QStringLiteral("X идёт на север, вверх. Щёлкните, если в проекте X идёт на восток.")
            : QStringLiteral("X идёт на восток, вправо. Щёлкните, если в проекте X идёт на север."));
    plan_->setXUp(xUp);
}

void PlanPane::setPoints(const QVector<PlanPoint>& points, int withoutPlace)
{
    plan_->setPoints(points);
    counts_->setText(withoutPlace == 0 ? QStringLiteral("Точек: %1").arg(points.size())
                                       : QStringLiteral("Точек: %1. Без координат: %2")
                                             .arg(points.size() + withoutPlace)
                                             .arg(withoutPlace));
}
