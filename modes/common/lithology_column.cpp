#include "common/lithology_column.h"

#include "common/number_sort_proxy.h"
#include "common/picture_actions.h"
#include "common/ruler_step.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "modules/idbproject.h"
#include "site/by_point.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QTextLayout>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

static constexpr double padding = 4;
static constexpr double leadsWidth = 14;
static constexpr double stripWidth = 60;
static constexpr double samplesWidth = 14;
static constexpr double sampleSize = 7;
static constexpr double triangleSize = 8;
static constexpr double waterLine = 14; // on the edge of the strip, clear of the index in it
static constexpr double largestZoom = 60;

static const QColor lineColor(0x9a, 0x9a, 0x9a);
static const QColor stripColor(0x50, 0x50, 0x50);
static const QColor waterColor(0x1b, 0x5e, 0xc4);

static QColor fillOfIndex(const QString& index)
{
    // Qt's own hashes change from run to run. The last steps part indexes that differ in one letter.
    quint32 hash = 2166136261U;
    for (const QChar& letter : index)
        hash = (hash ^ letter.unicode()) * 16777619U;
    hash = (hash ^ (hash >> 16)) * 0x85ebca6bU;
    hash = (hash ^ (hash >> 13)) * 0xc2b2ae35U;
    hash ^= hash >> 16;
    const int hue = int(hash % 24U) * 15;
    const int saturation = 90 + int(hash / 24U % 3U) * 40;
    const int lightness = 200 + int(hash / 72U % 3U) * 12;
    return QColor::fromHsl(hue, saturation, lightness);
}

QColor groundOfLayer(const DrawnLayer& layer)
{
    return layer.hatch != 0 || layer.index.trimmed().isEmpty() ? tintOfHatch(layer.hatch)
                                                               : fillOfIndex(layer.index);
}

static QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

QVector<DrawnLayer> drawnLayers(const LayerRows& rows, std::wstring_view mouthMark)
{
    QVector<DrawnLayer> drawn;
    double top = 0;
    for (const LayerView& view : layersOf(rows, mouthMark)) {
        const auto& [key, value] = *view.layer;
        double bottom = 0;
        if (!readNumber(fromWide(key.depth), bottom) || bottom <= top)
            continue;
        const QString description = fromWide(value.description);
        drawn.append({drawn.size(),
            top,
            bottom,
            fromWide(key.depth),
            fromWide(view.thickness),
            fromWide(view.bottomMark),
            fromWide(value.geoIndex),
            description,
            hatchOfDescription(description)});
        top = bottom;
    }
    return drawn;
}

QVector<DrawnWater> drawnWaters(const WaterRows& rows)
{
    QVector<DrawnWater> waters;
    for (const auto* row : rows) {
        const QString text = fromWide(row->first.depth);
        if (double depth = 0; readNumber(text, depth))
            waters.append({depth, text, row->second.flagA != 0, row->second.flagB != 0});
    }
    return waters;
}

QVector<DrawnLayer> drawnLayers(IDBProject& project, const std::wstring& point, std::wstring_view mouthMark)
{
    return drawnLayers(rowsOfPoint(project.getLithology(), point), mouthMark);
}

QVector<DrawnWater> drawnWaters(IDBProject& project, const std::wstring& point)
{
    return drawnWaters(rowsOfPoint(project.getWaterLevels(), point));
}

QVector<DrawnSample> drawnSamples(IDBProject& project, const std::wstring& point)
{
    QVector<DrawnSample> samples;
    const auto undisturbed = sampleKindIds.at(L"Монолит (М)");
    for (const auto* row : rowsOfPoint(project.getSamples(), point))
        if (double depth = 0; readNumber(fromWide(row->first.depth), depth))
            samples.append({depth, row->second.sampleKind == undisturbed});
    return samples;
}

// Wraps a text into a rectangle; what does not fit ends in an ellipsis.
static void drawWrapped(QPainter& painter, const QRectF& place, const QString& text)
{
    const QFontMetricsF metrics(painter.font());
    QString paragraphs = text;
    paragraphs.replace(QLatin1Char('\n'), QChar::LineSeparator);
    QTextLayout layout(paragraphs, painter.font());
    layout.beginLayout();
    double y = 0;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(place.width());
        const bool isLast = y + 2 * metrics.lineSpacing() > place.height();
        const bool hasMore = line.textStart() + line.textLength() < paragraphs.size();
        if (isLast && hasMore) {
            QString rest = text.mid(line.textStart());
            rest.replace(QLatin1Char('\n'), QLatin1Char(' '));
            painter.drawText(QPointF(place.left(), place.top() + y + metrics.ascent()),
                metrics.elidedText(rest, Qt::ElideRight, place.width()));
            break;
        }
        line.draw(&painter, QPointF(place.left(), place.top() + y));
        y += metrics.lineSpacing();
    }
    layout.endLayout();
}

LithologyColumn::LithologyColumn(IDBHatch* hatches, QWidget* parent)
    : QAbstractScrollArea(parent)
    , patterns_(hatches)
{
    setObjectName(QStringLiteral("column"));
    setAccessibleName(QStringLiteral("Колонка точки"));

    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Base);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.88);
    setFont(small);
    setMinimumWidth(320);
    setFocusPolicy(Qt::NoFocus);
    addPictureActions(
        this, QStringLiteral("Колонка.png"), [this](QPainter& painter) { viewport()->render(&painter); });
}

void LithologyColumn::setColumn(
    const QVector<DrawnLayer>& layers, const QVector<DrawnWater>& waters, const QVector<DrawnSample>& samples)
{
    layers_ = layers;
    waters_ = waters;
    samples_ = samples;
    layOut();
}

void LithologyColumn::setStretch(double top, double bottom)
{
    stretchTop_ = top;
    stretchBottom_ = bottom;
    viewport()->update();
}

void LithologyColumn::setCurrentLayer(qint64 id)
{
    if (id == current_)
        return;
    current_ = id;
    viewport()->update();
}

void LithologyColumn::layOut()
{
    lineHeight_ = fontMetrics().lineSpacing();
    headHeight_ = 2 * lineHeight_ + 8;
    double deepest = layers_.isEmpty() ? 0 : layers_.last().bottom;
    for (const DrawnWater& water : qAsConst(waters_))
        deepest = qMax(deepest, water.depth);
    for (const DrawnSample& sample : qAsConst(samples_))
        deepest = qMax(deepest, sample.depth);
    const double room = qMax(viewport()->height() - headHeight_ - 12, 100);
    pixelsPerMetre_ = deepest > 0 ? room / deepest * zoom_ : 1;

    textTops_ = {0};
    for (const DrawnLayer& layer : qAsConst(layers_))
        textTops_.append(qMax(heightAt(layer.bottom), textTops_.last() + lineHeight_ + 2));
    const double height = qMax(heightAt(deepest), textTops_.last()) + 8;
    verticalScrollBar()->setPageStep(viewport()->height() - headHeight_);
    verticalScrollBar()->setSingleStep(lineHeight_);
    verticalScrollBar()->setRange(0, qMax(0, int(std::ceil(height)) - verticalScrollBar()->pageStep()));
    viewport()->update();
}

LithologyColumn::Lanes LithologyColumn::lanes() const
{
    const double number = fontMetrics().horizontalAdvance(QStringLiteral("-000.00")) + 2 * padding;
    const double water =
        fontMetrics().horizontalAdvance(QStringLiteral("000.00")) + triangleSize + 3 * padding;
    double left = 0;
    const auto next = [&](double width) {
        const QRectF lane(left, 0, width, 0);
        left += width;
        return lane;
    };
    Lanes lanes;
    lanes.mark = next(number);
    lanes.depth = next(number);
    lanes.thickness = next(number);
    lanes.leftLeads = next(leadsWidth);
    lanes.strip = next(stripWidth);
    lanes.samples = next(samples_.isEmpty() ? 0 : samplesWidth);
    lanes.water = next(water);
    lanes.rightLeads = next(leadsWidth);
    lanes.description = next(qMax(60.0, viewport()->width() - left));
    return lanes;
}

static QRectF placed(const QRectF& lane, double top, double bottom)
{
    return {lane.left(), top, lane.width(), bottom - top};
}

void LithologyColumn::paintHeads(QPainter& painter, const Lanes& lanes) const
{
    const std::pair<QRectF, QString> heads[] = {
        {lanes.mark, QStringLiteral("Отм.,\nм")},
        {lanes.depth, QStringLiteral("Глуб.,\nм")},
        {lanes.thickness, QStringLiteral("Мощн.,\nм")},
        {lanes.strip, QStringLiteral("Индекс")},
        {lanes.water, QStringLiteral("Вода")},
        {lanes.description, QStringLiteral("Описание")},
    };
    painter.fillRect(QRect(0, 0, viewport()->width(), headHeight_), palette().color(QPalette::Window));
    painter.setPen(palette().color(QPalette::WindowText));
    for (const auto& [lane, text] : heads)
        painter.drawText(placed(lane, 0, headHeight_), Qt::AlignCenter, text);
    painter.setPen(lineColor);
    painter.drawLine(0, headHeight_ - 1, viewport()->width(), headHeight_ - 1);
}

void LithologyColumn::paintLayer(QPainter& painter, const Lanes& lanes, int layer) const
{
    const DrawnLayer& drawn = layers_[layer];
    const QRectF strip = placed(lanes.strip, heightAt(drawn.top), heightAt(drawn.bottom));
    painter.fillRect(strip, groundOfLayer(drawn));
    QPainterPath area;
    area.addRect(strip);
    patterns_.fill(painter, area, drawn.hatch, strip.topLeft());
    painter.setPen(QPen(stripColor, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(strip);
    if (!drawn.index.trimmed().isEmpty() && strip.height() >= lineHeight_ - 3)
        paintIndex(painter, strip, drawn.index);
}

// On a plate, since a letter among the strokes of a pattern is hard to read.
void LithologyColumn::paintIndex(QPainter& painter, const QRectF& strip, const QString& index) const
{
    const QFontMetrics metrics = painter.fontMetrics();
    // The marks that lower and raise, "aQ_III", are for paper.
    QString plain = index;
    plain.remove(QLatin1Char('_')).remove(QLatin1Char('^'));
    const QString text = metrics.elidedText(plain, Qt::ElideRight, int(strip.width()) - 8);
    QRectF plate(0, 0, metrics.horizontalAdvance(text) + 6, qMin(strip.height() - 2, double(lineHeight_)));
    plate.moveCenter(strip.center());
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 216));
    painter.drawRoundedRect(plate, 3, 3);
    painter.setPen(Qt::black);
    painter.drawText(plate, Qt::AlignCenter, text);
}

void LithologyColumn::paintTexts(QPainter& painter, const Lanes& lanes, int layer) const
{
    const DrawnLayer& drawn = layers_[layer];
    const double top = textTops_[layer];
    const double bottom = textTops_[layer + 1];
    if (drawn.id == current_) {
        QColor soft = palette().color(QPalette::Highlight);
        soft.setAlpha(40);
        painter.fillRect(QRectF(0, top, lanes.leftLeads.left(), bottom - top), soft);
        painter.fillRect(placed(lanes.description, top, bottom), soft);
    }
    painter.setPen(palette().color(QPalette::Text));
    const auto atBottom = [&](const QRectF& lane, const QString& text) {
        painter.drawText(placed(lane, bottom - lineHeight_ - 1, bottom - 1).adjusted(0, 0, -padding, 0),
            Qt::AlignRight | Qt::AlignVCenter,
            text);
    };
    atBottom(lanes.mark, drawn.mark);
    atBottom(lanes.depth, drawn.bottomText);
    painter.drawText(placed(lanes.thickness, top, bottom), Qt::AlignCenter, drawn.thickness);
    drawWrapped(
        painter, placed(lanes.description, top, bottom).adjusted(padding, 1, -padding, 0), drawn.description);
}

void LithologyColumn::paintLeads(QPainter& painter, const Lanes& lanes, int layer) const
{
    const double text = textTops_[layer + 1];
    const double boundary = heightAt(layers_[layer].bottom);
    painter.setPen(QPen(lineColor, 1));
    painter.drawPolyline(
        QPolygonF({{0, text}, {lanes.leftLeads.left(), text}, {lanes.leftLeads.right(), boundary}}));
    painter.drawPolyline(QPolygonF({{lanes.strip.right(), boundary},
        {lanes.rightLeads.left(), boundary},
        {lanes.rightLeads.right(), text},
        {lanes.description.right(), text}}));
}

// Metres on the edge of the strip, as many as can be told apart.
void LithologyColumn::paintRuler(QPainter& painter, const QRectF& strip, double from, double to) const
{
    const double step = rulerStep(pixelsPerMetre_, 8);
    painter.setPen(QPen(stripColor, 1));
    const auto first = static_cast<long long>(std::floor(from / step));
    const auto last = static_cast<long long>(std::floor(to / step));
    for (long long number = first; number <= last; ++number) {
        const double tick = static_cast<double>(number) * step;
        const bool isLong = number % 5 == 0;
        painter.drawLine(
            QPointF(strip.left(), heightAt(tick)), QPointF(strip.left() + (isLong ? 7 : 4), heightAt(tick)));
    }
}

double LithologyColumn::paintWater(
    QPainter& painter, const Lanes& lanes, const DrawnWater& water, double highest) const
{
    const double y = heightAt(water.depth);
    painter.setPen(QPen(waterColor, 1.5));
    painter.drawLine(QPointF(lanes.strip.right() - waterLine, y), QPointF(lanes.strip.right(), y));
    const QPointF tip(lanes.water.left() + padding + triangleSize / 2, y);
    painter.setPen(QPen(waterColor, 1.2));
    // Drawings show a settled level as a full triangle, one that has only appeared as an outline.
    painter.setBrush(
        water.settled || !water.appeared ? QBrush(waterColor) : QBrush(palette().color(QPalette::Base)));
    painter.drawPolygon(QPolygonF({tip,
        tip + QPointF(-triangleSize / 2, -triangleSize),
        tip + QPointF(triangleSize / 2, -triangleSize)}));
    const double top = qMax(y - lineHeight_ - 1, highest);
    painter.drawText(QRectF(tip.x() + triangleSize / 2 + 2, top, 200, lineHeight_),
        Qt::AlignLeft | Qt::AlignVCenter,
        water.text);
    return top + lineHeight_ * 0.9;
}

void LithologyColumn::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    if (layers_.isEmpty() && waters_.isEmpty() && samples_.isEmpty()) {
        painter.setPen(QColor(0x70, 0x70, 0x70));
        painter.drawText(viewport()->rect(),
            Qt::AlignCenter,
            QStringLiteral("Колонка появится,\nкогда у точки будут слои."));
        return;
    }
    const Lanes lanes = this->lanes();
    painter.save();
    painter.translate(0, headHeight_ - verticalScrollBar()->value());
    paintSeen(painter, lanes);
    paintChosen(painter, lanes);
    for (const DrawnSample& sample : qAsConst(samples_))
        paintSample(painter, lanes, sample);
    // From the top, so that the texts of levels that stand close do not fall on one another.
    double free = -lineHeight_ * 2.0;
    for (const DrawnWater& water : qAsConst(waters_))
        free = paintWater(painter, lanes, water, free);
    painter.restore();
    paintHeads(painter, lanes);
}

// A filled square for a sample that kept its structure, an empty one for a disturbed one.
void LithologyColumn::paintSample(QPainter& painter, const Lanes& lanes, const DrawnSample& sample) const
{
    QRectF square(0, 0, sampleSize, sampleSize);
    square.moveCenter({lanes.samples.center().x(), heightAt(sample.depth)});
    const QColor ink = palette().color(QPalette::Text);
    painter.setPen(QPen(ink, 1));
    painter.setBrush(sample.isUndisturbed ? QBrush(ink) : QBrush(palette().color(QPalette::Base)));
    painter.drawRect(square);
}

void LithologyColumn::paintChosen(QPainter& painter, const Lanes& lanes) const
{
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2.5));
    painter.setBrush(Qt::NoBrush);
    for (const DrawnLayer& layer : layers_)
        if (layer.id == current_)
            painter.drawRect(placed(lanes.strip, heightAt(layer.top), heightAt(layer.bottom)));
    if (stretchBottom_ > stretchTop_)
        painter.drawRect(placed(lanes.strip, heightAt(stretchTop_), heightAt(stretchBottom_)));
    else if (stretchBottom_ == stretchTop_) // NOLINT(clang-diagnostic-float-equal): the same number twice
        painter.drawLine(QPointF(lanes.leftLeads.left(), heightAt(stretchTop_)),
            QPointF(lanes.water.left(), heightAt(stretchTop_)));
}

// Of a long column only what is in view.
void LithologyColumn::paintSeen(QPainter& painter, const Lanes& lanes) const
{
    const double top = verticalScrollBar()->value();
    const double bottom = top + viewport()->height() - headHeight_;
    for (int layer = 0; layer < layers_.size(); ++layer) {
        const double layerTop = qMin(textTops_[layer], heightAt(layers_[layer].top));
        const double layerBottom = qMax(textTops_[layer + 1], heightAt(layers_[layer].bottom));
        if (layerBottom < top || layerTop > bottom)
            continue;
        paintTexts(painter, lanes, layer);
        paintLayer(painter, lanes, layer);
        paintLeads(painter, lanes, layer);
    }
    if (!layers_.isEmpty())
        paintRuler(painter,
            lanes.strip,
            top / pixelsPerMetre_,
            qMin(bottom / pixelsPerMetre_, layers_.last().bottom));
}

void LithologyColumn::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
}

void LithologyColumn::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    // The depth under the pointer stays there.
    const double place = event->position().y() - headHeight_;
    const double depth = (place + verticalScrollBar()->value()) / pixelsPerMetre_;
    zoom_ = qBound(1.0, zoom_ * std::pow(1.25, event->angleDelta().y() / 120.0), largestZoom);
    layOut();
    verticalScrollBar()->setValue(int(heightAt(depth) - place));
    event->accept();
}

int LithologyColumn::layerAt(const QPoint& place) const
{
    const double y = place.y() - headHeight_ + verticalScrollBar()->value();
    const QRectF strip = lanes().strip;
    const bool onStrip = place.x() >= strip.left() && place.x() <= strip.right();
    for (int layer = 0; layer < layers_.size() && place.y() >= headHeight_; ++layer) {
        const double top = onStrip ? heightAt(layers_[layer].top) : textTops_[layer];
        const double bottom = onStrip ? heightAt(layers_[layer].bottom) : textTops_[layer + 1];
        if (y >= top && y < bottom)
            return layer;
    }
    return -1;
}

void LithologyColumn::mousePressEvent(QMouseEvent* event)
{
    const int layer = layerAt(event->pos());
    if (event->button() == Qt::LeftButton && layer >= 0)
        Q_EMIT layerClicked(layers_[layer].id);
}

bool LithologyColumn::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int layer = layerAt(help.pos());
    if (layer >= 0)
        QToolTip::showText(help.globalPos(),
            QStringLiteral("%1 – %2 м, %3\n%4\nCtrl и колесо — масштаб")
                .arg(layers_[layer].top)
                .arg(layers_[layer].bottom)
                .arg(layers_[layer].index, layers_[layer].description),
            viewport());
    return true;
}
