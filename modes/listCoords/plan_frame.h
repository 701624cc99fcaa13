#pragma once

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
    // Shows the whole rectangle of ground with a margin of so many pixels.
    void fit(const QRectF& ground, double margin)
    {
        // A lone point gets its surroundings; there is no scale that suits it.
        constexpr double least = 20;
        const double width = qMax(ground.width(), least);
        const double height = qMax(ground.height(), least);
        center = ground.center();
        scale = qBound(leastScale,
            qMin(qMax(sheet.width() - 2 * margin, 1.0) / width,
                qMax(sheet.height() - 2 * margin, 1.0) / height),
            greatestScale);
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
