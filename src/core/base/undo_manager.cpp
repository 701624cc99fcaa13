#include "core/base/undo_manager.h"

#include "core/base/leak_checker.h"

static void releaseCommands(std::deque<MUndoRedoCommand*>& commands)
{
    for (MUndoRedoCommand* command : commands)
        command->release();
    commands.clear();
}

MUndoRedoManager::~MUndoRedoManager()
{
    releaseCommands(undoStack_);
    releaseCommands(redoStack_);
}

bool MUndoRedoManager::execute(MUndoRedoCommand* command)
{
    add(command);
    return command->execute();
}

void MUndoRedoManager::add(MUndoRedoCommand* command)
{
    // First of all, since it may live in the stack that is emptied now.
    command->addRef();
    releaseCommands(redoStack_);
    if (static_cast<int>(undoStack_.size()) >= limit_ && !undoStack_.empty())
        dropOldest();
    undoStack_.push_front(command);
}

// The command that falls off the end keeps the manager's reference and lives until the process ends: screens
// hold on to commands of theirs without a reference, and its destructor would take the ground from under
// them.
void MUndoRedoManager::dropOldest()
{
    staysAliveOnPurpose(dynamic_cast<const void*>(undoStack_.back()));
    undoStack_.pop_back();
}

bool MUndoRedoManager::undo()
{
    if (undoStack_.empty())
        return false;
    undoStack_.front()->unexecute();
    redoStack_.push_front(undoStack_.front());
    undoStack_.pop_front();
    return !undoStack_.empty();
}

bool MUndoRedoManager::redo()
{
    if (redoStack_.empty())
        return false;
    redoStack_.front()->execute();
    undoStack_.push_front(redoStack_.front());
    redoStack_.pop_front();
    return !redoStack_.empty();
}
