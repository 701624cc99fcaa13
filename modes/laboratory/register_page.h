#pragma once

#include "common/page.h"
#include "laboratory/sample_edits.h"

#include <QHash>

#include <vector>

class EditGrid;
class ModeScreen;
class QComboBox;
class QLineEdit;

struct GridRow;

// "Реестр проб": what samples there are, where they were taken, which tests they have. Samples are added and
// deleted here; those of the samples register come in one step.
class RegisterPage : public Page
{
    Q_OBJECT

public:
    explicit RegisterPage(ModeScreen& screen);

    void read(IDBProject* project) override;
    void forget() override;
    void closeEditors() override;
    QString problem() override;
    void calculate() override;
    std::optional<Document> report() override;
    void tellView(ITellurixController& controller) const override;

private:
    void edited(const QVector<GridRow>& after);
    void takeFromRegister();
    void addFilters(QWidget* bar);
    bool isShown(const LabSample& sample, std::wstring_view element) const;
    void store(SampleStates before, SampleStates after);

    ModeScreen& screen_;
    EditGrid* grid_;
    QLineEdit* filter_;
    QComboBox* missing_;
    std::vector<PointDepthKey> keys_; // by the id of the row less one
    QVector<GridRow> open_; // typed, but not a sample yet
    qint64 lastOpen_ = 0;
};
