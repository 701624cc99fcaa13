#include "common/clipboard_text.h"
#include "common/edit_grid.h"
#include "common/export_dialog.h"
#include "common/table_document.h"
#include "common/typed_text.h"
#include "platform/files.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace
{

QVector<GridColumn> twoColumns()
{
    GridColumn name;
    name.title = QStringLiteral("Имя");
    GridColumn depth;
    depth.title = QStringLiteral("Глубина,\nм");
    depth.kind = GridColumn::Number;
    return {name, depth};
}

std::unique_ptr<EditGrid> makeGrid()
{
    auto grid = std::make_unique<EditGrid>(QStringLiteral("test/export"), twoColumns());
    grid->setAccessibleName(QStringLiteral("Глубины: 1/2"));
    GridRows rows;
    for (const char* depth : {"1.50", "12", "3,25"}) {
        GridRow row;
        row.id = rows.size() + 1;
        row.cells = {QStringLiteral("Скв-%1").arg(row.id), QString::fromLatin1(depth)};
        rows.append(row);
    }
    grid->setRows(rows);
    return grid;
}

// Has somebody work in the dialog that comes up next.
void whenDialogComes(const std::function<void(ExportDialog&)>& user)
{
    QTimer::singleShot(50, qApp, [user] {
        if (auto* dialog = dynamic_cast<ExportDialog*>(QApplication::activeModalWidget()))
            user(*dialog);
        else
            ADD_FAILURE() << "no dialog";
    });
}

} // namespace

TEST(Export, TableIsWhatIsSeenWithoutTheSpareRow)
{
    const auto grid = makeGrid();
    grid->setFilterText(QStringLiteral("Скв-3"));
    const TableBlock shown = tableBlockOf(*grid, *grid->model(), QStringLiteral("Глубины"));
    ASSERT_EQ(shown.madeRows, 1U);
    EXPECT_EQ(shown.makeRow(0)[1].number, 3.25);
    EXPECT_EQ(shown.makeRow(0)[1].decimals, 2);
    EXPECT_FALSE(shown.makeRow(0)[0].number);
    EXPECT_EQ(shown.head.front()[1].runs.front().text, L"Глубина,\nм");
    EXPECT_EQ(tableBlockOf(*grid, grid->rows(), QString()).madeRows, 3U);
    grid->setColumnHidden(0, true);
    EXPECT_EQ(tableBlockOf(*grid, grid->rows(), QString()).head.front().size(), 1U);
}

TEST(Export, DialogWritesEveryFormatAndRefusesAMissingFolder)
{
    const QTemporaryDir folder;
    const auto grid = makeGrid();
    grid->setFilterText(QStringLiteral("Скв-3"));
    const QStringList ends{QStringLiteral("xlsx"),
        QStringLiteral("docx"),
        QStringLiteral("odt"),
        QStringLiteral("pdf"),
        QStringLiteral("html"),
        QStringLiteral("csv")};
    for (int format = 0; format < ends.size(); ++format) {
        const QString path = folder.filePath(QStringLiteral("таблица.") + ends[format]);
        whenDialogComes([&](ExportDialog& dialog) {
            EXPECT_TRUE(dialog.findChild<QLineEdit*>(QStringLiteral("file"))
                            ->text()
                            .contains(QStringLiteral("Глубины- 1-2")));
            dialog.findChild<QComboBox*>()->setCurrentIndex(format);
            dialog.findChildren<QRadioButton*>()[1]->setChecked(true);
            dialog.findChild<QLineEdit*>(QStringLiteral("file"))->setText(path);
            dialog.accept();
            dialog.reject();
        });
        grid->exportRows();
        EXPECT_TRUE(QFile::exists(path)) << path.toStdString();
    }
    const QString typed = folder.filePath(QStringLiteral("набрано.csv"));
    whenDialogComes([&](ExportDialog& dialog) {
        dialog.findChild<QComboBox*>()->setCurrentIndex(0);
        auto* file = dialog.findChild<QLineEdit*>(QStringLiteral("file"));
        file->selectAll();
        for (const QChar& letter : typed)
            QTest::sendKeyEvent(QTest::Click, file, Qt::Key_unknown, letter, Qt::NoModifier);
        dialog.accept();
        dialog.reject();
    });
    grid->exportRows();
    EXPECT_TRUE(QFile::exists(typed)) << "the ending that is typed chooses the format";
    QFile csv(folder.filePath(QStringLiteral("таблица.csv")));
    ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
    EXPECT_EQ(csv.readAll().count("\r\n"), 4);

    whenDialogComes([&](ExportDialog& dialog) {
        dialog.findChild<QLineEdit*>(QStringLiteral("file"))
            ->setText(folder.filePath(QStringLiteral("нет/а.csv")));
        QTimer::singleShot(50, qApp, [] {
            if (auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget()))
                box->reject();
            else
                ADD_FAILURE() << "no message";
        });
        dialog.accept();
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    grid->exportRows();
}

TEST(Export, CopiedBlockIsATableForTextProcessors)
{
    const auto grid = makeGrid();
    grid->selectAll();
    const bool usual = copiesDecimalComma();
    for (const bool comma : {true, false}) {
        SCOPED_TRACE(comma);
        setCopiesDecimalComma(comma);
        grid->copySelection();
        const QMimeData* data = QApplication::clipboard()->mimeData();
        const QString depth = comma ? QStringLiteral("1,50") : QStringLiteral("1.50");
        EXPECT_EQ(data->text().toStdString(),
            QStringLiteral("Скв-1\t%1\nСкв-2\t12\nСкв-3\t3,25\n").arg(depth).toStdString());
        EXPECT_TRUE(data->html().contains(QStringLiteral("<td>Скв-1</td><td>%1</td>").arg(depth)))
            << data->html().toStdString();
        // A table of ours takes back what stood in the cells.
        ASSERT_EQ(cellsOnClipboard().size(), 3);
        EXPECT_EQ(cellsOnClipboard().front().back().toStdString(), "1.50");
    }
    setCopiesDecimalComma(usual);
}
