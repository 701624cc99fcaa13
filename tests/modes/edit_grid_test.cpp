#include "support/registers_grid_host.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <gtest/gtest.h>

#include <algorithm>

static const QVector<GridColumn> columns = {
    {QStringLiteral("Глубина"), GridColumn::Number},
    {QStringLiteral("Мощность"), GridColumn::Number, 80, {}, true},
    {QStringLiteral("Вид"),
        GridColumn::Choice,
        120,
        {QStringLiteral("Монолит (М)"), QStringLiteral("Валовая")}},
    {QStringLiteral("Есть"), GridColumn::Flag},
    {QStringLiteral("Описание"), GridColumn::Text, 200, {}, false, true},
};

static QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

static void putOnClipboard(const char* utf8)
{
    QGuiApplication::clipboard()->setText(text(utf8));
}

class EditGridTest : public testing::Test
{
protected:
    GridHost host{columns};

    void expectCells(const char* expected, int steps)
    {
        EXPECT_EQ(host.cells().toStdString(), text(expected).toStdString());
        EXPECT_EQ(host.steps, steps);
    }
};

TEST_F(EditGridTest, AWholeRowIsEnteredWithoutTheMouse)
{
    host.press(Qt::Key_Insert);
    host.type(text("3,50"));
    host.press(Qt::Key_Return); // over the computed column
    host.type(text("мон"));
    host.press(Qt::Key_Return);
    host.press(Qt::Key_Space);
    host.press(Qt::Key_Return);
    host.type(text("Суглинок"));
    host.press(Qt::Key_Return, Qt::ShiftModifier);
    host.type(text("бурый"));
    host.press(Qt::Key_Return);
    expectCells("3,50||Монолит (М)|1|Суглинок\nбурый\n||||", 6);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(1, 0));

    host.press(Qt::Key_Return); // opens
    host.press(Qt::Key_Return); // nothing typed: goes on
    EXPECT_EQ(host.grid.currentIndex().column(), 2);
    EXPECT_EQ(host.steps, 6);
}

TEST_F(EditGridTest, TabOpensTheNextCellAndEscapeGivesUp)
{
    host.fill({{text("1"), {}, text("Валовая"), {}, text("песок")}});
    host.select(0, 0);
    host.press(Qt::Key_F2);
    host.type(text("2"));
    host.press(Qt::Key_Tab);
    expectCells("2||Валовая||песок", 1);
    EXPECT_EQ(host.grid.currentIndex().column(), 2);
    host.press(Qt::Key_Escape);
    host.select(0, 4);
    host.press(Qt::Key_F2);
    host.type(text("глина"));
    host.press(Qt::Key_Escape);
    expectCells("2||Валовая||песок", 1);
    host.press(Qt::Key_Backtab);
    host.press(Qt::Key_Backtab);
    host.press(Qt::Key_Backtab);
    EXPECT_EQ(host.grid.currentIndex().column(), 0) << "the computed column is no stop";
}

TEST_F(EditGridTest, AnOpenCellUndoesItsOwnText)
{
    host.fill({{text("1")}});
    host.select(0, 0);
    host.press(Qt::Key_F2);
    host.type(text("77"));
    host.press(Qt::Key_Z, Qt::ControlModifier);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->text(), text("1"));
    host.press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(editor->text(), text("77"));
    host.grid.closeEditor();
    expectCells("77||||", 1);
}

TEST_F(EditGridTest, AnEditorThatNobodyTypedIntoWritesNothing)
{
    host.fill({{text("1\n2"), {}, text("старый вид"), {}, text("a\r\nb")}, {text("2")}});
    for (const int column : {0, 2, 4}) {
        host.select(0, column);
        host.press(Qt::Key_F2);
        host.press(Qt::Key_Return);
    }
    EXPECT_EQ(host.steps, 0);
}

TEST_F(EditGridTest, TheCurrentCellFollowsARowThatIsSortedAway)
{
    host.arrange = [](GridRows& rows) {
        std::stable_sort(rows.begin(), rows.end(), [](const GridRow& a, const GridRow& b) {
            return a.cells[0].toDouble() < b.cells[0].toDouble();
        });
    };
    host.fill({{text("1"), {}, {}, {}, {}}, {text("2"), {}, {}, {}, {}}, {text("3"), {}, {}, {}, {}}});
    host.select(0, 0);
    host.type(text("9"));
    host.press(Qt::Key_Tab);
    host.press(Qt::Key_Escape);
    expectCells("2||||\n3||||\n9||||", 1);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(2, 2));
}

TEST_F(EditGridTest, BlocksAreClearedAndRowsDeletedInOneStep)
{
    host.fill({{text("1"), text("м"), text("Валовая"), text("1"), text("a")},
        {text("2"), text("м"), text("Валовая"), text("1"), text("b")},
        {text("3"), text("м"), text("Валовая"), text("1"), text("c")}});
    host.grid.selectionModel()->select({host.grid.model()->index(0, 1), host.grid.model()->index(1, 3)},
        QItemSelectionModel::ClearAndSelect);
    host.press(Qt::Key_Delete);
    expectCells("1|м|||a\n2|м|||b\n3|м|Валовая|1|c", 1);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    expectCells("3|м|Валовая|1|c", 2);
    EXPECT_EQ(host.grid.currentIndex().row(), 0);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    expectCells("", 3);
}

TEST_F(EditGridTest, ABlockFromASpreadsheetGrowsTheTable)
{
    host.fill({{text("1"), text("м"), text("Валовая"), {}, text("a")}});
    host.select(0, 0);
    putOnClipboard("5,5\tлишнее\tмонолит (м)\tда\t\"две\nстроки\"\tза краем\n6\t\t?\t0\n");
    host.press(Qt::Key_V, Qt::ControlModifier);
    expectCells("5,5|м|Монолит (М)|1|две\nстроки\n6||?||", 1);
    // What is copied comes back the same.
    host.grid.selectAll();
    host.press(Qt::Key_C, Qt::ControlModifier);
    host.press(Qt::Key_X, Qt::ControlModifier);
    host.press(Qt::Key_V, Qt::ControlModifier);
    expectCells("5,5|м|Монолит (М)|1|две\nстроки\n6||?||", 3);
}

TEST_F(EditGridTest, OneCellIsPastedOverTheWholeSelection)
{
    host.fill({{text("1")}, {text("2")}, {text("3")}});
    host.grid.selectionModel()->select({host.grid.model()->index(1, 4), host.grid.model()->index(2, 4)},
        QItemSelectionModel::ClearAndSelect);
    putOnClipboard("песок\n");
    host.press(Qt::Key_V, Qt::ControlModifier);
    expectCells("1\n2||||песок\n3||||песок", 1);
}

TEST_F(EditGridTest, PasteFollowsTheRowsAsTheyAreSeen)
{
    host.fill({{text("1"), {}, {}, {}, text("а")}, {text("10"), {}, {}, {}, text("б")}});
    host.grid.sortByColumn(0, Qt::DescendingOrder);
    host.select(0, 4);
    putOnClipboard("x\ny\nz\n");
    host.press(Qt::Key_V, Qt::ControlModifier);
    expectCells("1||||y\n10||||x\n||||z", 1);
}

TEST_F(EditGridTest, ATableThatMayNotBeEditedOnlyCopies)
{
    host.fill({{text("1"), {}, {}, text("1"), text("a")}});
    host.grid.setEditingAllowed(false);
    putOnClipboard("9");
    for (const int column : {0, 3}) {
        host.select(0, column);
        for (const int key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_Space, Qt::Key_Insert, Qt::Key_Delete})
            host.press(key);
        host.press(Qt::Key_V, Qt::ControlModifier);
        host.press(Qt::Key_Delete, Qt::ControlModifier);
    }
    expectCells("1|||1|a", 0);
}
