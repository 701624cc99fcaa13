// Writes the widths of the shipped fonts as the table src/drawing/font_widths.inc:
//     font_widths FOLDER > src/drawing/font_widths.inc
// FOLDER holds the fonts as they stand in the program's folder. Run it again when a font is replaced.

#include <QGuiApplication>
#include <QRawFont>
#include <QVector>

#include <cmath>
#include <iostream>
#include <optional>

namespace
{

struct Range {
    char32_t first;
    char32_t last;
};

constexpr Range ranges[] = {
    {0x20, 0x7E},
    {0xA0, 0xFF},
    {0x391, 0x3C9},
    {0x400, 0x45F},
    {0x490, 0x491},
    {0x2010, 0x2026},
    {0x2030, 0x2033},
    {0x2070, 0x208E},
    {0x20AC, 0x20AC},
    {0x2116, 0x2116},
    {0x2122, 0x2122},
    {0x2126, 0x2126},
    {0x2190, 0x2193},
    {0x2205, 0x2206},
    {0x2212, 0x2212},
    {0x2248, 0x2248},
    {0x2260, 0x2265},
};

struct Source {
    const char* name;
    const char* file;
};

constexpr Source fonts[] = {
    {"Plain", "LiberationSans-Regular.ttf"},
    {"Bold", "LiberationSans-Bold.ttf"},
    {"Italic", "LiberationSans-Italic.ttf"},
    {"Narrow", "RobotoCondensed-Regular.ttf"},
};

constexpr double unitsOfTable = 1000;

std::optional<int> widthOf(const QRawFont& font, char32_t character)
{
    if (!font.supportsCharacter(character))
        return std::nullopt;
    const QVector<quint32> glyphs = font.glyphIndexesForString(QString::fromUcs4(&character, 1));
    const QVector<QPointF> advances = font.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics);
    return static_cast<int>(std::lround(advances.value(0).x() / font.unitsPerEm() * unitsOfTable));
}

void writeFont(const QRawFont& font, const char* name)
{
    const auto share = [&font](double part) { return std::lround(part / font.unitsPerEm() * unitsOfTable); };
    std::cout << "// " << name << "\n{" << share(font.capHeight()) << ", " << share(font.ascent()) << ", "
              << share(font.descent()) << ", {";
    int column = 0;
    for (const Range& range : ranges)
        for (char32_t character = range.first; character <= range.last; ++character)
            std::cout << (column++ % 20 ? " " : "\n    ") << widthOf(font, character).value_or(0) << ",";
    std::cout << "\n}},\n";
}

} // namespace

int main(int count, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    if (count != 2) {
        std::cerr << "font_widths FOLDER\n";
        return 2;
    }
    std::cout
        << "// Made by tools/font_widths. Per font: height of a capital, ascent, descent, then the widths\n"
           "// of the characters below, all in thousandths of the em; 0: the font has no such character.\n"
           "// clang-format off\n#ifdef FONT_RANGE\n";
    for (const Range& range : ranges)
        std::cout << "FONT_RANGE(" << unsigned(range.first) << ", " << unsigned(range.last) << ")\n";
    std::cout << "#else\n";
    for (const Source& source : fonts) {
        const QString file =
            QString::fromLocal8Bit(arguments[1]) + QLatin1Char('/') + QLatin1String(source.file);
        QRawFont font(file, 2048);
        font.setPixelSize(font.unitsPerEm());
        if (!font.isValid()) {
            std::cerr << file.toStdString() << " is no font\n";
            return 1;
        }
        writeFont(font, source.name);
    }
    std::cout << "#endif\n// clang-format on\n";
    return 0;
}
