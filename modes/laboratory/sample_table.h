#pragma once

#include "common/edit_grid_model.h"
#include "laboratory/sample_columns.h"
#include "laboratory/sample_edits.h"
#include "laboratory/sample_ids.h"

#include <QHash>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <vector>

class EditGrid;
class QVBoxLayout;

// The table of all samples of one test: one row a sample, one column a property or a load. A block from a
// spreadsheet goes in at once; what is impossible is marked with its reason.
class SampleTable : public QWidget
{
    Q_OBJECT

public:
    explicit SampleTable(LabTest test, QWidget* parent = nullptr);

    // Of the changed samples alone where they are given and nothing else can be another.
    void read(IDBProject& project,
        const TestChoice& choice,
        int language,
        const std::vector<PointDepthKey>* changed);
    void clear();
    void closeEditor();
    void setFilterText(const QString& text);

    // The sample of the current row, else the first; null where there is none.
    const PointDepthKey* currentKey() const;
    std::vector<PointDepthKey> selectedKeys() const;
    bool isEmpty() const { return keys_.empty(); }
    // Makes the first sample current of which this is true, if there is one.
    void showFirst(const std::function<bool(const LabSample&)>& isWanted);

Q_SIGNALS:
    void edited(const SampleStates& before, const SampleStates& after);
    void currentChanged();
    void told(const QString& text);

private:
    void makeGrid();
    void readAll(IDBProject& project);
    bool readChanged(IDBProject& project, const std::vector<PointDepthKey>& changed);
    GridRow rowOf(IDBProject& project, const PointDepthKey& key, const LabSample& sample);
    void take(const GridRows& after);

    const LabTest test_;
    EditGrid* grid_ = nullptr;
    QVBoxLayout* layout_;
    QString filter_;
    QStringList heads_; // of the columns that the grid was made with
    std::vector<SampleColumn> columns_;
    std::vector<std::string> marks_; // of the columns
    IDBProject* project_ = nullptr; // of the last reading
    GridRows rows_;
    std::vector<PointDepthKey> keys_; // as the rows stand
    SampleIds ids_;
    QHash<qint64, int> places_;
};
