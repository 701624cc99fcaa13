#include "modules/tx_table.h"

#include <QLineEdit>
#include <QStandardItemModel>
#include <QTest>
#include <gtest/gtest.h>

namespace
{

class Table : public testing::Test
{
protected:
    void SetUp() override
    {
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 2; ++column)
                model.setItem(row, column, new QStandardItem(QStringLiteral("%1").arg(row)));
        table.setModel(&model);
        table.resize(400, 300);
        table.show();
        table.setCurrentIndex(cell(0, 0));
        table.setFocus();
    }

    QModelIndex cell(int row, int column) const { return model.index(row, column); }
    QPoint middleOf(const QModelIndex& index) const { return table.visualRect(index).center(); }
    bool isEditing() const { return table.findChild<QLineEdit*>() != nullptr; }

    // An editor stores its text and goes when the events are next processed.
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QStandardItemModel model;
    TXTable table;
};

} // namespace

TEST_F(Table, SignalMovesToTheCellAndOpensItsEditor)
{
    Q_EMIT table.signalEditCell(cell(2, 1));
    EXPECT_EQ(table.currentIndex(), cell(2, 1));
    auto* editor = table.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClicks(editor, QStringLiteral("12,5"));
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    EXPECT_EQ(cell(2, 1).data().toString(), QStringLiteral("12,5"));
}

TEST_F(Table, DoubleClickAndEditKeyOpenACellAndTypingDoesNot)
{
    QTest::keyClicks(&table, QStringLiteral("7"));
    EXPECT_FALSE(isEditing());
    QTest::keyClick(&table, Qt::Key_F2);
    EXPECT_TRUE(isEditing());
    QTest::keyClick(table.findChild<QLineEdit*>(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(isEditing());
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, middleOf(cell(3, 0)));
    EXPECT_FALSE(isEditing());
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, middleOf(cell(3, 0)));
    EXPECT_TRUE(isEditing());
}

TEST_F(Table, DragOverRowsLeavesOneSelected)
{
    QWidget* viewport = table.viewport();
    QTest::mousePress(viewport, Qt::LeftButton, {}, middleOf(cell(0, 0)));
    for (int row = 1; row < 4; ++row) {
        QMouseEvent move(QEvent::MouseMove, middleOf(cell(row, 0)), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
    }
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, middleOf(cell(3, 0)));
    EXPECT_EQ(table.selectionModel()->selectedIndexes(), QModelIndexList{cell(3, 0)});
}
