#pragma once

#include "app/project_guard.h"
#include "app/recovery_copy.h"
#include "core/base/reference.h"
#include "db/db_project.h"

#include <QString>

#include <chrono>
#include <string>

class MainController;
class Settings;
class TellurixController;

// The life of the open project: how it comes to be in memory, reaches the disk and goes, what guards it
// meanwhile, and the codes of projects that are not open. It owns the project; the main controller, to which
// it belongs, does what concerns windows and screens.
//
// Its parts: project_lifecycle.cpp, project_closing.cpp, project_codes.cpp, project_safety.cpp.
class ProjectLife
{
public:
    explicit ProjectLife(MainController& shell)
        : shell_(shell)
    {
    }

    // Null while none is open.
    DBProject* project() const { return project_.get(); }
    // Given to the next open(), or the name of a new project.
    const std::wstring& path() const { return path_; }
    void setPath(const std::wstring& path) { path_ = path; }
    // The last opening did not give a project.
    bool openFailed() const { return openFailed_; }

    // In the place of the project that was open.
    void makeNew();
    // Reads the file at the path; what is wrong is told to the user.
    void open();
    // False where the file could not be written, which the user has been told; the project stays in memory.
    bool save(SaveWay way);
    // A save that asks nothing, and waits where it would have to.
    void saveByTimer();
    // What the file just written will not give back, once for each state of the project.
    void warnOfLosses();

    // Asks whether to save, then closes project or column; true where the closing may go on. A project that
    // could not be saved stays open.
    bool closePrompt();
    bool closeColumnPrompt();
    // The facade forgets observers, current mode and undo histories.
    void resetFacade();

    // Offers the copies of projects that a crash has left, and opens the one that the user chooses.
    void offerRecovery();
    // Brings the copy of the open project up to date; the time it took here and, the last time, in the
    // thread.
    std::chrono::milliseconds keepCopy();
    bool isCopying() const { return recovery_.isWriting(); }
    // The lock and the copy show that the program lives.
    void giveSign();

    // For the register of projects.
    std::wstring codeOf(const std::wstring& path);
    void setCodeOf(const std::wstring& path, const std::wstring& code);

private:
    Settings& settings() const;
    QWidget* window() const;
    void take(Reference<DBProject> project);
    bool write(SaveWay way);
    void watch();
    void drop();
    void restore(const std::wstring& copy);
    void closeScreens();
    int askToSave(const QString& title, const QString& text);

    MainController& shell_;
    Reference<DBProject> project_;
    ProjectGuard guard_;
    RecoveryCopy recovery_;
    std::wstring path_;
    bool openFailed_ = false;
    bool rowsWereRefused_ = false; // the open file holds rows that did not come in and would go with a save
    std::wstring toldLosses_; // the last warning about what a save loses; not said twice
};
