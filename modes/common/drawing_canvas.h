#pragma once

#include "paint/drawing_painter.h"

#include <QPixmap>
#include <QPointF>
#include <QWidget>

#include <functional>

// The sheet of a drawing on the screen: the wheel zooms to the cursor, the mouse drags the sheet, a click
// chooses what has an id. Keys: plus and minus, 0 the whole sheet, 1 its real size, arrows.
class DrawingCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit DrawingCanvas(QWidget* parent = nullptr);

    // The zoom stays while the sheet has the same size.
    void setDrawing(Drawing drawing, const Hatches& hatches);
    const Drawing& drawing() const { return painter_.drawing(); }
    // Drawn out: what has that id; 0: nothing.
    void setCurrent(std::int64_t id);
    // What the mouse moves in place of the sheet; nothing by itself.
    void setMovable(std::function<bool(std::int64_t)> isMovable) { isMovable_ = std::move(isMovable); }
    // What the mouse is over; 0: nothing that has an id.
    std::int64_t hoveredId() const { return hovered_; }
    // In the colour around the sheet, and of the sheet itself.
    void setPaper(const QColor& paper);

    // Share of the real size.
    double zoom() const { return zoom_; }
    void setZoom(double zoom, const QPointF& kept);
    void fit();
    void showRealSize();

    QSize sizeHint() const override { return {640, 480}; }
    // From widget to paper.
    Spot spotAt(const QPointF& place) const;

Q_SIGNALS:
    void zoomed(double zoom);
    // 0: nothing has an id there.
    void hovered(qint64 id);
    void clicked(qint64 id);
    // A movable thing is on its way to this place of the sheet, mm; at last it is dropped there.
    void moved(qint64 id, double x, double y, bool isDropped);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double pixelsPerMillimetre() const;
    void moveTo(const QPointF& corner);
    void paintSheet();
    void paintOverlay(QPainter& painter, std::int64_t id, const QColor& color) const;
    std::int64_t idUnder(const QPointF& place) const;
    void hover(std::int64_t id);

    DrawingPainter painter_;
    QPixmap sheet_; // as it was painted last; null: paint anew
    QColor paper_ = Qt::white;
    QPointF corner_; // of the sheet on the widget
    double zoom_ = 1;
    bool isFitted_ = true; // and stays so when the widget grows
    std::int64_t current_ = 0;
    std::int64_t hovered_ = 0;
    QPointF pressed_;
    QPointF dragged_;
    bool isDragging_ = false;
    std::function<bool(std::int64_t)> isMovable_;
    std::int64_t moving_ = 0;
};
