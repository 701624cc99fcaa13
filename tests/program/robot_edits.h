#pragma once

#include "program/robot_hands.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

// What a person does to rows that stand already: goes back with Shift+Tab, opens a cell and adds to it,
// leaves it in every way there is, chooses blocks and clears, moves, fills or replaces them.
class RobotEdits : public RobotHands
{
protected:
    // As a spreadsheet gives it to the clipboard.
    static QString quoted(const QString& text)
    {
        const bool isBare = !text.startsWith(QLatin1Char('"')) && !text.contains(QLatin1Char('\n'))
            && !text.contains(QLatin1Char('\t'));
        return isBare ? text
                      : QLatin1Char('"') + QString(text).replace(QLatin1Char('"'), QLatin1String("\"\""))
                + QLatin1Char('"');
    }
    static void putOnClipboard(const std::vector<QStringList>& rows)
    {
        QString block;
        for (const QStringList& cells : rows) {
            for (int i = 0; i < cells.size(); ++i)
                block += (i > 0 ? QStringLiteral("\t") : QString()) + quoted(cells[i]);
            block += QStringLiteral("\r\n");
        }
        QApplication::clipboard()->setText(block);
    }
    // What stands in a pasted block where nothing is meant.
    QString other(int column) const
    {
        if (on_->mode == ModeListCoords)
            return column == 6 ? QStringLiteral("Без профиля") : QStringLiteral("Геол.");
        // Of a computed column: not taken. There are no elements to give a layer.
        return on_->mode == ModeLitology && column == 5 ? QString() : QStringLiteral("7,77");
    }
    // A row with its key, and neither a point that other screens hold rows of; -1 where there is none.
    int someRow()
    {
        for (int tries = 0; tries < 5 && spareRow() > 0; ++tries) {
            const int row = number(0, spareRow() - 1);
            if (isTold(row) && !(on_->mode == ModeListCoords && points_.contains(seen(row, keyColumn()))))
                return row;
        }
        return -1;
    }
    std::vector<int> writtenColumns(bool withKey) const
    {
        std::vector<int> columns;
        for (const int column : on_->table->columns)
            if (!isFlag(column) && !isChoice(column) && (withKey || column != keyColumn()))
                columns.push_back(column);
        return columns;
    }
    std::size_t recordOf(int row) { return placeOf(seen(row, keyColumn())); }
    void choose(int row, int column, int lastRow, int lastColumn)
    {
        goTo(row, column);
        for (int i = row; i < lastRow; ++i)
            press(Qt::Key_Down, Qt::ShiftModifier);
        for (int i = column; i < lastColumn; ++i)
            press(Qt::Key_Right, Qt::ShiftModifier);
        ASSERT_EQ(view()->selectionModel()->selectedIndexes().size(),
            (lastRow - row + 1) * (lastColumn - column + 1));
    }
    void undo(std::size_t steps)
    {
        for (std::size_t i = 0; i < steps; ++i) {
            press(Qt::Key_Z, Qt::ControlModifier);
            records() = steps_.back();
            steps_.pop_back();
        }
    }

    // Shift+Tab: what was typed stays, and the cursor is in the cell before, or at the end of the row above.
    void back()
    {
        int row = someRow();
        if (row < 0)
            return;
        int column = one(on_->table->columns);
        goTo(row, column);
        for (int left = number(1, 5); left > 0; --left) {
            const bool isOfPoint =
                on_->mode == ModeListCoords && column == 0 && points_.contains(seen(row, keyColumn()));
            const QString above = row > 0 ? seen(row - 1, keyColumn()) : QString();
            QString own = seen(row, keyColumn());
            if (isTold(row) && isMeant(column) && !isOfPoint && chance(70)) {
                const std::size_t place = placeOf(own);
                typeCell(records()[place], column);
                own = records()[place][keyColumn()];
            }
            press(Qt::Key_Backtab, Qt::ShiftModifier);
            check();
            if (column > firstStop())
                expectCursor(own, column = stopBefore(column));
            else if (row > 0)
                expectCursor(above, column = lastStop());
            else
                expectCursor(own, column);
            row = view()->currentIndex().row();
        }
    }

    // Opens a cell by F2 or two clicks, and adds to what stands in it.
    void addToCell()
    {
        const int row = someRow();
        const std::vector<int> columns = writtenColumns(false);
        if (row < 0 || columns.empty() || on_->mode == ModeWaters)
            return;
        const int column = one(columns);
        const std::size_t place = recordOf(row);
        const QString old = records()[place][column];
        goTo(row, column);
        if (chance(50)) {
            press(Qt::Key_F2);
        } else {
            const QPoint at = leftPartOf(row, column);
            QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, at);
            QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, at);
        }
        ASSERT_NE(QApplication::focusWidget(), view()) << "the cell does not open";
        const bool isNumber = isNumberColumn(*on_, column) || column == 9;
        QString added = isNumber ? QString::number(number(1, 99)) : words();
        const bool atEnd = chance(60);
        press(atEnd ? Qt::Key_End : Qt::Key_Home, Qt::ControlModifier);
        typeText(added);
        if (on_->mode == ModeLitology && column == 4 && chance(40)) {
            press(Qt::Key_Return, Qt::ShiftModifier); // a line break
            typeText(QStringLiteral("с галькой"));
            added += QStringLiteral("\nс галькой");
        }
        leaveCell({{place, column, atEnd ? old + added : added + old}});
    }

    // Types onto a cell, and leaves it in some other way than Enter and arrows.
    void typeAndLeave()
    {
        const int row = someRow();
        if (row < 0)
            return;
        const int column = one(writtenColumns(true));
        const std::size_t place = recordOf(row);
        goTo(row, column);
        const QString text = textFor(column);
        typeText(text);
        leaveCell({{place, column, text}});
    }

    void leaveCell(const std::vector<Change>& meant)
    {
        const bool isOfLines = on_->mode == ModeLitology && meant.front().column == 4;
        const int way = number(1, 8);
        if (qEnvironmentVariableIsSet("TELLURIX_TALK"))
            std::fprintf(stderr, "  leaves by way %d\n", way);
        switch (way) {
        case 1: // gives it up
            press(Qt::Key_Escape);
            return;
        case 2: // takes each letter back, and closes
            for (int i = 0; i < 80; ++i)
                press(Qt::Key_Z, Qt::ControlModifier);
            press(chance(50) ? Qt::Key_Escape : Qt::Key_Return);
            return;
        case 3: {
            const int row = view()->currentIndex().row();
            const QString above = row > 0 ? seen(row - 1, keyColumn()) : QString();
            const std::size_t place = meant.front().record;
            if (isOfLines)
                break;
            press(Qt::Key_Return, Qt::ShiftModifier); // upwards
            change(meant);
            expectCursor(row > 0 ? above : records()[place][keyColumn()], view()->currentIndex().column());
            return;
        }
        case 4:
            clickAnotherRow(meant);
            return;
        case 5: // the head of the column
            QTest::mouseClick(view()->horizontalHeader()->viewport(),
                Qt::LeftButton,
                {},
                {view()->horizontalHeader()->sectionViewportPosition(meant.front().column) + 5, 5});
            change(meant);
            return;
        case 6:
            press(chance(50) ? Qt::Key_PageDown : Qt::Key_PageUp);
            break;
        case 7:
            press(Qt::Key_Tab);
            change(meant);
            return;
        default:
            break;
        }
        if (QApplication::focusWidget() != view())
            press(Qt::Key_Return);
        change(meant);
    }

    // A click chooses the record that stands under the pointer, wherever the typed depth moves it.
    void clickAnotherRow(const std::vector<Change>& meant)
    {
        const int row = number(0, spareRow() - 1);
        const int column = firstStop();
        const QString wanted = row == view()->currentIndex().row() ? QString() : seen(row, keyColumn());
        const QModelIndex cell = view()->model()->index(row, column);
        if (wanted.isEmpty() || !view()->viewport()->rect().contains(view()->visualRect(cell).center())) {
            press(Qt::Key_Return);
            change(meant);
            return;
        }
        QTest::mouseClick(
            view()->viewport(), Qt::LeftButton, {}, view()->visualRect(cell).center() - QPoint(20, 0));
        change(meant);
        expectCursor(wanted, column);
    }

    // Moves, with Shift or without, and types: into the cell where the cursor is, and nowhere else.
    void jump()
    {
        if (!areAllTold())
            return;
        const int from = number(0, spareRow() - 1);
        const int start = one(on_->table->columns);
        goTo(from, start);
        const bool isShift = chance(60);
        const Qt::KeyboardModifiers held = isShift ? Qt::ShiftModifier : Qt::NoModifier;
        const int key = one(std::vector<int>{Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown, Qt::Key_PageUp});
        const bool isControl = chance(30) && (key == Qt::Key_Home || key == Qt::Key_End);
        press(key, isControl ? held | Qt::ControlModifier : held);
        const QModelIndex now = view()->currentIndex();
        const int lastColumn = view()->model()->columnCount() - 1;
        if (key == Qt::Key_Home || key == Qt::Key_End) {
            const bool isEnd = key == Qt::Key_End;
            ASSERT_EQ(now.column(), isEnd ? lastColumn : 0);
            ASSERT_EQ(now.row(), !isControl ? from : isEnd ? spareRow() : 0);
        } else {
            ASSERT_EQ(now.column(), start);
        }
        const int row = now.row();
        const bool isOpen = row < spareRow() && isMeant(now.column()) && !isFlag(now.column())
            && !(
                on_->mode == ModeListCoords && now.column() == 0 && points_.contains(seen(row, keyColumn())));
        if (!isShift || chance(50)) {
            if (!isOpen)
                return;
            typeCell(records()[recordOf(row)], now.column());
            press(Qt::Key_Return);
            return;
        }
        clearBlock(qMin(from, row), qMax(from, row), qMin(start, now.column()), qMax(start, now.column()));
    }

    std::vector<Change> changesOf(int first, int last, int left, int right, const QString& text)
    {
        std::vector<Change> changes;
        for (int row = first; row <= qMin(last, spareRow() - 1); ++row)
            for (int column = left; column <= right; ++column)
                if (isMeant(column))
                    changes.push_back({recordOf(row), column, text});
        return changes;
    }
    // Del on what is chosen. A stored record keeps its key, and the row without it is given it back at once.
    void clearBlock(int first, int last, int left, int right)
    {
        // What stands where nothing is meant would be cleared too, unseen by the memory; and a point keeps
        // its name and kind.
        if (on_->mode == ModeListCoords && (left <= 1 || (left <= 6 && right >= 6) || right >= 10))
            return;
        const std::size_t steps = change(changesOf(first, last, left, right, QString()));
        press(Qt::Key_Delete);
        check();
        if (left <= keyColumn() && keyColumn() <= right)
            undo(steps);
    }
    void clearAll()
    {
        if (!areAllTold() || on_->mode == ModeListCoords)
            return;
        goTo(0, firstStop());
        press(Qt::Key_A, Qt::ControlModifier);
        if (chance(60))
            return clearBlock(0, spareRow() - 1, 0, view()->model()->columnCount() - 1);
        step();
        press(Qt::Key_Delete, Qt::ControlModifier);
        records().clear();
        check();
        if (chance(80))
            undo(1);
    }

    // A block of the screen's own, moved by Ctrl+X and Ctrl+V or copied.
    void moveBlock()
    {
        const int left = on_->mode == ModeLitology ? number(3, 4) : on_->mode == ModeListCoords ? 2 : 1;
        const int right = on_->mode == ModeLitology ? 4
            : on_->mode == ModeListCoords           ? number(2, 5)
            : on_->mode == ModeWaters               ? number(1, 3)
                                                    : 1;
        if (!areAllTold() || on_->mode == ModeConsistents)
            return;
        const int first = number(0, spareRow() - 1);
        const int last = qMin(first + number(0, 2), spareRow() - 1);
        std::vector<QStringList> cells;
        for (int row = first; row <= last; ++row) {
            cells.emplace_back();
            for (int column = left; column <= right; ++column)
                cells.back() += records()[recordOf(row)][column];
        }
        choose(first, left, last, right);
        const bool isMoved = chance(60);
        const std::vector<Change> taken = changesOf(first, last, left, right, QString());
        press(isMoved ? Qt::Key_X : Qt::Key_C, Qt::ControlModifier);
        if (isMoved)
            change(taken);
        check();
        const int to = number(0, spareRow() - 1 - (last - first));
        std::vector<Change> put;
        for (int i = 0; i <= last - first; ++i)
            for (int column = left; column <= right; ++column)
                put.push_back({recordOf(to + i), column, cells[size_t(i)][column - left]});
        goTo(to, left);
        press(Qt::Key_V, Qt::ControlModifier);
        change(put);
    }

    // Rows of a spreadsheet over those that stand there, and on below them.
    void pasteOverTheEnd()
    {
        const int first = someRow();
        if (first < 0)
            return;
        const int count = number(1, 4);
        const int over = qMin(count, spareRow() - first);
        for (int row = first; row < first + over; ++row)
            if (!isTold(row) || (on_->mode == ModeListCoords && points_.contains(seen(row, keyColumn()))))
                return;
        std::vector<QStringList> block;
        std::vector<Change> changes;
        const std::size_t known = records().size();
        for (int i = 0; i < count; ++i) {
            const std::size_t place = i < over ? recordOf(first + i) : known + size_t(i - over);
            block.emplace_back();
            for (int column = 0; column < view()->model()->columnCount(); ++column) {
                if (!isMeant(column)) {
                    block.back() += other(column);
                    continue;
                }
                const bool isText = on_->mode == ModeLitology && column > 2;
                const QString text = isFlag(column) ? QStringLiteral("1")
                    : isText                        ? wordsOfSpreadsheet()
                                                    : textFor(column);
                block.back() += text;
                changes.push_back({place, column, text});
            }
        }
        goTo(first, firstStop());
        putOnClipboard(block);
        press(Qt::Key_V, Qt::ControlModifier);
        change(changes, size_t(count - over));
    }

    // One cell of a spreadsheet into all that are chosen.
    void pasteIntoAll()
    {
        if (!areAllTold() || spareRow() < 2)
            return;
        const int first = number(0, spareRow() - 2);
        const int last = number(first + 1, spareRow() - 1);
        std::vector<int> columns = on_->table->columns;
        columns.erase(std::find(columns.begin(), columns.end(), keyColumn()));
        const int column = one(columns);
        const QString text = isFlag(column) ? QStringLiteral("1")
            : on_->mode == ModeLitology     ? wordsOfSpreadsheet()
                                            : textFor(column);
        const std::vector<Change> put = changesOf(first, last, column, column, text);
        choose(first, column, last, column);
        putOnClipboard({{text}});
        press(Qt::Key_V, Qt::ControlModifier);
        change(put);
    }

    // A depth that is no number over one that is stored: the project keeps that until the row has another.
    void spoilDepth()
    {
        const int row = someRow();
        if (on_->mode == ModeListCoords || row < 0 || refusals_ > 3)
            return;
        ++refusals_;
        const std::size_t place = recordOf(row);
        const QString text = QStringLiteral("?%1").arg(number(10000, 99999));
        goTo(row, keyColumn());
        typeText(text);
        press(Qt::Key_Return);
        change({{place, keyColumn(), text}});
        const QStringList told = screen(on_->mode)->property("tellurixUnsavedCells").toStringList();
        EXPECT_TRUE(told.join(QLatin1Char(' ')).contains(text)) << "the screen does not own up to a refusal";
    }

    // A point is called otherwise, and its rows in all registers with it; where there are any, it is asked.
    void renamePoint()
    {
        const QString old = oneOf(points_);
        if (on_->mode != ModeListCoords || rowWith(old) == spareRow())
            return;
        bool isAsked = false;
        for (const auto& [where, all] : meant_) {
            if (where.second != old)
                continue;
            if (taken(screenOf(where), all).size() < all.size())
                return; // what waits would stay under the old name
            for (const MeantRecord& record : all)
                if (!isWhole(screenOf(where), record))
                    return;
            isAsked = isAsked || !all.empty();
        }
        const QString now = pointName();
        goTo(rowWith(old), 0);
        typeText(now);
        press(Qt::Key_Return);
        int boxes = 0;
        QTimer answer;
        QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                ++boxes;
                box->defaultButton()->click();
            }
        });
        answer.start(1);
        QCoreApplication::processEvents();
        EXPECT_EQ(boxes, isAsked ? 1 : 0) << "rows of other registers follow a name after a question";
        QApplication::setActiveWindow(shell.mainWindow.get());
        const auto rename = [&](const QString& from, const QString& to) {
            recordWith(from)[0] = to;
            points_.replace(points_.indexOf(from), to);
            for (const RobotScreen& each : robotScreens)
                if (auto node = meant_.extract({each.mode, from})) {
                    node.key().second = to;
                    meant_.insert(std::move(node));
                }
        };
        rename(old, now);
        check();
        if (chance(50)) {
            press(Qt::Key_Z, Qt::ControlModifier);
            rename(now, old);
            check();
        } else {
            steps_.clear(); // what was done before it is not taken back past it
        }
    }

    // Ctrl+H

    struct Replacing {
        int column; // chosen before; -1: the whole table
        QString what;
        QString with;
        bool isWhole;
    };
    Replacing replacing()
    {
        const int row = number(0, spareRow() - 1);
        if (on_->mode != ModeListCoords && chance(25)) {
            const QString key = seen(row, keyColumn());
            return {chance(50) ? keyColumn() : -1, key, depth(), true};
        }
        switch (on_->mode) {
        case ModeListCoords:
            return one(std::vector<Replacing>{{-1, QStringLiteral("Ш-"), QStringLiteral("Шурф-"), false},
                {number(2, 3), QStringLiteral("1"), QStringLiteral("27"), false},
                {number(7, 8), QStringLiteral("2"), QString(), false},
                {9, QStringLiteral("2019"), QStringLiteral("2021"), false}});
        case ModeLitology:
            return one(std::vector<Replacing>{{-1, QStringLiteral("суглинок"), QStringLiteral("Ил"), false},
                {number(3, 4), QStringLiteral("1.2"), QStringLiteral("\"а\""), false},
                {4, QStringLiteral("торф"), QString(), false},
                {number(3, 4), QString(), QStringLiteral("Глина"), true}});
        case ModeTests:
            return {-1, QStringLiteral("Монолит (М)"), QStringLiteral("Валовая (В)"), true};
        case ModeWaters:
            return {chance(50) ? 1 : -1, QStringLiteral("2019"), QStringLiteral("2020"), false};
        default:
            return {-1, QStringLiteral("текучая"), QStringLiteral("полутвердая"), true};
        }
    }
    // Letters of either case are found.
    static QString replacedIn(const QString& text, const Replacing& wish)
    {
        if (wish.isWhole)
            return text.toLower() == wish.what.toLower() ? wish.with : text;
        QString left = text;
        QString done;
        for (int at; (at = left.toLower().indexOf(wish.what.toLower())) >= 0;) {
            done += left.left(at) + wish.with;
            left = left.mid(at + wish.what.size());
        }
        return done + left;
    }
    // Types into the box, reads what it shows, and takes it or leaves it.
    void answerReplacing(const Replacing& wish, const QStringList& lines, bool isTaken)
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr) << "Ctrl+H opens nothing";
        QApplication::setActiveWindow(dialog);
        typeText(wish.what);
        press(Qt::Key_Tab);
        typeText(wish.with);
        press(Qt::Key_Tab);
        press(Qt::Key_Tab);
        if (wish.isWhole)
            press(Qt::Key_Space);
        QStringList shown;
        const auto* preview = dialog->findChild<QTableWidget*>();
        for (int row = 0; row < preview->rowCount(); ++row)
            shown += preview->item(row, 1)->text() + QStringLiteral(" > ") + preview->item(row, 2)->text();
        shown.sort();
        EXPECT_EQ(shown.join(QLatin1Char('\n')).toStdString(), lines.join(QLatin1Char('\n')).toStdString())
            << "the preview shows something else than was meant";
        const auto* accept = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        EXPECT_EQ(accept->isEnabled(), !lines.isEmpty());
        press(isTaken ? Qt::Key_Return : Qt::Key_Escape);
    }
    void replaceTexts()
    {
        if (!areAllTold())
            return;
        const Replacing wish = replacing();
        // Nothing, as the whole cell, would also fill what nobody looks at.
        const bool isChosen = wish.column >= 0;
        const int first = isChosen ? number(0, spareRow() - 1) : 0;
        const int last = isChosen ? number(first, spareRow() - 1) : spareRow() - 1;
        if (isChosen && first == last)
            return;
        std::vector<Change> changes;
        QStringList lines;
        for (int row = first; row <= last; ++row) {
            const std::size_t place = recordOf(row);
            for (const int column : on_->table->columns) {
                if (isFlag(column) || (isChosen && column != wish.column))
                    continue;
                const QString old = records()[place][column];
                const QString text = replacedIn(old, wish);
                if (text == old)
                    continue;
                if (on_->mode == ModeListCoords && column == 0 && points_.contains(old))
                    return; // a name with rows behind it, which is asked about
                changes.push_back({place, column, text});
                lines += old + QStringLiteral(" > ") + text;
            }
        }
        lines.sort();
        if (isChosen)
            choose(first, wish.column, last, wish.column);
        else
            goTo(first, firstStop());
        const bool isTaken = !changes.empty() && chance(85);
        QTimer::singleShot(0, [&] {
            answerReplacing(wish, lines, isTaken);
            if (QWidget* left = QApplication::activeModalWidget())
                left->close();
        });
        press(Qt::Key_H, Qt::ControlModifier);
        QApplication::setActiveWindow(shell.mainWindow.get());
        if (isTaken)
            change(changes);
    }
};
