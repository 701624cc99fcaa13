#include "common/drawing_output.h"
#include "common/drawing_view.h"
#include "common/edit_grid.h"
#include "core/base/mexception.h"
#include "db/db_project.h"
#include "drawing/text_layout.h"
#include "modes/support/registers_screen_host.h"
#include "modes/support/sheets_host.h"
#include "paint/drawing_files.h"
#include "paint/drawing_fonts.h"
#include "persistence/project_file.h"
#include "stratigraphic/stratigraphic_screen.h"
#include "support/temporary_folder.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QFileDialog>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

static const QString words = QStringLiteral("Суглинок №1 тугопластичный, α ≤ 0,5 м² — ґрунт (x/y)");

TEST(DrawingFonts, AreAsWideAsTheTableSays)
{
    EXPECT_EQ(missingFonts().toStdString(), "");
    for (const Font font : {Font::Plain, Font::Bold, Font::Italic, Font::Narrow}) {
        const QFontMetricsF metrics(drawingFont(font));
        const double height = drawingFontPixels / emOfHeight(font, 1);
        EXPECT_NEAR(metrics.horizontalAdvance(words),
            textWidth(words.toStdWString(), font, height),
            metrics.horizontalAdvance(words) * 0.006)
            << static_cast<int>(font);
        EXPECT_NEAR(metrics.capHeight(), height, height * 0.02);
    }
}

static Drawing simpleSheet()
{
    Drawing drawing;
    drawing.width = 100;
    drawing.height = 50;
    drawing.title = L"Лист";
    drawing.items.push_back(
        {Layer::Frame, 7, Line{{{10, 10}, {30, 10}, {30, 30}, {10, 30}}, {1, {255, 0, 0}}, true}});
    return drawing;
}

TEST(DrawingFiles, PictureIsAsLargeAsThePaper)
{
    const QImage image = toImage(simpleSheet(), {}, 254);
    EXPECT_EQ(image.size(), QSize(1000, 500));
    EXPECT_EQ(image.pixelColor(100, 200), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(500, 250), QColor(255, 255, 255));
    Drawing large;
    large.width = 100000;
    EXPECT_THROW(toImage(large, {}, 300), MException);
}

TEST(DrawingFiles, NothingHalfIsLeftAndTheReasonTold)
{
    const TemporaryFolder folder;
    const std::wstring inside = folder.file(L"лист.pdf");
    EXPECT_EQ(writeDrawings(inside, {simpleSheet(), simpleSheet()}, {}), 1U);
    EXPECT_EQ(writeDrawings(folder.file(L"лист.dxf"), {simpleSheet(), simpleSheet()}, {}), 2U);
    std::size_t asked = 0;
    EXPECT_EQ(writeDrawings(folder.file(L"нет.pdf"),
                  {simpleSheet()},
                  {},
                  [&asked](std::size_t) {
                      ++asked;
                      return false;
                  }),
        0U);
    EXPECT_EQ(asked, 1U);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "нет.pdf"));
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "лист_2.dxf"));
    EXPECT_THROW(writeDrawings(folder.file(L"нет папки\\лист.pdf"), {simpleSheet()}, {}), MException);
    EXPECT_THROW(writeDrawings(folder.file(L"лист.doc"), {simpleSheet()}, {}), MException);
}

// Sheets that stand there already are not written over unasked: the dialog of files knows one name alone.
TEST(DrawingFiles, StandingSheetsAreReplacedOnlyWhenTheUserSaysSo)
{
    const TemporaryFolder folder;
    const auto place = folder.path() / "лист_2.dxf";
    std::ofstream(place) << "work";
    const auto at = [&](const char* name) { return QString::fromStdString((folder.path() / name).string()); };
    QString begun;
    const auto save = [&](const QString& answer) {
        QTimer hand;
        QObject::connect(&hand, &QTimer::timeout, &hand, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            if (auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
                begun = qobject_cast<QFileDialog*>(dialog)->directory().absolutePath() + QLatin1Char('/')
                    + name->text();
                name->setText(at("лист.dxf"));
                return static_cast<void>(QMetaObject::invokeMethod(dialog, "accept"));
            }
            for (auto* button : dialog->findChildren<QPushButton*>())
                if (button->text() == QStringLiteral("Все листы") || button->text() == answer)
                    return button->click();
            QTest::keyClick(dialog, Qt::Key_Return); // whoever does not read
        });
        hand.start(10);
        return saveDrawings(nullptr, {simpleSheet(), simpleSheet()}, 0, {}, QStringLiteral("лист 1/2"));
    };
    EXPECT_EQ(save(QString()), QString());
    EXPECT_EQ(std::filesystem::file_size(place), 4U);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "лист_1.dxf"));
    EXPECT_EQ(save(QStringLiteral("Заменить")), at("лист_1.dxf"));
    EXPECT_GT(std::filesystem::file_size(place), 100U);
    save(QString());
    EXPECT_EQ(begun, at("лист 1-2.pdf")) << "the next one goes where the last one went";
}

TEST(DrawingCanvas, ZoomsToTheCursorAndFindsByClick)
{
    DrawingCanvas canvas;
    canvas.resize(600, 400);
    canvas.setDrawing(simpleSheet(), {});
    canvas.show();
    const QPointF place(200, 150);
    const Spot before = canvas.spotAt(place);
    QWheelEvent wheel(place,
        canvas.mapToGlobal(place.toPoint()),
        {},
        {0, 240},
        Qt::NoButton,
        Qt::NoModifier,
        Qt::NoScrollPhase,
        false);
    const double zoom = canvas.zoom();
    QCoreApplication::sendEvent(&canvas, &wheel);
    EXPECT_NEAR(canvas.zoom(), zoom * 1.44, 1e-9);
    EXPECT_NEAR(canvas.spotAt(place).x, before.x, 1e-9);
    EXPECT_NEAR(canvas.spotAt(place).y, before.y, 1e-9);
    canvas.fit();
    qint64 clicked = -1;
    QObject::connect(&canvas, &DrawingCanvas::clicked, &canvas, [&clicked](qint64 id) { clicked = id; });
    const double scale = canvas.zoom() * canvas.logicalDpiX() / 25.4;
    const Spot corner = canvas.spotAt({0, 0});
    QTest::mouseClick(
        &canvas, Qt::LeftButton, {}, {qRound((20 - corner.x) * scale), qRound((20 - corner.y) * scale)});
    EXPECT_EQ(clicked, 7);
    QTest::mouseClick(
        &canvas, Qt::LeftButton, {}, {qRound((60 - corner.x) * scale), qRound((20 - corner.y) * scale)});
    EXPECT_EQ(clicked, 0);
}

static Reference<DBProject> twoHoles()
{
    auto project = makeReference<DBProject>();
    PointRow row;
    row.absoluteMark = L"152.35";
    for (const wchar_t* name : {L"Скв-1", L"Скв-2"})
        project->addPointRegisterEntry({name, 1}, {row});
    project->addLithology({L"Скв-1", L"1.2"}, {L"tQ_IV", L"Насыпной грунт"});
    project->addLithology({L"Скв-1", L"4.6"}, {L"aQ_III", L"Суглинок"});
    StrataElement element;
    project->addStrataElement(L"1", element);
    project->addNumberedLink(L"Скв-1:2", L"1");
    return project;
}

TEST(ColumnScreen, ShowsThePointsAndTheChosenColumn)
{
    const auto project = twoHoles();
    SheetHost host({"igk19.dll", ModeIgk}, project.get());
    host.labels();
    auto* points = host.screen->findChild<QListWidget*>(QStringLiteral("igk/points"));
    auto* lanes = host.screen->findChild<QListWidget*>(QStringLiteral("igk/lanes"));
    ASSERT_TRUE(points && lanes);
    ASSERT_EQ(points->count(), 2);
    EXPECT_EQ(points->currentItem()->text(), QStringLiteral("Скв-1"));
    EXPECT_EQ(lanes->count(), 10);
    const QPixmap full = host.screen->grab();
    points->setCurrentRow(1);
    EXPECT_NE(host.screen->grab().toImage(), full.toImage());
    for (int lane = 0; lane < lanes->count(); ++lane)
        lanes->item(lane)->setCheckState(Qt::Unchecked);
    EXPECT_NE(host.labels().find("Отметьте хотя бы одну графу"), std::string::npos);
}

TEST(ColumnScreen, ListsFollowTheProjectAndTheChosenStays)
{
    const auto project = twoHoles();
    SheetHost host({"igk19.dll", ModeIgk}, project.get());
    host.labels();
    auto* points = host.screen->findChild<QListWidget*>(QStringLiteral("igk/points"));
    points->setCurrentRow(1);
    const auto boxWith = [&](const QString& text) {
        const auto boxes = host.screen->findChildren<QComboBox*>();
        return std::any_of(
            boxes.begin(), boxes.end(), [&](const QComboBox* box) { return box->findText(text) >= 0; });
    };
    EXPECT_FALSE(boxWith(QStringLiteral("ТСЗ-1")));
    project->addPointRegisterEntry({L"Скв-01", 1}, {PointRow()});
    project->addSounding({L"ТСЗ-1", 3, L"", L""}, {});
    host.controller.notify();
    ASSERT_EQ(points->count(), 3);
    EXPECT_EQ(points->currentItem()->text(), QStringLiteral("Скв-2"));
    EXPECT_TRUE(boxWith(QStringLiteral("ТСЗ-1")));
    // The same names over other layers: the column is drawn anew.
    points->setCurrentRow(1);
    const QImage before = host.screen->grab().toImage();
    project->getLithology().clear();
    host.controller.notify();
    EXPECT_NE(host.screen->grab().toImage(), before);
}

TEST(ColumnScreen, WhatTheUserHasArrangedStays)
{
    const auto project = twoHoles();
    const auto order = [](const SheetHost& host) {
        const auto* lanes = host.screen->findChild<QListWidget*>(QStringLiteral("igk/lanes"));
        return (lanes->item(0)->text() + QLatin1Char('/') + lanes->item(1)->text()).toStdString();
    };
    const auto scale = [](const SheetHost& host) {
        return host.screen->findChild<QComboBox*>(QStringLiteral("igk/scale"));
    };
    QString chosen;
    {
        SheetHost host({"igk19.dll", ModeIgk}, project.get());
        host.labels();
        const std::string before = order(host);
        auto* lanes = host.screen->findChild<QListWidget*>(QStringLiteral("igk/lanes"));
        lanes->setCurrentRow(1);
        QTest::keyClick(lanes, Qt::Key_Up, Qt::ControlModifier);
        const std::string moved = order(host);
        EXPECT_NE(moved, before);
        EXPECT_EQ(lanes->currentRow(), 0) << "goes with its column";
        QTest::keyClick(lanes, Qt::Key_Up, Qt::ControlModifier); // the very top
        Q_EMIT host.screen->signalUpdateSetup();
        host.labels();
        EXPECT_EQ(order(host), moved) << "other settings are no reason to lose it";
        QTest::keyClick(scale(host), Qt::Key_Down);
        chosen = scale(host)->currentText();
        EXPECT_NE(chosen, scale(host)->itemText(0));
    }
    const SheetHost host({"igk19.dll", ModeIgk}, project.get());
    EXPECT_EQ(scale(host)->currentText(), chosen);
}

TEST(ColumnScreen, ElementsNeedElements)
{
    const auto project = twoHoles();
    SheetHost host({"stratigraphicIge19.dll", ModeStratigraphicIge}, project.get());
    EXPECT_EQ(host.labels().find("В проекте нет ИГЭ"), std::string::npos);
    const auto bare = makeReference<DBProject>();
    SheetHost other({"stratigraphicIge19.dll", ModeStratigraphicIge}, bare.get());
    EXPECT_NE(other.labels().find("В проекте нет ИГЭ"), std::string::npos);
}

TEST(StratigraphicColumn, IsEditedSavedAndOpened)
{
    const TemporaryFolder folder;
    const auto settings = makeReference<Settings>();
    TellurixController controller(settings.get(), nullptr);
    const QString file = QString::fromStdWString(folder.file(L"колонка.json"));
    StrataColumn written;
    {
        StratigraphicScreen screen(ModeStratigraphic, &controller);
        screen.resize(1100, 600);
        screen.show();
        EXPECT_FALSE(controller.columnModified());
        auto* grid = screen.findChild<EditGrid*>();
        grid->rows().setData(grid->rows().index(0, 0), QStringLiteral("J_3"), Qt::EditRole);
        EXPECT_TRUE(controller.columnModified());
        grid->rows().setData(grid->rows().index(0, 1), QStringLiteral("12,5"), Qt::EditRole);
        grid->rows().setData(grid->rows().index(0, 3), QStringLiteral("Глина серая"), Qt::EditRole);
        screen.saveTo(file);
        EXPECT_FALSE(controller.columnModified());
        written = screen.column();
        EXPECT_THROW(screen.saveTo(QString::fromStdWString(folder.file(L"нет\\к.json"))), MException);
    }
    ASSERT_EQ(written.layers.size(), 1);
    EXPECT_EQ(written.layers[0].index, QStringLiteral("J_3"));
    StratigraphicScreen screen(ModeStratigraphic, &controller);
    screen.open(file);
    EXPECT_TRUE(screen.column() == written);
    QFile damaged(QString::fromStdString((folder.path() / "колонка.json").string()));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write("{\"format\":");
    damaged.close();
    EXPECT_THROW(screen.open(file), MException);
    EXPECT_TRUE(screen.column() == written) << "what is open stays";
}

TEST(StratigraphicColumn, LeavesNoFlagBehind)
{
    const auto settings = makeReference<Settings>();
    TellurixController controller(settings.get(), nullptr);
    {
        StratigraphicScreen screen(ModeStratigraphic, &controller);
        controller.setColumnModified(true);
    }
    EXPECT_FALSE(controller.columnModified());
}

// As it is typed: cells, a hatch that the library has not, the title; then all of it back and again.
TEST(StratigraphicColumn, EveryEditIsUndone)
{
    ScreenHost host("stratigraphic19.dll", ModeStratigraphic, {});
    const auto title = [&] {
        return host.screen->findChild<QLineEdit*>(QStringLiteral("stratigraphic/title"));
    };
    const auto state = [&] { return (title()->text() + QLatin1Char(':') + host.cells()).toStdString(); };
    std::vector<std::string> states{state()};
    const auto enter = [&](int column, const char* text) {
        host.enter(0, column, QString::fromUtf8(text));
        states.push_back(state());
    };
    enter(0, "J_3");
    enter(1, "12,5");
    enter(3, "Глина серая");
    EXPECT_EQ(states.back(), ":J_3|12.5||Глина серая");
    host.enter(0, 2, QStringLiteral("такой нет"));
    EXPECT_EQ(state(), states.back());
    EXPECT_TRUE(host.status.contains(QStringLiteral("такой нет"))) << host.status.toStdString();
    title()->setFocus();
    host.type(QStringLiteral("Опорный разрез"));
    host.press(Qt::Key_Return);
    states.push_back(state());
    EXPECT_EQ(states.back(), "Опорный разрез:J_3|12.5||Глина серая");
    EXPECT_TRUE(host.controller.columnModified());
    for (std::size_t step = states.size() - 1; step-- > 0;) {
        host.controller.undo();
        EXPECT_EQ(state(), states[step]);
    }
    EXPECT_FALSE(host.controller.columnModified());
    EXPECT_FALSE(host.controller.undoRedo()->canUndo(host.controller.undoContext()));
    for (std::size_t step = 1; step < states.size(); ++step) {
        host.controller.redo();
        EXPECT_EQ(state(), states[step]);
    }
    // Steps without their screen do no harm; what was not saved is not there any more.
    host.screen.reset();
    host.make();
    EXPECT_EQ(state(), ":");
    host.controller.undo();
    EXPECT_EQ(state(), states[states.size() - 2]);
}

// A button of the bar takes what stands in the open cell, and after its question typing goes on in the table.
TEST(StratigraphicColumn, QuestionLeavesTheKeyboardInTheTable)
{
    ScreenHost host("stratigraphic19.dll", ModeStratigraphic, {});
    host.goTo(0, 1);
    host.type(QStringLiteral("77"));
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, &hand, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            QTest::keyClick(box, Qt::Key_Escape);
    });
    hand.start(10);
    for (QToolBar* bar : host.screen->findChildren<QToolBar*>())
        for (QAction* action : bar->actions())
            if (action->text() == QStringLiteral("Открыть…"))
                action->trigger();
    EXPECT_EQ(host.cells(), QStringLiteral("|77||"));
    QApplication::setActiveWindow(host.screen.get()); // what a window manager does after a box
    ASSERT_EQ(QApplication::focusWidget(), host.table());
    EXPECT_EQ(host.table()->currentIndex().row(), 0);
}
