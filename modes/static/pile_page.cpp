#include "static/pile_page.h"

#include "common/drawing_view.h"
#include "common/edit_grid.h"
#include "common/mode_screen.h"
#include "common/view_settings.h"
#include "dictionaries/pile_captions.h"
#include "dictionaries/report_language.h"
#include "modules/isettings.h"
#include "reports/sounding_report.h"
#include "site/cells.h"
#include "static/sounding_states.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>
#include <QScrollArea>
#include <QSpinBox>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace
{

const QStringList& soilKinds()
{
    static const QStringList kinds = {QStringLiteral("песок"),
        QStringLiteral("супесь"),
        QStringLiteral("суглинок"),
        QStringLiteral("глина")};
    return kinds;
}

QDoubleSpinBox* metres(QWidget* parent, double least, double greatest)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setDecimals(2);
    box->setRange(least, greatest);
    box->setKeyboardTracking(false);
    return box;
}

QSpinBox* millimetres(QWidget* parent)
{
    auto* box = new QSpinBox(parent);
    box->setRange(0, 5000);
    box->setSingleStep(50);
    box->setSuffix(QStringLiteral(" мм"));
    box->setKeyboardTracking(false);
    return box;
}

std::int32_t hundredths(const QDoubleSpinBox* box)
{
    return static_cast<std::int32_t>(std::lround(box->value() * 100.0));
}

std::array<std::int32_t, 3> tripleOf(const SoundingTriples& triples, std::uint8_t key)
{
    const auto found = triples.find(key);
    return found == triples.end() ? std::array<std::int32_t, 3>{} : found->second;
}

QVector<GridColumn> resultColumns()
{
    QVector<GridColumn> columns;
    for (int i = 0; i < 9; ++i)
        columns += GridColumn{QString::fromStdWString(std::wstring(pileReportColumns.at(languageRussian, i))),
            GridColumn::Number,
            98,
            {},
            true};
    columns += GridColumn{QStringLiteral("Под\nострием,\nкН"), GridColumn::Number, 90, {}, true};
    columns += GridColumn{QStringLiteral("Боковая,\nкН"), GridColumn::Number, 90, {}, true};
    columns += GridColumn{QStringLiteral("Замечания"), GridColumn::Text, 320, {}, true};
    return columns;
}

std::vector<std::wstring> namesOf(const std::vector<PileRow>& rows)
{
    std::vector<std::wstring> names;
    if (!rows.empty())
        for (const PilePoint& point : rows.front().points)
            names.emplace_back(point.point);
    return names;
}

QString remarksOf(const PileRow& row)
{
    QStringList texts;
    for (const PilePoint& point : row.points)
        for (const Remark& remark : point.resistance.remarks)
            texts += QString::fromStdWString(std::wstring(point.point) + L": " + remark.text);
    return texts.join(QStringLiteral("; "));
}

std::int32_t wholeOf(const QString& text, double by)
{
    const Number number = readNumber(text.toStdWString());
    return number && std::abs(*number * by) < 1e9 ? static_cast<std::int32_t>(std::lround(*number * by)) : 0;
}

} // namespace

PilePage::PilePage(ModeScreen& screen)
    : screen_(screen)
    , kind_(new QComboBox(this))
    , section_(new QComboBox(this))
    , side_(millimetres(this))
    , secondSide_(millimetres(this))
    , planning_(metres(this, -10000, 10000))
    , first_(metres(this, 0, 100))
    , last_(metres(this, 0, 100))
    , step_(metres(this, 0, 20))
    , condition_(metres(this, 0.1, 2))
    , tipCondition_(metres(this, 0.1, 2))
    , importance_(metres(this, 0.5, 2))
    , hasParts_(new QCheckBox(QStringLiteral("В отчёте также по частям"), this))
    , soils_(new EditGrid(QStringLiteral("static/pileSoils"),
          {{QStringLiteral("ИГЭ"), GridColumn::Text, 70, {}, true},
              {QStringLiteral("Вид грунта"), GridColumn::Choice, 130, soilKinds()}},
          this))
    , typed_(new EditGrid(QStringLiteral("static/pileLayers"),
          {{QStringLiteral("До,\nм"), GridColumn::Number, 65},
              {QStringLiteral("R,\nкПа"), GridColumn::Number, 65},
              {QStringLiteral("f,\nкПа"), GridColumn::Number, 65}},
          this))
    , typedTitle_(new QLabel(QStringLiteral("R и f по слоям, введённые вручную"), this))
    , results_(new EditGrid(QStringLiteral("static/pileResults"), resultColumns(), this))
    , title_(new QLabel(this))
    , picture_(new DrawingView(this))
{
    soils_->setAccessibleName(QStringLiteral("Вид грунта элементов"));
    typed_->setAccessibleName(QStringLiteral("R и f по слоям"));
    results_->setAccessibleName(QStringLiteral("Несущая способность свай"));
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(makeForm());
    splitter->addWidget(makeResults());
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    keepSplitter(splitter, QStringLiteral("static/pileForm"), {400, 760});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addWidget(splitter);
    setFocusProxy(kind_);
    for (QComboBox* box : {kind_, section_})
        connect(box, qOverload<int>(&QComboBox::activated), this, [this](int) { storeForm(); });
    for (QSpinBox* box : {side_, secondSide_})
        connect(box, qOverload<int>(&QSpinBox::valueChanged), this, [this](int) { storeForm(); });
    for (QDoubleSpinBox* box : {planning_, first_, last_, step_, condition_, tipCondition_, importance_})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, [this](double) { storeForm(); });
    connect(soils_, &EditGrid::edited, this, &PilePage::storeSoils);
    connect(typed_, &EditGrid::edited, this, &PilePage::storeTyped);
}

QWidget* PilePage::makeForm()
{
    kind_->addItem(QStringLiteral("Забивная"));
    for (int i = 1; i <= 9; ++i) {
        const int row = i <= 2 ? i - 1 : i; // the group head has no coefficients of its own
        kind_->addItem(QString::fromStdWString(std::wstring(pileTypes.at(row))));
    }
    kind_->addItem(QStringLiteral("Винтовая"));
    kind_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    kind_->setMinimumContentsLength(14);
    section_->addItems({QStringLiteral("Круглое"),
        QStringLiteral("Квадратное"),
        QStringLiteral("Прямоугольное"),
        QStringLiteral("Прочее")});
    auto* content = new QWidget(this);
    auto* form = new QFormLayout(content);
    form->setContentsMargins(0, 0, 8, 0);
    form->addRow(QStringLiteral("Вид сваи"), kind_);
    form->addRow(QStringLiteral("Сечение"), section_);
    form->addRow(QStringLiteral("Сторона или диаметр"), side_);
    form->addRow(QStringLiteral("Вторая сторона"), secondSide_);
    form->addRow(QStringLiteral("Планировочная отметка, м"), planning_);
    form->addRow(QStringLiteral("Острие от, м"), first_);
    form->addRow(QStringLiteral("до, м"), last_);
    form->addRow(QStringLiteral("шаг, м"), step_);
    form->addRow(QStringLiteral("γc сваи"), condition_);
    form->addRow(QStringLiteral("γcR под острием"), tipCondition_);
    form->addRow(QStringLiteral("γn ответственности"), importance_);
    form->addRow(hasParts_);
    form->addRow(new QLabel(QStringLiteral("Вид грунта элементов"), content));
    soils_->setRowsGrow(false);
    soils_->setMinimumHeight(170);
    form->addRow(soils_);
    form->addRow(typedTitle_);
    typed_->setMinimumHeight(150);
    form->addRow(typed_);
    auto* area = new QScrollArea(this);
    area->setAccessibleName(QStringLiteral("Исходные данные сваи"));
    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setMinimumWidth(content->sizeHint().width() + 24);
    return area;
}

QWidget* PilePage::makeResults()
{
    title_->setWordWrap(true);
    results_->setEditingAllowed(false);
    results_->setRowsGrow(false);
    results_->setEmptyText(QStringLiteral("Задайте сечение сваи и глубины острия."));
    auto* splitter = new QSplitter(Qt::Vertical, this);
    auto* part = new QWidget(splitter);
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(title_);
    layout->addWidget(results_, 1);
    splitter->addWidget(part);
    splitter->addWidget(picture_);
    splitter->setChildrenCollapsible(false);
    keepSplitter(splitter, QStringLiteral("static/pileResults"), {320, 320});
    return splitter;
}

void PilePage::read(IDBProject* project)
{
    isReading_ = true;
    setEnabled(project != nullptr);
    if (project) {
        readForm(*project);
        readSoils(*project);
        readTyped(*project);
        showResults(*project);
    } else {
        results_->setRows({});
        picture_->setPages({}, {}, {});
    }
    isReading_ = false;
}

void PilePage::readForm(IDBProject& project)
{
    const SoundingTriples& triples = project.getSoundingTriples();
    kind_->setCurrentIndex(std::clamp(project.getSoundingValueC(), 0, 10));
    section_->setCurrentIndex(std::clamp(project.getSoundingValueD(), 0, 3));
    const auto pile = tripleOf(triples, sounding_triple::Pile);
    const auto depths = tripleOf(triples, sounding_triple::PileDepths);
    const auto coefficients = tripleOf(triples, sounding_triple::Coefficients);
    side_->setValue(pile[0]);
    secondSide_->setValue(pile[1]);
    step_->setValue(pile[2] / 100.0);
    planning_->setValue(depths[0] / 100.0);
    first_->setValue(depths[1] / 100.0);
    last_->setValue(depths[2] / 100.0);
    condition_->setValue(coefficients[0] > 0 ? coefficients[0] / 100.0 : 1.0);
    tipCondition_->setValue(coefficients[1] > 0 ? coefficients[1] / 100.0 : 1.0);
    importance_->setValue(coefficients[2] > 0 ? coefficients[2] / 100.0 : 1.0);
    const bool isBored = kind_->currentIndex() >= 1 && kind_->currentIndex() <= 9;
    secondSide_->setEnabled(section_->currentIndex() == 2);
    tipCondition_->setEnabled(isBored);
    typedTitle_->setVisible(isBored);
    typed_->setVisible(isBored);
}

void PilePage::readSoils(IDBProject& project)
{
    GridRows rows;
    for (const auto& [name, element] : project.getStrataElements()) {
        const int soil = static_cast<int>(pileSoil(project, name));
        GridRow row;
        row.id = rows.size() + 1;
        row.cells = {QString::fromStdWString(name), soil == 0 ? QString() : soilKinds()[soil - 1]};
        row.warnings = {QString(),
            soil == 0 ? QStringLiteral("Без вида грунта боковое сопротивление не рассчитать") : QString()};
        rows.append(row);
    }
    soils_->setRows(rows);
}

void PilePage::readTyped(IDBProject& project)
{
    GridRows rows;
    for (const auto& [key, triple] : project.getSoundingTriples()) {
        if (key < sounding_triple::BoredLayers)
            continue;
        GridRow row;
        row.id = rows.size() + 1;
        row.cells = {QString::fromStdWString(numberText(triple[2] / 100.0, 2)),
            triple[0] > 0 ? QString::number(triple[0]) : QString(),
            triple[1] > 0 ? QString::number(triple[1]) : QString()};
        rows.append(row);
    }
    typed_->setRows(rows);
}

void PilePage::showResults(IDBProject& project)
{
    const PileTask task = pileTask(project);
    const SiteSoundings soundings(project);
    const std::vector<PileRow> rows = pileRows(project, soundings, task);
    GridRows shown;
    for (const PileRow& row : rows) {
        const Number values[] = {row.tipDepth,
            row.tipMark,
            static_cast<double>(row.group.n),
            row.group.resistanceKN,
            row.group.deviationKN,
            row.group.variation,
            row.group.coefficient,
            row.group.capacityKN,
            row.group.loadKN};
        constexpr int decimals[] = {2, 2, 0, 1, 1, 3, 3, 1, 1};
        GridRow made;
        made.id = shown.size() + 1;
        for (std::size_t i = 0; i < std::size(values); ++i)
            made.cells += QString::fromStdWString(numberText(values[i], decimals[i]));
        const CapacityGraph graph = capacityGraph({row});
        made.cells += QString::fromStdWString(numberText(graph.points.front().tip, 1));
        made.cells += QString::fromStdWString(numberText(graph.points.front().side, 1));
        made.cells += remarksOf(row);
        shown.append(made);
    }
    results_->setRows(shown);
    title_->setText(rows.empty()
            ? QString()
            : QString::fromStdWString(pileTitle(task, namesOf(rows), PilePart::Whole, languageRussian)));
    std::vector<Drawing> pages;
    if (!rows.empty())
        pages.push_back(capacityDrawing(capacityGraph(rows)));
    picture_->setPages(std::move(pages), {}, QStringLiteral("Несущая способность свай"));
    picture_->setMessage(
        rows.empty() ? QStringLiteral("Здесь будет график несущей способности по глубине.") : QString());
}

void PilePage::closeEditors()
{
    soils_->closeEditor();
    typed_->closeEditor();
}

void PilePage::storeForm()
{
    IDBProject* project = screen_.project();
    if (isReading_ || !project)
        return;
    const PileState before = pileState(*project);
    PileState after = before;
    after.kind = kind_->currentIndex();
    after.section = section_->currentIndex();
    after.triples[sounding_triple::Pile] = {side_->value(), secondSide_->value(), hundredths(step_)};
    after.triples[sounding_triple::PileDepths] = {
        hundredths(planning_), hundredths(first_), hundredths(last_)};
    after.triples[sounding_triple::Coefficients] = {
        hundredths(condition_), hundredths(tipCondition_), hundredths(importance_)};
    screen_.change<PileState>(putPile, before, after);
}

void PilePage::storeSoils(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (isReading_ || !project)
        return;
    const PileState before = pileState(*project);
    PileState changed = before;
    for (const GridRow& row : after) {
        const std::wstring name = row.cells[0].toStdWString();
        std::erase_if(changed.flags, [&](const auto& flag) { return flag.first == name; });
        if (const int kind = soilKinds().indexOf(row.cells[1]); kind >= 0)
            changed.flags.insert({name, static_cast<std::uint8_t>(kind + 1)});
    }
    screen_.change<PileState>(putPile, before, changed);
}

void PilePage::storeTyped(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (isReading_ || !project)
        return;
    const PileState before = pileState(*project);
    PileState changed = before;
    std::erase_if(
        changed.triples, [](const auto& triple) { return triple.first >= sounding_triple::BoredLayers; });
    for (int i = 0; i < after.size() && i < 200; ++i)
        changed.triples[static_cast<std::uint8_t>(sounding_triple::BoredLayers + i)] = {
            wholeOf(after[i].cells[1], 1.0),
            wholeOf(after[i].cells[2], 1.0),
            wholeOf(after[i].cells[0], 100.0)};
    screen_.change<PileState>(putPile, before, changed);
}

void PilePage::calculate()
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    const std::vector<PileRow> rows = pileRows(*project, SiteSoundings(*project), pileTask(*project));
    if (rows.empty()) {
        Q_EMIT said(
            QStringLiteral("Рассчитывать нечего: задайте сечение, глубины острия и отсчёты зондирований."));
        return;
    }
    const PileState before = pileState(*project);
    PileState after = before;
    after.results = pileCalcRows(rows);
    screen_.change<PileState>(putPile, before, after);
    Q_EMIT said(
        QStringLiteral("Рассчитано глубин острия: %1. Результаты записаны в проект.").arg(rows.size()));
}

std::optional<Document> PilePage::report()
{
    IDBProject* project = screen_.project();
    if (!project)
        return std::nullopt;
    const PileTask task = pileTask(*project);
    const std::vector<PileRow> rows = pileRows(*project, SiteSoundings(*project), task);
    if (rows.empty())
        return std::nullopt;
    return pileReport(
        rows, task, hasParts_->isChecked(), knownLanguage(screen_.settings()->reportLanguage()));
}

void PilePage::tellView(ITellurixController& controller) const
{
    controller.setProbingView(2);
    controller.setProbingSubView(0);
}
