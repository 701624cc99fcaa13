#pragma once

#include "common/paged_screen.h"

// The screen of the elements.
class IgeScreen : public PagedScreen
{
public:
    IgeScreen(TX_Modes mode, ITellurixController* controller);
};
