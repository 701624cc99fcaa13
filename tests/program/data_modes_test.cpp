#include "db/exact_key.h"
#include "program/program_test.h"

#include <QAbstractSpinBox>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QWindow>

#include <algorithm>

namespace
{

class DataModes : public ProgramTest
{
protected:
    std::size_t layersOf(const std::wstring& point)
    {
        const auto& layers = controller().dbProject()->getLithology();
        return static_cast<std::size_t>(std::count_if(
            layers.begin(), layers.end(), [&](const auto& layer) { return layer.first.pointName == point; }));
    }
};

constexpr int depthColumn = 0;

} // namespace

TEST_F(DataModes, CommandLineLeadsToTheListOfPoints)
{
    const QByteArray path = project(QStringLiteral("PORTADOWN")).toLocal8Bit();
    openFromCommandLine(controller(), path.constData());
    EXPECT_EQ(shell.mainWindow->windowTitle(),
        QStringLiteral("Tellurix 2019 - Инженерная геология - [Ведомость координат]"));
    ASSERT_NE(screen(ModeListCoords), nullptr);
    EXPECT_EQ(table(ModeListCoords)->model()->rowCount(), 39 + 1) << "and the spare row";
    // Where the window is not active yet, the screen that holds the focus comes on top when it is.
    EXPECT_FALSE(screen(ModeProjects)->isAncestorOf(shell.mainWindow->focusWidget()));
    EXPECT_EQ(screen(ModeListCoords)->findChild<QLineEdit*>(QStringLiteral("projectCode"))->text(),
        QStringLiteral("19-0217"));
}

TEST_F(DataModes, EditIsStoredAtOnceUndoneInItsPlaceAndSaved)
{
    const QString path = project(QStringLiteral("LURGAN"));
    const QByteArray before = content(path);
    openFromCommandLine(controller(), path.toLocal8Bit().constData());
    action(ShellAction::Litology)->trigger();
    QTableView* layers = table(ModeLitology);
    const std::wstring point = shell.controller->editedSample();
    const std::wstring depth = cell(layers, 0, depthColumn).toStdWString();
    type(layers, 0, depthColumn, QStringLiteral("0.07"));
    auto& lithology = controller().dbProject()->getLithology();
    EXPECT_NE(findExact(lithology, {point, L"0.07"}), lithology.end());
    EXPECT_EQ(findExact(lithology, {point, depth}), lithology.end());
    EXPECT_TRUE(action(ShellAction::Undo)->isEnabled());

    // Another mode has nothing to undo; coming back, the change can be.
    action(ShellAction::Tests)->trigger();
    EXPECT_FALSE(action(ShellAction::Undo)->isEnabled());
    action(ShellAction::Litology)->trigger();
    QTest::keyClick(shell.mainWindow.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(findExact(lithology, {point, depth}), lithology.end());
    EXPECT_EQ(cell(layers, 0, depthColumn).toStdWString(), depth);
    controller().saveProject();
    EXPECT_EQ(content(path), before) << "undone, so the same bytes";

    QTest::keyClick(shell.mainWindow.get(), Qt::Key_Y, Qt::ControlModifier);
    QTest::keyClick(shell.mainWindow.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_NE(content(path), before);
    EXPECT_EQ(content(QString(path).replace(QStringLiteral(".TLX"), QStringLiteral(".bak"))), before);
    const MessageAnswers answers({QMessageBox::No});
    action(ShellAction::Close)->trigger();
    openFromCommandLine(controller(), path.toLocal8Bit().constData());
    auto& again = controller().dbProject()->getLithology();
    EXPECT_NE(findExact(again, {point, L"0.07"}), again.end());
}

TEST_F(DataModes, RowsAreAddedAndDeletedByTheShellsActions)
{
    openFromCommandLine(controller(), project(QStringLiteral("LURGAN")).toLocal8Bit().constData());
    action(ShellAction::Litology)->trigger();
    const std::wstring point = shell.controller->editedSample();
    const std::size_t count = layersOf(point);
    QTableView* layers = table(ModeLitology);
    layers->setCurrentIndex(layers->model()->index(0, depthColumn));
    ASSERT_TRUE(action(ShellAction::Delete)->isEnabled());
    action(ShellAction::Delete)->trigger();
    EXPECT_EQ(layersOf(point), count - 1);
    ASSERT_TRUE(action(ShellAction::Add)->isEnabled());
    action(ShellAction::Add)->trigger();
    EXPECT_EQ(layers->model()->rowCount(), int(count) + 1) << "and the spare row";
    EXPECT_EQ(layersOf(point), count - 1) << "a row without a depth is not in the project yet";
    controller().undo();
    controller().undo();
    EXPECT_EQ(layersOf(point), count);
}

// The text of an open cell goes into the project before anything else is done.
TEST_F(DataModes, OpenCellIsStoredByAChangeOfModeAndKeepsItsOwnUndo)
{
    openFromCommandLine(controller(), project(QStringLiteral("LURGAN")).toLocal8Bit().constData());
    action(ShellAction::Waters)->trigger();
    action(ShellAction::Litology)->trigger();
    QTableView* layers = table(ModeLitology);
    const std::wstring point = shell.controller->editedSample();
    layers->setFocus();
    layers->setCurrentIndex(layers->model()->index(0, depthColumn));
    QTest::keyClick(layers, Qt::Key_F2);
    auto* editor = layers->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("0.05"));
    QTest::keyClick(editor, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(editor->text(), QStringLiteral("0.05"));
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("0.06"));
    action(ShellAction::Waters)->trigger();
    auto& lithology = controller().dbProject()->getLithology();
    EXPECT_NE(findExact(lithology, {point, L"0.06"}), lithology.end());
}

TEST_F(DataModes, EveryModeOpensWithEverySampleAndGoesOn)
{
    for (const char* name : {"ALLNUM", "ALLTEXT", "LURGAN", "PORTADOWN"}) {
        const QString path = project(QString::fromLatin1(name));
        const QByteArray before = content(path);
        openFromCommandLine(controller(), path.toLocal8Bit().constData());
        for (int round = 0; round < 2; ++round)
            for (const ModeRow& row : modeRows) {
                if (row.moduleFile.empty() || row.mode == ModeProjects || row.mode == ModeSetup
                    || row.mode == ModeSectionEditor)
                    continue;
                controller().changeMode(row.mode);
                QCoreApplication::processEvents();
                ASSERT_NE(bus(row.mode), nullptr) << name << ' ' << row.mode;
                EXPECT_TRUE(controller().syncMode(row.mode)) << name << ' ' << row.mode;
                shell.mainWindow->grab();
            }
        controller().saveProject();
        EXPECT_EQ(content(path), before) << name << ": looking at a project changes nothing";
        const MessageAnswers answers({QMessageBox::No});
        action(ShellAction::Close)->trigger();
        EXPECT_EQ(controller().findSubWindow(ModeLitology), nullptr);
    }
}

TEST_F(DataModes, ColumnOpensWithoutAProject)
{
    action(ShellAction::Column)->trigger();
    EXPECT_NE(bus(ModeStratigraphic), nullptr);
    EXPECT_TRUE(controller().closeColumnPrompt());
}

TEST_F(DataModes, CurrentModeIsSeenInItsBar)
{
    const auto pressed = [&] {
        QStringList names;
        for (const QToolButton* button : shell.mainWindow->findChildren<QToolButton*>())
            if (button->isChecked() && button->defaultAction())
                names += button->defaultAction()->objectName();
        return names.join(QLatin1Char(' ')).toStdString();
    };
    EXPECT_EQ(pressed(), "");
    action(ShellAction::Column)->trigger();
    EXPECT_EQ(pressed(), "actColumn");
    openFromCommandLine(controller(), project(QStringLiteral("LURGAN")).toLocal8Bit().constData());
    EXPECT_EQ(pressed(), "actListCoords");
    action(ShellAction::Litology)->trigger();
    EXPECT_EQ(pressed(), "actLitology");
    action(ShellAction::Litology)->trigger();
    EXPECT_EQ(pressed(), "actLitology");
    EXPECT_FALSE(action(ShellAction::Litology)->isCheckable()) << "nobody can switch a mode off";
}

// The frame around a screen that took the keyboard from an open cell would swallow what is typed next.
TEST_F(DataModes, ClickBesideTheFieldsLeavesTheKeyboardInTheTable)
{
    QApplication::setActiveWindow(shell.mainWindow.get());
    const auto clickBeside = [&](ShellAction act, TX_Modes mode) {
        action(act)->trigger();
        QCoreApplication::processEvents();
        QTableView* rows = table(mode);
        ASSERT_NE(rows, nullptr) << mode;
        rows->setFocus();
        QTest::keyClick(rows, Qt::Key_F2);
        ASSERT_NE(QApplication::focusWidget(), rows) << mode;
        // By way of the window, as the mouse comes.
        const QPoint margin = screen(mode)->mapTo(shell.mainWindow.get(), {1, 1});
        QTest::mouseClick(shell.mainWindow->windowHandle(), Qt::LeftButton, {}, margin);
        EXPECT_TRUE(rows == QApplication::focusWidget() || rows->isAncestorOf(QApplication::focusWidget()))
            << mode;
    };
    clickBeside(ShellAction::Column, ModeStratigraphic);
    openFromCommandLine(controller(), project(QStringLiteral("LURGAN")).toLocal8Bit().constData());
    clickBeside(ShellAction::ListCoords, ModeListCoords);
    clickBeside(ShellAction::Litology, ModeLitology);
    clickBeside(ShellAction::Tests, ModeTests);
    clickBeside(ShellAction::Waters, ModeWaters);
    clickBeside(ShellAction::Consistents, ModeConsistents);
}

TEST_F(DataModes, EachScreenTakesTheKeyboardWhenItComes)
{
    QApplication::setActiveWindow(shell.mainWindow.get());
    openFromCommandLine(controller(), project(QStringLiteral("PORTADOWN")).toLocal8Bit().constData());
    for (const ShellAction act : {ShellAction::ListCoords,
             ShellAction::Litology,
             ShellAction::Laboratory,
             ShellAction::Ige,
             ShellAction::Static,
             ShellAction::Section,
             ShellAction::Igk,
             ShellAction::Subsidence,
             ShellAction::Chemistry,
             ShellAction::Consolidated}) {
        action(act)->trigger();
        QCoreApplication::processEvents();
        const TX_Modes mode = shell.controller->currentMode();
        auto* tabs = screen(mode)->findChild<QTabWidget*>();
        for (int page = tabs ? tabs->count() : 1; page-- > 0;) {
            if (tabs)
                tabs->setCurrentIndex(page);
            const QWidget* focus = QApplication::focusWidget();
            EXPECT_TRUE(focus == screen(mode) || screen(mode)->isAncestorOf(focus))
                << mode << ", page " << page;
        }
    }
}

// A page that is scrolled with the wheel must not change the project at whatever comes under the pointer.
TEST_F(DataModes, WheelChangesOnlyTheFieldThatIsWorkedIn)
{
    openFromCommandLine(controller(), project(QStringLiteral("PORTADOWN")).toLocal8Bit().constData());
    action(ShellAction::Static)->trigger();
    screen(ModeStatic)->findChild<QTabWidget*>()->setCurrentIndex(3);
    QApplication::setActiveWindow(shell.mainWindow.get());
    for (auto* field : screen(ModeStatic)->findChildren<QAbstractSpinBox*>()) {
        if (!field->isVisible() || !field->isEnabled())
            continue;
        const QString before = field->text();
        field->clearFocus();
        turnWheel(*field, 120);
        EXPECT_EQ(field->text(), before);
        EXPECT_NE(field->focusPolicy(), Qt::WheelFocus) << "nor takes it the keyboard";
        field->setFocus();
        turnWheel(*field, 120);
        EXPECT_NE(field->text(), before);
    }
}

TEST_F(DataModes, ColumnWithoutAProjectHasAWayBack)
{
    action(ShellAction::Column)->trigger();
    ASSERT_NE(screen(ModeStratigraphic), nullptr);
    const auto buttons = screen(ModeStratigraphic)->findChildren<QPushButton*>();
    const auto back = std::find_if(buttons.begin(), buttons.end(), [](const QPushButton* button) {
        return button->text() == QStringLiteral("К проектам");
    });
    ASSERT_NE(back, buttons.end());
    QTest::mouseClick(*back, Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(screen(ModeStratigraphic), nullptr);
    EXPECT_EQ(shell.controller->currentMode(), ModeNone);
    EXPECT_FALSE(action(ShellAction::Save)->isEnabled());
    EXPECT_FALSE(shell.mainWindow->windowTitle().contains(QStringLiteral("колонка")));
}

TEST_F(DataModes, DamagedFileIsNamedWithWhatIsWrong)
{
    const QString path = project(QStringLiteral("LURGAN"));
    QFile file(path);
    ASSERT_TRUE(file.resize(file.size() / 2));
    QString text;
    QString beside;
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            text = box->text();
            beside = box->informativeText();
            box->accept();
        }
    });
    answer.start(5);
    openFromCommandLine(controller(), path.toLocal8Bit().constData());
    EXPECT_TRUE(text.startsWith(QStringLiteral("Critical Error reading"))) << text.toStdString();
    EXPECT_TRUE(beside.contains(QStringLiteral("LURGAN.TLX"))) << beside.toStdString();
    EXPECT_TRUE(beside.contains(QStringLiteral("байт "))) << beside.toStdString();
    EXPECT_TRUE(beside.contains(QStringLiteral("не хватает"))) << beside.toStdString();
}

TEST_F(DataModes, WidthsOfColumnsAreKept)
{
    const QString path = project(QStringLiteral("LURGAN"));
    openFromCommandLine(controller(), path.toLocal8Bit().constData());
    action(ShellAction::Tests)->trigger();
    const QPointer<QWidget> first = screen(ModeTests);
    table(ModeTests)->setColumnWidth(0, 217);
    // Before the drag is over for the program.
    controller().findSubWindow(ModeTests)->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(first.isNull());
    action(ShellAction::Tests)->trigger();
    EXPECT_EQ(table(ModeTests)->columnWidth(0), 217);
}
