#include "laboratory/register_page.h"

#include "common/export_dialog.h"
#include "common/edit_grid.h"
#include "common/mode_screen.h"
#include "db/exact_key.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "modules/isettings.h"
#include "reports/laboratory_passports.h"
#include "site/by_point.h"
#include "site/derived_cells.h"
#include "site/elements.h"
#include "site/layers.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

enum Column {
    Point,
    Depth,
    Code,
    Number_,
    Kind,
    Element,
    Soil,
    Tests,
};

// Rows that are no samples yet have ids above all others.
constexpr qint64 firstOpen = 1'000'000'000;

QString qText(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

struct TestRow {
    const char* name;
    bool (*isPresent)(const LabSample&);
};

bool hasProperties(const LabSample& sample)
{
    return std::any_of(sample.physical.begin(), sample.physical.end(), [](const PropertyCell& cell) {
        return !cell.value.empty();
    });
}

constexpr TestRow testRows[] = {
    {"физические", hasProperties},
    {"гранулометрия", [](const LabSample& sample) { return !sample.grading.empty(); }},
    {"компрессия", [](const LabSample& sample) { return !sample.compression.empty(); }},
    {"сдвиг", [](const LabSample& sample) { return !sample.shear.empty(); }},
    {"набухание", [](const LabSample& sample) { return !sample.swelling.empty(); }},
    {"усадка", [](const LabSample& sample) { return !sample.shrinkage.empty(); }},
};

QString testsOf(const LabSample& sample)
{
    QStringList names;
    for (const TestRow& row : testRows)
        if (row.isPresent(sample))
            names.push_back(QString::fromUtf8(row.name));
    return names.join(QStringLiteral(", "));
}

QVector<GridColumn> columns()
{
    const auto readOnly = [](const char* title, int width) {
        GridColumn column;
        column.title = QString::fromUtf8(title);
        column.width = width;
        column.readOnly = true;
        return column;
    };
    return {{QStringLiteral("Точка"), GridColumn::Text, 110},
        {QStringLiteral("Глубина, м"), GridColumn::Number, 90},
        {QStringLiteral("Код пробы"), GridColumn::Text, 90},
        {QStringLiteral("Номер\nв журнале"), GridColumn::Number, 80},
        readOnly("Вид пробы", 140),
        readOnly("ИГЭ", 60),
        {QStringLiteral("Наименование грунта"), GridColumn::Text, 260},
        readOnly("Испытания", 360)};
}

} // namespace

RegisterPage::RegisterPage(ModeScreen& screen)
    : screen_(screen)
    , grid_(new EditGrid(QStringLiteral("laboratory/register"), columns(), this))
    , filter_(new QLineEdit(this))
    , missing_(new QComboBox(this))
{
    setObjectName(QStringLiteral("register"));
    grid_->setObjectName(QStringLiteral("samples"));
    grid_->setAccessibleName(QStringLiteral("Реестр проб"));
    filter_->setAccessibleName(QStringLiteral("Фильтр проб"));
    missing_->setAccessibleName(QStringLiteral("Какие пробы показаны"));
    grid_->setEmptyText(
        QStringLiteral("Лабораторных проб нет.\nIns или «Новая проба» — добавить, «Взять из реестра проб» "
                       "— завести все отобранные."));
    setFocusProxy(grid_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    auto* bar = new QHBoxLayout;
    filter_->setPlaceholderText(QStringLiteral("Фильтр: точка, код, ИГЭ, грунт…"));
    filter_->setClearButtonEnabled(true);
    filter_->setFixedWidth(240);
    connect(
        filter_, &QLineEdit::textChanged, this, [this](const QString& text) { grid_->setFilterText(text); });
    bar->addWidget(filter_);
    missing_->addItem(QStringLiteral("Все пробы"));
    for (const TestRow& row : testRows)
        missing_->addItem(QStringLiteral("Нет испытания: ") + QString::fromUtf8(row.name));
    connect(missing_, qOverload<int>(&QComboBox::activated), this, [this] { read(screen_.project()); });
    bar->addWidget(missing_);
    bar->addStretch(1);
    const auto addButton = [&](const QString& text, const QString& tip, void (*act)(RegisterPage&)) {
        auto* button = new QPushButton(text, this);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, [this, act] {
            screen_.attempt([this, act] { act(*this); });
        });
        bar->addWidget(button);
    };
    addButton(QStringLiteral("Взять из реестра проб"),
        QStringLiteral("Завести лабораторную пробу для каждой отобранной, которой здесь еще нет"),
        [](RegisterPage& page) { page.takeFromRegister(); });
    addButton(QStringLiteral("Сводная ведомость…"),
        QStringLiteral("Физико-механические свойства всех проб одной таблицей"),
        [](RegisterPage& page) {
            page.closeEditors();
            if (const std::optional<Document> document = page.report())
                exportDocument(&page, *page.screen_.controller(), *document);
        });
    addButton(QStringLiteral("Новая проба"), QStringLiteral("Ins"), [](RegisterPage& page) {
        page.closeEditors();
        page.grid_->addRow();
        page.grid_->setFocus();
    });
    addButton(QStringLiteral("Удалить"), QStringLiteral("Ctrl+Del"), [](RegisterPage& page) {
        page.closeEditors();
        page.grid_->deleteSelectedRows();
    });
    layout->addLayout(bar);
    layout->addWidget(grid_, 1);
    connect(grid_, &EditGrid::edited, this, [this](const GridRows& after) {
        screen_.attempt([&] { edited(after); });
    });
    connect(grid_, &EditGrid::told, this, &Page::said);
}

void RegisterPage::closeEditors()
{
    grid_->closeEditor();
}

void RegisterPage::forget()
{
    open_.clear();
}

QString RegisterPage::problem()
{
    for (const GridRow& row : open_)
        for (const QString& text : row.problems)
            if (!text.isEmpty())
                return QStringLiteral("Реестр проб, «%1 / %2»: %3")
                    .arg(row.cells[Point], row.cells[Depth], text);
    return {};
}

void RegisterPage::tellView(ITellurixController& controller) const
{
    controller.setLabMode(LabNone);
    controller.setLabState(0);
    controller.setEditedSample({});
    controller.setEditedSampleName({});
}

bool RegisterPage::isShown(const LabSample& sample, std::wstring_view) const
{
    const int index = missing_->currentIndex() - 1;
    return index < 0 || !testRows[index].isPresent(sample);
}

void RegisterPage::read(IDBProject* project)
{
    keys_.clear();
    GridRows rows;
    if (project) {
        const SiteLayers layers(*project);
        const auto kinds = rowsByPlace(project->getSamples());
        for (const auto& [key, sample] : project->getLabSamples()) {
            keys_.push_back(key);
            const Number depth = readNumber(key.depth);
            const SiteLayer* layer = depth ? layers.layerAt(key.pointName, *depth) : nullptr;
            const auto kind = kinds.find({key.pointName, key.depth});
            const std::wstring_view* kindName =
                kind == kinds.end() ? nullptr : sampleKinds.find(kind->second->sampleKind);
            if (!isShown(sample, {}))
                continue;
            GridRow row;
            row.id = static_cast<qint64>(keys_.size());
            row.cells = {qText(key.pointName),
                qText(key.depth),
                qText(sample.code),
                QString::number(sample.number),
                kindName ? qText(*kindName) : QString(),
                layer ? qText(layer->element) : QString(),
                qText(sample.soilKind.text),
                testsOf(sample)};
            if (!layer)
                row.warnings = QVector<QString>(Element)
                    << QStringLiteral("Проба не попадает ни в один слой точки");
            rows.push_back(row);
        }
        rows += open_;
    }
    grid_->setRows(rows);
}

void RegisterPage::store(SampleStates before, SampleStates after)
{
    if (!after.empty())
        screen_.change<SampleStates>(putSamples, std::move(before), std::move(after));
    else
        read(screen_.project());
}

void RegisterPage::edited(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    SampleStates before;
    SampleStates changed;
    GridRows open;
    std::vector<bool> isThere(keys_.size(), false);
    const auto keyIn = [](const GridRow& row) {
        return PointDepthKey{
            row.cells[Point].trimmed().toStdWString(), row.cells[Depth].trimmed().toStdWString()};
    };
    const auto take = [](const GridRow& row, LabSample& sample) {
        sample.code = row.cells[Code].toStdWString();
        bool isNumber = false;
        const int number = row.cells[Number_].toInt(&isNumber);
        if (isNumber)
            sample.number = number;
        if (const std::wstring soil = row.cells[Soil].toStdWString(); soil != sample.soilKind.text)
            sample.soilKind = {0, soil};
    };
    const auto isChosen = [&](const PointDepthKey& key) {
        return std::any_of(changed.begin(), changed.end(), [&](const SampleState& state) {
            return state.sample && state.key.pointName == key.pointName && state.key.depth == key.depth;
        });
    };
    for (GridRow row : after) {
        const bool isStored = row.id > 0 && row.id <= static_cast<qint64>(keys_.size());
        const PointDepthKey key = keyIn(row);
        const PointDepthKey* old = isStored ? &keys_[static_cast<std::size_t>(row.id - 1)] : nullptr;
        if (old)
            isThere[static_cast<std::size_t>(row.id - 1)] = true;
        const bool hasMoved = !old || old->pointName != key.pointName || old->depth != key.depth;
        const LabSample* sample = old ? findSample(*project, *old) : nullptr;
        LabSample made = sample ? *sample : newSample(*project);
        if (!old && !row.cells[Code].isEmpty())
            made.code.clear();
        if (!old && row.cells[Code].isEmpty())
            row.cells[Code] = qText(made.code);
        take(row, made);
        if (hasMoved) {
            const std::wstring refusal =
                isChosen(key) ? std::wstring(L"Эта проба введена дважды") : refusalOf(*project, key);
            if (!refusal.empty()) {
                if (old) {
                    Q_EMIT said(qText(refusal));
                    continue;
                }
                row.id = row.id >= firstOpen ? row.id : firstOpen + ++lastOpen_;
                row.problems = QVector<QString>(2);
                row.problems[key.pointName.empty() ? Point : Depth] = qText(refusal);
                open.push_back(row);
                continue;
            }
            before.push_back({key, std::nullopt});
            if (old) {
                before.push_back({*old, *sample});
                changed.push_back({*old, std::nullopt});
            } else {
                made.number = newSample(*project).number + static_cast<int>(changed.size());
            }
            changed.push_back({key, std::move(made)});
        } else if (sample
            && (made.code != sample->code || made.number != sample->number
                || made.soilKind.text != sample->soilKind.text)) {
            before.push_back({*old, *sample});
            changed.push_back({*old, std::move(made)});
        }
    }
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        const LabSample* sample = findSample(*project, keys_[i]);
        if (isThere[i] || !sample || !isShown(*sample, {}))
            continue;
        before.push_back({keys_[i], *sample});
        changed.push_back({keys_[i], std::nullopt});
    }
    open_ = open;
    store(std::move(before), std::move(changed));
}

void RegisterPage::takeFromRegister()
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    closeEditors();
    SampleStates before;
    SampleStates after;
    int refused = 0;
    LabSample fresh = newSample(*project);
    for (const auto& [key, value] : project->getSamples()) {
        if (findSample(*project, key))
            continue;
        if (!refusalOf(*project, key).empty()) {
            ++refused;
            continue;
        }
        before.push_back({key, std::nullopt});
        after.push_back({key, fresh});
        ++fresh.number;
        fresh.code = std::to_wstring(fresh.number);
    }
    const int count = static_cast<int>(after.size());
    store(std::move(before), std::move(after));
    Q_EMIT said(count == 0 && refused == 0 ? QStringLiteral("Все отобранные пробы уже заведены.")
            : refused == 0
            ? QStringLiteral("Заведено проб: %1.").arg(count)
            : QStringLiteral("Заведено проб: %1; не принято реестром: %2.").arg(count).arg(refused));
}

void RegisterPage::calculate() { }

std::optional<Document> RegisterPage::report()
{
    IDBProject* project = screen_.project();
    if (!project)
        return std::nullopt;
    const SiteLaboratory site(*project, screen_.settings()->reportLanguage() == 1 ? 1 : 0);
    return laboratorySummary(*project, site, false);
}
