#include "modules/module_export.h"
#include "static/sounding_screen.h"

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new SoundingScreen(*mode, controller);
}
