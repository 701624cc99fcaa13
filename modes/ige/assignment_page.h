#pragma once

#include "common/page.h"
#include "ige/assignment_view.h"
#include "site/element_proposal.h"

#include <optional>

class ModeScreen;
class QFrame;
class QLabel;
class QListWidget;

// Which layer belongs to which element: the layers of the site side by side, the elements to give beside
// them, and what has none.
class AssignmentPage : public Page
{
public:
    explicit AssignmentPage(ModeScreen& screen, QWidget* parent = nullptr);

    void read(IDBProject* project) override;
    void forget() override;
    void tellView(ITellurixController& controller) const override;

private:
    QWidget* makeSide();
    void makeBanner();
    void readElements(IDBProject& project);
    void readLayers(IDBProject& project);
    void readMissing(IDBProject& project);
    void showProposal();
    void chooseBrush();
    void assign(const QVector<LayerPlace>& layers, const QString& element);
    void addElementForLayer();
    void propose();
    void takeProposal();

    ModeScreen& screen_;
    AssignmentView* view_;
    QListWidget* elements_;
    QListWidget* missing_;
    QLabel* missingTitle_;
    QFrame* banner_;
    QLabel* bannerText_;
    std::optional<ElementProposal> proposal_;
};
