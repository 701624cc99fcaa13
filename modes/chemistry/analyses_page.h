#pragma once

#include "common/edit_grid.h"
#include "common/page.h"
#include "db/records/chemistry.h"

class ModeScreen;

// The analyses of the site as a table of thirty cells: what is typed goes into the project at once, as one
// step of undo. A row whose point or depth cannot be a key stays in the table, marked, until it is mended.
class AnalysesPage : public Page
{
public:
    explicit AnalysesPage(ModeScreen& screen);

    void read(IDBProject* project) override;
    void forget() override;
    QString problem() override;
    void closeEditors() override { grid_->closeEditor(); }
    std::optional<Document> report() override;

private:
    void edit(const GridRows& after);
    GridRow rowOf(qint64 id, const PointDepthKey& key, const ChemistryRecord& record) const;

    ModeScreen& screen_;
    EditGrid* grid_;
    GridRows rows_;
    GridRows pending_; // not in the project
    qint64 lastId_ = 0;
};
