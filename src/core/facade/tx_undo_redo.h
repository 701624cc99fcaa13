#pragma once

#include "core/base/reference.h"
#include "core/base/undo_manager.h"
#include "modules/itx_undo_redo.h"

#include <utility>
#include <vector>

// One undo history for each screen state that has been seen since the last clear, of 1000 changes each.
class TXUndoRedo : public ITXUndoRedo
{
public:
    ~TXUndoRedo() override { clear(); }

    bool execute(const UndoContext& context, IMCommand* command) override;
    void add(const UndoContext& context, IMCommand* command) override;
    bool undo(const UndoContext& context) override { return managerFor(context).undo(); }
    bool redo(const UndoContext& context) override { return managerFor(context).redo(); }
    bool canUndo(const UndoContext& context) override { return managerFor(context).canUndo(); }
    bool canRedo(const UndoContext& context) override { return managerFor(context).canRedo(); }

    void clear();

private:
    MUndoRedoManager& managerFor(const UndoContext& context);

    // Screens are visited at a person's pace: a walk with a comparison of all fields is quick enough, and the
    // contexts need no order.
    std::vector<std::pair<UndoContext, Reference<MUndoRedoManager>>> managers_;
};
