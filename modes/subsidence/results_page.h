#pragma once

#include "common/edit_grid.h"
#include "common/page.h"

class CalculationPage;
class ModeScreen;
struct SubsidencePoint;
struct SubsidenceState;

// The figures of the points as the project keeps them, and the layers of the current point below: all can be
// typed over. What was typed is marked and has the calculated figure in its tool tip; an emptied cell is
// calculated again.
class ResultsPage : public Page
{
public:
    ResultsPage(ModeScreen& screen, const CalculationPage& calculation);

    void read(IDBProject* project) override;
    void closeEditors() override;
    void calculate() override;
    std::optional<Document> report() override;

private:
    void editPoints(const GridRows& after);
    void editRows(const GridRows& after);
    void showRows(IDBProject* project);
    void put(const SubsidenceState& after);
    QString currentPoint() const;

    ModeScreen& screen_;
    const CalculationPage& calculation_;
    EditGrid* points_;
    EditGrid* rows_;
    class QLabel* rowsTitle_;
};
