#include "static/import_dialog.h"

#include "common/view_settings.h"
#include "core/base/mexception.h"
#include "platform/files.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace
{

constexpr int shownRows = 200;

QString text(std::wstring_view wide)
{
    return QString::fromStdWString(std::wstring(wide));
}

// The first row of the table holds the choices.
QTableWidget* makeTable(QWidget* parent, const SoundingTable& table)
{
    const int columns = static_cast<int>(table.columns.size());
    const int rows = std::min<int>(shownRows, static_cast<int>(table.rows.size()));
    auto* view = new QTableWidget(rows + 1, columns, parent);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->horizontalHeader()->hide();
    for (int column = 0; column < columns; ++column) {
        auto* choice = new QComboBox(view);
        for (const SoundingColumn kind : soundingColumns)
            choice->addItem(text(soundingColumnName(kind)));
        choice->setCurrentIndex(static_cast<int>(table.columns[static_cast<std::size_t>(column)]));
        view->setCellWidget(0, column, choice);
        view->setColumnWidth(column, 120);
    }
    for (int row = 0; row < rows; ++row) {
        const auto& cells = table.rows[static_cast<std::size_t>(row)];
        for (int column = 0; column < columns && column < static_cast<int>(cells.size()); ++column) {
            auto* item = new QTableWidgetItem(text(cells[static_cast<std::size_t>(column)]));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            view->setItem(row + 1, column, item);
        }
    }
    return view;
}

QString summaryOf(const SoundingTable& table)
{
    QStringList lines;
    lines += table.isGef ? QStringLiteral("Файл GEF, строк с числами: %1").arg(table.rows.size())
                         : QStringLiteral("Строк с числами: %1").arg(table.rows.size());
    if (!table.point.empty())
        lines += QStringLiteral("Точка в файле: %1").arg(text(table.point));
    for (const std::wstring& remark : table.remarks)
        lines += text(remark);
    lines += QStringLiteral("Назовите столбцы в первой строке. Отсчёты журнала будут заменены.");
    return lines.join(QLatin1Char('\n'));
}

} // namespace

std::optional<ImportedJournal> askColumns(QWidget* parent, const SoundingTable& table)
{
    QDialog dialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    dialog.setWindowTitle(QStringLiteral("Импорт зондирования"));
    dialog.resize(640, 480);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLabel(summaryOf(table), &dialog));
    QTableWidget* view = makeTable(&dialog, table);
    layout->addWidget(view, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Взять"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    std::vector<SoundingColumn> columns;
    columns.reserve(static_cast<std::size_t>(view->columnCount()));
    for (int column = 0; column < view->columnCount(); ++column)
        columns.push_back(static_cast<SoundingColumn>(
            static_cast<QComboBox*>(view->cellWidget(0, column))->currentIndex()));
    ImportedJournal imported{table.point, table.date, importedReadings(table, columns)};
    if (imported.readings.empty())
        throw MException(L"Ни один столбец не назван глубиной: взять нечего");
    return imported;
}

std::optional<ImportedJournal> askImport(QWidget* parent)
{
    const QString path = QFileDialog::getOpenFileName(parent,
        QStringLiteral("Файл зондирования"),
        lastFolder(QStringLiteral("import")),
        QStringLiteral("Зондирование (*.csv *.txt *.gef);;Все файлы (*)"));
    if (path.isEmpty())
        return std::nullopt;
    std::vector<std::uint8_t> bytes;
    if (const FileResult result = readFile(path.toStdWString(), bytes); !result)
        throw MException(L"Файл не читается: " + result.reason);
    keepFolder(QStringLiteral("import"), path);
    return askColumns(parent, readSoundingFile(bytes));
}
