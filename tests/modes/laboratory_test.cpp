#include "common/drawing_view.h"
#include "common/edit_grid.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/properties.h"
#include "laboratory/curve_points.h"
#include "laboratory/laboratory_screen.h"
#include "laboratory/sample_curve.h"
#include "support/laboratory_host.h"
#include "support/project_bytes.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{

using Host = LaboratoryHost;

QString head(int property)
{
    const std::wstring_view name = *propertyNames.find(0, property);
    return QString::fromWCharArray(name.data(), static_cast<int>(name.size()));
}

// Samples 1, 2, 3 m of a borehole with one layer of clay.
Reference<DBProject> site(int samples = 3)
{
    auto project = makeReference<DBProject>();
    project->addLithology({L"Скв-1", L"12"}, {L"", L""});
    project->addNumberedLink(L"Скв-1:1", L"1");
    StrataElement clay;
    clay.code = 3;
    project->addStrataElement(L"1", clay);
    project->setGranGost(1);
    for (int i = 1; i <= samples; ++i) {
        LabSample sample;
        sample.number = i;
        sample.code = L"п" + std::to_wstring(i);
        project->addLabSample({L"Скв-1", std::to_wstring(i)}, sample);
        project->addSample({L"Скв-1", std::to_wstring(i)}, {});
    }
    return project;
}

Bytes contentOf(DBProject& project)
{
    return encodeProject(project);
}

std::wstring property(const LabSample& sample, int number)
{
    for (const PropertyCell& cell : sample.physical)
        if (cell.id == number)
            return cell.value;
    return {};
}

} // namespace

TEST(LaboratoryScreen, NewSamplesComeByInsByTheButtonAndFromTheRegister)
{
    Host host{site()};
    host.project->addSample({L"Скв-1", L"7.5"}, {});
    host.select(0, QStringLiteral("Точка"));
    host.press(Qt::Key_Insert);
    host.type(QStringLiteral("Скв-1"));
    host.press(Qt::Key_Tab);
    host.type(QStringLiteral("4,5"));
    host.press(Qt::Key_Return);
    ASSERT_EQ(host.project->getLabSamples().size(), 4U);
    EXPECT_EQ(host.sample(L"Скв-1", L"4.5").number, 4);

    ASSERT_TRUE(host.click(QStringLiteral("Новая проба")));
    host.type(QStringLiteral("Скв-1"));
    host.press(Qt::Key_Tab);
    host.type(QStringLiteral("2"));
    host.press(Qt::Key_Return);
    // There is one already: it stays on the screen with its reason and bars the closing.
    EXPECT_EQ(host.project->getLabSamples().size(), 4U);
    EXPECT_FALSE(host.store());
    host.press(Qt::Key_Up);
    host.type(QStringLiteral("6"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.project->getLabSamples().size(), 5U);
    EXPECT_TRUE(host.store());

    ASSERT_TRUE(host.click(QStringLiteral("Взять из реестра")));
    EXPECT_EQ(host.project->getLabSamples().size(), 6U);
    host.undo();
    EXPECT_EQ(host.project->getLabSamples().size(), 5U);
}

TEST(LaboratoryScreen, DerivedCellsAreFilledAndTypedOnesStay)
{
    Host host{site()};
    host.turnTo(Host::Physical);
    EXPECT_EQ(host.controller.labMode(), LabPhysical);
    EXPECT_NE(host.controller.labState(), 0);
    EXPECT_NE(host.controller.labState(), 8);
    const char* values[] = {"0,212", "1.94", "2.71", "0.312", "0.188"};
    for (int number = 0; number < 5; ++number)
        host.write(0, head(number), QString::fromLatin1(values[number]));
    host.write(0, head(6), QStringLiteral("0.75"));
    EXPECT_EQ(property(host.sample(L"Скв-1", L"1"), 0), L"0.212");

    Q_EMIT host.screen->signalCalc();
    const LabSample& sample = host.sample(L"Скв-1", L"1");
    const std::pair<int, const wchar_t*> expected[] = {{5, L"1.60"},
        {6, L"0.75"},
        {7, L"40.9"},
        {8, L"0.83"},
        {9, L"0.256"},
        {10, L"2.01"},
        {11, L"1.01"},
        {12, L"12.4"},
        {13, L"0.19"},
        {14, L"0.09"}};
    for (const auto& [number, text] : expected)
        EXPECT_EQ(property(sample, number), text) << number;
    EXPECT_EQ(sample.soilKind.text, L"Суглинок полутвердый");
    EXPECT_NE(host.reason(0, head(6)).find("0.693"), std::string::npos);
    EXPECT_EQ(host.reason(0, head(7)), "");
    // What was computed stands grey, what was typed over it does not.
    EXPECT_TRUE(host.at(0, head(7)).data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(host.at(0, head(6)).data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(host.at(0, head(0)).data(Qt::ForegroundRole).isValid());
    EXPECT_TRUE(host.at(1, head(7)).data(Qt::BackgroundRole).isValid());

    host.undo();
    EXPECT_EQ(property(sample, 7), L"");
    EXPECT_EQ(sample.soilKind.text, L"");
    host.controller.redo();
    ASSERT_TRUE(host.click(QStringLiteral("Пересчитать все")));
    EXPECT_EQ(property(sample, 6), L"0.693");
}

TEST(LaboratoryScreen, RowsStayWithTheirSamplesWhenOthersComeAndGo)
{
    Host host{site()};
    host.select(1, QStringLiteral("Наименование"));
    auto* grid = dynamic_cast<EditGrid*>(host.grid());
    ASSERT_TRUE(grid);
    const qint64 second = grid->currentRow();
    // From elsewhere: one above, the kind of a sample, and no layer any more.
    host.project->addLabSample({L"Скв-1", L"0.5"}, {});
    host.project->getSamples().begin()->second.sampleKind = 2;
    host.controller.notify();
    const auto cell = [&](int row, int column) {
        return grid->rows().rows()[row].cells[column].toStdString();
    };
    EXPECT_EQ(grid->currentRow(), second);
    EXPECT_EQ(grid->rows().rowOf(second), 2);
    EXPECT_EQ(cell(2, 1), "2");
    EXPECT_EQ(cell(2, 5), "1");
    EXPECT_EQ(cell(1, 4), QString::fromWCharArray(sampleKinds.find(2)->data()).toStdString());
    EXPECT_EQ(cell(2, 4), QString::fromWCharArray(sampleKinds.find(0)->data()).toStdString());
    // What is typed goes to the sample of the row.
    host.write(2, QStringLiteral("Наименование"), QStringLiteral("Лёсс"));
    EXPECT_EQ(host.sample(L"Скв-1", L"2").soilKind.text, L"Лёсс");
    host.project->getLithology().clear();
    host.project->getLabSamples().erase(host.project->getLabSamples().begin());
    host.controller.notify();
    EXPECT_EQ(grid->rows().rowOf(second), 1);
    EXPECT_EQ(cell(1, 1), "2");
    EXPECT_EQ(cell(1, 5), "");
    EXPECT_FALSE(grid->rows().rows()[1].warnings.isEmpty());
}

TEST(LaboratoryScreen, ATypedNameOfTheSoilStays)
{
    Host host{site()};
    host.write(0, QStringLiteral("Наименование"), QStringLiteral("Лёсс"));
    host.turnTo(Host::Physical);
    host.paste(
        0, head(0), QStringLiteral("0.212\t1.94\t2.71\t0.312\t0.188\n0.212\t1.94\t2.71\t0.312\t0.188"));
    Q_EMIT host.screen->signalCalc();
    EXPECT_EQ(host.sample(L"Скв-1", L"1").soilKind.text, L"Лёсс");
    EXPECT_EQ(host.sample(L"Скв-1", L"2").soilKind.text, L"Суглинок полутвердый");
    // The computed one follows its inputs.
    host.write(1, head(0), QStringLiteral("0.28"));
    Q_EMIT host.screen->signalCalc();
    EXPECT_EQ(host.sample(L"Скв-1", L"2").soilKind.text, L"Суглинок мягкопластичный");
}

TEST(LaboratoryScreen, APastedBlockIsOneStepOnEveryPage)
{
    struct {
        Host::Place page;
        QString from;
        QString block;
    } const blocks[] = {
        {Host::Physical, head(0), QStringLiteral("0,21\t1,9\t2.7\n0,22\t1.91\t2.71\n0.23\t-\tабв\n9\t9\t9")},
        {Host::Grading, QStringLiteral("2 - 1"), QStringLiteral("10\t20\t70\n10\t20\t71")},
        {Host::Swelling, QStringLiteral("0.05"), QStringLiteral("0.1\t0.05\n0.2\t0.1")},
    };
    const Reference<DBProject> project = site();
    project->setSwellingTemplate({{3, {}, {}, {}}, {4, {}, {}, {}}});
    Host host{project};
    for (const auto& block : blocks) {
        host.turnTo(block.page);
        const Bytes before = contentOf(*project);
        host.paste(0, block.from, block.block);
        const Bytes after = contentOf(*project);
        ASSERT_NE(before, after);
        host.undo();
        EXPECT_EQ(contentOf(*project), before);
        host.controller.redo();
        EXPECT_EQ(contentOf(*project), after);
    }
    // Nothing typed is lost, be it a number or not; the block ends with the table.
    EXPECT_EQ(property(host.sample(L"Скв-1", L"3"), 2), L"абв");
    EXPECT_EQ(property(host.sample(L"Скв-1", L"1"), 0), L"0.21");
    EXPECT_EQ(project->getLabSamples().size(), 3U);
}

TEST(LaboratoryScreen, ASampleIsEditedInAFormOfItsOwn)
{
    Host host{site()};
    host.turnTo(Host::Shear);
    host.grid()->setFocus();
    ASSERT_TRUE(host.click(QStringLiteral("Изменить пробу")));
    EXPECT_EQ(host.controller.labState(), 8);
    EXPECT_EQ(host.controller.editedSample(), L"Скв-1");
    EXPECT_FALSE(host.hasAllModes);
    EXPECT_FALSE(host.tabs()->isTabEnabled(Host::Physical));
    Q_EMIT host.screen->signalSetPropertiesTest(true);
    const int row = host.rowOf(QStringLiteral("Нормальное"), "0.1");
    ASSERT_GE(row, 0);
    host.write(row, QStringLiteral("Сопротивление"), QStringLiteral("0.063"));
    Q_EMIT host.screen->signalSetPropertiesTest(false);
    ASSERT_EQ(host.sample(L"Скв-1", L"1").shear.begin()->second.size(), 1U);

    // An open cell is committed by the end of editing.
    host.select(0, QStringLiteral("Сопротивление"));
    host.press(Qt::Key_F2);
    host.press(Qt::Key_A, Qt::ControlModifier);
    host.type(QStringLiteral("0.07"));
    Q_EMIT host.screen->signalEndEditLaboratory();
    EXPECT_EQ(host.sample(L"Скв-1", L"1").shear.begin()->second[0].value, L"0.07");
    EXPECT_NE(host.controller.labState(), 8);
    EXPECT_EQ(host.controller.editedSample(), L"");
    EXPECT_TRUE(host.hasAllModes);
    EXPECT_TRUE(host.tabs()->isTabEnabled(Host::Physical));
    // What was done in the form is undone in the form alone.
    host.undo();
    EXPECT_EQ(host.sample(L"Скв-1", L"1").shear.begin()->second[0].value, L"0.07");
    ASSERT_TRUE(host.click(QStringLiteral("Изменить пробу")));
    host.undo();
    EXPECT_EQ(host.sample(L"Скв-1", L"1").shear.begin()->second[0].value, L"0.063");
}

TEST(LaboratoryScreen, ParallelDeterminationsGiveTheMean)
{
    Host host{site()};
    host.turnTo(Host::Physical);
    host.select(1, head(0));
    QTimer::singleShot(0, [] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        QList<QLineEdit*> masses;
        for (QLineEdit* edit : dialog->findChildren<QLineEdit*>())
            if (edit->isVisible() && !edit->isReadOnly())
                masses.append(edit);
        const char* typed[] = {"20", "60.4", "53.4", "21", "61,6", "54.5"};
        for (int i = 0; i < 6; ++i)
            QTest::keyClicks(masses[i], QString::fromLatin1(typed[i]));
        dialog->accept();
    });
    ASSERT_TRUE(host.click(QStringLiteral("Параллельные")));
    // 7/33.4 and 7.1/33.5.
    EXPECT_EQ(property(host.sample(L"Скв-1", L"2"), 0), L"0.211");
    host.undo();
    EXPECT_EQ(property(host.sample(L"Скв-1", L"2"), 0), L"");
}

TEST(LaboratoryScreen, WhatCannotBeIsMarkedWithItsReasonAndKept)
{
    struct {
        int number;
        const char* typed;
        const char* reason;
    } const rows[] = {
        {1, "1.2.3", "не число"},
        {1, "abc", "не число"},
        {1, "-", "не число"},
        {1, "1e400", "не число"},
        {15, "< 20", "не число"},
        {1, "-1.9", "меньше"},
        {0, "-0.2", "меньше"},
        {4, "0.4", "больше"},
        {0, "21.2", "процент"},
        {0, "0.95", "больше трёх"},
    };
    for (const auto& row : rows) {
        const Reference<DBProject> project = site(1);
        if (row.number == 15)
            project->setPhysicalTemplate({{15, true, {}, 0, 999}});
        Host host{project};
        host.turnTo(Host::Physical);
        const char* values[] = {"0.212", "1.94", "2.71", "0.3", "0.188"};
        for (int number = 0; number < 5; ++number)
            host.write(0, head(number), QString::fromLatin1(values[number]));
        host.write(0, head(row.number), QString::fromUtf8(row.typed));
        EXPECT_EQ(host.text(0, head(row.number)), row.typed);
        EXPECT_NE(host.reason(0, head(row.number)).find(row.reason), std::string::npos)
            << row.typed << ": " << host.reason(0, head(row.number));
        Q_EMIT host.screen->signalCalc();
        // Dry density needs both moisture and density.
        if (row.number <= 1) {
            EXPECT_EQ(property(host.sample(L"Скв-1", L"1"), 5), L"") << row.typed;
        }
        host.controller.undo();
    }
}

// The example has one sample that contradicts itself on purpose: the screen must find it, and it alone.
TEST(LaboratoryScreen, TheContradictionOfTheExampleIsMarked)
{
    const std::wstring path =
        QStringLiteral(TELLURIX_PROGRAM_FOLDER "/Проекты/ZARECHNAYA/ZARECHNAYA.TLX").toStdWString();
    Bytes bytes;
    lookAtProjectFile(path, bytes);
    ReadReport report;
    Host host{readProject(path, bytes, report)};
    host.turnTo(Host::Physical);
    QStringList marked;
    for (int row = 0; row < host.grid()->model()->rowCount(); ++row)
        if (!host.reason(row, head(8)).empty())
            marked += QString::fromStdString(host.text(row, QStringLiteral("Точка")) + " / "
                + host.text(row, QStringLiteral("Глубина")) + ": " + host.reason(row, head(8)));
    ASSERT_EQ(marked.size(), 1);
    EXPECT_TRUE(marked[0].startsWith(QStringLiteral("Скв-5 / 5.0: "))) << qPrintable(marked[0]);
    EXPECT_TRUE(marked[0].contains(QStringLiteral("противоречат"))) << qPrintable(marked[0]);
}

TEST(LaboratoryScreen, FractionsMustSumUpToAHundred)
{
    Host host{site(1)};
    host.turnTo(Host::Grading);
    for (const char* last : {"33", "35", "-34"}) {
        host.paste(0, QStringLiteral("2 - 1"), QStringLiteral("40\t26\t%1").arg(QLatin1String(last)));
        const QString marked = last[0] == '-' ? QStringLiteral("0.5 - 0.25") : QStringLiteral("Сумма");
        EXPECT_NE(host.reason(0, marked), "") << last;
    }
    host.write(0, QStringLiteral("0.5 - 0.25"), QStringLiteral("34"));
    EXPECT_EQ(host.reason(0, QStringLiteral("Сумма")), "");
    EXPECT_EQ(host.text(0, QStringLiteral("Сумма")), "100.0");
}

TEST(LaboratoryScreen, TestsThatCannotBeComputedSayWhyAtTheirCells)
{
    const Reference<DBProject> project = site(1);
    LabSample sample = project->getLabSamples().begin()->second;
    sample.compression[21].cells = {
        {4, L"0.3", {}, {}, 0, {}}, {8, L"0.2", {}, {}, 0, {}}, {16, L"0.9@0.1", {}, {}, 0, {}}};
    sample.shear[3] = {{7, L"0.063"}, {7, L"0.06"}, {7, L"0.061"}};
    sample.swelling = {{3, {}, L"0.1", {}}, {4, {}, L"0.05@0.05", {}}};
    sample.shrinkage = {{1, {L"1", L"5", L"2.5", L"-96", {}, {}}}};
    project->setLabSamples({});
    project->addLabSample({L"Скв-1", L"1"}, sample);
    Host host{project};
    host.turnTo(Host::Compression);
    EXPECT_NE(host.reason(0, QStringLiteral("0.2 ")) + host.reason(0, QStringLiteral("0.1 ")), "");
    host.turnTo(Host::Shear);
    EXPECT_NE(host.reason(0, QStringLiteral("0.1 ")).find("одном нормальном"), std::string::npos);
    host.write(0, QStringLiteral("0.1 "), QString());
    host.turnTo(Host::Swelling);
    EXPECT_NE(host.reason(0, QStringLiteral("0.1 ")) + host.reason(0, QStringLiteral("0.05 ")), "");
    host.turnTo(Host::Shrinkage);
    EXPECT_NE(host.reason(0, QStringLiteral("Этапов")), "");
    Q_EMIT host.screen->signalCalc();
    const LabSample& after = host.sample(L"Скв-1", L"1");
    EXPECT_EQ(property(after, 31), L"");
    EXPECT_EQ(property(after, 32), L"");
}

TEST(LaboratoryScreen, APageOpensAtASampleThatHasItsTest)
{
    const Reference<DBProject> project = site(3);
    LabSample& second = project->getLabSamples().find({L"Скв-1", L"2"})->second;
    second.shear[3] = {{7, L"0.063"}};
    LabSample& third = project->getLabSamples().find({L"Скв-1", L"3"})->second;
    third.shear[3] = {{7, L"0.05"}};
    third.swelling = {{3, {}, L"0.1", {}}};
    Host host{project};
    host.turnTo(Host::Shear);
    EXPECT_EQ(host.grid()->currentIndex().row(), 1);
    host.turnTo(Host::Swelling);
    EXPECT_EQ(host.grid()->currentIndex().row(), 2);
    host.turnTo(Host::Shrinkage);
    EXPECT_EQ(host.grid()->currentIndex().row(), 0) << "nobody has it";
    // From then on the row is the user's choice.
    host.turnTo(Host::Shear);
    host.write(0, QStringLiteral("0.1 "), QStringLiteral("0.04"));
    const int chosen = host.grid()->currentIndex().row();
    host.controller.undo();
    host.turnTo(Host::Shear);
    EXPECT_EQ(host.grid()->currentIndex().row(), chosen);
}

TEST(LaboratoryScreen, BearsAnyProjectAndLosesNothing)
{
    for (const char* name : {"ALLTEXT.TLX", "ALLNUM.TLX", "PORTADOWN.TLX", "LURGAN.TLX"}) {
        const Reference<DBProject> project = openBytes(sampleBytes(name));
        const Bytes before = contentOf(*project);
        Host host{project};
        for (int page = Host::Shrinkage; page >= Host::Register; --page) {
            host.turnTo(static_cast<Host::Place>(page));
            Q_EMIT host.screen->signalCalc();
            host.undo();
            ASSERT_EQ(contentOf(*project), before) << page;
            if (page != Host::Register && host.click(QStringLiteral("Изменить пробу"))) {
                Q_EMIT host.screen->signalSetPropertiesTest(true);
                Q_EMIT host.screen->signalEndEditLaboratory();
            }
        }
        EXPECT_EQ(contentOf(*project), before);
        host.controller.setProject(nullptr);
        host.activate();
        for (int page = Host::Register; page <= Host::Shrinkage; ++page) {
            host.turnTo(static_cast<Host::Place>(page));
            Q_EMIT host.screen->signalCalc();
            Q_EMIT host.screen->signalClearTests();
        }
    }
}

TEST(LaboratoryCurve, AMovedPointWritesWhatWasMeasured)
{
    LabSample sample;
    sample.grading = {{15, L"40"}, {16, L"26"}, {17, L"34"}};
    sample.compression[23].cells = {{8, L"0.525", L"(0.8)", L"0.025", 0, {}}};
    sample.shear[3] = {{7, L"0.063"}, {7, L"0.06@0.12"}};
    sample.swelling = {{4, L"2.6", L"0.1", {}}};
    sample.shrinkage = {{2, {L"2", L"5", L"2.5", {}, {}, {}}}};
    const SampleResult result = sampleResult(sample, {2.5F, 2.5F, 0}, GrainScale::Above200, 0);
    // 25 mm high, less the correction; brackets and loads beside the ladder stay.
    EXPECT_TRUE(movePoint(sample, result, {LabTest::Compression, 23, 0}, 9, 0.03));
    EXPECT_EQ(sample.compression[23].cells[0].textA, L"0.775");
    EXPECT_TRUE(movePoint(sample, result, {LabTest::Compression, 23, 0}, 1009, 0.04));
    EXPECT_EQ(sample.compression[23].cells[0].textB, L"(1.025)");
    EXPECT_TRUE(movePoint(sample, result, {LabTest::Shear, 3, 0}, 2, 0.075));
    EXPECT_EQ(sample.shear[3][1].value, L"0.075@0.12");
    EXPECT_TRUE(movePoint(sample, result, {LabTest::Swelling, 0, 0}, 5, 0.06));
    EXPECT_EQ(sample.swelling[0].textA, L"2.650");
    EXPECT_EQ(sample.swelling[0].textB, L"0.150");
    // 19.635 cm2.
    EXPECT_TRUE(movePoint(sample, result, {LabTest::Shrinkage, 0, 0}, 3, 39.27));
    EXPECT_EQ(sample.shrinkage[0].cells[2], L"2.000");
    // 60 % are finer than 1 mm; at 50 the coarser fraction has ten more, the sum stays.
    EXPECT_TRUE(movePoint(sample, result, {LabTest::Grading, 0, 0}, 2, 50));
    EXPECT_EQ(sample.grading[15], L"50.0");
    EXPECT_EQ(sample.grading[16], L"16.0");
    EXPECT_FALSE(movePoint(sample, result, {LabTest::Grading, 0, 0}, 9, 50));

    leaveOut(sample, {LabTest::Shrinkage, 0, 0}, 3, true);
    EXPECT_EQ(sample.shrinkage[0].cells[2], L"(2.000)");
    EXPECT_TRUE(isLeftOut(sample, {LabTest::Shrinkage, 0, 0}, 3));
    EXPECT_TRUE(movePoint(sample, result, {LabTest::Shrinkage, 0, 0}, 3, 19.635));
    EXPECT_EQ(sample.shrinkage[0].cells[2], L"(1.000)");
    const SampleResult without = sampleResult(sample, {2.5F, 2.5F, 0}, GrainScale::Above200, 0);
    ASSERT_EQ(without.shrinkage.points.size(), 1U);
    EXPECT_TRUE(without.shrinkage.points[0].isLeftOut);
    EXPECT_NEAR(*without.shrinkage.points[0].volume, 19.635, 0.001);

    leaveOut(sample, {LabTest::Shear, 3, 0}, 2, true);
    EXPECT_EQ(sample.shear[3][1].value, L"(0.075@0.12)");
    EXPECT_TRUE(isLeftOut(sample, {LabTest::Shear, 3, 0}, 2));
    leaveOut(sample, {LabTest::Shear, 3, 0}, 2, false);
    EXPECT_EQ(sample.shear[3][1].value, L"0.075@0.12");
}

TEST(LaboratoryCurve, ADraggedPointIsOneStepOfUndo)
{
    const Reference<DBProject> project = site(1);
    LabSample& sample = project->getLabSamples().begin()->second;
    sample.shear[3] = {{7, L"0.063"}, {15, L"0.101"}, {19, L"0.135"}};
    Settings settings;
    TellurixController controller(&settings, project.get());
    controller.setCurrentMode(ModeLaboratory);
    LaboratoryScreen screen(ModeLaboratory, &controller);
    screen.resize(1200, 700);
    screen.show();
    auto* tabs = screen.findChild<QTabWidget*>(QStringLiteral("pages"));
    tabs->setCurrentIndex(LaboratoryHost::Shear);
    QCoreApplication::sendPostedEvents();
    auto* curve = tabs->currentWidget()->findChild<SampleCurve*>();
    ASSERT_TRUE(curve);
    DrawingCanvas& canvas = curve->view().canvas();
    const auto placeOf = [&](std::int64_t id) {
        const Spot corner = canvas.spotAt({0, 0});
        const double scale = 100 / (canvas.spotAt({100, 0}).x - corner.x);
        for (const Item& item : canvas.drawing().items)
            if (const auto* circle = std::get_if<Circle>(&item.shape); circle && item.id == id)
                return QPointF((circle->centre.x - corner.x) * scale, (circle->centre.y - corner.y) * scale);
        return QPointF();
    };
    const auto send = [&](QEvent::Type type, const QPointF& at) {
        QMouseEvent event(type, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&canvas, &event);
    };
    const QPointF start = placeOf(2);
    send(QEvent::MouseButtonPress, start);
    send(QEvent::MouseMove, start - QPointF(0, 12));
    // The curve follows while nothing is stored yet.
    EXPECT_NEAR(placeOf(2).y(), start.y() - 12, 1.5);
    EXPECT_EQ(sample.shear[3][1].value, L"0.101");
    send(QEvent::MouseMove, start - QPointF(0, 20));
    send(QEvent::MouseButtonRelease, start - QPointF(0, 20));
    EXPECT_GT(readNumber(sample.shear[3][1].value).value_or(0), 0.101);
    EXPECT_EQ(sample.shear[3][0].value, L"0.063");
    controller.undo();
    EXPECT_EQ(sample.shear[3][1].value, L"0.101");
}
