// The way through the cells of an EditGrid: where the cursor goes, by which key, and what is committed on
// leaving.

#include "common/cursor_keys.h"
#include "common/edit_grid.h"
#include "common/grid_delegate.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <initializer_list>

// By the view and not by its selection: where a selection with Shift begins, only the view knows.
void EditGrid::goTo(const QModelIndex& seen)
{
    const QScopedValueRollback<bool> placing(placing_, true);
    if (seen.isValid())
        setCurrentIndex(seen);
}

QItemSelectionModel::SelectionFlags EditGrid::selectionCommand(
    const QModelIndex& index, const QEvent* event) const
{
    return placing_ ? QItemSelectionModel::ClearAndSelect : TableView::selectionCommand(index, event);
}

EditGrid::Place EditGrid::place() const
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return {};
    return {idAt(current.row()), idAt(current.row() - 1), idAt(current.row() + 1), current.column()};
}

EditGrid::Way EditGrid::wayOf(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Tab:
        return Way::Next;
    case Qt::Key_Backtab:
        return Way::Previous;
    case Qt::Key_Up:
        return Way::Up;
    case Qt::Key_Left:
        return Way::Left;
    case Qt::Key_Right:
        return Way::Right;
    case Qt::Key_Down:
        return Way::Down;
    default:
        return modifiers & Qt::ShiftModifier ? Way::Up : Way::Enter;
    }
}

void EditGrid::leaveEditor(QWidget* editor, int key, Qt::KeyboardModifiers modifiers)
{
    const Place from = place();
    created_ = 0;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    go(wayOf(key, modifiers), from);
}

void EditGrid::goDown(const Place& from, int column)
{
    // Whoever enters rows goes on in a new one, wherever the last one has been put.
    const bool isEntering = entered_ != 0 && (from.record == entered_ || from.record == 0);
    const QModelIndex below = cellOf(isEntering ? 0 : from.below, column);
    goTo(below.isValid() ? below : cellOf(from.record, column));
}

void EditGrid::goNext(const Place& from, const QModelIndex& cell)
{
    if (beganIn_ < 0)
        beganIn_ = from.column;
    if (const int column = nextColumn(cell, 1); column >= 0)
        return goTo(cell.siblingAtColumn(column));
    const QModelIndex before = currentIndex();
    goDown(from, firstEditableColumn());
    if (currentIndex().row() == before.row() && from.below < 0)
        goTo(cell); // the very end of a table that does not grow
    beganIn_ = firstEditableColumn();
}

QModelIndex EditGrid::lastCellOf(qint64 id) const
{
    const QModelIndex last = cellOf(id, model()->columnCount() - 1);
    return isOpenTo(last) ? last : last.siblingAtColumn(qMax(nextColumn(last, -1), 0));
}

// From the cell of a record that a commit may have moved, or that has just been made of the spare row.
void EditGrid::go(Way way, const Place& from)
{
    const QScopedValueRollback<bool> moving(moving_, true);
    const qint64 record = from.record == 0 && created_ != 0 ? created_ : from.record;
    const QModelIndex cell = cellOf(record, from.column);
    if (!cell.isValid())
        return;
    switch (way) {
    case Way::Enter:
        goDown(from, beganIn_ >= 0 ? beganIn_ : from.column);
        break;
    case Way::Down:
        goDown(from, from.column);
        break;
    case Way::Up:
        goTo(from.above >= 0 ? cellOf(from.above, from.column) : cell);
        break;
    case Way::Left:
        goTo(from.column > 0 ? cell.siblingAtColumn(from.column - 1) : cell);
        break;
    case Way::Right:
        goTo(from.column + 1 < model()->columnCount() ? cell.siblingAtColumn(from.column + 1) : cell);
        break;
    case Way::Next:
        goNext(from, cell);
        break;
    case Way::Previous:
        if (const int column = nextColumn(cell, -1); column >= 0)
            goTo(cell.siblingAtColumn(column));
        else if (from.above >= 0)
            goTo(lastCellOf(from.above));
        break;
    }
    created_ = 0;
    if (currentRow() != entered_)
        entered_ = 0;
    scrollTo(currentIndex());
}

void EditGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    TableView::currentChanged(current, previous);
    if (!moving_ && !submitting_) {
        beganIn_ = -1;
        if (currentRow() != entered_)
            entered_ = 0;
    }
    Q_EMIT currentRowChanged(currentRow());
    if (submitting_)
        return;
    const QString reason = current.data(EditGridModel::ReasonRole).toString();
    // A reason goes with its cell; what was said of the text just typed stands until the next step.
    if (!reason.isEmpty() || toldReason_ || (toldMending_ && !moving_))
        Q_EMIT told(QString(reason).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    toldReason_ = !reason.isEmpty();
    toldMending_ = toldMending_ && moving_ && reason.isEmpty();
}

void EditGrid::closeEditor()
{
    if (state() != EditingState)
        return;
    QWidget* editor = indexWidget(currentIndex());
    if (!editor)
        return;
    const Place from = place();
    created_ = 0;
    commitData(editor);
    closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (from.record == 0 && created_ != 0) {
        const QScopedValueRollback<bool> moving(moving_, true);
        goTo(cellOf(created_, from.column));
    }
}

void EditGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint)
{
    const bool isRevert = hint == QAbstractItemDelegate::RevertModelCache;
    TableView::closeEditor(editor, isRevert ? hint : QAbstractItemDelegate::NoHint);
    fitRowHeights();
}

bool EditGrid::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    delegate_->setOpenedByTyping(trigger == AnyKeyPressed);
    return editingAllowed_ && TableView::edit(index, trigger, event);
}

static bool isPlain(const QKeyEvent& event, std::initializer_list<int> keys)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    return held == Qt::NoModifier && std::find(keys.begin(), keys.end(), event.key()) != keys.end();
}

void EditGrid::endEntering()
{
    entered_ = 0;
    beganIn_ = -1;
}

void EditGrid::mousePressEvent(QMouseEvent* event)
{
    endEntering();
    if (state() != EditingState)
        return TableView::mousePressEvent(event);
    const QModelIndex under = indexAt(event->pos());
    const int column = under.column();
    const qint64 record = under.isValid() ? idAt(under.row()) : -1;
    const bool isSameRow = under.row() == currentIndex().row();
    closeEditor();
    endEntering();
    // What was typed may have moved the rows, and a new one is no longer the spare row.
    const QModelIndex meant = cellOf(isSameRow && record == 0 && created_ != 0 ? created_ : record, column);
    if (!meant.isValid() || meant == indexAt(event->pos()))
        return TableView::mousePressEvent(event);
    goTo(meant);
    scrollTo(meant);
}

void EditGrid::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (movesCursor(*event) && event->modifiers() & Qt::ControlModifier)
        endEntering();
    if (event->matches(QKeySequence::Paste))
        return paste();
    if (event->matches(QKeySequence::Cut))
        return cut();
    const Qt::KeyboardModifiers held = event->modifiers() & ~Qt::KeypadModifier;
    const QKeySequence pressed(int(held) | event->key());
    for (const Act& act : acts())
        if (act.run && act.keys == pressed)
            return (this->*act.run)();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isTab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if ((isEnter || isTab) && !(held & (Qt::ControlModifier | Qt::AltModifier))) {
        created_ = 0;
        return go(wayOf(event->key(), held), place());
    }
    const bool onFlag = currentIndex().isValid() && columnOf(currentIndex()).kind == GridColumn::Flag;
    if (onFlag && isPlain(*event, {Qt::Key_Space, Qt::Key_F2}))
        return toggleFlag();
    const QModelIndex before = currentIndex();
    TableView::keyPressEvent(event);
    // At the border too a key without Shift leaves nothing selected but its cell.
    if (movesCursor(*event) && !(held & Qt::ShiftModifier) && currentIndex() == before)
        goTo(before);
}
