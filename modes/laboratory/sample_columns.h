#pragma once

#include "common/edit_grid_model.h"
#include "laboratory/test_choice.h"
#include "modules/idbproject.h"

#include <functional>
#include <string>
#include <vector>

// The columns of the tables of all samples: one row a sample, one column a property or a load.

struct SampleColumn {
    GridColumn column;
    std::function<std::wstring(const LabSample&)> get;
    std::function<void(LabSample&, const std::wstring&)> put; // none: computed
    std::string mark; // the cell of a remark that means it
    int property = -1; // the physical one that it shows
};

// Columns in use: what the project's set has and what any sample holds.
std::vector<SampleColumn> sampleColumns(IDBProject& project, const TestChoice& choice, int language);
