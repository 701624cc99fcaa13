#include "drawing/svg.h"

#include "drawing/number_output.h"
#include "drawing/text_layout.h"
#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <span>

namespace
{

constexpr const char* layerNames[] = {"FRAME",
    "STAMP",
    "TABLE",
    "GROUND",
    "HATCH",
    "BOUNDARY",
    "TEXT",
    "ELEMENT",
    "WATER",
    "SAMPLE",
    "GRAPH",
    "GRID"};

void appendAttribute(std::string& out, const char* name, double value)
{
    out.append(" ").append(name).append("=\"");
    appendNumber(out, value);
    out += '"';
}

void appendColor(std::string& out, const char* name, const Color& color)
{
    constexpr char digits[] = "0123456789abcdef";
    out.append(" ").append(name).append("=\"#");
    for (const std::uint8_t part : {color.red, color.green, color.blue}) {
        out += digits[part >> 4U];
        out += digits[part & 15U];
    }
    out += '"';
}

// What XML cannot hold becomes a blank.
void appendEscaped(std::string& out, std::wstring_view text)
{
    for (const char character : toUtf8(text)) {
        if (character == '&')
            out += "&amp;";
        else if (character == '<')
            out += "&lt;";
        else if (character == '>')
            out += "&gt;";
        else
            out += static_cast<unsigned char>(character) < 0x20 ? ' ' : character;
    }
}

void appendSpots(std::string& out, std::span<const Spot> spots)
{
    char mark = 'M';
    for (const Spot& spot : spots) {
        out += mark;
        appendNumber(out, spot.x);
        out += ' ';
        appendNumber(out, spot.y);
        mark = 'L';
    }
}

void appendPen(std::string& out, const Pen& pen)
{
    constexpr const char* dashes[] = {"", "3 1.5", "0.3 1", "5 1.2 0.3 1.2"};
    appendColor(out, "stroke", pen.color);
    appendAttribute(out, "stroke-width", pen.width);
    if (pen.dash != Dash::Solid)
        out.append(" stroke-dasharray=\"").append(dashes[static_cast<std::size_t>(pen.dash)]).append("\"");
}

class SvgWriter
{
public:
    SvgWriter(std::string& out, const Hatches& hatches)
        : out_(out)
        , hatches_(hatches)
    {
    }

    void operator()(const Line& line) const
    {
        out_ += "<path fill=\"none\"";
        appendPen(out_, line.pen);
        out_ += " d=\"";
        appendSpots(out_, line.points);
        out_ += line.closed ? "Z\"/>\n" : "\"/>\n";
    }

    void operator()(const Circle& circle) const
    {
        out_ += "<circle";
        appendAttribute(out_, "cx", circle.centre.x);
        appendAttribute(out_, "cy", circle.centre.y);
        appendAttribute(out_, "r", circle.radius);
        appendPen(out_, circle.pen);
        if (circle.isFilled)
            appendColor(out_, "fill", circle.pen.color);
        else
            out_ += " fill=\"none\"";
        out_ += "/>\n";
    }

    void operator()(const Area& area) const
    {
        if (area.hasGround) {
            out_ += "<path fill-rule=\"evenodd\" stroke=\"none\"";
            appendColor(out_, "fill", area.ground);
            appendRings(area.rings);
        }
        const HatchStrokes strokes = hatchStrokes(area, hatches_);
        if (!strokes.lines.empty()) {
            out_ += "<path fill=\"none\"";
            appendPen(out_, {std::min(area.hatchUnit, 0.18), area.hatchColor});
            out_ += " d=\"";
            for (const HatchStrokes::Segment& line : strokes.lines)
                appendSpots(out_, std::array{line.from, line.to});
            out_ += "\"/>\n";
        }
        for (const HatchStrokes::Dots& dots : strokes.dots)
            appendDots(dots, area.hatchColor);
        if (!strokes.fills.empty()) {
            out_ += "<path stroke=\"none\"";
            appendColor(out_, "fill", area.hatchColor);
            appendRings(strokes.fills);
        }
    }

    void operator()(const Text& text) const
    {
        constexpr const char* fonts[] = {"font-family=\"'Liberation Sans',Arial,sans-serif\"",
            "font-family=\"'Liberation Sans',Arial,sans-serif\" font-weight=\"bold\"",
            "font-family=\"'Liberation Sans',Arial,sans-serif\" font-style=\"italic\"",
            "font-family=\"'Roboto Condensed','Arial Narrow',sans-serif\""};
        constexpr const char* anchors[] = {"", " text-anchor=\"middle\"", " text-anchor=\"end\""};
        if (text.text.empty())
            return;
        out_.append("<text ").append(fonts[static_cast<std::size_t>(text.font)]);
        out_ += anchors[static_cast<std::size_t>(text.align)];
        appendAttribute(out_, "font-size", emOfHeight(text.font, text.height));
        appendColor(out_, "fill", text.color);
        appendAttribute(out_, "x", text.at.x);
        appendAttribute(out_, "y", text.at.y);
        if (text.angle != 0) {
            out_ += " transform=\"rotate(";
            for (const double number : {-text.angle, text.at.x, text.at.y}) {
                appendNumber(out_, number);
                out_ += ' ';
            }
            out_.back() = ')';
            out_ += '"';
        }
        appendAttribute(out_, "textLength", textWidth(text.text, text.font, text.height));
        out_ += " lengthAdjust=\"spacingAndGlyphs\" xml:space=\"preserve\">";
        appendEscaped(out_, text.text);
        out_ += "</text>\n";
    }

private:
    // Each of two half circles.
    void appendDots(const HatchStrokes::Dots& dots, const Color& color) const
    {
        if (dots.centres.empty())
            return;
        std::string arcs;
        for (const double way : {2 * dots.radius, -2 * dots.radius}) {
            arcs += 'a';
            appendNumber(arcs, dots.radius);
            arcs += ' ';
            appendNumber(arcs, dots.radius);
            arcs += " 0 0 0 ";
            appendNumber(arcs, way);
            arcs += " 0";
        }
        out_ += "<path stroke=\"none\"";
        appendColor(out_, "fill", color);
        out_ += " d=\"";
        for (const Spot& centre : dots.centres) {
            appendSpots(out_, std::array{Spot{centre.x - dots.radius, centre.y}});
            out_.append(arcs).append("Z");
        }
        out_ += "\"/>\n";
    }

    void appendRings(const std::vector<std::vector<Spot>>& rings) const
    {
        out_ += " d=\"";
        for (const std::vector<Spot>& ring : rings) {
            appendSpots(out_, ring);
            out_ += 'Z';
        }
        out_ += "\"/>\n";
    }

    std::string& out_;
    const Hatches& hatches_;
};

} // namespace

const char* layerName(Layer layer)
{
    return layerNames[static_cast<std::size_t>(layer)];
}

std::string toSvg(const Drawing& drawing, const Hatches& hatches)
{
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"";
    appendNumber(out, drawing.width);
    out += "mm\" height=\"";
    appendNumber(out, drawing.height);
    out += "mm\" viewBox=\"0 0 ";
    appendNumber(out, drawing.width);
    out += ' ';
    appendNumber(out, drawing.height);
    out += "\">\n<title>";
    appendEscaped(out, drawing.title);
    out += "</title>\n<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
    const SvgWriter writer(out, hatches);
    const Item* before = nullptr;
    for (const Item& item : drawing.items) {
        if (!before || before->layer != item.layer) {
            out += before ? "</g>\n" : "";
            out.append("<g class=\"").append(layerName(item.layer)).append("\">\n");
        }
        std::visit(writer, item.shape);
        before = &item;
    }
    out += before ? "</g>\n</svg>\n" : "</svg>\n";
    return out;
}
