#include "dialogs/stamp_dialog.h"

#include <QDialogButtonBox>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <map>

namespace
{

QList<QLineEdit*> cellsOf(const StampDialog& dialog)
{
    return dialog.findChildren<QLineEdit*>();
}

bool isOpen(const QLineEdit* cell)
{
    return !cell->isReadOnly() && cell->focusPolicy() != Qt::NoFocus
        && !cell->testAttribute(Qt::WA_TransparentForMouseEvents);
}

bool isClosed(const QLineEdit* cell)
{
    return cell->isReadOnly() && cell->focusPolicy() == Qt::NoFocus
        && cell->testAttribute(Qt::WA_TransparentForMouseEvents);
}

} // namespace

TEST(StampDialog, CaptionsInBothLanguages)
{
    // How often each stands in the three stamps.
    const std::map<std::wstring, int> captions[] = {
        {{L"Изм.", 2},
            {L"Кол.", 2},
            {L"Лист", 4},
            {L"№док.", 2},
            {L"Подп.", 2},
            {L"Дата", 2},
            {L"Разработал", 1},
            {L"Выполнил", 1},
            {L"Проверил", 1},
            {L"Стадия", 1},
            {L"Листов", 1},
            {L"СОГЛАСОВАНО", 1},
            {L"Инв. № под.", 1},
            {L"Взам. ин. №", 1},
            {L"Подпись и дата", 1}},
        {{L"Зм.", 2},
            {L"Кільк.", 2},
            {L"Арк.", 2},
            {L"Аркуш", 2},
            {L"№док.", 2},
            {L"Підп.", 2},
            {L"Дата", 2},
            {L"Авт.розд.", 1},
            {L"Виконав", 1},
            {L"Перевірив", 1},
            {L"Стадія", 1},
            {L"Аркушів", 1},
            {L"ПОГОДЖЕНО", 1},
            {L"Інв. № ор.", 1},
            {L"Зам. інв. №", 1},
            {L"Підпис і дата", 1}},
    };
    for (const bool ukrainian : {false, true}) {
        const StampDialog dialog(ukrainian);
        std::map<std::wstring, int> found;
        for (const QLineEdit* cell : cellsOf(dialog)) {
            if (cell->text().isEmpty())
                continue;
            ++found[cell->text().toStdWString()];
            EXPECT_TRUE(isClosed(cell)) << cell->text().toStdString();
            EXPECT_LE(
                QFontMetrics(cell->font()).horizontalAdvance(cell->text()), cell->sizeHint().width() - 4)
                << "cut off: " << cell->text().toStdString();
        }
        EXPECT_EQ(found, captions[ukrainian ? 1 : 0]);
    }
}

// Empty cells are open in the main stamp (26 above, 24 below) and in the side stamp (3 and 8); the narrow one
// has 24, its title and its sheet, all closed.
TEST(StampDialog, TabGoesThroughTheOpenCellsAlone)
{
    StampDialog dialog(false);
    dialog.show();
    int open = 0;
    int closed = 0;
    for (const QLineEdit* cell : cellsOf(dialog)) {
        EXPECT_NE(isOpen(cell), isClosed(cell));
        if (cell->text().isEmpty())
            ++(isOpen(cell) ? open : closed);
    }
    EXPECT_EQ(open, 26 + 24 + 11);
    EXPECT_EQ(closed, 26);

    QApplication::setActiveWindow(&dialog);
    for (int step = 0; step < open; ++step) {
        auto* cell = qobject_cast<QLineEdit*>(dialog.focusWidget());
        ASSERT_NE(cell, nullptr) << step;
        ASSERT_EQ(cell->text(), QString()) << "visited twice";
        QTest::keyClicks(cell, QStringLiteral("8"));
        EXPECT_EQ(cell->text(), QStringLiteral("8"));
        QTest::keyClick(cell, Qt::Key_Tab);
    }
    EXPECT_NE(qobject_cast<QPushButton*>(dialog.focusWidget()), nullptr);
}

TEST(StampDialog, WindowOfFixedSizeClosesByItsButton)
{
    StampDialog dialog(true);
    dialog.show();
    EXPECT_EQ(dialog.size(), QSize(735, 500));
    EXPECT_TRUE(dialog.isModal());
    EXPECT_EQ(dialog.windowType(), Qt::Dialog);
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::MSWindowsFixedSizeDialogHint));
    QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

// How many cells may be at most how large, and what stands above the three stamps.
TEST(StampDialog, CellsAndHeadingsAreAsInTheForm)
{
    const StampDialog dialog(false);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Параметры штампов проекта"));
    std::map<std::pair<int, int>, int> sizes;
    for (const QLineEdit* cell : cellsOf(dialog)) {
        ++sizes[{cell->maximumWidth(), cell->maximumHeight()}];
        EXPECT_EQ(cell->alignment(), Qt::AlignCenter);
        EXPECT_EQ(cell->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
        EXPECT_EQ(cell->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
        const bool printed =
            cell->palette().color(QPalette::Base) == dialog.palette().color(QPalette::Window);
        EXPECT_EQ(printed, !cell->text().isEmpty());
        if (cell->maximumWidth() == 340) {
            EXPECT_EQ(cell->minimumWidth(), 340);
        }
    }
    const std::map<std::pair<int, int>, int> wanted{{{50, 20}, 25 + 25 + 6},
        {{80, 20}, 5 + 5 + 6},
        {{100, 20}, 6 + 6},
        {{80, 60}, 6 + 4 + 6},
        {{340, 60}, 1},
        {{60, 60}, 1},
        {{60, 120}, 1},
        {{100, 60}, 2},
        {{290, 60}, 1},
        {{50, 60}, 2}};
    for (const auto& [size, count] : wanted)
        EXPECT_EQ(sizes[size], count) << size.first << " by " << size.second;
    EXPECT_EQ(cellsOf(dialog).size(), 108 + 2) << "and the two wide ones";

    QStringList headings;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        headings << label->text();
        EXPECT_TRUE(label->font().bold() && label->font().italic());
    }
    EXPECT_EQ(headings,
        (QStringList{QStringLiteral("Основной штамп"),
            QStringLiteral("Узкий штамп"),
            QStringLiteral("Боковой штамп")}));
}
