#include "modules/idbproject.h"
#include "site/elements.h"
#include "tlxtool/calc/sections.h"

#include <initializer_list>
#include <utility>

namespace
{

// An object of numbers; what is not determined is null.
Results numbersResult(std::initializer_list<std::pair<const char*, Number>> numbers)
{
    Results object = Results::object();
    for (const auto& [key, number] : numbers)
        object[key] = numberResult(number);
    return object;
}

Results physicalResults(const Physical& physical)
{
    Results object = Results::object();
    const auto derived = derivedProperties(physical);
    for (std::size_t i = 0; i < derived.size(); ++i)
        if (derived[i])
            object[std::to_string(firstDerivedProperty + static_cast<int>(i))] = numberResult(derived[i]);
    return object;
}

Results gradingResults(const Grading& grading)
{
    if (!grading.sum)
        return {};
    return numbersResult({{"sum", grading.sum},
        {"d10", grading.d10},
        {"d30", grading.d30},
        {"d50", grading.d50},
        {"d60", grading.d60},
        {"cu", grading.uniformity},
        {"cc", grading.curvature}});
}

Results rowResults(const Oedometer& test)
{
    Results list = Results::array();
    if (test.test == 25)
        return list;
    for (const OedometerRow& row : test.rows)
        list.push_back(numbersResult({{"loadMPa", row.load},
            {"strain", row.strain},
            {"voidRatio", row.voidRatio},
            {"soakedStrain", row.soakedStrain},
            {"soakedVoidRatio", row.soakedVoidRatio}}));
    return list;
}

Results intervalResults(const Oedometer& test)
{
    Results list = Results::array();
    for (const OedometerInterval& interval : test.intervals)
        list.push_back(numbersResult({{"fromMPa", interval.from},
            {"toMPa", interval.to},
            {"m0", interval.compressibility},
            {"oedometricModulusMPa", interval.oedometricModulus},
            {"beta", test.beta},
            {"modulusMPa", interval.modulus},
            {"soakedModulusMPa", interval.soakedModulus}}));
    return list;
}

// Of the tests for it alone.
Results collapseResults(const CompressionResult& test)
{
    if (test.oedometer.test != 23 && test.oedometer.test != 24)
        return {};
    Results object = numbersResult({{"naturalStressMPa", test.collapse.naturalStress}});
    object["rows"] = Results::array();
    for (const CollapseRow& row : test.collapse.rows)
        object["rows"].push_back(numbersResult({{"loadMPa", row.load}, {"relative", row.relative}}));
    object["initialPressureMPa"] = numberResult(test.collapse.initialPressure);
    return object;
}

Results compressionResults(const SampleResult& result)
{
    Results list = Results::array();
    for (const CompressionResult& test : result.compression) {
        Results object = Results::object();
        object["test"] = test.oedometer.test;
        object["e0"] = numberResult(test.oedometer.voidRatio);
        object["heightMm"] = numberResult(test.oedometer.height);
        object["rows"] = rowResults(test.oedometer);
        object["intervals"] = intervalResults(test.oedometer);
        object["collapse"] = collapseResults(test);
        list.push_back(std::move(object));
    }
    return list;
}

Results shearResults(const SampleResult& result)
{
    Results list = Results::array();
    for (const ShearResult& test : result.shear) {
        Results object = Results::object();
        object["method"] = test.method;
        object["n"] = test.fit.points;
        object["tanPhi"] = numberResult(test.fit.tanPhi);
        object["phiDegrees"] = numberResult(test.fit.tanPhi ? Number(angleOf(*test.fit.tanPhi)) : Number());
        object["cohesionMPa"] = numberResult(test.fit.cohesion);
        list.push_back(std::move(object));
    }
    return list;
}

const char* suspicionName(Suspicion suspicion)
{
    return suspicion == Suspicion::Collapse ? "collapse" : "swelling";
}

Results sampleResults(const SiteSample& sample)
{
    const SampleResult& result = sample.result;
    Results object = Results::object();
    object["point"] = textResult(sample.key->pointName);
    object["depth"] = textResult(sample.key->depth);
    object["code"] = textResult(sample.sample->code);
    object["element"] = sample.element.empty() ? Results() : textResult(sample.element);
    object["physical"] = physicalResults(result.physical);
    object["soil"] = sample.soil.text.empty() ? Results() : textResult(sample.soil.text);
    object["soilClass"] = sample.soil.group == 0 ? Results() : Results(sample.soil.group);
    if (sample.soil.fractionClass != 0)
        object["fractionClass"] = sample.soil.fractionClass;
    if (!sample.soil.details.empty())
        object["soilDetails"] = textResult(sample.soil.details);
    if (const Suspicion suspicion = suspicionOf(result.physical); suspicion != Suspicion::None)
        object["suspected"] = suspicionName(suspicion);
    object["remarks"] = remarksResult(result.remarks);
    object["grading"] = gradingResults(result.grading);
    object["compression"] = compressionResults(result);
    object["shear"] = shearResults(result);
    object["swelling"] = result.swelling.rows.empty()
        ? Results()
        : numbersResult({{"free", result.swelling.free}, {"pressureMPa", result.swelling.pressure}});
    object["shrinkage"] =
        result.shrinkage.points.empty() ? Results() : numbersResult({{"limit", result.shrinkage.limit}});
    return object;
}

} // namespace

Results samplesResults(const CalcContext& context)
{
    Results list = Results::array();
    for (const SiteSample& sample : context.laboratory.samples())
        list.push_back(sampleResults(sample));
    return list;
}
