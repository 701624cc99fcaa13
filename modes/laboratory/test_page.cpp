#include "laboratory/test_page.h"

#include "common/export_dialog.h"
#include "common/drawing_view.h"
#include "common/edit_grid.h"
#include "common/mode_screen.h"
#include "common/view_settings.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "laboratory/parallels_dialog.h"
#include "modules/isettings.h"
#include "plots/laboratory_curves.h"
#include "reports/laboratory_passports.h"
#include "site/derived_cells.h"
#include "site/elements.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int firstDataColumn = 4;
// Any state but 0 and 8 lets the shell calculate: 0 is a screen without samples, 8 the editing of one.
constexpr int stateOfTable = 1;
constexpr int stateOfEditing = 8;

const char* nameOf(LabTest test)
{
    constexpr const char* names[] = {"physical", "grading", "compression", "shear", "swelling", "shrinkage"};
    return names[static_cast<std::size_t>(test)];
}

TX_Lab_Modes labModeOf(LabTest test)
{
    constexpr TX_Lab_Modes modes[] = {
        LabPhysical, LabGranulometry, LabCompression, LabShear, LabSwell, LabShrink};
    return modes[static_cast<std::size_t>(test)];
}

QString qText(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

QString hashOf(const PointDepthKey& key)
{
    return QString::fromStdWString(key.pointName) + QChar(0x1f) + QString::fromStdWString(key.depth);
}

GridColumn fixedColumn(const QString& title, int width)
{
    GridColumn column;
    column.title = title;
    column.width = width;
    column.readOnly = true;
    return column;
}

bool means(const std::string& cell, const std::string& mark)
{
    return !mark.empty()
        && (cell == mark
            || (mark.find('/') == std::string::npos && mark != "grading" && cell.rfind(mark + "/", 0) == 0));
}

void addTo(QVector<QString>& texts, int column, const QString& text)
{
    if (texts.size() <= column)
        texts.resize(column + 1);
    if (!texts[column].isEmpty())
        texts[column] += QLatin1Char('\n');
    texts[column] += text;
}

void addRemark(GridRow& row, int column, const Remark& remark)
{
    addTo(remark.kind == Remark::Impossible ? row.problems : row.warnings, column, qText(remark.text));
}

} // namespace

TestPage::TestPage(ModeScreen& screen, LabTest test)
    : screen_(screen)
    , splitter_(new QSplitter(Qt::Horizontal, this))
    , stack_(new QStackedWidget(splitter_))
    , view_(new DrawingView(splitter_))
{
    choice_.test = test;
    choice_.method = test == LabTest::Compression ? 21 : test == LabTest::Shear ? 1 : 0;
    setObjectName(QLatin1String(nameOf(test)));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    makeBar(layout);
    layout->addWidget(splitter_, 1);
    splitter_->addWidget(stack_);
    splitter_->addWidget(view_);
    if (test == LabTest::Physical)
        view_->hide();
    keepSplitter(splitter_, QStringLiteral("laboratory/") + QLatin1String(nameOf(test)), {700, 480});
}

TestPage::~TestPage() = default;

void TestPage::makeBar(QVBoxLayout* layout)
{
    auto* bar = new QHBoxLayout;
    title_ = new QLabel(this);
    title_->hide();
    bar->addWidget(title_);
    if (choice_.test == LabTest::Compression || choice_.test == LabTest::Shear) {
        method_ = new QComboBox(this);
        method_->setObjectName(QStringLiteral("method"));
        method_->setAccessibleName(QStringLiteral("Способ испытания"));
        method_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        method_->setMinimumContentsLength(38);
        addMethods();
        bar->addWidget(method_);
        connect(method_, qOverload<int>(&QComboBox::activated), this, [this] {
            choice_.method = method_->currentData().toInt();
            isStale_ = true;
            Q_EMIT statesChanged();
            read(screen_.project());
        });
    }
    if (choice_.test == LabTest::Compression) {
        branch_ = new QComboBox(this);
        branch_->setAccessibleName(QStringLiteral("Образец"));
        branch_->addItems({QStringLiteral("Первый образец, до замачивания"),
            QStringLiteral("Второй образец, после замачивания")});
        bar->addWidget(branch_);
        connect(branch_, qOverload<int>(&QComboBox::activated), this, [this](int index) {
            choice_.branch = index;
            isStale_ = true;
            read(screen_.project());
        });
    }
    filter_ = new QLineEdit(this);
    filter_->setPlaceholderText(QStringLiteral("Фильтр: точка, проба, ИГЭ…"));
    filter_->setAccessibleName(QStringLiteral("Фильтр проб"));
    filter_->setClearButtonEnabled(true);
    filter_->setFixedWidth(190);
    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (grid_)
            grid_->setFilterText(text);
    });
    bar->addWidget(filter_);
    bar->addStretch(1);
    if (choice_.test == LabTest::Physical) {
        parallels_ = new QPushButton(QStringLiteral("Параллельные определения…"), this);
        connect(parallels_, &QPushButton::clicked, this, [this] {
            screen_.attempt([this] { openParallels(); });
        });
        bar->addWidget(parallels_);
        auto* passports = new QPushButton(QStringLiteral("Паспорта…"), this);
        passports->setToolTip(QStringLiteral("Физические свойства, по листу на пробу"));
        connect(passports, &QPushButton::clicked, this, [this] {
            screen_.attempt([this] {
                closeEditors();
                if (const std::optional<Document> document = report())
                    exportDocument(this, *screen_.controller(), *document);
            });
        });
        bar->addWidget(passports);
    }
    recalculate_ = new QPushButton(QStringLiteral("Пересчитать все"), this);
    recalculate_->setToolTip(QStringLiteral("Заменить и введенные производные значения вычисленными"));
    connect(recalculate_, &QPushButton::clicked, this, [this] {
        screen_.attempt([this] {
            closeEditors();
            fill(true);
        });
    });
    bar->addWidget(recalculate_);
    edit_ = new QPushButton(this);
    edit_->setObjectName(QStringLiteral("editSample"));
    connect(edit_, &QPushButton::clicked, this, [this] {
        screen_.attempt([this] { isEditing_ ? endEditing() : beginEditing(); });
    });
    edit_->setText(QStringLiteral("Изменить пробу"));
    bar->addWidget(edit_);
    layout->addLayout(bar);
}

void TestPage::addMethods()
{
    const int language = screen_.settings()->reportLanguage() == 1 ? 1 : 0;
    const int current = choice_.method;
    method_->clear();
    const auto add = [&](const auto& names) {
        for (const BilingualRow& row : names)
            if (const std::wstring_view* name = row.name(language))
                method_->addItem(qText(*name), row.number);
    };
    if (choice_.test == LabTest::Compression)
        add(subsidenceMethodNames);
    else
        add(shearMethodNames);
    method_->setCurrentIndex(std::max(0, method_->findData(current)));
}

void TestPage::forget()
{
    const bool wasEditing = isEditing_;
    isEditing_ = false;
    isStale_ = true;
    rows_.clear();
    keys_.clear();
    ids_.clear();
    site_.reset();
    if (wasEditing)
        Q_EMIT editingChanged(false);
}

void TestPage::closeEditors()
{
    if (grid_)
        grid_->closeEditor();
    if (formGrid_)
        formGrid_->closeEditor();
}

void TestPage::tellView(ITellurixController& controller) const
{
    controller.setLabMode(labModeOf(choice_.test));
    controller.setLabState(isEditing_ ? stateOfEditing : stateOfTable);
    controller.setCompressionView(choice_.test == LabTest::Compression ? choice_.method : 20);
    controller.setShearView(choice_.test == LabTest::Shear ? choice_.method : 99);
    controller.setEditedSample(isEditing_ ? edited_.pointName : std::wstring());
    controller.setEditedSampleName(isEditing_ ? edited_.pointName + L" / " + edited_.depth : std::wstring());
}

qint64 TestPage::idOf(const PointDepthKey& key)
{
    qint64& id = ids_[hashOf(key)];
    if (id == 0)
        id = ++lastId_;
    return id;
}

SampleResult TestPage::resultOf(IDBProject& project, const LabSample& sample) const
{
    return sampleResult(
        sample, project.getLabTriple(), grainScaleOf(project).value_or(GrainScale::Above200), 0);
}

void TestPage::read(IDBProject* project)
{
    site_.reset();
    if (!project) {
        rows_.clear();
        keys_.clear();
        if (grid_)
            grid_->setRows({});
        view_->setMessage(QStringLiteral("Проект не открыт."));
        return;
    }
    if (isStale_) {
        isStale_ = false;
        // The method of a project that has tests, not an empty one.
        if (method_)
            for (const auto& [key, sample] : project->getLabSamples()) {
                const bool hasAny = choice_.test == LabTest::Compression ? !sample.compression.empty()
                                                                         : !sample.shear.empty();
                if (hasAny && rows_.isEmpty() && keys_.empty()) {
                    choice_.method = choice_.test == LabTest::Compression ? sample.compression.begin()->first
                                                                          : sample.shear.begin()->first;
                    break;
                }
            }
        if (method_)
            addMethods();
    }
    readTable(*project);
    if (isEditing_ && !findSample(*project, edited_))
        endEditing();
    if (isEditing_)
        readForm(*project);
    showCurve();
}

void TestPage::makeGrid()
{
    QVector<GridColumn> columns = {fixedColumn(QStringLiteral("Точка"), 90),
        fixedColumn(QStringLiteral("Глубина,\nм"), 70),
        fixedColumn(QStringLiteral("Код\nпробы"), 60),
        fixedColumn(QStringLiteral("Грунт"), 170)};
    QStringList heads;
    for (const SampleColumn& column : columns_)
        columns.push_back(column.column);
    for (const GridColumn& column : columns)
        heads.push_back(column.title);
    if (grid_ && heads == heads_)
        return;
    heads_ = heads;
    EditGrid* old = grid_;
    grid_ =
        new EditGrid(QStringLiteral("laboratory/") + QLatin1String(nameOf(choice_.test)), columns, stack_);
    grid_->setObjectName(QStringLiteral("samples"));
    grid_->setAccessibleName(QStringLiteral("Испытания проб"));
    grid_->setRowsGrow(false);
    grid_->setEmptyText(
        QStringLiteral("Лабораторных проб нет.\nНовые пробы добавляются на странице «Реестр проб»."));
    grid_->setFilterText(filter_->text());
    connect(grid_, &EditGrid::edited, this, [this](const GridRows& after) {
        screen_.attempt([&] { tableEdited(after); });
    });
    connect(grid_, &EditGrid::currentRowChanged, this, [this] { showCurve(); });
    connect(grid_, &EditGrid::told, this, &Page::said);
    stack_->insertWidget(0, grid_);
    if (!isEditing_)
        stack_->setCurrentWidget(grid_);
    setFocusProxy(isEditing_ ? formGrid_ : grid_);
    if (old)
        old->deleteLater();
}

void TestPage::readTable(IDBProject& project)
{
    const auto rowFor = [&](const PointDepthKey& key, const LabSample& sample) {
        GridRow row;
        row.id = idOf(key);
        row.cells = {qText(key.pointName), qText(key.depth), qText(sample.code), qText(sample.soilKind.text)};
        for (const SampleColumn& column : columns_)
            row.cells.push_back(qText(column.get(sample)));
        showMarks(row, columns_, sample);
        return row;
    };
    if (!changing_.empty() && grid_) {
        // What this page changed itself touches those rows alone: a keystroke among ten thousand samples
        // stays quick.
        bool isWhole = true;
        for (const SampleState& state : changing_) {
            const LabSample* sample = findSample(project, state.key);
            const auto place = places_.constFind(idOf(state.key));
            if (!sample || place == places_.constEnd() || project.getLabSamples().size() != keys_.size()) {
                isWhole = false;
                break;
            }
            rows_[*place] = rowFor(state.key, *sample);
        }
        if (isWhole) {
            grid_->setRows(rows_);
            return;
        }
    }
    const int language = screen_.settings()->reportLanguage() == 1 ? 1 : 0;
    columns_ = sampleColumns(project, choice_, language);
    makeGrid();
    rows_.clear();
    keys_.clear();
    places_.clear();
    rows_.reserve(static_cast<int>(project.getLabSamples().size()));
    for (const auto& [key, sample] : project.getLabSamples()) {
        rows_.push_back(rowFor(key, sample));
        places_.insert(rows_.back().id, rows_.size() - 1);
        keys_.push_back(key);
    }
    grid_->setRows(rows_);
}

void TestPage::showMarks(
    GridRow& row, const std::vector<SampleColumn>& columns, const LabSample& sample) const
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    const SampleResult result = resultOf(*project, sample);
    for (const Remark& remark : result.remarks)
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (means(remark.cell, columns[i].mark))
                addRemark(row, firstDataColumn + static_cast<int>(i), remark);
}

const PointDepthKey* TestPage::currentKey() const
{
    if (isEditing_)
        return &edited_;
    const auto place = grid_ ? places_.constFind(grid_->currentRow()) : places_.constEnd();
    if (place != places_.constEnd())
        return &keys_[static_cast<std::size_t>(*place)];
    return keys_.empty() ? nullptr : &keys_.front();
}

void TestPage::store(SampleStates before, SampleStates after)
{
    if (after.empty())
        return;
    changing_ = after;
    screen_.change<SampleStates>(putSamples, std::move(before), std::move(after));
    changing_.clear();
}

void TestPage::tableEdited(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    SampleStates before;
    SampleStates changed;
    for (const GridRow& row : after) {
        const auto place = places_.constFind(row.id);
        if (place == places_.constEnd() || rows_[*place].cells == row.cells)
            continue;
        const PointDepthKey& key = keys_[static_cast<std::size_t>(*place)];
        const LabSample* sample = findSample(*project, key);
        if (!sample)
            continue;
        LabSample made = *sample;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            const int cell = firstDataColumn + static_cast<int>(i);
            if (columns_[i].put && rows_[*place].cells[cell] != row.cells[cell])
                columns_[i].put(made, row.cells[cell].toStdWString());
        }
        before.push_back({key, *sample});
        changed.push_back({key, std::move(made)});
    }
    store(std::move(before), std::move(changed));
}

void TestPage::beginEditing()
{
    const PointDepthKey* key = currentKey();
    if (!key || !screen_.project())
        return;
    edited_ = *key;
    isEditing_ = true;
    title_->setText(QStringLiteral("<b>%1, %2 м</b>")
                        .arg(qText(edited_.pointName).toHtmlEscaped(), qText(edited_.depth).toHtmlEscaped()));
    title_->show();
    filter_->hide();
    edit_->setText(QStringLiteral("Закончить"));
    Q_EMIT statesChanged();
    Q_EMIT editingChanged(true);
    readForm(*screen_.project());
    showCurve();
    formGrid_->setFocus();
}

void TestPage::endEditing()
{
    if (!isEditing_)
        return;
    closeEditors();
    isEditing_ = false;
    title_->hide();
    filter_->show();
    edit_->setText(QStringLiteral("Изменить пробу"));
    if (grid_)
        stack_->setCurrentWidget(grid_);
    setFocusProxy(grid_);
    Q_EMIT statesChanged();
    Q_EMIT editingChanged(false);
    if (grid_)
        grid_->setFocus();
}

void TestPage::showAllRows(bool all)
{
    hasAllRows_ = all;
    if (isEditing_ && screen_.project())
        readForm(*screen_.project());
}

void TestPage::readForm(IDBProject& project)
{
    const int language = screen_.settings()->reportLanguage() == 1 ? 1 : 0;
    form_ = sampleForm(project, choice_, language, hasAllRows_);
    QStringList heads;
    for (const GridColumn& column : form_.columns)
        heads.push_back(column.title);
    if (!formGrid_ || formGrid_->property("heads").toStringList() != heads) {
        if (formGrid_)
            formGrid_->deleteLater();
        formGrid_ = new EditGrid(
            QStringLiteral("laboratory/form/") + QLatin1String(nameOf(choice_.test)), form_.columns, stack_);
        formGrid_->setObjectName(QStringLiteral("form"));
        formGrid_->setAccessibleName(QStringLiteral("Испытание пробы"));
        formGrid_->setProperty("heads", heads);
        formGrid_->setRowsGrow(form_.rowsGrow);
        connect(formGrid_, &EditGrid::edited, this, [this](const GridRows& after) {
            screen_.attempt([&] { formEdited(after); });
        });
        connect(formGrid_, &EditGrid::told, this, &Page::said);
        stack_->addWidget(formGrid_);
    }
    const LabSample* sample = findSample(project, edited_);
    if (!sample)
        return;
    GridRows rows = form_.read(*sample);
    const SampleResult result = resultOf(project, *sample);
    for (GridRow& row : rows)
        for (const Remark& remark : result.remarks)
            if (remark.cell == form_.mark(row))
                addRemark(row, 1, remark);
    formGrid_->setRows(rows);
    stack_->setCurrentWidget(formGrid_);
    setFocusProxy(formGrid_);
}

void TestPage::formEdited(const GridRows& after)
{
    IDBProject* project = screen_.project();
    const LabSample* sample = project ? findSample(*project, edited_) : nullptr;
    if (!sample)
        return;
    LabSample made = *sample;
    form_.write(made, after);
    store({{edited_, *sample}}, {{edited_, std::move(made)}});
}

void TestPage::showCurve()
{
    IDBProject* project = screen_.project();
    const PointDepthKey* key = currentKey();
    const LabSample* sample = project && key ? findSample(*project, *key) : nullptr;
    if (choice_.test == LabTest::Physical)
        return;
    if (!sample) {
        view_->setMessage(QStringLiteral("Выберите пробу."));
        return;
    }
    if (!site_)
        site_ = std::make_unique<SiteLaboratory>(*project, 0);
    const auto found = std::find_if(site_->samples().begin(),
        site_->samples().end(),
        [&](const SiteSample& each) { return each.sample == sample; });
    const LabCurveSettings settings{screen_.settings()->isSmoothingGranLaboratory() != 0,
        screen_.settings()->isSmoothingSwellingLaboratory() != 0,
        screen_.settings()->isScaleGranGraphLaboratory() != 0,
        screen_.settings()->isActiveSameScaleCompressGraphLabotatory() != 0};
    const std::optional<Drawing> drawing = found == site_->samples().end()
        ? std::nullopt
        : curveOfTest(*site_, *found, labModeOf(choice_.test), choice_.method, settings, {150, 100});
    if (!drawing) {
        view_->setMessage(QStringLiteral("%1, %2 м: испытание не проводилось.")
                              .arg(qText(key->pointName), qText(key->depth)));
        return;
    }
    view_->setMessage({});
    view_->setPages({*drawing},
        {},
        QStringLiteral("%1-%2-%3")
            .arg(qText(key->pointName), qText(key->depth), QLatin1String(nameOf(choice_.test))));
}

void TestPage::calculate()
{
    fill(false);
}

void TestPage::fill(bool replaces)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    const int language = screen_.settings()->reportLanguage() == 1 ? 1 : 0;
    const SiteLaboratory site(*project, language);
    SampleStates before;
    SampleStates after;
    for (const SiteSample& sample : site.samples()) {
        if (isEditing_ && (sample.key->pointName != edited_.pointName || sample.key->depth != edited_.depth))
            continue;
        LabSample made = *sample.sample;
        if (!fillDerivedCells(made, sample.result, sample.soil, replaces ? Fill::All : Fill::Empty))
            continue;
        before.push_back({*sample.key, *sample.sample});
        after.push_back({*sample.key, std::move(made)});
    }
    const int count = static_cast<int>(after.size());
    store(std::move(before), std::move(after));
    Q_EMIT said(count == 0 ? QStringLiteral("Все производные значения уже вычислены.")
                           : QStringLiteral("Вычислено; изменено проб: %1.").arg(count));
}

void TestPage::clearData()
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    std::vector<PointDepthKey> keys;
    if (isEditing_)
        keys.push_back(edited_);
    else if (grid_)
        for (const int row : grid_->selectedSourceRows())
            if (row < static_cast<int>(keys_.size()))
                keys.push_back(keys_[static_cast<std::size_t>(row)]);
    SampleStates before;
    SampleStates after;
    for (const PointDepthKey& key : keys) {
        const LabSample* sample = findSample(*project, key);
        if (!sample)
            continue;
        LabSample made = *sample;
        switch (choice_.test) {
        case LabTest::Physical:
            for (PropertyCell& cell : made.physical)
                cell.value.clear();
            break;
        case LabTest::Grading:
            made.grading.clear();
            break;
        case LabTest::Compression:
            made.compression.erase(static_cast<std::uint8_t>(choice_.method));
            break;
        case LabTest::Shear:
            made.shear.erase(static_cast<std::uint8_t>(choice_.method));
            break;
        case LabTest::Swelling:
            made.swelling.clear();
            break;
        case LabTest::Shrinkage:
            made.shrinkage.clear();
            break;
        }
        before.push_back({key, *sample});
        after.push_back({key, std::move(made)});
    }
    store(std::move(before), std::move(after));
}

std::optional<Document> TestPage::report()
{
    IDBProject* project = screen_.project();
    if (!project)
        return std::nullopt;
    const SiteLaboratory site(*project, screen_.settings()->reportLanguage() == 1 ? 1 : 0);
    std::vector<const SiteSample*> chosen;
    for (const SiteSample& sample : site.samples())
        if (!isEditing_ || (sample.key->pointName == edited_.pointName && sample.key->depth == edited_.depth))
            chosen.push_back(&sample);
    return laboratoryPassports(*project, site, chosen, labModeOf(choice_.test));
}

void TestPage::openParallels()
{
    IDBProject* project = screen_.project();
    const PointDepthKey* key = currentKey();
    const LabSample* sample = project && key ? findSample(*project, *key) : nullptr;
    if (!sample)
        return;
    ParallelsDialog dialog(this);
    dialog.setWindowTitle(
        QStringLiteral("Параллельные определения: %1, %2 м").arg(qText(key->pointName), qText(key->depth)));
    if (dialog.exec() != QDialog::Accepted || dialog.value().empty())
        return;
    LabSample made = *sample;
    auto cell = std::find_if(made.physical.begin(), made.physical.end(), [&](const PropertyCell& each) {
        return each.id >= dialog.property();
    });
    if (cell == made.physical.end() || cell->id != dialog.property()) {
        PropertyCell fresh;
        fresh.id = dialog.property();
        fresh.enabled = true;
        cell = made.physical.insert(cell, fresh);
    }
    cell->value = dialog.value();
    store({{*key, *sample}}, {{*key, std::move(made)}});
}
