#include "igk/igk_screen.h"
#include "modules/module_export.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new IgkScreen(*mode, controller);
}
