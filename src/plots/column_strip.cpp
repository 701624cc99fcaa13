#include "plots/column_sheet.h"
#include "site/soil_hatches.h"

#include <algorithm>
#include <iterator>

// The strip of a column: layers with their hatches, the narrow one of consistency, lines to the rows.

namespace
{

constexpr double consistencyWidth = 4;

// Hundredths of a millimetre for a unit of a hatch: finer ones run together to black, of coarser ones a strip
// shows no stroke.
constexpr int finestHatch = 2;
constexpr int coarsestHatch = 1000;

// How a consistency is shown in the narrow strip, from black for hard to white for fluid. The signs of the
// standard were not at hand.
struct ConsistencySign {
    bool isFilled;
    double spacing; // of the strokes, mm; 0: none
    Dash dash;
};
ConsistencySign signOfConsistency(std::int32_t kind)
{
    constexpr ConsistencySign hard = {true, 0, Dash::Solid};
    constexpr ConsistencySign semiHard = {false, 0.7, Dash::Solid};
    constexpr ConsistencySign stiff = {false, 1.4, Dash::Solid};
    constexpr ConsistencySign soft = {false, 2.8, Dash::Solid};
    constexpr ConsistencySign fluidPlastic = {false, 2.8, Dash::Dotted};
    constexpr ConsistencySign fluid = {false, 0, Dash::Solid};
    // In the order of consistencyNames.
    constexpr ConsistencySign signs[] = {hard,
        stiff,
        fluid,
        semiHard,
        stiff,
        soft,
        fluidPlastic,
        hard,
        semiHard,
        stiff,
        soft,
        fluidPlastic,
        fluid};
    const bool isKnown = kind >= 0 && static_cast<std::size_t>(kind) < std::size(signs);
    return isKnown ? signs[kind] : fluid;
}

} // namespace

void ColumnSheet::drawStrip(const PlacedLane& lane)
{
    const double begin = data_.consistency.empty() ? lane.left : lane.left + consistencyWidth;
    for (const ColumnRow& row : page_.rows)
        if (row.bottom > row.top)
            drawLayer(row, begin, lane.right);
    if (!data_.consistency.empty())
        drawConsistency(lane.left, begin);
}

void ColumnSheet::drawLayer(const ColumnRow& row, double left, double right)
{
    const ColumnLayer& layer = *row.layer;
    const double top = yOf(row.top);
    const double bottom = yOf(row.bottom);
    Area area;
    area.rings = {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
    area.hatch = layer.hatch;
    area.hatchUnit = std::clamp(look_.hatchScale, finestHatch, coarsestHatch) / 100.0;
    area.origin = {left, bodyTop_};
    const SoilColor soil = soilColorOf(layer.hatch);
    if (layer.color) {
        area.ground = *layer.color;
        area.hasGround = true;
    } else if (look_.hasGrounds && soil != SoilColor::None) {
        const Color colors[] = {{}, look_.sand, look_.sandyLoam, look_.loam, look_.clay};
        // The full colour would drown the hatch.
        const auto pale = [](std::uint8_t part) { return static_cast<std::uint8_t>(255 - (255 - part) / 3); };
        const Color& full = colors[static_cast<std::size_t>(soil)];
        area.ground = {pale(full.red), pale(full.green), pale(full.blue)};
        area.hasGround = true;
    }
    sketch_.setId(layer.id);
    sketch_.setLayer(Layer::Hatch);
    sketch_.add(std::move(area));
    sketch_.setId(0);
    sketch_.setLayer(Layer::Boundary);
    sketch_.line({left, bottom}, {right, bottom}, row.endsHere ? middleLine : thinLine);
}

void ColumnSheet::drawConsistency(double left, double right)
{
    sketch_.setLayer(Layer::Boundary);
    sketch_.line({right, bodyTop_}, {right, yOf(page_.bottom)});
    for (const ColumnConsistency& row : data_.consistency) {
        const double top = yOf(std::max(row.top, page_.top));
        const double bottom = yOf(std::min(row.bottom, page_.bottom));
        if (bottom <= top)
            continue;
        const ConsistencySign sign = signOfConsistency(row.kind);
        sketch_.setLayer(Layer::Hatch);
        Area area;
        area.rings = {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
        area.ground = {};
        area.hasGround = sign.isFilled;
        sketch_.add(std::move(area));
        for (double y = top + sign.spacing; sign.spacing > 0 && y < bottom; y += sign.spacing)
            sketch_.line(std::vector<Spot>{{left, y}, {right, y}}, {thinLine, {}, sign.dash});
        sketch_.setLayer(Layer::Boundary);
        sketch_.line({left, bottom}, {right, bottom});
    }
}

// From each boundary in the strip to that of its row in the table.
void ColumnSheet::drawLeaders(const PlacedLane& strip, bool isLeft)
{
    sketch_.setLayer(Layer::Boundary);
    const double from = isLeft ? strip.left : strip.right;
    const double to = isLeft ? strip.left - leadsWidth : strip.right + leadsWidth;
    for (const ColumnRow& row : page_.rows)
        sketch_.line({from, yOf(row.bottom)}, {to, bodyTop_ + row.place});
}
