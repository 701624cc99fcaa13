#include "chemistry/aggressiveness_page.h"
#include "chemistry/analyses_page.h"
#include "common/paged_screen.h"
#include "modules/module_export.h"

namespace
{

class ChemistryScreen : public PagedScreen
{
public:
    ChemistryScreen(TX_Modes mode, ITellurixController* controller)
        : PagedScreen(mode, controller, QStringLiteral("chemistry"))
    {
        addPage(new AnalysesPage(*this, AnalysesPage::Kind::Water), QStringLiteral("Вода"));
        addPage(new AnalysesPage(*this, AnalysesPage::Kind::Soil), QStringLiteral("Грунт"));
        addPage(new AggressivenessPage(*this), QStringLiteral("Состав и агрессивность"));
        start();
    }
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new ChemistryScreen(*mode, controller);
}
