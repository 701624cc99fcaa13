#include "laboratory/sample_table.h"

#include "common/edit_grid.h"
#include "laboratory/sample_cells.h"
#include "laboratory/sample_marks.h"
#include "site/derived_cells.h"
#include "site/elements.h"

#include <QVBoxLayout>

namespace
{

constexpr int firstDataColumn = 4;
constexpr int maskBits = 64; // columns that the mask of computed cells can name

} // namespace

SampleTable::SampleTable(LabTest test, QWidget* parent)
    : QWidget(parent)
    , test_(test)
    , layout_(new QVBoxLayout(this))
{
    layout_->setContentsMargins(0, 0, 0, 0);
}

void SampleTable::clear()
{
    rows_.clear();
    keys_.clear();
    ids_.clear();
    places_.clear();
    if (grid_)
        grid_->setRows({});
}

void SampleTable::closeEditor()
{
    if (grid_)
        grid_->closeEditor();
}

void SampleTable::setFilterText(const QString& text)
{
    filter_ = text;
    if (grid_)
        grid_->setFilterText(text);
}

void SampleTable::makeGrid()
{
    QVector<GridColumn> columns = {readOnlyColumn(QStringLiteral("Точка"), 90),
        readOnlyColumn(QStringLiteral("Глубина,\nм"), 70),
        readOnlyColumn(QStringLiteral("Код\nпробы"), 60),
        readOnlyColumn(QStringLiteral("Грунт"), 170)};
    for (const SampleColumn& column : columns_)
        columns.push_back(column.column);
    QStringList heads;
    for (const GridColumn& column : columns)
        heads.push_back(column.title);
    if (grid_ && heads == heads_)
        return;
    heads_ = heads;
    // Who comes to the page for the first time is led to its table.
    const bool hadFocus = grid_ ? grid_->isAncestorOf(focusWidget()) : isVisible();
    if (grid_) {
        // This may be the end of an edit that the old one tells of.
        grid_->hide();
        grid_->setObjectName({});
        grid_->deleteLater();
    }
    grid_ = new EditGrid(QStringLiteral("laboratory/") + QLatin1String(nameOf(test_)), columns, this);
    grid_->setObjectName(QStringLiteral("samples"));
    grid_->setAccessibleName(QStringLiteral("Испытания проб"));
    grid_->setRowsGrow(false);
    grid_->setNameColumn(0, 2);
    grid_->setEmptyText(
        QStringLiteral("Лабораторных проб нет.\nНовые пробы добавляются на странице «Реестр проб»."));
    grid_->setFilterText(filter_);
    connect(grid_, &EditGrid::edited, this, &SampleTable::take);
    connect(grid_, &EditGrid::currentRowChanged, this, &SampleTable::currentChanged);
    connect(grid_, &EditGrid::told, this, &SampleTable::told);
    layout_->addWidget(grid_);
    grid_->show();
    setFocusProxy(grid_);
    setTabOrder(this, grid_);
    if (hadFocus)
        grid_->setFocus();
}

GridRow SampleTable::rowOf(IDBProject& project, const PointDepthKey& key, const LabSample& sample)
{
    GridRow row;
    row.id = ids_.of(key);
    row.cells.reserve(firstDataColumn + static_cast<int>(columns_.size()));
    row.cells = {qText(key.pointName), qText(key.depth), qText(sample.code), qText(sample.soilKind.text)};
    for (const SampleColumn& column : columns_)
        row.cells.push_back(qText(column.get(sample)));
    const SampleResult result =
        sampleResult(sample, project.getLabTriple(), grainScaleOf(project).value_or(GrainScale::Above200), 0);
    markCells(row, firstDataColumn, marks_, result.remarks);
    for (int i = firstDataColumn; i < row.cells.size() && i < maskBits; ++i)
        if (const int property = columns_[static_cast<std::size_t>(i - firstDataColumn)].property;
            property >= 0 && isComputedText(result, property, row.cells[i].toStdWString()))
            row.computed |= quint64{1} << unsigned(i);
    return row;
}

void SampleTable::read(
    IDBProject& project, const TestChoice& choice, int language, const std::vector<PointDepthKey>* changed)
{
    project_ = &project;
    if (changed && readChanged(project, *changed))
        return;
    columns_ = sampleColumns(project, choice, language);
    marks_.clear();
    for (const SampleColumn& column : columns_)
        marks_.push_back(column.mark);
    makeGrid();
    readAll(project);
}

void SampleTable::readAll(IDBProject& project)
{
    const LabSampleRegister& samples = project.getLabSamples();
    rows_.clear();
    keys_.clear();
    places_.clear();
    rows_.reserve(static_cast<int>(samples.size()));
    keys_.reserve(samples.size());
    for (const auto& [key, sample] : samples) {
        rows_.push_back(rowOf(project, key, sample));
        places_.insert(rows_.back().id, rows_.size() - 1);
        keys_.push_back(key);
    }
    grid_->setRows(rows_);
}

// Not where samples have come or gone, or a column is missing for what they hold now.
bool SampleTable::readChanged(IDBProject& project, const std::vector<PointDepthKey>& changed)
{
    if (!grid_ || project.getLabSamples().size() != keys_.size())
        return false;
    for (const PointDepthKey& key : changed) {
        const LabSample* sample = findSample(project, key);
        const auto place = places_.constFind(ids_.of(key));
        if (!sample || place == places_.constEnd())
            return false;
        rows_[*place] = rowOf(project, key, *sample);
    }
    grid_->setRows(rows_);
    return true;
}

void SampleTable::showFirst(const std::function<bool(const LabSample&)>& isWanted)
{
    for (const PointDepthKey& key : keys_) {
        const LabSample* sample = findSample(*project_, key);
        if (!sample || !isWanted(*sample))
            continue;
        grid_->showRow(ids_.of(key), grid_->currentIndex().column());
        return;
    }
}

const PointDepthKey* SampleTable::currentKey() const
{
    const auto place = grid_ ? places_.constFind(grid_->currentRow()) : places_.constEnd();
    if (place != places_.constEnd())
        return &keys_[static_cast<std::size_t>(*place)];
    return keys_.empty() ? nullptr : &keys_.front();
}

std::vector<PointDepthKey> SampleTable::selectedKeys() const
{
    std::vector<PointDepthKey> keys;
    if (grid_)
        for (const int row : grid_->selectedSourceRows())
            if (row < static_cast<int>(keys_.size()))
                keys.push_back(keys_[static_cast<std::size_t>(row)]);
    return keys;
}

void SampleTable::take(const GridRows& after)
{
    SampleStates before;
    SampleStates changed;
    for (const GridRow& row : after) {
        const auto place = places_.constFind(row.id);
        if (place == places_.constEnd() || qAsConst(rows_)[*place].cells == row.cells)
            continue;
        const PointDepthKey& key = keys_[static_cast<std::size_t>(*place)];
        const LabSample* sample = findSample(*project_, key);
        if (!sample)
            continue;
        LabSample made = *sample;
        const QVector<QString>& old = qAsConst(rows_)[*place].cells;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const int cell = firstDataColumn + static_cast<int>(i);
            if (columns_[i].put && old[cell] != row.cells[cell])
                columns_[i].put(made, row.cells[cell].toStdWString());
        }
        before.push_back({key, *sample});
        changed.push_back({key, std::move(made)});
    }
    if (!changed.empty())
        Q_EMIT edited(before, changed);
}
