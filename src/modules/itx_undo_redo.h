#pragma once

#include "modules/undo_context.h"

class IMCommand;

// The undo histories, one for each screen state; a history that is asked for and not there yet is empty.
// Commands derive from MUndoRedoCommand; one of another class is ignored. The history takes a reference of
// its own: whoever made the command releases his afterwards.
//
// Modules call these operations by their position.
class ITXUndoRedo
{
public:
    // Executes the command and keeps it; returns what its execute returned.
    virtual bool execute(const UndoContext& context, IMCommand* command) = 0;
    // Keeps a command whose change is made already.
    virtual void add(const UndoContext& context, IMCommand* command) = 0;
    // Takes the last change back, or makes it again; returns whether another one is left.
    virtual bool undo(const UndoContext& context) = 0;
    virtual bool redo(const UndoContext& context) = 0;
    virtual bool canUndo(const UndoContext& context) = 0;
    virtual bool canRedo(const UndoContext& context) = 0;

    virtual ~ITXUndoRedo() = default;
};
