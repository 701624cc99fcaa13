#include "laboratory/test_page.h"

#include "common/export_dialog.h"
#include "common/mode_screen.h"
#include "common/view_settings.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "dictionaries/report_language.h"
#include "laboratory/calculation.h"
#include "laboratory/parallels_dialog.h"
#include "laboratory/sample_cells.h"
#include "laboratory/sample_curve.h"
#include "laboratory/sample_form_view.h"
#include "laboratory/sample_table.h"
#include "modules/isettings.h"
#include "reports/laboratory_passports.h"
#include "site/elements.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string_view>
#include <utility>

namespace
{

// Any state but 0 and 8 lets the shell calculate: 0 is a screen without samples, 8 the editing of one.
constexpr int stateOfTable = 1;
constexpr int stateOfEditing = 8;

// What the names of the methods take of the room that nobody else needs.
constexpr int muchOfTheBar = 100;

bool hasTest(const LabSample& sample, const TestChoice& choice)
{
    const auto method = static_cast<std::uint8_t>(choice.method);
    switch (choice.test) {
    case LabTest::Physical:
        return !sample.physical.empty();
    case LabTest::Grading:
        return !sample.grading.empty();
    case LabTest::Compression:
        return sample.compression.contains(method);
    case LabTest::Shear:
        return sample.shear.contains(method);
    case LabTest::Swelling:
        return !sample.swelling.empty();
    case LabTest::Shrinkage:
        return !sample.shrinkage.empty();
    }
    return false;
}

QString viewNameOf(LabTest test)
{
    return QStringLiteral("laboratory/") + QLatin1String(nameOf(test));
}

} // namespace

TestPage::TestPage(ModeScreen& screen, SampleStore& store, LabTest test)
    : screen_(screen)
    , store_(store)
    , splitter_(new QSplitter(Qt::Horizontal, this))
    , stack_(new QStackedWidget(splitter_))
    , table_(new SampleTable(test, stack_))
    , form_(new SampleFormView(test, stack_))
    , curve_(new SampleCurve(test, splitter_))
{
    choice_.test = test;
    choice_.method = test == LabTest::Compression ? 21 : test == LabTest::Shear ? 1 : 0;
    setObjectName(QLatin1String(nameOf(test)));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 6, 0, 0);
    layout->addLayout(makeBar());
    layout->addWidget(splitter_, 1);
    stack_->addWidget(table_);
    stack_->addWidget(form_);
    splitter_->addWidget(stack_);
    splitter_->addWidget(curve_);
    splitter_->setChildrenCollapsible(false);
    if (test == LabTest::Physical)
        curve_->hide();
    keepSplitter(splitter_, viewNameOf(test), {700, 480});
    setFocusProxy(table_);
    connectParts();
}

void TestPage::connectParts()
{
    const auto take = [this](const SampleStates& before, const SampleStates& after) {
        screen_.attempt([&] { store_.change(before, after); });
    };
    connect(table_, &SampleTable::edited, this, take);
    connect(form_, &SampleFormView::edited, this, take);
    connect(curve_, &SampleCurve::edited, this, take);
    connect(table_, &SampleTable::currentChanged, this, &TestPage::showCurve);
    connect(table_, &SampleTable::told, this, &Page::said);
    connect(form_, &SampleFormView::told, this, &Page::said);
    connect(curve_, &SampleCurve::pointChosen, this, [this](int cell) {
        if (isEditing_)
            form_->showCell(cell);
    });
}

QPushButton* TestPage::addButton(QHBoxLayout& bar, const char* text, const char* tip, void (TestPage::*act)())
{
    auto* button = new QPushButton(QString::fromUtf8(text), this);
    button->setToolTip(QString::fromUtf8(tip));
    connect(button, &QPushButton::clicked, this, [this, act] {
        screen_.attempt([this, act] {
            closeEditors();
            (this->*act)();
        });
    });
    bar.addWidget(button);
    return button;
}

QHBoxLayout* TestPage::makeBar()
{
    auto* bar = new QHBoxLayout;
    title_ = new QLabel(this);
    title_->hide();
    bar->addWidget(title_);
    addChoices(*bar);
    addFilter(*bar);
    bar->addStretch(1);
    if (choice_.test == LabTest::Physical)
        addButton(*bar,
            "Параллельные…",
            "Среднее двух или трех определений и допустимое расхождение",
            &TestPage::openParallels);
    if (choice_.test == LabTest::Physical)
        addButton(*bar, "Набор свойств…", "Какие свойства показывает таблица", &TestPage::setWanted);
    else if (choice_.test != LabTest::Grading && choice_.test != LabTest::Shrinkage)
        addButton(*bar, "Набор нагрузок…", "Какие нагрузки показывает таблица", &TestPage::setWanted);
    addButton(*bar,
        "Паспорта…",
        "По листу на пробу: выделенные пробы, а если выделена одна ячейка — все",
        &TestPage::makePassports);
    addButton(*bar,
        "Пересчитать все",
        "Заменить и введенные производные значения вычисленными",
        &TestPage::recalculate);
    edit_ = addButton(*bar, "Изменить пробу", "Все ячейки одной пробы", &TestPage::toggleEditing);
    edit_->setObjectName(QStringLiteral("editSample"));
    return bar;
}

void TestPage::addChoices(QHBoxLayout& bar)
{
    if (choice_.test != LabTest::Compression && choice_.test != LabTest::Shear)
        return;
    method_ = new QComboBox(this);
    method_->setObjectName(QStringLiteral("method"));
    method_->setAccessibleName(QStringLiteral("Способ испытания"));
    method_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    method_->setMinimumContentsLength(26);
    method_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    bar.addWidget(method_, muchOfTheBar);
    connect(method_, qOverload<int>(&QComboBox::activated), this, [this] {
        closeEditors();
        choice_.method = method_->currentData().toInt();
        keepMethod();
        Q_EMIT statesChanged();
        read(screen_.project());
    });
    if (choice_.test != LabTest::Compression)
        return;
    branch_ = new QComboBox(this);
    branch_->setObjectName(QStringLiteral("branch"));
    branch_->setAccessibleName(QStringLiteral("Образец"));
    branch_->addItems({QStringLiteral("До замачивания"), QStringLiteral("После замачивания")});
    branch_->setToolTip(QStringLiteral("Первый образец (до замачивания) или второй (после)"));
    bar.addWidget(branch_);
    connect(branch_, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        closeEditors();
        choice_.branch = index;
        read(screen_.project());
    });
}

void TestPage::addFilter(QHBoxLayout& bar)
{
    filter_ = new QLineEdit(this);
    filter_->setPlaceholderText(QStringLiteral("Фильтр: точка, проба, грунт…"));
    filter_->setAccessibleName(QStringLiteral("Фильтр проб"));
    filter_->setClearButtonEnabled(true);
    filter_->setFixedWidth(220);
    connect(filter_, &QLineEdit::textChanged, table_, &SampleTable::setFilterText);
    bar.addWidget(filter_);
}

void TestPage::fillMethods()
{
    method_->clear();
    const auto add = [&](const auto& names) {
        for (const BilingualRow& row : names)
            if (const std::wstring_view* name = row.name(language())) {
                method_->addItem(qText(*name), row.number);
                method_->setItemData(method_->count() - 1, qText(*name), Qt::ToolTipRole);
            }
    };
    if (choice_.test == LabTest::Compression)
        add(subsidenceMethodNames);
    else
        add(shearMethodNames);
    method_->setCurrentIndex(std::max(0, method_->findData(choice_.method)));
    // Where the window is wide, as wide as the longest name.
    method_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    method_->setMaximumWidth(method_->sizeHint().width());
    method_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

// The last one, where the user wants it remembered; else a method by which the project has tests.
void TestPage::chooseMethod(IDBProject& project)
{
    const QString name = viewNameOf(choice_.test) + QStringLiteral("/method");
    const int last = viewSettings()->value(name).toInt();
    if (screen_.settings()->isSaveLastMethodLaboratory() != 0 && last > 0) {
        choice_.method = last;
        return;
    }
    for (const auto& [key, sample] : project.getLabSamples()) {
        if (choice_.test == LabTest::Compression ? sample.compression.empty() : sample.shear.empty())
            continue;
        choice_.method = choice_.test == LabTest::Compression ? sample.compression.begin()->first
                                                              : sample.shear.begin()->first;
        return;
    }
}

void TestPage::keepMethod()
{
    viewSettings()->setValue(viewNameOf(choice_.test) + QStringLiteral("/method"), choice_.method);
}

int TestPage::language() const
{
    return knownLanguage(screen_.settings()->reportLanguage());
}

void TestPage::forget()
{
    const bool wasEditing = isEditing_;
    isEditing_ = false;
    isNewProject_ = true;
    table_->clear();
    curve_->forgetSite();
    if (!wasEditing)
        return;
    stack_->setCurrentWidget(table_);
    Q_EMIT editingChanged(false);
}

void TestPage::closeEditors()
{
    table_->closeEditor();
    form_->closeEditor();
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

void TestPage::read(IDBProject* project)
{
    const std::optional<std::vector<PointDepthKey>> changed = store_.takeChanged();
    if (changed)
        curve_->forgetSamples();
    else
        curve_->forgetSite();
    if (!project) {
        table_->clear();
        curve_->showMessage(QStringLiteral("Проект не открыт."));
        return;
    }
    if (method_ && (isNewProject_ || hasOldNames_)) {
        if (isNewProject_)
            chooseMethod(*project);
        fillMethods();
        // The method is part of the context of undo.
        if (isNewProject_)
            Q_EMIT statesChanged();
    }
    const bool isNewProject = std::exchange(isNewProject_, false);
    hasOldNames_ = false;
    table_->read(*project, choice_, language(), changed ? &*changed : nullptr);
    // Its curve tells more than that the very first sample has not been tested so.
    if (isNewProject && choice_.test != LabTest::Physical)
        table_->showFirst([this](const LabSample& sample) { return hasTest(sample, choice_); });
    if (isEditing_ && !findSample(*project, edited_))
        endEditing();
    if (isEditing_)
        readForm(*project);
    showCurve();
}

void TestPage::readForm(IDBProject& project)
{
    if (const LabSample* sample = findSample(project, edited_))
        form_->read(project, edited_, *sample, choice_, language(), hasAllRows_);
}

const PointDepthKey* TestPage::currentKey() const
{
    return isEditing_ ? &edited_ : table_->currentKey();
}

void TestPage::showCurve()
{
    if (choice_.test == LabTest::Physical)
        return;
    IDBProject* project = screen_.project();
    const PointDepthKey* key = currentKey();
    const LabSample* sample = project && key ? findSample(*project, *key) : nullptr;
    if (sample)
        curve_->showTest(*project, *key, *sample, choice_, *screen_.settings());
    else
        curve_->showMessage(QStringLiteral("Выберите пробу."));
}

void TestPage::toggleEditing()
{
    isEditing_ ? endEditing() : beginEditing();
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
    stack_->setCurrentWidget(form_);
    setFocusProxy(form_);
    showCurve();
    form_->setFocus();
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
    stack_->setCurrentWidget(table_);
    setFocusProxy(table_);
    Q_EMIT statesChanged();
    Q_EMIT editingChanged(false);
    table_->setFocus();
}

void TestPage::showAllRows(bool all)
{
    form_->closeEditor();
    hasAllRows_ = all;
    if (isEditing_ && screen_.project())
        readForm(*screen_.project());
}

void TestPage::calculate()
{
    fill(false);
}

void TestPage::recalculate()
{
    fill(true);
}

void TestPage::fill(bool replaces)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    SampleChange change;
    const PointDepthKey* one = isEditing_ ? &edited_ : nullptr;
    if (!calculateSamples(*project, language(), replaces ? Fill::All : Fill::Empty, one, this, change)) {
        Q_EMIT said(QStringLiteral("Расчет прерван, ничего не изменено."));
        return;
    }
    const std::size_t count = change.after.size();
    store_.change(std::move(change.before), std::move(change.after));
    Q_EMIT said(count == 0 ? QStringLiteral("Все производные значения уже вычислены.")
                           : QStringLiteral("Вычислено; изменено проб: %1.").arg(count));
}

// Of the sample being edited, else of the selected ones.
void TestPage::clearData()
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    SampleChange change;
    for (const PointDepthKey& key : isEditing_ ? std::vector<PointDepthKey>{edited_} : table_->selectedKeys())
        if (const LabSample* sample = findSample(*project, key)) {
            change.before.push_back({key, *sample});
            change.after.push_back({key, withoutTest(*sample, choice_)});
        }
    store_.change(std::move(change.before), std::move(change.after));
}

std::vector<PointDepthKey> TestPage::chosenKeys() const
{
    if (isEditing_)
        return {edited_};
    const std::vector<PointDepthKey> selected = table_->selectedKeys();
    return selected.size() > 1 ? selected : std::vector<PointDepthKey>();
}

std::optional<Document> TestPage::report()
{
    IDBProject* project = screen_.project();
    if (!project)
        return std::nullopt;
    const SiteLaboratory site(*project, language());
    std::set<std::pair<std::wstring_view, std::wstring_view>> wanted;
    const std::vector<PointDepthKey> keys = chosenKeys();
    for (const PointDepthKey& key : keys)
        wanted.emplace(key.pointName, key.depth);
    std::vector<const SiteSample*> chosen;
    for (const SiteSample& sample : site.samples())
        if (wanted.empty() || wanted.contains({sample.key->pointName, sample.key->depth}))
            chosen.push_back(&sample);
    return laboratoryPassports(*project, site, chosen, labModeOf(choice_.test));
}

void TestPage::makePassports()
{
    if (const std::optional<Document> document = report())
        exportDocument(this, *screen_.controller(), *document);
    else
        Q_EMIT said(QStringLiteral("Таких испытаний нет: печатать нечего."));
}

void TestPage::openParallels()
{
    IDBProject* project = screen_.project();
    const PointDepthKey* current = currentKey();
    const LabSample* sample = project && current ? findSample(*project, *current) : nullptr;
    if (!sample)
        return;
    const PointDepthKey key = *current;
    ParallelsDialog dialog(this);
    dialog.setWindowTitle(
        QStringLiteral("Параллельные определения: %1, %2 м").arg(qText(key.pointName), qText(key.depth)));
    if (dialog.exec() != QDialog::Accepted || dialog.value().empty())
        return;
    LabSample made = *sample;
    propertyOf(made, dialog.property()).value = dialog.value();
    store_.change({{key, *sample}}, {{key, std::move(made)}});
}
