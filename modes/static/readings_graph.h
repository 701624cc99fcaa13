#pragma once

#include <QColor>
#include <QPixmap>
#include <QVector>
#include <QWidget>

#include <optional>

class QPainter;

// The readings of a journal against the depth, as they are typed: a slip of the finger stands out as a peak.
// The current row is shown; a click makes the nearest one current.
class ReadingsGraph : public QWidget
{
    Q_OBJECT

public:
    struct Reading {
        qint64 row = 0;
        double depth = 0; // m
        std::optional<double> tip; // MPa
        std::optional<double> side; // in the unit that the title tells
        bool isDoubtful = false;
    };
    struct Look {
        QString sideTitle;
        QColor tipColor;
        QColor sideColor;
    };

    explicit ReadingsGraph(QWidget* parent = nullptr);

    // From above.
    void setReadings(const QVector<Reading>& readings, const Look& look);
    void setCurrentRow(qint64 row);

Q_SIGNALS:
    void chosen(qint64 row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    using Value = std::optional<double> Reading::*;
    struct Lane {
        QRectF area;
        Value value;
        QString title;
        QColor color;
        double most; // at its right edge
        double step; // between two numbers
    };

    QVector<Lane> lanes() const;
    Lane lane(const QRectF& area, Value value, const QString& title, const QColor& color) const;
    double depthStep() const;
    double heightAt(double depth) const;
    void drawDepths(QPainter& painter) const;
    void drawLane(QPainter& painter, const Lane& lane) const;
    void drawPicture(const QVector<Lane>& all);
    void drawCurrent(QPainter& painter, const QVector<Lane>& all) const;
    QPointF placeOf(const Lane& lane, const Reading& reading) const;
    static double acrossAt(const Lane& lane, double value);

    QVector<Reading> readings_;
    Look look_;
    qint64 current_ = 0;
    QPixmap picture_;
};
