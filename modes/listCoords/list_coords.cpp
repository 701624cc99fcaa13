#include "listCoords/list_coords.h"

#include "common/edit_grid.h"
#include "common/exchange_command.h"
#include "common/export_dialog.h"
#include "common/notice_bar.h"
#include "common/number_sort_proxy.h"
#include "common/typed_text.h"
#include "common/view_settings.h"
#include "core/base/reference.h"
#include "listCoords/head_panel.h"
#include "listCoords/name_dialog.h"
#include "listCoords/plan_pane.h"
#include "listCoords/questions.h"
#include "modules/itellurix_controller.h"
#include "modules/itx_undo_redo.h"
#include "modules/unsaved_cells.h"
#include "reports/coordinates_report.h"

#include <QCoreApplication>
#include <QDynamicPropertyChangeEvent>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QScopeGuard>
#include <QSettings>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

static const QString splitterKey = QStringLiteral("splitters/listCoords");

ListCoords::ListCoords(TX_Modes mode, ITellurixController* controller)
    : mode_(mode)
    , controller_(controller)
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
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setSizes({620, 380});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    layout->addWidget(head_);
    layout->addWidget(splitter, 1);
    keepSplitter(splitter);

    connect(grid_, &EditGrid::edited, this, &ListCoords::edit);
    connect(grid_, &EditGrid::told, this, [this](const QString& text) {
        Q_EMIT signalShowStatusMessage(text.isEmpty() ? L"Готово." : text.toStdWString());
    });
    connect(commas_, &NoticeBar::remedyWanted, this, &ListCoords::mendNumbers);
    connect(grid_, &EditGrid::currentRowChanged, this, [this](qint64 id) { pane_->plan().setCurrent(id); });
    connect(grid_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &ListCoords::tellActions);
    connect(&pane_->plan(), &PointPlan::pointChosen, this, [this](qint64 id) { grid_->showRow(id); });
    connect(head_, &HeadPanel::edited, this, &ListCoords::editHead);
    connect(head_, &HeadPanel::nameWanted, this, &ListCoords::askName);
    connectShell();
    reload();
}

// A line or cell that has the focus still reports its text while it goes; by then this screen is gone.
ListCoords::~ListCoords()
{
    head_->disconnect(this);
    grid_->disconnect(this);
    grid_->selectionModel()->disconnect(this);
    controller_->detach(this);
}

QWidget* ListCoords::makeTablePane()
{
    auto* filter = new QLineEdit;
    filter->setPlaceholderText(QStringLiteral("Фильтр по всем столбцам"));
    filter->setAccessibleName(QStringLiteral("Фильтр"));
    filter->setClearButtonEnabled(true);
    filter->setObjectName(QStringLiteral("pointFilter"));
    connect(filter, &QLineEdit::textChanged, grid_, &EditGrid::setFilterText);
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

void ListCoords::keepSplitter(QSplitter* splitter)
{
    splitter->restoreState(viewSettings()->value(splitterKey).toByteArray());
    auto* rest = new QTimer(splitter);
    rest->setSingleShot(true);
    rest->setInterval(400);
    connect(splitter, &QSplitter::splitterMoved, rest, [rest] { rest->start(); });
    connect(rest, &QTimer::timeout, splitter, [splitter] {
        viewSettings()->setValue(splitterKey, splitter->saveState());
    });
}

void ListCoords::connectShell()
{
    connect(this, &TXWidget::signalUpdateInfo, this, &ListCoords::reload);
    connect(this, &TXWidget::signalUpdateMode, this, &ListCoords::becomeCurrent);
    connect(this, &TXWidget::signalUpdateDB, this, &ListCoords::store);
    connect(this, &TXWidget::signalCloseAllEditCell, this, [this] {
        head_->commit();
        grid_->closeEditor();
        settle();
    });
    connect(this, &TXWidget::signalPrint, this, &ListCoords::printRegister);
    connect(this, &TXWidget::signalAddSelectedRecord, grid_, &EditGrid::addRow);
    connect(this, &TXWidget::signalDelSelectedRecord, grid_, &EditGrid::deleteSelectedRows);
}

void ListCoords::observe()
{
    controller_->detach(this);
    controller_->attach(this);
}

// Not behind another screen that fills the window; side by side with one it is.
bool ListCoords::isOnView() const
{
    const auto* own = dynamic_cast<const QMdiSubWindow*>(parentWidget());
    const QMdiSubWindow* current = own && own->mdiArea() ? own->mdiArea()->currentSubWindow() : nullptr;
    return isVisible() && (!current || current == own || !current->isMaximized());
}

void ListCoords::update()
{
    // Behind another screen there is nobody to see it: signalUpdateInfo comes before this one is shown again.
    // The shell's current mode does not tell that: after a close that was called off there is none.
    if (isOnView())
        reload();
    else
        stale_ = true;
}

void ListCoords::showEvent(QShowEvent* event)
{
    TXWidget::showEvent(event);
    if (stale_)
        reload();
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

void ListCoords::reload()
{
    stale_ = false;
    observe();
    IDBProject* project = controller_->project();
    if (project != shown_) {
        // What was typed into another project is nothing to this one.
        table_ = PointTable();
        waiting_.reset();
        shown_ = project;
    }
    const GridRows rows = project ? table_.rows(*project) : GridRows();
    grid_->setEditingAllowed(project != nullptr);
    if (!sameRows(rows, grid_->rows().rows()))
        grid_->setRows(rows);
    showPlan(rows);
    showCommas(rows);
    if (project)
        head_->showHead(headOf(*project));
    else
        head_->showNothing();
    tellActions();
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
    pane_->plan().setCurrent(grid_->currentRow());
}

void ListCoords::tellActions()
{
    const bool isOpen = controller_->project() != nullptr;
    Q_EMIT signalAddRecord(mode_, isOpen);
    Q_EMIT signalDeleteRecord(mode_, isOpen && grid_->selectionModel()->hasSelection());
    Q_EMIT signalUpdateMenus();
}

void ListCoords::becomeCurrent()
{
    observe();
    if (stale_)
        reload();
    tellActions();
    askNameOnce();
}

bool ListCoords::store()
{
    IDBProject* project = controller_->project();
    if (!project)
        return true;
    head_->commit();
    grid_->closeEditor();
    settle();
    const QVector<PointTable::OpenCell> cells = openCells();
    if (!cells.isEmpty())
        Q_EMIT signalShowStatusMessage(cells.first().text.toStdWString());
    return cells.isEmpty();
}

QVector<PointTable::OpenCell> ListCoords::openCells()
{
    IDBProject* project = controller_->project();
    QVector<PointTable::OpenCell> cells =
        project ? table_.openCells(*project) : QVector<PointTable::OpenCell>();
    if (!head_->problem().isEmpty())
        cells.prepend({0, 0, QStringLiteral("Имя файла: ") + head_->problem()});
    return cells;
}

void ListCoords::tellProblems()
{
    QStringList texts;
    for (const PointTable::OpenCell& cell : openCells())
        texts += cell.text;
    setProperty(unsavedCellsProperty, texts);
    const QString first = texts.isEmpty() ? QString() : texts.first();
    if (controller_->currentMode() == mode_ && first != toldProblem_)
        Q_EMIT signalShowStatusMessage(first.isEmpty() ? L"Готово." : first.toStdWString());
    toldProblem_ = first;
}

void ListCoords::showOpenCell(int number)
{
    const QVector<PointTable::OpenCell> cells = openCells();
    if (number < 0 || number >= cells.size())
        return;
    if (cells[number].row == 0)
        return head_->setFocus();
    grid_->setFocus();
    grid_->showRow(cells[number].row, cells[number].column);
}

bool ListCoords::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange
        && static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == shownCellProperty)
        if (const QVariant number = property(shownCellProperty); number.isValid())
            showOpenCell(number.toInt());
    return TXWidget::event(event);
}

void ListCoords::edit(const GridRows& after)
{
    const GridRows before = grid_->rows().rows();
    GridRows wanted = after;
    GridRows typed = grid_->asTyped();
    settle();
    IDBProject* project = controller_->project();
    if (!project)
        return;
    for (int row = 0; row < typed.size(); ++row)
        if (typed[row].id == 0)
            typed[row].id = wanted[row].id = table_.newId();
    PointsChange change = table_.change(*project, before, wanted);
    if (change.uses.empty() && change.refusal.empty()) {
        if (!typed.isEmpty())
            noteTyping(table_.change(*project, before, typed), change);
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
    controller_->undoRedo()->add(controller_->undoContext(), command.get());
    change.before = typing.after;
}

void ListCoords::mendNumbers()
{
    IDBProject* project = controller_->project();
    if (!project)
        return;
    head_->commit();
    grid_->closeEditor();
    settle();
    const GridRows before = table_.rows(*project);
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
    make(table_.change(*project, before, after));
    Q_EMIT signalShowStatusMessage(
        QStringLiteral("Исправлено чисел: %1 (Ctrl+Z вернёт).").arg(cells).toStdWString());
}

void ListCoords::settle()
{
    if (!waiting_)
        return;
    PointsChange change = *std::exchange(waiting_, std::nullopt);
    IDBProject* asking = controller_->project();
    if (!asking || !isWanted(change) || controller_->project() != asking)
        return;
    if (change.isTriedOut)
        make(change);
    else
        removeNow(*asking, change);
}

// In a large project all its registers are copied, so that the points can come back.
void ListCoords::removeNow(IDBProject& project, PointsChange& change)
{
    Q_EMIT signalShowStatusMessage(L"Точки удаляются...");
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto pointer = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    table_.carryOut(project, change);
    *table_.drafts() = change.after.drafts;
    observe();
    const auto command = makeReference<ExchangeCommand<PointsState>>(putter(), change.before, change.after);
    controller_->undoRedo()->add(controller_->undoContext(), command.get());
    controller_->notify();
    if (stale_)
        reload();
    Q_EMIT signalUpdateMenus();
    Q_EMIT signalShowStatusMessage(L"Готово.");
    tellProblems();
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
        reload();
        return;
    }
    observe();
    const auto command = makeReference<ExchangeCommand<PointsState>>(putter(), change.before, change.after);
    controller_->undoRedo()->execute(controller_->undoContext(), command.get());
    if (stale_)
        reload();
    Q_EMIT signalUpdateMenus();
    tellProblems();
}

std::function<void(const PointsState&)> ListCoords::putter() const
{
    return [controller = controller_, drafts = table_.drafts()](const PointsState& state) {
        *drafts = state.drafts;
        if (IDBProject* project = controller->project())
            state.putInto(*project);
        controller->notify();
    };
}

void ListCoords::editHead(const ProjectHead& after)
{
    IDBProject* project = controller_->project();
    if (!project)
        return;
    observe();
    const auto put = [controller = controller_](const ProjectHead& head) {
        if (IDBProject* open = controller->project())
            putHead(head, *open);
        controller->notify();
    };
    const auto command = makeReference<ExchangeCommand<ProjectHead>>(put, headOf(*project), after);
    controller_->undoRedo()->execute(controller_->undoContext(), command.get());
    if (stale_)
        reload();
    Q_EMIT signalUpdateMenus();
}

void ListCoords::askNameOnce()
{
    // Opened when the shell has finished what brought this screen up.
    QTimer::singleShot(0, this, [this] {
        IDBProject* project = controller_->project();
        if (!project || project == asked_ || !isVisible() || !isUnnamed(headOf(*project)))
            return;
        asked_ = project;
        askName();
    });
}

void ListCoords::askName()
{
    IDBProject* project = controller_->project();
    if (!project)
        return;
    auto* dialog = new NameDialog(headOf(*project), controller_->settings(), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] { editHead(dialog->head()); });
    dialog->open();
}

void ListCoords::printRegister()
{
    grid_->closeEditor();
    IDBProject* project = controller_->project();
    if (!project)
        return;
    exportDocument(window(), *controller_, coordinatesReport(*project));
}
