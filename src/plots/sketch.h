#pragma once

#include "drawing/drawing.h"
#include "drawing/hit_test.h"

#include <string_view>

// Pen widths on paper, mm. The standard gives them as shares of a thick line of 0.5 to 1.4.
inline constexpr double thickLine = 0.5;
inline constexpr double middleLine = 0.3;
inline constexpr double thinLine = 0.18;

// What goes into a box of a table.
struct BoxText {
    double height = 2.5; // mm; made smaller, down to smallest, where the text does not fit
    Align align = Align::Centre;
    Font font = Font::Plain;
    double smallest = 1.6;
    bool isTurned = false; // reads upwards
    double padding = 0.8;
};

// A drawing that grows by lines, boxes and texts. Extents are boxes on paper.
class Sketch
{
public:
    explicit Sketch(Drawing& drawing)
        : drawing_(drawing)
    {
    }

    Drawing& drawing() { return drawing_; }
    // Of what is added from now on.
    void setLayer(Layer layer) { layer_ = layer; }
    void setId(std::int64_t id) { id_ = id; }
    // What is added from now on belongs to a sign at that place; an empty name ends it.
    void setSign(std::string name, const Spot& at = {});

    void line(const Spot& from, const Spot& to, double width = thinLine, const Color& color = {});
    void line(std::vector<Spot> points, const Pen& pen, bool isClosed = false);
    void box(const Extent& box, double width = thinLine);
    void text(std::wstring_view text,
        const Spot& at,
        double height,
        Align align = Align::Left,
        Font font = Font::Plain,
        const Color& color = {});
    // In the middle of the height of the box, broken into lines where it needs them. What does not fit in the
    // smallest height is cut with an ellipsis, never drawn beyond the box.
    void textInBox(std::wstring_view text, const Extent& box, const BoxText& look = {});
    void add(std::variant<Line, Area, Circle, Text> shape);

private:
    Drawing& drawing_;
    Layer layer_ = Layer::Table;
    std::int64_t id_ = 0;
    std::string sign_;
    Spot signAt_;
};

// Base lines of lines of text in a column stand so far apart, mm.
double textLineDistance(double height);
