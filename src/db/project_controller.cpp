#include "db/project_controller.h"

#include "core/base/text_number.h"
#include "modules/idbproject.h"

#include <algorithm>

void applySubsidenceCell(SubsidenceMap& subsidence, const std::wstring& pointName, const SubsidenceCell& cell)
{
    // The cell may stand in the very list that changes.
    const SubsidenceCell edited = cell;
    std::vector<SubsidenceCell>& cells = subsidence.try_emplace(pointName).first->second;
    const auto old = std::find_if(
        cells.begin(), cells.end(), [&](const SubsidenceCell& other) { return other.code == edited.code; });
    if (old != cells.end())
        cells.erase(old);
    if (!edited.text.empty())
        cells.push_back(edited);
}

float DBProjectController::getPointMark(const std::wstring& pointName)
{
    const PointRegister& points = project_->getPointRegister();
    const auto point = std::find_if(
        points.begin(), points.end(), [&](const auto& entry) { return entry.first.pointName == pointName; });
    if (point == points.end())
        return 0;
    return textToFloat(point->second.empty() ? std::wstring_view() : point->second.front().absoluteMark);
}

// The rows are gathered in a map of their own, as they would stand if the point were alone: a point whose
// name reads as 0 keeps one row there, and its bottom is that row's depth.
template <class Register>
static float bottomOf(const Register& rows, const std::wstring& pointName)
{
    Register own;
    for (const auto& row : rows)
        if (row.first.pointName == pointName)
            own.insert(row);
    return own.empty() ? 0 : textToFloat(own.rbegin()->first.depth);
}

float DBProjectController::getConsistencyBottom(const std::wstring& pointName)
{
    return bottomOf(project_->getConsistency(), pointName);
}

float DBProjectController::getLithologyBottom(const std::wstring& pointName)
{
    return bottomOf(project_->getLithology(), pointName);
}

void DBProjectController::setSubsidenceCell(const std::wstring& pointName, const SubsidenceCell& cell)
{
    // Through the setter, which is where a project of another class learns of the change.
    SubsidenceMap subsidence = project_->getSubsidence();
    applySubsidenceCell(subsidence, pointName, cell);
    project_->setSubsidence(subsidence);
}
