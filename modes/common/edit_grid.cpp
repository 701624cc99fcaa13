#include "common/edit_grid.h"

#include "common/cursor_keys.h"
#include "common/grid_delegate.h"
#include "common/typed_text.h"
#include "common/view_settings.h"

#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSettings>
#include <QTimer>

#include <algorithm>
#include <initializer_list>

EditGrid::EditGrid(const QString& name, const QVector<GridColumn>& columns, QWidget* parent)
    : TableView(name, parent)
    , model_(new EditGridModel(columns, this))
    , delegate_(new GridDelegate(model_, this))
{
    // A last column of text takes the width that the others leave, so none is remembered for it.
    horizontalHeader()->setStretchLastSection(columns.last().kind == GridColumn::Text);
    setSourceModel(model_);
    setDefaultWidths(name);
    letLinesTakeTheRest();
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setItemDelegate(delegate_);
    connect(delegate_, &GridDelegate::left, this, &EditGrid::leaveEditor);
    connect(model_, &EditGridModel::typed, this, &EditGrid::enterText);
    connectHeads();
    showSpareRow();
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

// A column of many lines that stands before the last takes what the others leave too, but never less than its
// lines need to be read: then the table is scrolled.
void EditGrid::letLinesTakeTheRest()
{
    constexpr int least = 160;
    QHeaderView* header = horizontalHeader();
    for (int column = 0; column + 1 < model_->columns().size(); ++column) {
        if (!model_->columns()[column].multiline)
            continue;
        const int others = header->length() - header->sectionSize(column);
        const bool isRoom = viewport()->width() - others >= least;
        header->setSectionResizeMode(column, isRoom ? QHeaderView::Stretch : QHeaderView::Fixed);
        if (!isRoom)
            header->resizeSection(column, least);
    }
}

void EditGrid::resizeEvent(QResizeEvent* event)
{
    TableView::resizeEvent(event);
    letLinesTakeTheRest();
}

void EditGrid::setDefaultWidths(const QString& name)
{
    const int count = model_->columns().size() - (horizontalHeader()->stretchLastSection() ? 1 : 0);
    // Where the others leave nothing, the last column still needs the room for its title.
    makeRoomForTitles(count);
    if (viewSettings()->contains(QStringLiteral("widths/") + name))
        return;
    // No title is cut off, whatever the size of the system's letters.
    for (int column = 0; column < count; ++column)
        setColumnWidth(column, model_->columns()[column].width);
    makeRoomForTitles();
}

// A press on a head chooses the column, as in every spreadsheet.
void EditGrid::connectHeads()
{
    QHeaderView* heads = horizontalHeader();
    disconnect(heads, &QHeaderView::sectionClicked, this, nullptr);
    connect(heads, &QHeaderView::sectionPressed, this, [this](int column) {
        setFocus();
        selectColumn(column);
    });
    connect(heads, &QHeaderView::sectionDoubleClicked, this, &EditGrid::sortByClick);
    heads->setToolTip(QStringLiteral("Щелчок выбирает столбец, двойной — сортирует по нему."));
    heads->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(heads, &QWidget::customContextMenuRequested, this, &EditGrid::showHeadMenu);
}

void EditGrid::fitRowHeights()
{
    if (model_->hasTallRows())
        resizeRowsToContents();
}

void EditGrid::showSpareRow()
{
    model_->setSpareRow(editingAllowed_ && rowsGrow_);
}

void EditGrid::setRows(const GridRows& rows)
{
    const bool wasEmpty = model_->rows().isEmpty();
    const int rowsBefore = model_->rows().size();
    model_->setRows(rows);
    if (sortedColumn() >= 0 && rows.size() > rowsBefore)
        proxy()->sort(sortedColumn(), proxy()->sortOrder());
    fitRowHeights();
    const bool isNewTable = !submitting_ && wasEmpty && !rows.isEmpty();
    if ((isNewTable || !currentIndex().isValid()) && model()->rowCount() > 0)
        goTo(model()->index(0, firstEditableColumn()));
}

void EditGrid::setEmptyText(const QString& text)
{
    emptyText_ = text;
    viewport()->update();
}

QString EditGrid::emptyMessage() const
{
    const QString message = TableView::emptyMessage();
    return !message.isEmpty() || !model_->rows().isEmpty() ? message : emptyText_;
}

bool EditGrid::holdsNumbers(int column) const
{
    return model_->columns()[column].kind == GridColumn::Number;
}

void EditGrid::setEditingAllowed(bool allowed)
{
    editingAllowed_ = allowed;
    showSpareRow();
}

void EditGrid::setRowsGrow(bool grow)
{
    rowsGrow_ = grow;
    showSpareRow();
}

qint64 EditGrid::currentRow() const
{
    return qMax<qint64>(idAt(currentIndex().row()), 0);
}

void EditGrid::showRow(qint64 id, int column)
{
    if (model_->rowOf(id) < 0)
        return;
    proxy()->keepInView({id});
    const QModelIndex seen = cellOf(id, column);
    goTo(seen);
    scrollTo(seen);
}

qint64 EditGrid::idAt(int seenRow) const
{
    const QModelIndex first = model()->index(seenRow, 0);
    return first.isValid() ? first.data(NumberSortProxy::RowIdRole).toLongLong() : -1;
}

QModelIndex EditGrid::cellOf(qint64 id, int column) const
{
    if (id < 0)
        return {};
    if (id == 0)
        return model_->hasSpareRow() ? seenIndex(model_->index(model_->rows().size(), column))
                                     : QModelIndex();
    return seenIndex(model_->index(model_->rowOf(id), column));
}

bool EditGrid::isOpenTo(const QModelIndex& seen) const
{
    return !model_->isLocked(sourceIndex(seen).row(), seen.column()) && !isColumnHidden(seen.column());
}

int EditGrid::firstEditableColumn() const
{
    for (int column = 0; column < model_->columns().size(); ++column)
        if (!model_->columns()[column].readOnly && !isColumnHidden(column))
            return column;
    return 0;
}

// In the row of this cell; -1 where there is none on this side.
int EditGrid::nextColumn(const QModelIndex& from, int step) const
{
    int column = from.column() + step;
    while (column >= 0 && column < model_->columns().size() && !isOpenTo(from.siblingAtColumn(column)))
        column += step;
    return column < model_->columns().size() ? column : -1;
}

// What the user typed and pasted

void EditGrid::enterText(int row, int column, const QString& text)
{
    GridRows after = model_->rows();
    const bool isSpare = row == after.size();
    if (isSpare)
        after.append(newRow());
    after[row].cells.resize(model_->columns().size());
    after[row].cells[column] = text;
    submit(after);
    if (isSpare && created_ != 0)
        entered_ = created_;
}

// By the ids of what was there before; -1 for a new row.
static QVector<int> formerPlaces(const GridRows& before, const GridRows& after)
{
    QHash<qint64, int> places;
    for (int row = 0; row < before.size(); ++row)
        places.insert(before[row].id, row);
    QVector<int> former;
    for (const GridRow& row : after)
        former.append(row.id == 0 ? -1 : places.value(row.id, -1));
    return former;
}

// Only what the user has just put there: a comma that an opened file holds stays until he has it mended.
bool EditGrid::mendRow(GridRow& row, const QVector<QString>& before) const
{
    bool isMended = false;
    for (int column = 0; column < qMin(row.cells.size(), model_->columns().size()); ++column) {
        const QString typed = qAsConst(row).cells[column];
        if (model_->columns()[column].kind != GridColumn::Number || typed == before.value(column))
            continue;
        if (const QString number = mendedNumber(typed); number != typed) {
            row.cells[column] = number;
            isMended = true;
        }
    }
    return isMended;
}

// An act that changes nothing is no undo step.
void EditGrid::submit(const GridRows& typed)
{
    created_ = 0;
    const GridRows before = model_->rows();
    const QVector<int> former = formerPlaces(before, typed);
    GridRows after = typed;
    QSet<qint64> touched;
    bool isMended = false;
    for (int i = 0; i < typed.size(); ++i) {
        const QVector<QString> old = former[i] < 0 ? QVector<QString>() : before[former[i]].cells;
        if (former[i] >= 0 && (old == typed[i].cells))
            continue;
        touched.insert(typed[i].id);
        isMended = mendRow(after[i], old) || isMended;
    }
    if (touched.isEmpty() && typed.size() == before.size())
        return;
    proxy()->keepInView(touched);
    const QScopedValueRollback<bool> submitting(submitting_, true);
    // Whoever takes the rows may have graver things to say.
    if (isMended) {
        toldOfCell_ = true;
        Q_EMIT told(QStringLiteral("Запятая в числе заменена точкой (Ctrl+Z вернёт)."));
    }
    asTyped_ = isMended ? typed : GridRows();
    Q_EMIT edited(after);
    asTyped_.clear();
    noteCreated(before);
}

void EditGrid::noteCreated(const GridRows& before)
{
    QSet<qint64> known;
    for (const GridRow& row : before)
        known.insert(row.id);
    QSet<qint64> created;
    for (const GridRow& row : model_->rows())
        if (!known.contains(row.id)) {
            created_ = created_ != 0 ? created_ : row.id;
            created.insert(row.id);
        }
    proxy()->keepInView(created);
}

// The way through the cells

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
    if (!reason.isEmpty() || (toldOfCell_ && !moving_))
        Q_EMIT told(QString(reason).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    toldOfCell_ = !reason.isEmpty() || (toldOfCell_ && moving_);
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
    TableView::mousePressEvent(event);
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
