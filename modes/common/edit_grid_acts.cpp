// What the keys and the menu of an EditGrid do to its rows.

#include "common/edit_grid.h"
#include "common/grid_delegate.h"
#include "common/replace_dialog.h"
#include "common/typed_text.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>

#include <algorithm>

void EditGrid::putCell(GridRow& row, int column, const QString& text, bool isSpare) const
{
    if (column < 0 || column >= model_->columns().size() || model_->columns()[column].readOnly
        || (!isSpare && column < 64 && (row.locked >> unsigned(column)) & 1U))
        return;
    const GridColumn& target = model_->columns()[column];
    row.cells.resize(model_->columns().size());
    row.cells[column] = target.kind == GridColumn::Choice ? fittedToChoices(target.choices, text)
        : target.kind == GridColumn::Flag                 ? fittedToFlag(text)
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

void EditGrid::addRow()
{
    if (!editingAllowed_ || !rowsGrow_)
        return;
    closeEditor();
    const QModelIndex current = sourceIndex(currentIndex());
    // The spare row is a new one already.
    if (!current.isValid() || model_->isSpare(current.row()))
        return goTo(cellOf(0, firstEditableColumn()));
    GridRows after = model_->rows();
    after.insert(current.row() + 1, newRow());
    submit(after);
    if (created_ == 0)
        return;
    const QScopedValueRollback<bool> moving(moving_, true);
    entered_ = created_;
    beganIn_ = firstEditableColumn();
    showRow(created_, firstEditableColumn());
}

void EditGrid::deleteSelectedRows()
{
    if (!editingAllowed_ || !rowsGrow_)
        return;
    closeEditor();
    QVector<int> doomed = selectedSourceRows();
    if (doomed.isEmpty() && currentIndex().isValid())
        doomed.append(sourceIndex(currentIndex()).row());
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

QVector<QModelIndex> EditGrid::seenCells(bool onlySelected) const
{
    QVector<QModelIndex> cells;
    for (int row = 0; row < model()->rowCount(); ++row) {
        if (idAt(row) <= 0)
            continue;
        for (int column = 0; column < model()->columnCount(); ++column) {
            const QModelIndex cell = model()->index(row, column);
            if (!isColumnHidden(column) && (!onlySelected || selectionModel()->isSelected(cell)))
                cells.append(cell);
        }
    }
    return cells;
}

void EditGrid::fillSelection(const QString& text)
{
    if (!editingAllowed_)
        return;
    GridRows after = model_->rows();
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    for (const QModelIndex& index : selected)
        if (const int row = sourceIndex(index).row(); !model_->isSpare(row))
            putCell(after[row], index.column(), text);
    submit(after);
}

// The top cell of the selection in each column goes into those below it; of a single cell the one above it.
void EditGrid::fillDown()
{
    if (!editingAllowed_ || !currentIndex().isValid())
        return;
    closeEditor();
    GridRows after = model_->rows();
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    QVector<int> top(model()->columnCount(), model()->rowCount());
    for (const QModelIndex& index : selected)
        top[index.column()] = qMin(top[index.column()], index.row());
    const bool isOneRow = std::all_of(selected.begin(), selected.end(), [&](const QModelIndex& index) {
        return index.row() == selected.first().row();
    });
    for (const QModelIndex& index : selected) {
        const int row = sourceIndex(index).row();
        const int from = isOneRow ? index.row() - 1 : top[index.column()];
        if (from < 0 || from == index.row() || (model_->isSpare(row) && !isOneRow))
            continue;
        if (row == after.size())
            after.append(newRow());
        putCell(after[row],
            index.column(),
            model()->index(from, index.column()).data(Qt::EditRole).toString(),
            model_->isSpare(row));
    }
    const bool wasSpare = idAt(currentIndex().row()) == 0;
    const int column = currentIndex().column();
    submit(after);
    if (wasSpare && created_ != 0) {
        const QScopedValueRollback<bool> moving(moving_, true);
        entered_ = created_;
        goTo(cellOf(created_, column));
    }
}

void EditGrid::replace()
{
    if (!editingAllowed_)
        return;
    closeEditor();
    const auto searched = [&](bool onlySelected) {
        QVector<SearchedCell> cells;
        for (const QModelIndex& seen : seenCells(onlySelected)) {
            const GridColumn& column = columnOf(seen);
            if (!isOpenTo(seen) || column.kind == GridColumn::Flag)
                continue;
            const QString place =
                QStringLiteral("строка %1, «%2»")
                    .arg(seen.row() + 1)
                    .arg(QString(column.title).replace(QLatin1Char('\n'), QLatin1Char(' ')));
            cells.append({sourceIndex(seen).row(), seen.column(), place, seen.data(Qt::EditRole).toString()});
        }
        return cells;
    };
    const bool isBlock = selectionModel()->selectedIndexes().size() > 1;
    ReplaceDialog dialog(searched(false), isBlock ? searched(true) : QVector<SearchedCell>(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    GridRows after = model_->rows();
    for (const SearchedCell& cell : dialog.replacements())
        if (cell.row < after.size())
            putCell(after[cell.row], cell.column, cell.replaced);
    submit(after);
    Q_EMIT told(QStringLiteral("Заменено ячеек: %1.").arg(dialog.replacements().size()));
}

void EditGrid::paste()
{
    const CellBlock block = cellsOnClipboard();
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
    // Whole rows keep their columns, wherever the cursor is.
    const bool isWhole = std::all_of(block.begin(), block.end(), [&](const QVector<QString>& cells) {
        return cells.size() == model_->columns().size();
    });
    const int left = isWhole ? 0 : topLeft.isValid() ? topLeft.column() : firstEditableColumn();
    GridRows after = model_->rows();
    for (int i = 0; i < block.size(); ++i) {
        const QModelIndex seen = model()->index(top + i, 0);
        const bool isNew = !seen.isValid() || idAt(seen.row()) <= 0;
        if (isNew && !rowsGrow_)
            break;
        const int row = isNew ? after.size() : sourceIndex(seen).row();
        if (isNew)
            after.append(newRow());
        for (int j = 0; j < block[i].size(); ++j)
            putCell(after[row], left + j, block[i][j], isNew);
    }
    const bool wasSpare = idAt(top) <= 0;
    const int column = qMax(currentIndex().column(), 0);
    submit(after);
    if (wasSpare && created_ != 0) {
        endEntering();
        const QScopedValueRollback<bool> moving(moving_, true); // what was said of the block stays
        goTo(cellOf(created_, column));
    }
}

void EditGrid::toggleFlag()
{
    if (!editingAllowed_ || !isOpenTo(currentIndex()))
        return;
    const Place from = place();
    const bool isSet = !currentIndex().data(Qt::EditRole).toString().isEmpty();
    created_ = 0;
    model_->setData(sourceIndex(currentIndex()), isSet ? QString() : QStringLiteral("1"), Qt::EditRole);
    if (from.record == 0 && created_ != 0) {
        const QScopedValueRollback<bool> moving(moving_, true);
        goTo(cellOf(created_, from.column));
    }
}

void EditGrid::writeForFile(const QModelIndex& seen)
{
    GridRows after = model_->rows();
    putCell(after[sourceIndex(seen).row()], seen.column(), textForFile(seen.data(Qt::EditRole).toString()));
    submit(after);
}

const QVector<EditGrid::Act>& EditGrid::acts()
{
    const auto control = [](int key) { return QKeySequence(int(Qt::ControlModifier) | key); };
    static const QVector<Act> table = {
        {QStringLiteral("Добавить строку"), QKeySequence(Qt::Key_Insert), &EditGrid::addRow},
        {QStringLiteral("Удалить строки"), control(Qt::Key_Delete), &EditGrid::deleteSelectedRows},
        {QString(), QKeySequence(), nullptr},
        {QStringLiteral("Вырезать"), QKeySequence(QKeySequence::Cut), &EditGrid::cut},
        {QStringLiteral("Копировать"), QKeySequence(QKeySequence::Copy), &EditGrid::copy},
        {QStringLiteral("Копировать с заголовками"),
            control(int(Qt::ShiftModifier) | Qt::Key_C),
            &EditGrid::copyWithHeads},
        {QStringLiteral("Вставить"), QKeySequence(QKeySequence::Paste), &EditGrid::paste},
        {QStringLiteral("Очистить ячейки"), QKeySequence(Qt::Key_Delete), &EditGrid::clearSelectedCells},
        {QString(), QKeySequence(), nullptr},
        {QStringLiteral("Заполнить вниз"), control(Qt::Key_D), &EditGrid::fillDown},
        {QStringLiteral("Заменить…"), control(Qt::Key_H), &EditGrid::replace},
        {QString(), QKeySequence(), nullptr},
        {QStringLiteral("Экспорт…"), exportKeys(), &EditGrid::exportAll},
    };
    return table;
}

void EditGrid::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    if (!editingAllowed_) {
        menu.addAction(QStringLiteral("Копировать"), this, &EditGrid::copy);
        menu.addAction(QStringLiteral("Копировать с заголовками"), this, &EditGrid::copyWithHeads);
        menu.addAction(QStringLiteral("Экспорт…"), this, &EditGrid::exportAll);
        menu.exec(event->globalPos());
        return;
    }
    const QModelIndex current = currentIndex();
    const QString text = current.data(Qt::EditRole).toString();
    if (current.isValid() && isOpenTo(current) && textForFile(text) != text) {
        menu.addAction(QStringLiteral("Заменить на «%1»").arg(textForFile(text).left(60)),
            this,
            [this, current] { writeForFile(current); });
        menu.addSeparator();
    }
    for (const Act& act : acts()) {
        if (act.text.isEmpty())
            menu.addSeparator();
        else
            menu.addAction(act.text, this, act.run)->setShortcut(act.keys);
    }
    menu.exec(event->globalPos());
}

void EditGrid::showHeadMenu(const QPoint& at)
{
    const int column = horizontalHeader()->logicalIndexAt(at);
    if (column < 0)
        return;
    QMenu menu(this);
    menu.addAction(QStringLiteral("Сортировать по возрастанию"), this, [this, column] {
        sortBy(column, Qt::AscendingOrder);
    });
    menu.addAction(QStringLiteral("Сортировать по убыванию"), this, [this, column] {
        sortBy(column, Qt::DescendingOrder);
    });
    menu.addAction(QStringLiteral("В порядке проекта"), this, [this] { sortBy(-1, Qt::AscendingOrder); });
    menu.exec(horizontalHeader()->viewport()->mapToGlobal(at));
}
