#include "chemistry/analyses_page.h"
#include "chemistry/chemistry_setup.h"
#include "common/paged_screen.h"
#include "common/report_page.h"
#include "modules/module_export.h"

namespace
{

class ChemistryScreen : public PagedScreen
{
public:
    ChemistryScreen(TX_Modes mode, ITellurixController* controller)
        : PagedScreen(mode, controller, QStringLiteral("chemistry"))
    {
        addPage(new AnalysesPage(*this), QStringLiteral("Анализы"));
        addPage(new ReportPage(
                    chemistryDocument, QStringLiteral("Анализов нет: внесите их на странице «Анализы».")),
            QStringLiteral("Состав и агрессивность"));
        start();
    }
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new ChemistryScreen(*mode, controller);
}
