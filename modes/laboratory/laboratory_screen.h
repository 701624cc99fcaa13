#pragma once

#include "common/paged_screen.h"
#include "laboratory/sample_columns.h"

#include <vector>

class TestPage;

// Mode 7: the register of laboratory samples and a page for each test.
class LaboratoryScreen : public PagedScreen
{
public:
    LaboratoryScreen(TX_Modes mode, ITellurixController* controller);

    const std::vector<TestPage*>& pages() const { return tests_; }

protected:
    void becomeCurrent() override;

private:
    void connectLaboratory();
    TestPage* testInFront() const;
    void editingChanged(TestPage* page, bool isEditing);
    // The columns of new samples and tables: what of the ladders and properties the project uses.
    void chooseSet(LabTest test);

    std::vector<TestPage*> tests_;
};
