#pragma once

#include "common/edit_grid_model.h"
#include "common/page.h"
#include "site/pile_task.h"

class DrawingView;
class EditGrid;
class ModeScreen;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QFormLayout;
class QLabel;
class QSpinBox;

// Piles: kind, section, depths and coefficients on the left, the capacity by all soundings on the right, as
// table and picture. What is chosen is stored at once; "Расчет значений" stores the results too.
class PilePage : public Page
{
    Q_OBJECT

public:
    explicit PilePage(ModeScreen& screen);

    void read(IDBProject* project) override;
    void closeEditors() override;
    void calculate() override;
    std::optional<Document> report() override;
    void tellView(ITellurixController& controller) const override;

private:
    QWidget* makeForm();
    QWidget* makeResults();
    void readForm(IDBProject& project);
    void readSoils(IDBProject& project);
    void readTyped(IDBProject& project);
    void showResults(IDBProject& project);
    void storeForm();
    void storeSoils(const GridRows& after);
    void storeTyped(const GridRows& after);

    ModeScreen& screen_;
    QComboBox* kind_;
    QComboBox* section_;
    QSpinBox* side_;
    QSpinBox* secondSide_;
    QDoubleSpinBox* planning_;
    QDoubleSpinBox* first_;
    QDoubleSpinBox* last_;
    QDoubleSpinBox* step_;
    QDoubleSpinBox* condition_;
    QDoubleSpinBox* tipCondition_;
    QDoubleSpinBox* importance_;
    QCheckBox* hasParts_;
    EditGrid* soils_;
    EditGrid* typed_;
    QLabel* typedTitle_;
    EditGrid* results_;
    QLabel* title_;
    DrawingView* picture_;
    bool isReading_ = false;
};
