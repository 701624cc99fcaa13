// The screen of the elements on a large site: how long a frame of the scrolled assignment takes, and how long
// the statistics follow a value that goes out. CPU time of this process, so a busy machine does not count.
// Prints milliseconds.

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

#include <algorithm>
#include <cstdio>
#include <ctime>
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

int main(int count, char** arguments)
{
    const QApplication application(count, arguments);
    const auto settings = makeReference<Settings>();
    const auto project = siteOfElements();
    TellurixController controller(settings.get(), project.get());
    controller.setCurrentMode(ModeIge);
    IgeScreen screen(ModeIge, &controller);
    screen.resize(1366, 768);
    screen.show();
    auto* pages = screen.findChild<QTabWidget*>();
    tell("assignment: shown", 5, [&](int time) { pages->setCurrentIndex(time % 2); });
    pages->setCurrentIndex(1);
    QCoreApplication::sendPostedEvents();
    auto* view = screen.findChild<AssignmentView*>();
    QScrollBar& bar = *view->horizontalScrollBar();
    tell("assignment: a frame while scrolling", 300, [&](int time) {
        bar.setValue(bar.maximum() * time / 300);
        view->viewport()->repaint();
    });
    pages->setCurrentIndex(2);
    QCoreApplication::sendPostedEvents();
    auto* values = screen.findChild<ResultTable*>(QStringLiteral("ige/values"));
    QPushButton* toggle = nullptr;
    for (QPushButton* button : screen.findChildren<QPushButton*>())
        if (button->text() == QStringLiteral("Исключить"))
            toggle = button;
    if (!toggle || values->model()->rowCount() == 0)
        return 1;
    tell("statistics: a value goes out, page painted", 50, [&](int time) {
        values->setCurrentResult(time % values->model()->rowCount());
        toggle->click();
        screen.repaint();
    });
    tell("statistics: undo", 10, [&](int) {
        controller.undo();
        screen.repaint();
    });
    return 0;
}
