#pragma once

#include "common/page.h"

class ModeScreen;
class QComboBox;
class QLineEdit;
class ReportPage;

// The report of the site's subsidence, and above it whether a foundation's load is looked at and which. The
// foundation is the project's and a step of undo, the kind of calculation a setting.
class CalculationPage : public Page
{
public:
    explicit CalculationPage(ModeScreen& screen);

    void read(IDBProject* project) override;
    void closeEditors() override;
    void calculate() override;
    std::optional<Document> report() override;
    // The report with the calculation that is chosen here.
    std::optional<Document> make(IDBProject& project) const;

private:
    void store();

    ModeScreen& screen_;
    QComboBox* kind_;
    QLineEdit* fields_[4];
    ReportPage* page_;
};

// Fills the empty figures of the project, or replaces all, as one step of undo; answers how many points have
// a result.
int fillSubsidence(ModeScreen& screen, bool all);
