#pragma once

#include "app/project_life.h"
#include "app/shell_actions.h"
#include "core/base/mobject.h"
#include "core/base/reference.h"
#include "core/facade/tellurix_controller.h"
#include "db/db_project.h"
#include "modules/icreate_widget.h"
#include "modules/imain_controller.h"
#include "modules/tx_widget.h"

#include <QString>
#include <QVector>

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
class QProgressBar;
class QTimer;
class QToolBar;
class ShowLabel;

// The hub of the shell: it knows which modes are open and which one is current, and joins actions and
// signals. It knows no screen's content; it speaks to the screens over the signal bus. What becomes of the
// open project is its ProjectLife's business; here stands what others may ask of it.
//
// Its parts: mode_switching.cpp, module_signals.cpp, titles.cpp, user_interface.cpp, action_states.cpp,
// action_handlers.cpp, unsaved_cells.cpp.
class MainController : public MObject, public IMainController, public ICreateWidget
{
public:
    MainController();
    ~MainController() override;

    // For the project register and the section editor.
    QMainWindow* mainWindow() override;
    const std::wstring& projectPath() override { return life_.path(); }
    void setProjectPath(const std::wstring& path) override { life_.setPath(path); }
    IDBProject* project() override { return life_.project(); }
    ISettings* settings() override { return settings_; }
    ITellurixController* controller() override { return controller_; }
    void openProject() override { life_.open(); }
    std::wstring projectCodeOf(const std::wstring& path) override { return life_.codeOf(path); }
    void setProjectCodeOf(const std::wstring& path, const std::wstring& code) override
    {
        life_.setCodeOf(path, code);
    }
    DBProject* dbProject() override { return life_.project(); }
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
    // The area of the screens is on view, as after the window was minimised.
    void comeBack();
    void updateTitle(TX_Modes mode);
    void updateLabTitle(TX_Lab_Modes labMode);
    void loadProjects();
    void showOpenProject();
    void updateActions();
    QAction* action(ShellAction action) const { return actions_[action]; }
    bool modesAccessible() const { return modesAccessible_; }

    // Project, told in project_life.h.
    void newProject() { life_.makeNew(); }
    bool saveProject(SaveWay way = SaveWay::ByHand) { return life_.save(way); }
    bool closeProjectPrompt() { return life_.closePrompt(); }
    bool closeColumnPrompt() { return life_.closeColumnPrompt(); }
    void setAutoSave();
    void offerRecovery() { life_.offerRecovery(); }
    std::chrono::milliseconds keepRecoveryCopy() { return life_.keepCopy(); }
    bool isCopying() const { return life_.isCopying(); }
    void giveSignOfLife() { life_.giveSign(); }
    bool openFailed() const { return life_.openFailed(); }

    // For the project's life.
    TellurixController& facade() const { return *controller_; }
    // Emits the signal on the screen of the mode, where there is one.
    void tell(TX_Modes mode, void (TXWidget::*signal)());
    // Closes the screens of all modes but the register of projects; calls afterFailure where one fails.
    void closeModeWindows(const std::function<void()>& afterFailure);
    void hideHint();
    void showStatus(const QString& text, int milliseconds);

    // A cell that a screen could not store: its number among those of the screen, where it is and why.
    struct UnsavedCell {
        TX_Modes mode = ModeNone;
        int number = 0;
        QString text;
    };
    QVector<UnsavedCell> unsavedCells() const;
    // Before a closing: whether the user lets them go.
    bool mayDropUnsavedCells();

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

    // After a save by hand: names what did not come into the project, and shows it.
    void tellUnsavedCells();
    void showUnsavedCell(const UnsavedCell& cell);
    void makeRoomForStatus(const QString& text);
    void openHelp();
    void addHelpKey(QWidget* dialog);

    QMdiArea* mdiArea_ = nullptr;
    MainWindow* mainWindow_ = nullptr;
    QToolBar* modeToolBar_ = nullptr;
    QTimer* autoSaveTimer_ = nullptr;
    ShellActions actions_;
    bool modesAccessible_ = true; // false while a laboratory sample is edited
    ShowLabel* hintLabel_ = nullptr;
    bool hintMadeRoom_ = false;
    QProgressBar* progressBar_ = nullptr;
    bool stampsEnabled_ = false; // nothing sets it
    TellurixController* controller_ = nullptr;
    Settings* settings_ = nullptr;
    ProjectLife life_{*this};
    bool leaving_ = false;
};
