#pragma once

#include "common/section_data.h"
#include "common/soil_patterns.h"

#include <QWidget>

// A section through points, as large as its place: the columns at their distances and marks, the layers
// between them, the ground, the water, a scale of marks on the left and a table below. What stands between
// the columns is inferred, and the drawing says so.
class SectionDrawing : public QWidget
{
    Q_OBJECT

public:
    explicit SectionDrawing(IDBHatch* hatches, QWidget* parent = nullptr);

    void setSection(const DrawnSection& section);

    QSize sizeHint() const override { return {640, 420}; }
    QSize minimumSizeHint() const override { return {360, 280}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // From metres to the place on the widget.
    struct Frame {
        QRectF field;
        double left = 0; // m
        double top = 0; // m
        double perMetreAlong = 1;
        double perMetreUp = 1;

        double x(double distance) const { return field.left() + (distance - left) * perMetreAlong; }
        double y(double mark) const { return field.top() + (top - mark) * perMetreUp; }
    };

    void paintAll(QPainter& painter) const;
    Frame frame() const;
    double headWidth() const;
    double stripWidth(const Frame& frame) const;
    void paintBetween(
        QPainter& painter, const Frame& frame, const DrawnPoint& left, const DrawnPoint& right) const;
    void paintLines(QPainter& painter, const Frame& frame) const;
    void paintPoint(QPainter& painter, const Frame& frame, const DrawnPoint& point) const;
    void paintWaters(QPainter& painter, const Frame& frame, const DrawnPoint& point) const;
    void paintMarks(QPainter& painter, const Frame& frame) const;
    void paintTable(QPainter& painter, const Frame& frame) const;
    void paintLegend(QPainter& painter) const;
    void paintNote(QPainter& painter, const Frame& frame) const;
    int legendHeight() const;
    QVector<std::uint32_t> soils() const;

    const SoilPatterns patterns_;
    DrawnSection section_;
};
