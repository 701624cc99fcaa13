#include "common/report_page.h"

#include "common/drawing_view.h"
#include "common/office_paper.h"
#include "document/document_file.h"
#include "document/pages.h"

#include <QVBoxLayout>

ReportPage::ReportPage(Make make, const QString& whenEmpty, QWidget* parent)
    : Page(parent)
    , make_(std::move(make))
    , whenEmpty_(whenEmpty)
    , view_(new DrawingView(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
    setFocusProxy(view_);
}

void ReportPage::read(IDBProject* project)
{
    document_ = project ? make_(*project) : std::nullopt;
    if (document_)
        view_->setPages(
            pagesOf(onPaper(*document_)), {}, QString::fromStdWString(fileNameOf(document_->title)));
    else
        view_->setMessage(project ? whenEmpty_ : QStringLiteral("Проект не открыт."));
}

// As the office hands it over.
Document ReportPage::onPaper(Document document) const
{
    ITellurixController* controller = controllerOf(this);
    if (!controller)
        return document;
    const OfficePaper paper = officePaper(*controller);
    addOffice(document, paper.office, paper.logo);
    if (paper.office.hasFrame)
        addFrames(document, paper.texts);
    return document;
}
