#include "static/layers_dialog.h"

#include "common/edit_grid.h"
#include "modules/idbproject.h"
#include "static/layers_canvas.h"
#include "static/spread_columns.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>

namespace
{

enum Column { FromColumn, ToColumn, ElementColumn, FirstStatistics };

QVector<GridColumn> columns(IDBProject& project)
{
    QStringList elements{QString()};
    for (const auto& [name, element] : project.getStrataElements())
        elements += QString::fromStdWString(name);
    QVector<GridColumn> made{{QStringLiteral("От,\nм"), GridColumn::Number, 62, {}, true},
        {QStringLiteral("До,\nм"), GridColumn::Number, 62},
        {QStringLiteral("ИГЭ"), GridColumn::Choice, 70, elements}};
    return made + spreadColumns();
}

} // namespace

LayersDialog::LayersDialog(IDBProject& project,
    const SiteSounding& sounding,
    const std::vector<SoundingLayer>& shaft,
    QWidget* parent)
    : QDialog(parent)
    , project_(project)
    , sounding_(sounding)
    , shaft_(shaft)
    , layers_(journalLayers(sounding))
    , canvas_(new LayersCanvas(this))
    , grid_(new EditGrid(QStringLiteral("static/own_layers"), columns(project), this))
    , change_(new QDoubleSpinBox(this))
    , thickness_(new QDoubleSpinBox(this))
{
    setWindowTitle(
        QStringLiteral("Слои зондирования %1").arg(QString::fromStdWString(std::wstring(sounding.point))));
    layOut();
    canvas_->setReadings(sounding.readings);
    if (layers_.empty())
        propose();
    history_.clear();
    showLayers();
    resize(1080, 620);
}

QLayout* LayersDialog::ruleLine()
{
    change_->setRange(10, 300);
    change_->setDecimals(0);
    change_->setValue(100 * LayerRule().change);
    change_->setSuffix(QStringLiteral(" %"));
    change_->setAccessibleName(QStringLiteral("Изменение среднего qc"));
    thickness_->setRange(0.1, 5);
    thickness_->setSingleStep(0.1);
    thickness_->setDecimals(1);
    thickness_->setValue(LayerRule().leastThicknessM);
    thickness_->setSuffix(QStringLiteral(" м"));
    thickness_->setAccessibleName(QStringLiteral("Наименьшая мощность слоя"));
    auto* rule = new QHBoxLayout;
    auto* button = new QPushButton(QStringLiteral("Предложить по qc"), this);
    button->setObjectName(QStringLiteral("propose"));
    button->setAutoDefault(false);
    button->setToolTip(QStringLiteral(
        "Новый слой там, где скользящее среднее qc уходит от среднего слоя; правило практики, не нормы"));
    connect(button, &QPushButton::clicked, this, &LayersDialog::propose);
    rule->addWidget(new QLabel(QStringLiteral("Граница при изменении среднего qc на"), this));
    rule->addWidget(change_);
    rule->addWidget(new QLabel(QStringLiteral("слой не тоньше"), this));
    rule->addWidget(thickness_);
    rule->addWidget(button);
    rule->addStretch(1);
    return rule;
}

QLayout* LayersDialog::actsLine()
{
    auto* acts = new QHBoxLayout;
    const auto add = [&](const char* name, const char* title, void (LayersDialog::*act)()) {
        auto* made = new QPushButton(QString::fromUtf8(title), this);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        acts->addWidget(made);
        return made;
    };
    add("split", "Разделить", &LayersDialog::split)->setToolTip(QStringLiteral("Делит текущий слой пополам"));
    add("join", "Объединить с нижним", &LayersDialog::join);
    add("borehole", "По скважине", &LayersDialog::byBorehole)
        ->setToolTip(QStringLiteral("Убирает свои слои: их дает соседняя скважина"));
    undo_ = add("undo", "Отменить", &LayersDialog::undo);
    undo_->setShortcut(QKeySequence::Undo);
    acts->addStretch(1);
    return acts;
}

void LayersDialog::layOut()
{
    grid_->setObjectName(QStringLiteral("own_layers"));
    grid_->setAccessibleName(QStringLiteral("Слои зондирования"));
    grid_->setRowsGrow(false);
    grid_->setEmptyText(QStringLiteral("Слоев нет: в журнале меньше двух отсчетов."));
    auto* rule = ruleLine();
    auto* right = new QVBoxLayout;
    right->addWidget(grid_, 1);
    right->addLayout(actsLine());
    auto* middle = new QHBoxLayout;
    middle->addWidget(canvas_, 1);
    middle->addLayout(right, 2);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Записать в журнал"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(rule);
    layout->addLayout(middle, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        grid_->closeEditor();
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(grid_, &EditGrid::edited, this, &LayersDialog::edit);
    connect(grid_, &EditGrid::currentRowChanged, this, [this] { canvas_->setCurrent(currentLayer()); });
    connect(canvas_, &LayersCanvas::dragged, this, &LayersDialog::drag);
    connect(canvas_, &LayersCanvas::dropped, this, [this] { isDragging_ = false; });
    connect(canvas_, &LayersCanvas::chosen, this, [this](int layer) { grid_->showRow(layer + 1, ToColumn); });
}

void LayersDialog::remember()
{
    history_.push_back(layers_);
}

void LayersDialog::undo()
{
    if (history_.empty())
        return;
    layers_ = history_.back();
    history_.pop_back();
    showLayers();
}

void LayersDialog::propose()
{
    LayerRule rule;
    rule.change = change_->value() / 100;
    rule.leastThicknessM = thickness_->value();
    remember();
    layers_ = proposedJournalLayers(project_, sounding_, shaft_, rule);
    showLayers();
}

// A whole drag is one step.
void LayersDialog::drag(int layer, double depth)
{
    std::vector<JournalLayer> moved = layers_;
    if (!moveBoundary(moved, static_cast<std::size_t>(layer), depth))
        return;
    if (!isDragging_)
        remember();
    isDragging_ = true;
    layers_ = moved;
    showLayers();
}

void LayersDialog::edit(const GridRows& after)
{
    std::vector<JournalLayer> edited = layers_;
    bool isChanged = false;
    for (const GridRow& row : after) {
        const auto place = static_cast<std::size_t>(row.id - 1);
        if (row.id < 1 || place >= edited.size())
            continue;
        const std::wstring element = row.cells[ElementColumn].toStdWString();
        isChanged = isChanged || edited[place].element != element;
        edited[place].element = element;
        const Number to = readNumber(row.cells[ToColumn].toStdWString());
        if (to && std::abs(*to - roundedTo(edited[place].to, 2)) > 1e-9)
            isChanged = moveBoundary(edited, place, *to) || isChanged;
    }
    if (isChanged) {
        remember();
        layers_ = edited;
    }
    showLayers();
}

void LayersDialog::change(bool (*act)(std::vector<JournalLayer>&, std::size_t))
{
    std::vector<JournalLayer> edited = layers_;
    if (currentLayer() < 0 || !act(edited, static_cast<std::size_t>(currentLayer())))
        return;
    remember();
    layers_ = edited;
    showLayers();
}

void LayersDialog::split()
{
    change(splitLayer);
}

void LayersDialog::join()
{
    change(joinLayer);
}

void LayersDialog::byBorehole()
{
    remember();
    layers_.clear();
    if (!sounding_.readings.empty())
        layers_.push_back({0, sounding_.depth(), {}});
    showLayers();
}

int LayersDialog::currentLayer() const
{
    const int layer = static_cast<int>(grid_->currentRow()) - 1;
    return layer < static_cast<int>(layers_.size()) ? layer : -1;
}

void LayersDialog::showLayers()
{
    GridRows rows;
    for (const JournalLayer& layer : layers_) {
        const SoundingLayerResult result = layerResult(project_, sounding_, layer);
        GridRow row;
        row.id = rows.size() + 1;
        row.cells = {
            numberCell(layer.from, 2), numberCell(layer.to, 2), QString::fromStdWString(layer.element)};
        row.cells += spreadCells(result.tip, result.sleeve.mean, result.properties);
        if (rows.size() + 1 == static_cast<int>(layers_.size()))
            row.locked = 1U << ToColumn; // the last reading
        rows.append(row);
    }
    grid_->setRows(rows);
    canvas_->setLayers(layers_);
    canvas_->setCurrent(currentLayer());
    undo_->setEnabled(!history_.empty());
}
