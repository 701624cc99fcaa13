#include "static/soils_page.h"

#include "common/edit_grid.h"
#include "common/mode_screen.h"
#include "common/view_settings.h"
#include "site/soundings.h"
#include "static/layers_dialog.h"
#include "static/sounding_states.h"
#include "static/spread_columns.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <map>

namespace
{

// Stresses of the second opinion, where nobody has measured them: dry ground of this weight, kN/m3.
constexpr double assumedWeight = 18.0;
constexpr std::size_t leastSoundings = 6;

QVector<GridColumn> columns(bool ofElements)
{
    const auto number = [](const char* title) {
        return GridColumn{QString::fromUtf8(title), GridColumn::Number, 62, {}, true};
    };
    QVector<GridColumn> made;
    if (!ofElements)
        made += GridColumn{QStringLiteral("Точка"), GridColumn::Text, 80, {}, true};
    made += GridColumn{QStringLiteral("ИГЭ"), GridColumn::Text, 60, {}, true};
    if (ofElements) {
        made += number("Точек");
    } else {
        made += number("От,\nм");
        made += number("До,\nм");
    }
    made += spreadColumns();
    made += number("IL");
    made += GridColumn{QStringLiteral("Плотность"), GridColumn::Text, 110, {}, true};
    if (!ofElements)
        made += GridColumn{QStringLiteral("По Робертсону"), GridColumn::Text, 170, {}, true};
    made += GridColumn{QStringLiteral("Замечания"), GridColumn::Text, 320, {}, true};
    return made;
}

QString densityText(const std::optional<SandDensity>& density)
{
    if (!density)
        return {};
    return *density == SandDensity::Dense ? QStringLiteral("плотный")
        : *density == SandDensity::Medium ? QStringLiteral("средней плотности")
                                          : QStringLiteral("рыхлый");
}

QString remarksText(const Remarks& remarks)
{
    QStringList texts;
    for (const Remark& remark : remarks)
        texts += QString::fromStdWString(remark.text);
    return texts.join(QStringLiteral("; "));
}

QString behaviourText(const SoundingLayerResult& result, const SoundingLayer& layer)
{
    const double stress = assumedWeight * (layer.from + layer.to) / 2.0;
    const auto type = behaviourType(result.tip.mean, result.sleeve.mean, stress, stress);
    if (!type)
        return {};
    return QStringLiteral("%1: %2")
        .arg(type->zone)
        .arg(QString::fromStdWString(std::wstring(behaviourName(type->zone))));
}

void addSpread(QVector<QString>& cells,
    const Spread& tip,
    const Number& sleeve,
    const SoundedProperties& properties,
    const Number& liquidity)
{
    cells += spreadCells(tip, sleeve, properties);
    cells += numberCell(liquidity, 2);
    cells += densityText(properties.density);
}

struct ElementMeans {
    std::vector<double> tips, sleeves, depths; // a mean of each layer
    std::wstring_view index;
};

} // namespace

SoilsPage::SoilsPage(ModeScreen& screen)
    : screen_(screen)
    , layers_(new EditGrid(QStringLiteral("static/layers"), columns(false), this))
    , elements_(new EditGrid(QStringLiteral("static/elements"), columns(true), this))
{
    layers_->setEmptyText(
        QStringLiteral("Слоёв нет: у зондирований нет отсчётов\nили соседней скважины со слоями."));
    layers_->setAccessibleName(QStringLiteral("Слои по точкам"));
    elements_->setAccessibleName(QStringLiteral("Элементы по всем точкам"));
    elements_->setEmptyText(QStringLiteral("Элементов нет."));
    points_ = new QComboBox(this);
    points_->setObjectName(QStringLiteral("sounding"));
    points_->setAccessibleName(QStringLiteral("Зондирование"));
    points_->setMinimumContentsLength(12);
    auto* own = new QPushButton(QStringLiteral("Свои слои…"), this);
    own->setObjectName(QStringLiteral("own"));
    own->setToolTip(QStringLiteral("Предложить слои по отсчетам зондирования и править их границы"));
    connect(own, &QPushButton::clicked, this, &SoilsPage::editLayers);
    auto* head = new QHBoxLayout;
    head->addWidget(new QLabel(QStringLiteral("Зондирование:"), this));
    head->addWidget(points_);
    head->addWidget(own);
    head->addStretch(1);
    auto* splitter = new QSplitter(Qt::Vertical, this);
    const auto add = [&](const char* title, EditGrid* grid) {
        grid->setEditingAllowed(false);
        grid->setRowsGrow(false);
        auto* part = new QWidget(splitter);
        auto* layout = new QVBoxLayout(part);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(new QLabel(QString::fromUtf8(title), part));
        layout->addWidget(grid, 1);
        splitter->addWidget(part);
    };
    add("Слои по точкам", layers_);
    add("Элементы по всем точкам (среднее из средних)", elements_);
    splitter->setChildrenCollapsible(false);
    keepSplitter(splitter, QStringLiteral("static/soils"), {400, 220});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addLayout(head);
    layout->addWidget(splitter, 1);
    auto* note = new QLabel(
        QStringLiteral("Таблицы СП 446.1325800, приложение Ж, и формула IL взяты из вторичных источников: "
                       "сверьте с нормами. По Робертсону (1990): удельный вес 18 кН/м³, без воды."),
        this);
    note->setWordWrap(true);
    layout->addWidget(note);
    setFocusProxy(layers_);
}

void SoilsPage::read(IDBProject* project)
{
    GridRows layers;
    GridRows elements;
    const QString shown = points_->currentText();
    points_->clear();
    if (project) {
        const SiteSoundings soundings(*project);
        for (const SiteSounding& sounding : soundings.all())
            points_->addItem(QString::fromStdWString(std::wstring(sounding.point)));
        points_->setCurrentIndex(std::max(0, points_->findText(shown)));
        std::map<std::wstring_view, ElementMeans> means;
        std::vector<std::wstring_view> order;
        for (const SiteSounding& sounding : soundings.all())
            for (const SoundingLayer& layer : sounding.layers) {
                const SoundingLayerResult result = layerResult(*project, sounding, layer);
                GridRow row;
                row.id = layers.size() + 1;
                row.cells = {QString::fromStdWString(std::wstring(sounding.point)),
                    QString::fromStdWString(std::wstring(layer.element)),
                    numberCell(layer.from, 2),
                    numberCell(layer.to, 2)};
                addSpread(row.cells, result.tip, result.sleeve.mean, result.properties, result.liquidity);
                row.cells += behaviourText(result, layer);
                row.cells += remarksText(result.properties.remarks);
                layers.append(row);
                if (layer.element.empty() || !result.tip.mean)
                    continue;
                if (!means.contains(layer.element))
                    order.push_back(layer.element);
                ElementMeans& element = means[layer.element];
                element.tips.push_back(*result.tip.mean);
                if (result.sleeve.mean)
                    element.sleeves.push_back(*result.sleeve.mean);
                element.depths.push_back((layer.from + layer.to) / 2.0);
                element.index = layer.index;
            }
        for (const std::wstring_view name : order) {
            const ElementMeans& element = means[name];
            const Spread tip = spreadOf(std::span<const double>(element.tips));
            const Number sleeve = spreadOf(std::span<const double>(element.sleeves)).mean;
            const Number depth = spreadOf(std::span<const double>(element.depths)).mean;
            const SoundedSoil soil = soundedSoil(*project, name, element.index);
            SoundedProperties properties = soundedProperties(soil, *tip.mean, *depth);
            if (element.tips.size() < leastSoundings)
                properties.remarks.push_back({Remark::Doubtful, "n", L"Меньше шести зондирований"});
            GridRow row;
            row.id = elements.size() + 1;
            row.cells = {QString::fromStdWString(std::wstring(name)), QString::number(element.tips.size())};
            addSpread(row.cells,
                tip,
                sleeve,
                properties,
                soil.kind == SoundedSoil::Sand ? std::nullopt : liquidityBySounding(tip.mean, sleeve));
            row.cells += remarksText(properties.remarks);
            elements.append(row);
        }
    }
    layers_->setRows(layers);
    elements_->setRows(elements);
}

void SoilsPage::editLayers()
{
    IDBProject* project = screen_.project();
    const std::wstring point = points_->currentText().toStdWString();
    if (!project || point.empty())
        return;
    JournalState before = journalState(*project, point);
    JournalState after = before;
    {
        const SiteSoundings soundings(*project);
        const SiteSounding* sounding = soundings.find(point);
        if (!sounding || sounding->readings.size() < 2) {
            Q_EMIT said(QStringLiteral("В журнале меньше двух отсчетов."));
            return;
        }
        const std::vector<SoundingLayer> shaft = soundings.shaft(*sounding);
        LayersDialog dialog(*project, *sounding, shaft, this);
        if (dialog.exec() != QDialog::Accepted)
            return;
        after.rows = rowsWithLayers(after.rows, dialog.layers());
    }
    screen_.change<JournalState>(putJournal, std::move(before), std::move(after));
}

void SoilsPage::calculate()
{
    read(screen_.project());
    Q_EMIT said(QStringLiteral("Рассчитано слоёв: %1, элементов: %2.")
                    .arg(layers_->rows().rows().size())
                    .arg(elements_->rows().rows().size()));
}

void SoilsPage::tellView(ITellurixController& controller) const
{
    controller.setProbingView(0);
    controller.setProbingSubView(0);
}
