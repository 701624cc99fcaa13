#pragma once

#include "laboratory/test_choice.h"
#include "modules/idbproject.h"

#include <QDialog>

#include <set>
#include <vector>

class QDoubleSpinBox;
class QListWidget;

// What new samples and the tables start from: the project's own sets of properties and loads, the heights of
// the specimens.
struct SetState {
    std::vector<PropertyCell> physical;
    std::vector<ShearCell> shear;
    std::vector<CompressionCell> compression;
    std::vector<SwellingCell> swelling;
    LabTriple rings;
};

SetState setStateOf(IDBProject& project);
void putSetState(IDBProject& project, const SetState& state);
// With these numbers in the set of the test; rows that stay keep what they hold. None: the main set.
SetState withSet(SetState state, LabTest test, const std::set<int>& numbers);

// The choice of a project's own set.
class SetDialog : public QDialog
{
    Q_OBJECT

public:
    SetDialog(IDBProject& project, LabTest test, QWidget* parent = nullptr);

    SetState chosen() const;
    bool hasChanged() const;

private:
    void fillList(IDBProject& project);
    void check(const std::set<int>& numbers);
    std::set<int> checked() const;

    const LabTest test_;
    const SetState before_;
    QListWidget* list_;
    QDoubleSpinBox* ring_ = nullptr; // of the oedometer or of the swelling test
    std::set<int> first_; // checked at the beginning
    double firstRing_ = 0;
};
