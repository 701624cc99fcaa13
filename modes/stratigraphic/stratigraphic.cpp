#include "common/sheet_drawings.h"
#include "common/sheets/sheets.h"
#include "modules/module_export.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new SheetScreen(*mode,
        controller,
        stratigraphicColumnSheets(),
        {{"stratigraphic/columns", columnDrawing(controller)}});
}
