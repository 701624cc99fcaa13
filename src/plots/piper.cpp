#include "plots/piper.h"

#include "drawing/text_layout.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double side = 62; // of a triangle, mm
constexpr double gap = 12; // between the triangles at the bottom
const double high = side * std::sqrt(3.0) / 2;
constexpr double margin = 10;
constexpr double width = 170;
constexpr Pen frame{0.35, {}, Dash::Solid};
constexpr Pen grid{0.1, {150, 150, 150}, Dash::Solid};
constexpr Color colors[] = {
    {0, 90, 180}, {200, 50, 30}, {0, 130, 70}, {150, 80, 170}, {210, 130, 0}, {60, 60, 60}};
constexpr double letter = 2.2;

double diagramHigh()
{
    return 2 * high + gap * std::sqrt(3.0) / 2;
}

// From sides of the left triangle, y upwards from the bottom, to the paper.
class Paper
{
public:
    explicit Paper(Drawing& drawing)
        : drawing_(drawing)
    {
    }

    Spot spot(double x, double y) const { return {margin + x, margin + 4 + diagramHigh() - y}; }
    void line(Layer layer, std::vector<Spot> points, const Pen& pen, bool closed = false)
    {
        drawing_.items.push_back({layer, 0, Line{std::move(points), pen, closed}});
    }
    void text(std::wstring text,
        const Spot& at,
        Align align = Align::Centre,
        double angle = 0,
        double height = letter)
    {
        drawing_.items.push_back({Layer::Text, 0, Text{std::move(text), at, height, align, angle}});
    }

    // A triangle from x on, with rules each 20 %.
    void triangle(double x, const wchar_t* left, const wchar_t* right, const wchar_t* top)
    {
        const Spot a = spot(x, 0);
        const Spot b = spot(x + side, 0);
        const Spot c = spot(x + side / 2, high);
        line(Layer::Grid, {a, b, c}, frame, true);
        const auto between = [](const Spot& from, const Spot& to, double part) {
            return Spot{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
        };
        for (const double part : {0.2, 0.4, 0.6, 0.8}) {
            line(Layer::Grid, {between(a, c, part), between(b, c, part)}, grid);
            line(Layer::Grid, {between(a, b, part), between(c, b, part)}, grid);
            line(Layer::Grid, {between(b, a, part), between(c, a, part)}, grid);
        }
        text(left, spot(x - 1, -4), Align::Centre);
        text(right, spot(x + side + 1, -4), Align::Centre);
        // The tops stand under the rhomb: their names beside them, outside.
        text(top, spot(x + side / 2 + (x == 0 ? -2 : 2), high + 0.5), x == 0 ? Align::Right : Align::Left);
    }

    void rhomb()
    {
        const double middle = side + gap / 2;
        const double low = gap * std::sqrt(3.0) / 2;
        const Spot bottom = spot(middle, low);
        const Spot left = spot(middle - side / 2, low + high);
        const Spot right = spot(middle + side / 2, low + high);
        const Spot top = spot(middle, low + 2 * high);
        line(Layer::Grid, {bottom, left, top, right}, frame, true);
        const auto between = [](const Spot& from, const Spot& to, double part) {
            return Spot{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
        };
        for (const double part : {0.2, 0.4, 0.6, 0.8}) {
            line(Layer::Grid, {between(bottom, left, part), between(right, top, part)}, grid);
            line(Layer::Grid, {between(bottom, right, part), between(left, top, part)}, grid);
        }
        text(L"SO4 + Cl", {(left.x + top.x) / 2 - 3, (left.y + top.y) / 2 - 2}, Align::Centre, 60);
        text(L"Ca + Mg", {(right.x + top.x) / 2 + 3, (right.y + top.y) / 2 - 2}, Align::Centre, -60);
    }

    void mark(const Spot& at, std::size_t number)
    {
        const Color color = colors[number % std::size(colors)];
        drawing_.items.push_back({Layer::Graph,
            static_cast<std::int64_t>(number) + 1,
            Circle{at, 0.9, {0.2, color, Dash::Solid}, true}});
        drawing_.items.push_back({Layer::Graph,
            static_cast<std::int64_t>(number) + 1,
            Text{std::to_wstring(number + 1),
                {at.x + 1.2, at.y - 0.8},
                1.8,
                Align::Left,
                0,
                Font::Plain,
                color}});
    }

private:
    Drawing& drawing_;
};

double shareOf(const WaterChemistry& chemistry, std::initializer_list<const char*> names)
{
    double sum = 0;
    for (const char* name : names)
        if (const IonShare* share = chemistry.share(name))
            sum += share->meq;
    return sum;
}

} // namespace

std::optional<PiperSample> piperSample(const WaterChemistry& chemistry, std::wstring name)
{
    PiperSample sample{std::move(name),
        shareOf(chemistry, {"Ca"}),
        shareOf(chemistry, {"Mg"}),
        shareOf(chemistry, {"Na", "K"}),
        shareOf(chemistry, {"HCO3", "CO3"}),
        shareOf(chemistry, {"SO4"}),
        shareOf(chemistry, {"Cl", "NO3"})};
    const double cations = sample.calcium + sample.magnesium + sample.sodium;
    const double anions = sample.bicarbonate + sample.sulphate + sample.chloride;
    if (cations <= 0 || anions <= 0)
        return std::nullopt;
    for (double* share : {&sample.calcium, &sample.magnesium, &sample.sodium})
        *share *= 100 / cations;
    for (double* share : {&sample.bicarbonate, &sample.sulphate, &sample.chloride})
        *share *= 100 / anions;
    return sample;
}

Spot triangleSpot(double first, double second, double top)
{
    const double sum = first + second + top;
    return {(second + top / 2) / sum, top / sum * std::sqrt(3.0) / 2};
}

Drawing piperDiagram(std::span<const PiperSample> samples)
{
    Drawing drawing;
    drawing.title = L"Диаграмма Пайпера";
    drawing.width = width;
    constexpr double row = 4.2;
    constexpr double columnWide = 52;
    constexpr std::size_t columns = 3;
    const std::size_t lines = (samples.size() + columns - 1) / columns;
    const double listTop = margin + 4 + diagramHigh() + 11;
    drawing.height = listTop + static_cast<double>(lines) * row + 2;
    Paper paper(drawing);
    paper.triangle(0, L"Ca", L"Na + K", L"Mg");
    paper.triangle(side + gap, L"HCO3", L"Cl", L"SO4");
    paper.rhomb();
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const PiperSample& sample = samples[i];
        const Spot cation = triangleSpot(sample.calcium, sample.sodium, sample.magnesium);
        const Spot anion = triangleSpot(sample.bicarbonate, sample.chloride, sample.sulphate);
        const Spot left{cation.x * side, cation.y * side};
        const Spot right{side + gap + anion.x * side, anion.y * side};
        // Along the outer edges of both triangles up to where they meet.
        const double slope = std::sqrt(3.0);
        const double x = ((right.y - left.y) / slope + left.x + right.x) / 2;
        const double y = left.y + (x - left.x) * slope;
        for (const Spot& spot : {left, right, Spot{x, y}})
            paper.mark(paper.spot(spot.x, spot.y), i);
        const std::size_t line = i / columns;
        const Spot place{margin + static_cast<double>(i % columns) * columnWide,
            listTop + static_cast<double>(line) * row};
        paper.text(
            shortenedText(std::to_wstring(i + 1) + L" – " + sample.name, Font::Plain, letter, columnWide - 3),
            place,
            Align::Left);
    }
    return drawing;
}
