#pragma once

#include "core/base/mobject.h"

#include <deque>

// A change that can be taken back. Commands are made by the modules.
class IMCommand
{
public:
    virtual ~IMCommand() = default;
    virtual bool execute() = 0;
    virtual bool unexecute() = 0;
};

class MUndoRedoCommand : public MObject, public IMCommand
{
};

// Two stacks of commands. A command belongs to the manager from execute or add on, by one reference, wherever
// it stands; the caller keeps and releases its own.
//
// A command may come back to the manager while it is at work, and may even cause the manager to be released,
// which then goes when the command is done. What it adds is taken when the outermost call ends, in the order
// in which it came and also where the command fails; one that it executes is carried out at once and taken
// then. It cannot undo or redo: both answer false and do nothing.
class MUndoRedoManager : public MObject
{
public:
    // At most that many commands can be undone.
    explicit MUndoRedoManager(int limit)
        : limit_(limit)
    {
    }
    ~MUndoRedoManager() override;

    // Adds the command, then executes it; returns what that returned.
    bool execute(MUndoRedoCommand* command);
    // Takes a command whose change is made already. Nothing can be redone afterwards; where the limit is
    // reached the oldest command drops off the end.
    void add(MUndoRedoCommand* command);
    // Takes the last change back; returns whether more can be undone, false too where there was nothing. A
    // command that throws stays where it is.
    bool undo();
    // Makes the last undone change again; returns whether more can be redone.
    bool redo();
    bool canUndo() const { return !undoStack_.empty(); }
    bool canRedo() const { return !redoStack_.empty(); }

private:
    using Commands = std::deque<MUndoRedoCommand*>;

    void take(MUndoRedoCommand* command);
    void takeWaiting();
    void dropOldest();
    // Has the command do its work with the manager kept alive and closed to changes, then does what is left
    // to do before the waiting ones are taken. Returns what the work returned.
    template <class Then>
    bool carryOut(MUndoRedoCommand& command, bool (IMCommand::*work)(), Then then);
    bool move(Commands& from, Commands& to, bool (IMCommand::*work)());

    Commands undoStack_; // the newest in front
    Commands redoStack_;
    Commands waiting_; // added by a command at work, the first in front
    int limit_;
    bool atWork_ = false;
};
