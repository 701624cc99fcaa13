#include "common/soil_patterns.h"

#include "modules/idb_hatch.h"
#include "site/soil_hatches.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

static const QColor strokeColor(0x30, 0x30, 0x30, 0xb4);

SoilPatterns::SoilPatterns(IDBHatch* library)
{
    if (!library)
        return;
    for (const auto& [number, bytes] : library->getHatches())
        if (const std::optional<HatchPattern> pattern = HatchPattern::parse(bytes))
            patterns_.emplace(number, *pattern);
}

QString SoilPatterns::name(std::uint32_t number) const
{
    const auto found = patterns_.find(number);
    return found == patterns_.end() ? QString() : found->second.name();
}

void SoilPatterns::fill(
    QPainter& painter, const QPainterPath& area, std::uint32_t number, const QPointF& origin) const
{
    const auto found = patterns_.find(number);
    if (found == patterns_.end() || area.isEmpty())
        return;
    const double density = painter.device()->devicePixelRatioF();
    QPixmap& tile = tiles_[quint64(number) << 32U | quint64(std::lround(density * 1000))];
    if (tile.isNull()) {
        tile = found->second.picture(density, strokeColor);
        tile.setDevicePixelRatio(density);
    }
    const QRectF bounds = area.boundingRect();
    painter.save();
    painter.setClipPath(area, Qt::IntersectClip);
    const QRectF whole(
        std::floor(bounds.left()), std::floor(bounds.top()), bounds.width() + 2, bounds.height() + 2);
    painter.drawTiledPixmap(whole, tile, whole.topLeft() - origin);
    painter.restore();
}

std::uint32_t hatchOfDescription(const QString& description)
{
    return hatchOfDescription(std::wstring_view(description.toStdWString()));
}

QColor tintOfHatch(std::uint32_t number)
{
    const Color tint = soilTint(number);
    return {tint.red, tint.green, tint.blue};
}
