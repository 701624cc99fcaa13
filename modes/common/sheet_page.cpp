#include "common/sheet_page.h"

#include "common/empty_state.h"
#include "common/sheet_model.h"
#include "common/table_view.h"
#include "common/view_settings.h"

#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QSettings>
#include <QSplitter>
#include <QStackedLayout>
#include <QStyledItemDelegate>

namespace
{

// Rows are one line high; a text with line breaks stands in it as one line.
class OneLineDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QString displayText(const QVariant& value, const QLocale&) const override
    {
        return value.toString().simplified();
    }
};

QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

QString settingsName(const Table& sheet)
{
    return QString::fromLatin1(sheet.name.data(), static_cast<int>(sheet.name.size()));
}

void setDefaultWidths(TableView* table, const Table& sheet)
{
    const QHeaderView* header = table->horizontalHeader();
    const int digit = table->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < header->count(); ++column) {
        const int wanted = digit * (sheet.columns[static_cast<std::size_t>(column)].width + 1);
        table->setFirstWidth(column, wanted);
    }
    // A number at the far edge of the screen has nothing to do with its row any more.
    table->horizontalHeader()->setStretchLastSection(sheet.columns.back().kind == TableColumn::Text);
}

TableView* makeTable(const Table& sheet, SheetModel* model, QWidget* parent)
{
    auto* table = new TableView(settingsName(sheet), parent);
    table->setObjectName(settingsName(sheet));
    table->setAccessibleName(sheet.title.empty() ? QStringLiteral("Таблица") : fromWide(sheet.title));
    table->setSourceModel(model);
    table->setItemDelegate(new OneLineDelegate(table));
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Nothing is typed here, so Tab goes on to the next part of the screen; the arrows move in the table.
    table->setTabKeyNavigation(false);
    setDefaultWidths(table, sheet);
    // What a row is about stands first; a wide sheet is read with it in view.
    table->setNameColumn(0);
    return table;
}

void keepPosition(QSplitter* splitter, const QString& name)
{
    const QString key = QStringLiteral("splitters/") + name;
    splitter->restoreState(viewSettings()->value(key).toByteArray());
    QObject::connect(splitter, &QSplitter::splitterMoved, splitter, [splitter, key] {
        viewSettings()->setValue(key, splitter->saveState());
    });
}

} // namespace

QPalette quietPalette(const QPalette& palette)
{
    const QColor& text = palette.color(QPalette::WindowText);
    const QColor& ground = palette.color(QPalette::Window);
    const auto blend = [](int a, int b) { return (a * 13 + b * 7) / 20; };
    QPalette quiet = palette;
    quiet.setColor(QPalette::WindowText,
        QColor(blend(text.red(), ground.red()),
            blend(text.green(), ground.green()),
            blend(text.blue(), ground.blue())));
    return quiet;
}

SheetPage::SheetPage(const Table& sheet,
    Source source,
    const QString& picture,
    const MakeDrawing& makeDrawing,
    QWidget* parent)
    : QWidget(parent)
    , sheet_(sheet)
    , source_(std::move(source))
    , model_(new SheetModel(sheet.columns, this))
    , table_(makeTable(sheet, model_, this))
    , message_(new EmptyState(picture, this))
    , stack_(new QStackedLayout(this))
{
    stack_->setContentsMargins(0, 0, 0, 0);
    stack_->addWidget(message_);
    QWidget* tables = makeContent();
    stack_->addWidget(makeDrawing ? besideDrawing(tables, makeDrawing) : tables);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &SheetPage::readChosen);
}

QWidget* SheetPage::makeContent()
{
    if (!sheet_.detail)
        return table_;
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(table_);
    splitter->addWidget(makeDetail());
    splitter->setSizes({400, 600});
    keepPosition(splitter, settingsName(sheet_));
    return splitter;
}

QWidget* SheetPage::besideDrawing(QWidget* tables, const MakeDrawing& makeDrawing)
{
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setChildrenCollapsible(false);
    drawing_ = makeDrawing(splitter);
    splitter->addWidget(tables);
    splitter->addWidget(drawing_.view);
    splitter->setSizes({450, 550});
    keepPosition(splitter, settingsName(sheet_) + QStringLiteral("/drawing"));
    return splitter;
}

QWidget* SheetPage::makeDetail()
{
    auto* detail = new QWidget(this);
    auto* layout = new QVBoxLayout(detail);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->setSpacing(4);
    detailTitle_ = new QLabel(detail);
    QFont bold = detailTitle_->font();
    bold.setBold(true);
    detailTitle_->setFont(bold);
    detailModel_ = new SheetModel(sheet_.detail->columns, this);
    layout->addWidget(detailTitle_);
    layout->addWidget(makeTable(*sheet_.detail, detailModel_, detail));
    return detail;
}

void SheetPage::read()
{
    const std::optional<TableSource> source = source_();
    keepingPlace([&] {
        return model_->setRows(
            source ? rowsOf(sheet_, *source, model_->rows()) : TextRows(sheet_.columns.size()));
    });
    hideEmptyColumns();
    showState();
}

void SheetPage::setFilterText(const QString& text)
{
    keepingPlace([&] { return model_->setFilterText(text); });
    showState();
}

void SheetPage::keepingPlace(const std::function<bool()>& change)
{
    const int row = table_->currentIndex().row();
    const int column = qMax(0, table_->currentIndex().column());
    const int scroll = table_->verticalScrollBar()->value();
    if (!change())
        return;
    table_->setCurrentIndex(table_->model()->index(qBound(0, row, qMax(0, shownRows() - 1)), column));
    table_->verticalScrollBar()->setValue(scroll);
}

void SheetPage::hideEmptyColumns()
{
    for (std::size_t column = 0; column < sheet_.columns.size(); ++column)
        if (sheet_.columns[column].onlyWhenFilled)
            table_->setColumnHidden(static_cast<int>(column), model_->rows().isColumnEmpty(column));
}

void SheetPage::showState()
{
    if (!source_())
        message_->say(QStringLiteral("Проект не открыт."),
            QStringLiteral("Откройте проект, чтобы увидеть его данные."));
    else if (allRows() == 0)
        message_->say(fromWide(sheet_.whenEmpty), fromWide(sheet_.whatToDo));
    else
        message_->say(QStringLiteral("Ничего не найдено."),
            QStringLiteral("Измените слова в строке фильтра; Esc в ней показывает все строки."));
    stack_->setCurrentIndex(shownRows() > 0 ? 1 : 0);
    readChosen();
    Q_EMIT rowsChanged();
}

void SheetPage::readChosen()
{
    if (!detailModel_ && !drawing_.view)
        return;
    const QModelIndex current = table_->sourceIndex(table_->currentIndex());
    const QString first = current.isValid() ? fromWide(model_->cell(current.siblingAtColumn(0))) : QString();
    const std::wstring chosen = first.toStdWString();
    std::optional<TableSource> source = current.isValid() ? source_() : std::nullopt;
    if (source)
        source->chosen = chosen;
    if (detailModel_)
        readDetail(source);
    if (drawing_.view)
        drawing_.show(source);
}

void SheetPage::readDetail(const std::optional<TableSource>& source)
{
    TextRows rows = source ? rowsOf(*sheet_.detail, *source) : TextRows(sheet_.detail->columns.size());
    const QString title = fromWide(sheet_.detail->title);
    const QString chosen = source ? fromWide(source->chosen) : QString();
    detailTitle_->setText(!source ? title
            : rows.size() == 0    ? chosen + QStringLiteral(": ") + fromWide(sheet_.detail->whenEmpty)
                                  : title + QStringLiteral(": ") + chosen);
    detailModel_->setRows(std::move(rows));
}

int SheetPage::shownRows() const
{
    return model_->rowCount();
}

int SheetPage::allRows() const
{
    return static_cast<int>(model_->rows().size());
}

void SheetPage::exportRows()
{
    table_->exportRows();
}

void SheetPage::focusTable()
{
    if (shownRows() == 0)
        return;
    if (!table_->currentIndex().isValid())
        table_->setCurrentIndex(table_->model()->index(0, 0));
    table_->setFocus();
}
