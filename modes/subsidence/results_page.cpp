#include "subsidence/results_page.h"

#include "common/mode_screen.h"
#include "common/view_settings.h"
#include "dictionaries/report_language.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "site/subsidence.h"
#include "subsidence/calculation_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

enum PointColumn { NameColumn, TotalColumn, BoundaryColumn, PressureColumn, TypeColumn, SamplesColumn };
constexpr int figureCodes[] = {0, 1, 3, 4};
constexpr int firstFree = 2; // of a layer's columns: depths are the calculation's

QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

QVector<GridColumn> pointColumns()
{
    return {{QStringLiteral("Точка"), GridColumn::Text, 110, {}, true},
        {QStringLiteral("Просадка,\nсм"), GridColumn::Number, 90},
        {QStringLiteral("Нижняя\nграница, м"), GridColumn::Number, 90},
        {QStringLiteral("Начальное\nдавление, кПа"), GridColumn::Number, 110},
        {QStringLiteral("Тип"),
            GridColumn::Choice,
            80,
            {QString(), QStringLiteral("Тип I"), QStringLiteral("Тип II")}},
        {QStringLiteral("Пробы\n(пусто — все)"), GridColumn::Text, 220}};
}

QVector<GridColumn> rowColumns()
{
    return {{QStringLiteral("От, м"), GridColumn::Number, 80, {}, true},
        {QStringLiteral("До, м"), GridColumn::Number, 80, {}, true},
        {QStringLiteral("Напряжение,\nкПа"), GridColumn::Number, 100},
        {QStringLiteral("Относительная\nпросадочность"), GridColumn::Number, 110},
        {QStringLiteral("Просадка,\nсм"), GridColumn::Number, 90}};
}

QString typedText(const Number& computed, int decimals)
{
    return computed
        ? QStringLiteral("Введено вручную. Рассчитано: %1").arg(fromWide(numberText(computed, decimals)))
        : QStringLiteral("Введено вручную. Рассчитать нельзя");
}

void addFigure(GridRow& row, const SubsidenceFigure& figure, int decimals)
{
    row.cells += fromWide(numberText(figure.value, decimals));
    row.warnings += figure.isTyped ? typedText(figure.computed, decimals) : QString();
}

bool hasSample(IDBProject& project, std::wstring_view point, const std::wstring& code)
{
    const auto& samples = project.getLabSamples();
    return std::any_of(samples.begin(), samples.end(), [&](const auto& sample) {
        return sample.first.pointName == point && sample.second.code == code;
    });
}

GridRow pointRow(qint64 id, const SubsidencePoint& point, IDBProject& project)
{
    GridRow row;
    row.id = id;
    row.cells = {fromWide(point.point)};
    row.warnings = {QString()};
    addFigure(row, point.totalCm, 2);
    addFigure(row, point.lowerBoundaryM, 2);
    addFigure(row, point.initialPressureKPa, 1);
    row.cells += fromWide(subsidenceTitle(point.type));
    row.warnings += point.isTypeTyped ? QStringLiteral("Выбрано вручную") : QString();
    QStringList codes;
    QStringList unknown;
    for (const auto& [name, samples] : project.getSubsidenceNames())
        if (name == point.point)
            for (const std::wstring& code : samples) {
                codes += QString::fromStdWString(code);
                if (!hasSample(project, point.point, code))
                    unknown += QStringLiteral("«%1»").arg(codes.last());
            }
    row.cells += codes.join(QStringLiteral(", "));
    row.warnings += unknown.isEmpty()
        ? QString()
        : QStringLiteral("У точки нет проб с кодом: %1").arg(unknown.join(QStringLiteral(", ")));
    return row;
}

GridRow partRow(qint64 id, const SubsidencePoint& point, std::size_t place)
{
    const SubsidencePart& part = point.result.parts[place];
    const SubsidencePart& computed = point.computed.parts[place];
    const std::array<bool, 3>& typed = point.typedParts[place];
    GridRow row;
    row.id = id;
    row.cells = {fromWide(numberText(part.fromM, 2)), fromWide(numberText(part.toM, 2))};
    row.warnings = {QString(), QString()};
    addFigure(row, {part.stressKPa, computed.stressKPa, typed[0]}, 1);
    addFigure(row, {part.relative, computed.relative, typed[1]}, 3);
    addFigure(row, {part.subsidenceCm, computed.subsidenceCm, typed[2]}, 2);
    return row;
}

std::vector<std::wstring> codesOf(const QString& text)
{
    std::vector<std::wstring> codes;
    for (const QString& code : text.split(QRegularExpression(QStringLiteral("[,;]")), Qt::SkipEmptyParts))
        if (!code.trimmed().isEmpty())
            codes.push_back(code.trimmed().toStdWString());
    return codes;
}

} // namespace

ResultsPage::ResultsPage(ModeScreen& screen, const CalculationPage& calculation)
    : screen_(screen)
    , calculation_(calculation)
{
    auto* splitter = new QSplitter(Qt::Vertical, this);
    const auto add = [&](EditGrid*& grid, const char* name, const QVector<GridColumn>& columns) {
        auto* part = new QWidget(splitter);
        auto* layout = new QVBoxLayout(part);
        layout->setContentsMargins(0, 0, 0, 0);
        grid = new EditGrid(QLatin1String(name), columns, part);
        grid->setObjectName(QLatin1String(name));
        grid->setRowsGrow(false);
        connect(grid, &EditGrid::told, this, &Page::said);
        splitter->addWidget(part);
        return layout;
    };
    auto* upper = add(points_, "subsidence/points", pointColumns());
    auto* head = new QHBoxLayout;
    auto* hint = new QLabel(QStringLiteral("Введенное вручную имеет силу и выделено; чтобы вернуть "
                                           "рассчитанное, очистите ячейку."),
        this);
    auto* again = new QPushButton(QStringLiteral("Пересчитать все"), this);
    again->setObjectName(QStringLiteral("again"));
    again->setToolTip(QStringLiteral("Заменить все значения рассчитанными, также введенные вручную"));
    head->addWidget(hint, 1);
    head->addWidget(again);
    upper->addLayout(head);
    upper->addWidget(points_, 1);
    auto* lower = add(rows_, "subsidence/rows", rowColumns());
    rowsTitle_ = new QLabel(this);
    lower->addWidget(rowsTitle_);
    lower->addWidget(rows_, 1);
    points_->setAccessibleName(QStringLiteral("Итоги по точкам"));
    points_->setEmptyText(QStringLiteral("Ни у одной точки нет испытаний на просадочность."));
    rows_->setAccessibleName(QStringLiteral("Слои точки"));
    rows_->setEmptyText(QStringLiteral("Слоев нет."));
    splitter->setChildrenCollapsible(false);
    keepSplitter(splitter, QStringLiteral("subsidence/results"), {260, 260});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addWidget(splitter, 1);
    setFocusProxy(points_);
    connect(points_, &EditGrid::edited, this, &ResultsPage::editPoints);
    connect(rows_, &EditGrid::edited, this, &ResultsPage::editRows);
    connect(points_, &EditGrid::currentRowChanged, this, [this] { showRows(screen_.project()); });
    connect(again, &QPushButton::clicked, this, [this] {
        closeEditors();
        Q_EMIT said(QStringLiteral("Пересчитано точек: %1.").arg(fillSubsidence(screen_, true)));
    });
}

void ResultsPage::closeEditors()
{
    points_->closeEditor();
    rows_->closeEditor();
}

void ResultsPage::calculate()
{
    Q_EMIT said(QStringLiteral("Рассчитано точек: %1. Введенное вручную не изменено.")
                    .arg(fillSubsidence(screen_, false)));
}

std::optional<Document> ResultsPage::report()
{
    IDBProject* project = screen_.project();
    return project ? calculation_.make(*project) : std::nullopt;
}

void ResultsPage::read(IDBProject* project)
{
    GridRows rows;
    if (project) {
        const SiteLaboratory laboratory(
            *project, knownLanguage(screen_.settings()->reportLanguage()), SiteLaboratory::Extent::Collapse);
        for (const SubsidencePoint& point : allSubsidencePoints(*project, laboratory))
            rows.append(pointRow(rows.size() + 1, point, *project));
    }
    points_->setEditingAllowed(project);
    points_->setRows(rows);
    if (!rows.isEmpty() && points_->currentRow() == 0)
        points_->showRow(1, TotalColumn);
    showRows(project);
}

QString ResultsPage::currentPoint() const
{
    const int row = points_->rows().rowOf(points_->currentRow());
    return row < 0 ? QString() : points_->rows().rows()[row].cells[NameColumn];
}

void ResultsPage::showRows(IDBProject* project)
{
    GridRows rows;
    const QString name = currentPoint();
    if (project && !name.isEmpty()) {
        const SiteLaboratory laboratory(
            *project, knownLanguage(screen_.settings()->reportLanguage()), SiteLaboratory::Extent::Collapse);
        const std::wstring wide = name.toStdWString();
        const SubsidencePoint point = subsidencePoint(*project, laboratory, wide);
        for (std::size_t i = 0; i < point.result.parts.size(); ++i)
            rows.append(partRow(static_cast<qint64>(i) + 1, point, i));
    }
    rowsTitle_->setText(
        name.isEmpty() ? QStringLiteral("Слои точки") : QStringLiteral("Слои точки %1").arg(name));
    rows_->setEditingAllowed(project);
    rows_->setRows(rows);
}

void ResultsPage::put(const SubsidenceState& after)
{
    const SubsidenceState before = subsidenceState(*screen_.project());
    if (isSame(before, after))
        read(screen_.project()); // what was typed is what stands there already
    else
        screen_.change<SubsidenceState>(setSubsidenceState, before, after);
}

void ResultsPage::editPoints(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    SubsidenceState state = subsidenceState(*project);
    const GridRows before = points_->rows().rows();
    for (const GridRow& row : after) {
        const int place = points_->rows().rowOf(row.id);
        if (place < 0)
            continue;
        const GridRow& old = before[place];
        const std::wstring point = row.cells[NameColumn].toStdWString();
        for (int column = TotalColumn; column <= PressureColumn; ++column)
            if (row.cells[column] != old.cells[column])
                setSubsidenceFigure(state, point, figureCodes[column], row.cells[column].toStdWString());
        if (row.cells[TotalColumn] != old.cells[TotalColumn])
            if (const Number total = readNumber(row.cells[TotalColumn].toStdWString()))
                setSubsidenceTitle(state, point, subsidenceTitle(subsidenceType(*total)));
        if (row.cells[TotalColumn].isEmpty() && !old.cells[TotalColumn].isEmpty())
            setSubsidenceTitle(state, point, {});
        if (row.cells[TypeColumn] != old.cells[TypeColumn])
            setSubsidenceTitle(state, point, row.cells[TypeColumn].toStdWString());
        if (row.cells[SamplesColumn] != old.cells[SamplesColumn])
            setSubsidenceSamples(state, point, codesOf(row.cells[SamplesColumn]));
    }
    put(state);
}

void ResultsPage::editRows(const GridRows& after)
{
    IDBProject* project = screen_.project();
    const std::wstring point = currentPoint().toStdWString();
    if (!project || point.empty())
        return;
    SubsidenceState state = subsidenceState(*project);
    const GridRows before = rows_->rows().rows();
    for (const GridRow& row : after) {
        const int place = rows_->rows().rowOf(row.id);
        if (place < 0)
            continue;
        for (int column = firstFree; column < row.cells.size(); ++column)
            if (row.cells[column] != before[place].cells[column])
                setSubsidenceRowCell(state,
                    point,
                    row.cells[0].toStdWString(),
                    row.cells[1].toStdWString(),
                    static_cast<std::size_t>(column),
                    row.cells[column].toStdWString());
    }
    put(state);
}
