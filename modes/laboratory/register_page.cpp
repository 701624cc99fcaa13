#include "laboratory/register_page.h"

#include "common/edit_grid.h"
#include "common/export_dialog.h"
#include "common/mode_screen.h"
#include "db/exact_key.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/report_language.h"
#include "laboratory/sample_cells.h"
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
#include <QSet>
#include <QVBoxLayout>

#include <algorithm>
#include <set>
#include <utility>

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

// Thousands of samples share the few texts that there are.
QString testsOf(const LabSample& sample)
{
    static QHash<unsigned, QString> known;
    unsigned present = 0;
    for (std::size_t i = 0; i < std::size(testRows); ++i)
        present |= testRows[i].isPresent(sample) ? 1U << i : 0U;
    QString& text = known[present];
    if (present != 0 && text.isEmpty()) {
        QStringList names;
        for (std::size_t i = 0; i < std::size(testRows); ++i)
            if (present >> i & 1U)
                names.push_back(QString::fromUtf8(testRows[i].name));
        text = names.join(QStringLiteral(", "));
    }
    return text;
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

RegisterPage::RegisterPage(ModeScreen& screen, SampleStore& store)
    : screen_(screen)
    , store_(store)
    , grid_(new EditGrid(QStringLiteral("laboratory/register"), columns(), this))
    , filter_(new QLineEdit(this))
    , missing_(new QComboBox(this))
{
    setObjectName(QStringLiteral("register"));
    grid_->setObjectName(QStringLiteral("samples"));
    grid_->setNameColumn(0, 2);
    grid_->setAccessibleName(QStringLiteral("Реестр проб"));
    grid_->setEmptyText(
        QStringLiteral("Лабораторных проб нет.\nIns или «Новая проба» — добавить, «Взять из реестра проб» "
                       "— завести все отобранные."));
    setFocusProxy(grid_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    auto* bar = new QHBoxLayout;
    makeBar(*bar);
    layout->addLayout(bar);
    layout->addWidget(grid_, 1);
    connect(grid_, &EditGrid::edited, this, [this](const GridRows& after) {
        screen_.attempt([&] { edited(after); });
    });
    connect(grid_, &EditGrid::told, this, &Page::said);
}

void RegisterPage::addRecord()
{
    grid_->addRow();
    grid_->setFocus();
}

void RegisterPage::deleteRecords()
{
    grid_->deleteSelectedRows();
}

void RegisterPage::makeBar(QHBoxLayout& bar)
{
    filter_->setAccessibleName(QStringLiteral("Фильтр проб"));
    filter_->setPlaceholderText(QStringLiteral("Фильтр: точка, код, ИГЭ, грунт…"));
    filter_->setClearButtonEnabled(true);
    filter_->setFixedWidth(220);
    connect(filter_, &QLineEdit::textChanged, grid_, &EditGrid::setFilterText);
    bar.addWidget(filter_);
    missing_->setAccessibleName(QStringLiteral("Какие пробы показаны"));
    missing_->addItem(QStringLiteral("Все пробы"));
    for (const TestRow& row : testRows)
        missing_->addItem(QStringLiteral("Нет испытания: ") + QString::fromUtf8(row.name));
    connect(missing_, qOverload<int>(&QComboBox::activated), this, [this] { read(screen_.project()); });
    bar.addWidget(missing_);
    bar.addStretch(1);
    struct Button {
        const char* text;
        const char* tip;
        void (*act)(RegisterPage&);
    };
    static constexpr Button buttons[] = {
        {"Взять из реестра проб",
            "Завести лабораторную пробу для каждой отобранной, которой здесь еще нет",
            [](RegisterPage& page) { page.takeFromRegister(); }},
        {"Ведомость по точкам…",
            "Сводная ведомость свойств всех проб: по выработкам и глубине",
            [](RegisterPage& page) { page.makeSummary(false); }},
        {"Ведомость по ИГЭ…",
            "Сводная ведомость свойств всех проб: по инженерно-геологическим элементам",
            [](RegisterPage& page) { page.makeSummary(true); }},
        {"Новая проба", "Ins", [](RegisterPage& page) { page.addRecord(); }},
        {"Удалить", "Ctrl+Del", [](RegisterPage& page) { page.deleteRecords(); }},
    };
    for (const Button& each : buttons) {
        auto* button = new QPushButton(QString::fromUtf8(each.text), this);
        button->setToolTip(QString::fromUtf8(each.tip));
        connect(button, &QPushButton::clicked, this, [this, act = each.act] {
            screen_.attempt([this, act] {
                closeEditors();
                act(*this);
            });
        });
        bar.addWidget(button);
    }
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

bool RegisterPage::isShown(const LabSample& sample) const
{
    const int index = missing_->currentIndex() - 1;
    return index < 0 || !testRows[index].isPresent(sample);
}

// What of a row the sample's record alone decides.
static void showSample(GridRow& row, const LabSample& sample)
{
    row.cells[Code] = qText(sample.code);
    row.cells[Number_] = QString::number(sample.number);
    row.cells[Soil] = qText(sample.soilKind.text);
    row.cells[Tests] = testsOf(sample);
}

void RegisterPage::read(IDBProject* project)
{
    const std::optional<std::vector<PointDepthKey>> changed = store_.takeChanged();
    if (!project) {
        shown_.clear();
        keys_.clear();
        places_.clear();
        grid_->setRows({});
        return;
    }
    if (!changed || !readChanged(*project, *changed))
        readAll(*project);
    grid_->setRows(open_.isEmpty() ? shown_ : shown_ + open_);
}

// Where no sample has come, gone or moved.
bool RegisterPage::readChanged(IDBProject& project, const std::vector<PointDepthKey>& changed)
{
    if (missing_->currentIndex() > 0)
        return false;
    for (const PointDepthKey& key : changed) {
        const LabSample* sample = findSample(project, key);
        const int place = places_.value(ids_.of(key), -1);
        if (!sample || place < 0)
            return false;
        showSample(shown_[place], *sample);
    }
    return true;
}

namespace
{

// What of the rows other registers decide. Samples of a point come one after another, so what was found last
// is mostly what is looked for next.
class Surroundings
{
public:
    explicit Surroundings(IDBProject& project)
        : layers_(project)
        , field_(project.getSamples())
    {
    }

    void show(GridRow& row, const PointDepthKey& key)
    {
        if (name_ != key.pointName) {
            name_ = key.pointName;
            shownName_ = qText(name_);
        }
        row.cells[Point] = shownName_;
        row.cells[Depth] = qText(key.depth);
        if (const SampleValue* taken = field_.find(key.pointName, key.depth))
            row.cells[Kind] = kindName(taken->sampleKind);
        const ::Number depth = readNumber(key.depth);
        const std::optional<SiteLayer> layer = depth ? layers_.layerAt(key.pointName, *depth) : std::nullopt;
        if (!layer)
            row.warnings = outside_;
        else if (!layer->element.empty())
            row.cells[Element] = qText(layer->element);
    }

private:
    QString kindName(int kind)
    {
        QString& name = kinds_[kind];
        if (const std::wstring_view* found = name.isEmpty() ? sampleKinds.find(kind) : nullptr)
            name = qText(*found);
        return name;
    }

    LayerFinder layers_;
    RowsByPlace<SampleRegister> field_;
    const QVector<QString> outside_ = QVector<QString>(Element)
        << QStringLiteral("Проба не попадает ни в один слой точки");
    QHash<int, QString> kinds_;
    std::wstring_view name_;
    QString shownName_;
};

} // namespace

// Mostly the samples are those of the last time in the same order, and their rows keep their ids unsought.
void RegisterPage::readAll(IDBProject& project)
{
    std::vector<PointDepthKey> keysBefore = std::exchange(keys_, {});
    const GridRows rowsBefore = std::exchange(shown_, {});
    shown_.reserve(rowsBefore.size());
    keys_.reserve(keysBefore.size());
    ids_.reserve(project.getLabSamples().size());
    Surroundings surroundings(project);
    bool isSameOrder = true;
    for (const auto& [key, sample] : project.getLabSamples()) {
        if (!isShown(sample))
            continue;
        const std::size_t place = keys_.size();
        const bool isSame = place < keysBefore.size() && keysBefore[place].pointName == key.pointName
            && keysBefore[place].depth == key.depth;
        isSameOrder = isSameOrder && isSame;
        GridRow row;
        row.id = isSame ? rowsBefore[static_cast<int>(place)].id : ids_.of(key);
        row.cells.resize(Tests + 1);
        surroundings.show(row, key);
        showSample(row, sample);
        if (isSame)
            keys_.push_back(std::move(keysBefore[place]));
        else
            keys_.push_back(key);
        shown_.push_back(std::move(row));
    }
    if (isSameOrder && keys_.size() == keysBefore.size())
        return;
    places_.clear();
    places_.reserve(shown_.size());
    for (int place = 0; place < shown_.size(); ++place)
        places_.insert(qAsConst(shown_)[place].id, place);
}

void RegisterPage::store(SampleStates before, SampleStates after)
{
    if (after.empty())
        read(screen_.project());
    else
        store_.change(std::move(before), std::move(after));
}

// What the rows of the grid change, as they are gone through.
struct RegisterPage::Edits {
    using Place = std::pair<std::wstring, std::wstring>;

    SampleStates before;
    SampleStates after;
    GridRows open;
    std::set<Place> chosen; // where samples come to stand
    int lastNumber = 0; // in the register of the laboratory
    QString refusal; // why a sample could not be moved

    static Place placeOf(const PointDepthKey& key) { return {key.pointName, key.depth}; }
};

static PointDepthKey keyIn(const GridRow& row)
{
    return {row.cells[Point].trimmed().toStdWString(), row.cells[Depth].trimmed().toStdWString()};
}

// A name of the soil that was typed stays: its group is none.
static void takeCells(const GridRow& row, LabSample& sample)
{
    sample.code = row.cells[Code].toStdWString();
    bool isNumber = false;
    const int number = row.cells[Number_].toInt(&isNumber);
    if (isNumber)
        sample.number = number;
    if (const std::wstring soil = row.cells[Soil].toStdWString(); soil != sample.soilKind.text)
        sample.soilKind = {0, soil};
}

void RegisterPage::takeRow(IDBProject& project, GridRow row, Edits& edits)
{
    row.cells.resize(Tests + 1);
    const int place = places_.value(row.id, -1);
    const PointDepthKey* old = place < 0 ? nullptr : &keys_[static_cast<std::size_t>(place)];
    const LabSample* sample = old ? findSample(project, *old) : nullptr;
    const PointDepthKey key = keyIn(row);
    LabSample made = sample ? *sample : blankSample(project, edits.lastNumber + 1);
    if (!sample && row.cells[Code].isEmpty())
        row.cells[Code] = qText(made.code);
    takeCells(row, made);
    const bool hasMoved = !sample || old->pointName != key.pointName || old->depth != key.depth;
    if (!hasMoved) {
        edits.before.push_back({*old, *sample});
        edits.after.push_back({*old, std::move(made)});
        return;
    }
    const std::wstring refusal = edits.chosen.contains(Edits::placeOf(key))
        ? std::wstring(L"Эта проба введена дважды")
        : refusalOf(project, key);
    if (!refusal.empty()) {
        // A sample stays where it is; a new row waits on the screen with its reason.
        if (sample) {
            edits.refusal = qText(refusal);
            return;
        }
        row.id = row.id == 0 ? ids_.next() : row.id;
        row.problems = QVector<QString>(Depth + 1);
        // A row that nobody typed into yet is no fault.
        if (!key.pointName.empty() || !key.depth.empty() || !row.cells[Soil].isEmpty())
            row.problems[key.pointName.empty() ? Point : Depth] = qText(refusal);
        edits.open.push_back(row);
        return;
    }
    // The row goes with its sample, the cursor with the row.
    if (row.id != 0)
        ids_.give(key, row.id);
    edits.chosen.insert(Edits::placeOf(key));
    edits.before.push_back({key, std::nullopt});
    if (sample) {
        edits.before.push_back({*old, *sample});
        edits.after.push_back({*old, std::nullopt});
    } else {
        edits.lastNumber = std::max(edits.lastNumber, made.number);
    }
    edits.after.push_back({key, std::move(made)});
}

void RegisterPage::edited(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    Edits edits;
    edits.lastNumber = greatestNumber(*project);
    QSet<qint64> isThere;
    for (const GridRow& row : after) {
        const int place = places_.value(row.id, -1);
        isThere.insert(row.id);
        if (place >= 0 && qAsConst(shown_)[place].cells == row.cells)
            continue;
        takeRow(*project, row, edits);
    }
    for (std::size_t place = 0; place < keys_.size(); ++place) {
        if (isThere.contains(qAsConst(shown_)[static_cast<int>(place)].id))
            continue;
        const PointDepthKey& key = keys_[place];
        const LabSample* sample = findSample(*project, key);
        if (!sample)
            continue;
        edits.before.push_back({key, *sample});
        edits.after.push_back({key, std::nullopt});
    }
    open_ = edits.open;
    store(std::move(edits.before), std::move(edits.after));
    if (!edits.refusal.isEmpty())
        Q_EMIT said(edits.refusal);
}

void RegisterPage::takeFromRegister()
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    std::set<Edits::Place> known;
    for (const auto& [key, sample] : project->getLabSamples())
        known.insert(Edits::placeOf(key));
    SampleStates before;
    SampleStates after;
    int refused = 0;
    int number = greatestNumber(*project);
    for (const auto& [key, value] : project->getSamples()) {
        if (known.contains(Edits::placeOf(key)))
            continue;
        if (!refusalOf(*project, key).empty()) {
            ++refused;
            continue;
        }
        before.push_back({key, std::nullopt});
        after.push_back({key, blankSample(*project, ++number)});
    }
    const std::size_t count = after.size();
    store(std::move(before), std::move(after));
    Q_EMIT said(count == 0 && refused == 0 ? QStringLiteral("Все отобранные пробы уже заведены.")
            : refused == 0
            ? QStringLiteral("Заведено проб: %1.").arg(count)
            : QStringLiteral("Заведено проб: %1; не принято реестром: %2.").arg(count).arg(refused));
}

void RegisterPage::makeSummary(bool byElement)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    const SiteLaboratory site(*project, knownLanguage(screen_.settings()->reportLanguage()));
    exportDocument(this, *screen_.controller(), laboratorySummary(*project, site, byElement));
}

void RegisterPage::calculate() { }

std::optional<Document> RegisterPage::report()
{
    IDBProject* project = screen_.project();
    if (!project)
        return std::nullopt;
    const SiteLaboratory site(*project, knownLanguage(screen_.settings()->reportLanguage()));
    return laboratorySummary(*project, site, false);
}
