#pragma once

#include <QMarginsF>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <cmath>

// Which part of the ground a plan shows, and how large. Ground is in metres, across the sheet to the right
// and up the sheet; the screen is in pixels from its upper left corner.
struct PlanFrame {
    static constexpr double leastScale = 1e-5;
    static constexpr double greatestScale = 1e4;

    QPointF center; // of the sheet, on the ground
    double scale = 1; // pixels to a metre, the same both ways
    QSizeF sheet;

    QPointF toScreen(const QPointF& ground) const
    {
        return {sheet.width() / 2 + (ground.x() - center.x()) * scale,
            sheet.height() / 2 - (ground.y() - center.y()) * scale};
    }
    QPointF toGround(const QPointF& screen) const
    {
        return {center.x() + (screen.x() - sheet.width() / 2) / scale,
            center.y() - (screen.y() - sheet.height() / 2) / scale};
    }
    void moveBy(const QPointF& pixels) { center += QPointF(-pixels.x() / scale, pixels.y() / scale); }
    // What lies under this place of the screen stays there.
    void zoom(double factor, const QPointF& at)
    {
        const QPointF ground = toGround(at);
        scale = qBound(leastScale, scale * factor, greatestScale);
        center += ground - toGround(at);
    }
    // Shows the whole rectangle of ground in the sheet without these margins, in pixels.
    void fit(const QRectF& ground, const QMarginsF& margins)
    {
        // A lone point gets its surroundings; there is no scale that suits it.
        constexpr double least = 20;
        const QRectF free = QRectF(QPointF(), sheet).marginsRemoved(margins);
        scale = qMin(qMax(free.width(), 1.0) / qMax(ground.width(), least),
            qMax(free.height(), 1.0) / qMax(ground.height(), least));
        scale = qBound(leastScale, scale, greatestScale);
        center = ground.center();
        moveBy(free.center() - QRectF(QPointF(), sheet).center());
    }
};

// The round length (1, 2 or 5 with noughts) that is the first to reach this one.
inline double roundLength(double least)
{
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= least * (1 - 1e-9))
            return step * power;
    return 10 * power;
}
