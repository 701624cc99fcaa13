// The screen of the elements on a large site: how long a frame of the scrolled assignment takes, and how long
// the statistics follow a value that goes out. CPU time of this process, so a busy machine does not count.
// Prints milliseconds. Stands beside the program, whose pictures and patterns it reads:
//     cp build/release/bench/program/element_page_bench build/release/program/
//     QT_QPA_PLATFORM=offscreen build/release/program/element_page_bench

#include "core/base/mexception.h"
#include "core/base/reference.h"
#include "core/facade/tellurix_controller.h"
#include "element_site.h"
#include "ige/assignment_view.h"
#include "ige/ige_screen.h"
#include "ige/result_table.h"

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <string>
#include <vector>

static double milliseconds(std::clock_t ticks)
{
    return 1000.0 * double(ticks) / CLOCKS_PER_SEC;
}

template <class Act>
static void tell(const char* what, int times, Act act)
{
    std::vector<double> spent;
    for (int time = 0; time < times; ++time) {
        const std::clock_t from = std::clock();
        act(time);
        QCoreApplication::sendPostedEvents();
        spent.push_back(milliseconds(std::clock() - from));
    }
    std::sort(spent.begin(), spent.end());
    std::printf("%-45s median %6.2f ms, longest %6.2f ms\n", what, spent[spent.size() / 2], spent.back());
}

namespace
{

class Bench
{
public:
    explicit Bench(int elements)
        : project_(siteOfElements(elements))
    {
        controller_.setCurrentMode(ModeIge);
        screen_.resize(1366, 768);
        screen_.show();
        pages_ = screen_.findChild<QTabWidget*>();
        // Nothing is painted before the window system has said that the window is there.
        while (!screen_.windowHandle()->isExposed())
            QCoreApplication::processEvents();
    }

    void openPages()
    {
        for (const int page : {1, 2, 3, 4, 0})
            tell(("opens: " + pages_->tabText(page).toStdString()).c_str(), 1, [&](int) {
                pages_->setCurrentIndex(page);
                screen_.repaint();
            });
    }

    void scrollAssignment()
    {
        pages_->setCurrentIndex(1);
        QCoreApplication::processEvents();
        auto* view = screen_.findChild<AssignmentView*>();
        QScrollBar& bar = *view->horizontalScrollBar();
        constexpr int frames = 300;
        tell("assignment: a frame while scrolling", frames, [&](int time) {
            bar.setValue(bar.maximum() * time / frames);
            view->viewport()->repaint();
        });
    }

    bool excludeValues()
    {
        pages_->setCurrentIndex(2);
        QCoreApplication::processEvents();
        auto* values = screen_.findChild<ResultTable*>(QStringLiteral("ige/values"));
        QPushButton* toggle = nullptr;
        for (QPushButton* button : screen_.findChildren<QPushButton*>())
            if (button->text() == QStringLiteral("Исключить"))
                toggle = button;
        if (!toggle || values->model()->rowCount() == 0)
            return false;
        tell("statistics: a value goes out, page painted", 50, [&](int time) {
            values->setCurrentResult(time % values->model()->rowCount());
            toggle->click();
            screen_.repaint();
        });
        tell("statistics: undo", 10, [&](int) {
            controller_.undo();
            screen_.repaint();
        });
        return true;
    }

private:
    Settings settings_;
    Reference<DBProject> project_;
    TellurixController controller_{&settings_, project_.get()};
    IgeScreen screen_{ModeIge, &controller_};
    QTabWidget* pages_ = nullptr;
};

} // namespace

int main(int count, char** arguments)
{
    const QApplication application(count, arguments);
    try {
        for (const int elements : {40, 5000}) {
            std::printf("%d elements\n", elements);
            Bench bench(elements);
            bench.openPages();
            bench.scrollAssignment();
            if (!bench.excludeValues())
                return 1;
        }
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", QString::fromStdWString(exception.message()).toLocal8Bit().constData());
        return 1;
    }
    return 0;
}
