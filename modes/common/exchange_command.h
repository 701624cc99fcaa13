#pragma once

#include "core/base/undo_manager.h"

#include <functional>
#include <utility>

// A change as the state before it and the state after it. The function that puts a state into the project
// outlives the screen that made the command, so it holds the controller and plain data, never a widget.
template <class State>
class ExchangeCommand : public MUndoRedoCommand
{
public:
    using Apply = std::function<void(const State&)>;

    ExchangeCommand(Apply apply, State before, State after)
        : apply_(std::move(apply))
        , before_(std::move(before))
        , after_(std::move(after))
    {
    }

    bool execute() override
    {
        apply_(after_);
        return true;
    }

    bool unexecute() override
    {
        apply_(before_);
        return true;
    }

private:
    Apply apply_;
    State before_;
    State after_;
};
