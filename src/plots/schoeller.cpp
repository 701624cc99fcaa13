#include "plots/schoeller.h"

#include "dictionaries/dictionary.h"
#include "drawing/text_layout.h"
#include "plots/sketch.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

constexpr double width = 170;
constexpr double left = 22;
constexpr double right = 164;
constexpr double top = 12;
constexpr double high = 96;
constexpr double letter = 2.2;
constexpr Pen frame{0.35, {}, Dash::Solid};
constexpr Pen decadeRule{0.2, {120, 120, 120}, Dash::Solid};
constexpr Pen fineRule{0.08, {180, 180, 180}, Dash::Solid};
constexpr Color colors[] = {
    {0, 90, 180}, {200, 50, 30}, {0, 130, 70}, {150, 80, 170}, {210, 130, 0}, {60, 60, 60}};

struct Axis {
    const wchar_t* title;
    std::array<const char*, 2> ions; // the second may be none
};
constexpr Axis axes[] = {
    {L"Ca", {"Ca", nullptr}},
    {L"Mg", {"Mg", nullptr}},
    {L"Na + K", {"Na", "K"}},
    {L"Cl + NO3", {"Cl", "NO3"}},
    {L"SO4", {"SO4", nullptr}},
    {L"HCO3 + CO3", {"HCO3", "CO3"}},
};

double axisX(std::size_t axis)
{
    return left + (right - left) * static_cast<double>(axis) / static_cast<double>(std::size(axes) - 1);
}

class Paper
{
public:
    Paper(Drawing& drawing, const Decades& decades)
        : drawing_(drawing)
        , decades_(decades)
    {
    }

    double y(double meq) const
    {
        return top + high * (decades_.to - std::log10(meq)) / (decades_.to - decades_.from);
    }
    void line(Layer layer, std::vector<Spot> points, const Pen& pen, std::int64_t id = 0)
    {
        Sketch sketch(drawing_);
        sketch.setLayer(layer);
        sketch.setId(id);
        sketch.line(std::move(points), pen);
    }
    void text(std::wstring text, const Spot& at, Align align, double angle = 0)
    {
        Sketch sketch(drawing_);
        sketch.setLayer(Layer::Text);
        sketch.add(Text{std::move(text), at, letter, align, angle});
    }

    void grid(const wchar_t* title)
    {
        for (int decade = decades_.from; decade <= decades_.to; ++decade) {
            const double whole = std::pow(10.0, decade);
            line(Layer::Grid, {{left, y(whole)}, {right, y(whole)}}, decadeRule);
            text(significantText(whole, 1), {left - 2, y(whole) + letter / 2}, Align::Right);
            for (int part = 2; part < 10 && decade < decades_.to; ++part)
                line(Layer::Grid, {{left, y(part * whole)}, {right, y(part * whole)}}, fineRule);
        }
        for (std::size_t i = 0; i < std::size(axes); ++i) {
            line(Layer::Grid, {{axisX(i), top}, {axisX(i), top + high}}, frame);
            text(axes[i].title, {axisX(i), top - 3}, Align::Centre);
        }
        text(title, {7, top + high / 2}, Align::Centre, 90);
    }

    void sample(const SchoellerSample& sample, std::size_t number)
    {
        const Color color = colors[number % std::size(colors)];
        const auto id = static_cast<std::int64_t>(number) + 1;
        std::vector<Spot> run;
        const auto flush = [&] {
            if (run.size() > 1)
                line(Layer::Graph, run, {0.35, color, Dash::Solid}, id);
            run.clear();
        };
        bool isNamed = false;
        for (std::size_t i = 0; i < std::size(axes); ++i) {
            if (!sample.meq[i]) {
                flush();
                continue;
            }
            const Spot spot{axisX(i), y(*sample.meq[i])};
            run.push_back(spot);
            Sketch sketch(drawing_);
            sketch.setLayer(Layer::Graph);
            sketch.setId(id);
            sketch.add(Circle{spot, 0.8, {0.2, color, Dash::Solid}, true});
            if (!std::exchange(isNamed, true))
                sketch.text(std::to_wstring(number + 1),
                    {spot.x + 1.2, spot.y - 0.9},
                    1.8,
                    Align::Left,
                    Font::Plain,
                    color);
        }
        flush();
    }

private:
    Drawing& drawing_;
    Decades decades_;
};

} // namespace

std::optional<SchoellerSample> schoellerSample(const WaterChemistry& chemistry, std::wstring name)
{
    SchoellerSample sample{std::move(name), {}};
    int known = 0;
    for (std::size_t i = 0; i < std::size(axes); ++i) {
        double sum = 0;
        for (const char* ion : axes[i].ions)
            if (const IonShare* share = ion ? chemistry.share(ion) : nullptr)
                sum += share->meq;
        if (sum <= 0)
            continue;
        sample.meq[i] = sum;
        ++known;
    }
    return known < 2 ? std::nullopt : std::optional(std::move(sample));
}

Decades decadesOf(std::span<const SchoellerSample> samples)
{
    std::optional<double> least;
    std::optional<double> most;
    for (const SchoellerSample& sample : samples)
        for (const Number& meq : sample.meq)
            if (meq) {
                least = std::min(least.value_or(*meq), *meq);
                most = std::max(most.value_or(*meq), *meq);
            }
    if (!least)
        return {};
    Decades decades{
        static_cast<int>(std::floor(std::log10(*least))), static_cast<int>(std::ceil(std::log10(*most)))};
    while (decades.to - decades.from < 2)
        ++decades.to;
    return decades;
}

Drawing schoellerDiagram(std::span<const SchoellerSample> samples, int language)
{
    const bool isUkrainian = language == languageUkrainian;
    Drawing drawing;
    drawing.title = isUkrainian ? L"Діаграма Шеллера" : L"Диаграмма Шеллера";
    drawing.width = width;
    constexpr double row = 4.2;
    constexpr double columnWide = 52;
    constexpr std::size_t columns = 3;
    const std::size_t lines = (samples.size() + columns - 1) / columns;
    const double listTop = top + high + 8;
    drawing.height = listTop + static_cast<double>(lines) * row + 2;
    Paper paper(drawing, decadesOf(samples));
    paper.grid(isUkrainian ? L"мг-екв/л" : L"мг-экв/л");
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const std::size_t line = i / columns;
        paper.sample(samples[i], i);
        paper.text(
            shortenedText(
                std::to_wstring(i + 1) + L" – " + samples[i].name, Font::Plain, letter, columnWide - 3),
            {left - 12 + static_cast<double>(i % columns) * columnWide,
                listTop + static_cast<double>(line) * row},
            Align::Left);
    }
    return drawing;
}
