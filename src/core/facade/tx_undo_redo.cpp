#include "core/facade/tx_undo_redo.h"

static constexpr int historyLimit = 1000;

bool TXUndoRedo::execute(const UndoContext& context, IMCommand* command)
{
    auto* own = dynamic_cast<MUndoRedoCommand*>(command);
    return own && managerFor(context).execute(own);
}

void TXUndoRedo::add(const UndoContext& context, IMCommand* command)
{
    if (auto* own = dynamic_cast<MUndoRedoCommand*>(command))
        managerFor(context).add(own);
}

void TXUndoRedo::clear()
{
    // Commands go while the list is empty already: one that asks for its history gets a new one.
    const auto dropped = std::exchange(managers_, {});
}

MUndoRedoManager& TXUndoRedo::managerFor(const UndoContext& context)
{
    for (const auto& [key, manager] : managers_)
        if (key == context)
            return *manager;
    managers_.emplace_back(context, makeReference<MUndoRedoManager>(historyLimit));
    return *managers_.back().second;
}
