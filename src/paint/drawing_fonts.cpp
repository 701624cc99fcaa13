#include "paint/drawing_fonts.h"

#include <QCoreApplication>
#include <QFontDatabase>
#include <QStringList>
#include <QVariant>

#include <array>

namespace
{

struct ShippedFont {
    const char* file;
    const char* family;
    bool isBold;
    bool isItalic;
};

// In the order of Font.
constexpr ShippedFont shippedFonts[] = {
    {"LiberationSans-Regular.ttf", "Liberation Sans", false, false},
    {"LiberationSans-Bold.ttf", "Liberation Sans", true, false},
    {"LiberationSans-Italic.ttf", "Liberation Sans", false, true},
    {"RobotoCondensed-Regular.ttf", "Roboto Condensed", false, false},
};
constexpr std::size_t fontCount = std::size(shippedFonts);

// Modules carry this code each for themselves: that the fonts are there stands at the application.
const char registered[] = "tellurixDrawingFonts";

QStringList registerFonts()
{
    if (!qApp->property(registered).isNull())
        return qApp->property(registered).toStringList();
    QStringList missing;
    for (const ShippedFont& font : shippedFonts) {
        const QString file = QLatin1String("/fonts/") + QLatin1String(font.file);
        if (QFontDatabase::addApplicationFont(QCoreApplication::applicationDirPath() + file) < 0)
            missing.append(QLatin1String(font.file));
    }
    qApp->setProperty(registered, missing);
    return missing;
}

QFont fontOf(const ShippedFont& shipped)
{
    QFont font{QString::fromLatin1(shipped.family)};
    font.setPixelSize(drawingFontPixels);
    font.setBold(shipped.isBold);
    font.setItalic(shipped.isItalic);
    font.setKerning(false);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleHint(QFont::SansSerif);
    return font;
}

} // namespace

const QFont& drawingFont(Font font)
{
    static const std::array<QFont, fontCount> fonts = [] {
        registerFonts();
        std::array<QFont, fontCount> made;
        for (std::size_t number = 0; number < fontCount; ++number)
            made[number] = fontOf(shippedFonts[number]);
        return made;
    }();
    return fonts[static_cast<std::size_t>(font)];
}

QString missingFonts()
{
    const QStringList missing = registerFonts();
    if (missing.isEmpty())
        return {};
    return QStringLiteral(
        "Рядом с программой нет файлов шрифтов: %1 (папка fonts).\nЧертежи выводятся другим "
        "шрифтом, тексты могут выйти за свои места. Переустановите Tellurix.")
        .arg(missing.join(QStringLiteral(", ")));
}
