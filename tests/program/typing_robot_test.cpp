// Somebody who types. Random sessions over the screens of points, layers, samples, water and consistency, by
// key events alone, as a person enters a site: rows one after another without looking up, corrections down a
// column, blocks from a spreadsheet, Ins, Del, undo, filters, sorting, another point, another screen, saves,
// closing and opening. What was meant is written down apart from the program, and held against the project
// after every act and against the file at the end. A seed makes a session again:
//     TELLURIX_SEED=17 TELLURIX_SESSIONS=1 robot_tests

#include "program/robot_edits.h"

#include <QListView>
#include <QPointer>

#include <functional>
#include <numeric>

namespace
{

// A sanitizer makes a session many times as long.
#ifdef TELLURIX_SANITIZED
constexpr int usualSessions = 15;
#else
constexpr int usualSessions = 200;
#endif

int numberFromEnvironment(const char* name, int otherwise)
{
    const int number = qEnvironmentVariableIntValue(name);
    return number > 0 ? number : otherwise;
}

class TypingRobot : public RobotEdits
{
protected:
    // Where the cursor stands on the first column of a new row: rows, one after another, without looking.
    void enterRows(int count)
    {
        for (int i = 0; i < count; ++i) {
            records().push_back({});
            const std::vector<int>& columns = on_->table->columns;
            const bool isShort = chance(40);
            // Screens whose records need a second cell get it at least.
            const std::size_t last = isShort && !on_->needsSecond ? 0 : columns.size() - 1;
            int at = columns.front();
            for (std::size_t c = 0; c <= last; ++c) {
                for (; at < columns[c]; at = nextStop(at))
                    press(Qt::Key_Tab);
                if (c == 0 || chance(on_->needsSecond ? 94 : 60))
                    typeCell(records().back(), columns[c]);
            }
            const bool isLastOfAll = i + 1 == count;
            const bool canTab = at == (on_->mode == ModeLitology ? 4 : lastStop());
            if (isLastOfAll && chance(30))
                return leaveOpen(at == lastColumn_ && !isFlag(at));
            if (canTab && chance(50)) {
                press(Qt::Key_Tab);
                if (on_->mode == ModeLitology) // past the element, which nobody gives here
                    press(Qt::Key_Tab);
            } else {
                press(Qt::Key_Return);
            }
            check();
        }
    }
    // An open cell, and something else is done.
    void leaveOpen(bool isOpen)
    {
        switch (number(0, 3)) {
        case 0:
            save();
            break;
        case 1:
            if (isOpen) {
                press(Qt::Key_Escape); // gives the text up
                records() = beforeLast_;
                steps_.resize(stepsBeforeLast_);
            }
            break;
        case 2:
            closeAndOpen();
            break;
        default:
            changeScreen();
        }
    }
    void save()
    {
        const MessageAnswers answers({QMessageBox::Ok});
        press(Qt::Key_S, Qt::ControlModifier);
        // A window manager gives the keyboard back by itself.
        QApplication::setActiveWindow(shell.mainWindow.get());
        EXPECT_EQ(answers.boxes().size(), waits() ? 1U : 0U) << "a save names what is not stored; " << told();
        checkFile();
    }

    void newRows()
    {
        goTo(spareRow(), on_->table->columns.front());
        enterRows(number(1, 4));
    }

    void insertRow()
    {
        if (spareRow() == 0)
            return newRows();
        goTo(number(0, spareRow() - 1), on_->table->columns[size_t(number(0, 1))]);
        step();
        press(Qt::Key_Insert);
        enterRows(number(1, 2));
    }

    // Down a column: Enter leads to the record that stood below, wherever the corrected one has gone.
    void correctDown()
    {
        const int rows = spareRow();
        if (rows == 0)
            return;
        const int first = number(0, rows - 1);
        std::vector<int> columns = on_->table->columns;
        int column = one(columns);
        if (isFlag(column) || (column == 0 && on_->mode == ModeListCoords))
            column = columns[1];
        goTo(first, column);
        for (int left = number(1, 3); left > 0; --left) {
            const int row = view()->currentIndex().row();
            const QString key = seen(row, keyColumn());
            const QString below = row + 1 < spareRow() ? seen(row + 1, keyColumn()) : QString();
            MeantRecord* record = recordAt(row);
            ASSERT_NE(record, nullptr) << "a row that nobody meant: " << key.toStdString();
            if (chance(50)) {
                press(Qt::Key_F2);
                press(Qt::Key_A, Qt::ControlModifier);
            }
            typeCell(*record, column);
            press(Qt::Key_Return);
            check();
            if (below.isEmpty())
                return;
            ASSERT_EQ(seen(view()->currentIndex().row(), keyColumn()).toStdString(), below.toStdString());
        }
    }

    // A text typed onto a cell is taken over by an arrow, which goes where it points on the table as it was.
    void leaveByArrow()
    {
        if (spareRow() == 0)
            return;
        const int row = number(0, spareRow() - 1);
        const QString key = seen(row, keyColumn());
        std::vector<int> written;
        for (const int column : on_->table->columns)
            if (!isFlag(column) && !isChoice(column)
                && !(on_->mode == ModeListCoords && column == 0 && points_.contains(key)))
                written.push_back(column);
        const int column = one(written);
        const QString above = row > 0 ? seen(row - 1, keyColumn()) : QString();
        const QString below = row + 1 < spareRow() ? seen(row + 1, keyColumn()) : QString();
        goTo(row, column);
        MeantRecord* record = recordAt(row);
        ASSERT_NE(record, nullptr) << "a row that nobody meant: " << key.toStdString();
        typeCell(*record, column);
        const QString own = (*record)[keyColumn()];
        const int arrow = one(std::vector<int>{Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right});
        press(arrow);
        const QModelIndex now = view()->currentIndex();
        const QString there = seen(now.row(), keyColumn());
        const int last = view()->model()->columnCount() - 1;
        if (arrow == Qt::Key_Left || arrow == Qt::Key_Right) {
            ASSERT_EQ(there.toStdString(), own.toStdString());
            ASSERT_EQ(now.column(), qBound(0, arrow == Qt::Key_Left ? column - 1 : column + 1, last));
        } else {
            const QString wanted = arrow == Qt::Key_Down ? below : row > 0 ? above : own;
            ASSERT_EQ(there.toStdString(), wanted.toStdString());
            ASSERT_EQ(now.column(), column);
        }
    }

    void deleteRows()
    {
        if (spareRow() == 0)
            return;
        const int first = number(0, spareRow() - 1);
        const int last = chance(60) ? first : qMin(first + number(1, 3), spareRow() - 1);
        QStringList keys;
        for (int row = first; row <= last; ++row)
            keys += seen(row, keyColumn());
        // A point with records elsewhere asks first; the robot leaves such a one.
        if (on_->mode == ModeListCoords
            && std::any_of(
                points_.begin(), points_.end(), [&](const QString& each) { return keys.contains(each); }))
            return;
        goTo(first, on_->table->columns.front());
        for (int row = first; row < last; ++row)
            press(Qt::Key_Down, Qt::ShiftModifier);
        const QString below = last + 1 < spareRow() ? seen(last + 1, keyColumn()) : QString();
        step();
        press(Qt::Key_Delete, Qt::ControlModifier);
        const QModelIndex now = view()->currentIndex();
        EXPECT_TRUE(view()->selectionModel()->isSelected(now)) << "nobody sees what would be deleted next";
        EXPECT_EQ(seen(now.row(), keyColumn()).toStdString(), below.toStdString());
        auto& all = records();
        const auto isGone = [&](MeantRecord& each) { return keys.contains(each[keyColumn()]); };
        all.erase(std::remove_if(all.begin(), all.end(), isGone), all.end());
    }

    void clearCell()
    {
        const std::vector<int> free = on_->mode == ModeLitology ? std::vector<int>{3, 4}
            : on_->mode == ModeListCoords                       ? std::vector<int>{3, 5, 9}
            : on_->mode == ModeWaters                           ? std::vector<int>{1, 2, 3}
                                                                : std::vector<int>{};
        if (free.empty() || spareRow() == 0)
            return;
        const int row = number(0, spareRow() - 1);
        const int column = one(free);
        MeantRecord* record = recordAt(row);
        ASSERT_NE(record, nullptr);
        goTo(row, column);
        press(Qt::Key_Delete);
        if (!(*record)[column].isEmpty()) {
            step();
            (*recordAt(row))[column].clear();
        }
    }

    void pasteRows()
    {
        QString block;
        MeantRecords added;
        MeantRecords typed;
        const int count = number(1, 4);
        const int width = view()->model()->columnCount();
        bool hasComma = false;
        for (int i = 0; i < count; ++i) {
            QStringList cells;
            MeantRecord record;
            MeantRecord asTyped;
            for (int column = 0; column < width; ++column) {
                const auto& columns = on_->table->columns;
                if (std::find(columns.begin(), columns.end(), column) == columns.end()) {
                    cells += other(column);
                    continue;
                }
                const QString text = isFlag(column) ? QStringLiteral("1") : textFor(column);
                cells += quoted(text);
                asTyped[column] = text;
                record[column] = isNumberColumn(*on_, column) ? withPoint(text) : text;
                hasComma = hasComma || record[column] != text;
            }
            block += cells.join(QLatin1Char('\t')) + QStringLiteral("\r\n");
            added.push_back(record);
            typed.push_back(asTyped);
        }
        goTo(spareRow(), oneOf({QStringLiteral("0"), QStringLiteral("1")}).toInt());
        QApplication::clipboard()->setText(block);
        press(Qt::Key_V, Qt::ControlModifier);
        step();
        if (hasComma) {
            MeantRecords before = records();
            before.insert(before.end(), typed.begin(), typed.end());
            steps_.push_back(before);
        }
        records().insert(records().end(), added.begin(), added.end());
    }

    // Indices and descriptions over those that stand there, or one description moved to another layer.
    void pasteOver()
    {
        if (on_->mode != ModeLitology || spareRow() == 0)
            return;
        const int first = number(0, spareRow() - 1);
        const MeantRecords before = records();
        if (chance(50)) {
            const QString from = seen(first, keyColumn());
            const QString to = seen(number(0, spareRow() - 1), keyColumn());
            const QString text = (*recordAt(first))[4];
            if (text.isEmpty() || from == to)
                return;
            goTo(first, 4);
            press(Qt::Key_X, Qt::ControlModifier);
            step();
            recordWith(from)[4].clear();
            check();
            goTo(rowWith(to), 4);
            press(Qt::Key_V, Qt::ControlModifier);
            if (recordWith(to)[4] != text)
                step();
            recordWith(to)[4] = text;
            return;
        }
        QString block;
        for (int row = first; row < spareRow() && row < first + 3; ++row) {
            MeantRecord& record = *recordAt(row);
            record[3] = words();
            record[4] = words();
            block += quoted(record[3]) + QLatin1Char('\t') + quoted(record[4]) + QStringLiteral("\r\n");
        }
        goTo(first, 3);
        QApplication::clipboard()->setText(block);
        press(Qt::Key_V, Qt::ControlModifier);
        steps_.push_back(before);
    }

    void fillDown()
    {
        if (on_->mode != ModeLitology || spareRow() < 2)
            return;
        const int top = number(0, spareRow() - 2);
        const int count = number(1, spareRow() - 1 - top);
        const int column = number(3, 4);
        const QString text = seen(top, column);
        goTo(top, column);
        const MeantRecords before = records();
        bool changes = false;
        for (int i = 1; i <= count; ++i) {
            press(Qt::Key_Down, Qt::ShiftModifier);
            QString& filled = (*recordAt(top + i))[column];
            changes = changes || filled != text;
            filled = text;
        }
        press(Qt::Key_D, Qt::ControlModifier);
        if (changes)
            steps_.push_back(before);
    }

    // A depth that is no number: the cell is marked, the record waits, its texts stay.
    void refused()
    {
        if (on_->mode == ModeListCoords || refusals_ > 3)
            return;
        ++refusals_;
        goTo(spareRow(), keyColumn());
        MeantRecord record;
        const QString text = QStringLiteral("?%1").arg(number(1, 9999));
        typeText(text);
        step();
        records().push_back({{keyColumn(), text}});
        press(Qt::Key_Return);
        const QStringList told = screen(on_->mode)->property("tellurixUnsavedCells").toStringList();
        EXPECT_TRUE(told.join(QLatin1Char(' ')).contains(text)) << "the screen does not own up to a refusal";
    }

    // A depth that another record has: said at once, and taken back.
    void twice()
    {
        if (on_->mode == ModeListCoords || spareRow() == 0)
            return;
        const int row = number(0, spareRow() - 1);
        const QString key = seen(row, keyColumn());
        // One that waits itself holds no depth yet.
        if (!isWhole(*on_, *recordAt(row)) || key.contains(QLatin1Char(',')))
            return;
        goTo(spareRow(), keyColumn());
        typeText(key);
        press(Qt::Key_Return);
        const QStringList told = screen(on_->mode)->property("tellurixUnsavedCells").toStringList();
        EXPECT_TRUE(told.join(QLatin1Char(' ')).contains(key))
            << "nothing is said of a depth that stands twice: " << key.toStdString() << "; "
            << told.join(QLatin1Char(' ')).toStdString();
        check();
        press(Qt::Key_Z, Qt::ControlModifier);
    }

    void undoAndRedo()
    {
        const int most = int(std::min<std::size_t>(steps_.size(), size_t(number(1, 4))));
        std::vector<MeantRecords> undone;
        for (int i = 0; i < most; ++i) {
            press(Qt::Key_Z, Qt::ControlModifier);
            undone.push_back(records());
            records() = steps_.back();
            steps_.pop_back();
            check();
        }
        const int again = number(0, most);
        for (int i = 0; i < again; ++i) {
            press(Qt::Key_Y, Qt::ControlModifier);
            steps_.push_back(records());
            records() = undone.back();
            undone.pop_back();
            check();
        }
    }

    void sortOrFilter()
    {
        QTableView* view = this->view();
        if (chance(50)) {
            const int column = one(on_->table->columns);
            const QHeaderView* heads = view->horizontalHeader();
            view->scrollTo(view->model()->index(0, column));
            QTest::mouseDClick(heads->viewport(),
                Qt::LeftButton,
                {},
                {heads->sectionViewportPosition(column) + heads->sectionSize(column) / 2,
                    heads->height() / 2});
        } else if (auto* filter = screen(on_->mode)->findChild<QLineEdit*>(QStringLiteral("pointFilter"))) {
            filter->setFocus();
            typeText(QStringLiteral("Ш"));
            newRows();
            if (on_->mode != ModeListCoords)
                return;
            // The project may have been closed and opened among the rows, and the screen made anew.
            filter = screen(on_->mode)->findChild<QLineEdit*>(QStringLiteral("pointFilter"));
            filter->setFocus();
            if (chance(50))
                return press(Qt::Key_Escape);
            press(Qt::Key_A, Qt::ControlModifier);
            press(Qt::Key_Backspace);
            this->view()->setFocus();
        }
    }

    void choosePoint(const QString& name)
    {
        auto* list = screen(on_->mode)->findChild<QListView*>();
        list->setFocus();
        press(Qt::Key_Escape);
        typeText(name);
        press(Qt::Key_Return);
        point_ = name;
        press(Qt::Key_Escape); // back to the list, and the filter away
        press(Qt::Key_Escape);
        press(Qt::Key_Return);
        steps_.clear();
        ASSERT_EQ(QString::fromStdWString(shell.controller->editedSample()), name);
    }

    void changeScreen()
    {
        on_ = &robotScreens[number(0, int(std::size(robotScreens)) - 1)];
        ASSERT_TRUE(action(on_->action)->isEnabled());
        action(on_->action)->trigger();
        QCoreApplication::processEvents();
        steps_.clear();
        point_.clear();
        if (on_->mode != ModeListCoords)
            choosePoint(oneOf(points_));
        else
            view()->setFocus();
    }

    // An event loop does so before anything else can be opened; a test has none, and whether a box that opens
    // later lets them go would hang on how long it stands. A closed screen keeps what was refused in it.
    static void letClosedScreensGo() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void closeAndOpen()
    {
        const bool waiting = waits();
        for (auto& [where, all] : meant_)
            all = taken(screenOf(where), all);
        {
            const MessageAnswers answers(waiting
                    ? std::deque<QMessageBox::StandardButton>{QMessageBox::No, QMessageBox::Yes}
                    : std::deque<QMessageBox::StandardButton>{QMessageBox::Yes});
            action(ShellAction::Close)->trigger();
            QApplication::setActiveWindow(shell.mainWindow.get());
            EXPECT_EQ(answers.boxes().size(), waiting ? 2U : 1U)
                << "the closing names what is not stored; " << told();
        }
        letClosedScreensGo();
        refusals_ = 0;
        checkFile();
        openFromCommandLine(controller(), path_.toLocal8Bit().constData());
        QCoreApplication::processEvents();
        on_ = &robotScreens[0];
        point_.clear();
        steps_.clear();
        view()->setFocus();
        changeScreen();
    }

    void begin(unsigned seed)
    {
        random_.seed(seed);
        const Reference<DBProject> site = makeReference<DBProject>();
        site->setFilePath(L"ROBOT.TLX");
        site->setFileStem(L"ROBOT");
        points_ = QStringList{QStringLiteral("Скв-2"), QStringLiteral("Скв-11"), QStringLiteral("5")};
        for (const QString& name : points_) {
            site->addPointRegisterEntry({name.toStdWString(), 1}, {PointRow()});
            used_.insert(name);
        }
        const QString folder = here(projectsFolder + QStringLiteral("/ROBOT"));
        QDir().mkpath(folder);
        path_ = folder + QStringLiteral("/ROBOT.TLX");
        ASSERT_TRUE(bool(writeProjectFile(path_.toStdWString(), *site)));
        openFromCommandLine(controller(), path_.toLocal8Bit().constData());
        QCoreApplication::processEvents();
        QApplication::setActiveWindow(shell.mainWindow.get());
        on_ = &robotScreens[0];
        view()->setFocus();
        meant_[{ModeListCoords, QString()}] = pointsIn(*controller().dbProject());
        changeScreen();
    }

    void act()
    {
        struct Act {
            const char* name;
            int weight;
            void (TypingRobot::*run)();
        };
        static const Act acts[] = {{"new rows", 18, &TypingRobot::newRows},
            {"insert", 9, &TypingRobot::insertRow},
            {"correct", 12, &TypingRobot::correctDown},
            {"arrow", 7, &TypingRobot::leaveByArrow},
            {"delete", 5, &TypingRobot::deleteRows},
            {"clear", 4, &TypingRobot::clearCell},
            {"paste", 8, &TypingRobot::pasteRows},
            {"paste over", 4, &TypingRobot::pasteOver},
            {"fill", 4, &TypingRobot::fillDown},
            {"refused", 3, &TypingRobot::refused},
            {"twice", 3, &TypingRobot::twice},
            {"undo", 11, &TypingRobot::undoAndRedo},
            {"sort, filter", 3, &TypingRobot::sortOrFilter},
            {"screen", 5, &TypingRobot::changeScreen},
            {"save", 2, &TypingRobot::save},
            {"back", 7, &TypingRobot::back},
            {"add to a cell", 8, &TypingRobot::addToCell},
            {"leave", 8, &TypingRobot::typeAndLeave},
            {"jump", 6, &TypingRobot::jump},
            {"clear all", 2, &TypingRobot::clearAll},
            {"move a block", 5, &TypingRobot::moveBlock},
            {"paste on", 5, &TypingRobot::pasteOverTheEnd},
            {"paste into all", 4, &TypingRobot::pasteIntoAll},
            {"spoil a depth", 3, &TypingRobot::spoilDepth},
            {"rename", 3, &TypingRobot::renamePoint},
            {"replace", 8, &TypingRobot::replaceTexts},
            {"close", 2, &TypingRobot::closeAndOpen}};
        static const int all = std::accumulate(
            std::begin(acts), std::end(acts), 0, [](int sum, const Act& each) { return sum + each.weight; });
        int left = number(1, all);
        for (const Act& each : acts)
            if ((left -= each.weight) <= 0) {
                done_ +=
                    QStringLiteral("%1: %2 (%3)").arg(on_->table->name, QLatin1String(each.name), point_);
                if (qEnvironmentVariableIsSet("TELLURIX_TALK"))
                    std::fprintf(stderr, "%s\n", qPrintable(done_.last()));
                return (this->*each.run)();
            }
    }
};

} // namespace

TEST_F(TypingRobot, TheProjectHoldsWhatWasTyped)
{
    const int first = numberFromEnvironment("TELLURIX_SEED", 1);
    const int sessions = numberFromEnvironment("TELLURIX_SESSIONS", usualSessions);
    for (int seed = first; seed < first + sessions; ++seed) {
        meant_.clear();
        steps_.clear();
        used_.clear();
        done_.clear();
        refusals_ = 0;
        begin(unsigned(seed));
        // A box that nobody expects would stand for ever.
        QTimer watch;
        QPointer<QWidget> before;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&before] {
            QWidget* const modal = QApplication::activeModalWidget();
            const bool stands = modal && before == modal;
            before = modal;
            if (auto* dialog = stands ? qobject_cast<QDialog*>(modal) : nullptr) {
                const auto* box = qobject_cast<QMessageBox*>(dialog);
                ADD_FAILURE()
                    << "a box: "
                    << (box ? box->text() + box->informativeText() : dialog->windowTitle()).toStdString();
                dialog->reject();
            }
        });
        watch.start(2000);
        for (int i = 0; i < 25 && !HasFailure(); ++i) {
            act();
            check();
        }
        if (!HasFailure())
            closeAndOpen();
        if (HasFailure()) {
            ADD_FAILURE() << "seed " << seed << ", the last acts: "
                          << done_.mid(qMax(0, done_.size() - 5)).join(QStringLiteral("; ")).toStdString();
            return;
        }
        const MessageAnswers answers({QMessageBox::No});
        action(ShellAction::Close)->trigger();
        letClosedScreensGo();
    }
    std::printf("%d sessions from seed %d\n", sessions, first);
}
