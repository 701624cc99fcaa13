#include "laboratory/laboratory_screen.h"
#include "modules/module_export.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new LaboratoryScreen(*mode, controller);
}
