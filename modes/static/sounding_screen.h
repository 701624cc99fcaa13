#pragma once

#include "common/paged_screen.h"

// Static sounding: journals, graphs, soils, piles.
class SoundingScreen : public PagedScreen
{
public:
    SoundingScreen(TX_Modes mode, ITellurixController* controller);
};
