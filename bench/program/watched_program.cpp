// Linked with the entry of the program itself: an onlooker with a watch. TELLURIX_BENCH says what it looks
// at: "start", the times to the first paint of any window and of the main window, or "tour", every mode of
// the project on the command line.

#include "since_start.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QScrollBar>
#include <QTableView>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{

// Of the user, or with TELLURIX_BENCH_PROCESSOR that of the processor, which a busy machine does not slow
// down.
double milliseconds()
{
    static const bool isProcessor = std::getenv("TELLURIX_BENCH_PROCESSOR") != nullptr;
    if (isProcessor)
        return 1e3 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double millisecondsFrom(double begin)
{
    return milliseconds() - begin;
}

// Until nothing is left to do: laid out, filled and painted.
void settle()
{
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

double residentMegabytes()
{
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

class StartWatch : public QObject
{
public:
    using QObject::QObject;

private:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(object) : nullptr;
        if (!widget || !widget->isWindow())
            return false;
        // The splash comes first, with all that the modules' loading has to tell.
        if (!std::exchange(isSeen_, true))
            report("first_window_ms", millisecondsSinceStart());
        if (object->inherits("QMainWindow")) {
            report("main_window_ms", millisecondsSinceStart());
            std::_Exit(0);
        }
        return false;
    }

    bool isSeen_ = false;
};

class Tour : public QObject
{
public:
    explicit Tour(QObject* parent)
        : QObject(parent)
    {
        connect(&timer_, &QTimer::timeout, this, &Tour::look);
        timer_.start(5);
    }

private:
    struct Screen {
        const char* action;
        const char* name;
    };
    // In the order of the menus.
    static constexpr Screen screens[] = {{"actListCoords", "points"},
        {"actLitology", "lithology"},
        {"actTests", "samples"},
        {"actWaters", "water"},
        {"actConsistents", "consistency"},
        {"actLaboratory", "laboratory"},
        {"actIge", "elements"},
        {"actStatic", "sounding"},
        {"actSection", "sections"},
        {"actIgk", "columns"},
        {"actColumn", "all layers"},
        {"actSubsidence", "subsidence"},
        {"actChemistry", "chemistry"},
        {"actConsolidated", "overview"}};

    void look()
    {
        if (begun_ || QThread::currentThread()->loopLevel() != 1)
            return;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* candidate = qobject_cast<QMainWindow*>(widget); candidate && candidate->isVisible())
                window_ = candidate;
        if (!window_)
            return;
        begun_ = true;
        // A timer is silent while its own slot is at work.
        QTimer::singleShot(0, this, [this] { walk(); });
    }

    void walk()
    {
        settle();
        ::report("resident, MB", residentMegabytes());
        for (const Screen& screen : screens)
            report("first", screen.name, timeOf(screen.action));
        for (const Screen& screen : screens) {
            report("second", screen.name, timeOf(screen.action));
            scroll(screen);
        }
        ::report("resident after all modes, MB", residentMegabytes());
        ::report("save, ms", timeOf("actSave"));
        removeAllPoints();
        std::_Exit(0);
    }

    // From the order to the painted question, from its answer until all is gone, and its undo.
    void removeAllPoints()
    {
        timeOf("actListCoords");
        auto* area = window_->findChild<QMdiArea*>();
        auto* table = area->activeSubWindow()->findChild<QTableView*>();
        table->setFocus();
        table->selectAll();
        settle();
        qApp->installEventFilter(this);
        begin_ = milliseconds();
        timeOf("actDelete");
        qApp->removeEventFilter(this);
        if (!isAsked_)
            return;
        ::report("removal of all points, ms", millisecondsFrom(begin_));
        ::report("its undo, ms", timeOf("actUndo"));
        ::report("resident after that, MB", residentMegabytes());
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* box = event->type() == QEvent::Paint ? qobject_cast<QMessageBox*>(object) : nullptr;
        if (!box || std::exchange(isAsked_, true))
            return false;
        QTimer::singleShot(0, box, [this, box] {
            ::report("question before removing all points, ms", millisecondsFrom(begin_));
            for (QAbstractButton* button : box->buttons())
                if (box->buttonRole(button) == QMessageBox::AcceptRole) {
                    begin_ = milliseconds();
                    button->click();
                }
        });
        return false;
    }

    static void report(const char* what, const char* screen, double value)
    {
        if (value >= 0)
            ::report((std::string(what) + '/' + screen).c_str(), value);
    }

    // Negative where the action is off.
    double timeOf(const char* name)
    {
        auto* action = window_->findChild<QAction*>(QString::fromLatin1(name));
        if (!action || !action->isEnabled())
            return -1;
        const double begin = milliseconds();
        action->trigger();
        settle();
        return millisecondsFrom(begin);
    }

    // The longest list of the screen, down by pages from the top.
    void scroll(const Screen& screen)
    {
        auto* area = window_->findChild<QMdiArea*>();
        QWidget* page = area && area->activeSubWindow() ? area->activeSubWindow()->widget() : nullptr;
        QScrollBar* longest = nullptr;
        for (auto* list : page ? page->findChildren<QAbstractScrollArea*>() : QList<QAbstractScrollArea*>())
            if (QScrollBar* bar = list->verticalScrollBar();
                list->isVisible() && bar->maximum() > 0 && (!longest || bar->maximum() > longest->maximum()))
                longest = bar;
        if (!longest)
            return;
        std::vector<double> frames;
        for (int i = 0; i < 200 && longest->value() < longest->maximum(); ++i) {
            const double begin = milliseconds();
            longest->setValue(longest->value() + longest->pageStep());
            settle();
            frames.push_back(millisecondsFrom(begin));
        }
        std::sort(frames.begin(), frames.end());
        report("frame", screen.name, frames[frames.size() / 2]);
        report("worst frame", screen.name, frames.back());
    }

    QTimer timer_;
    QMainWindow* window_ = nullptr;
    bool begun_ = false;
    bool isAsked_ = false;
    double begin_ = 0;
};

void watch()
{
    const char* what = std::getenv("TELLURIX_BENCH");
    auto* application = QCoreApplication::instance();
    if (what && std::string(what) == "tour")
        new Tour(application);
    else
        application->installEventFilter(new StartWatch(application));
}

Q_COREAPP_STARTUP_FUNCTION(watch)

} // namespace
