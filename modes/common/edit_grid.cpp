#include "common/edit_grid.h"

#include "common/grid_delegate.h"
#include "common/typed_text.h"

#include <QHash>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTimer>

EditGrid::EditGrid(const QString& name, const QVector<GridColumn>& columns, QWidget* parent)
    : TableView(name, parent)
    , model_(new EditGridModel(columns, this))
    , delegate_(new GridDelegate(model_, this))
{
    // A last column of text takes the width that the others leave, so none is remembered for it.
    horizontalHeader()->setStretchLastSection(columns.last().kind == GridColumn::Text);
    setSourceModel(model_);
    setDefaultWidths();
    letLinesTakeTheRest();
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setItemDelegate(delegate_);
    connect(delegate_, &GridDelegate::left, this, &EditGrid::leaveEditor);
    // A click that no cell gets, beside the rows or on a scroll bar.
    connect(
        delegate_, &GridDelegate::leftByMouse, this, [this] { closeEditor(); }, Qt::QueuedConnection);
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

void EditGrid::setDefaultWidths()
{
    const int count = model_->columns().size() - (horizontalHeader()->stretchLastSection() ? 1 : 0);
    // Where the others leave nothing, the last column still needs the room for its title.
    makeRoomForTitles(count);
    for (int column = 0; column < count; ++column)
        setFirstWidth(column, model_->columns()[column].width);
}

// A press on a head chooses the column, as in every spreadsheet.
void EditGrid::connectHeads()
{
    QHeaderView* heads = horizontalHeader();
    disconnect(heads, &QHeaderView::sectionClicked, this, nullptr);
    connect(heads, &QHeaderView::sectionPressed, this, [this](int column) {
        closeEditor();
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
    if (!model_->hasTallRows())
        return;
    const bool wasSeen = viewport()->rect().intersects(visualRect(currentIndex()));
    resizeRowsToContents();
    // The rows below are moved at once, and not when the event loop comes to it: an editor opens there.
    updateGeometries();
    if (wasSeen)
        scrollTo(currentIndex());
}

void EditGrid::showSpareRow()
{
    model_->setSpareRow(editingAllowed_ && rowsGrow_);
}

void EditGrid::setRows(const GridRows& rows)
{
    const bool wasEmpty = model_->rows().isEmpty();
    const int rowsBefore = model_->rows().size();
    const QModelIndex before = currentIndex();
    QVector<qint64> fromHere; // records, from the current one on, and the spare row
    for (int row = qMax(before.row(), 0); before.isValid() && row < model()->rowCount(); ++row)
        fromHere.append(idAt(row));
    const int column = before.column();
    model_->setRows(rows);
    // Where the current row is deleted, the next one has its place, and not the one above: who deletes once
    // more means that.
    if (!fromHere.isEmpty() && currentIndex().isValid() && !cellOf(fromHere.first(), column).isValid())
        for (const qint64 id : qAsConst(fromHere))
            if (const QModelIndex next = cellOf(id, column); next.isValid()) {
                goTo(next);
                break;
            }
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
        toldMending_ = true;
        toldReason_ = false;
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
