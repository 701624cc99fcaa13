#pragma once

#include "app/project_guard.h"
#include "app/recovery_copy.h"
#include "app/shell_actions.h"
#include "core/base/mobject.h"
#include "core/base/reference.h"
#include "core/facade/tellurix_controller.h"
#include "db/db_project.h"
#include "modules/icreate_widget.h"
#include "modules/imain_controller.h"
#include "modules/tx_widget.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

class MainWindow;
class MdiChild;
class QCloseEvent;
class QKeyEvent;
class QMdiArea;
class QMenu;
class QMessageBox;
class QProgressBar;
class QTimer;
class QToolBar;
class ShowLabel;

// The hub of the shell: it knows which modes are open and which one is current, owns the open project, and
// joins actions and signals. It knows no screen's content; it speaks to the screens over the signal bus.
//
// Its parts: mode_switching.cpp, module_signals.cpp, titles.cpp, user_interface.cpp, action_states.cpp,
// action_handlers.cpp, project_lifecycle.cpp, project_closing.cpp, project_codes.cpp,
// project_safety.cpp.
class MainController : public MObject, public IMainController, public ICreateWidget
{
public:
    MainController();
    ~MainController() override;

    // For the project register and the section editor.
    QMainWindow* mainWindow() override;
    const std::wstring& projectPath() override { return projectPath_; }
    void setProjectPath(const std::wstring& path) override { projectPath_ = path; }
    IDBProject* project() override { return project_.get(); }
    ISettings* settings() override { return settings_; }
    ITellurixController* controller() override { return controller_; }
    void openProject() override;
    std::wstring projectCodeOf(const std::wstring& path) override;
    void setProjectCodeOf(const std::wstring& path, const std::wstring& code) override;
    DBProject* dbProject() override { return project_.get(); }
    Settings* dbSettings() override { return settings_; }

    // Makes the screen of a mode through its library. Null where there is none, or no createWidget in it.
    QWidget* createWidget(const TX_Modes& mode) override;

    // Assembly, in this order. The window starts the auto-save timer.
    void setSettings(Settings* settings) { settings_ = settings; }
    void setController(TellurixController* controller) { controller_ = controller; }
    void setMdiArea(QMdiArea* area) { mdiArea_ = area; }
    void setMainWindow(MainWindow* window);
    void createUserInterface();
    // Closes the screens and lets go of the window and all that goes with it.
    void forgetMainWindow();
    void showFirst();

    // Modes.
    MdiChild* findSubWindow(TX_Modes mode) const;
    MdiChild* createSubWindow(TX_Modes mode);
    bool activateMode(TX_Modes mode);
    bool syncMode(TX_Modes mode);
    void changeMode(TX_Modes mode);
    void finishModeLeave();
    void updateTitle(TX_Modes mode);
    void updateLabTitle(TX_Lab_Modes labMode);
    void loadProjects();
    void showOpenProject();
    void updateActions();
    QAction* action(ShellAction action) const { return actions_[action]; }
    bool modesAccessible() const { return modesAccessible_; }

    // Project.
    void newProject();
    // False where the file could not be written, which the user has been told; the project stays in memory.
    bool saveProject(SaveWay way = SaveWay::ByHand);
    // Asks whether to save, then closes project or column; true where the closing may go on. A project that
    // could not be saved stays open.
    bool closeProjectPrompt();
    bool closeColumnPrompt();
    void setAutoSave();
    // Offers the copies of projects that a crash has left, and opens the one that the user chooses.
    void offerRecovery();
    // Brings the copy of the open project up to date; the time it took here and, the last time, in the
    // thread.
    std::chrono::milliseconds keepRecoveryCopy();
    bool isCopying() const { return recovery_.isWriting(); }
    // The lock and the copy show that the program lives.
    void giveSignOfLife();
    bool openFailed() const { return openFailed_; }

    // Events of the main window.
    void closeWindow(QCloseEvent* event);
    void pressKey(QKeyEvent* event);
    std::vector<QAction*> contextMenuActions() const;
    // The user closed the window before the event loop began.
    bool leaving() const { return leaving_; }

    // What the actions do.
    void saveByUser();
    void closeProject();
    void printReport();
    void exportOgm();
    void leave();
    void showAbout();
    void undo();
    void redo();
    void showListCoords();
    void showColumn();
    void showStudy();
    void showStamps();
    void showSetup();
    void deleteRecords();
    void addRecord();
    void takeMainPropertySet();
    void takePropertySet();
    void switchSampleSet();
    void calculate();
    void clearData();
    void sortData();
    void endEditing();

private:
    // The signal bus of a screen; null where the mode has no window or its widget is no screen.
    TXWidget* screenOf(TX_Modes mode) const;
    TXWidget* activeScreen() const;
    void tell(TX_Modes mode, void (TXWidget::*signal)());
    void tellActive(void (TXWidget::*signal)());
    void closeAllEditors();

    void connectScreen(TX_Modes mode, TXWidget* screen);
    void connectRecordSignals(TXWidget* screen);
    void connectLaboratory(TXWidget* screen);
    void createModeWindow(TX_Modes mode);
    void refreshMode(TX_Modes mode);

    QAction* makeAction(const ActionRow& row);
    bool isMade(ShellAction action) const;
    void createActions();
    void createMenusAndBars();
    void createStyleChooser(QToolBar* bar);
    void createStatusBar();
    void handActionsToFacade();
    void trigger(const ActionRow& row);
    void applyStyle(const QString& name);
    void applySetup();
    void emitPropertySet(bool isMain);

    void takeProject(Reference<DBProject> project);
    void resetFacade();
    void autoSave();
    bool writeOpenProject(SaveWay way);
    void watchProject();
    void dropProject();
    void restoreProject(const std::wstring& copy);
    void warnOfLosses();
    void closeModeWindows();
    int askToSave(const QString& title, const QString& text);
    void showStatus(const QString& text, int milliseconds);
    void openHelp();
    void addHelpKey(QWidget* dialog);

    QMdiArea* mdiArea_ = nullptr;
    MainWindow* mainWindow_ = nullptr;
    QToolBar* modeToolBar_ = nullptr;
    QTimer* autoSaveTimer_ = nullptr;
    ShellActions actions_;
    bool modesAccessible_ = true; // false while a laboratory sample is edited
    ShowLabel* hintLabel_ = nullptr;
    QProgressBar* progressBar_ = nullptr;
    bool stampsEnabled_ = false; // nothing sets it
    Reference<DBProject> project_;
    TellurixController* controller_ = nullptr;
    Settings* settings_ = nullptr;
    ProjectGuard guard_;
    RecoveryCopy recovery_;
    std::wstring projectPath_;
    bool openFailed_ = false;
    bool leaving_ = false;
    bool rowsWereRefused_ = false; // the open file holds rows that did not come in and would go with a save
    std::wstring toldLosses_; // the last warning about what a save loses; not said twice
};
