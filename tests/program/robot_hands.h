#pragma once

#include "persistence/project_file.h"
#include "program/meant_site.h"
#include "program/program_test.h"

#include <random>
#include <set>

// A screen as the robot knows it.
struct RobotScreen {
    TX_Modes mode;
    ShellAction action;
    const MeantTable* table;
    MeantRecords (*read)(DBProject&, const std::wstring&); // null: the list of points
    // Whether the project takes a record with these texts.
    bool needsSecond; // a kind, without which there is no record
};

inline const RobotScreen robotScreens[] = {
    {ModeListCoords, ShellAction::ListCoords, &coordinates, nullptr, false},
    {ModeLitology, ShellAction::Litology, &layers, layersIn, false},
    {ModeTests, ShellAction::Tests, &samples, samplesIn, true},
    {ModeWaters, ShellAction::Waters, &waters, watersIn, false},
    {ModeConsistents, ShellAction::Consistents, &consistencies, consistenciesIn, true},
};

inline QString withPoint(QString text)
{
    return text.remove(QLatin1Char(' ')).replace(QLatin1Char(','), QLatin1Char('.'));
}

// The keys, eyes and memory of somebody who types: what was meant is written down here apart from the
// program, and held against the project and its file.
class RobotHands : public ProgramTest
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
            QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, leftPartOf(row, column));
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

    // Whether a record can be stored with this text. A depth that begins with "?" is none.
    static bool isGood(const RobotScreen& screen, int column, const QString& text)
    {
        if (column == screen.table->key)
            return !text.isEmpty() && !text.startsWith(QLatin1Char('?'));
        return !screen.needsSecond || column != screen.table->columns.back() || !text.isEmpty();
    }
    // While a text is refused, a record that is stored keeps the one before; it stands here beside it.
    static int keptOf(int column) { return -1 - column; }
    // What the project has of a record; nothing where it cannot be stored.
    static std::optional<MeantRecord> stored(const RobotScreen& screen, const MeantRecord& record)
    {
        MeantRecord taken;
        for (const int column : screen.table->columns) {
            const auto cell = record.find(column);
            const QString text = cell == record.end() ? QString() : cell->second;
            const auto kept = record.find(keptOf(column));
            if (isGood(screen, column, text))
                taken[column] = text;
            else if (kept != record.end())
                taken[column] = kept->second;
            else
                return std::nullopt;
        }
        return taken;
    }
    static bool isWhole(const RobotScreen& screen, const MeantRecord& record)
    {
        return stored(screen, record)
            && std::none_of(record.begin(), record.end(), [](const auto& cell) { return cell.first < 0; });
    }
    static MeantRecords taken(const RobotScreen& screen, const MeantRecords& all)
    {
        MeantRecords some;
        for (const MeantRecord& record : all)
            if (const auto kept = stored(screen, record))
                some.push_back(*kept);
        return some;
    }
    void write(MeantRecord& record, int column, const QString& text) const
    {
        const auto before = stored(*on_, record);
        record[column] = text;
        if (isGood(*on_, column, text))
            record.erase(keptOf(column));
        else if (before)
            record[keptOf(column)] = before->at(column);
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

    MeantRecord& recordWith(const QString& key)
    {
        auto& all = records();
        return *std::find_if(
            all.begin(), all.end(), [&](MeantRecord& each) { return each[keyColumn()] == key; });
    }
    int rowWith(const QString& key)
    {
        int row = 0;
        while (row < spareRow() && seen(row, keyColumn()) != key)
            ++row;
        return row;
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
            write(record, column, typed);
            if (old != stored)
                steps_.push_back(records());
        }
        write(record, column, stored);
        if (on_->mode == ModeListCoords && column == 0 && record[1].isEmpty())
            record[1] = QStringLiteral("Скважина");
    }

    // One act on several cells, and perhaps new rows, is one step, and one more where commas were mended.
    struct Change {
        std::size_t record;
        int column;
        QString text;
    };
    // Returns how many steps it is.
    std::size_t change(const std::vector<Change>& changes, std::size_t newRows = 0)
    {
        const MeantRecords before = records();
        records().resize(before.size() + newRows);
        MeantRecords typed = records();
        bool isChange = newRows > 0;
        bool isMended = false;
        for (const Change& each : changes) {
            if (records()[each.record][each.column] == each.text)
                continue;
            const QString stored = isNumberColumn(*on_, each.column) ? withPoint(each.text) : each.text;
            isChange = true;
            isMended = isMended || stored != each.text;
            write(typed[each.record], each.column, each.text);
            write(records()[each.record], each.column, stored);
        }
        if (!isChange)
            return 0;
        steps_.push_back(before);
        if (isMended)
            steps_.push_back(typed);
        return isMended ? 2 : 1;
    }
    std::size_t placeOf(const QString& key) { return std::size_t(&recordWith(key) - records().data()); }
    // A row is told by its key; one without, or with a key that stands twice, is nobody's.
    bool isTold(int row) { return row < spareRow() && !seen(row, keyColumn()).isEmpty(); }
    bool areAllTold()
    {
        for (int row = 0; row < spareRow(); ++row)
            if (!isTold(row))
                return false;
        return spareRow() > 0;
    }
    // The row that the keys go to is the one of this key, its cell in this column.
    void expectCursor(const QString& key, int column)
    {
        const QModelIndex now = view()->currentIndex();
        ASSERT_EQ(seen(now.row(), keyColumn()).toStdString(), key.toStdString());
        ASSERT_EQ(now.column(), column);
    }
    // Where a cell may be chosen by a click without setting its flag.
    QPoint leftPartOf(int row, int column)
    {
        const QModelIndex cell = view()->model()->index(row, column);
        view()->scrollTo(cell);
        return view()->visualRect(cell).center() - QPoint(view()->columnWidth(column) / 3, 0);
    }

    // The first column that takes something, the last one, and the way between them.
    int firstStop() const { return on_->table->columns.front(); }
    int lastStop() const
    {
        return on_->mode == ModeListCoords ? 10
            : on_->mode == ModeLitology    ? 5
            : on_->mode == ModeWaters      ? 3
            : on_->mode == ModeConsistents ? 2
                                           : 1;
    }
    bool isComputed(int column) const { return on_->mode == ModeLitology && (column == 1 || column == 2); }
    // Tab stops at every column that takes something, also where nothing is meant for it.
    int nextStop(int column) const
    {
        ++column;
        while (isComputed(column))
            ++column;
        return column;
    }
    int stopBefore(int column) const
    {
        --column;
        while (isComputed(column))
            --column;
        return column;
    }
    bool isMeant(int column) const
    {
        const std::vector<int>& columns = on_->table->columns;
        return std::find(columns.begin(), columns.end(), column) != columns.end();
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
    // What a spreadsheet has in a cell, and a person would not type: lines, tabs, quotes.
    QString wordsOfSpreadsheet()
    {
        return words()
            + oneOf({QString(),
                QString(),
                QStringLiteral("\nс прослоями песка\n\nи льда"),
                QStringLiteral("\tвлажный"),
                QStringLiteral(", \"d\" = 2\""),
                QStringLiteral("\n\"ил\"\t"),
                QStringLiteral("; 5\"")});
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
    bool isChoice(int column) const
    {
        return (on_->mode == ModeListCoords && column == 1) || (on_->mode == ModeTests && column == 1)
            || (on_->mode == ModeConsistents && column == 2);
    }

    // Whether something typed is not in the project; a row that nobody typed into does not count.
    bool waits() const
    {
        const auto isWaiting = [](const RobotScreen& screen, const MeantRecord& record) {
            const bool isBlank = std::all_of(
                record.begin(), record.end(), [](const auto& cell) { return cell.second.isEmpty(); });
            return !isBlank && !isWhole(screen, record);
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
};
