#include "common/report_page.h"

#include "common/drawing_view.h"
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
}

void ReportPage::read(IDBProject* project)
{
    document_ = project ? make_(*project) : std::nullopt;
    if (document_)
        view_->setPages(pagesOf(*document_), {}, QString::fromStdWString(fileNameOf(document_->title)));
    else
        view_->setMessage(project ? whenEmpty_ : QStringLiteral("Проект не открыт."));
}
