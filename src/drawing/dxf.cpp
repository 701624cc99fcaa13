#include "drawing/dxf.h"

#include "drawing/dxf_texts.h"
#include "drawing/number_output.h"
#include "drawing/triangles.h"

#include <array>
#include <cmath>
#include <map>

namespace
{

constexpr const wchar_t* usualNames[] = {L"Рамка",
    L"Штамп",
    L"Таблица",
    L"Грунт",
    L"Штриховка",
    L"Границы",
    L"Текст",
    L"ИГЭ",
    L"Вода",
    L"Пробы",
    L"График",
    L"Сетка"};

// A name, and lengths of stroke (positive) and gap, mm.
struct LineType {
    const char* name;
    const char* looks;
    std::vector<double> lengths;
};

// In the order of Dash.
const std::vector<LineType>& lineTypes()
{
    static const std::vector<LineType> types = {
        {"CONTINUOUS", "Solid line", {}},
        {"DASHED", "__ __ __ __", {3, -1.5}},
        {"DOTTED", ". . . . . .", {0.3, -1}},
        {"DASHDOT", "__ . __ . ", {5, -1.2, 0.3, -1.2}},
    };
    return types;
}

struct TextStyle {
    const char* name; // by which a free viewer finds a font with Cyrillic letters, №, raised digits and Greek
    const char* file; // by which others find it
};

constexpr TextStyle plainStyle = {"lc_opengost-br", "arial.ttf"};
constexpr TextStyle narrowStyle = {"OpenGostTypeA-Regular", "arialn.ttf"};

// Micrometres tell dots of different sizes apart.
std::string dotBlockName(double radius)
{
    return "DOT" + std::to_string(std::lround(2000 * radius));
}

class DxfWriter
{
public:
    DxfWriter(const Drawing& drawing, const Hatches& hatches)
        : drawing_(drawing)
        , hatches_(hatches)
    {
    }

    std::string write();

    void operator()(const Line& line);
    void operator()(const Area& area);
    void operator()(const Circle& circle);
    void operator()(const Text& text);

private:
    void pair(int code, std::string_view value)
    {
        out_ += code < 10 ? "  " : code < 100 ? " " : "";
        appendInteger(code);
        out_.append("\r\n").append(value).append("\r\n");
    }
    void pair(int code, const char* value) { pair(code, std::string_view(value)); }
    void pair(int code, int value)
    {
        pair(code, "");
        out_.resize(out_.size() - 2);
        appendInteger(value);
        out_ += "\r\n";
    }
    void pair(int code, double value)
    {
        pair(code, "");
        out_.resize(out_.size() - 2);
        const std::size_t begin = out_.size();
        appendNumber(out_, value);
        // Some readers know a number with a fraction by its point alone.
        if (out_.find('.', begin) == std::string::npos)
            out_ += ".0";
        out_ += "\r\n";
    }
    void appendInteger(int value) { out_ += std::to_string(value); }

    void spot(const Spot& spot, int code = 10)
    {
        pair(code, spot.x - zero_.x);
        pair(code + 10, zero_.y - spot.y);
        pair(code + 20, 0.0);
    }
    void head(const char* kind, const Color* color, Dash dash = Dash::Solid)
    {
        pair(0, kind);
        pair(8, layer_);
        if (dash != Dash::Solid)
            pair(6, lineTypes()[static_cast<std::size_t>(dash)].name);
        if (color)
            pair(62, numberOf(*color));
    }
    // Thousands of strokes in a row have one colour.
    int numberOf(const Color& color)
    {
        if (!(color == lastColor_)) {
            lastColor_ = color;
            lastNumber_ = dxfColor(color);
        }
        return lastNumber_;
    }
    void polyline(const std::vector<Spot>& spots, bool isClosed, const Pen& pen);
    // The second pair of corners crosses over from the first.
    void solid(const Spot& a, const Spot& b, const Spot& c, const Spot& d, int color);
    void beginBlock(const std::string& name);
    void endBlock();
    void dotBlocks();
    void item(std::size_t number);
    void header();
    void tables();
    void blocks();
    void entities();
    bool isLaterOfSign(std::size_t item) const;

    const Drawing& drawing_;
    const Hatches& hatches_;
    std::string out_;
    std::map<Layer, std::string> layers_;
    std::vector<HatchStrokes> strokes_; // one an item
    std::size_t item_ = 0; // that is being written
    std::string_view layer_ = {};
    Spot zero_ = {};
    Color lastColor_ = {};
    int lastNumber_ = dxfColor({});
};

void DxfWriter::header()
{
    pair(0, "SECTION");
    pair(2, "HEADER");
    pair(9, "$ACADVER");
    pair(1, "AC1009");
    pair(9, "$DWGCODEPAGE");
    pair(3, "ANSI_1251");
    pair(9, "$INSUNITS");
    pair(70, 4); // millimetres
    pair(9, "$EXTMIN");
    spot({0, drawing_.height});
    pair(9, "$EXTMAX");
    spot({drawing_.width, 0});
    pair(9, "$LTSCALE");
    pair(40, 1.0);
    pair(0, "ENDSEC");
}

void DxfWriter::tables()
{
    const auto begin = [this](const char* name, std::size_t count) {
        pair(0, "TABLE");
        pair(2, name);
        pair(70, static_cast<int>(count));
    };
    pair(0, "SECTION");
    pair(2, "TABLES");
    begin("LTYPE", lineTypes().size());
    for (const LineType& type : lineTypes()) {
        double length = 0;
        for (const double part : type.lengths)
            length += std::abs(part);
        pair(0, "LTYPE");
        pair(2, type.name);
        pair(70, 0);
        pair(3, type.looks);
        pair(72, 65);
        pair(73, static_cast<int>(type.lengths.size()));
        pair(40, length);
        for (const double part : type.lengths)
            pair(49, part);
    }
    pair(0, "ENDTAB");
    std::map<std::string, int> names = {{"0", 0}};
    for (const auto& [layer, name] : layers_)
        names.emplace(name, 0);
    begin("LAYER", names.size());
    for (const auto& [name, none] : names) {
        pair(0, "LAYER");
        pair(2, name);
        pair(70, 0);
        pair(62, 7);
        pair(6, "CONTINUOUS");
    }
    pair(0, "ENDTAB");
    begin("STYLE", 2);
    for (const TextStyle& style : {plainStyle, narrowStyle}) {
        pair(0, "STYLE");
        pair(2, style.name);
        pair(70, 0);
        pair(40, 0.0);
        pair(41, 1.0);
        pair(50, 0.0);
        pair(71, 0);
        pair(42, 2.5);
        pair(3, style.file);
        pair(4, "");
    }
    pair(0, "ENDTAB");
    begin("APPID", 1);
    pair(0, "APPID");
    pair(2, "ACAD");
    pair(70, 0);
    pair(0, "ENDTAB");
    pair(0, "ENDSEC");
}

void DxfWriter::polyline(const std::vector<Spot>& spots, bool isClosed, const Pen& pen)
{
    // Thick lines are thick on paper too; thin ones take what the plot gives them.
    constexpr double thick = 0.5;
    head("POLYLINE", &pen.color, pen.dash);
    pair(66, 1);
    spot(zero_);
    pair(70, isClosed ? 1 : 0);
    if (pen.width >= thick) {
        pair(40, pen.width);
        pair(41, pen.width);
    }
    for (const Spot& corner : spots) {
        pair(0, "VERTEX");
        pair(8, layer_);
        spot(corner);
    }
    pair(0, "SEQEND");
    pair(8, layer_);
}

void DxfWriter::solid(const Spot& a, const Spot& b, const Spot& c, const Spot& d, int color)
{
    pair(0, "SOLID");
    pair(8, layer_);
    pair(62, color);
    spot(a);
    spot(b, 11);
    spot(c, 12);
    spot(d, 13);
}

void DxfWriter::operator()(const Line& line)
{
    constexpr double thick = 0.5;
    if (line.points.size() < 2)
        return;
    if (line.points.size() > 2 || line.pen.width >= thick)
        return polyline(line.points, line.closed && line.points.size() > 2, line.pen);
    head("LINE", &line.pen.color, line.pen.dash);
    spot(line.points[0]);
    spot(line.points[1], 11);
}

void DxfWriter::operator()(const Area& area)
{
    constexpr Color white = {255, 255, 255};
    if (area.hasGround && area.ground != white)
        for (const std::array<Spot, 3>& corners : trianglesOf(area.rings))
            solid(corners[0], corners[1], corners[2], corners[2], numberOf(area.ground));
    for (const std::vector<Spot>& ring : area.rings)
        if (ring.size() > 2)
            polyline(ring, true, {0, area.hatchColor, Dash::Solid});
    const HatchStrokes& strokes = strokes_[item_];
    for (const HatchStrokes::Segment& line : strokes.lines) {
        head("LINE", &area.hatchColor);
        spot(line.from);
        spot(line.to, 11);
    }
    for (const HatchStrokes::Dots& dots : strokes.dots)
        for (const Spot& centre : dots.centres) {
            head("INSERT", &area.hatchColor);
            pair(2, dotBlockName(dots.radius));
            spot(centre);
        }
    for (const std::vector<Spot>& fill : strokes.fills)
        for (const std::array<Spot, 3>& corners : trianglesOf({fill}))
            solid(corners[0], corners[1], corners[2], corners[2], numberOf(area.hatchColor));
}

void DxfWriter::operator()(const Circle& circle)
{
    head("CIRCLE", &circle.pen.color, circle.pen.dash);
    spot(circle.centre);
    pair(40, circle.radius);
    if (!circle.isFilled)
        return;
    // A closed line of two half circles, as thick as the radius, fills the whole.
    head("POLYLINE", &circle.pen.color);
    pair(66, 1);
    spot(zero_);
    pair(70, 1);
    pair(40, circle.radius);
    pair(41, circle.radius);
    for (const double side : {-0.5, 0.5}) {
        pair(0, "VERTEX");
        pair(8, layer_);
        spot({circle.centre.x + side * circle.radius, circle.centre.y});
        pair(42, 1.0);
    }
    pair(0, "SEQEND");
    pair(8, layer_);
}

void DxfWriter::operator()(const Text& text)
{
    if (text.text.empty())
        return;
    head("TEXT", &text.color);
    spot(text.at);
    pair(40, text.height);
    pair(1, dxfText(text.text));
    if (text.angle != 0)
        pair(50, text.angle);
    pair(7, text.font == Font::Narrow ? narrowStyle.name : plainStyle.name);
    if (text.align != Align::Left) {
        pair(72, static_cast<int>(text.align));
        spot(text.at, 11);
    }
}

// Whether the item belongs to an instance of a sign that began before it.
bool DxfWriter::isLaterOfSign(std::size_t item) const
{
    const Item& own = drawing_.items[item];
    return item > 0 && !own.sign.empty() && drawing_.items[item - 1].sign == own.sign
        && drawing_.items[item - 1].signAt == own.signAt;
}

void DxfWriter::beginBlock(const std::string& name)
{
    pair(0, "BLOCK");
    pair(8, "0");
    pair(2, name);
    pair(70, 0);
    zero_ = {};
    pair(10, 0.0);
    pair(20, 0.0);
    pair(30, 0.0);
    pair(3, name);
    pair(1, "");
}

void DxfWriter::endBlock()
{
    pair(0, "ENDBLK");
    pair(8, "0");
}

// The dots of a hatch are the same thousands of times. What stands on layer 0 without a colour of its own
// takes those of the place where it is put.
void DxfWriter::dotBlocks()
{
    using Quad = std::array<std::size_t, 4>;
    constexpr int colorOfBlock = 0;
    std::map<std::string, double> radii;
    for (const HatchStrokes& strokes : strokes_)
        for (const HatchStrokes::Dots& dots : strokes.dots)
            radii.emplace(dotBlockName(dots.radius), dots.radius);
    for (const auto& [name, radius] : radii) {
        beginBlock(name);
        layer_ = "0";
        const std::vector<Spot> ring = dotOutline({}, radius);
        for (const auto& [a, b, c, d] : {Quad{0, 1, 2, 3}, Quad{0, 3, 4, 7}, Quad{4, 5, 6, 7}})
            solid(ring[a], ring[b], ring[d], ring[c], colorOfBlock);
        endBlock();
    }
}

void DxfWriter::blocks()
{
    pair(0, "SECTION");
    pair(2, "BLOCKS");
    dotBlocks();
    std::map<std::string, std::size_t> firsts;
    for (std::size_t item = 0; item < drawing_.items.size(); ++item)
        if (!drawing_.items[item].sign.empty())
            firsts.emplace(drawing_.items[item].sign, item);
    for (const auto& [name, first] : firsts) {
        beginBlock(name);
        std::size_t part = first;
        do {
            zero_ = drawing_.items[part].signAt;
            item(part);
            ++part;
        } while (part < drawing_.items.size() && isLaterOfSign(part));
        endBlock();
    }
    pair(0, "ENDSEC");
}

void DxfWriter::item(std::size_t number)
{
    item_ = number;
    layer_ = layers_.at(drawing_.items[number].layer);
    std::visit(*this, drawing_.items[number].shape);
}

void DxfWriter::entities()
{
    pair(0, "SECTION");
    pair(2, "ENTITIES");
    zero_ = {0, drawing_.height};
    for (std::size_t number = 0; number < drawing_.items.size(); ++number) {
        const std::string& sign = drawing_.items[number].sign;
        layer_ = layers_.at(drawing_.items[number].layer);
        if (sign.empty()) {
            item(number);
        } else if (!isLaterOfSign(number)) {
            head("INSERT", nullptr);
            pair(2, sign);
            spot(drawing_.items[number].signAt);
        }
    }
    pair(0, "ENDSEC");
    pair(0, "EOF");
}

std::string DxfWriter::write()
{
    for (const Item& item : drawing_.items) {
        const auto* area = std::get_if<Area>(&item.shape);
        strokes_.push_back(area ? hatchStrokes(*area, hatches_) : HatchStrokes());
        const auto own = drawing_.layerNames.find(item.layer);
        const bool isNamed = own != drawing_.layerNames.end() && !own->second.empty();
        layers_.emplace(
            item.layer, dxfName(isNamed ? own->second : usualNames[static_cast<std::size_t>(item.layer)]));
    }
    zero_ = {0, drawing_.height};
    header();
    tables();
    blocks();
    entities();
    return std::move(out_);
}

} // namespace

std::string toDxf(const Drawing& drawing, const Hatches& hatches)
{
    return DxfWriter(drawing, hatches).write();
}
