#pragma once

#include "calc/chemistry.h"
#include "common/edit_grid.h"
#include "common/page.h"
#include "db/records/chemistry.h"

#include <array>

class ModeScreen;
class QComboBox;

// The analyses of waters, or those of soils, as a table of thirty cells: what is typed goes into the project
// at once, as one step of undo. A row whose point or depth cannot be a key stays in the table, marked, until
// it is mended. Contents of ions are shown and typed in milligrams or in mg-equivalents; the project keeps
// milligrams, and what is only shown in equivalents stays in it as it was typed.
class AnalysesPage : public Page
{
public:
    enum class Kind { Water, Soil };
    AnalysesPage(ModeScreen& screen, Kind kind);

    void read(IDBProject* project) override;
    void forget() override;
    QString problem() override;
    void closeEditors() override { grid_->closeEditor(); }
    void addRecord() override { grid_->addRow(); }
    void deleteRecords() override { grid_->deleteSelectedRows(); }
    bool canAdd() const override { return true; }
    bool canDelete() const override { return true; }
    std::optional<Document> report() override;

private:
    void edit(const GridRows& after);
    bool isMine(const ChemistryRecord& record) const;
    GridRow rowOf(qint64 id, const PointDepthKey& key, const ChemistryRecord& record) const;
    ChemistryRecord recordOf(const GridRow& row) const;
    GridRow shown(GridRow stored) const;
    GridRow stored(GridRow shownRow, const GridRow& before) const;
    void chooseUnits();
    void show();
    ChemistryCell cellAt(int place) const { return cells_[static_cast<std::size_t>(place)]; }
    int columnOf(int cell) const;

    ModeScreen& screen_;
    const bool isWater_;
    const std::array<ChemistryCell, ChemistryCellCount>& cells_; // from left to right
    EditGrid* grids_[2]; // in milligrams, in mg-equivalents; heads differ
    EditGrid* grid_; // the one in view
    class QStackedLayout* stack_;
    QComboBox* units_;
    bool inEquivalents_ = false;
    GridRows rows_; // in milligrams, like those below
    GridRows pending_; // not in the project
    qint64 lastId_ = 0;
};
