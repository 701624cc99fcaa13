#pragma once

#include "common/exchange_command.h"
#include "core/base/mobservable.h"
#include "core/base/reference.h"
#include "modules/itellurix_controller.h"
#include "modules/tx_widget.h"

#include <functional>
#include <utility>

class IDBProject;
class IMCommand;

// What every screen of a mode stands on: the only place that knows the shell's 44 signals and the facade's
// observers. A screen derives from it (or from PagedScreen, common/paged_screen.h) and overrides what it has
// to say; each override has a default that does nothing.
//
// When it reads. Whatever changes the project ends in readProject(): at once where the screen is in view,
// whichever mode is current (two screens may stand side by side), else when it comes into view. What the
// shell tells on a change of mode, up to three times, is read once, with the next round of events. So a
// constructor reads nothing; call readIfStale() where the present state is needed now. Behind another screen
// that fills the window there is nobody to see it.
//
// How it writes. By change() alone: an undo step in the context of the moment that puts a plain state into
// the project and tells all observers. The step outlives the screen, so nothing of it may hold a widget.
class ModeScreen : public TXWidget
{
public:
    // The controller stands for the whole run.
    ModeScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent = nullptr);
    ~ModeScreen() override;

    TX_Modes mode() const { return mode_; }
    ITellurixController* controller() const { return controller_; }
    // Null while none is open.
    IDBProject* project() const { return controller_->project(); }
    ISettings* settings() const { return controller_->settings(); }

    // Makes a change of the project and keeps it for undo: put(project, after), later put(project, before).
    // Observers read anew before it returns, this screen too.
    template <class State>
    void change(std::function<void(IDBProject&, const State&)> put, State before, State after)
    {
        const auto apply = [controller = controller_, put = std::move(put)](const State& state) {
            if (IDBProject* open = controller->project())
                put(*open, state);
            controller->notify();
        };
        const auto command =
            makeReference<ExchangeCommand<State>>(apply, std::move(before), std::move(after));
        execute(command.get());
    }
    // The same for a command of the caller's own, who keeps his reference.
    void execute(IMCommand* command);

    // Runs it; a fault in it becomes a box with its message instead of being lost on the way to the shell.
    // Answers whether there was none.
    bool attempt(const std::function<void()>& act);

    // Tells the shell whether rows can be added and deleted here now, and has all actions worked out anew.
    void tellActions(bool canAdd, bool canDelete);
    // A line for the user: in the status bar where the shell listens to this mode (1, 3 to 6, 10, 11, 17,
    // 22). Others override it.
    virtual void say(const QString& text);
    // The cells that are kept as typed because the project cannot take them, each "where: why". The shell
    // names them at a save and before a closing; the first new one is said, or that there are none any more.
    void tellUnsaved(const QStringList& cells);

protected:
    // Shows the project anew; null: none is open.
    virtual void readProject(IDBProject*) { }
    // Another project than at the last reading (or none): what was typed and not stored belongs to it no
    // more. Comes before readProject.
    virtual void forgetProject() { }
    // Commits open editors; comes before undo, redo, a change of mode, closing and saving.
    virtual void closeEditors() { }
    // Whether all that was typed is in the project. It is there already for a screen that writes by change().
    virtual bool store() { return true; }
    // Brings one of the cells of tellUnsaved() into view, by its number there.
    virtual void showUnsaved(int) { }
    // The screen is the current one: tell the actions, set what the facade keeps of the view, take the focus.
    virtual void becomeCurrent() { tellActions(false, false); }
    virtual void addRecord() { }
    virtual void deleteRecords() { }
    virtual void calculate() { }
    virtual void clearData() { }
    virtual void printReport() { }
    virtual void sortData() { }
    // Of the mode 22 alone.
    virtual void saveColumn() { }
    // The settings or the language of documents may have changed; the project is read anew anyway.
    virtual void settingsChanged() { }

    // Reads now if something has changed since the last reading.
    void readIfStale();
    // Reads with the next round of events, or when the screen comes into view.
    void readSoon();
    // The shell drops all observers with every project that it opens, and with a close that is called off.
    void observe();

    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;

private:
    // Apart from the widget, whose own update() repaints.
    class Observer : public IMObserver
    {
    public:
        explicit Observer(ModeScreen* screen)
            : screen_(screen)
        {
        }
        void update() override;

    private:
        ModeScreen* screen_;
    };

    void connectShell();
    bool isInView() const;

    const TX_Modes mode_;
    ITellurixController* const controller_;
    Observer observer_;
    const IDBProject* read_ = nullptr; // only compared
    bool isStale_ = true;
    bool readsSoon_ = false;
    QString toldUnsaved_;
};
