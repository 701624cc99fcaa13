#pragma once

#include "db/records/subsidence.h"
#include "modules/idb_project_controller.h"

#include <string>

class IDBProject;

// Puts the cell into the row of the point, which is made where it is missing: the first cell of the same code
// goes, and the new one is appended unless its text is empty.
void applySubsidenceCell(
    SubsidenceMap& subsidence, const std::wstring& pointName, const SubsidenceCell& cell);

// Implements the questions over a project that it does not own, and the edit of one subsidence cell.
class DBProjectController : public IDBProjectController
{
public:
    explicit DBProjectController(IDBProject* project)
        : project_(project)
    {
    }

    float getPointMark(const std::wstring& pointName) override;
    float getConsistencyBottom(const std::wstring& pointName) override;
    float getLithologyBottom(const std::wstring& pointName) override;

    // Sets one cell in the subsidence row of the point; an empty text deletes the cell and leaves the row.
    void setSubsidenceCell(const std::wstring& pointName, const SubsidenceCell& cell);

private:
    IDBProject* project_;
};
