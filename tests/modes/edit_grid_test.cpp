#include "common/typed_text.h"
#include "common/view_settings.h"
#include "support/registers_grid_host.h"

#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSettings>
#include <QTableWidget>
#include <QTimer>
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

TEST_F(EditGridTest, RowsAreEnteredOneAfterAnotherWithoutTheMouse)
{
    host.type(text("3,50")); // the spare row stands there already
    host.press(Qt::Key_Tab); // over the computed column
    host.type(text("мон"));
    host.press(Qt::Key_Tab);
    host.press(Qt::Key_Space);
    host.press(Qt::Key_Tab);
    host.type(text("Суглинок"));
    host.press(Qt::Key_Return, Qt::ShiftModifier);
    host.type(text("бурый"));
    host.press(Qt::Key_Tab); // past the end: the next row
    host.type(text("4"));
    host.press(Qt::Key_Tab);
    host.type(text("вал"));
    host.press(Qt::Key_Return); // back to where the row was begun, one below
    host.type(text("5"));
    host.press(Qt::Key_Return);
    expectCells("3.50||Монолит (М)|1|Суглинок\nбурый\n4||Валовая||\n5||||", 7);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(3, 0));
}

TEST_F(EditGridTest, EnterAndTabGoThroughTheCellsWithoutOpeningThem)
{
    host.fill({{text("1"), {}, text("Валовая"), {}, text("песок")}, {text("2")}});
    host.select(0, 0);
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(1, 0));
    host.press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(0, 0));
    host.press(Qt::Key_F2);
    host.type(text("7"));
    host.press(Qt::Key_Tab);
    expectCells("7||Валовая||песок\n2", 1);
    EXPECT_EQ(host.grid.currentIndex().column(), 2) << "the computed column is no stop";
    host.press(Qt::Key_Backtab);
    EXPECT_EQ(host.grid.currentIndex().column(), 0);
    host.select(1, 0);
    host.press(Qt::Key_Backtab);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(0, 4));
    host.press(Qt::Key_F2);
    host.type(text("глина"));
    host.press(Qt::Key_Escape);
    expectCells("7||Валовая||песок\n2", 1);
}

// A selection that began elsewhere would let another row go than the ones that are seen.
TEST_F(EditGridTest, SelectingByKeysBeginsAtTheCursorHoweverItCameThere)
{
    const struct {
        int key;
        Qt::KeyboardModifiers held;
        int row; // where the cursor comes to from row 2
    } ways[] = {{Qt::Key_Return, {}, 3},
        {Qt::Key_Return, Qt::ShiftModifier, 1},
        {Qt::Key_Home, Qt::ControlModifier, 0}};
    for (const auto& [key, held, row] : ways) {
        host.fill({{text("0")}, {text("1")}, {text("2")}, {text("3")}, {text("4")}, {text("5")}});
        host.select(4, 0);
        host.press(Qt::Key_Up);
        host.press(Qt::Key_Up);
        host.press(key, held);
        ASSERT_EQ(host.grid.currentIndex().row(), row);
        host.press(Qt::Key_Down, Qt::ShiftModifier);
        host.press(Qt::Key_Delete, Qt::ControlModifier);
        QStringList left = {text("0"), text("1"), text("2"), text("3"), text("4"), text("5")};
        left.removeAt(row);
        left.removeAt(row);
        EXPECT_EQ(host.cells().toStdString(), left.join(QLatin1Char('\n')).toStdString()) << row;
    }
    // At the first row a jump there begins anew too.
    host.fill({{text("0")}, {text("1")}, {text("2")}});
    host.select(2, 0);
    host.press(Qt::Key_Up, Qt::ShiftModifier);
    host.press(Qt::Key_Up, Qt::ShiftModifier);
    host.press(Qt::Key_Home, Qt::ControlModifier);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(host.cells().toStdString(), "1\n2");
}

TEST_F(EditGridTest, ArrowsCommitWhatWasTypedAndMoveInWhatWasOpened)
{
    const struct {
        int key;
        int row;
        int column;
    } cases[] = {{Qt::Key_Down, 2, 4}, {Qt::Key_Up, 0, 4}, {Qt::Key_Left, 1, 3}, {Qt::Key_Right, 1, 4}};
    host.fill({{text("1"), {}, {}, {}, {}}, {text("2"), {}, {}, {}, {}}, {text("3"), {}, {}, {}, {}}});
    for (const auto& [key, row, column] : cases) {
        host.select(1, 4);
        host.type(QString::number(key));
        host.press(key);
        EXPECT_EQ(host.grid.model()->index(1, 4).data().toString(), QString::number(key));
        EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(row, column)) << key;
    }
    host.select(0, 0);
    host.press(Qt::Key_F2);
    host.press(Qt::Key_End);
    host.press(Qt::Key_Left);
    host.type(text("0."));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.grid.model()->index(0, 0).data().toString(), text("0.1"));
    // To the ends of the line, not of the table.
    host.press(Qt::Key_F2);
    host.press(Qt::Key_End, Qt::ControlModifier);
    host.type(text("7"));
    host.press(Qt::Key_Home, Qt::ControlModifier);
    host.type(text("4"));
    host.press(Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
    host.type(text("5"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.grid.model()->index(1, 0).data().toString(), text("527"));
}

TEST_F(EditGridTest, AChoiceIsTakenByEnterAtOnce)
{
    host.fill({{text("1")}, {text("2")}});
    host.select(0, 2);
    host.type(text("вал"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(1, 2));
    host.type(text("кирпич"));
    host.press(Qt::Key_Return);
    expectCells("1||Валовая||\n2||кирпич||", 2);
    host.select(0, 2);
    host.press(Qt::Key_F2);
    host.press(Qt::Key_Down, Qt::AltModifier);
    host.press(Qt::Key_Up);
    host.press(Qt::Key_Tab);
    EXPECT_EQ(host.grid.model()->index(0, 2).data().toString(), text("Монолит (М)"));
}

TEST_F(EditGridTest, ACommaInANumberBecomesAPoint)
{
    const struct {
        const char* typed;
        const char* stored;
    } cases[] = {
        {"3,5", "3.5"},
        {"6 180\u00A0123,45", "6180123.45"},
        {"-0,10", "-0.10"},
        {" 7 ", " 7 "},
        {"4.2 / туго", "4.2 / туго"},
        {"1,2,3", "1,2,3"},
        {"(0,5)", "(0,5)"},
    };
    host.fill({{text("8,5"), {}, {}, {}, {}}, {text("1"), {}, {}, {}, {}}});
    for (const auto& [typed, stored] : cases) {
        host.told.clear();
        host.select(1, 0);
        host.type(text(typed));
        host.press(Qt::Key_Return);
        EXPECT_EQ(host.grid.rows().rows()[1].cells[0], text(stored)) << typed;
        EXPECT_EQ(host.told.contains(text("точкой")), text(typed) != text(stored)) << typed;
        EXPECT_EQ(host.asTyped.isEmpty() ? text(stored) : host.asTyped[1].cells[0], text(typed));
    }
    EXPECT_EQ(host.grid.rows().rows()[0].cells[0], text("8,5")) << "nobody touched it";
    host.select(1, 4);
    host.type(text("3,5 м"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.grid.rows().rows()[1].cells[4], text("3,5 м"));
    host.select(2, 0);
    putOnClipboard("2,5\t\t\t\t1,5\n");
    host.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(host.grid.rows().rows()[2].cells.toList().join(QLatin1Char('|')), text("2.5||||1,5"));
    EXPECT_EQ(host.grid.rows().rows()[0].cells[0], text("8,5"));
}

TEST_F(EditGridTest, WhatTheFileCannotHoldIsMarkedWithAProposal)
{
    host.fill({{text("1"), {}, {}, {}, {}}});
    host.select(0, 4);
    host.type(text("ρ ≤ 2 г/см³"));
    host.press(Qt::Key_Tab);
    const QModelIndex cell = host.grid.model()->index(0, 4);
    EXPECT_TRUE(cell.data(EditGridModel::ProblemRole).toBool());
    EXPECT_TRUE(cell.data(Qt::ToolTipRole).toString().contains(text("«ро <= 2 г/см3»")))
        << cell.data(Qt::ToolTipRole).toString().toStdString();
    EXPECT_EQ(textForFile(text("й½−φ²\u2009Å№°±")), text("й1/2-фи2 A№°±"));
    // What is said of a cell goes when it is mended.
    host.select(0, 4);
    EXPECT_TRUE(host.told.contains(text("не хранит"))) << host.told.toStdString();
    host.type(text("2 г/см3"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.told, QString());
}

TEST_F(EditGridTest, WhoeverEntersRowsSeesWhereHeTypes)
{
    const QString lines = text("Суглинок тугопластичный, с прослоями песка мелкого водонасыщенного, с ")
        + text("включениями гравия и гальки до десяти процентов, с примесью органического вещества");
    host.grid.resize(500, 240);
    host.select(0, 0);
    for (int row = 0; row < 9; ++row) {
        host.type(QString::number(row + 1));
        for (int column = 0; column < 3; ++column)
            host.press(Qt::Key_Tab);
        host.type(lines);
        host.press(Qt::Key_Return);
        const QRect seen = host.grid.visualRect(host.grid.currentIndex());
        EXPECT_EQ(host.grid.currentIndex().row(), row + 1);
        EXPECT_TRUE(host.grid.viewport()->rect().contains(seen)) << row << ": the next row is out of sight";
    }
}

TEST_F(EditGridTest, FillsDownAndReplaces)
{
    host.fill({{text("1"), {}, {}, text("1"), text("песок")},
        {text("2"), {}, {}, {}, text("глина")},
        {text("3"), {}, {}, {}, {}}});
    host.grid.selectionModel()->select({host.grid.model()->index(0, 3), host.grid.model()->index(2, 4)},
        QItemSelectionModel::ClearAndSelect);
    host.press(Qt::Key_D, Qt::ControlModifier);
    expectCells("1|||1|песок\n2|||1|песок\n3|||1|песок", 1);
    host.select(1, 0);
    host.press(Qt::Key_D, Qt::ControlModifier);
    expectCells("1|||1|песок\n1|||1|песок\n3|||1|песок", 2);

    QTimer::singleShot(0, &host.grid, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_TRUE(dialog);
        dialog->findChild<QLineEdit*>(text("replaceWhat"))->setText(text("ПЕС"));
        dialog->findChild<QLineEdit*>(text("replaceWith"))->setText(text("лес"));
        EXPECT_EQ(dialog->findChild<QTableWidget*>()->rowCount(), 3);
        qobject_cast<QDialog*>(dialog)->accept();
    });
    host.press(Qt::Key_H, Qt::ControlModifier);
    expectCells("1|||1|лесок\n1|||1|лесок\n3|||1|лесок", 3);
}

TEST_F(EditGridTest, NamesStayInViewWhenTheirColumnIsScrolledAway)
{
    host.grid.setNameColumn(0, 3);
    host.fill({{text("2.5"), QString(), text("Валовая"), QString(), text("ил")}});
    host.grid.resize(200, 200);
    const auto head = [&](int row) {
        return host.grid.model()->headerData(row, Qt::Vertical).toString().toStdString();
    };
    EXPECT_EQ(head(0), "1");
    host.grid.horizontalScrollBar()->setValue(host.grid.horizontalScrollBar()->maximum());
    EXPECT_EQ(head(0), "2.5 · Валовая");
    EXPECT_EQ(head(1), "*");
    host.grid.horizontalScrollBar()->setValue(0);
    EXPECT_EQ(head(0), "1");
}

TEST_F(EditGridTest, AHeadChoosesItsColumnAndSortsAtTheSecondClick)
{
    host.fill({{text("10")}, {text("9")}});
    QHeaderView* heads = host.grid.horizontalHeader();
    const QPoint head(heads->sectionViewportPosition(0) + 10, heads->height() / 2);
    QTest::mouseClick(heads->viewport(), Qt::LeftButton, {}, head);
    EXPECT_TRUE(host.grid.selectionModel()->isColumnSelected(0, {}));
    EXPECT_EQ(host.grid.model()->index(0, 0).data().toString(), text("10"));
    QTest::mouseDClick(heads->viewport(), Qt::LeftButton, {}, head);
    EXPECT_EQ(host.grid.model()->index(0, 0).data().toString(), text("9"));
    EXPECT_EQ(host.grid.model()->index(2, 0).data().toString(), QString()) << "the spare row stays last";
    host.select(2, 0);
    host.type(text("1"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.grid.model()->index(0, 0).data().toString(), text("1"));
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(3, 0)) << "the next spare row";
}

TEST_F(EditGridTest, ARowThatIsBegunUnderAFilterStaysInView)
{
    host.fill({{text("1"), {}, {}, {}, text("песок")}, {text("2"), {}, {}, {}, text("глина")}});
    host.grid.setFilterText(text("песок"));
    host.select(0, 0);
    host.press(Qt::Key_Insert);
    host.type(text("7"));
    host.press(Qt::Key_Tab);
    host.press(Qt::Key_Tab);
    host.press(Qt::Key_Tab);
    host.type(text("торф"));
    host.press(Qt::Key_Return);
    expectCells("1||||песок\n7||||торф\n2||||глина", 3);
    EXPECT_EQ(host.grid.model()->rowCount(), 3);
    EXPECT_EQ(host.grid.model()->index(1, 4).data().toString(), text("торф"));
    EXPECT_EQ(host.grid.currentIndex().row(), 2) << "the spare row";
    host.select(0, 4);
    host.type(text("ил"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.grid.model()->index(0, 4).data().toString(), text("ил")) << "not snatched away";
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
    expectCells("2||||\n3||||\n9||||", 1);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(2, 2));

    // Down goes on in what stood below, not in what has come there.
    host.select(0, 0);
    host.type(text("5"));
    host.press(Qt::Key_Return);
    expectCells("3||||\n5||||\n9||||", 2);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(0, 0));

    // Who enters rows goes on in a new one, wherever the last one has been put.
    host.select(3, 0);
    host.type(text("1"));
    host.press(Qt::Key_Tab);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(0, 2));
    host.press(Qt::Key_Tab);
    host.press(Qt::Key_Tab);
    host.type(text("ил"));
    host.press(Qt::Key_Tab);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(4, 0));
    host.type(text("4"));
    host.press(Qt::Key_Return);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(5, 0));
    expectCells("1||||ил\n3||||\n4||||\n5||||\n9||||", 5);

    // A click means the record that is seen under the pointer, though the row that is left passes it.
    const auto click = [this](int row, int column) {
        QTest::mouseClick(host.grid.viewport(),
            Qt::LeftButton,
            {},
            host.grid.visualRect(host.grid.model()->index(row, column)).center());
    };
    host.select(0, 0);
    host.type(text("7"));
    click(2, 4);
    expectCells("3||||\n4||||\n5||||\n7||||ил\n9||||", 6);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(1, 4)) << "the layer of 4";
    host.select(5, 0);
    host.type(text("2"));
    click(5, 4);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(0, 4)) << "the row that was begun there";
    host.type(text("песок"));
    QTest::mouseClick(host.grid.verticalScrollBar(), Qt::LeftButton);
    QCoreApplication::processEvents();
    host.press(Qt::Key_Delete);
    host.select(2, 0);
    QTest::mouseClick(host.grid.horizontalHeader()->viewport(), Qt::LeftButton, {}, {5, 5});
    expectCells("2||||\n3||||\n4||||\n5||||\n7||||ил\n9||||", 9);
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

TEST_F(EditGridTest, WhoDeletesOnceMoreDeletesTheNextRow)
{
    host.fill({{text("1")}, {text("2")}, {text("3")}, {text("4")}});
    host.select(1, 4);
    for (const int left : {3, 2}) {
        host.press(Qt::Key_Delete, Qt::ControlModifier);
        ASSERT_EQ(host.grid.rows().rows().size(), left);
        EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(1, 4));
        EXPECT_TRUE(host.grid.selectionModel()->isSelected(host.grid.currentIndex()));
    }
    expectCells("1\n4", 2);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    expectCells("1", 3); // the spare row has come there
    host.select(0, 0);
    host.press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(host.grid.currentIndex(), host.grid.model()->index(0, 0));
}

TEST_F(EditGridTest, ABlockFromASpreadsheetGrowsTheTable)
{
    host.fill({{text("1"), text("м"), text("Валовая"), {}, text("a")}});
    host.select(0, 0);
    putOnClipboard("5,5\tлишнее\tмонолит (м)\tда\t\"две\nстроки\"\tза краем\n6\t\t?\t0\n");
    host.press(Qt::Key_V, Qt::ControlModifier);
    expectCells("5.5|м|Монолит (М)|1|две\nстроки\n6||?||", 1);
    // What is copied comes back the same.
    host.grid.selectAll();
    host.press(Qt::Key_C, Qt::ControlModifier);
    host.press(Qt::Key_X, Qt::ControlModifier);
    host.press(Qt::Key_V, Qt::ControlModifier);
    expectCells("5.5|м|Монолит (М)|1|две\nстроки\n6||?||", 3);
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
    EXPECT_EQ(host.grid.model()->rowCount(), 1) << "no spare row";
    for (const int column : {0, 3}) {
        host.select(0, column);
        for (const int key : {Qt::Key_Return, Qt::Key_F2, Qt::Key_Space, Qt::Key_Insert, Qt::Key_Delete})
            host.press(key);
        host.press(Qt::Key_V, Qt::ControlModifier);
        host.press(Qt::Key_Delete, Qt::ControlModifier);
    }
    expectCells("1|||1|a", 0);
}

TEST_F(EditGridTest, ASpreadsheetTakesNumbersForNumbers)
{
    host.fill({{text("3.6"), {}, {}, {}, text("глина 3.6")}, {text("6180.25"), {}, {}, {}, {}}});
    host.grid.selectAll();
    host.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text("3,6\t\t\t\tглина 3.6\n6180,25\t\t\t\t\n"));
    host.press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(
        QGuiApplication::clipboard()->text().startsWith(text("Глубина\tМощность\tВид\tЕсть\tОписание\n")));
    setCopiesDecimalComma(false);
    host.press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(text("3.6\t")));
    setCopiesDecimalComma(true);
    // Whole rows come back into their columns, wherever the cursor is.
    host.select(2, 4);
    host.press(Qt::Key_V, Qt::ControlModifier);
    expectCells("3.6||||глина 3.6\n6180.25||||\n3.6||||глина 3.6\n6180.25||||", 1);
}

// Of a table whose columns begin too narrow: what is cut takes the room that is left, a number in any case,
// and what a hand has sized stays so, now and at the next start.
TEST(GridWidths, CutTextsTakeTheRoomThatNobodyUses)
{
    const QString key = QStringLiteral("widths/test/grid");
    const QVector<GridColumn> narrow = {{text("Глубина"), GridColumn::Number, 40},
        {text("Вид"), GridColumn::Text, 60},
        {text("Цвет"), GridColumn::Text, 60},
        {text("Проба"), GridColumn::Number, 60}};
    const QVector<QString> row = {
        text("1.0186@1.0225"), text("песок средней плотности"), text("бурый"), text("1")};
    viewSettings()->remove(key);
    const auto isWhole = [&](const GridHost& host, int column) {
        return host.grid.columnWidth(column) > host.grid.fontMetrics().horizontalAdvance(row[column]);
    };
    {
        GridHost host{narrow};
        host.fill({row});
        QCoreApplication::processEvents();
        EXPECT_TRUE(isWhole(host, 0) && isWhole(host, 1));
        host.grid.resize(420, 400);
        EXPECT_TRUE(isWhole(host, 0) && !isWhole(host, 1));
        EXPECT_LE(host.grid.horizontalHeader()->length(), host.grid.viewport()->width());
        host.grid.resize(700, 400);
        EXPECT_TRUE(isWhole(host, 1));
        host.grid.horizontalHeader()->resizeSection(1, 75);
        host.grid.resize(900, 400);
        EXPECT_EQ(host.grid.columnWidth(1), 75);
        host.grid.hide();
    }
    EXPECT_EQ(viewSettings()->value(key).toStringList().join(QLatin1Char(' ')), QStringLiteral("0 75 0 0"));
    GridHost again{narrow};
    again.fill({row});
    QCoreApplication::processEvents();
    EXPECT_EQ(again.grid.columnWidth(1), 75);
    EXPECT_TRUE(isWhole(again, 0));
    viewSettings()->remove(key);
}
