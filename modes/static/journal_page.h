#pragma once

#include "common/edit_grid_model.h"
#include "common/page.h"
#include "static/sounding_choice.h"
#include "static/sounding_states.h"

#include <memory>
#include <vector>

class EditGrid;
class ModeScreen;
class PointList;
class QComboBox;
class QLabel;
class QLineEdit;
class ReadingsGraph;
struct SoundingReading;

// Journals: the points on the left, the readings of the chosen one with their graph on the right, above them
// rig, date and probe. Every act is one step of undo; what is typed is stored at once, and marked where it
// looks wrong.
class JournalPage : public Page
{
    Q_OBJECT

public:
    JournalPage(ModeScreen& screen, std::shared_ptr<SoundingChoice> choice);

    void read(IDBProject* project) override;
    void closeEditors() override;
    void deleteRecords() override;
    void addRecord() override;
    std::optional<Document> report() override;
    bool canAdd() const override;
    bool canDelete() const override { return canAdd(); }
    void tellView(ITellurixController& controller) const override;

private:
    void layOut();
    QWidget* makeHead();
    void readPoints(IDBProject& project);
    void readJournal(IDBProject& project);
    void showGraph(IDBProject& project, const std::vector<SoundingReading>& readings, const GridRows& rows);
    void choosePoint(const QString& name);
    void edit(const GridRows& after);
    void storeHead();
    void storeProbe();
    // One step of undo from the stored journal to this one.
    void store(JournalState after);
    void fillDepths();
    void convertForces();
    void divideTips();
    void importFile();

    ModeScreen& screen_;
    const std::shared_ptr<SoundingChoice> choice_;
    PointList* points_;
    EditGrid* grid_;
    ReadingsGraph* graph_;
    QLabel* title_;
    QLineEdit* rig_;
    QLineEdit* date_;
    QComboBox* instrument_;
    QComboBox* probe_;
    QVector<qint64> ids_; // beside the stored rows
    qint64 lastId_ = 0;
    bool isReading_ = false;
};
