#include "calc/sounding_layers.h"

#include "calc/sounding.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{

// Three readings of the usual step of 0.2 m; as many as it takes where they are denser.
constexpr double windowM = 0.4;
constexpr std::size_t leastWindow = 3;
constexpr double leastTip = 0.05; // MPa: below, a logarithm would make layers of noise

// Logarithms of the cone's resistance with their running sums; a change by a part is a step of them, alike in
// sand and in clay.
class Profile
{
public:
    explicit Profile(std::span<const LayerReading> readings)
        : readings_(readings)
        , sums_{0.0}
        , squares_{0.0}
    {
        double before = std::log(leastTip);
        for (const LayerReading& reading : readings) {
            const double value = reading.tip ? std::log(std::max(*reading.tip, leastTip)) : before;
            before = value;
            sums_.push_back(sums_.back() + value);
            squares_.push_back(squares_.back() + value * value);
        }
    }

    std::size_t size() const { return readings_.size(); }
    double mean(std::size_t first, std::size_t last) const
    {
        return (sums_[last] - sums_[first]) / static_cast<double>(last - first);
    }
    // Sum of squares around the mean.
    double spread(std::size_t first, std::size_t last) const
    {
        if (last <= first)
            return 0.0;
        const double sum = sums_[last] - sums_[first];
        return squares_[last] - squares_[first] - sum * sum / static_cast<double>(last - first);
    }
    double top(std::size_t first) const { return first == 0 ? 0.0 : readings_[first - 1].depth; }
    double thickness(std::size_t first, std::size_t last) const
    {
        return readings_[last - 1].depth - top(first);
    }

private:
    std::span<const LayerReading> readings_;
    std::vector<double> sums_;
    std::vector<double> squares_;
};

// The reading before which the two layers part best.
std::size_t bestSplit(
    const Profile& profile, std::size_t first, std::size_t from, std::size_t to, std::size_t last)
{
    std::size_t best = from;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t split = from; split <= to; ++split) {
        const double spread = profile.spread(first, split) + profile.spread(split, last);
        if (spread < least) {
            least = spread;
            best = split;
        }
    }
    return best;
}

// What a boundary can follow the last one by, readings: a stone or a seam stands out for less than a window.
std::size_t leastLayer(std::size_t window)
{
    return std::max<std::size_t>(2, window / 2);
}

// First readings of the layers, the first of all left out.
std::vector<std::size_t> splitsOf(const Profile& profile, std::size_t window, double step)
{
    std::vector<std::size_t> splits;
    std::size_t first = 0;
    for (std::size_t i = window; i + window <= profile.size(); ++i) {
        if (i < first + leastLayer(window))
            continue;
        // The window ahead against what the layer has been so far.
        if (std::abs(profile.mean(i, i + window) - profile.mean(first, i)) <= step)
            continue;
        const std::size_t split =
            bestSplit(profile, first, i, i + window - 1, std::min(i + 2 * window, profile.size()));
        splits.push_back(split);
        first = split;
        i = split;
    }
    return splits;
}

// Drops the boundary between a thin layer and the neighbour that is more like it; both boundaries of one that
// lies in what is the same above and below.
void dropThin(const Profile& profile, std::vector<std::size_t>& splits, double leastM, double step)
{
    const auto edge = [&](std::size_t place) {
        return place == 0 ? 0 : place > splits.size() ? profile.size() : splits[place - 1];
    };
    while (!splits.empty()) {
        std::size_t thinnest = 0;
        double least = std::numeric_limits<double>::infinity();
        for (std::size_t layer = 0; layer <= splits.size(); ++layer) {
            const double thickness = profile.thickness(edge(layer), edge(layer + 1));
            if (thickness < least) {
                least = thickness;
                thinnest = layer;
            }
        }
        if (least >= leastM - 1e-9)
            return;
        const double own = profile.mean(edge(thinnest), edge(thinnest + 1));
        const auto distance = [&](std::size_t layer) {
            return std::abs(profile.mean(edge(layer), edge(layer + 1)) - own);
        };
        const bool hasAbove = thinnest > 0;
        const bool hasBelow = thinnest < splits.size();
        if (hasAbove && hasBelow
            && std::abs(profile.mean(edge(thinnest - 1), edge(thinnest))
                   - profile.mean(edge(thinnest + 1), edge(thinnest + 2)))
                <= step) {
            const auto above = splits.begin() + static_cast<std::ptrdiff_t>(thinnest) - 1;
            splits.erase(above, above + 2);
            continue;
        }
        const bool joinsAbove = hasAbove && (!hasBelow || distance(thinnest - 1) <= distance(thinnest + 1));
        splits.erase(splits.begin() + static_cast<std::ptrdiff_t>(joinsAbove ? thinnest - 1 : thinnest));
    }
}

std::optional<bool> isSand(std::span<const LayerReading> readings, double ratioPercent)
{
    double tip = 0.0;
    double sleeve = 0.0;
    for (const LayerReading& reading : readings)
        if (reading.tip && reading.sleeve) {
            tip += *reading.tip;
            sleeve += *reading.sleeve;
        }
    const Number ratio = frictionRatio(tip, sleeve);
    if (!ratio || sleeve <= 0.0)
        return std::nullopt;
    return *ratio < ratioPercent;
}

} // namespace

std::vector<ProposedLayer> proposedLayers(std::span<const LayerReading> readings, const LayerRule& rule)
{
    if (readings.size() < 2)
        return {};
    const Profile profile(readings);
    const double step =
        (readings.back().depth - readings.front().depth) / static_cast<double>(readings.size() - 1);
    const std::size_t window = step > 0.0
        ? std::max(leastWindow, static_cast<std::size_t>(std::lround(std::min(windowM / step, 1e4))))
        : leastWindow;
    const double change = std::log1p(std::max(rule.change, 0.01));
    std::vector<std::size_t> splits = splitsOf(profile, window, change);
    dropThin(profile, splits, rule.leastThicknessM, change);
    std::vector<ProposedLayer> layers;
    std::size_t first = 0;
    splits.push_back(readings.size());
    for (const std::size_t last : splits) {
        layers.push_back({profile.top(first),
            readings[last - 1].depth,
            first,
            last,
            isSand(readings.subspan(first, last - first), rule.sandRatioPercent)});
        first = last;
    }
    return layers;
}
