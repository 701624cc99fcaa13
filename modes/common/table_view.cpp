#include "common/table_view.h"

#include "common/clipboard_text.h"
#include "common/column_widths.h"
#include "common/cursor_keys.h"
#include "common/export_dialog.h"
#include "common/typed_text.h"
#include "common/view_settings.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

QKeySequence exportKeys()
{
    return QKeySequence(Qt::ControlModifier | Qt::Key_E);
}

TableView::TableView(const QString& name, QWidget* parent)
    : QTableView(parent)
    , name_(name)
    , proxy_(new NumberSortProxy(this))
{
    QTableView::setModel(proxy_);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(true);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 9);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setStretchLastSection(true);
    // A press on a header sorts; it does not select the column as well.
    disconnect(horizontalHeader(), &QHeaderView::sectionPressed, this, nullptr);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &TableView::sortByClick);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &TableView::showRowHeads);
}

void TableView::setSourceModel(QAbstractItemModel* source)
{
    proxy_->setSourceModel(source);
    widths_ = new ColumnWidths(this, name_);
}

void TableView::setFilterText(const QString& text)
{
    proxy_->setFilterText(text);
    viewport()->update();
}

void TableView::setNameColumn(int column, int columns)
{
    nameColumn_ = column;
    nameColumns_ = columns;
    showRowHeads();
}

void TableView::showRowHeads()
{
    const bool isOut = nameColumn_ >= 0 && !isColumnHidden(nameColumn_)
        && columnViewportPosition(nameColumn_) + columnWidth(nameColumn_) / 2 < 0;
    proxy_->setRowHeads(isOut ? nameColumn_ : -1, nameColumns_);
}

void TableView::sortByClick(int column)
{
    if (column != sortedColumn_)
        sortBy(column, Qt::AscendingOrder);
    else if (sortedOrder_ == Qt::AscendingOrder)
        sortBy(column, Qt::DescendingOrder);
    else
        sortBy(-1, Qt::AscendingOrder);
}

void TableView::sortBy(int column, Qt::SortOrder order)
{
    sortedColumn_ = column;
    sortedOrder_ = order;
    horizontalHeader()->setSortIndicatorShown(sortedColumn_ >= 0);
    horizontalHeader()->setSortIndicator(qMax(sortedColumn_, 0), sortedOrder_);
    proxy_->sort(sortedColumn_, sortedOrder_);
}

QVector<int> TableView::selectedSourceRows() const
{
    QVector<int> rows;
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    for (const QModelIndex& index : selected)
        rows.append(sourceIndex(index).row());
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void TableView::copySelection(bool withHeads) const
{
    QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty() && currentIndex().isValid())
        selection.select(currentIndex(), currentIndex());
    if (selection.isEmpty())
        return;
    int top = selection.first().top();
    int bottom = selection.first().bottom();
    int left = selection.first().left();
    int right = selection.first().right();
    for (const QItemSelectionRange& range : qAsConst(selection)) {
        top = qMin(top, range.top());
        bottom = qMax(bottom, range.bottom());
        left = qMin(left, range.left());
        right = qMax(right, range.right());
    }
    // A block put back into a table of ours is what it was; other programs get the numbers as they take them.
    const bool comma = copiesDecimalComma();
    CellBlock exact;
    CellBlock forOthers;
    const auto isCopied = [&](int column) { return !isColumnHidden(column); };
    if (withHeads) {
        QVector<QString> heads;
        for (int column = left; column <= right; ++column)
            heads.append(!isCopied(column) ? QString()
                                           : proxy_->headerData(column, Qt::Horizontal, Qt::DisplayRole)
                                                 .toString()
                                                 .replace(QLatin1Char('\n'), QLatin1Char(' ')));
        forOthers.append(heads);
    }
    for (int row = top; row <= bottom; ++row) {
        if (proxy_->index(row, left).data(NumberSortProxy::SpareRole).toBool())
            continue;
        QVector<QString> cells;
        QVector<QString> shown;
        for (int column = left; column <= right; ++column) {
            const QModelIndex index = proxy_->index(row, column);
            const bool copied = selection.contains(index) && isCopied(column);
            cells.append(copied ? index.data(Qt::DisplayRole).toString() : QString());
            shown.append(comma && holdsNumbers(column) ? withDecimalComma(cells.last()) : cells.last());
        }
        exact.append(cells);
        forOthers.append(shown);
    }
    if (exact.isEmpty())
        return;
    auto* cells = new QMimeData;
    cells->setText(clipboardText(forOthers));
    // A single cell goes into a text as text.
    if (forOthers.size() > 1 || forOthers.front().size() > 1)
        cells->setHtml(clipboardHtml(forOthers));
    cells->setData(cellsMimeType, clipboardText(exact).toUtf8());
    QGuiApplication::clipboard()->setMimeData(cells);
}

QItemSelectionModel::SelectionFlags TableView::selectionCommand(
    const QModelIndex& index, const QEvent* event) const
{
    if (event && event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (movesCursor(key) && key.modifiers() & Qt::ControlModifier)
            return key.modifiers() & Qt::ShiftModifier ? QItemSelectionModel::SelectCurrent
                                                       : QItemSelectionModel::ClearAndSelect;
    }
    return QTableView::selectionCommand(index, event);
}

bool TableView::holdsNumbers(int column) const
{
    return proxy_->index(0, column).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight;
}

QString TableView::emptyMessage() const
{
    return proxy_->filterText().isEmpty() || proxy_->sourceModel()->rowCount() == 0
        ? QString()
        : QStringLiteral("По фильтру «%1» ничего не найдено.").arg(proxy_->filterText());
}

void TableView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    const int rows = proxy_->rowCount();
    const bool onlySpare = rows == 1 && proxy_->index(0, 0).data(NumberSortProxy::SpareRole).toBool();
    if (rows > 0 && !onlySpare)
        return;
    const QString message = emptyMessage();
    if (message.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(QColor(0x60, 0x60, 0x60));
    const int top = onlySpare ? rowHeight(0) : 0;
    painter.drawText(
        viewport()->rect().adjusted(16, 16 + top, -16, -16), Qt::AlignCenter | Qt::TextWordWrap, message);
}

void TableView::exportRows()
{
    exportTable(*this, accessibleName().isEmpty() ? QStringLiteral("Таблица") : accessibleName());
}

void TableView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.addAction(QStringLiteral("Копировать"), this, [this] { copySelection(); })
        ->setShortcut(QKeySequence(QKeySequence::Copy));
    menu.addAction(QStringLiteral("Копировать с заголовками"), this, [this] { copySelection(true); })
        ->setShortcut(QKeySequence(int(Qt::ControlModifier) | int(Qt::ShiftModifier) | Qt::Key_C));
    menu.addAction(QStringLiteral("Выделить всё"), this, &TableView::selectAll)
        ->setShortcut(QKeySequence(QKeySequence::SelectAll));
    menu.addSeparator();
    menu.addAction(QStringLiteral("Экспорт…"), this, &TableView::exportRows)->setShortcut(exportKeys());
    menu.exec(event->globalPos());
}

void TableView::keyPressEvent(QKeyEvent* event)
{
    if (exportKeys().matches(QKeySequence(int(event->modifiers()) | event->key()))
        == QKeySequence::ExactMatch) {
        exportRows();
        event->accept();
        return;
    }
    const bool withHeads =
        event->key() == Qt::Key_C && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    if (withHeads || event->matches(QKeySequence::Copy)) {
        copySelection(withHeads);
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void TableView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        makeRoomForTitles();
}

void TableView::setFirstWidth(int column, int width)
{
    widths_->setFirst(column, width);
}

void TableView::makeRoomForTitles(int first)
{
    if (widths_)
        widths_->makeRoomForTitles(first);
}
