// The screen of static sounding over a hundred journals of 1,500 rows and one of 3,000: what the user waits
// for, in milliseconds of the processor. Stands beside the program, as element_page_bench.

#include "common/edit_grid.h"
#include "core/base/mexception.h"
#include "core/base/reference.h"
#include "core/base/typed_number.h"
#include "core/facade/tellurix_controller.h"
#include "db/db_project.h"
#include "processor_time.h"
#include "static/sounding_screen.h"

#include <QApplication>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QWindow>

#include <cstdio>

namespace
{

Reference<DBProject> site()
{
    constexpr int soundings = 101;
    auto project = makeReference<DBProject>();
    PointRow place;
    place.absoluteMark = L"110";
    for (int number = 1; number <= soundings; ++number) {
        const std::wstring name = L"ТСЗ-" + std::to_wstring(number);
        place.text0 = place.text1 = std::to_wstring(number * 10);
        project->addPointRegisterEntry({name, 3}, {place});
        std::vector<SoundingRow> rows;
        for (int row = 1; row <= (number == 1 ? 3000 : 1500); ++row)
            rows.push_back({numberText(row * 0.01, 2),
                {numberText(2.0 + (row * 13 + number) % 50 * 0.1, 2),
                    numberText(40.0 + row % 30, 1),
                    L"",
                    L""}});
        project->addSounding({name, 3, L"", L""}, rows);
    }
    return project;
}

class Bench
{
public:
    Bench()
    {
        controller_.setCurrentMode(ModeStatic);
        screen_.resize(1366, 700);
        screen_.show();
        while (!screen_.windowHandle()->isExposed())
            QCoreApplication::processEvents();
        QApplication::setActiveWindow(&screen_);
        tabs_ = screen_.findChild<QTabWidget*>(QStringLiteral("pages"));
        tabs_->setCurrentIndex(0);
        QCoreApplication::processEvents();
        grid_ = screen_.findChild<EditGrid*>(QStringLiteral("journal"));
    }

    void run()
    {
        std::printf("rows of the journal: %d\n", grid_->model()->rowCount());
        scroll();
        type();
        for (int page = 1; page < tabs_->count(); ++page)
            tell(("opens: " + tabs_->tabText(page).toStdString()).c_str(),
                measured([&] { tabs_->setCurrentIndex(page); }));
    }

private:
    void scroll()
    {
        constexpr int frames = 200;
        double worst = 0;
        QScrollBar& bar = *grid_->verticalScrollBar();
        for (int frame = 0; frame < frames; ++frame)
            worst = qMax(worst, measured([&] {
                bar.setValue(bar.maximum() * frame / frames);
                grid_->viewport()->repaint();
            }));
        tell("slowest frame while scrolling", worst);
    }

    void type()
    {
        double worst = 0;
        double worstUndo = 0;
        for (int i = 0; i < 10; ++i) {
            grid_->setFocus();
            grid_->selectionModel()->setCurrentIndex(
                grid_->model()->index(1000 + i, 1), QItemSelectionModel::ClearAndSelect);
            for (const int key : {int(Qt::Key_3), int(Qt::Key_Period), int(Qt::Key_2), int(Qt::Key_Return)})
                worst = qMax(
                    worst, measured([&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key(key)); }));
            worstUndo = qMax(worstUndo, measured([&] { controller_.undo(); }));
        }
        tell("slowest keystroke", worst);
        tell("slowest undo of one", worstUndo);
    }

    Settings settings_;
    Reference<DBProject> project_ = site();
    TellurixController controller_{&settings_, project_.get()};
    SoundingScreen screen_{ModeStatic, &controller_};
    QTabWidget* tabs_ = nullptr;
    EditGrid* grid_ = nullptr;
};

} // namespace

int main(int count, char** arguments)
{
    const QApplication application(count, arguments);
    try {
        Bench().run();
    } catch (const MException& exception) {
        std::fprintf(stderr, "%s\n", QString::fromStdWString(exception.message()).toLocal8Bit().constData());
        return 1;
    }
    return 0;
}
