#pragma once

#include "laboratory/sample_edits.h"
#include "laboratory/sample_forms.h"

#include <QWidget>

class EditGrid;
class QVBoxLayout;
class TestHead;

// The form of one sample's test: all rows and cells of its record.
class SampleFormView : public QWidget
{
    Q_OBJECT

public:
    explicit SampleFormView(LabTest test, QWidget* parent = nullptr);

    // With all rows of the ladder and the choice of the sample's set, or with the rows in use.
    void read(IDBProject& project,
        const PointDepthKey& key,
        const LabSample& sample,
        const TestChoice& choice,
        int language,
        bool hasAllRows);
    void closeEditor();
    // The row of a cell by its number becomes the current one.
    void showCell(int number);

Q_SIGNALS:
    void edited(const SampleStates& before, const SampleStates& after);
    void told(const QString& text);

private:
    void makeGrid();
    void mark(GridRows& rows, const SampleResult& result) const;
    void take(const GridRows& after);

    const LabTest test_;
    QVBoxLayout* layout_;
    TestHead* head_ = nullptr;
    EditGrid* grid_ = nullptr;
    QStringList heads_;
    SampleForm form_;
    PointDepthKey key_;
    LabSample sample_; // as read
};
