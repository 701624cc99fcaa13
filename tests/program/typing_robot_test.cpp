// Somebody who types. Random sessions over the screens of points, layers, samples, water and consistency, by
// key events alone, as a person enters a site: rows one after another without looking up, corrections down a
// column, blocks from a spreadsheet, Ins, Del, undo, filters, sorting, another point, another screen, saves,
// closing and opening. What was meant is written down apart from the program, and held against the project
// after every act and against the file at the end. A seed makes a session again:
//     TELLURIX_SEED=17 TELLURIX_SESSIONS=1 robot_tests

#include "persistence/project_file.h"
#include "program/meant_site.h"
#include "program/program_test.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QListView>
#include <QPointer>

#include <functional>
#include <random>
#include <set>

namespace
{

// A screen as the robot knows it.
struct RobotScreen {
    TX_Modes mode;
    ShellAction action;
    const MeantTable* table;
    MeantRecords (*read)(DBProject&, const std::wstring&); // null: the list of points
    // Whether the project takes a record with these texts.
    bool needsSecond; // a kind, without which there is no record
};

const RobotScreen robotScreens[] = {
    {ModeListCoords, ShellAction::ListCoords, &coordinates, nullptr, false},
    {ModeLitology, ShellAction::Litology, &layers, layersIn, false},
    {ModeTests, ShellAction::Tests, &samples, samplesIn, true},
    {ModeWaters, ShellAction::Waters, &waters, watersIn, false},
    {ModeConsistents, ShellAction::Consistents, &consistencies, consistenciesIn, true},
};

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

QString withPoint(QString text)
{
    return text.remove(QLatin1Char(' ')).replace(QLatin1Char(','), QLatin1Char('.'));
}

class TypingRobot : public ProgramTest
{
protected:
    // What is meant: by the screen and the point ("" in the list of points).
    using Place = std::pair<int, QString>;
    std::map<Place, MeantRecords> meant_;
    std::vector<MeantRecords> steps_; // states before the steps of undo since the screen or point was chosen
    std::mt19937 random_;
    const RobotScreen* on_ = nullptr;
    QString point_;
    QStringList points_; // of the registers' screens
    std::set<QString> used_; // depths and names, each once in a session
    QString path_;
    QStringList done_; // the last acts, for the report
    int refusals_ = 0;
    MeantRecords beforeLast_; // before the last cell was typed
    std::size_t stepsBeforeLast_ = 0;
    int lastColumn_ = -1;

    int number(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }
    bool chance(int percent) { return number(1, 100) <= percent; }
    template <class List>
    auto one(const List& list)
    {
        return list[size_t(number(0, int(list.size()) - 1))];
    }
    QString oneOf(const QStringList& list) { return list[number(0, list.size() - 1)]; }

    // Keys and eyes

    QTableView* view() { return table(on_->mode); }
    static void press(int key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QWidget* focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr) << "nobody has the keyboard";
        if (qEnvironmentVariableIsSet("TELLURIX_TALK"))
            std::fprintf(stderr,
                "  %s on %s\n",
                qPrintable(QKeySequence(key | int(held)).toString()),
                focus->metaObject()->className());
        QTest::keyClick(focus, Qt::Key(key), held);
    }
    static void typeText(const QString& text)
    {
        for (const QChar letter : text) {
            ASSERT_NE(QApplication::focusWidget(), nullptr);
            QTest::sendKeyEvent(
                QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(letter), Qt::NoModifier);
        }
    }
    int rowsSeen() { return view()->model()->rowCount(); }
    QString seen(int row, int column) { return cell(view(), row, column); }
    // The last row of a table is the one to begin a new record in.
    int spareRow() { return rowsSeen() - 1; }

    void goTo(int row, int column)
    {
        QTableView* view = this->view();
        if (chance(30) || !view->hasFocus()) {
            view->scrollTo(view->model()->index(row, column));
            QTest::mouseClick(view->viewport(),
                Qt::LeftButton,
                {},
                view->visualRect(view->model()->index(row, column)).center()
                    - QPoint(view->columnWidth(column) / 3, 0));
        } else {
            press(Qt::Key_Home, Qt::ControlModifier);
            for (int i = 0; i < row; ++i)
                press(Qt::Key_Down);
            for (int i = 0; i < column; ++i)
                press(Qt::Key_Right);
        }
        ASSERT_EQ(view->currentIndex().row(), row);
        ASSERT_EQ(view->currentIndex().column(), column);
    }

    // What was meant

    static const RobotScreen& screenOf(const Place& place)
    {
        return *std::find_if(std::begin(robotScreens), std::end(robotScreens), [&](const RobotScreen& each) {
            return each.mode == place.first;
        });
    }
    Place place() { return {on_->mode, point_}; }
    MeantRecords& records() { return meant_[place()]; }
    void step() { steps_.push_back(records()); }
    int keyColumn() const { return on_->table->key; }

    static bool isTaken(const RobotScreen& screen, const MeantRecord& record)
    {
        const auto key = record.find(screen.table->key);
        if (key == record.end() || key->second.isEmpty() || key->second.startsWith(QLatin1Char('?')))
            return false;
        const auto second = record.find(screen.table->columns.back());
        return !screen.needsSecond || (second != record.end() && !second->second.isEmpty());
    }
    static MeantRecords taken(const RobotScreen& screen, const MeantRecords& all)
    {
        MeantRecords some;
        for (const MeantRecord& record : all)
            if (isTaken(screen, record))
                some.push_back(record);
        return some;
    }
    // The record that a person takes a row for: by its key, which stands there once.
    MeantRecord* recordAt(int row)
    {
        const QString key = seen(row, keyColumn());
        for (MeantRecord& record : records())
            if (record[keyColumn()] == key)
                return &record;
        return nullptr;
    }

    static bool isNumberColumn(const RobotScreen& screen, int column)
    {
        return screen.mode == ModeListCoords ? column >= 2 && column <= 8 : column == screen.table->key;
    }

    // A text was typed into a cell of a record: one step, and one more where a comma was mended.
    void put(MeantRecord& record, int column, const QString& typed)
    {
        const MeantRecords before = records();
        const QString stored = isNumberColumn(*on_, column) ? withPoint(typed) : typed;
        const QString old = record[column];
        if (old == typed)
            return;
        steps_.push_back(before);
        if (stored != typed) {
            record[column] = typed;
            if (old != stored)
                steps_.push_back(records());
        }
        record[column] = stored;
        if (on_->mode == ModeListCoords && column == 0 && record[1].isEmpty())
            record[1] = QStringLiteral("Скважина");
    }

    // An undo gives a comma back, and the registers read a depth up to its comma. So that it is always theirs
    // to take, no whole number of metres stands before two commas, nor alone.
    QString depth()
    {
        for (;;) {
            const int hundredths = number(1, 9999);
            const QString metres = QString::number(hundredths / 100);
            const QString text = metres + QLatin1Char('.')
                + QStringLiteral("%1").arg(hundredths % 100, 2, 10, QLatin1Char('0'));
            const bool isWhole = hundredths % 100 == 0;
            if (isWhole && used_.count(metres) > 0)
                continue;
            if (!used_.insert(text).second)
                continue;
            const bool isWithComma = !isWhole && chance(40) && used_.count(metres) == 0;
            if (isWhole || isWithComma)
                used_.insert(metres);
            return isWithComma ? QString(text).replace(QLatin1Char('.'), QLatin1Char(',')) : text;
        }
    }
    QString pointName()
    {
        for (;;) {
            QString name = oneOf({QStringLiteral("Скв-"), QStringLiteral("Ш-"), QStringLiteral("с")})
                + QString::number(number(1, 300));
            if (used_.insert(name).second)
                return name;
        }
    }
    QString words()
    {
        return oneOf({QStringLiteral("Суглинок"),
                   QStringLiteral("Песок мелкий"),
                   QStringLiteral("глина, 3,5 %"),
                   QStringLiteral("1.2"),
                   QStringLiteral("aQ-III"),
                   QStringLiteral("\"торф\"")})
            + QLatin1Char(' ') + QString::number(number(1, 9999));
    }
    // What a person types into a column, and what is to stand there.
    QString textFor(int column)
    {
        if (column == keyColumn())
            return on_->mode == ModeListCoords ? pointName() : depth();
        if (isNumberColumn(*on_, column))
            return chance(50) ? QStringLiteral("6 180 %1,45").arg(number(100, 999))
                              : QString::number(number(1, 99999));
        if (on_->mode == ModeListCoords && column == 1)
            return oneOf(
                {QStringLiteral("Скважина"), QStringLiteral("Шурф"), QStringLiteral("Зондирование")});
        if (on_->mode == ModeTests)
            return oneOf({QStringLiteral("Монолит (М)"), QStringLiteral("Валовая (В)")});
        if (on_->mode == ModeConsistents)
            return oneOf(
                {QStringLiteral("тугопластичная"), QStringLiteral("текучая"), QStringLiteral("полутвердая")});
        if (column == 9 || on_->mode == ModeWaters)
            return QStringLiteral("%1.0%2.2019").arg(number(10, 28)).arg(number(1, 9));
        return words();
    }
    // The first letters of a choice are enough where no other begins so.
    QString shortened(int column, const QString& text)
    {
        if (on_->mode == ModeTests && column == 1 && chance(50))
            return text.left(number(3, 6)).toLower();
        return text;
    }
    bool isFlag(int column) const { return on_->mode == ModeWaters && column >= 2; }

    // Acts

    void typeCell(MeantRecord& record, int column)
    {
        beforeLast_ = records();
        stepsBeforeLast_ = steps_.size();
        lastColumn_ = column;
        if (isFlag(column)) {
            press(Qt::Key_Space);
            const MeantRecords before = records();
            steps_.push_back(before);
            record[column] = record[column].isEmpty() ? QStringLiteral("1") : QString();
            return;
        }
        const QString text = textFor(column);
        if (qEnvironmentVariableIsSet("TELLURIX_TALK"))
            std::fprintf(stderr,
                "  \"%s\" into %d, %d\n",
                qPrintable(text),
                view()->currentIndex().row(),
                view()->currentIndex().column());
        typeText(shortened(column, text));
        put(record, column, text);
    }

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
                if (c == 0 || on_->needsSecond || chance(60))
                    typeCell(records().back(), columns[c]);
            }
            const bool isLastOfAll = i + 1 == count;
            const bool canTab = at == lastStop();
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
    // Tab stops at every column that takes something, also where nothing is meant for it.
    int nextStop(int column) const
    {
        ++column;
        while ((on_->mode == ModeLitology && (column == 1 || column == 2)))
            ++column;
        return column;
    }
    int lastStop() const
    {
        return on_->mode == ModeListCoords ? 10
            : on_->mode == ModeLitology    ? 4
            : on_->mode == ModeWaters      ? 3
            : on_->mode == ModeConsistents ? 2
                                           : 1;
    }
    // An open cell, and something else is done.
    void leaveOpen(bool isOpen)
    {
        switch (number(0, 2)) {
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
        default:
            changeScreen();
        }
    }
    // Whether something typed is not in the project; a row that nobody typed into does not count.
    bool waits() const
    {
        const auto isWaiting = [](const RobotScreen& screen, const MeantRecord& record) {
            const bool isBlank = std::all_of(
                record.begin(), record.end(), [](const auto& cell) { return cell.second.isEmpty(); });
            return !isBlank && !isTaken(screen, record);
        };
        return std::any_of(meant_.begin(), meant_.end(), [&](const auto& entry) {
            return std::any_of(entry.second.begin(), entry.second.end(), [&](const MeantRecord& record) {
                return isWaiting(screenOf(entry.first), record);
            });
        });
    }
    // What the screens say that is not stored, for the report.
    std::string told()
    {
        QStringList all;
        for (const RobotScreen& each : robotScreens)
            if (screen(each.mode))
                all += screen(each.mode)->property("tellurixUnsavedCells").toStringList();
        return all.join(QLatin1Char('\n')).toStdString();
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

    void deleteRow()
    {
        if (spareRow() == 0)
            return;
        const int row = number(0, spareRow() - 1);
        const QString key = seen(row, keyColumn());
        // A point with records elsewhere asks first; the robot leaves such a one.
        if (on_->mode == ModeListCoords && points_.contains(key))
            return;
        goTo(row, on_->table->columns.front());
        step();
        press(Qt::Key_Delete, Qt::ControlModifier);
        auto& all = records();
        all.erase(std::remove_if(
                      all.begin(), all.end(), [&](MeantRecord& each) { return each[keyColumn()] == key; }),
            all.end());
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
        if (on_->mode == ModeListCoords)
            return;
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
                    // Of a computed column: not taken. There are no elements to give a layer.
                    cells += on_->mode == ModeLitology && column == 5 ? QString() : QStringLiteral("7,77");
                    continue;
                }
                const QString text = isFlag(column) ? QStringLiteral("1") : textFor(column);
                QString quoted = text;
                if (quoted.startsWith(QLatin1Char('"')))
                    quoted = QLatin1Char('"') + quoted.replace(QLatin1Char('"'), QLatin1String("\"\""))
                        + QLatin1Char('"');
                cells += quoted;
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
        for (int i = 1; i <= count; ++i) {
            press(Qt::Key_Down, Qt::ShiftModifier);
            (*recordAt(top + i))[column] = text;
        }
        press(Qt::Key_D, Qt::ControlModifier);
        if (before != records())
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
            filter->setFocus();
            press(Qt::Key_A, Qt::ControlModifier);
            press(Qt::Key_Backspace);
            view->setFocus();
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

    // Against the project

    MeantRecords current(const RobotScreen& screen, const QString& point)
    {
        DBProject& project = *controller().dbProject();
        return screen.read ? screen.read(project, point.toStdWString()) : pointsIn(project);
    }
    void check()
    {
        ASSERT_EQ(toldInOrder(*on_->table, current(*on_, point_)).toStdString(),
            toldInOrder(*on_->table, taken(*on_, records())).toStdString())
            << on_->table->name.toStdString() << ", point " << point_.toStdString() << ", not stored: "
            << screen(on_->mode)
                   ->property("tellurixUnsavedCells")
                   .toStringList()
                   .join(QLatin1Char('\n'))
                   .toStdString()
            << "\nThe cursor is on: " << view()->currentIndex().row() << ", "
            << view()->currentIndex().column() << " "
            << view()->currentIndex().data().toString().toStdString();
    }
    void checkFile()
    {
        const Reference<DBProject> stored = storedProject(path_);
        for (auto& [where, all] : meant_) {
            const RobotScreen& screen = screenOf(where);
            const MeantRecords held =
                screen.read ? screen.read(*stored, where.second.toStdWString()) : pointsIn(*stored);
            EXPECT_EQ(toldInOrder(*screen.table, held).toStdString(),
                toldInOrder(*screen.table, taken(screen, all)).toStdString())
                << "in the file: " << screen.table->name.toStdString() << ", " << where.second.toStdString();
        }
    }
    static Reference<DBProject> storedProject(const QString& path)
    {
        std::vector<std::uint8_t> bytes;
        ReadReport report;
        lookAtProjectFile(path.toStdWString(), bytes);
        return readProject(path.toStdWString(), bytes, report);
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
        static const Act acts[] = {{"new rows", 22, &TypingRobot::newRows},
            {"insert", 10, &TypingRobot::insertRow},
            {"correct", 16, &TypingRobot::correctDown},
            {"delete", 5, &TypingRobot::deleteRow},
            {"clear", 5, &TypingRobot::clearCell},
            {"paste", 8, &TypingRobot::pasteRows},
            {"fill", 5, &TypingRobot::fillDown},
            {"refused", 3, &TypingRobot::refused},
            {"undo", 12, &TypingRobot::undoAndRedo},
            {"sort, filter", 4, &TypingRobot::sortOrFilter},
            {"screen", 6, &TypingRobot::changeScreen},
            {"save", 2, &TypingRobot::save},
            {"close", 2, &TypingRobot::closeAndOpen}};
        int left = number(1, 100);
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
