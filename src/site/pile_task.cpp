#include "site/pile_task.h"

#include "modules/idbproject.h"
#include "site/cells.h"

#include <algorithm>

namespace
{

// More depths than anybody reads; a step of 1 cm typed for 1 m ends here.
constexpr std::size_t greatestCount = 2000;

double coefficient(std::int32_t hundredths)
{
    return hundredths > 0 ? hundredths / 100.0 : 1.0;
}

void addTips(PileTask& task, std::int32_t first, std::int32_t last, std::int32_t step)
{
    if (first <= 0)
        first = last;
    if (first <= 0)
        return;
    for (std::int64_t depth = first; depth <= std::max(first, last); depth += step) {
        task.tipDepths.push_back(static_cast<double>(depth) / 100.0);
        if (step <= 0 || task.tipDepths.size() == greatestCount)
            return;
    }
}

Number positive(std::int32_t value)
{
    return value > 0 ? Number(value) : std::nullopt;
}

// One sounding made ready for all depths of the tip.
struct Prepared {
    std::wstring_view point;
    std::vector<PileReading> readings;
    std::vector<ShaftLayer> shaft;
    std::vector<BoredLayer> bored;
};

PileSoil soilAt(const std::vector<ShaftLayer>& shaft, double depth)
{
    for (const ShaftLayer& layer : shaft)
        if (depth <= layer.toM)
            return layer.soil;
    return PileSoil::Unknown;
}

Prepared prepared(
    IDBProject& project, const SiteSoundings& soundings, const SiteSounding& sounding, const PileTask& task)
{
    Prepared made{sounding.point, {}, {}, {}};
    made.readings.reserve(sounding.readings.size());
    for (const SoundingReading& reading : sounding.readings)
        made.readings.push_back({reading.depth, reading.tip, reading.sleeve, reading.side});
    for (const SoundingLayer& layer : soundings.shaft(sounding))
        made.shaft.push_back({layer.from, layer.to, pileSoil(project, layer.element)});
    double from = 0.0;
    for (const PileTask::Typed& typed : task.typedLayers) {
        made.bored.push_back({typed.to, typed.tip, typed.shaft, soilAt(made.shaft, (from + typed.to) / 2.0)});
        from = typed.to;
    }
    return made;
}

PileResistance resistanceOf(const Prepared& sounding, const PileTask& task, double tipDepth)
{
    if (task.isBored())
        return boredPileResistance(
            {task.section, task.kind - 1, task.condition, task.tipCondition}, sounding.bored, tipDepth);
    PileByProbe pile;
    pile.section = task.section;
    pile.isScrew = task.kind == 10;
    pile.probeType = task.probeType;
    return pileResistance(pile, sounding.readings, sounding.shaft, tipDepth);
}

} // namespace

PileTask pileTask(IDBProject& project)
{
    PileTask task;
    task.kind = project.getSoundingValueC();
    task.probeType = project.getSoundingValueB();
    const std::int32_t form = project.getSoundingValueD();
    task.section.form =
        form >= 0 && form <= 2 ? static_cast<PileSection::Form>(form) : PileSection::OtherForm;
    std::int32_t step = 0;
    for (const auto& [key, triple] : project.getSoundingTriples()) {
        if (key == sounding_triple::Pile) {
            task.section.sideM = triple[0] / 1000.0;
            task.section.secondSideM = triple[1] / 1000.0;
            step = triple[2];
        } else if (key == sounding_triple::PileDepths) {
            task.planningMark = triple[0] / 100.0;
            addTips(task, triple[1], triple[2], step); // the pile's key walks before
        } else if (key == sounding_triple::Coefficients) {
            task.condition = coefficient(triple[0]);
            task.tipCondition = coefficient(triple[1]);
            task.importance = coefficient(triple[2]);
        } else if (key >= sounding_triple::BoredLayers) {
            task.typedLayers.push_back({triple[2] / 100.0, positive(triple[0]), positive(triple[1])});
        }
    }
    std::ranges::stable_sort(task.typedLayers, {}, &PileTask::Typed::to);
    task.isGiven = task.section.areaM2().has_value() && !task.tipDepths.empty();
    return task;
}

std::vector<PileRow> pileRows(IDBProject& project, const SiteSoundings& soundings, const PileTask& task)
{
    return pileRows(project, soundings, task, {});
}

std::vector<PileRow> pileRows(IDBProject& project,
    const SiteSoundings& soundings,
    const PileTask& task,
    const std::vector<std::wstring>& points)
{
    std::vector<Prepared> chosen;
    for (const SiteSounding& sounding : soundings.all())
        if (!sounding.readings.empty()
            && (points.empty()
                || std::ranges::any_of(points, [&](const auto& name) { return name == sounding.point; })))
            chosen.push_back(prepared(project, soundings, sounding, task));
    // The condition of a bored pile stands in its resistance already.
    const PileLoad load{task.isBored() ? 1.0 : task.condition, task.importance, 1.25};
    std::vector<PileRow> rows;
    if (!task.isGiven || chosen.empty())
        return rows;
    for (const double depth : task.tipDepths) {
        PileRow row;
        row.tipDepth = depth;
        if (task.planningMark)
            row.tipMark = *task.planningMark - depth;
        std::vector<double> known;
        for (const Prepared& sounding : chosen) {
            row.points.push_back({sounding.point, resistanceOf(sounding, task, depth)});
            if (const Number total = row.points.back().resistance.totalKN())
                known.push_back(*total);
        }
        row.group = pileGroup(known, load);
        rows.push_back(std::move(row));
    }
    return rows;
}
