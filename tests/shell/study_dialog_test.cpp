#include "core/base/reference.h"
#include "db/db_project.h"
#include "dialogs/study_controller.h"
#include "dialogs/study_dialog.h"
#include "dialogs/study_model.h"
#include "dialogs/study_table.h"

#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <stdexcept>

namespace
{

Reference<DBProject> projectWith(std::initializer_list<std::wstring> points)
{
    auto project = makeReference<DBProject>();
    for (const std::wstring& name : points)
        project->addPointRegisterEntry({name, 1}, {PointRow{}});
    return project;
}

StudyTable& tableOf(StudyDialog& dialog)
{
    return *dialog.findChild<StudyTable*>();
}

std::vector<std::wstring> texts(const StudyTable& table, int row)
{
    std::vector<std::wstring> found;
    for (int column = 0; column < table.model()->columnCount(); ++column)
        found.push_back(table.model()->index(row, column).data().toString().toStdWString());
    return found;
}

// Whether anything dark green is drawn within a cell.
bool showsCheckMark(StudyTable& table, int row, int column)
{
    const QImage picture = table.viewport()->grab().toImage();
    const QRect cell = table.visualRect(table.model()->index(row, column)).adjusted(2, 2, -2, -2);
    for (int y = cell.top(); y <= cell.bottom(); ++y)
        for (int x = cell.left(); x <= cell.right(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (color.green() > color.red() + 60 && color.green() < 160)
                return true;
        }
    return false;
}

} // namespace

// The point of every register is "2"; "02" reads as the same number and is another point.
TEST(StudyDialog, EachRegisterMarksItsColumnForTheVeryName)
{
    using Fill = void (*)(DBProject&, const std::wstring&);
    const Fill fills[] = {
        [](DBProject& project, const std::wstring& name) {
            project.addLithology({name, L"1"}, {});
        },
        [](DBProject& project, const std::wstring& name) {
            project.addSample({name, L"1"}, {});
        },
        [](DBProject& project, const std::wstring& name) {
            project.addWaterLevel({name, L"1"}, {});
        },
        [](DBProject& project, const std::wstring& name) {
            project.addConsistency({name, L"1"}, {});
        },
        [](DBProject& project, const std::wstring& name) {
            project.addSounding({name, 3, {}, {}}, {});
        },
        [](DBProject& project, const std::wstring& name) { project.getSubsidence()[name] = {}; },
        [](DBProject& project, const std::wstring& name) {
            project.addChemistry({name, L"1"}, {});
        },
    };
    for (std::size_t i = 0; i < std::size(fills); ++i) {
        SCOPED_TRACE(i + 1);
        const auto project = projectWith({L"10", L"2"});
        fills[i](*project, L"2");
        std::vector<std::wstring> expected(StudyController::columnCount);
        expected[0] = L"2";
        expected[i + 1] = L"\u00D6";
        StudyDialog dialog(project.get());
        EXPECT_EQ(texts(tableOf(dialog), 0), expected);

        const auto other = projectWith({L"2"});
        fills[i](*other, L"02");
        StudyDialog none(other.get());
        expected[i + 1].clear();
        EXPECT_EQ(texts(tableOf(none), 0), expected);
    }
}

TEST(StudyDialog, ShowsPointsInOrderWithCheckMarks)
{
    const auto project = projectWith({L"10", L"2"});
    project->addChemistry({L"10", L"1,5"}, {});
    StudyDialog dialog(project.get());
    dialog.show();
    EXPECT_TRUE(dialog.isModal());
    EXPECT_EQ(dialog.size(), QSize(1250, 700));
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Исследования для комплексных точек"));
    StudyTable& table = tableOf(dialog);
    ASSERT_EQ(table.verticalHeader()->count(), 2) << "the view knows of the rows";
    EXPECT_EQ(texts(table, 0)[0], L"2");
    EXPECT_EQ(texts(table, 1)[0], L"10");
    EXPECT_EQ(table.columnWidth(7), 150);
    EXPECT_TRUE(showsCheckMark(table, 1, 7));
    EXPECT_FALSE(showsCheckMark(table, 0, 7));
    EXPECT_FALSE(showsCheckMark(table, 1, 6));
}

TEST(StudyDialog, KeysChangeNothingAndEscapeCloses)
{
    const auto project = projectWith({L"1"});
    StudyDialog dialog(project.get());
    dialog.show();
    StudyTable& table = tableOf(dialog);
    table.setCurrentIndex(table.model()->index(0, 1));
    QTest::keyClicks(&table, QStringLiteral("abc"));
    QTest::keyClick(&table, Qt::Key_F2);
    QTest::keyClick(&table, Qt::Key_Enter, Qt::KeypadModifier);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.currentIndex()).center());
    EXPECT_EQ(table.findChild<QLineEdit*>(), nullptr);
    EXPECT_EQ(texts(table, 0)[1], L"");
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&table, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(StudyDialog, RolesAndTitles)
{
    const auto project = projectWith({L"1"});
    project->addSample({L"1", L"2"}, {});
    StudyDialog dialog(project.get());
    const QAbstractItemModel& model = *tableOf(dialog).model();
    EXPECT_FALSE(model.index(0, 0).data(Qt::FontRole).isValid());
    const auto font = model.index(0, 2).data(Qt::FontRole).value<QFont>();
    EXPECT_EQ(font.family(), QStringLiteral("Symbol"));
    EXPECT_EQ(font.pointSize(), 14);
    EXPECT_EQ(font.weight(), 75);
    EXPECT_EQ(model.index(0, 0).data(Qt::TextAlignmentRole).toInt(), 132);
    EXPECT_EQ(model.headerData(5, Qt::Horizontal, Qt::DisplayRole).toString(),
        QStringLiteral("Статическое\nзондирование"));
    EXPECT_EQ(model.headerData(0, Qt::Vertical, Qt::DisplayRole).toString(), QString());
    EXPECT_FALSE(model.index(1, 0).isValid());
    EXPECT_FALSE(model.index(0, 8).isValid());
    EXPECT_THROW(model.headerData(8, Qt::Horizontal, Qt::DisplayRole), std::out_of_range);
    EXPECT_THROW(model.data({}, Qt::DisplayRole), std::out_of_range);
}

TEST(StudyDialog, ProjectWithoutPointsHasTheTitlesAlone)
{
    const auto project = projectWith({});
    StudyDialog dialog(project.get());
    dialog.show();
    EXPECT_EQ(tableOf(dialog).model()->rowCount(), 0);
    EXPECT_EQ(tableOf(dialog).horizontalHeader()->count(), 8);
}

TEST(StudyDialog, WindowAndColumnsAreAsWide)
{
    const auto project = projectWith({L"1"});
    StudyDialog dialog(project.get());
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Исследования для комплексных точек"));
    EXPECT_EQ(dialog.size(), QSize(1250, 700));
    EXPECT_TRUE(dialog.isModal());
    EXPECT_EQ(dialog.windowType(), Qt::Dialog);
    const char* const titles[] = {"Имя\nточки",
        "Литология",
        "Пробы",
        "Уровень\nводы",
        "Консистенция",
        "Статическое\nзондирование",
        "Общая\nпросадочность",
        "Химический\nанализ"};
    const StudyTable& table = tableOf(dialog);
    for (int column = 0; column < 8; ++column) {
        EXPECT_EQ(table.columnWidth(column), 150) << column;
        EXPECT_EQ(
            table.model()->headerData(column, Qt::Horizontal).toString(), QString::fromUtf8(titles[column]));
        EXPECT_FALSE(table.model()->headerData(column, Qt::Horizontal, Qt::EditRole).isValid());
    }
}

TEST(StudyTable, EditsWhatItShowsAndTellsOfARefresh)
{
    const auto project = projectWith({L"1"});
    project->addSample({L"1", L"2"}, {});
    StudyController controller(project.get());
    StudyModel model(&controller, nullptr);
    StudyTable table(&controller, &model, nullptr);
    controller.setModel(&model);
    controller.setTable(&table);
    controller.rebuildRows();
    for (int column = 0; column < 8; ++column) {
        const QModelIndex cell = model.index(0, column);
        EXPECT_EQ(cell.data(Qt::EditRole), cell.data(Qt::DisplayRole)) << column;
        EXPECT_FALSE(cell.flags().testFlag(Qt::ItemIsEditable));
        EXPECT_FALSE(cell.data(Qt::ToolTipRole).isValid());
    }
    EXPECT_EQ(model.index(0, 2).data(Qt::EditRole).toString(), QStringLiteral("\u00D6"));
    table.setCurrentIndex(model.index(0, 3));
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    const QSignalSpy layouts(&model, &QAbstractItemModel::layoutChanged);
    controller.refresh();
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex(), table.currentIndex());
    EXPECT_EQ(changes[0][1].toModelIndex(), table.currentIndex());
    EXPECT_EQ(layouts.count(), 1);
}
