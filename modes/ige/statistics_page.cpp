#include "ige/statistics_page.h"

#include "common/drawing_view.h"
#include "common/mode_screen.h"
#include "common/view_settings.h"
#include "dictionaries/report_language.h"
#include "ige/element_look.h"
#include "ige/result_table.h"
#include "ige/value_exclusion.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "plots/element_plots.h"
#include "reports/element_report.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

namespace
{

enum Picture { Scatter, Gradings, Shear, Compression };

QString number(const Number& value, int decimals)
{
    return value ? QString::fromStdWString(numberText(value, decimals)) : QStringLiteral("–");
}

QString levelText(const Statistics& statistics, double confidence, int decimals)
{
    const ConfidenceLevel* level = levelOf(statistics.levels, confidence);
    if (!level || !level->coefficient)
        return QStringLiteral("–");
    return number(level->lower, decimals);
}

QString levelTip(const Statistics& statistics, double confidence)
{
    const ConfidenceLevel* level = levelOf(statistics.levels, confidence);
    if (!level)
        return QStringLiteral("Расчётных значений нет: нужно не меньше шести определений.");
    return QStringLiteral("t = %1, ρ = %2, γg = %3; в другую сторону %4")
        .arg(number(level->student, 2),
            number(level->error, 3),
            number(level->coefficient, 3),
            number(level->upper, 3));
}

QStringList statisticsTitles()
{
    return {QStringLiteral("Показатель"),
        QStringLiteral("n"),
        QStringLiteral("Искл."),
        QStringLiteral("Xн"),
        QStringLiteral("min"),
        QStringLiteral("max"),
        QStringLiteral("S"),
        QStringLiteral("V"),
        QStringLiteral("XII (0.85)"),
        QStringLiteral("XI (0.95)")};
}

} // namespace

StatisticsPage::StatisticsPage(ModeScreen& screen, QWidget* parent)
    : Page(parent)
    , screen_(screen)
    , elements_(new QComboBox(this))
    , pictures_(new QComboBox(this))
    , statistics_(new ResultTable(QStringLiteral("ige/statistics"), statisticsTitles(), 1, this))
    , valueTable_(new ResultTable(QStringLiteral("ige/values"),
          {QStringLiteral("Точка"),
              QStringLiteral("Проба"),
              QStringLiteral("Состояние"),
              QStringLiteral("Глубина, м"),
              QStringLiteral("Значение")},
          3,
          this))
    , toggle_(new QPushButton(QStringLiteral("Исключить"), this))
    , warning_(new QLabel(this))
    , view_(new DrawingView(this))
{
    elements_->setObjectName(QStringLiteral("element"));
    elements_->setAccessibleName(QStringLiteral("Элемент"));
    pictures_->setAccessibleName(QStringLiteral("Рисунок"));
    statistics_->setAccessibleName(QStringLiteral("Статистика показателей"));
    valueTable_->setAccessibleName(QStringLiteral("Частные значения"));
    statistics_->setFirstWidths({200, 38, 52, 62, 58, 58, 62, 50, 84, 84});
    valueTable_->setFirstWidths({110, 70, 160, 96, 90});
    elements_->setMinimumWidth(320);
    pictures_->addItems({QStringLiteral("Рассеяние и гистограмма"),
        QStringLiteral("Гранулометрия"),
        QStringLiteral("Сдвиг"),
        QStringLiteral("Компрессия")});
    pictures_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* head = new QHBoxLayout;
    head->addWidget(new QLabel(QStringLiteral("Элемент:"), this));
    head->addWidget(elements_);
    head->addStretch(1);
    head->addWidget(new QLabel(QStringLiteral("Рисунок:"), this));
    head->addWidget(pictures_);
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(makeTables());
    splitter->addWidget(view_);
    keepSplitter(splitter, QStringLiteral("ige/statistics"), {560, 460});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addLayout(head);
    layout->addWidget(splitter, 1);
    setFocusProxy(statistics_);
    connect(elements_, QOverload<int>::of(&QComboBox::activated), this, [this] {
        wanted_ = elements_->currentData().toString();
        showElement();
    });
    connect(pictures_, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] { showPicture(); });
    connect(view_, &DrawingView::clicked, this, [this](qint64 id) {
        for (std::size_t row = 0; row < shownValues_.size(); ++row)
            if (qint64(shownValues_[row]) + 1 == id)
                valueTable_->setCurrentResult(int(row));
    });
}

QWidget* StatisticsPage::makeTables()
{
    auto* tables = new QSplitter(Qt::Vertical, this);
    tables->addWidget(statistics_);
    auto* lower = new QWidget(tables);
    auto* layout = new QVBoxLayout(lower);
    layout->setContentsMargins(0, 4, 0, 0);
    warning_->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->addWidget(warning_, 1);
    row->addWidget(toggle_);
    toggle_->setToolTip(
        QStringLiteral("Оставить значение вне статистики или вернуть его (пробел, двойной щелчок)"));
    layout->addLayout(row);
    layout->addWidget(valueTable_, 1);
    tables->addWidget(lower);
    keepSplitter(tables, QStringLiteral("ige/values"), {260, 260});
    connect(statistics_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        showValues();
        showPicture();
    });
    connect(valueTable_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
        const int current = valueTable_->currentResult();
        toggle_->setEnabled(current >= 0);
        if (current < 0 || std::size_t(current) >= values_.size())
            return;
        toggle_->setText(values_[std::size_t(current)].excluded == ExcludedBy::Nobody
                ? QStringLiteral("Исключить")
                : QStringLiteral("Вернуть"));
        view_->canvas().setCurrent(qint64(shownValues_[std::size_t(current)]) + 1);
    });
    const auto toggle = [this] { screen_.attempt([this] { toggleValue(); }); };
    connect(toggle_, &QPushButton::clicked, this, toggle);
    connect(valueTable_, &QAbstractItemView::doubleClicked, this, toggle);
    auto* space = new QShortcut(QKeySequence(Qt::Key_Space), valueTable_);
    space->setContext(Qt::WidgetShortcut);
    connect(space, &QShortcut::activated, this, toggle);
    return tables;
}

void StatisticsPage::read(IDBProject* project)
{
    // Of a value that was put out or taken back here only its own element knows.
    if (project && laboratory_ && toggled_) {
        laboratory_->recompute(*project, language(), *toggled_);
        showElement();
        return;
    }
    laboratory_.reset();
    const QSignalBlocker quiet(elements_);
    elements_->clear();
    if (project) {
        laboratory_ = std::make_unique<SiteLaboratory>(*project, language());
        for (const SiteElement& each : laboratory_->elements()) {
            const std::wstring name(each.name);
            elements_->addItem(each.record ? swatch(colorOf(*each.record)) : QIcon(),
                QStringLiteral("%1 — проб: %2").arg(elementTitle(*project, name)).arg(each.samples.size()),
                QString::fromStdWString(name));
        }
        // Until one is chosen, the first that has something to show.
        int shown = wanted_.isEmpty() ? -1 : elements_->findData(wanted_);
        for (int each = 0; each < elements_->count() && shown < 0; ++each)
            if (!laboratory_->elements()[std::size_t(each)].samples.empty())
                shown = each;
        elements_->setCurrentIndex(qMax(shown, elements_->count() > 0 ? 0 : -1));
    }
    showElement();
}

void StatisticsPage::forget()
{
    laboratory_.reset();
    wanted_.clear();
}

void StatisticsPage::calculate()
{
    read(screen_.project());
    Q_EMIT said(QStringLiteral("Статистика вычислена."));
}

void StatisticsPage::tellView(ITellurixController& controller) const
{
    controller.setIgeView(3);
}

const SiteElement* StatisticsPage::element() const
{
    return laboratory_ ? laboratory_->element(elements_->currentData().toString().toStdWString()) : nullptr;
}

int StatisticsPage::property() const
{
    const int row = statistics_->currentResult();
    return row >= 0 && std::size_t(row) < properties_.size() ? properties_[std::size_t(row)] : -1;
}

int StatisticsPage::language() const
{
    return screen_.settings() ? knownLanguage(screen_.settings()->reportLanguage()) : 0;
}

void StatisticsPage::showElement()
{
    const SiteElement* shown = element();
    properties_ = shown ? propertiesOf(*shown) : std::vector<int>();
    QVector<ResultRow> rows;
    for (const int each : properties_) {
        const Statistics& statistics = *statisticsOf(*shown, each);
        const int decimals = propertyDecimals(each);
        const auto out = std::count_if(statistics.excluded.begin(),
            statistics.excluded.end(),
            [](ExcludedBy by) { return by != ExcludedBy::Nobody; });
        rows.append({{QString::fromStdWString(elementPropertyName(each, language()))},
            {QString::number(statistics.count)},
            {out == 0 ? QString() : QString::number(out)},
            {number(statistics.mean, decimals), ResultCell::Bold},
            {number(statistics.least, decimals)},
            {number(statistics.greatest, decimals)},
            {number(statistics.deviation, decimals + 1)},
            {number(statistics.variation, 2)},
            {levelText(statistics, 0.85, decimals), ResultCell::Plain, levelTip(statistics, 0.85)},
            {levelText(statistics, 0.95, decimals), ResultCell::Plain, levelTip(statistics, 0.95)}});
    }
    statistics_->setRows(rows);
    showValues();
    showPicture();
}

static QString reasonOf(ExcludedBy by)
{
    switch (by) {
    case ExcludedBy::Rule:
        return QStringLiteral("исключено по правилу");
    case ExcludedBy::Hand:
        return QStringLiteral("исключено вручную");
    case ExcludedBy::Nobody:
        break;
    }
    return {};
}

void StatisticsPage::showValues()
{
    const SiteElement* shown = element();
    const int chosen = property();
    values_.clear();
    shownValues_.clear();
    QVector<ResultRow> rows;
    QString warning;
    if (shown && chosen >= 0) {
        values_ = propertyValues(*laboratory_, *shown, chosen);
        const Statistics& statistics = *statisticsOf(*shown, chosen);
        for (const ElementValue& value : values_) {
            const SiteSample& sample = laboratory_->samples()[value.sample];
            shownValues_.push_back(value.sample);
            const auto look = value.excluded == ExcludedBy::Nobody ? ResultCell::Plain : ResultCell::Struck;
            const QString tip = value.excluded == ExcludedBy::Rule
                ? QStringLiteral(
                    "Отклонение от среднего больше допустимого по правилу ГОСТ 20522; среднее без "
                    "исключённых %1. Кнопка «Вернуть» оставит значение в статистике.")
                      .arg(number(statistics.mean, propertyDecimals(chosen)))
                : reasonOf(value.excluded);
            rows.append({{QString::fromStdWString(sample.key->pointName)},
                {QString::fromStdWString(sample.sample->code)},
                {reasonOf(value.excluded)},
                {QString::fromStdWString(sample.key->depth)},
                {number(value.value, propertyDecimals(chosen)), look, tip}});
        }
        warning = QString::fromStdWString(trendWarning(*laboratory_, values_));
        if (statistics.count > 0 && statistics.count < leastForDesign)
            warning = QStringLiteral("Определений %1: расчётных значений нет, нужно не меньше шести. ")
                          .arg(statistics.count)
                + warning;
    }
    warning_->setText(warning);
    valueTable_->setRows(rows);
    toggle_->setEnabled(valueTable_->currentResult() >= 0);
}

void StatisticsPage::showPicture()
{
    const SiteElement* shown = element();
    if (!shown) {
        view_->setPages({}, {}, {});
        view_->setMessage(screen_.project()
                ? QStringLiteral("Нет элементов: составьте их на вкладке «Распределение».")
                : QStringLiteral("Проект не открыт."));
        return;
    }
    view_->setMessage({});
    const std::wstring title = L"ИГЭ " + std::wstring(shortElementName(shown->name));
    std::vector<Drawing> pages;
    switch (pictures_->currentIndex()) {
    case Gradings:
        pages.push_back(gradingsOfElement(
            *laboratory_, *shown, title, screen_.settings() && screen_.settings()->isGranCurveSplainIge()));
        break;
    case Shear:
        pages.push_back(shearOfElement(*shown, title));
        break;
    case Compression:
        pages.push_back(compressionOfElement(*laboratory_, *shown, title));
        break;
    default:
        if (const int chosen = property(); chosen >= 0)
            pages.push_back(scatterOfProperty(*laboratory_,
                values_,
                *statisticsOf(*shown, chosen),
                title,
                elementPropertyName(chosen, language())));
    }
    view_->setPages(std::move(pages), {}, QString::fromStdWString(title));
}

void StatisticsPage::toggleValue()
{
    const int row = valueTable_->currentResult();
    const SiteElement* shown = element();
    if (row < 0 || std::size_t(row) >= values_.size() || !shown)
        return;
    const ElementValue value = values_[std::size_t(row)];
    const SiteSample& sample = laboratory_->samples()[value.sample];
    const ExcludedSample before{*sample.key, *sample.sample};
    ExcludedSample after = before;
    toggleExclusion(after.sample, property(), shown->shear.method, value.excluded);
    toggled_ = value.sample;
    screen_.change<ExcludedSample>(putSample, before, after);
    toggled_.reset();
}

std::optional<Document> StatisticsPage::report()
{
    IDBProject* project = screen_.project();
    const SiteElement* shown = element();
    if (!project || !shown)
        return std::nullopt;
    return elementReport(*project, *laboratory_, {shown}, elementReportLook(*screen_.settings()));
}
