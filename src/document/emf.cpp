#include "document/emf.h"

#include "document/office_text.h"
#include "drawing/text_layout.h"
#include "platform/wide_character.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace
{

// Types of records, numbers of the format.
enum : std::uint32_t {
    HeaderRecord = 1,
    PolygonRecord = 3,
    PolylineRecord = 4,
    PolyPolygonRecord = 8,
    WindowExtentRecord = 9,
    WindowOriginRecord = 10,
    ViewportExtentRecord = 11,
    ViewportOriginRecord = 12,
    EndRecord = 14,
    MapModeRecord = 17,
    BackgroundModeRecord = 18,
    FillModeRecord = 19,
    TextAlignRecord = 22,
    TextColorRecord = 24,
    SelectRecord = 37,
    BrushRecord = 39,
    DeleteRecord = 40,
    EllipseRecord = 42,
    FontRecord = 82,
    TextRecord = 84,
    PenRecord = 95,
};

constexpr double unitsPerMillimetre = 100;
constexpr std::uint32_t noPen = 0x80000008;
constexpr std::uint32_t noBrush = 0x80000005;
// The three objects that a drawing uses at a time.
enum Object : std::uint32_t { PenObject = 1, BrushObject = 2, FontObject = 3 };

std::int32_t units(double mm)
{
    return static_cast<std::int32_t>(std::lround(std::clamp(mm, -1e5, 1e5) * unitsPerMillimetre));
}

class EmfWriter
{
public:
    EmfWriter(const Drawing& drawing, const Hatches& hatches)
        : hatches_(hatches)
    {
        header(drawing);
        record(MapModeRecord, {8}); // anisotropic: window and viewport below
        record(WindowOriginRecord, {0, 0});
        record(WindowExtentRecord, {word(units(drawing.width)), word(units(drawing.height))});
        record(ViewportOriginRecord, {0, 0});
        record(ViewportExtentRecord, {word(units(drawing.width)), word(units(drawing.height))});
        record(BackgroundModeRecord, {1}); // transparent
        record(FillModeRecord, {1}); // even-odd
        for (const Item& item : drawing.items)
            std::visit([this](const auto& shape) { add(shape); }, item.shape);
        record(EndRecord, {0, 16, 20});
        put(48, static_cast<std::uint32_t>(bytes_.size()));
        put(52, records_);
    }

    std::string take() { return std::move(bytes_); }

private:
    static std::uint32_t word(std::int32_t value) { return static_cast<std::uint32_t>(value); }

    void put(std::size_t place, std::uint32_t value)
    {
        for (std::size_t i = 0; i < 4; ++i)
            bytes_[place + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
    }

    void append(std::uint32_t value)
    {
        bytes_.resize(bytes_.size() + 4);
        put(bytes_.size() - 4, value);
    }

    void begin(std::uint32_t type)
    {
        start_ = bytes_.size();
        ++records_;
        append(type);
        append(0);
    }

    void end()
    {
        while (bytes_.size() % 4 != 0)
            bytes_ += '\0';
        put(start_ + 4, static_cast<std::uint32_t>(bytes_.size() - start_));
    }

    void record(std::uint32_t type, std::initializer_list<std::uint32_t> words)
    {
        begin(type);
        for (const std::uint32_t each : words)
            append(each);
        end();
    }

    void header(const Drawing& drawing)
    {
        begin(HeaderRecord);
        for (int box = 0; box < 2; ++box) // in device units and in hundredths of a millimetre: the same here
            for (const double mm : {0.0, 0.0, drawing.width, drawing.height})
                append(word(units(mm)));
        append(0x464D4520); // " EMF"
        append(0x00010000);
        append(0); // size and number of records, when they are known
        append(0);
        append(4); // objects, one more than are used
        append(0);
        append(0);
        append(0);
        // A device whose dots are hundredths of a millimetre.
        append(32000);
        append(32000);
        append(320);
        append(320);
        append(0);
        append(0);
        append(0);
        append(320000);
        append(320000);
        end();
    }

    static std::uint32_t colorWord(const Color& color)
    {
        return color.red | static_cast<std::uint32_t>(color.green) << 8U
            | static_cast<std::uint32_t>(color.blue) << 16U;
    }

    void select(std::uint32_t object) { record(SelectRecord, {object}); }

    // Ends the life of what stood in this place; the first time there is nothing.
    void replace(Object object, bool stood)
    {
        if (!stood)
            return;
        select(object == PenObject ? noPen : object == BrushObject ? noBrush : 0x8000000D);
        record(DeleteRecord, {object});
    }

    void usePen(const Pen& pen)
    {
        if (pen_ == pen) {
            select(PenObject);
            return;
        }
        replace(PenObject, pen_.has_value());
        pen_ = pen;
        static const std::vector<double> dashes[] = {{}, {3, 1.5}, {0.3, 1}, {5, 1.2, 0.3, 1.2}};
        const std::vector<double>& dash = dashes[static_cast<std::size_t>(pen.dash)];
        constexpr std::uint32_t geometric = 0x00010000;
        constexpr std::uint32_t ownDash = 7;
        begin(PenRecord);
        append(PenObject);
        for (int i = 0; i < 4; ++i)
            append(0);
        append(geometric | (dash.empty() ? 0 : ownDash));
        append(word(std::max(1, units(pen.width))));
        append(0);
        append(colorWord(pen.color));
        append(0);
        append(static_cast<std::uint32_t>(dash.size()));
        for (const double length : dash)
            append(word(units(length)));
        if (dash.empty())
            append(0);
        end();
        select(PenObject);
    }

    void useBrush(const Color& color)
    {
        if (brush_ != color) {
            replace(BrushObject, brush_.has_value());
            brush_ = color;
            record(BrushRecord, {BrushObject, 0, colorWord(color), 0});
        }
        select(BrushObject);
    }

    void spots(const std::vector<Spot>& points)
    {
        for (const Spot& spot : points) {
            append(word(units(spot.x)));
            append(word(units(spot.y)));
        }
    }

    void bounds()
    {
        for (int i = 0; i < 2; ++i)
            append(0);
        for (int i = 0; i < 2; ++i)
            append(0xFFFFFFFF);
    }

    void polyline(std::uint32_t type, const std::vector<Spot>& points)
    {
        if (points.size() < 2)
            return;
        begin(type);
        bounds();
        append(static_cast<std::uint32_t>(points.size()));
        spots(points);
        end();
    }

    void polygons(const std::vector<std::vector<Spot>>& rings)
    {
        std::size_t count = 0;
        for (const auto& ring : rings)
            count += ring.size();
        if (count < 3)
            return;
        begin(PolyPolygonRecord);
        bounds();
        append(static_cast<std::uint32_t>(rings.size()));
        append(static_cast<std::uint32_t>(count));
        for (const auto& ring : rings)
            append(static_cast<std::uint32_t>(ring.size()));
        for (const auto& ring : rings)
            spots(ring);
        end();
    }

    void add(const Line& line)
    {
        usePen(line.pen);
        select(noBrush);
        polyline(line.closed ? PolygonRecord : PolylineRecord, line.points);
    }

    void add(const Area& area)
    {
        if (area.hasGround) {
            select(noPen);
            useBrush(area.ground);
            polygons(area.rings);
        }
        const HatchStrokes strokes = hatchStrokes(area, hatches_);
        if (!strokes.lines.empty()) {
            usePen({std::min(area.hatchUnit, 0.18), area.hatchColor, Dash::Solid});
            for (const HatchStrokes::Segment& line : strokes.lines)
                polyline(PolylineRecord, {line.from, line.to});
        }
        if (!strokes.fills.empty() || !strokes.dots.empty()) {
            select(noPen);
            useBrush(area.hatchColor);
            for (const HatchStrokes::Dots& dots : strokes.dots)
                for (const Spot& centre : dots.centres)
                    ellipse(centre, dots.radius);
            for (const auto& fill : strokes.fills)
                polygons({fill});
        }
    }

    void add(const Circle& circle)
    {
        usePen(circle.pen);
        if (circle.isFilled)
            useBrush(circle.pen.color);
        else
            select(noBrush);
        ellipse(circle.centre, circle.radius);
    }

    void ellipse(const Spot& c, double r)
    {
        record(EllipseRecord,
            {word(units(c.x - r)), word(units(c.y - r)), word(units(c.x + r)), word(units(c.y + r))});
    }

    void useFont(const Text& text)
    {
        const Look look{text.font, text.height, text.angle};
        if (font_ == look)
            return;
        replace(FontObject, font_.has_value());
        font_ = look;
        begin(FontRecord);
        append(FontObject);
        append(word(-units(emOfHeight(text.font, text.height))));
        append(0);
        const auto tenths = word(static_cast<std::int32_t>(std::lround(text.angle * 10)));
        append(tenths);
        append(tenths);
        append(text.font == Font::Bold ? 700 : 400);
        const bool isItalic = text.font == Font::Italic;
        append(isItalic ? 1U | 1U << 24U : 1U << 24U); // italic, underlined, struck, any set of characters
        append(0);
        const std::wstring face = text.font == Font::Narrow ? L"Arial Narrow" : L"Arial";
        for (std::size_t i = 0; i < 32; ++i) {
            const wchar_t letter = i < face.size() ? face[i] : L'\0';
            bytes_ += static_cast<char>(letter & 0xFF);
            bytes_ += '\0';
        }
        end();
        select(FontObject);
    }

    void add(const Text& text)
    {
        const std::wstring clean = cleanText(text.text);
        if (clean.empty())
            return;
        useFont(text);
        constexpr std::uint32_t baseLine = 24;
        constexpr std::array<std::uint32_t, 3> aligns{0, 6, 2};
        record(TextAlignRecord, {baseLine | aligns[static_cast<std::size_t>(text.align)]});
        record(TextColorRecord, {colorWord(text.color)});
        std::u16string letters;
        std::vector<std::uint32_t> steps;
        std::int32_t place = 0;
        for (std::size_t i = 0; i < clean.size(); ++i) {
            const auto code = codeOf(clean[i]);
            const std::int32_t next =
                units(textWidth(std::wstring_view(clean).substr(0, i + 1), text.font, text.height));
            if (code > 0xFFFF) {
                letters += static_cast<char16_t>(0xD7C0 + (code >> 10U));
                letters += static_cast<char16_t>(0xDC00 + (code & 0x3FFU));
                steps.push_back(word(next - place));
                steps.push_back(0);
            } else {
                letters += static_cast<char16_t>(code);
                steps.push_back(word(next - place));
            }
            place = next;
        }
        begin(TextRecord);
        bounds();
        append(1); // scales below do not count
        append(0x3F800000);
        append(0x3F800000);
        append(word(units(text.at.x)));
        append(word(units(text.at.y)));
        append(static_cast<std::uint32_t>(letters.size()));
        const std::uint32_t textPlace = 76;
        append(textPlace);
        append(0);
        bounds();
        append(textPlace + static_cast<std::uint32_t>((letters.size() * 2 + 3) / 4 * 4));
        for (const char16_t letter : letters) {
            bytes_ += static_cast<char>(letter & 0xFF);
            bytes_ += static_cast<char>(letter >> 8U);
        }
        while (bytes_.size() % 4 != 0)
            bytes_ += '\0';
        for (const std::uint32_t step : steps)
            append(step);
        end();
    }

    struct Look {
        Font font = Font::Plain;
        double height = 0;
        double angle = 0;

        bool operator==(const Look&) const = default;
    };

    const Hatches& hatches_;
    std::string bytes_;
    std::size_t start_ = 0;
    std::uint32_t records_ = 0;
    std::optional<Pen> pen_;
    std::optional<Color> brush_;
    std::optional<Look> font_;
};

} // namespace

std::string toEmf(const Drawing& drawing, const Hatches* hatches)
{
    static const Hatches none;
    return EmfWriter(drawing, hatches ? *hatches : none).take();
}
