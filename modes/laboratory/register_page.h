#pragma once

#include "common/page.h"
#include "laboratory/sample_edits.h"
#include "laboratory/sample_ids.h"

#include <QHash>

class EditGrid;
class ModeScreen;
class QComboBox;
class QHBoxLayout;
class QLineEdit;

struct GridRow;

// "Реестр проб": what samples there are, where they were taken, which tests they have. Samples are added and
// deleted here; those of the samples register come in one step.
class RegisterPage : public Page
{
    Q_OBJECT

public:
    RegisterPage(ModeScreen& screen, SampleStore& store);

    void read(IDBProject* project) override;
    void forget() override;
    void closeEditors() override;
    QString problem() override;
    void addRecord() override;
    void deleteRecords() override;
    bool canAdd() const override { return true; }
    bool canDelete() const override { return true; }
    void calculate() override;
    std::optional<Document> report() override;
    void tellView(ITellurixController& controller) const override;

private:
    struct Edits;

    void makeBar(QHBoxLayout& bar);
    void readAll(IDBProject& project);
    bool readChanged(IDBProject& project, const std::vector<PointDepthKey>& changed);
    void edited(const QVector<GridRow>& after);
    void takeRow(IDBProject& project, GridRow row, Edits& edits);
    void takeFromRegister();
    void makeSummary(bool byElement);
    bool isShown(const LabSample& sample) const;
    void store(SampleStates before, SampleStates after);

    ModeScreen& screen_;
    SampleStore& store_;
    EditGrid* grid_;
    QLineEdit* filter_;
    QComboBox* missing_;
    SampleIds ids_; // of all samples that have been seen
    QHash<qint64, int> places_; // of the rows as read
    QVector<GridRow> shown_; // as read
    std::vector<PointDepthKey> keys_; // beside them
    QVector<GridRow> open_; // typed, but not a sample yet
};
