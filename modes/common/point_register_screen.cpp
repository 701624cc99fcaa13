#include "common/point_register_screen.h"

#include "common/edit_grid.h"
#include "common/exchange_command.h"
#include "common/notice_bar.h"
#include "common/point_list.h"
#include "common/view_settings.h"
#include "core/base/reference.h"
#include "modules/itx_undo_redo.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

PointRegisterScreen::PointRegisterScreen(TX_Modes mode,
    std::shared_ptr<DepthRegister> depthRegister,
    ITellurixController* controller,
    QWidget* parent)
    : ModeScreen(mode, controller, parent)
    , register_(std::move(depthRegister))
    , memory_(RegisterMemory::of(mode, controller))
    , points_(new PointList(this))
    , head_(new QLabel(this))
    , emptyText_(new QLabel(this))
    , commas_(new NoticeBar(QStringLiteral("Исправить"), this))
    , grid_(new EditGrid(register_->name(), register_->columns(), this))
    , table_(new QSplitter(Qt::Horizontal, this))
    , splitter_(new QSplitter(Qt::Horizontal, this))
{
    grid_->setAccessibleName(QStringLiteral("Записи точки"));
    layOut();
    connectViews();
    readIfStale();
}

void PointRegisterScreen::layOut()
{
    auto* right = new QWidget(splitter_);
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    head_->setTextFormat(Qt::RichText);
    head_->setMinimumHeight(head_->fontMetrics().height() + 8);
    head_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    table_->addWidget(grid_);
    rightLayout->addWidget(head_);
    rightLayout->addWidget(commas_);
    rightLayout->addWidget(table_, 1);

    emptyText_->setAlignment(Qt::AlignCenter);
    emptyText_->setWordWrap(true);
    QPalette soft = emptyText_->palette();
    soft.setColor(QPalette::WindowText, QColor(0x60, 0x60, 0x60));
    emptyText_->setPalette(soft);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(splitter_);
    layout->addWidget(emptyText_);

    points_->setMinimumWidth(120);
    splitter_->addWidget(points_);
    splitter_->addWidget(right);
    splitter_->setStretchFactor(1, 1);
    keepSplitter(splitter_, register_->name() + QStringLiteral("/points"), {170, 800});
    grid_->setEmptyText(register_->emptyText());
    setFocusProxy(grid_);
}

void PointRegisterScreen::setSideView(QWidget* view)
{
    table_->addWidget(view);
    table_->setStretchFactor(0, 3);
    table_->setStretchFactor(1, 2);
    keepSplitter(table_, register_->name() + QStringLiteral("/side"), {540, 460});
    showPoint();
}

void PointRegisterScreen::connectViews()
{
    connect(points_, &PointList::chosen, this, &PointRegisterScreen::choosePoint);
    connect(points_, &PointList::entered, grid_, [this] { grid_->setFocus(); });
    connect(grid_, &EditGrid::edited, this, &PointRegisterScreen::edit);
    connect(grid_, &EditGrid::told, this, [this](const QString& text) {
        say(text.isEmpty() ? QStringLiteral("Готово.") : text);
    });
    connect(commas_, &NoticeBar::remedyWanted, this, &PointRegisterScreen::mendRegister);
}

void PointRegisterScreen::closeEditors()
{
    grid_->closeEditor();
}

void PointRegisterScreen::addRecord()
{
    grid_->addRow();
}

void PointRegisterScreen::deleteRecords()
{
    grid_->deleteSelectedRows();
}

// The user comes from another screen: its point is shown here too, where there is one of that name.
const std::wstring& PointRegisterScreen::wantedPoint() const
{
    return controller()->currentMode() == mode() ? controller()->editedSample() : point_;
}

void PointRegisterScreen::becomeCurrent()
{
    readIfStale();
    if (wantedPoint() != point_ || !memory_->isOf(project()))
        readProject(project());
    showAccess();
    if (isVisible() && !isAncestorOf(QApplication::focusWidget()))
        grid_->setFocus();
}

// What was typed into another project is nothing to this one.
void PointRegisterScreen::forgetOtherProject()
{
    if (memory_->turnTo(project()))
        rows_.clear();
}

void PointRegisterScreen::readProject(IDBProject* project)
{
    const std::wstring wanted = wantedPoint();
    forgetOtherProject();
    register_->useSettings(settings());
    register_->useProject(project);
    const QVector<GridColumn> columns = register_->columns();
    for (int column = 0; column < columns.size(); ++column)
        grid_->rows().setChoices(column, columns[column].choices);

    const QVector<ListedPoint> points =
        project ? memory_->listedPoints(*project, *register_) : QVector<ListedPoint>();
    splitter_->setVisible(!points.isEmpty());
    emptyText_->setVisible(points.isEmpty());
    emptyText_->setText(project ? QStringLiteral("Нет точек. Добавьте точку в режиме «Ведомость координат».")
                                : QStringLiteral("Проект не открыт."));
    takePoint(points, wanted);
    points_->setPoints(points);
    points_->setCurrentPoint(QString::fromStdWString(point_));
    showCommas(project);
    showPoint();
    tellProblems();
}

void PointRegisterScreen::showCommas(IDBProject* project)
{
    QStringList names;
    if (project)
        for (const std::wstring& name : register_->pointsToMend(*project))
            names += QString::fromStdWString(name);
    const int count = names.size();
    if (count > 5)
        names = names.mid(0, 5) + QStringList(QStringLiteral("…"));
    commas_->say(count == 0
            ? QString()
            : QStringLiteral("Глубины с запятой или пробелами расчёты и разрезы прочтут неверно. "
                             "Точек: %1 (%2).")
                  .arg(count)
                  .arg(names.join(QStringLiteral(", "))));
}

// The wanted point, else the one on view, else the first.
void PointRegisterScreen::takePoint(const QVector<ListedPoint>& points, const std::wstring& wanted)
{
    const auto isThere = [&](const std::wstring& name) {
        const QString text = QString::fromStdWString(name);
        return std::any_of(
            points.begin(), points.end(), [&](const ListedPoint& point) { return point.name == text; });
    };
    const std::wstring next = isThere(wanted) ? wanted
        : isThere(point_)                     ? point_
        : points.isEmpty()                    ? std::wstring()
                                              : points.first().name.toStdWString();
    if (next != point_)
        memory_->leave(point_);
    point_ = next;
    if (controller()->currentMode() == mode())
        controller()->setEditedSample(point_);
}

static QString headOf(const PointFacts& point)
{
    const QString gap = QStringLiteral(" &nbsp;·&nbsp; ");
    QString head = QStringLiteral("<b>%1</b>").arg(QString::fromStdWString(point.name).toHtmlEscaped()) + gap
        + (point.kind == 0 ? QStringLiteral("нет в ведомости координат") : pointKindName(point.kind));
    if (!point.mark.isEmpty())
        head += gap + QStringLiteral("отметка %1 м").arg(point.mark.toHtmlEscaped());
    if (!point.bottom.isEmpty())
        head += gap + QStringLiteral("глубина %1 м").arg(point.bottom.toHtmlEscaped());
    return head;
}

void PointRegisterScreen::showPoint()
{
    IDBProject* open = project();
    grid_->setEditingAllowed(open && !point_.empty());
    if (!open || point_.empty()) {
        rows_.clear();
        grid_->setRows({});
        rowsShown({}, {});
        return;
    }
    rows_ = register_->rowsOf(*open, point_, memory_->rowsOf(point_));
    memory_->rowsOf(point_) = rows_;
    const PointFacts facts = pointFacts(*open, point_);
    const GridRows shown = register_->shown(rows_, facts);
    head_->setText(headOf(facts));
    grid_->setRows(shown);
    rowsShown(shown, facts);
}

void PointRegisterScreen::choosePoint(const QString& name)
{
    grid_->closeEditor();
    memory_->leave(point_);
    point_ = name.toStdWString();
    controller()->setEditedSample(point_);
    showPoint();
    showAccess();
}

void PointRegisterScreen::showAccess()
{
    tellActions(!point_.empty(), !rows_.isEmpty());
}

ExchangeCommand<RegisterState>::Apply PointRegisterScreen::putter() const
{
    return [controller = controller(), memory = memory_, registerOfRows = register_](
               const RegisterState& state) {
        IDBProject* project = controller->project();
        if (!project)
            return;
        for (const PointState& point : state)
            memory->rowsOf(point.point) = registerOfRows->store(*project, point);
        controller->notify();
    };
}

// Into the history, without making the change.
void PointRegisterScreen::addStep(RegisterState before, RegisterState after)
{
    for (std::size_t point = 0; point < before.size() && point < after.size(); ++point) {
        before[point].replaced = after[point].rows;
        after[point].replaced = before[point].rows;
    }
    const auto command =
        makeReference<ExchangeCommand<RegisterState>>(putter(), std::move(before), std::move(after));
    controller()->undoRedo()->add(controller()->undoContext(), command.get());
}

void PointRegisterScreen::exchange(const RegisterState& before, const RegisterState& after)
{
    observe();
    addStep(before, after);
    putter()(after);
    tellProblems();
    showAccess();
}

void PointRegisterScreen::edit(const GridRows& after)
{
    if (!project() || point_.empty())
        return;
    controller()->setEditedSample(point_);
    const RegisterRows unsettled = register_->typedRows(rows_, after);
    RegisterState before = {{point_, rows_}};
    RegisterState wanted = {{point_, unsettled}};
    register_->settle(wanted.front().rows);
    // What was mended in it is a step of its own: the first undo gives back what was typed.
    if (GridRows typed = grid_->asTyped(); !typed.isEmpty()) {
        for (int row = 0; row < unsettled.size(); ++row)
            typed[row].id = unsettled[row].id; // a new row is the same one in both
        RegisterState asTyped = {{point_, register_->typedRows(unsettled, typed)}};
        register_->settle(asTyped.front().rows);
        addStep(before, asTyped);
        before = asTyped;
    }
    exchange(before, wanted);
}

void PointRegisterScreen::mendRegister()
{
    IDBProject* open = project();
    if (!open)
        return;
    grid_->closeEditor();
    RegisterState before;
    RegisterState after;
    int mended = 0;
    for (const std::wstring& point : register_->pointsToMend(*open)) {
        const RegisterRows rows = register_->rowsOf(*open, point, memory_->rowsOf(point));
        before.push_back({point, rows});
        after.push_back({point, rows});
        mended += register_->mend(after.back().rows);
    }
    exchange(before, after);
    say(QStringLiteral("Исправлено глубин: %1 (Ctrl+Z вернёт).").arg(mended));
}

void PointRegisterScreen::tellProblems()
{
    QStringList texts;
    for (const auto& cell : memory_->openCells(point_, grid_->rows().columns()))
        texts += cell.text;
    tellUnsaved(texts);
}

void PointRegisterScreen::showUnsaved(int number)
{
    const auto cells = memory_->openCells(point_, grid_->rows().columns());
    if (number < 0 || number >= cells.size())
        return;
    if (cells[number].point != point_) {
        choosePoint(QString::fromStdWString(cells[number].point));
        points_->setCurrentPoint(QString::fromStdWString(point_));
    }
    grid_->setFocus();
    grid_->showRow(cells[number].row, cells[number].column);
}

bool PointRegisterScreen::store()
{
    forgetOtherProject();
    const auto cells = memory_->openCells(point_, grid_->rows().columns());
    if (!cells.isEmpty())
        say(cells.first().text);
    return cells.isEmpty();
}

void PointRegisterScreen::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        points_->setFocus();
    else
        ModeScreen::keyPressEvent(event);
}
