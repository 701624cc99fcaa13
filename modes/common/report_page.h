#pragma once

#include "common/page.h"

#include <functional>

class DrawingView;

// A page that shows a report as it will stand on paper. The report is made anew whenever the project has
// changed, and handed over by the shell's order like that of any page.
class ReportPage : public Page
{
public:
    // Nothing: there is nothing to report; the sentence stands in its place.
    using Make = std::function<std::optional<Document>(IDBProject& project)>;
    ReportPage(Make make, const QString& whenEmpty, QWidget* parent = nullptr);

    void read(IDBProject* project) override;
    std::optional<Document> report() override { return document_; }

private:
    Document onPaper(Document document) const;

    Make make_;
    QString whenEmpty_;
    std::optional<Document> document_;
    DrawingView* view_;
};
