#include "ige/ige_screen.h"

#include "ige/assignment_page.h"
#include "ige/elements_page.h"
#include "ige/statistics_page.h"
#include "ige/summary_page.h"

IgeScreen::IgeScreen(TX_Modes mode, ITellurixController* controller)
    : PagedScreen(mode, controller, QStringLiteral("ige"))
{
    addPage(new ElementsPage(*this), QStringLiteral("Элементы"));
    addPage(new AssignmentPage(*this), QStringLiteral("Распределение"));
    addPage(new StatisticsPage(*this), QStringLiteral("Статистика"));
    addPage(new SummaryPage(*this), QStringLiteral("Сводная таблица"));
    addPage(new ComparisonPage(*this), QStringLiteral("Сравнение"));
    start();
}
