#include "calc/statistics.h"

#include "calc/confidence_tables.h"
#include "calc/shear.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr std::size_t leastForRule = 4; // values before one may go out
constexpr std::size_t none = static_cast<std::size_t>(-1);

struct Moments {
    std::size_t count = 0;
    double mean = 0;
    double squares = 0; // sum of squared distances from the mean

    double biased() const { return std::sqrt(squares / static_cast<double>(count)); }
};

template <class Value>
Moments momentsOf(const std::vector<ExcludedBy>& excluded, Value&& valueAt)
{
    Moments moments;
    double sum = 0;
    for (std::size_t i = 0; i < excluded.size(); ++i)
        if (excluded[i] == ExcludedBy::Nobody) {
            sum += valueAt(i);
            ++moments.count;
        }
    if (moments.count == 0)
        return moments;
    moments.mean = sum / static_cast<double>(moments.count);
    for (std::size_t i = 0; i < excluded.size(); ++i)
        if (excluded[i] == ExcludedBy::Nobody)
            moments.squares += (valueAt(i) - moments.mean) * (valueAt(i) - moments.mean);
    // Equal values leave nothing but what the mean was rounded by.
    const double rounding = 1e-14 * std::abs(moments.mean);
    if (moments.squares <= rounding * rounding * static_cast<double>(moments.count))
        moments.squares = 0;
    return moments;
}

// How far a value lies beyond the limit: above 1 it goes out.
double reachOf(double distance, double limit)
{
    return limit > 0 ? std::abs(distance) / limit : 0;
}

// Takes the farthest value out, one at a time, until none lies beyond the limit. reachAt is told anew after
// each, and answers how far a value lies.
template <class Kept, class MakeReach>
void excludeByRule(std::vector<ExcludedBy>& excluded, Kept&& isKept, MakeReach&& makeReach)
{
    for (;;) {
        const auto count =
            static_cast<std::size_t>(std::count(excluded.begin(), excluded.end(), ExcludedBy::Nobody));
        if (count < leastForRule)
            return;
        const auto reachAt = makeReach(count);
        std::size_t farthest = none;
        double reach = 1 + 1e-12;
        for (std::size_t i = 0; i < excluded.size(); ++i)
            if (excluded[i] == ExcludedBy::Nobody && !isKept(i) && reachAt(i) > reach) {
                reach = reachAt(i);
                farthest = i;
            }
        if (farthest == none)
            return;
        excluded[farthest] = ExcludedBy::Rule;
    }
}

template <class Values>
std::vector<ExcludedBy> excludedByHand(const Values& values)
{
    std::vector<ExcludedBy> excluded;
    excluded.reserve(values.size());
    for (const auto& value : values)
        excluded.push_back(value.isLeftOut ? ExcludedBy::Hand : ExcludedBy::Nobody);
    return excluded;
}

ConfidenceLevel levelAt(double confidence, double student, double mean, double half)
{
    ConfidenceLevel level;
    level.confidence = confidence;
    level.student = student;
    if (mean != 0) {
        level.error = half / std::abs(mean);
        if (*level.error < 1)
            level.coefficient = 1 / (1 - *level.error);
    }
    level.lower = mean - half;
    level.upper = mean + half;
    return level;
}

// The mean less and more than so many times its error.
std::vector<ConfidenceLevel> levelsOf(double mean, double error, int freedom)
{
    std::vector<ConfidenceLevel> levels;
    for (const double confidence : confidences)
        if (const Number student = studentCoefficient(freedom, confidence))
            levels.push_back(levelAt(confidence, *student, mean, *student * error));
    return levels;
}

template <class Value>
Statistics summaryOf(std::vector<ExcludedBy> excluded, Value&& valueAt)
{
    Statistics result;
    const Moments moments = momentsOf(excluded, valueAt);
    result.excluded = std::move(excluded);
    result.count = moments.count;
    if (moments.count == 0)
        return result;
    result.mean = moments.mean;
    for (std::size_t i = 0; i < result.excluded.size(); ++i)
        if (result.excluded[i] == ExcludedBy::Nobody) {
            result.least = std::min(result.least.value_or(valueAt(i)), valueAt(i));
            result.greatest = std::max(result.greatest.value_or(valueAt(i)), valueAt(i));
        }
    if (moments.count < 2)
        return result;
    const double count = static_cast<double>(moments.count);
    result.deviation = std::sqrt(moments.squares / (count - 1));
    if (moments.mean != 0)
        result.variation = *result.deviation / std::abs(moments.mean);
    if (moments.count >= leastForDesign)
        result.levels =
            levelsOf(moments.mean, *result.deviation / std::sqrt(count), static_cast<int>(moments.count) - 1);
    return result;
}

void notBelowZero(std::vector<ConfidenceLevel>& levels)
{
    for (ConfidenceLevel& level : levels)
        level.lower = std::max(0.0, level.lower);
}

// The line through the points that take part.
LineFit lineOf(const std::vector<JointPoint>& points, const std::vector<ExcludedBy>& excluded)
{
    std::vector<ShearPoint> taken;
    for (std::size_t i = 0; i < points.size(); ++i)
        if (excluded[i] == ExcludedBy::Nobody)
            taken.push_back({points[i].normalStress, points[i].resistance});
    return lineThrough(taken);
}

double restOf(const JointPoint& point, const LineFit& line)
{
    return point.resistance - (line.slope * point.normalStress + line.offset);
}

double deviationAbout(const std::vector<JointPoint>& points,
    const std::vector<ExcludedBy>& excluded,
    const LineFit& line,
    std::size_t count)
{
    double squares = 0;
    double sizes = 0;
    for (std::size_t i = 0; i < points.size(); ++i)
        if (excluded[i] == ExcludedBy::Nobody) {
            squares += restOf(points[i], line) * restOf(points[i], line);
            sizes += points[i].resistance * points[i].resistance;
        }
    // Points that lie on the line leave a rest of rounding.
    if (squares <= 1e-28 * sizes)
        return 0;
    const std::size_t freedom = count - (line.isThroughOrigin ? 1 : 2);
    return std::sqrt(squares / static_cast<double>(freedom));
}

void deriveErrors(const LineFit& line, JointShear& result)
{
    const double count = static_cast<double>(result.count);
    const double tanError = *result.deviation * std::sqrt(count / line.determinant);
    const double cohesionError =
        line.isThroughOrigin ? 0 : *result.deviation * std::sqrt(line.sumOfSquares / line.determinant);
    if (line.slope != 0)
        result.tanPhiVariation = tanError / std::abs(line.slope);
    if (line.offset != 0)
        result.cohesionVariation = cohesionError / line.offset;
    if (result.count < leastForDesign)
        return;
    const int freedom = static_cast<int>(result.count) - 2;
    result.tanPhiLevels = levelsOf(line.slope, tanError, freedom);
    result.cohesionLevels = levelsOf(line.offset, cohesionError, freedom);
    notBelowZero(result.tanPhiLevels);
    notBelowZero(result.cohesionLevels);
}

} // namespace

Statistics statisticsOf(const std::vector<Determination>& values)
{
    std::vector<ExcludedBy> excluded = excludedByHand(values);
    const auto valueAt = [&](std::size_t i) { return values[i].value; };
    excludeByRule(
        excluded,
        [&](std::size_t i) { return values[i].isKept; },
        [&](std::size_t count) {
            const Moments moments = momentsOf(excluded, valueAt);
            const double limit = *outlierLimit(count) * moments.biased();
            return [&values, mean = moments.mean, limit](
                       std::size_t i) { return reachOf(values[i].value - mean, limit); };
        });
    return summaryOf(std::move(excluded), valueAt);
}

const ConfidenceLevel* levelOf(const std::vector<ConfidenceLevel>& levels, double confidence)
{
    const auto level = std::find_if(levels.begin(), levels.end(), [&](const ConfidenceLevel& each) {
        return std::abs(each.confidence - confidence) < 1e-6;
    });
    return level == levels.end() ? nullptr : &*level;
}

PartialShear partialShearOf(const std::vector<ShearDetermination>& tests)
{
    std::vector<ExcludedBy> excluded = excludedByHand(tests);
    const auto tangentAt = [&](std::size_t i) { return tests[i].tanPhi; };
    const auto cohesionAt = [&](std::size_t i) { return tests[i].cohesion; };
    excludeByRule(
        excluded,
        [&](std::size_t i) { return tests[i].isKept; },
        [&](std::size_t count) {
            const Moments tangents = momentsOf(excluded, tangentAt);
            const Moments cohesions = momentsOf(excluded, cohesionAt);
            const double limit = *outlierLimit(count);
            return [&tests, tangents, cohesions, limit](std::size_t i) {
                return std::max(reachOf(tests[i].tanPhi - tangents.mean, limit * tangents.biased()),
                    reachOf(tests[i].cohesion - cohesions.mean, limit * cohesions.biased()));
            };
        });
    PartialShear result;
    result.tanPhi = summaryOf(excluded, tangentAt);
    result.cohesion = summaryOf(std::move(excluded), cohesionAt);
    notBelowZero(result.tanPhi.levels);
    notBelowZero(result.cohesion.levels);
    return result;
}

JointShear jointShearOf(const std::vector<JointPoint>& points)
{
    JointShear result;
    result.excluded = excludedByHand(points);
    excludeByRule(
        result.excluded,
        [&](std::size_t i) { return points[i].isKept; },
        [&](std::size_t count) {
            const LineFit line = lineOf(points, result.excluded);
            const double limit = line.isDetermined
                ? *outlierLimit(count) * deviationAbout(points, result.excluded, line, count)
                : 0;
            return [&points, line, limit](std::size_t i) { return reachOf(restOf(points[i], line), limit); };
        });
    result.count = static_cast<std::size_t>(
        std::count(result.excluded.begin(), result.excluded.end(), ExcludedBy::Nobody));
    const LineFit line = lineOf(points, result.excluded);
    if (result.count < 3 || !line.isDetermined || line.slope <= 0)
        return result;
    result.tanPhi = line.slope;
    result.cohesion = line.offset;
    result.deviation = deviationAbout(points, result.excluded, line, result.count);
    deriveErrors(line, result);
    return result;
}
