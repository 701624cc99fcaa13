#pragma once

#include "core/base/mobservable.h"
#include "modules/undo_context.h"

#include <cstdint>
#include <string>

class IDBHatch;
class IDBIgkPreset;
class IDBProject;
class ISettings;
class ITXUndoRedo;
class QAction;

// What the shell offers to every module. The object lives for the whole run; the project behind it changes
// with each open and close, so ask for it when it is needed. It is a GroundController too
// (ground/ground_controller.h): reach that by dynamic_cast.
//
// Modules call these operations by their position, behind those of IMObservable: never insert, remove or
// reorder one. There is no destructor of its own among them.
class ITellurixController : public IMObservable
{
public:
    virtual ITXUndoRedo* undoRedo() = 0;
    // Undo and redo in the context of the moment.
    virtual void undo() = 0;
    virtual void redo() = 0;

    virtual ISettings* settings() = 0;
    // Null while no project is open.
    virtual IDBProject* project() = 0;
    // The two libraries; null where the file beside the program is not one.
    virtual IDBHatch* hatch() = 0;
    virtual IDBIgkPreset* igkPreset() = 0;

    // The current item of the current mode: the name of a point, the code of a sample.
    virtual void setEditedSample(const std::wstring& value) = 0;
    virtual const std::wstring& editedSample() = 0;
    // What the next change belongs to, from the current mode and the values kept here.
    virtual UndoContext undoContext() = 0;

    // Actions of the shell, for menus and tool bars of a screen. Null before the shell has made them.
    virtual QAction* deleteAction() = 0;
    virtual QAction* addAction() = 0;
    virtual QAction* mainSetAction() = 0;
    virtual QAction* setAction() = 0;
    virtual QAction* sampleSetAction() = 0;
    virtual QAction* calcAction() = 0;
    virtual QAction* clearAction() = 0;
    virtual QAction* sortAction() = 0;
    virtual QAction* endEditAction() = 0;
    virtual QAction* reportAction() = 0;

    virtual void setLabMode(const TX_Lab_Modes& value) = 0;
    virtual TX_Lab_Modes labMode() = 0;
    // 8: a sample is being edited, which blocks the closing of the window.
    virtual void setLabState(const std::int32_t& value) = 0;
    virtual std::int32_t labState() = 0;
    virtual void setEditedSampleName(const std::wstring& value) = 0;
    virtual const TX_Modes& currentMode() = 0;
    virtual void setCurrentMode(const TX_Modes& value) = 0;
    // No current mode and item, no laboratory page, undo histories gone.
    virtual void reset() = 0;

    // Views within a mode that take part in the undo context or in the states of the actions.
    virtual void setCompressionView(const std::int32_t& value) = 0;
    virtual void setShearView(const std::int32_t& value) = 0;
    // The stratigraphic column holds changes that are not saved.
    virtual void setColumnModified(bool value) = 0;
    virtual void setIgeView(const std::int32_t& value) = 0;
    virtual std::int32_t probingView() = 0;
    virtual void setProbingView(const std::int32_t& value) = 0;
    virtual std::int32_t probingSubView() = 0;
    virtual void setProbingSubView(const std::int32_t& value) = 0;
    virtual void setChemistryFlag(bool value) = 0;
    // Whether the library of the section editor can be loaded.
    virtual bool sectionEditorAvailable() = 0;
};
