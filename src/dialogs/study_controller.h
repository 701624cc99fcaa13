#pragma once

#include "db/project_controller.h"

#include <memory>
#include <string>
#include <vector>

class StudyModel;
class StudyTable;

// The rows of the study table: for every point its name, and a mark for each kind of investigation that the
// project holds of it.
class StudyController : public DBProjectController
{
public:
    using Row = std::vector<std::wstring>;
    using Rows = std::vector<Row>;

    // In the font "Symbol" this letter is a check mark.
    static constexpr const wchar_t* mark = L"\u00D6";
    static constexpr int columnCount = 8;

    explicit StudyController(IDBProject* project);
    ~StudyController() override;

    // In the order of the point register. A point has a row in a register where a key there has its very
    // name.
    void rebuildRows();
    const Rows& getRows() const { return *rows_; }
    void setModel(StudyModel* model) { model_ = model; }
    void setTable(StudyTable* table) { table_ = table; }
    // Has the views drawn anew.
    void refresh();

private:
    IDBProject* project_;
    StudyModel* model_ = nullptr;
    StudyTable* table_ = nullptr;
    std::unique_ptr<Rows> rows_;
};
