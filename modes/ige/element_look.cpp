#include "ige/element_look.h"

#include "modules/idbproject.h"
#include "site/element_links.h"

#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>

#include <array>

static constexpr std::uint32_t ownColor = 0x01000000;

QColor colorOf(const StrataElement& element)
{
    const auto stored = static_cast<std::uint32_t>(element.valueB);
    if ((stored & 0xff000000U) == ownColor)
        return QColor::fromRgb(stored & 0xffffffU);
    static constexpr std::array<QRgb, elementKindCount> kinds = {
        0xdddddd, 0xfdf0b4, 0xf1e4a6, 0xe3c08f, 0xd0a582, 0xf0dfc0, 0xd5d9de, 0xb9a78c, 0xd8cfc4};
    return QColor::fromRgb(kinds[static_cast<std::size_t>(elementKindOf(element))]);
}

std::int32_t storedColor(const QColor& color)
{
    return static_cast<std::int32_t>(ownColor | (color.rgb() & 0xffffffU));
}

QIcon swatch(const QColor& color)
{
    // A site of thousands of elements has a handful of colours.
    const QString key = QStringLiteral("ige/swatch/") + color.name();
    QPixmap picture;
    if (!QPixmapCache::find(key, &picture)) {
        picture = QPixmap(16, 16);
        picture.fill(color);
        QPainter painter(&picture);
        painter.setPen(QColor(0x50, 0x50, 0x50));
        painter.drawRect(0, 0, 15, 15);
        painter.end();
        QPixmapCache::insert(key, picture);
    }
    return QIcon(picture);
}

QString elementTitle(IDBProject& project, const std::wstring& name)
{
    const std::wstring_view words = elementName(project.getNumberedLinks(), name);
    const std::wstring title =
        std::wstring(shortElementName(name)) + (words.empty() ? L"" : L"  " + std::wstring(words));
    return QString::fromStdWString(title);
}

std::uint32_t hatchNumber(const std::vector<std::uint8_t>& pattern)
{
    std::uint32_t number = 0;
    if (pattern.size() > 6)
        return 0;
    for (const std::uint8_t digit : pattern) {
        if (digit < '0' || digit > '9')
            return 0;
        number = number * 10 + (digit - '0');
    }
    return number;
}

std::vector<std::uint8_t> hatchBytes(std::uint32_t number)
{
    if (number == 0)
        return {};
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}
