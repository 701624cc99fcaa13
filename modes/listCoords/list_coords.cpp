#include "listCoords/list_coords.h"

#include "common/edit_grid.h"
#include "common/exchange_command.h"
#include "common/number_sort_proxy.h"
#include "common/view_settings.h"
#include "core/base/reference.h"
#include "listCoords/head_panel.h"
#include "listCoords/name_dialog.h"
#include "listCoords/plan_pane.h"
#include "listCoords/questions.h"
#include "modules/itellurix_controller.h"
#include "modules/itx_undo_redo.h"

#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMessageBox>
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
{
    grid_->setAccessibleName(QStringLiteral("Ведомость координат"));
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
    connect(this, &TXWidget::signalAddSelectedRecord, grid_, &EditGrid::addRow);
    connect(this, &TXWidget::signalDelSelectedRecord, grid_, &EditGrid::deleteSelectedRows);
}

void ListCoords::observe()
{
    controller_->detach(this);
    controller_->attach(this);
}

void ListCoords::update()
{
    // Behind another screen there is nobody to see it: signalUpdateInfo comes before this one is shown again.
    if (controller_->currentMode() == mode_)
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
    if (project)
        head_->showHead(headOf(*project));
    else
        head_->showNothing();
    tellActions();
    askNameOnce();
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
    const QString problem = head_->problem().isEmpty() ? table_.firstProblem(*project) : head_->problem();
    if (!problem.isEmpty())
        Q_EMIT signalShowStatusMessage(problem.toStdWString());
    return problem.isEmpty();
}

void ListCoords::edit(const GridRows& after)
{
    const GridRows before = grid_->rows().rows();
    settle();
    IDBProject* project = controller_->project();
    if (!project)
        return;
    PointsChange change = table_.change(*project, before, after);
    if (change.uses.empty() && change.refusal.empty()) {
        make(change);
        return;
    }
    // A box may not open while the cell's editor is still about to close.
    waiting_ = std::move(change);
    QTimer::singleShot(0, this, &ListCoords::settle);
}

void ListCoords::settle()
{
    if (!waiting_)
        return;
    const PointsChange change = *std::exchange(waiting_, std::nullopt);
    IDBProject* asking = controller_->project();
    if (asking && isWanted(change) && controller_->project() == asking)
        make(change);
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
    const auto put = [controller = controller_, drafts = table_.drafts()](const PointsState& state) {
        *drafts = state.drafts;
        if (IDBProject* project = controller->project())
            state.putInto(*project);
        controller->notify();
    };
    const auto command = makeReference<ExchangeCommand<PointsState>>(put, change.before, change.after);
    controller_->undoRedo()->execute(controller_->undoContext(), command.get());
    if (stale_)
        reload();
    Q_EMIT signalUpdateMenus();
    if (IDBProject* project = controller_->project())
        Q_EMIT signalShowStatusMessage(table_.firstProblem(*project).toStdWString());
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
