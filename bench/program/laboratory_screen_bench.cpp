// The laboratory's screen over ten thousand samples: what the user waits for, in milliseconds of the
// processor. QT_QPA_PLATFORM=offscreen laboratory_screen_bench
//
//     a page opens        200    a calculation of all   1000    a pasted block of 5000 x 12   1000
//     one keystroke        30

#include "common/edit_grid.h"
#include "core/base/reference.h"
#include "core/facade/tellurix_controller.h"
#include "db/db_project.h"
#include "laboratory/laboratory_screen.h"
#include "processor_time.h"

#include <QApplication>
#include <QClipboard>
#include <QTabWidget>
#include <QTest>

#include <random>

namespace
{

constexpr int samples = 10'000;

LabSample sampleOf(std::mt19937& random)
{
    const auto vary = [&](int value) { return std::to_wstring(value + static_cast<int>(random() % 20)); };
    LabSample sample;
    sample.code = vary(1);
    sample.physical = {{0, true, L"0." + vary(200)},
        {1, true, L"1." + vary(70)},
        {2, true, L"2.70"},
        {3, true, L"0." + vary(300)},
        {4, true, L"0." + vary(180)}};
    sample.grading = {{16, L"2"}, {17, L"8"}, {18, L"20"}, {19, L"25"}, {20, L"20"}, {21, L"25"}};
    sample.shear[3] = {{7, L"0.0" + vary(60)}, {15, L"0." + vary(100)}, {19, L"0." + vary(130)}};
    for (const int load : {4, 8, 16, 20})
        sample.compression[21].cells.push_back(
            {load, L"0." + std::to_wstring(100 + 10 * load), {}, {}, 0, {}});
    sample.swelling = {{0, {}, L"0.1", {}}, {4, {}, L"0.05", {}}};
    return sample;
}

Reference<DBProject> site()
{
    std::mt19937 random(16);
    auto project = makeReference<DBProject>();
    project->setGranGost(1);
    project->addStrataElement(L"1", {});
    for (int point = 0; point < samples / 20; ++point) {
        const std::wstring name = L"Скв-" + std::to_wstring(point + 1);
        project->addLithology({name, L"30"}, {L"", L""});
        project->addNumberedLink(name + L":1", L"1");
        for (int i = 1; i <= 20; ++i)
            project->addLabSample({name, std::to_wstring(i)}, sampleOf(random));
    }
    return project;
}

class Bench
{
public:
    Bench()
    {
        controller_.setCurrentMode(ModeLaboratory);
        screen_.resize(1366, 700);
        screen_.show();
        QApplication::setActiveWindow(&screen_);
        tabs_ = screen_.findChild<QTabWidget*>(QStringLiteral("pages"));
        tabs_->setCurrentIndex(0);
        QCoreApplication::processEvents();
    }

    void run()
    {
        const char* names[] = {
            "register", "physical", "grading", "compression", "shear", "swelling", "shrinkage"};
        for (int page = 1; page < 7; ++page)
            tell((std::string("opens: ") + names[page]).c_str(),
                measured([&] { tabs_->setCurrentIndex(page); }));
        tell("opens: register", measured([&] { tabs_->setCurrentIndex(0); }));
        for (int page = 0; page < 7; ++page) {
            tabs_->setCurrentIndex(page);
            QCoreApplication::processEvents();
            if (page < 6)
                keystrokes(names[page], page == 0 ? 2 : 4);
        }
        tabs_->setCurrentIndex(1);
        tell("calculation of all", measured([&] { Q_EMIT screen_.signalCalc(); }));
        tell("its undo", measured([&] { controller_.undo(); }));
        paste();
    }

private:
    EditGrid* grid() const
    {
        for (EditGrid* each : tabs_->currentWidget()->findChildren<EditGrid*>())
            if (each->isVisible())
                return each;
        return nullptr;
    }

    void select(int row, int column) const
    {
        grid()->setFocus();
        grid()->selectionModel()->setCurrentIndex(
            grid()->model()->index(row, column), QItemSelectionModel::ClearAndSelect);
    }

    void keystrokes(const char* name, int column)
    {
        double worst = 0;
        double worstUndo = 0;
        for (int i = 0; i < 10; ++i) {
            select(100 + i, column);
            for (const int key : {int(Qt::Key_0), int(Qt::Key_Period), int(Qt::Key_2), int(Qt::Key_Return)})
                worst = std::max(
                    worst, measured([&] { QTest::keyClick(QApplication::focusWidget(), Qt::Key(key)); }));
            worstUndo = std::max(worstUndo, measured([&] { controller_.undo(); }));
        }
        tell((std::string("slowest keystroke: ") + name).c_str(), worst);
        tell((std::string("slowest undo of one: ") + name).c_str(), worstUndo);
    }

    void paste()
    {
        tabs_->setCurrentIndex(2);
        QCoreApplication::processEvents();
        QString block;
        for (int row = 0; row < 5000; ++row)
            block += QStringLiteral("1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t%1\n").arg(row % 90);
        QApplication::clipboard()->setText(block);
        select(0, 6);
        tell("paste of 5000 x 12", measured([&] { grid()->paste(); }));
        tell("its undo", measured([&] { controller_.undo(); }));
    }

    Settings settings_;
    Reference<DBProject> project_ = site();
    TellurixController controller_{&settings_, project_.get()};
    LaboratoryScreen screen_{ModeLaboratory, &controller_};
    QTabWidget* tabs_ = nullptr;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    Bench().run();
    return 0;
}
