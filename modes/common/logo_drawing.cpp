#include "common/logo_drawing.h"

#include <QColor>
#include <QImageReader>
#include <QSet>

#include <algorithm>
#include <map>

namespace
{

constexpr double greatestWidth = 45; // mm
constexpr double greatestHeight = 16;
constexpr double dotSize = 25.4 / 150; // mm
constexpr int mostColors = 48;

// Few colours, on white: the more dots beside each other are alike, the fewer rectangles.
QImage readSmall(const QString& file)
{
    QImageReader reader(file);
    reader.setAutoTransform(true);
    QImage image = reader.read();
    if (image.isNull())
        return image;
    const double scale = std::min(greatestWidth / image.width(), greatestHeight / image.height());
    const QSize dots(std::max(1, qRound(image.width() * scale / dotSize)),
        std::max(1, qRound(image.height() * scale / dotSize)));
    image = image.convertToFormat(QImage::Format_ARGB32)
                .scaled(dots, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    for (int step : {8, 16, 32, 64}) {
        QImage coarse = image;
        QSet<QRgb> colors;
        for (int y = 0; y < coarse.height(); ++y)
            for (int x = 0; x < coarse.width(); ++x) {
                const QColor dot = image.pixelColor(x, y);
                const auto part = [&](int value) {
                    const int onWhite = 255 - (255 - value) * dot.alpha() / 255;
                    return std::min(255, (onWhite + step / 2) / step * step);
                };
                const QRgb color = qRgb(part(dot.red()), part(dot.green()), part(dot.blue()));
                coarse.setPixel(x, y, color);
                colors.insert(color);
            }
        image = coarse;
        if (colors.size() <= mostColors)
            break;
    }
    return image;
}

struct Rows {
    int top;
    int bottom;
};

} // namespace

std::optional<Drawing> logoDrawing(const QString& file)
{
    const QImage image = readSmall(file);
    if (image.isNull())
        return std::nullopt;
    Drawing drawing;
    drawing.width = image.width() * dotSize;
    drawing.height = image.height() * dotSize;
    // Runs of one colour; the same run in rows below each other is one rectangle.
    using Run = std::tuple<int, int, QRgb>;
    std::map<Run, Rows> open;
    const auto finish = [&drawing](const Run& run, const Rows& rows) {
        const auto [from, to, color] = run;
        // A hair over the edge: between two that only touch, viewers show a pale line.
        constexpr double hair = 0.02;
        const double right = std::min(drawing.width, to * dotSize + hair);
        const double bottom = std::min(drawing.height, rows.bottom * dotSize + hair);
        Area area;
        area.rings = {{{from * dotSize, rows.top * dotSize},
            {right, rows.top * dotSize},
            {right, bottom},
            {from * dotSize, bottom}}};
        area.ground = {static_cast<std::uint8_t>(qRed(color)),
            static_cast<std::uint8_t>(qGreen(color)),
            static_cast<std::uint8_t>(qBlue(color))};
        area.hasGround = true;
        drawing.items.push_back({Layer::Ground, 0, std::move(area)});
    };
    for (int y = 0; y <= image.height(); ++y) {
        std::map<Run, Rows> now;
        for (int x = 0; y < image.height() && x < image.width();) {
            const QRgb color = image.pixel(x, y);
            int end = x + 1;
            while (end < image.width() && image.pixel(end, y) == color)
                ++end;
            if (color != qRgb(255, 255, 255)) {
                const Run run(x, end, color);
                const auto above = open.find(run);
                now[run] = {above == open.end() ? y : above->second.top, y + 1};
            }
            x = end;
        }
        for (const auto& [run, rows] : open)
            if (now.find(run) == now.end())
                finish(run, rows);
        open = std::move(now);
    }
    return drawing;
}
