#pragma once

#include "common/paged_screen.h"
#include "laboratory/sample_edits.h"
#include "laboratory/test_choice.h"

#include <set>
#include <vector>

class TestPage;

// Mode 7: the register of laboratory samples and a page for each test.
class LaboratoryScreen : public PagedScreen
{
public:
    LaboratoryScreen(TX_Modes mode, ITellurixController* controller);

protected:
    void becomeCurrent() override;
    void forgetProject() override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void connectLaboratory();
    TestPage* testInFront() const;
    void editingChanged(TestPage* page, bool isEditing);
    // The columns of new samples and tables: what of the ladders and properties the project uses.
    void chooseSet(LabTest test);
    void takeMainSet(LabTest test);
    // Whether the shell's "Основной набор свойств" is there for the page in front.
    void tellSets();

    SampleStore store_;
    std::vector<TestPage*> tests_;
    std::set<LabTest> main_; // where the user has taken the main set by the shell's action
};
