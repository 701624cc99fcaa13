#include "site/subsidence.h"
#include "tlxtool/calc/sections.h"

namespace
{

Results typeResult(const std::optional<SubsidenceType>& type)
{
    if (!type)
        return {};
    return *type == SubsidenceType::II ? "II" : "I";
}

} // namespace

Results subsidenceResults(const CalcContext& context)
{
    Results all = Results::array();
    for (const SubsidencePoint& point : subsidencePoints(context.project, context.laboratory)) {
        const Subsidence& result = point.computed;
        Results rows = Results::array();
        for (const SubsidencePart& part : result.parts)
            rows.push_back({
                {"fromM", part.fromM},
                {"toM", part.toM},
                {"stressKPa", numberResult(part.stressKPa)},
                {"relative", numberResult(part.relative)},
                {"subsidenceCm", numberResult(part.subsidenceCm)},
            });
        Results made = {
            {"point", textResult(point.point)},
            {"rows", std::move(rows)},
            {"thicknessM", numberResult(result.thicknessM)},
            {"coefficient", numberResult(result.coefficient)},
            {"totalCm", numberResult(result.totalCm)},
            {"type", typeResult(result.type)},
            {"lowerBoundaryM", numberResult(result.lowerBoundaryM)},
            {"initialPressureKPa", numberResult(result.initialPressureKPa)},
        };
        if (!point.remarks.empty())
            made["remarks"] = remarksResult(point.remarks);
        all.push_back(std::move(made));
    }
    return all;
}
