#include "common/table_view.h"

#include "common/clipboard_text.h"
#include "common/view_settings.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

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
}

void TableView::setSourceModel(QAbstractItemModel* source)
{
    proxy_->setSourceModel(source);
    keepColumnWidths(horizontalHeader(), name_);
}

void TableView::sortByClick(int column)
{
    if (column != sortedColumn_) {
        sortedColumn_ = column;
        sortedOrder_ = Qt::AscendingOrder;
    } else if (sortedOrder_ == Qt::AscendingOrder) {
        sortedOrder_ = Qt::DescendingOrder;
    } else {
        sortedColumn_ = -1;
    }
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

void TableView::copySelection() const
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
    CellBlock block;
    for (int row = top; row <= bottom; ++row) {
        QVector<QString> cells;
        for (int column = left; column <= right; ++column) {
            const QModelIndex index = proxy_->index(row, column);
            const bool copied = selection.contains(index) && !isColumnHidden(column);
            cells.append(copied ? index.data(Qt::DisplayRole).toString() : QString());
        }
        block.append(cells);
    }
    QGuiApplication::clipboard()->setText(clipboardText(block));
}

void TableView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copySelection();
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}

void TableView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() != QEvent::StyleChange)
        return;
    for (int column = 0; column < horizontalHeader()->count(); ++column)
        if (!isColumnHidden(column))
            setColumnWidth(column, qMax(columnWidth(column), horizontalHeader()->sectionSizeHint(column)));
}
