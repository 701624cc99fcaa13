#include "modules/module_export.h"
#include "projects/projects_screen.h"

TELLURIX_MODULE QWidget* createWidget(IMainController* controller, QProgressBar* progress)
{
    return new ProjectsScreen(controller, progress);
}
