#include "common/sheet_drawings.h"
#include "common/sheets/sheets.h"
#include "modules/icreate_widget.h"
#include "modules/module_export.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller, ICreateWidget*)
{
    return new SheetScreen(*mode, controller, sectionSheets(), sectionDrawings(controller));
}
