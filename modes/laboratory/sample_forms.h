#pragma once

#include "common/edit_grid_model.h"
#include "laboratory/test_choice.h"
#include "modules/idbproject.h"
#include "site/laboratory.h"

#include <functional>
#include <string>

// The rows and columns of one sample's test, with all that its record carries.
struct SampleForm {
    QVector<GridColumn> columns;
    bool rowsGrow = false;
    std::function<GridRows(const LabSample&)> read;
    std::function<void(LabSample&, const GridRows&)> write;
    std::function<std::string(const GridRow&)> mark; // of the remarks of a row
    // What "Расчет значений" fills and nobody has typed over; none: nothing is computed here.
    std::function<bool(const GridRow&, int column, const SampleResult&)> isComputed = {};
};

// With all rows of the ladder, or with those that hold something or belong to the set.
SampleForm sampleForm(IDBProject& project, const TestChoice& choice, int language, bool hasAllRows);
