#include "modules/module_export.h"
#include "stratigraphicIge/element_column_screen.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new ElementColumnScreen(*mode, controller);
}
