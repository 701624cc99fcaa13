#include "site/elements.h"
#include "tlxtool/calc/sections.h"

namespace
{

void put(Results& object, const char* key, const Number& number)
{
    object[key] = numberResult(number);
}

struct LevelRow {
    const char* key;
    double confidence;
};
constexpr LevelRow levelRows[] = {
    {"0.85", 0.85},
    {"0.95", 0.95},
};

// Of strength only the lower bound is of use.
enum class Bounds { Both, Lower };

Results levelResults(const std::vector<ConfidenceLevel>& levels, Bounds bounds)
{
    Results object = Results::object();
    for (const LevelRow& row : levelRows) {
        const ConfidenceLevel* level = levelOf(levels, row.confidence);
        if (!level)
            continue;
        Results& own = object[row.key];
        put(own, "t", level->student);
        put(own, "coefficient", level->coefficient);
        put(own, "lower", level->lower);
        if (bounds == Bounds::Both)
            put(own, "upper", level->upper);
    }
    return object;
}

Results exclusionResult(const SiteSample& sample, double value, ExcludedBy by)
{
    Results object = Results::object();
    object["point"] = textResult(sample.key->pointName);
    object["depth"] = textResult(sample.key->depth);
    put(object, "value", value);
    object["by"] = by == ExcludedBy::Hand ? "hand" : "rule";
    return object;
}

Results statisticsResult(const Statistics& statistics, Results excluded, Bounds bounds)
{
    Results object = Results::object();
    object["n"] = statistics.count;
    put(object, "mean", statistics.mean);
    put(object, "deviation", statistics.deviation);
    put(object, "variation", statistics.variation);
    object["excluded"] = std::move(excluded);
    object["levels"] = levelResults(statistics.levels, bounds);
    return object;
}

Results propertyResult(
    const std::vector<SiteSample>& samples, const ElementStatistics& property, Bounds bounds)
{
    Results excluded = Results::array();
    for (const ElementValue& value : property.values)
        if (value.excluded != ExcludedBy::Nobody)
            excluded.push_back(exclusionResult(samples[value.sample], value.value, value.excluded));
    return statisticsResult(property.statistics, std::move(excluded), bounds);
}

Results partialResult(const std::vector<SiteSample>& samples, const ElementShear& shear, bool isCohesion)
{
    const Statistics& statistics = isCohesion ? shear.partial.cohesion : shear.partial.tanPhi;
    Results excluded = Results::array();
    for (std::size_t i = 0; i < shear.tests.size(); ++i) {
        if (statistics.excluded[i] == ExcludedBy::Nobody)
            continue;
        const SiteSample& sample = samples[shear.tests[i]];
        for (const ShearResult& test : sample.result.shear)
            if (test.method == shear.method)
                excluded.push_back(exclusionResult(
                    sample, isCohesion ? *test.fit.cohesion : *test.fit.tanPhi, statistics.excluded[i]));
    }
    return statisticsResult(statistics, std::move(excluded), Bounds::Lower);
}

Results jointPart(const Number& mean, const Number& variation, const std::vector<ConfidenceLevel>& levels)
{
    Results object = Results::object();
    put(object, "mean", mean);
    put(object, "variation", variation);
    object["levels"] = levelResults(levels, Bounds::Lower);
    return object;
}

Results jointResult(const std::vector<SiteSample>& samples, const ElementShear& shear)
{
    Results object = Results::object();
    object["n"] = shear.joint.count;
    object["excluded"] = Results::array();
    for (std::size_t i = 0; i < shear.points.size(); ++i)
        if (shear.joint.excluded[i] != ExcludedBy::Nobody) {
            const ElementShear::Point& point = shear.points[i];
            Results own =
                exclusionResult(samples[point.sample], point.point.resistance, shear.joint.excluded[i]);
            put(own, "loadMPa", point.point.normalStress);
            object["excluded"].push_back(std::move(own));
        }
    object["tanPhi"] = jointPart(shear.joint.tanPhi, shear.joint.tanPhiVariation, shear.joint.tanPhiLevels);
    object["cohesionMPa"] =
        jointPart(shear.joint.cohesion, shear.joint.cohesionVariation, shear.joint.cohesionLevels);
    return object;
}

Results shearResult(const std::vector<SiteSample>& samples, const ElementShear& shear)
{
    if (shear.method == 0)
        return {};
    Results object = Results::object();
    object["method"] = shear.method;
    object["partial"] = {{"tanPhi", partialResult(samples, shear, false)},
        {"cohesionMPa", partialResult(samples, shear, true)}};
    object["joint"] = jointResult(samples, shear);
    return object;
}

Results elementResult(const std::vector<SiteSample>& samples, const SiteElement& element)
{
    Results object = Results::object();
    object["name"] = textResult(element.name);
    object["properties"] = Results::object();
    for (const auto& [number, property] : element.properties)
        object["properties"][std::to_string(number)] = propertyResult(samples, property, Bounds::Both);
    object["fromMeans"] = Results::object();
    const auto derived = derivedProperties(element.fromMeans);
    for (std::size_t i = 0; i < derived.size(); ++i)
        if (derived[i])
            object["fromMeans"][std::to_string(firstDerivedProperty + static_cast<int>(i))] =
                numberResult(derived[i]);
    object["modulusMPa"] =
        element.modulus.values.empty() ? Results() : propertyResult(samples, element.modulus, Bounds::Both);
    object["shear"] = shearResult(samples, element.shear);
    return object;
}

} // namespace

Results elementsResults(const CalcContext& context)
{
    Results list = Results::array();
    for (const SiteElement& element : context.laboratory.elements())
        list.push_back(elementResult(context.laboratory.samples(), element));
    return list;
}
