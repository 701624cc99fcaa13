#pragma once

#include <string>

class DBProject;
class IDBProject;
class ISettings;
class ITellurixController;
class QMainWindow;
class Settings;

// What the project register and the section editor may ask of the shell beyond ITellurixController.
//
// Modules call these operations by their position, the destructor among them: never insert, remove or reorder
// one.
class IMainController
{
public:
    virtual QMainWindow* mainWindow() = 0;
    // Path given to openProject, or the name of a new project.
    virtual const std::wstring& projectPath() = 0;
    virtual void setProjectPath(const std::wstring& path) = 0;
    // Null while no project is open.
    virtual IDBProject* project() = 0;
    virtual ISettings* settings() = 0;
    virtual ITellurixController* controller() = 0;
    // Reads the file at projectPath. A failure is shown to the user; the project that was open stays then,
    // without its undo histories.
    virtual void openProject() = 0;
    // The project code stored in a file that is not open, empty where it cannot be read, and its change. Both
    // drop the undo histories of the open project and may start the convertor; the change is written to the
    // place that follows from the file's own head, which need not be the path.
    virtual std::wstring projectCodeOf(const std::wstring& path) = 0;
    virtual void setProjectCodeOf(const std::wstring& path, const std::wstring& code) = 0;

    virtual ~IMainController() = default;

    virtual DBProject* dbProject() = 0;
    virtual Settings* dbSettings() = 0;
};
