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
    void dropOldest();

    std::deque<MUndoRedoCommand*> undoStack_; // the newest in front
    std::deque<MUndoRedoCommand*> redoStack_;
    int limit_;
};
