#include "common/edit_grid.h"

#include "common/grid_delegate.h"
#include "common/view_settings.h"

#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QPainter>
#include <QSettings>
#include <QTimer>

#include <algorithm>
#include <initializer_list>

EditGrid::EditGrid(const QString& name, const QVector<GridColumn>& columns, QWidget* parent)
    : TableView(name, parent)
    , model_(new EditGridModel(columns, this))
{
    setSourceModel(model_);
    setDefaultWidths(name);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    auto* delegate = new GridDelegate(model_, this);
    setItemDelegate(delegate);
    connect(delegate, &GridDelegate::entered, this, &EditGrid::goOn);
    connect(model_, &EditGridModel::edited, this, &EditGrid::edited);
    if (model_->hasTallRows()) {
        setWordWrap(true);
        setVerticalScrollMode(ScrollPerPixel);
        // Once the columns have come to rest: the last one takes what the others leave.
        auto* rest = new QTimer(this);
        rest->setSingleShot(true);
        rest->setInterval(0);
        connect(rest, &QTimer::timeout, this, &EditGrid::fitRowHeights);
        connect(horizontalHeader(), &QHeaderView::sectionResized, rest, [rest] { rest->start(); });
        connect(horizontalHeader(), &QHeaderView::geometriesChanged, rest, [rest] { rest->start(); });
    }
}

void EditGrid::setDefaultWidths(const QString& name)
{
    const int last = model_->columns().size() - 1;
    const bool stretches = model_->columns()[last].kind == GridColumn::Text;
    horizontalHeader()->setStretchLastSection(stretches);
    if (viewSettings()->contains(QStringLiteral("widths/") + name))
        return;
    // No title is cut off, whatever the size of the system's letters.
    for (int column = 0; column <= (stretches ? last - 1 : last); ++column)
        setColumnWidth(
            column, qMax(model_->columns()[column].width, horizontalHeader()->sectionSizeHint(column)));
}

void EditGrid::fitRowHeights()
{
    if (model_->hasTallRows())
        resizeRowsToContents();
}

void EditGrid::setRows(const GridRows& rows)
{
    model_->setRows(rows);
    fitRowHeights();
    if (!currentIndex().isValid() && model()->rowCount() > 0)
        goTo(model()->index(0, firstEditableColumn()));
}

// An act that changes nothing is no undo step.
void EditGrid::submit(const GridRows& after)
{
    const GridRows& before = model_->rows();
    const bool same = std::equal(
        before.begin(), before.end(), after.begin(), after.end(), [](const GridRow& a, const GridRow& b) {
            return a.id == b.id && a.cells == b.cells;
        });
    if (!same)
        Q_EMIT edited(after);
}

void EditGrid::setEmptyText(const QString& text)
{
    emptyText_ = text;
    viewport()->update();
}

void EditGrid::setEditingAllowed(bool allowed)
{
    editingAllowed_ = allowed;
}

qint64 EditGrid::currentRow() const
{
    const QModelIndex source = sourceIndex(currentIndex());
    return source.isValid() ? model_->rows()[source.row()].id : 0;
}

void EditGrid::showRow(qint64 id, int column)
{
    const QModelIndex seen = seenIndex(model_->index(model_->rowOf(id), column));
    if (!seen.isValid())
        return;
    goTo(seen);
    scrollTo(seen);
}

// setCurrentIndex would look at the keys that happen to be held and keep the old selection under Ctrl.
void EditGrid::goTo(const QModelIndex& seen)
{
    selectionModel()->setCurrentIndex(seen, QItemSelectionModel::ClearAndSelect);
}

int EditGrid::firstEditableColumn() const
{
    for (int column = 0; column < model_->columns().size(); ++column)
        if (!model_->columns()[column].readOnly)
            return column;
    return 0;
}

bool EditGrid::isLastCell(const QModelIndex& seen) const
{
    for (int column = seen.column() + 1; column < model_->columns().size(); ++column)
        if (!model_->columns()[column].readOnly)
            return false;
    return seen.row() + 1 >= model()->rowCount();
}

void EditGrid::putCell(QVector<QString>& cells, int column, const QString& text) const
{
    if (column >= model_->columns().size() || model_->columns()[column].readOnly)
        return;
    const GridColumn& target = model_->columns()[column];
    cells.resize(model_->columns().size());
    cells[column] = target.kind == GridColumn::Choice ? fittedToChoices(target.choices, text)
        : target.kind == GridColumn::Flag             ? fittedToFlag(text)
                                                      : text;
}

QModelIndex EditGrid::topLeftOfSelection() const
{
    QModelIndex topLeft = currentIndex();
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    for (const QModelIndex& index : selected)
        topLeft = model()->index(qMin(topLeft.row(), index.row()), qMin(topLeft.column(), index.column()));
    return topLeft;
}

// Acts of the user

void EditGrid::addRow()
{
    if (!editingAllowed_)
        return;
    closeEditor();
    GridRows after = model_->rows();
    const GridRows before = after;
    const QModelIndex current = sourceIndex(currentIndex());
    const int place = current.isValid() ? current.row() + 1 : after.size();
    after.insert(place, GridRow{0, QVector<QString>(model_->columns().size())});
    submit(after);
    for (const GridRow& row : model_->rows()) {
        const bool isNew =
            std::none_of(before.begin(), before.end(), [&](const GridRow& old) { return old.id == row.id; });
        if (isNew)
            return showRow(row.id, firstEditableColumn());
    }
}

void EditGrid::deleteSelectedRows()
{
    QVector<int> doomed = selectedSourceRows();
    if (doomed.isEmpty() && currentIndex().isValid())
        doomed.append(sourceIndex(currentIndex()).row());
    if (doomed.isEmpty() || !editingAllowed_)
        return;
    std::sort(doomed.begin(), doomed.end());
    GridRows after;
    for (int row = 0; row < model_->rows().size(); ++row)
        if (!std::binary_search(doomed.begin(), doomed.end(), row))
            after.append(model_->rows()[row]);
    submit(after);
}

void EditGrid::cut()
{
    copySelection();
    clearSelectedCells();
}

void EditGrid::clearSelectedCells()
{
    fillSelection({});
}

void EditGrid::fillSelection(const QString& text)
{
    if (!editingAllowed_)
        return;
    GridRows after = model_->rows();
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    for (const QModelIndex& index : selected)
        putCell(after[sourceIndex(index).row()].cells, index.column(), text);
    submit(after);
}

void EditGrid::paste()
{
    const CellBlock block = cellsOfClipboard(QGuiApplication::clipboard()->text());
    if (block.isEmpty() || !editingAllowed_)
        return;
    closeEditor();
    const bool oneCell = block.size() == 1 && block.first().size() == 1;
    if (oneCell && selectionModel()->selectedIndexes().size() > 1)
        fillSelection(block.first().first());
    else
        pasteBlock(block);
}

void EditGrid::pasteBlock(const CellBlock& block)
{
    const QModelIndex topLeft = topLeftOfSelection();
    const int top = topLeft.isValid() ? topLeft.row() : 0;
    const int left = topLeft.isValid() ? topLeft.column() : firstEditableColumn();
    GridRows after = model_->rows();
    for (int i = 0; i < block.size(); ++i) {
        const QModelIndex seen = model()->index(top + i, 0);
        const int row = seen.isValid() ? sourceIndex(seen).row() : after.size();
        if (row == after.size())
            after.append(GridRow{0, QVector<QString>(model_->columns().size())});
        for (int j = 0; j < block[i].size(); ++j)
            putCell(after[row].cells, left + j, block[i][j]);
    }
    submit(after);
}

void EditGrid::toggleFlag()
{
    const QModelIndex source = sourceIndex(currentIndex());
    const bool isSet = !source.data(Qt::EditRole).toString().isEmpty();
    if (editingAllowed_)
        model_->setData(source, isSet ? QString() : QStringLiteral("1"), Qt::EditRole);
}

// The way through the cells

void EditGrid::closeEditor()
{
    if (state() != EditingState)
        return;
    if (QWidget* editor = indexWidget(currentIndex())) {
        commitData(editor);
        closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void EditGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool pastTheEnd = hint == QAbstractItemDelegate::EditNextItem && isLastCell(currentIndex());
    TableView::closeEditor(editor, pastTheEnd ? QAbstractItemDelegate::NoHint : hint);
    if (pastTheEnd)
        goOn();
}

// From the last cell of a row that holds something into a new one; an empty row is filled first.
void EditGrid::goOn()
{
    if (!isLastCell(currentIndex())) {
        goTo(moveCursor(MoveNext, Qt::NoModifier));
        return;
    }
    const QVector<QString>& cells = model_->rows()[sourceIndex(currentIndex()).row()].cells;
    if (std::any_of(cells.begin(), cells.end(), [](const QString& cell) { return !cell.isEmpty(); }))
        addRow();
}

void EditGrid::openOrGoOn()
{
    if (!currentIndex().isValid())
        return;
    if (editingAllowed_ && model()->flags(currentIndex()) & Qt::ItemIsEditable)
        edit(currentIndex());
    else
        goOn();
}

QModelIndex EditGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (action != MoveNext && action != MovePrevious)
        return TableView::moveCursor(action, modifiers);
    const int step = action == MoveNext ? 1 : -1;
    const int columns = model()->columnCount();
    const int end = model()->rowCount() * columns;
    int cell = currentIndex().row() * columns + currentIndex().column() + step;
    while (cell >= 0 && cell < end && model_->columns()[cell % columns].readOnly)
        cell += step;
    return cell >= 0 && cell < end ? model()->index(cell / columns, cell % columns) : currentIndex();
}

bool EditGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (!editingAllowed_ || !TableView::edit(index, trigger, event))
        return false;
    if (trigger == DoubleClicked)
        if (auto* box = qobject_cast<QComboBox*>(indexWidget(index)))
            box->showPopup();
    return true;
}

void EditGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    TableView::currentChanged(current, previous);
    Q_EMIT currentRowChanged(currentRow());
}

// Keys and menu

const QVector<EditGrid::Act>& EditGrid::acts()
{
    static const QVector<Act> table = {
        {QStringLiteral("Добавить строку"), QKeySequence(Qt::Key_Insert), &EditGrid::addRow},
        {QStringLiteral("Удалить строки"),
            QKeySequence(Qt::ControlModifier | Qt::Key_Delete),
            &EditGrid::deleteSelectedRows},
        {QString(), QKeySequence(), nullptr},
        {QStringLiteral("Вырезать"), QKeySequence(QKeySequence::Cut), &EditGrid::cut},
        {QStringLiteral("Копировать"), QKeySequence(QKeySequence::Copy), &EditGrid::copy},
        {QStringLiteral("Вставить"), QKeySequence(QKeySequence::Paste), &EditGrid::paste},
        {QStringLiteral("Очистить ячейки"), QKeySequence(Qt::Key_Delete), &EditGrid::clearSelectedCells},
    };
    return table;
}

void EditGrid::contextMenuEvent(QContextMenuEvent* event)
{
    if (!editingAllowed_)
        return;
    QMenu menu(this);
    for (const Act& act : acts()) {
        if (act.text.isEmpty())
            menu.addSeparator();
        else
            menu.addAction(act.text, this, act.run)->setShortcut(act.keys);
    }
    menu.exec(event->globalPos());
}

static bool isPlain(const QKeyEvent& event, std::initializer_list<int> keys)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    return held == Qt::NoModifier && std::find(keys.begin(), keys.end(), event.key()) != keys.end();
}

void EditGrid::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (event->matches(QKeySequence::Paste))
        return paste();
    if (event->matches(QKeySequence::Cut))
        return cut();
    const QKeySequence pressed(int(event->modifiers() & ~Qt::KeypadModifier) | event->key());
    for (const Act& act : acts())
        if (act.run && act.keys == pressed)
            return (this->*act.run)();
    if (isPlain(*event, {Qt::Key_Return, Qt::Key_Enter}))
        return openOrGoOn();
    const bool onFlag = currentIndex().isValid() && columnOf(currentIndex()).kind == GridColumn::Flag;
    if (onFlag && isPlain(*event, {Qt::Key_Space, Qt::Key_F2}))
        return toggleFlag();
    TableView::keyPressEvent(event);
}

void EditGrid::paintEvent(QPaintEvent* event)
{
    TableView::paintEvent(event);
    if (model()->rowCount() > 0 || emptyText_.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(QColor(0x70, 0x70, 0x70));
    painter.drawText(
        viewport()->rect().adjusted(16, 16, -16, -16), Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}
