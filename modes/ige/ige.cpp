#include "common/sheet_screen.h"
#include "modules/module_export.h"
#include "tables/tables.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new SheetScreen(*mode, controller, elementTables());
}
