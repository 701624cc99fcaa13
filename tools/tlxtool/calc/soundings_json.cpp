#include "site/pile_task.h"
#include "tlxtool/calc/sections.h"

namespace
{

Results spreadResult(const Spread& spread)
{
    return {
        {"n", spread.n},
        {"mean", numberResult(spread.mean)},
        {"deviation", numberResult(spread.deviation)},
        {"variation", numberResult(spread.variation)},
        {"min", numberResult(spread.least)},
        {"max", numberResult(spread.greatest)},
    };
}

Results layerJson(IDBProject& project, const SiteSounding& sounding, const SoundingLayer& layer)
{
    const SoundingLayerResult result = layerResult(project, sounding, layer);
    const SoundedProperties& properties = result.properties;
    Results made = {
        {"fromM", layer.from},
        {"toM", layer.to},
        {"element", layer.element.empty() ? Results() : textResult(layer.element)},
        {"n", result.tip.n},
        {"qcMPa", spreadResult(result.tip)},
        {"fsKPa", spreadResult(result.sleeve)},
        {"modulusMPa", numberResult(properties.modulusMPa)},
        {"phiDegrees", numberResult(properties.phiDegrees)},
        {"cohesionKPa", numberResult(properties.cohesionKPa)},
        {"density", properties.density ? Results(sandDensityName(*properties.density)) : Results()},
        {"liquidityIndex", numberResult(result.liquidity)},
    };
    if (!properties.remarks.empty())
        made["remarks"] = remarksResult(properties.remarks);
    return made;
}

} // namespace

Results soundingsResults(const CalcContext& context)
{
    const SiteSoundings soundings(context.project);
    Results all = Results::array();
    for (const SiteSounding& sounding : soundings.all()) {
        Results made = {
            {"point", textResult(sounding.point)},
            {"borehole", sounding.borehole.empty() ? Results() : textResult(sounding.borehole)},
        };
        Results layers = Results::array();
        for (const SoundingLayer& layer : sounding.layers)
            layers.push_back(layerJson(context.project, sounding, layer));
        made["layers"] = std::move(layers);
        if (!sounding.remarks.empty())
            made["remarks"] = remarksResult(sounding.remarks);
        all.push_back(std::move(made));
    }
    return all;
}

Results pilesResults(const CalcContext& context)
{
    const SiteSoundings soundings(context.project);
    Results all = Results::array();
    for (const PileRow& row : pileRows(context.project, soundings, pileTask(context.project))) {
        Results points = Results::array();
        for (const PilePoint& point : row.points) {
            Results made = {
                {"point", textResult(point.point)},
                {"tipKN", numberResult(point.resistance.tipKN)},
                {"sideKN", numberResult(point.resistance.sideKN)},
                {"resistanceKN", numberResult(point.resistance.totalKN())},
                {"qsKPa", numberResult(point.resistance.tipConeKPa)},
                {"fKPa", numberResult(point.resistance.shaftKPa)},
            };
            if (!point.resistance.remarks.empty())
                made["remarks"] = remarksResult(point.resistance.remarks);
            points.push_back(std::move(made));
        }
        all.push_back({
            {"tipDepthM", row.tipDepth},
            {"tipMarkM", numberResult(row.tipMark)},
            {"points", std::move(points)},
            {"n", row.group.n},
            {"resistanceKN", numberResult(row.group.resistanceKN)},
            {"deviation", numberResult(row.group.deviationKN)},
            {"variation", numberResult(row.group.variation)},
            {"coefficient", numberResult(row.group.coefficient)},
            {"capacityKN", numberResult(row.group.capacityKN)},
            {"loadKN", numberResult(row.group.loadKN)},
        });
    }
    return all;
}
