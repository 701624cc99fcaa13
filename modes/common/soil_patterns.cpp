#include "common/soil_patterns.h"

#include "modules/idb_hatch.h"
#include "paint/hatch_pictures.h"
#include "site/soil_hatches.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

static const QColor strokeColor(0x30, 0x30, 0x30, 0xb4);

SoilPatterns::SoilPatterns(IDBHatch* library)
{
    if (library)
        hatches_ = readHatches(library->getHatches());
}

QString SoilPatterns::name(std::uint32_t number) const
{
    const auto found = hatches_.find(number);
    return found == hatches_.end() ? QString() : QString::fromStdWString(found->second.name);
}

void SoilPatterns::fill(
    QPainter& painter, const QPainterPath& area, std::uint32_t number, const QPointF& origin) const
{
    const auto found = hatches_.find(number);
    if (found == hatches_.end() || area.isEmpty())
        return;
    const double density = painter.device()->devicePixelRatioF();
    QPixmap& tile = tiles_[quint64(number) << 32U | quint64(std::lround(density * 1000))];
    if (tile.isNull()) {
        tile = hatchTilePicture(found->second, density, strokeColor);
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
