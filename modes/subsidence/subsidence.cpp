#include "common/paged_screen.h"
#include "common/report_page.h"
#include "common/sheet_page.h"
#include "dictionaries/report_language.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "modules/module_export.h"
#include "reports/subsidence_report.h"
#include "tables/tables.h"

#include <QCoreApplication>
#include <QVBoxLayout>

namespace
{

// What was typed into the project's own tables of subsidence, to be looked at.
class TypedPage : public Page
{
public:
    TypedPage(const Table& table, ITellurixController* controller)
        : controller_(controller)
        , page_(new SheetPage(
              table, [this] { return source(); }, QStringLiteral("subsidence.png"), {}, this))
    {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 8, 0, 0);
        layout->addWidget(page_);
    }

    void read(IDBProject*) override { page_->read(); }

private:
    std::optional<TableSource> source() const
    {
        IDBProject* project = controller_->project();
        if (!project)
            return std::nullopt;
        return TableSource{*project, knownLanguage(controller_->settings()->reportLanguage())};
    }

    ITellurixController* controller_;
    SheetPage* page_;
};

class SubsidenceScreen : public PagedScreen
{
public:
    SubsidenceScreen(TX_Modes mode, ITellurixController* controller)
        : PagedScreen(mode, controller, QStringLiteral("subsidence"))
    {
        const auto make = [controller](IDBProject& project) -> std::optional<Document> {
            Document document =
                subsidenceReport(project, knownLanguage(controller->settings()->reportLanguage()));
            if (document.blocks.empty())
                return std::nullopt;
            return document;
        };
        addPage(new ReportPage(make,
                    QStringLiteral("Просадка не рассчитана: ни у одной точки нет испытаний на просадочность. "
                                   "Они вносятся в режиме лаборатории.")),
            QStringLiteral("Расчет"));
        for (const Table& table : subsidenceTables())
            addPage(new TypedPage(table, controller),
                QString::fromWCharArray(table.title.data(), static_cast<int>(table.title.size())));
        start();
    }
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new SubsidenceScreen(*mode, controller);
}
