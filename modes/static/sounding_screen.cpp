#include "static/sounding_screen.h"

#include "static/graph_page.h"
#include "static/journal_page.h"
#include "static/pile_page.h"
#include "static/soils_page.h"

SoundingScreen::SoundingScreen(TX_Modes mode, ITellurixController* controller)
    : PagedScreen(mode, controller, QStringLiteral("static"))
{
    const auto choice = std::make_shared<SoundingChoice>();
    addPage(new JournalPage(*this, choice), QStringLiteral("Журнал"));
    addPage(new GraphPage(*this, choice), QStringLiteral("Графики"));
    addPage(new SoilsPage(*this), QStringLiteral("Грунты"));
    addPage(new PilePage(*this), QStringLiteral("Сваи"));
    start();
}
