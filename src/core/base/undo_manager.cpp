#include "core/base/undo_manager.h"

#include "core/base/leak_checker.h"
#include "core/base/reference.h"

#include <utility>

// Empties the list first: a command may come back to it when it goes.
static void releaseCommands(std::deque<MUndoRedoCommand*>& commands)
{
    const auto gone = std::exchange(commands, {});
    for (MUndoRedoCommand* command : gone)
        command->release();
}

MUndoRedoManager::~MUndoRedoManager()
{
    releaseCommands(undoStack_);
    releaseCommands(redoStack_);
    releaseCommands(waiting_);
}

bool MUndoRedoManager::execute(MUndoRedoCommand* command)
{
    add(command);
    return carryOut(*command, &IMCommand::execute, [] {});
}

void MUndoRedoManager::add(MUndoRedoCommand* command)
{
    // First of all, since it may live in the stack that is emptied by taking it.
    command->addRef();
    if (atWork_)
        waiting_.push_back(command);
    else
        take(command);
}

void MUndoRedoManager::take(MUndoRedoCommand* command)
{
    if (static_cast<int>(undoStack_.size()) >= limit_ && !undoStack_.empty())
        dropOldest();
    undoStack_.push_front(command);
    releaseCommands(redoStack_);
}

void MUndoRedoManager::takeWaiting()
{
    while (!atWork_ && !waiting_.empty()) {
        MUndoRedoCommand* command = waiting_.front();
        waiting_.pop_front();
        take(command);
    }
}

// The command that falls off the end keeps the manager's reference and lives until the process ends: screens
// hold on to commands of theirs without a reference, and its destructor would take the ground from under
// them.
void MUndoRedoManager::dropOldest()
{
    staysAliveOnPurpose(dynamic_cast<const void*>(undoStack_.back()));
    undoStack_.pop_back();
}

template <class Then>
bool MUndoRedoManager::carryOut(MUndoRedoCommand& command, bool (IMCommand::*work)(), Then then)
{
    const auto self = Reference<MUndoRedoManager>::share(this);
    const bool wasAtWork = std::exchange(atWork_, true);
    bool result = false;
    try {
        result = (command.*work)();
    } catch (...) {
        atWork_ = wasAtWork;
        takeWaiting();
        throw;
    }
    atWork_ = wasAtWork;
    then();
    takeWaiting();
    return result;
}

bool MUndoRedoManager::move(Commands& from, Commands& to, bool (IMCommand::*work)())
{
    if (atWork_ || from.empty())
        return false;
    const auto self = Reference<MUndoRedoManager>::share(this);
    carryOut(*from.front(), work, [&] {
        to.push_front(from.front());
        from.pop_front();
    });
    return !from.empty();
}

bool MUndoRedoManager::undo()
{
    return move(undoStack_, redoStack_, &IMCommand::unexecute);
}

bool MUndoRedoManager::redo()
{
    return move(redoStack_, undoStack_, &IMCommand::execute);
}
