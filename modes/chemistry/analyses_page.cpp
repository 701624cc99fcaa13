#include "chemistry/analyses_page.h"

#include "chemistry/chemistry_setup.h"
#include "common/mode_screen.h"
#include "common/typed_text.h"
#include "core/base/mexception.h"
#include "db/db_project.h"
#include "modules/idbproject.h"
#include "reports/chemistry_report.h"
#include "site/chemistry.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{

constexpr int pointColumn = 0;
constexpr int depthColumn = 1;
constexpr int firstCell = 2;

QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

QVector<GridColumn> analysisColumns()
{
    QVector<GridColumn> columns{{QStringLiteral("Точка"), GridColumn::Text, 110},
        {QStringLiteral("Глубина\nотбора, м"), GridColumn::Number, 84}};
    for (int cell = 0; cell < ChemistryCellCount; ++cell) {
        GridColumn column;
        const QString title = fromWide(chemistryCellTitle(static_cast<ChemistryCell>(cell), true));
        column.title = QString(title).replace(QStringLiteral(", "), QStringLiteral(",\n"));
        column.kind = GridColumn::Number;
        column.width = 78;
        if (cell == CellKind) {
            column.kind = GridColumn::Choice;
            column.choices = QStringList{QString(), QStringLiteral("вода"), QStringLiteral("грунт")};
        }
        columns.append(column);
    }
    return columns;
}

bool isSame(const ChemistryRegister& a, const ChemistryRegister& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.first.pointName == y.first.pointName && x.first.depth == y.first.depth
            && x.second.cells == y.second.cells;
    });
}

// Why the row cannot stand in the register; empty: it has been put there.
QString putRow(DBProject& into, const PointDepthKey& key, const ChemistryRecord& record)
{
    if (key.pointName.empty())
        return QStringLiteral("Укажите точку.");
    if (!readNumber(key.depth))
        return QStringLiteral("Укажите глубину отбора числом.");
    try {
        return into.addChemistry(key, record) ? QString()
                                              : QStringLiteral("Анализ этой точки с такой глубины уже есть.");
    } catch (const MException&) {
        return QStringLiteral("Такое имя точки или глубину файл проекта не хранит.");
    }
}

} // namespace

AnalysesPage::AnalysesPage(ModeScreen& screen)
    : screen_(screen)
    , grid_(new EditGrid(QStringLiteral("chemistry/analyses"), analysisColumns(), this))
{
    grid_->setAccessibleName(QStringLiteral("Химические анализы"));
    grid_->setEmptyText(
        QStringLiteral("Анализов нет.\nIns — добавить анализ, Ctrl+V — вставить из таблицы."));
    auto* add = new QPushButton(QStringLiteral("Добавить"), this);
    auto* remove = new QPushButton(QStringLiteral("Удалить"), this);
    auto* filter = new QLineEdit(this);
    filter->setPlaceholderText(QStringLiteral("Фильтр по всем столбцам"));
    filter->setAccessibleName(QStringLiteral("Фильтр"));
    filter->setClearButtonEnabled(true);
    auto* head = new QHBoxLayout;
    head->addWidget(filter, 1);
    head->addWidget(add);
    head->addWidget(remove);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addLayout(head);
    layout->addWidget(grid_, 1);
    setFocusProxy(grid_);
    connect(
        filter, &QLineEdit::textChanged, grid_, [this](const QString& text) { grid_->setFilterText(text); });
    connect(add, &QPushButton::clicked, grid_, &EditGrid::addRow);
    connect(remove, &QPushButton::clicked, grid_, &EditGrid::deleteSelectedRows);
    connect(grid_, &EditGrid::edited, this, &AnalysesPage::edit);
    connect(grid_, &EditGrid::told, this, &Page::said);
}

GridRow AnalysesPage::rowOf(qint64 id, const PointDepthKey& key, const ChemistryRecord& record) const
{
    GridRow row;
    row.id = id;
    row.cells = {fromWide(key.pointName), fromWide(key.depth)};
    for (const std::wstring& cell : record.cells)
        row.cells.append(fromWide(cell));
    row.warnings.resize(row.cells.size());
    // What a calculation has to say about a cell stands in its tool tip.
    const SiteAnalysis site = siteAnalysis(key, record);
    Remarks remarks = site.remarks;
    const Remarks more = waterChemistry(site.analysis).remarks;
    remarks.insert(remarks.end(), more.begin(), more.end());
    for (const Remark& remark : remarks) {
        const std::string prefix = "chemistry/";
        const int cell =
            QString::fromStdString(remark.cell.substr(std::min(prefix.size(), remark.cell.size()))).toInt();
        const int column = remark.cell.rfind(prefix, 0) == 0 ? firstCell + cell : pointColumn;
        if (remark.kind != Remark::Missing && column < row.warnings.size())
            row.warnings[column] = fromWide(remark.text);
    }
    return row;
}

void AnalysesPage::read(IDBProject* project)
{
    GridRows rows;
    if (project)
        for (const auto& [key, record] : project->getChemistry()) {
            const QString point = fromWide(key.pointName);
            const QString depth = fromWide(key.depth);
            const auto known = std::find_if(rows_.begin(), rows_.end(), [&](const GridRow& row) {
                return row.cells.value(pointColumn) == point && row.cells.value(depthColumn) == depth;
            });
            rows.append(rowOf(known == rows_.end() ? ++lastId_ : known->id, key, record));
        }
    rows_ = rows;
    grid_->setEditingAllowed(project != nullptr);
    grid_->setRows(rows + pending_);
}

void AnalysesPage::forget()
{
    rows_.clear();
    pending_.clear();
}

QString AnalysesPage::problem()
{
    if (pending_.isEmpty())
        return {};
    const QVector<QString> problems = pending_.first().problems;
    return QStringLiteral("Анализ не сохранен. ") + problems.value(pointColumn) + problems.value(depthColumn);
}

void AnalysesPage::edit(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    DBProject scratch;
    GridRows stored;
    pending_.clear();
    for (GridRow row : after) {
        if (row.id == 0)
            row.id = ++lastId_;
        row.cells.resize(firstCell + ChemistryCellCount);
        const PointDepthKey key{row.cells[pointColumn].toStdWString(), row.cells[depthColumn].toStdWString()};
        ChemistryRecord record;
        for (int cell = 0; cell < ChemistryCellCount; ++cell)
            record.cells[static_cast<std::size_t>(cell)] = row.cells[firstCell + cell].toStdWString();
        const QString problem = putRow(scratch, key, record);
        row.problems = QVector<QString>(row.cells.size());
        row.warnings = row.problems;
        if (problem.isEmpty()) {
            stored.append(row);
            continue;
        }
        row.problems[key.pointName.empty() ? pointColumn : depthColumn] = problem;
        pending_.append(row);
    }
    rows_ = stored;
    if (isSame(scratch.getChemistry(), project->getChemistry())) {
        read(project);
        return;
    }
    screen_.change<ChemistryRegister>(
        [](IDBProject& open, const ChemistryRegister& state) { open.setChemistry(state); },
        project->getChemistry(),
        scratch.getChemistry());
}

std::optional<Document> AnalysesPage::report()
{
    IDBProject* project = screen_.project();
    return project ? chemistryDocument(*project) : std::nullopt;
}
