#pragma once

#include "common/page.h"
#include "laboratory/sample_edits.h"
#include "laboratory/test_choice.h"

#include <vector>

class EditGrid;
class ModeScreen;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QSplitter;
class QStackedWidget;
class SampleCurve;
class SampleFormView;
class SampleTable;

// A test of the laboratory: the table of all samples, one row a sample, with the curve of the current one
// beside it; and the form of one sample, which is entered by "Изменить пробу" and left by the shell's end of
// editing.
class TestPage : public Page
{
    Q_OBJECT

public:
    TestPage(ModeScreen& screen, SampleStore& store, LabTest test);

    void read(IDBProject* project) override;
    void forget() override;
    void closeEditors() override;
    void calculate() override;
    void clearData() override;
    std::optional<Document> report() override;
    bool canDelete() const override { return false; }
    void tellView(ITellurixController& controller) const override;
    void settingsChanged() override { hasOldNames_ = true; }

    bool isEditing() const { return isEditing_; }
    void beginEditing();
    void endEditing();
    // Every row of the ladder in the form, or those in use.
    void showAllRows(bool all);
    LabTest test() const { return choice_.test; }

Q_SIGNALS:
    // A sample is being edited now, or no longer.
    void editingChanged(bool isEditing);
    // The user asks for the properties or loads of the project's set.
    void setWanted();

private:
    QHBoxLayout* makeBar();
    void addChoices(QHBoxLayout& bar);
    void addFilter(QHBoxLayout& bar);
    QPushButton* addButton(QHBoxLayout& bar, const char* text, const char* tip, void (TestPage::*act)());
    void connectParts();

    void chooseMethod(IDBProject& project);
    void fillMethods();
    void keepMethod();
    void readForm(IDBProject& project);
    void showCurve();
    const PointDepthKey* currentKey() const;
    std::vector<PointDepthKey> chosenKeys() const;
    int language() const;

    void recalculate();
    void fill(bool replaces);
    void openParallels();
    void makePassports();
    void toggleEditing();

    ModeScreen& screen_;
    SampleStore& store_;
    TestChoice choice_;
    QComboBox* method_ = nullptr;
    QComboBox* branch_ = nullptr;
    QLineEdit* filter_ = nullptr;
    QPushButton* edit_ = nullptr;
    QLabel* title_ = nullptr;
    QSplitter* splitter_;
    QStackedWidget* stack_;
    SampleTable* table_;
    SampleFormView* form_;
    SampleCurve* curve_;
    bool isNewProject_ = true;
    bool hasOldNames_ = true;
    bool isEditing_ = false;
    bool hasAllRows_ = false;
    PointDepthKey edited_;
};
