#include "modules/idbproject.h"
#include "site/elements.h"
#include "tlxtool/calc/sections.h"

namespace
{

void put(Results& object, const char* key, const Number& number)
{
    object[key] = numberResult(number);
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
    Results object = Results::object();
    put(object, "sum", grading.sum);
    put(object, "d10", grading.d10);
    put(object, "d30", grading.d30);
    put(object, "d50", grading.d50);
    put(object, "d60", grading.d60);
    put(object, "cu", grading.uniformity);
    put(object, "cc", grading.curvature);
    return object;
}

Results rowResults(const Oedometer& test)
{
    Results list = Results::array();
    if (test.test == 25)
        return list;
    for (const OedometerRow& row : test.rows) {
        Results object = Results::object();
        put(object, "loadMPa", row.load);
        put(object, "strain", row.strain);
        put(object, "voidRatio", row.voidRatio);
        put(object, "soakedStrain", row.soakedStrain);
        put(object, "soakedVoidRatio", row.soakedVoidRatio);
        list.push_back(std::move(object));
    }
    return list;
}

Results intervalResults(const Oedometer& test)
{
    Results list = Results::array();
    for (const OedometerInterval& interval : test.intervals) {
        Results object = Results::object();
        put(object, "fromMPa", interval.from);
        put(object, "toMPa", interval.to);
        put(object, "m0", interval.compressibility);
        put(object, "oedometricModulusMPa", interval.oedometricModulus);
        put(object, "beta", test.beta);
        put(object, "modulusMPa", interval.modulus);
        put(object, "soakedModulusMPa", interval.soakedModulus);
        list.push_back(std::move(object));
    }
    return list;
}

// Of the tests for it alone.
Results collapseResults(const CompressionResult& test)
{
    if (test.oedometer.test != 23 && test.oedometer.test != 24)
        return {};
    Results object = Results::object();
    put(object, "naturalStressMPa", test.collapse.naturalStress);
    object["rows"] = Results::array();
    for (const CollapseRow& row : test.collapse.rows)
        object["rows"].push_back({{"loadMPa", row.load}, {"relative", numberResult(row.relative)}});
    put(object, "initialPressureMPa", test.collapse.initialPressure);
    return object;
}

Results compressionResults(const SampleResult& result)
{
    Results list = Results::array();
    for (const CompressionResult& test : result.compression) {
        Results object = Results::object();
        object["test"] = test.oedometer.test;
        put(object, "e0", test.oedometer.voidRatio);
        put(object, "heightMm", test.oedometer.height);
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
        put(object, "tanPhi", test.fit.tanPhi);
        put(object, "phiDegrees", test.fit.tanPhi ? Number(angleOf(*test.fit.tanPhi)) : Number());
        put(object, "cohesionMPa", test.fit.cohesion);
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
    object["swelling"] = Results();
    if (!result.swelling.rows.empty()) {
        object["swelling"] = Results::object();
        put(object["swelling"], "free", result.swelling.free);
        put(object["swelling"], "pressureMPa", result.swelling.pressure);
    }
    object["shrinkage"] = Results();
    if (!result.shrinkage.points.empty()) {
        object["shrinkage"] = Results::object();
        put(object["shrinkage"], "limit", result.shrinkage.limit);
    }
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
