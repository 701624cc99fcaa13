#pragma once

#include "modules/itellurix_controller.h"
#include "modules/tx_widget.h"

// Counts the water levels of the open project, classifies a clay and stores one level.
class WatersScreen : public TXWidget
{
    Q_OBJECT

public:
    WatersScreen(TX_Modes mode, ITellurixController* controller);

private:
    void refresh();
    bool store();

    TX_Modes mode_;
    ITellurixController* controller_;
};
