#include "modules/module_export.h"
#include "setup/setup_dialog.h"

TELLURIX_MODULE QWidget* createWidget(ITellurixController* controller)
{
    return new SetupDialog(controller);
}
