#pragma once

#include "common/page.h"
#include "site/element_summary.h"

class ModeScreen;
class QLabel;
class QComboBox;
class ResultTable;

// Normative and design values of all elements.
class SummaryPage : public Page
{
public:
    explicit SummaryPage(ModeScreen& screen, QWidget* parent = nullptr);

    void read(IDBProject* project) override;
    void calculate() override;
    std::optional<Document> report() override;
    void tellView(ITellurixController& controller) const override;

private:
    ModeScreen& screen_;
    ResultTable* table_;
    QLabel* notes_;
};

// Two elements side by side: may they be one?
class ComparisonPage : public Page
{
public:
    explicit ComparisonPage(ModeScreen& screen, QWidget* parent = nullptr);

    void read(IDBProject* project) override;
    void tellView(ITellurixController& controller) const override;

private:
    void chooseTwoWithSamples(const SiteLaboratory& laboratory);
    void compareChosen();
    void compareIn(const SiteLaboratory* laboratory);

    ModeScreen& screen_;
    QComboBox* first_;
    QComboBox* second_;
    ResultTable* table_;
    QLabel* answer_;
};
