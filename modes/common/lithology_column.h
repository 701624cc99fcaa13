#pragma once

#include "common/soil_patterns.h"
#include "db/records/lithology.h"
#include "db/records/water_level.h"

#include <QAbstractScrollArea>
#include <QColor>
#include <QVector>

class IDBProject;

struct DrawnLayer {
    qint64 id = 0; // of its row in the table
    double top = 0;
    double bottom = 0; // m
    QString bottomText; // as typed
    QString thickness;
    QString mark;
    QString index;
    QString description;
    std::uint32_t hatch = 0; // 0: no soil that has one
};

struct DrawnWater {
    double depth = 0; // m
    QString text;
    bool appeared = false;
    bool settled = false;
};

struct DrawnSample {
    double depth = 0; // m
    bool isUndisturbed = false;
};

// What the project holds for a point, its layers from the top. Those without a thickness are left out.
using LayerRows = std::vector<const LithologyRegister::value_type*>;
using WaterRows = std::vector<const WaterRegister::value_type*>;
QVector<DrawnLayer> drawnLayers(const LayerRows& rows, std::wstring_view mouthMark);
QVector<DrawnWater> drawnWaters(const WaterRows& rows);
QVector<DrawnLayer> drawnLayers(IDBProject& project, const std::wstring& point, std::wstring_view mouthMark);
QVector<DrawnWater> drawnWaters(IDBProject& project, const std::wstring& point);
QVector<DrawnSample> drawnSamples(IDBProject& project, const std::wstring& point);

// The ground of a layer: the colour of its soil, or one made from its geological index, the same for the same
// text on every machine and in every project.
QColor groundOfLayer(const DrawnLayer& layer);

// The column of a point, to depth scale, as geologists draw it: marks, depths and thicknesses on the left,
// the strip, the water levels, the descriptions. Where layers are too thin for their texts, the texts move
// apart and lines lead to them. The wheel scrolls, with Ctrl it changes the scale; a click chooses a layer.
class LithologyColumn : public QAbstractScrollArea
{
    Q_OBJECT

public:
    // The library may be missing; then layers have their colours alone.
    explicit LithologyColumn(IDBHatch* hatches, QWidget* parent = nullptr);

    // Layers from top to bottom; those that have no thickness are not drawn.
    void setColumn(const QVector<DrawnLayer>& layers,
        const QVector<DrawnWater>& waters,
        const QVector<DrawnSample>& samples = {});
    void setCurrentLayer(qint64 id);
    // A stretch of the strip that is drawn out; of no height: a depth. None while top is below the bottom.
    void setStretch(double top, double bottom);

    QSize sizeHint() const override { return {380, 400}; }

Q_SIGNALS:
    void layerClicked(qint64 id);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    // The places of the columns, from the left.
    struct Lanes {
        QRectF mark;
        QRectF depth;
        QRectF thickness;
        QRectF leftLeads;
        QRectF strip;
        QRectF samples; // no width where there are none
        QRectF water;
        QRectF rightLeads;
        QRectF description;
    };

    void layOut();
    Lanes lanes() const;
    // From depth to the height in the drawing, the scroll position left out.
    double heightAt(double depth) const { return depth * pixelsPerMetre_; }
    int layerAt(const QPoint& place) const;
    void paintSeen(QPainter& painter, const Lanes& lanes) const;
    void paintHeads(QPainter& painter, const Lanes& lanes) const;
    void paintLayer(QPainter& painter, const Lanes& lanes, int layer) const;
    void paintTexts(QPainter& painter, const Lanes& lanes, int layer) const;
    void paintLeads(QPainter& painter, const Lanes& lanes, int layer) const;
    void paintRuler(QPainter& painter, const QRectF& strip, double from, double to) const;
    // The text stands no higher than that; where it ends.
    double paintWater(QPainter& painter, const Lanes& lanes, const DrawnWater& water, double highest) const;

    void paintSample(QPainter& painter, const Lanes& lanes, const DrawnSample& sample) const;
    void paintChosen(QPainter& painter, const Lanes& lanes) const;
    void paintIndex(QPainter& painter, const QRectF& strip, const QString& index) const;

    const SoilPatterns patterns_;
    QVector<DrawnLayer> layers_;
    QVector<DrawnWater> waters_;
    QVector<DrawnSample> samples_;
    // Where the texts of each layer begin; one more for the end of the last.
    QVector<double> textTops_;
    qint64 current_ = -1;
    double stretchTop_ = 1; // m
    double stretchBottom_ = 0; // m
    double pixelsPerMetre_ = 1;
    double zoom_ = 1;
    int headHeight_ = 0;
    int lineHeight_ = 0;
};
