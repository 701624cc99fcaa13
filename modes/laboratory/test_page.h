#pragma once

#include "common/page.h"
#include "laboratory/sample_columns.h"
#include "laboratory/sample_edits.h"
#include "site/laboratory.h"

#include <QHash>

#include <memory>
#include <vector>

class DrawingView;
class EditGrid;
class ModeScreen;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSplitter;
class QStackedWidget;
class QVBoxLayout;
class SiteLaboratory;

// A test of the laboratory: the table of all samples, one row a sample, with the curve of the current one
// beside it; and the form of one sample, which is entered by "Изменить пробу" and left by the shell's end of
// editing.
class TestPage : public Page
{
    Q_OBJECT

public:
    TestPage(ModeScreen& screen, LabTest test);
    ~TestPage() override;

    void read(IDBProject* project) override;
    void forget() override;
    void closeEditors() override;
    void calculate() override;
    void clearData() override;
    std::optional<Document> report() override;
    bool canDelete() const override { return false; }
    void tellView(ITellurixController& controller) const override;
    void settingsChanged() override { isStale_ = true; }

    bool isEditing() const { return isEditing_; }
    void beginEditing();
    void endEditing();
    // Every row of the ladder in the form, or those in use.
    void showAllRows(bool all);
    LabTest test() const { return choice_.test; }
    EditGrid* grid() const { return grid_; }

Q_SIGNALS:
    // A sample is being edited now, or no longer.
    void editingChanged(bool isEditing);

private:
    void makeBar(QVBoxLayout* layout);
    void makeGrid();
    void readTable(IDBProject& project);
    void readForm(IDBProject& project);
    void showMarks(GridRow& row, const std::vector<SampleColumn>& columns, const LabSample& sample) const;
    void tableEdited(const GridRows& after);
    void formEdited(const GridRows& after);
    void showCurve();
    void fill(bool replaces);
    void openParallels();
    void store(SampleStates before, SampleStates after);
    void addMethods();
    const PointDepthKey* currentKey() const;
    qint64 idOf(const PointDepthKey& key);
    SampleResult resultOf(IDBProject& project, const LabSample& sample) const;

    ModeScreen& screen_;
    TestChoice choice_;
    QComboBox* method_ = nullptr;
    QComboBox* branch_ = nullptr;
    QLineEdit* filter_ = nullptr;
    QPushButton* edit_ = nullptr;
    QPushButton* recalculate_ = nullptr;
    QPushButton* parallels_ = nullptr;
    QLabel* title_ = nullptr;
    QSplitter* splitter_;
    QStackedWidget* stack_;
    DrawingView* view_;
    EditGrid* grid_ = nullptr;
    EditGrid* formGrid_ = nullptr;
    QStringList heads_; // of the columns that the grid was made with
    std::vector<SampleColumn> columns_;
    SampleForm form_;
    GridRows rows_;
    std::vector<PointDepthKey> keys_; // as the rows stand
    QHash<QString, qint64> ids_;
    QHash<qint64, int> places_;
    qint64 lastId_ = 0;
    bool isStale_ = true;
    SampleStates changing_; // while this page changes the project: what it changes
    bool isEditing_ = false;
    bool hasAllRows_ = false;
    PointDepthKey edited_;
    std::unique_ptr<SiteLaboratory> site_; // made when a curve needs the layers, gone with the next change
};
