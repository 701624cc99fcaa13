#include "ige/ige_screen.h"
#include "modules/module_export.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new IgeScreen(*mode, controller);
}
