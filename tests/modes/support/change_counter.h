#pragma once

#include "modules/itellurix_controller.h"

// How often a change of the project is told to all who watch it.
class ChangeCounter : private IMObserver
{
public:
    explicit ChangeCounter(ITellurixController& controller)
        : controller_(controller)
    {
        controller_.attach(this);
    }
    ~ChangeCounter() { controller_.detach(this); }
    ChangeCounter(const ChangeCounter&) = delete;
    ChangeCounter& operator=(const ChangeCounter&) = delete;

    int calls = 0;

private:
    void update() override { ++calls; }

    ITellurixController& controller_;
};
