#include "plots/subsidence_picture.h"

#include "core/base/typed_number.h"
#include "dictionaries/dictionary.h"
#include "drawing/text_layout.h"
#include "plots/graph.h"
#include "plots/laboratory_curves.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double top = 18; // mm, of the graphs
constexpr double high = 120;
constexpr double stripLeft = 14;
constexpr double stripWide = 14;
constexpr double axisLeft = stripLeft + stripWide + 2;
constexpr double graphWide = 62;
constexpr double between = 14; // the numbers of two axes end there
constexpr double letter = 2.2;
constexpr Pen axis{0.3, {}, Dash::Solid};
constexpr Pen stressPen{0.5, {0, 90, 180}, Dash::Solid};
constexpr Pen pressurePen{0.5, {190, 90, 0}, Dash::Dashed};
constexpr Pen grid{0.1, {170, 170, 170}, Dash::Solid};

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
        Item& item = drawing_.items.emplace_back();
        item.layer = layer;
        item.shape.emplace<Line>(Line{std::move(points), pen, false});
    }
    void text(std::wstring text, const Spot& at, Align align, double height = letter)
    {
        drawing_.items.push_back({Layer::Text, 0, Text{std::move(text), at, height, align}});
    }

    void depthAxis(const wchar_t* title)
    {
        const double step = axisStep(depth_);
        for (const double depth : stepsBetween(0, depth_, step)) {
            text(numberText(depth, decimalsOf(step)), {stripLeft - 2, y(depth) + letter / 2}, Align::Right);
            for (int graph = 0; graph < 2; ++graph) {
                const double left = axisLeft + graph * (graphWide + between);
                line({{left, y(depth)}, {left + graphWide, y(depth)}}, grid);
            }
        }
        text(title, {stripLeft - 12, top - 4}, Align::Left, 1.8);
    }

    // The frame of a graph with the values along its upper edge; answers millimetres for one of them.
    double values(int graph, double greatest, const wchar_t* title)
    {
        const double left = axisLeft + graph * (graphWide + between);
        const double step = axisStep(greatest);
        const double whole = std::ceil(greatest / step - 1e-9) * step;
        const double scale = graphWide / whole;
        for (const double value : stepsBetween(0, whole, step)) {
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

    void strip(std::span<const SubsidenceStratum> strata)
    {
        for (const SubsidenceStratum& stratum : strata) {
            const double from = y(std::min(stratum.fromM, depth_));
            const double to = y(std::min(stratum.toM, depth_));
            if (to - from < 0.01)
                continue;
            const double right = stripLeft + stripWide;
            line({{stripLeft, from}, {right, from}, {right, to}, {stripLeft, to}, {stripLeft, from}}, axis);
            if (to - from > letter + 0.6)
                text(shortenedText(stratum.name, Font::Plain, letter, stripWide - 1),
                    {stripLeft + stripWide / 2, (from + to + letter) / 2 - 0.2},
                    Align::Centre);
        }
    }

    // Through the middles of parts that follow each other; x rises with the value, y with the depth.
    void curve(const std::vector<Spot>& spots, const Pen& pen, bool isSmooth)
    {
        if (spots.size() < 2)
            return;
        if (!isSmooth) {
            line(spots, pen, Layer::Graph);
            return;
        }
        std::vector<Spot> turned;
        turned.reserve(spots.size());
        for (const Spot& spot : spots)
            turned.push_back({spot.y, spot.x});
        std::vector<Spot> smooth;
        for (const Spot& spot : monotoneCurve(turned, 8))
            smooth.push_back({spot.y, spot.x});
        line(std::move(smooth), pen, Layer::Graph);
    }

private:
    Drawing& drawing_;
    double perMetre_;
    double depth_;
};

void drawStress(Picture& picture,
    const Subsidence& subsidence,
    std::span<const SubsidenceStratum> strata,
    double scale,
    bool isSmooth)
{
    std::vector<Spot> curve;
    for (const SubsidencePart& part : subsidence.parts) {
        if (part.stressKPa) {
            curve.push_back({axisLeft + *part.stressKPa * scale, picture.y((part.fromM + part.toM) / 2)});
            continue;
        }
        picture.curve(curve, stressPen, isSmooth);
        curve.clear();
    }
    picture.curve(curve, stressPen, isSmooth);
    for (const SubsidenceStratum& stratum : strata)
        if (stratum.initialPressureKPa) {
            const double x = axisLeft + *stratum.initialPressureKPa * scale;
            picture.line(
                {{x, picture.y(stratum.fromM)}, {x, picture.y(stratum.toM)}}, pressurePen, Layer::Graph);
        }
}

void drawRelative(
    Drawing& drawing, Picture& picture, const Subsidence& subsidence, double scale, bool isSmooth)
{
    const double left = axisLeft + graphWide + between;
    std::vector<Spot> curve;
    for (const SubsidencePart& part : subsidence.parts) {
        if (!part.relative) {
            picture.curve(curve, stressPen, isSmooth);
            curve.clear();
            continue;
        }
        const double right = left + std::max(0.0, *part.relative) * scale;
        const double from = picture.y(part.fromM);
        const double to = picture.y(part.toM);
        Area bar;
        bar.rings = {{{left, from}, {right, from}, {right, to}, {left, to}}};
        const bool subsides = *part.relative >= leastRelativeSubsidence;
        bar.ground = subsides ? Color{240, 190, 140} : Color{225, 225, 225};
        bar.hasGround = true;
        drawing.items.push_back({Layer::Ground, 0, std::move(bar)});
        picture.line(
            {{left, from}, {right, from}, {right, to}, {left, to}}, {0.2, {}, Dash::Solid}, Layer::Graph);
        curve.push_back({right, (from + to) / 2});
    }
    picture.curve(curve, stressPen, isSmooth);
    const double limit = left + leastRelativeSubsidence * scale;
    picture.line({{limit, top}, {limit, top + high}}, {0.35, {200, 30, 30}, Dash::Dashed}, Layer::Graph);
}

} // namespace

Drawing subsidencePicture(const Subsidence& subsidence,
    std::span<const SubsidenceStratum> strata,
    const std::wstring& title,
    const SubsidenceLook& look)
{
    const bool isUkrainian = look.language == languageUkrainian;
    Drawing drawing;
    drawing.title = title;
    drawing.width = 172;
    drawing.height = top + high + 12;
    double depth = 1;
    double stress = 50;
    double relative = leastRelativeSubsidence * 2;
    for (const SubsidencePart& part : subsidence.parts) {
        depth = std::max(depth, part.toM);
        stress = std::max(stress, part.stressKPa.value_or(0));
        relative = std::max(relative, part.relative.value_or(0));
    }
    for (const SubsidenceStratum& stratum : strata)
        stress = std::max(stress, stratum.initialPressureKPa.value_or(0));
    Picture picture(drawing, depth);
    picture.text(title, {stripLeft, 5}, Align::Left, 3);
    picture.depthAxis(isUkrainian ? L"Глибина, м" : L"Глубина, м");
    picture.strip(strata);
    const double stressScale = picture.values(0, stress, isUkrainian ? L"Тиск, кПа" : L"Давление, кПа");
    const double relativeScale =
        picture.values(1, relative, isUkrainian ? L"Відносна просідність" : L"Относительная просадочность");
    drawStress(picture, subsidence, strata, stressScale, look.isSmooth);
    drawRelative(drawing, picture, subsidence, relativeScale, look.isSmooth);
    const double key = top + high + 6;
    picture.line({{axisLeft, key}, {axisLeft + 8, key}}, stressPen, Layer::Graph);
    picture.text(isUkrainian ? L"від власної ваги" : L"от собственного веса",
        {axisLeft + 10, key + letter / 2},
        Align::Left);
    picture.line({{axisLeft + 46, key}, {axisLeft + 54, key}}, pressurePen, Layer::Graph);
    picture.text(isUkrainian ? L"початковий тиск просідання" : L"начальное просадочное",
        {axisLeft + 56, key + letter / 2},
        Align::Left);
    return drawing;
}
