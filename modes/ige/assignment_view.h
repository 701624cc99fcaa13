#pragma once

#include <QAbstractScrollArea>
#include <QColor>
#include <QHash>
#include <QVector>

#include <optional>

// The layers of all points side by side at their marks, in the colours of their elements. A click or a drag
// over layers gives them the chosen element; arrows, Space and Delete do the same from the keyboard.
struct AssignedLayer {
    int number = 0; // from above, from 1
    double top = 0; // m of depth
    double bottom = 0;
    QString element;
    QString proposed = {}; // shown pale, before it is taken
    QString tip = {};
};
struct AssignedPoint {
    QString name;
    double mark = 0; // of the mouth, m; points without one hang from the highest
    bool canBeLinked = true;
    QVector<AssignedLayer> layers;
};
struct LayerPlace {
    int point = 0; // index
    int layer = 0;

    bool operator==(const LayerPlace&) const = default;
};

class AssignmentView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit AssignmentView(QWidget* parent = nullptr);

    // The current layer keeps its place.
    void setPoints(const QVector<AssignedPoint>& points, const QHash<QString, QColor>& colors);
    const QVector<AssignedPoint>& points() const { return points_; }
    // What a click gives; nothing: a click only chooses.
    void setBrush(const std::optional<QString>& element) { brush_ = element; }
    void showLayer(const LayerPlace& place);
    LayerPlace currentLayer() const { return current_; }

    QSize sizeHint() const override { return {700, 420}; }

Q_SIGNALS:
    // An empty element takes theirs away.
    void assigned(const QVector<LayerPlace>& layers, const QString& element);
    void currentChanged(const LayerPlace& place);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void layOut();
    double yAt(const AssignedPoint& point, double depth) const;
    QRectF areaOf(const LayerPlace& place) const;
    std::optional<LayerPlace> layerAt(const QPointF& spot) const;
    // All layers that a drag from one spot to the next runs over.
    void touch(const QPointF& spot);
    void setCurrent(const LayerPlace& place);
    bool isThere(const LayerPlace& place) const;
    void paintPoint(QPainter& painter, int point) const;
    void paintLayer(QPainter& painter, const LayerPlace& place) const;
    void paintScale(QPainter& painter) const;

    QVector<AssignedPoint> points_;
    QHash<QString, QColor> colors_;
    std::optional<QString> brush_;
    QVector<LayerPlace> touched_;
    std::optional<QPointF> last_;
    LayerPlace current_;
    double highest_ = 0; // mark at the top, m
    double lowest_ = 0;
    double pixelsPerMetre_ = 10;
    double zoom_ = 1;
};
