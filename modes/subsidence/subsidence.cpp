#include "common/paged_screen.h"
#include "modules/module_export.h"
#include "subsidence/calculation_page.h"
#include "subsidence/results_page.h"

namespace
{

class SubsidenceScreen : public PagedScreen
{
public:
    SubsidenceScreen(TX_Modes mode, ITellurixController* controller)
        : PagedScreen(mode, controller, QStringLiteral("subsidence"))
    {
        auto* calculation = new CalculationPage(*this);
        addPage(calculation, QStringLiteral("Расчет"));
        addPage(new ResultsPage(*this, *calculation), QStringLiteral("Итоги и ручной ввод"));
        start();
    }
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new SubsidenceScreen(*mode, controller);
}
