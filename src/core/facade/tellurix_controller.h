#pragma once

#include "core/base/reference.h"
#include "core/facade/tx_undo_redo.h"
#include "db/db_project.h"
#include "ground/ground_controller.h"
#include "modules/itellurix_controller.h"
#include "persistence/hatch_library.h"
#include "persistence/igk_preset_library.h"
#include "settings/settings.h"

#include <QString>

#include <map>
#include <memory>
#include <tuple>

class QLibrary;

// The kinds of actions whose state a screen decides: the second part of an access key.
enum ActionKind : int {
    DeleteRecords = 2,
    AddRecords = 3,
    MainPropertySet = 4,
    PropertySet = 5,
};

// The facade of the shell: what every module receives, and the small pieces of screen state that shell and
// modules share. One object for the whole run. It owns the module libraries, the undo histories and the two
// pattern libraries; project and settings belong to others.
class TellurixController : public MObservable, public ITellurixController, public GroundController
{
public:
    using AccessKey = std::tuple<TX_Modes, int, TX_Lab_Modes>;

    // Reads the two libraries beside the program. Throws MException, in words for the user, where a file is
    // missing or damaged; a file that is no such library leaves null.
    TellurixController(Settings* settings, DBProject* project);
    ~TellurixController() override;

    // Observers, for the interface and for the class behind it.
    std::size_t attach(IMObserver* observer) override { return MObservable::attach(observer); }
    void detach(IMObserver* observer) override { MObservable::detach(observer); }
    void setNotifying(bool notifying) override { MObservable::setNotifying(notifying); }
    void notify() override { MObservable::notify(); }

    ITXUndoRedo* undoRedo() override { return &undoRedo_; }
    void undo() override;
    void redo() override;

    ISettings* settings() override { return settings_; }
    IDBProject* project() override { return project_; }
    IDBHatch* hatch() override { return hatch_.get(); }
    IDBIgkPreset* igkPreset() override { return igkPreset_.get(); }

    void setEditedSample(const std::wstring& value) override { context_.sample = value; }
    const std::wstring& editedSample() override { return context_.sample; }
    UndoContext undoContext() override;

    QAction* deleteAction() override { return actions_.deleteRecords; }
    QAction* addAction() override { return actions_.add; }
    QAction* mainSetAction() override { return actions_.mainSet; }
    QAction* setAction() override { return actions_.set; }
    QAction* sampleSetAction() override { return actions_.sampleSet; }
    QAction* calcAction() override { return actions_.calc; }
    QAction* clearAction() override { return actions_.clear; }
    QAction* sortAction() override { return actions_.sort; }
    QAction* endEditAction() override { return actions_.endEdit; }
    QAction* reportAction() override { return actions_.report; }

    void setLabMode(const TX_Lab_Modes& value) override { context_.labMode = value; }
    TX_Lab_Modes labMode() override { return context_.labMode; }
    void setLabState(const std::int32_t& value) override { context_.labState = value; }
    std::int32_t labState() override { return context_.labState; }
    void setEditedSampleName(const std::wstring& value) override { context_.sampleName = value; }
    const TX_Modes& currentMode() override { return context_.mode; }
    void setCurrentMode(const TX_Modes& value) override { context_.mode = value; }
    void reset() override;

    void setCompressionView(const std::int32_t& value) override { context_.compressionView = value; }
    void setShearView(const std::int32_t& value) override { context_.shearView = value; }
    void setColumnModified(bool value) override { columnModified_ = value; }
    void setIgeView(const std::int32_t& value) override { igeView_ = value; }
    std::int32_t probingView() override { return context_.probingView; }
    void setProbingView(const std::int32_t& value) override { context_.probingView = value; }
    std::int32_t probingSubView() override { return context_.probingSubView; }
    void setProbingSubView(const std::int32_t& value) override { context_.probingSubView = value; }
    void setChemistryFlag(bool value) override { context_.chemistryFlag = value; }
    bool sectionEditorAvailable() override;

    // For the shell.
    virtual Settings* dbSettings() { return settings_; }
    virtual DBProject* dbProject() { return project_; }
    virtual DBHatch* dbHatch() { return hatch_.get(); }
    virtual DBIgkPreset* dbIgkPreset() { return igkPreset_.get(); }

    // Keeps the library under the mode of its file name; throws std::out_of_range("invalid map<K, T> key")
    // for a name that no mode has.
    void addModule(const QString& fileName, std::unique_ptr<QLibrary> library);
    // Null where none is loaded.
    QLibrary* libraryOf(const TX_Modes& mode) const;
    // The project is not owned; null for none.
    void setProject(DBProject* project);

    void setDeleteAction(QAction* action) { actions_.deleteRecords = action; }
    void setAddAction(QAction* action) { actions_.add = action; }
    void setMainSetAction(QAction* action) { actions_.mainSet = action; }
    void setSetAction(QAction* action) { actions_.set = action; }
    void setSampleSetAction(QAction* action) { actions_.sampleSet = action; }
    void setCalcAction(QAction* action) { actions_.calc = action; }
    void setClearAction(QAction* action) { actions_.clear = action; }
    void setSortAction(QAction* action) { actions_.sort = action; }
    void setEndEditAction(QAction* action) { actions_.endEdit = action; }
    void setReportAction(QAction* action) { actions_.report = action; }

    void setDeleteAccess(TX_Modes mode, bool value) { actionAccess_[{mode, DeleteRecords, LabNone}] = value; }
    void setAddAccess(TX_Modes mode, bool value) { actionAccess_[{mode, AddRecords, LabNone}] = value; }
    void setMainSetAccess(TX_Lab_Modes lab, bool value)
    {
        actionAccess_[{ModeLaboratory, MainPropertySet, lab}] = value;
    }
    void setSetAccess(TX_Lab_Modes lab, bool value)
    {
        actionAccess_[{ModeLaboratory, PropertySet, lab}] = value;
    }
    // False for what nobody has written yet.
    bool access(const AccessKey& key) const;

    bool columnModified() const { return columnModified_; }
    std::int32_t igeView() const { return igeView_; }
    // "3.2" of the build 19.3.2; empty where the machine knows none.
    const std::wstring& buildNumber() const { return buildNumber_; }

private:
    struct Actions {
        QAction* deleteRecords = nullptr;
        QAction* add = nullptr;
        QAction* mainSet = nullptr;
        QAction* set = nullptr;
        QAction* sampleSet = nullptr;
        QAction* calc = nullptr;
        QAction* clear = nullptr;
        QAction* sort = nullptr;
        QAction* endEdit = nullptr;
        QAction* report = nullptr;
    };

    DBProject* project_;
    Settings* settings_;
    Reference<DBHatch> hatch_;
    Reference<DBIgkPreset> igkPreset_;
    std::map<TX_Modes, std::unique_ptr<QLibrary>> modules_;
    TXUndoRedo undoRedo_;
    std::map<AccessKey, bool> actionAccess_;
    std::wstring buildNumber_;
    Actions actions_;
    // Current mode, item and views, every one of them; undoContext() picks what counts in the mode.
    UndoContext context_;
    bool columnModified_ = false;
    std::int32_t igeView_ = 3;
};
