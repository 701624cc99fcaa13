#pragma once

#include "common/page.h"
#include "site/element_summary.h"

#include <cstddef>
#include <memory>
#include <optional>

class DrawingView;
class ModeScreen;
class QComboBox;
class QLabel;
class QPushButton;
class ResultTable;

// One element: statistics of all its properties, the values of the chosen one with those that were left out,
// and pictures.
class StatisticsPage : public Page
{
public:
    explicit StatisticsPage(ModeScreen& screen, QWidget* parent = nullptr);

    void read(IDBProject* project) override;
    void forget() override;
    void calculate() override;
    std::optional<Document> report() override;
    void tellView(ITellurixController& controller) const override;

private:
    QWidget* makeTables();
    void showElement();
    void showValues();
    void showPicture();
    void toggleValue();
    int property() const;
    int language() const;
    const SiteElement* element() const;

    ModeScreen& screen_;
    std::unique_ptr<SiteLaboratory> laboratory_;
    std::vector<int> properties_; // of the rows
    std::vector<ElementValue> values_; // of the chosen property
    std::vector<std::size_t> shownValues_; // sample of each row of the values
    std::optional<std::size_t> toggled_; // sample of the value that goes out or comes back just now
    QString wanted_; // number of the element that the user has chosen
    QComboBox* elements_;
    QComboBox* pictures_;
    ResultTable* statistics_;
    ResultTable* valueTable_;
    QPushButton* toggle_;
    QLabel* warning_;
    DrawingView* view_;
};
