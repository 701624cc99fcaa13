#include "common/sheet_drawings.h"
#include "modules/icreate_widget.h"
#include "modules/module_export.h"
#include "tables/tables.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller, ICreateWidget*)
{
    return new SheetScreen(*mode, controller, sectionTables(), sectionDrawings(controller));
}
