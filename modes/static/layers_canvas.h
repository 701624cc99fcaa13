#pragma once

#include "site/sounding_layers.h"

#include <QWidget>

#include <vector>

// The cone's resistance over depth with the layers as bands; a boundary is dragged with the mouse.
class LayersCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit LayersCanvas(QWidget* parent = nullptr);

    void setReadings(const std::vector<SoundingReading>& readings);
    void setLayers(const std::vector<JournalLayer>& layers);
    // -1: none.
    void setCurrent(int layer);
    // Where a depth lies, pixels from the top.
    double yOf(double depth) const;

    QSize sizeHint() const override { return {320, 480}; }

Q_SIGNALS:
    // While it is dragged, and at the end of it; the boundary below the layer of that number.
    void dragged(int layer, double depth);
    void dropped();
    void chosen(int layer);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    double depthOf(double y) const;
    double scaleX() const;
    int boundaryAt(double y) const;
    void drawScale(QPainter& painter) const;

    std::vector<SoundingReading> readings_;
    std::vector<JournalLayer> layers_;
    double depth_ = 1.0;
    double greatest_ = 1.0;
    int current_ = -1;
    int grabbed_ = -1;
};
