#include "listCoords/list_coords.h"

#include "common/edit_grid.h"
#include "common/exchange_command.h"
#include "common/export_dialog.h"
#include "common/filter_keys.h"
#include "common/notice_bar.h"
#include "common/number_sort_proxy.h"
#include "common/typed_text.h"
#include "common/view_settings.h"
#include "core/base/reference.h"
#include "listCoords/head_panel.h"
#include "listCoords/name_dialog.h"
#include "listCoords/plan_pane.h"
#include "listCoords/questions.h"
#include "modules/itx_undo_redo.h"
#include "reports/coordinates_report.h"

#include <QApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QScopeGuard>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

ListCoords::ListCoords(TX_Modes mode, ITellurixController* controller)
    : ModeScreen(mode, controller)
    , head_(new HeadPanel(controller->settings(), this))
    , grid_(new EditGrid(QStringLiteral("listCoords/points"), pointColumns()))
    , pane_(new PlanPane)
    , commas_(new NoticeBar(QStringLiteral("Исправить")))
{
    grid_->setAccessibleName(QStringLiteral("Ведомость координат"));
    grid_->setNameColumn(PointNameColumn);
    auto* splitter = new QSplitter(Qt::Horizontal);
    splitter->addWidget(makeTablePane());
    splitter->addWidget(pane_);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    layout->addWidget(head_);
    layout->addWidget(splitter, 1);
    keepSplitter(splitter, QStringLiteral("listCoords"), {620, 380});
    setFocusProxy(grid_);

    connectViews();
    readIfStale();
}

void ListCoords::connectViews()
{
    connect(grid_, &EditGrid::edited, this, &ListCoords::edit);
    connect(grid_, &EditGrid::told, this, [this](const QString& text) {
        say(text.isEmpty() ? QStringLiteral("Готово.") : text);
    });
    connect(commas_, &NoticeBar::remedyWanted, this, &ListCoords::mendNumbers);
    connect(grid_, &EditGrid::currentRowChanged, this, [this](qint64 id) { pane_->plan().setCurrent(id); });
    connect(grid_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ListCoords::showAccess);
    connect(&pane_->plan(), &PointPlan::pointChosen, this, [this](qint64 id) { grid_->showRow(id); });
    connect(head_, &HeadPanel::edited, this, &ListCoords::editHead);
    connect(head_, &HeadPanel::nameWanted, this, &ListCoords::askName);
}

// A line or cell that has the focus still reports its text while it goes; by then this screen is gone.
ListCoords::~ListCoords()
{
    head_->disconnect(this);
    grid_->disconnect(this);
    grid_->selectionModel()->disconnect(this);
}

QWidget* ListCoords::makeTablePane()
{
    auto* filter = new QLineEdit;
    filter->setPlaceholderText(QStringLiteral("Фильтр по всем столбцам"));
    filter->setAccessibleName(QStringLiteral("Фильтр"));
    filter->setClearButtonEnabled(true);
    filter->setObjectName(QStringLiteral("pointFilter"));
    filter->setToolTip(QStringLiteral("Слова через пробел. Enter — к таблице, Esc — показать все точки."));
    connect(filter, &QLineEdit::textChanged, grid_, &EditGrid::setFilterText);
    leadFilterToTable(filter, [this] { return grid_; });
    grid_->setEmptyText(
        QStringLiteral("Точек пока нет.\nНажмите Ins, чтобы добавить точку, или вставьте таблицу (Ctrl+V)."));
    auto* pane = new QWidget;
    auto* layout = new QVBoxLayout(pane);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(filter);
    layout->addWidget(commas_);
    layout->addWidget(grid_, 1);
    return pane;
}

void ListCoords::closeEditors()
{
    head_->commit();
    grid_->closeEditor();
    settle();
}

void ListCoords::addRecord()
{
    grid_->addRow();
}

void ListCoords::deleteRecords()
{
    grid_->deleteSelectedRows();
}

void ListCoords::showEvent(QShowEvent* event)
{
    ModeScreen::showEvent(event);
    askNameOnce();
}

// A table of ten thousand points takes a while to be given out anew; mostly nothing has changed.
static bool sameRows(const GridRows& a, const GridRows& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const GridRow& one, const GridRow& other) {
        return one.id == other.id && one.cells == other.cells && one.problems == other.problems
            && one.warnings == other.warnings;
    });
}

// What was typed into another project is nothing to this one.
void ListCoords::forgetProject()
{
    table_ = PointTable();
    waiting_.reset();
}

void ListCoords::readProject(IDBProject* project)
{
    const GridRows rows = project ? table_.rows(*project) : GridRows();
    grid_->setEditingAllowed(project != nullptr);
    // The plan shows the points that are in the register, and only those.
    if (shownPoints_ != table_.points() || !sameRows(rows, grid_->rows().rows())) {
        grid_->setRows(rows);
        shownPoints_ = table_.points();
        showPlan(rows);
        showCommas(rows);
    }
    pane_->plan().setCurrent(grid_->currentRow());
    if (project)
        head_->showHead(headOf(*project));
    else
        head_->showNothing();
    showAccess();
    tellProblems();
    askNameOnce();
}

void ListCoords::showCommas(const GridRows& rows)
{
    const QVector<GridColumn>& columns = grid_->rows().columns();
    int cells = 0;
    for (const GridRow& row : rows)
        for (int column = 0; column < columns.size(); ++column)
            if (columns[column].kind == GridColumn::Number
                && mendedNumber(row.cells.value(column)) != row.cells.value(column))
                ++cells;
    commas_->say(cells == 0
            ? QString()
            : QStringLiteral("Числа с запятой или пробелами расчёты и разрезы прочтут неверно. Ячеек: %1.")
                  .arg(cells));
}

void ListCoords::showPlan(const GridRows& rows)
{
    QVector<PlanPoint> points;
    int withoutPlace = 0;
    for (const GridRow& row : rows) {
        if (table_.pointOf(row.id).empty())
            continue;
        PlanPoint point;
        point.id = row.id;
        const bool isPlaced = readNumber(row.cells[PointXColumn], point.x)
            && readNumber(row.cells[PointYColumn], point.y) && std::isfinite(point.x)
            && std::isfinite(point.y);
        if (!isPlaced) {
            ++withoutPlace;
            continue;
        }
        point.kind = pointKindNamed(row.cells[PointKindColumn]);
        point.name = QString::fromStdWString(table_.pointOf(row.id));
        point.tip = QStringLiteral("%1 %2\nX %3   Y %4\nАбс. отметка %5")
                        .arg(row.cells[PointKindColumn],
                            point.name,
                            row.cells[PointXColumn],
                            row.cells[PointYColumn],
                            row.cells[PointMarkColumn]);
        points.append(point);
    }
    pane_->setPoints(points, withoutPlace);
}

void ListCoords::showAccess()
{
    tellActions(project() != nullptr, project() && grid_->selectionModel()->hasSelection());
}

void ListCoords::becomeCurrent()
{
    readIfStale();
    showAccess();
    askNameOnce();
    // What is typed next is a point; in the head's lines it would go over the project's name.
    if (isVisible() && !isAncestorOf(QApplication::focusWidget()))
        grid_->setFocus();
}

bool ListCoords::store()
{
    const QVector<PointTable::OpenCell> cells = openCells();
    if (!cells.isEmpty())
        say(cells.first().text);
    return cells.isEmpty();
}

QVector<PointTable::OpenCell> ListCoords::openCells()
{
    QVector<PointTable::OpenCell> cells =
        project() ? table_.openCells(*project()) : QVector<PointTable::OpenCell>();
    if (!head_->problem().isEmpty())
        cells.prepend({0, 0, QStringLiteral("Имя файла: ") + head_->problem()});
    return cells;
}

void ListCoords::tellProblems()
{
    QStringList texts;
    for (const PointTable::OpenCell& cell : openCells())
        texts += cell.text;
    tellUnsaved(texts);
}

void ListCoords::showUnsaved(int number)
{
    const QVector<PointTable::OpenCell> cells = openCells();
    if (number < 0 || number >= cells.size())
        return;
    if (cells[number].row == 0)
        return head_->setFocus();
    grid_->setFocus();
    grid_->showRow(cells[number].row, cells[number].column);
}

void ListCoords::edit(const GridRows& after)
{
    const GridRows before = grid_->rows().rows();
    GridRows wanted = after;
    GridRows typed = grid_->asTyped();
    settle();
    IDBProject* open = project();
    if (!open)
        return;
    for (int row = 0; row < typed.size(); ++row)
        if (typed[row].id == 0)
            typed[row].id = wanted[row].id = table_.newId();
    const PointsChange typing =
        typed.isEmpty() ? PointsChange() : table_.change(*open, before, typed, PointTable::TakeBack);
    PointsChange change = table_.change(*open, before, wanted, PointTable::KeepValues);
    if (change.uses.empty() && change.refusal.empty()) {
        if (!typed.isEmpty())
            noteTyping(typing, change);
        make(change);
        return;
    }
    // A box may not open while the cell's editor is still about to close.
    waiting_ = std::move(change);
    QTimer::singleShot(0, this, &ListCoords::settle);
}

void ListCoords::noteTyping(const PointsChange& typing, PointsChange& change)
{
    if (typing.keysChanged != change.keysChanged || typing.isEmpty())
        return;
    const auto command = makeReference<ExchangeCommand<PointsState>>(putter(), change.before, typing.after);
    controller()->undoRedo()->add(controller()->undoContext(), command.get());
    change.before = typing.after;
}

void ListCoords::mendNumbers()
{
    IDBProject* open = project();
    if (!open)
        return;
    closeEditors();
    const GridRows before = table_.rows(*open);
    GridRows after = before;
    int cells = 0;
    for (GridRow& row : after)
        for (int column = 0; column < PointColumnCount; ++column) {
            const QString text = row.cells.value(column);
            if (grid_->rows().columns()[column].kind != GridColumn::Number || mendedNumber(text) == text)
                continue;
            row.cells[column] = mendedNumber(text);
            ++cells;
        }
    make(table_.change(*open, before, after, PointTable::KeepValues));
    say(QStringLiteral("Исправлено чисел: %1 (Ctrl+Z вернёт).").arg(cells));
}

void ListCoords::settle()
{
    if (!waiting_)
        return;
    PointsChange change = *std::exchange(waiting_, std::nullopt);
    IDBProject* asking = project();
    if (!asking || !isWanted(change) || project() != asking)
        return;
    if (change.isTriedOut)
        make(change);
    else
        removeNow(*asking, change);
}

// In a large project what remains of its registers is copied, so that the points can come back.
void ListCoords::removeNow(IDBProject& project, PointsChange& change)
{
    constexpr int appearsAfter = 500; // ms
    constexpr int steps = 1000;
    say(QStringLiteral("Точки удаляются..."));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto pointer = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
    QProgressDialog progress(QStringLiteral("Точки удаляются…"), QStringLiteral("Прервать"), 0, steps, this);
    progress.setWindowTitle(QStringLiteral("Ведомость координат"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(appearsAfter);
    progress.setMinimumWidth(320); // of the title, pixels
    const bool isDone = table_.carryOut(project, change, [&](double share) {
        progress.setValue(static_cast<int>(share * (steps - 1)));
        return !progress.wasCanceled();
    });
    progress.reset();
    if (isDone)
        make(change);
    say(isDone ? QStringLiteral("Готово.") : QStringLiteral("Удаление прервано: все точки на месте."));
}

bool ListCoords::isWanted(const PointsChange& change)
{
    if (change.refusal.empty())
        return askAboutChange(change, this);
    QMessageBox::warning(this,
        QStringLiteral("Ведомость координат"),
        QStringLiteral("Точки не удалены: %1.").arg(QString::fromStdWString(change.refusal)));
    return false;
}

void ListCoords::make(const PointsChange& change)
{
    if (change.isEmpty()) {
        readProject(project());
        return;
    }
    const auto command = makeReference<ExchangeCommand<PointsState>>(putter(), change.before, change.after);
    if (change.isMade)
        keep(change, command.get());
    else
        execute(command.get());
    readIfStale();
    tellProblems();
}

// What the project has already is not put into it once more.
void ListCoords::keep(const PointsChange& change, IMCommand* command)
{
    observe();
    controller()->undoRedo()->add(controller()->undoContext(), command);
    *table_.drafts() = change.after.drafts;
    controller()->notify();
    Q_EMIT signalUpdateMenus();
}

std::function<void(const PointsState&)> ListCoords::putter() const
{
    return [controller = controller(), drafts = table_.drafts()](const PointsState& state) {
        *drafts = state.drafts;
        if (IDBProject* project = controller->project())
            state.putInto(*project);
        controller->notify();
    };
}

void ListCoords::editHead(const ProjectHead& after)
{
    if (!project())
        return;
    change<ProjectHead>(
        [](IDBProject& open, const ProjectHead& head) { putHead(head, open); }, headOf(*project()), after);
    readIfStale();
}

void ListCoords::askNameOnce()
{
    // Opened when the shell has finished what brought this screen up.
    QTimer::singleShot(0, this, [this] {
        IDBProject* open = project();
        if (!open || open == asked_ || !isVisible() || !isUnnamed(headOf(*open)))
            return;
        asked_ = open;
        askName();
    });
}

void ListCoords::askName()
{
    if (!project())
        return;
    auto* dialog = new NameDialog(headOf(*project()), settings(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] { editHead(dialog->head()); });
    connect(dialog, &QDialog::finished, grid_, [this] { grid_->setFocus(); });
    dialog->open();
}

void ListCoords::printReport()
{
    if (!project())
        return;
    exportDocument(window(), *controller(), coordinatesReport(*project()));
}
