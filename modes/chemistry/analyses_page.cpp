#include "chemistry/analyses_page.h"

#include "chemistry/chemistry_setup.h"
#include "common/filter_keys.h"
#include "common/mode_screen.h"
#include "common/typed_text.h"
#include "core/base/mexception.h"
#include "db/db_project.h"
#include "dictionaries/report_language.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "reports/chemistry_report.h"
#include "site/chemistry.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int pointColumn = 0;
constexpr int depthColumn = 1;
constexpr int firstCell = 2;

QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

using CellOrder = std::array<ChemistryCell, ChemistryCellCount>;

// What corrosion of concrete and steel is judged by comes first, as in the sheets of a soil laboratory; the
// cells that only waters have come last.
constexpr CellOrder soilOrder{CellSoilSO4,
    CellSoilCl,
    CellPH,
    CellHumus,
    CellResistivity,
    CellSO4,
    CellCl,
    CellHCO3,
    CellCO3,
    CellCa,
    CellMg,
    CellNaK,
    CellNa,
    CellK,
    CellNH4,
    CellNO3,
    CellNO2,
    CellFe,
    CellFe2,
    CellFe3,
    CellDryResidue,
    CellHardness,
    CellCarbonateHardness,
    CellAggressiveCO2,
    CellFreeCO2,
    CellH2S,
    CellSiO2,
    CellOxidability,
    CellTemperature,
    CellKind};

constexpr CellOrder waterOrder = [] {
    CellOrder order{};
    for (int cell = 0; cell < ChemistryCellCount; ++cell)
        order[static_cast<std::size_t>(cell)] = static_cast<ChemistryCell>(cell);
    return order;
}();

constexpr bool hasEveryCell(CellOrder order)
{
    std::sort(order.begin(), order.end());
    return order == waterOrder;
}
static_assert(hasEveryCell(soilOrder));

// "SO₄", "Fe³⁺": the figures of a formula stand low, its charge high.
QString withFormula(QString text)
{
    static const QRegularExpression charge(QStringLiteral("(?<=Fe)([23])\\+"));
    static const QRegularExpression count(QStringLiteral("(?<=[A-Za-z])[2-9]"));
    for (auto found = charge.match(text); found.hasMatch(); found = charge.match(text)) {
        const QString high =
            found.captured(1) == QLatin1String("2") ? QStringLiteral("²⁺") : QStringLiteral("³⁺");
        text.replace(found.capturedStart(), found.capturedLength(), high);
    }
    for (auto found = count.match(text); found.hasMatch(); found = count.match(text)) {
        const QChar low(0x2080 + found.captured().toInt());
        text.replace(found.capturedStart(), 1, low);
    }
    return text;
}

// Depends on the units: "SO₄,\nмг/л", "SO₄,\nмг-экв/л". Long names go over two lines.
QString columnTitle(ChemistryCell cell, bool isWater, bool inEquivalents)
{
    QString title = withFormula(fromWide(chemistryCellTitle(cell, isWater)));
    if (inEquivalents && cellEquivalent(cell))
        title.replace(QStringLiteral(" мг/"), QStringLiteral(" мг-экв/"));
    title.replace(QStringLiteral(", "), QStringLiteral(",\n"));
    constexpr int longName = 11;
    const int blank = title.indexOf(QLatin1Char(' '));
    if (blank > 0 && title.indexOf(QLatin1Char('\n')) > longName)
        title[blank] = QLatin1Char('\n');
    return title;
}

QVector<GridColumn> analysisColumns(bool isWater, bool inEquivalents)
{
    QVector<GridColumn> columns{{QStringLiteral("Точка"), GridColumn::Text, 110},
        {QStringLiteral("Глубина\nотбора, м"), GridColumn::Number, 84}};
    for (const ChemistryCell cell : isWater ? waterOrder : soilOrder) {
        GridColumn column;
        column.title = columnTitle(cell, isWater, inEquivalents);
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

AnalysesPage::AnalysesPage(ModeScreen& screen, Kind kind)
    : screen_(screen)
    , isWater_(kind == Kind::Water)
    , cells_(isWater_ ? waterOrder : soilOrder)
    , units_(new QComboBox(this))
{
    setObjectName(isWater_ ? QStringLiteral("water") : QStringLiteral("soil"));
    stack_ = new QStackedLayout;
    for (const bool inEquivalents : {false, true}) {
        auto* grid = new EditGrid(QStringLiteral("chemistry/%1%2")
                                      .arg(isWater_ ? QStringLiteral("water") : QStringLiteral("soil"),
                                          inEquivalents ? QStringLiteral("/meq") : QString()),
            analysisColumns(isWater_, inEquivalents),
            this);
        grid->setObjectName(inEquivalents ? QStringLiteral("equivalents") : QStringLiteral("milligrams"));
        grid->setAccessibleName(
            isWater_ ? QStringLiteral("Анализы воды") : QStringLiteral("Анализы водной вытяжки грунта"));
        grid->setEmptyText(
            QStringLiteral("Анализов %1 нет.\nIns — добавить анализ, Ctrl+V — вставить из таблицы.")
                .arg(isWater_ ? QStringLiteral("воды") : QStringLiteral("грунта")));
        grid->setNameColumn(0, 2);
        connect(grid, &EditGrid::edited, this, &AnalysesPage::edit);
        connect(grid, &EditGrid::told, this, &Page::said);
        stack_->addWidget(grid);
        grids_[inEquivalents ? 1 : 0] = grid;
    }
    grid_ = grids_[0];
    auto* add = new QPushButton(QStringLiteral("Добавить"), this);
    auto* remove = new QPushButton(QStringLiteral("Удалить"), this);
    auto* filter = new QLineEdit(this);
    filter->setPlaceholderText(QStringLiteral("Фильтр по всем столбцам"));
    filter->setAccessibleName(QStringLiteral("Фильтр"));
    filter->setClearButtonEnabled(true);
    units_->setObjectName(QStringLiteral("units"));
    units_->addItems(isWater_ ? QStringList{QStringLiteral("мг/л"), QStringLiteral("мг-экв/л")}
                              : QStringList{QStringLiteral("мг/кг"), QStringLiteral("мг-экв/кг")});
    units_->setToolTip(QStringLiteral("В этих единицах содержание ионов показывается и вводится"));
    units_->setAccessibleName(QStringLiteral("Единицы содержания ионов"));
    auto* unitsLabel = new QLabel(QStringLiteral("Ионы:"), this);
    unitsLabel->setBuddy(units_);
    auto* head = new QHBoxLayout;
    head->addWidget(filter, 1);
    head->addWidget(unitsLabel);
    head->addWidget(units_);
    head->addWidget(add);
    head->addWidget(remove);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addLayout(head);
    layout->addLayout(stack_, 1);
    setFocusProxy(grid_);
    connect(filter, &QLineEdit::textChanged, this, [this](const QString& text) {
        for (EditGrid* grid : grids_)
            grid->setFilterText(text);
    });
    leadFilterToTable(filter, [this] { return grid_; });
    connect(add, &QPushButton::clicked, this, [this] { grid_->addRow(); });
    connect(remove, &QPushButton::clicked, this, [this] { grid_->deleteSelectedRows(); });
    connect(units_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &AnalysesPage::chooseUnits);
}

int AnalysesPage::columnOf(int cell) const
{
    const auto place = std::find(cells_.begin(), cells_.end(), cell);
    return place == cells_.end() ? pointColumn : firstCell + static_cast<int>(place - cells_.begin());
}

void AnalysesPage::chooseUnits()
{
    grid_->closeEditor();
    inEquivalents_ = units_->currentIndex() == 1;
    grid_ = grids_[inEquivalents_ ? 1 : 0];
    stack_->setCurrentWidget(grid_);
    setFocusProxy(grid_);
    show();
}

bool AnalysesPage::isMine(const ChemistryRecord& record) const
{
    return analysisOf(record.cells).isWater == isWater_;
}

GridRow AnalysesPage::shown(GridRow stored) const
{
    if (inEquivalents_)
        for (int place = 0; place < ChemistryCellCount; ++place) {
            QString& text = stored.cells[firstCell + place];
            if (!text.isEmpty())
                text = fromWide(textInEquivalents(cellAt(place), text.toStdWString()));
        }
    return stored;
}

// Cells that show what they showed keep their milligrams to the last digit.
GridRow AnalysesPage::stored(GridRow shownRow, const GridRow& before) const
{
    shownRow.cells.resize(firstCell + ChemistryCellCount);
    if (!inEquivalents_)
        return shownRow;
    const GridRow seen = before.cells.isEmpty() ? before : shown(before);
    for (int place = 0; place < ChemistryCellCount; ++place) {
        QString& text = shownRow.cells[firstCell + place];
        if (seen.cells.value(firstCell + place) == text)
            text = before.cells.value(firstCell + place);
        else
            text = fromWide(textInMilligrams(cellAt(place), mendedNumber(text).toStdWString()));
    }
    return shownRow;
}

void AnalysesPage::show()
{
    GridRows all;
    for (const GridRow& row : rows_ + pending_)
        all.append(shown(row));
    grid_->setRows(all);
}

ChemistryRecord AnalysesPage::recordOf(const GridRow& row) const
{
    ChemistryRecord record;
    for (int place = 0; place < ChemistryCellCount; ++place)
        record.cells[cellAt(place)] = row.cells[firstCell + place].toStdWString();
    // A row that is begun here belongs here, before its first ion is typed.
    if (record.cells[CellKind].empty() && !isMine(record))
        record.cells[CellKind] = isWater_ ? L"вода" : L"грунт";
    return record;
}

GridRow AnalysesPage::rowOf(qint64 id, const PointDepthKey& key, const ChemistryRecord& record) const
{
    GridRow row;
    row.id = id;
    row.cells = {fromWide(key.pointName), fromWide(key.depth)};
    for (const ChemistryCell cell : cells_)
        row.cells.append(fromWide(record.cells[cell]));
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
        const int column = remark.cell.rfind(prefix, 0) == 0 ? columnOf(cell) : pointColumn;
        if (remark.kind != Remark::Missing && column < row.warnings.size())
            row.warnings[column] = fromWide(remark.text);
    }
    return row;
}

void AnalysesPage::read(IDBProject* project)
{
    GridRows rows;
    QHash<QPair<QString, QString>, qint64> known;
    for (const GridRow& row : rows_)
        known.insert({row.cells.value(pointColumn), row.cells.value(depthColumn)}, row.id);
    if (project)
        for (const auto& [key, record] : project->getChemistry()) {
            if (!isMine(record))
                continue;
            const qint64 id = known.value({fromWide(key.pointName), fromWide(key.depth)});
            rows.append(rowOf(id ? id : ++lastId_, key, record));
        }
    rows_ = rows;
    for (EditGrid* grid : grids_)
        grid->setEditingAllowed(project != nullptr);
    show();
}

void AnalysesPage::forget()
{
    rows_.clear();
    pending_.clear();
}

QString AnalysesPage::problem()
{
    for (const GridRow& row : pending_)
        if (const QString why = row.problems.value(pointColumn) + row.problems.value(depthColumn);
            !why.isEmpty())
            return QStringLiteral("Анализ не сохранен. ") + why;
    return {};
}

void AnalysesPage::edit(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    DBProject scratch;
    for (const auto& [key, record] : project->getChemistry())
        if (!isMine(record))
            scratch.addChemistry(key, record);
    QHash<qint64, GridRow> before;
    for (const GridRow& row : rows_ + pending_)
        before.insert(row.id, row);
    GridRows kept;
    GridRows refused;
    bool hasLeft = false;
    for (const GridRow& typed : after) {
        GridRow row = stored(typed, before.value(typed.id));
        if (row.id == 0)
            row.id = ++lastId_;
        const PointDepthKey key{row.cells[pointColumn].toStdWString(), row.cells[depthColumn].toStdWString()};
        const ChemistryRecord record = recordOf(row);
        const QString problem = putRow(scratch, key, record);
        row.problems = QVector<QString>(row.cells.size());
        row.warnings = row.problems;
        if (problem.isEmpty()) {
            hasLeft = hasLeft || !isMine(record);
            kept.append(row);
            continue;
        }
        // A row that nobody typed into yet is no fault.
        if (std::any_of(
                typed.cells.begin(), typed.cells.end(), [](const QString& cell) { return !cell.isEmpty(); }))
            row.problems[key.pointName.empty() ? pointColumn : depthColumn] = problem;
        refused.append(row);
    }
    pending_ = refused;
    rows_ = kept;
    if (isSame(scratch.getChemistry(), project->getChemistry())) {
        read(project);
        return;
    }
    screen_.change<ChemistryRegister>(
        [](IDBProject& open, const ChemistryRegister& state) { open.setChemistry(state); },
        project->getChemistry(),
        scratch.getChemistry());
    if (hasLeft)
        Q_EMIT said(QStringLiteral("Анализ перенесен на страницу «%1».")
                        .arg(isWater_ ? QStringLiteral("Грунт") : QStringLiteral("Вода")));
}

std::optional<Document> AnalysesPage::report()
{
    IDBProject* project = screen_.project();
    return project ? chemistryDocument(*project, knownLanguage(screen_.settings()->reportLanguage()))
                   : std::nullopt;
}
