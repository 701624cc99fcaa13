#include "modules/module_export.h"
#include "stratigraphic/stratigraphic_screen.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new StratigraphicScreen(*mode, controller);
}
