#include "picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <sstream>

namespace
{

constexpr double panelWidth = 420;
constexpr double panelHeight = 320;
constexpr double left = 62;
constexpr double right = 110; // room for the names
constexpr double top = 66;
constexpr double bottom = 48;
constexpr std::size_t panelsInRow = 2;
constexpr double headHeight = 36;

// Told apart by people who do not see all colours.
constexpr std::array<const char*, 8> colours = {
    "#0072b2", "#d55e00", "#009e73", "#cc79a7", "#56b4e9", "#e69f00", "#555555", "#7f3c8d"};

// One axis, from the decade below the smallest value.
struct Axis {
    double low = std::numeric_limits<double>::max();
    double high = 0;

    void take(double value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    void beginAtDecade() { low = std::pow(10, std::floor(std::log10(low) + 1e-9)); }
    void endAtDecade() { high = std::max(low * 10, std::pow(10, std::ceil(std::log10(high) - 1e-9))); }
    // From 0 to 1.
    double at(double value) const { return std::log10(value / low) / std::log10(high / low); }
};

std::string number(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

// 1000000 as a person reads it.
std::string tick(double value)
{
    if (value >= 999999)
        return number(value / 1e6) + " M";
    return value >= 9999 ? number(value / 1e3) + " k" : number(value);
}

class PanelDrawing
{
public:
    PanelDrawing(std::ostream& out, const Panel& panel, double x, double y)
        : out_(out)
        , panel_(panel)
        , x_(x)
        , y_(y)
    {
        for (const auto& [name, points] : panel.curves)
            for (const auto& [size, value] : points) {
                xAxis_.take(size);
                yAxis_.take(value);
            }
        xAxis_.beginAtDecade();
        yAxis_.beginAtDecade();
        yAxis_.endAtDecade();
    }

    void draw()
    {
        text(x_ + left, y_ + top - 30, "font-weight='bold'", panel_.title);
        text(x_ + left, y_ + top - 12, "class='axis'", panel_.yAxis);
        text(x_ + panelWidth - right, y_ + panelHeight - 10, "class='axis' text-anchor='end'", panel_.xAxis);
        drawAxes();
        std::size_t colour = 0;
        for (const auto& [name, points] : panel_.curves)
            drawCurve(name, points, colours[colour++ % colours.size()]);
        drawNames();
    }

private:
    struct Name {
        double y;
        std::string text;
        const char* colour;
    };

    double across(double size) const { return x_ + left + xAxis_.at(size) * (panelWidth - left - right); }
    double down(double value) const
    {
        return y_ + panelHeight - bottom - yAxis_.at(value) * (panelHeight - top - bottom);
    }

    void text(double x, double y, const std::string& style, const std::string& words)
    {
        out_ << "<text x='" << x << "' y='" << y << "' " << style << ">" << words << "</text>\n";
    }
    void line(double x1, double y1, double x2, double y2)
    {
        out_ << "<line class='grid' x1='" << x1 << "' y1='" << y1 << "' x2='" << x2 << "' y2='" << y2
             << "'/>\n";
    }

    void drawAxes()
    {
        for (double value = yAxis_.low; value < yAxis_.high * 1.01; value *= 10) {
            line(x_ + left, down(value), x_ + panelWidth - right, down(value));
            text(x_ + left - 6, down(value) + 4, "class='axis' text-anchor='end'", tick(value));
        }
        for (double size = xAxis_.low; size < xAxis_.high * 1.01; size *= 10) {
            line(across(size), y_ + panelHeight - bottom, across(size), y_ + panelHeight - bottom + 5);
            text(across(size),
                y_ + panelHeight - bottom + 18,
                "class='axis' text-anchor='middle'",
                tick(size));
        }
    }

    void drawCurve(
        const std::string& name, const std::vector<std::pair<double, double>>& points, const char* colour)
    {
        out_ << "<polyline fill='none' stroke-width='2' stroke-linejoin='round' stroke='" << colour
             << "' points='";
        for (const auto& [size, value] : points)
            out_ << across(size) << ',' << down(value) << ' ';
        out_ << "'/>\n";
        names_.push_back({down(points.back().second) + 4, name, colour});
    }

    // Beside the ends of their curves, pushed apart where those are close.
    void drawNames()
    {
        std::sort(names_.begin(), names_.end(), [](const Name& a, const Name& b) { return a.y < b.y; });
        constexpr double apart = 13;
        for (std::size_t i = 1; i < names_.size(); ++i)
            names_[i].y = std::max(names_[i].y, names_[i - 1].y + apart);
        for (const Name& name : names_)
            text(x_ + panelWidth - right + 6,
                name.y,
                std::string("style='fill:") + name.colour + "'",
                name.text);
    }

    std::ostream& out_;
    const Panel& panel_;
    double x_;
    double y_;
    Axis xAxis_;
    Axis yAxis_;
    std::vector<Name> names_;
};

} // namespace

void drawPicture(std::ostream& out, const std::string& title, const std::vector<Panel>& panels)
{
    const std::size_t rows = (panels.size() + panelsInRow - 1) / panelsInRow;
    const std::size_t columns = std::min(panels.size(), panelsInRow);
    const double width = panelWidth * static_cast<double>(columns);
    const double height = headHeight + panelHeight * static_cast<double>(rows);
    out << "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 " << width << ' ' << height << "' width='"
        << width << "' height='" << height << "'>\n"
        << "<style>text{font:12px sans-serif;fill:#222}.axis{font-size:11px;fill:#555}"
        << ".grid{stroke:#ddd}</style>\n<rect width='100%' height='100%' fill='white'/>\n"
        << "<text x='16' y='26' style='font-size:15px;font-weight:bold'>" << title << "</text>\n";
    for (std::size_t i = 0; i < panels.size(); ++i)
        PanelDrawing(out,
            panels[i],
            panelWidth * static_cast<double>(i % panelsInRow),
            headHeight + panelHeight * static_cast<double>(i / panelsInRow))
            .draw();
    out << "</svg>\n";
}
