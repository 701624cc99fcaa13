#include "plots/subsidence_picture.h"

#include "core/base/typed_number.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double top = 18; // mm, of the graphs
constexpr double high = 120;
constexpr double axisLeft = 14;
constexpr double graphWide = 66;
constexpr double between = 8;
constexpr double letter = 2.2;
constexpr Pen axis{0.3, {}, Dash::Solid};
constexpr Pen grid{0.1, {170, 170, 170}, Dash::Solid};

// 1, 2 or 5 of a power of ten, so that some five steps make the whole.
double stepFor(double whole)
{
    const double rough = whole / 5;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (factor * power >= rough)
            return factor * power;
    return 10 * power;
}

int decimalsOf(double step)
{
    return std::max(0, static_cast<int>(std::ceil(-std::log10(step) - 1e-9)));
}

class Picture
{
public:
    Picture(Drawing& drawing, double depth)
        : drawing_(drawing)
        , perMetre_(high / depth)
        , depth_(depth)
    {
    }

    double y(double depth) const { return top + depth * perMetre_; }
    void line(std::vector<Spot> points, const Pen& pen, Layer layer = Layer::Grid)
    {
        drawing_.items.push_back({layer, 0, Line{std::move(points), pen, false}});
    }
    void text(std::wstring text, const Spot& at, Align align, double height = letter)
    {
        drawing_.items.push_back({Layer::Text, 0, Text{std::move(text), at, height, align}});
    }

    void depthAxis()
    {
        const double step = stepFor(depth_);
        for (double depth = 0; depth <= depth_ + 1e-9; depth += step) {
            text(numberText(depth, decimalsOf(step)), {axisLeft - 2, y(depth) + letter / 2}, Align::Right);
            for (int graph = 0; graph < 2; ++graph) {
                const double left = axisLeft + graph * (graphWide + between);
                line({{left, y(depth)}, {left + graphWide, y(depth)}}, grid);
            }
        }
        text(L"Глубина, м", {axisLeft - 2, top - 4}, Align::Right, 1.8);
    }

    // The frame of a graph with the values along its upper edge; answers millimetres for one of them.
    double values(int graph, double greatest, const wchar_t* title)
    {
        const double left = axisLeft + graph * (graphWide + between);
        const double step = stepFor(greatest);
        const double whole = std::ceil(greatest / step - 1e-9) * step;
        const double scale = graphWide / whole;
        for (double value = 0; value <= whole + step / 2; value += step) {
            line({{left + value * scale, top}, {left + value * scale, top + high}}, grid);
            text(numberText(value, decimalsOf(step)), {left + value * scale, top - 2}, Align::Centre);
        }
        line({{left, top},
                 {left + graphWide, top},
                 {left + graphWide, top + high},
                 {left, top + high},
                 {left, top}},
            axis);
        text(title, {left + graphWide / 2, top - 7}, Align::Centre);
        return scale;
    }

private:
    Drawing& drawing_;
    double perMetre_;
    double depth_;
};

} // namespace

Drawing subsidencePicture(const Subsidence& subsidence, const std::wstring& title)
{
    Drawing drawing;
    drawing.title = title;
    drawing.width = 160;
    drawing.height = top + high + 5;
    double depth = 1;
    double stress = 50;
    double relative = leastRelativeSubsidence * 2;
    for (const SubsidencePart& part : subsidence.parts) {
        depth = std::max(depth, part.toM);
        stress = std::max(stress, part.stressKPa.value_or(0));
        relative = std::max(relative, part.relative.value_or(0));
    }
    Picture picture(drawing, depth);
    picture.text(title, {axisLeft, 5}, Align::Left, 3);
    picture.depthAxis();
    const double stressScale = picture.values(0, stress, L"Напряжение от собственного веса, кПа");
    const double relativeScale = picture.values(1, relative, L"Относительная просадочность");
    const double left = axisLeft + graphWide + between;
    std::vector<Spot> curve;
    const auto flush = [&] {
        if (curve.size() > 1)
            picture.line(curve, {0.5, {0, 90, 180}, Dash::Solid}, Layer::Graph);
        curve.clear();
    };
    for (const SubsidencePart& part : subsidence.parts) {
        const double middle = (part.fromM + part.toM) / 2;
        if (part.stressKPa)
            curve.push_back({axisLeft + *part.stressKPa * stressScale, picture.y(middle)});
        else
            flush();
        if (!part.relative)
            continue;
        const double right = left + *part.relative * relativeScale;
        const bool subsides = *part.relative >= leastRelativeSubsidence;
        Area bar;
        bar.rings = {{{left, picture.y(part.fromM)},
            {right, picture.y(part.fromM)},
            {right, picture.y(part.toM)},
            {left, picture.y(part.toM)}}};
        bar.ground = subsides ? Color{240, 190, 140} : Color{225, 225, 225};
        bar.hasGround = true;
        drawing.items.push_back({Layer::Ground, 0, std::move(bar)});
        picture.line({{left, picture.y(part.fromM)},
                         {right, picture.y(part.fromM)},
                         {right, picture.y(part.toM)},
                         {left, picture.y(part.toM)}},
            {0.2, {}, Dash::Solid},
            Layer::Graph);
    }
    flush();
    const double limit = left + leastRelativeSubsidence * relativeScale;
    picture.line({{limit, top}, {limit, top + high}}, {0.35, {200, 30, 30}, Dash::Dashed}, Layer::Graph);
    return drawing;
}
