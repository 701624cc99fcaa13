#pragma once

#include "common/edit_grid_model.h"
#include "modules/idbproject.h"

#include <functional>
#include <string>
#include <vector>

// The columns of the tables of all samples: one row a sample, one column a property or a load.

enum class LabTest {
    Physical,
    Grading,
    Compression,
    Shear,
    Swelling,
    Shrinkage,
};

// Which part of the records a table shows.
struct TestChoice {
    LabTest test = LabTest::Physical;
    int method = 0; // of compression 21 to 25, of shear 1 to 12
    int branch = 0; // of compression: 0 the first specimen or before soaking, 1 the second or after
};

struct SampleColumn {
    GridColumn column;
    std::function<std::wstring(const LabSample&)> get;
    std::function<void(LabSample&, const std::wstring&)> put; // none: computed
    std::string mark; // the cell of a remark that means it
};

// Columns in use: what the project's template has and what any sample holds.
std::vector<SampleColumn> sampleColumns(IDBProject& project, const TestChoice& choice, int language);

// Every load of a test by its number, as text.
QString loadText(LabTest test, int number);

// The rows and columns of one sample's test, with all that its record carries.
struct SampleForm {
    QVector<GridColumn> columns;
    bool rowsGrow = false;
    std::function<GridRows(const LabSample&)> read;
    std::function<void(LabSample&, const GridRows&)> write;
    std::function<std::string(const GridRow&)> mark; // of the remarks of a row
};
// With all rows of the ladder, or with those that hold something or belong to the template.
SampleForm sampleForm(IDBProject& project, const TestChoice& choice, int language, bool hasAllRows);
