#include "ige/summary_page.h"

#include "common/mode_screen.h"
#include "dictionaries/report_language.h"
#include "ige/element_look.h"
#include "ige/result_table.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "reports/element_report.h"
#include "site/standard_values.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

QString number(const Number& value, int decimals)
{
    return value ? QString::fromStdWString(numberText(value, decimals)) : QStringLiteral("–");
}

ResultCell valueCell(const Number& value, const DesignValues& values, bool isTyped, int decimals)
{
    if (!value)
        return {number(value, decimals)};
    const QString text = number(value, decimals) + fromWide(valueMark(values, isTyped));
    if (isTyped)
        return {text, ResultCell::Bold, QStringLiteral("Введено в таблице элементов")};
    return {text,
        ResultCell::Plain,
        values.isFromTable ? QStringLiteral("По таблицам норм: испытаний нет")
                           : QStringLiteral("Определений: %1").arg(values.count)};
}

void appendValues(ResultRow& row, const DesignValues& values, int decimals)
{
    row.append(valueCell(values.normative, values, values.isTypedNormative, decimals));
    row.append(valueCell(values.second, values, values.isTypedSecond, decimals));
    row.append(valueCell(values.first, values, values.isTypedFirst, decimals));
}

ResultRow summaryRow(const ElementSummary& summary)
{
    ResultRow row{{fromWide(shortElementName(summary.name)), ResultCell::Bold},
        {QString::fromStdWString(summary.words)},
        {QString::fromStdWString(summary.index)},
        {QString::number(summary.samples)},
        {number(summary.moisture, 3)},
        {number(summary.voidRatio, 3)},
        {number(summary.saturation, 2)},
        {number(summary.plasticity, 1)},
        {number(summary.liquidity, 2)}};
    appendValues(row, summary.density, 2);
    appendValues(row, summary.friction, 0);
    appendValues(row, summary.cohesion, 0);
    row.append(valueCell(summary.modulus.normative, summary.modulus, summary.modulus.isTypedNormative, 1));
    DesignValues resistance;
    resistance.isFromTable = true;
    row.append(valueCell(summary.resistance, resistance, false, 0));
    return row;
}

QString notesOf(const ElementSummary& summary)
{
    QStringList notes;
    if (!summary.shearWay.empty())
        notes += QStringLiteral("φ и c %1.").arg(QString::fromStdWString(summary.shearWay));
    for (const std::wstring& note : summary.notes)
        notes += QString::fromStdWString(note);
    if (notes.isEmpty())
        return {};
    return QStringLiteral("<b>ИГЭ %1.</b> %2")
        .arg(fromWide(shortElementName(summary.name)).toHtmlEscaped(),
            notes.join(QLatin1Char(' ')).toHtmlEscaped());
}

int languageOf(const ModeScreen& screen)
{
    return screen.settings() ? knownLanguage(screen.settings()->reportLanguage()) : 0;
}

} // namespace

SummaryPage::SummaryPage(ModeScreen& screen, QWidget* parent)
    : Page(parent)
    , screen_(screen)
    , table_(new ResultTable(QStringLiteral("ige/summary"),
          {QStringLiteral("ИГЭ"),
              QStringLiteral("Наименование"),
              QStringLiteral("Геоиндекс"),
              QStringLiteral("Проб"),
              QStringLiteral("W"),
              QStringLiteral("e"),
              QStringLiteral("Sr"),
              QStringLiteral("Ip, %"),
              QStringLiteral("IL"),
              QStringLiteral("ρн, г/см³"),
              QStringLiteral("ρII"),
              QStringLiteral("ρI"),
              QStringLiteral("φн, °"),
              QStringLiteral("φII"),
              QStringLiteral("φI"),
              QStringLiteral("cн, кПа"),
              QStringLiteral("cII"),
              QStringLiteral("cI"),
              QStringLiteral("E, МПа"),
              QStringLiteral("R0, кПа")},
          3,
          this))
    , notes_(new QLabel(this))
{
    notes_->setWordWrap(true);
    notes_->setAlignment(Qt::AlignTop);
    notes_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    notes_->setMargin(6);
    auto* scroll = new QScrollArea(this);
    table_->setAccessibleName(QStringLiteral("Нормативные и расчётные значения"));
    // All of them are in view on a small screen.
    table_->setFirstWidths({44, 170, 78, 44, 60, 60, 52, 48, 52, 72, 48, 48, 46, 42, 42, 62, 42, 42, 64, 66});
    scroll->setAccessibleName(QStringLiteral("Примечания к значениям"));
    scroll->setWidget(notes_);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addWidget(table_, 3);
    layout->addWidget(scroll, 2);
    setFocusProxy(table_);
}

void SummaryPage::read(IDBProject* project)
{
    // More of them nobody reads here, and a text of thousands takes seconds to lay out.
    constexpr int mostNotes = 100;
    QVector<ResultRow> rows;
    QStringList notes;
    int leftOut = 0;
    if (project) {
        const SiteLaboratory laboratory(*project, languageOf(screen_));
        const bool withTyped = !screen_.settings() || screen_.settings()->isGenManualValuesCheckIge();
        for (const ElementSummary& summary : summariesOf(*project, laboratory, withTyped)) {
            rows.append(summaryRow(summary));
            if (const QString own = notesOf(summary); !own.isEmpty()) {
                if (notes.size() < mostNotes)
                    notes += own;
                else
                    ++leftOut;
            }
        }
    }
    table_->setRows(rows);
    if (rows.isEmpty()) {
        notes_->setText(QStringLiteral("Элементов нет."));
        return;
    }
    if (const std::wstring warning = standardTableWarning(standardTableMistakes()); !warning.empty())
        notes.prepend(QString::fromStdWString(warning).toHtmlEscaped());
    if (leftOut > 0)
        notes += QStringLiteral("Примечаний ещё к %1 элементам здесь нет: они стоят в отчёте.").arg(leftOut);
    notes += fromWide(summaryLegend).toHtmlEscaped();
    notes_->setText(notes.join(QStringLiteral("<br>")));
}

void SummaryPage::calculate()
{
    read(screen_.project());
    Q_EMIT said(QStringLiteral("Нормативные и расчётные значения вычислены."));
}

void SummaryPage::tellView(ITellurixController& controller) const
{
    controller.setIgeView(3);
}

std::optional<Document> SummaryPage::report()
{
    IDBProject* project = screen_.project();
    if (!project || project->getStrataElements().empty())
        return std::nullopt;
    const SiteLaboratory laboratory(*project, languageOf(screen_));
    std::vector<const SiteElement*> elements;
    for (const SiteElement& element : laboratory.elements())
        elements.push_back(&element);
    return elementReport(*project, laboratory, elements, elementReportLook(*screen_.settings()));
}

ComparisonPage::ComparisonPage(ModeScreen& screen, QWidget* parent)
    : Page(parent)
    , screen_(screen)
    , first_(new QComboBox(this))
    , second_(new QComboBox(this))
    , table_(new ResultTable(QStringLiteral("ige/comparison"),
          {QStringLiteral("Показатель"),
              QStringLiteral("Вывод"),
              QStringLiteral("n1"),
              QStringLiteral("n2"),
              QStringLiteral("X1"),
              QStringLiteral("X2"),
              QStringLiteral("F"),
              QStringLiteral("p(F)"),
              QStringLiteral("t"),
              QStringLiteral("p(t)")},
          2,
          this))
    , answer_(new QLabel(this))
{
    auto* head = new QHBoxLayout;
    head->addWidget(new QLabel(QStringLiteral("Сравнить элементы"), this));
    head->addWidget(first_);
    head->addWidget(new QLabel(QStringLiteral("и"), this));
    head->addWidget(second_);
    head->addStretch(1);
    answer_->setWordWrap(true);
    QFont bold = answer_->font();
    bold.setBold(true);
    answer_->setFont(bold);
    first_->setAccessibleName(QStringLiteral("Первый элемент"));
    second_->setAccessibleName(QStringLiteral("Второй элемент"));
    table_->setAccessibleName(QStringLiteral("Сравнение элементов"));
    table_->setFirstWidths({260, 420});
    // The sentence takes what the numbers leave.
    table_->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addLayout(head);
    layout->addWidget(answer_);
    layout->addWidget(table_, 1);
    setFocusProxy(first_);
    for (QComboBox* box : {first_, second_})
        connect(box, QOverload<int>::of(&QComboBox::activated), this, [this] { compareChosen(); });
}

void ComparisonPage::read(IDBProject* project)
{
    bool isChosen = false;
    for (QComboBox* box : {first_, second_}) {
        const QVariant chosen = box->currentData();
        box->clear();
        if (project)
            for (const auto& [name, element] : project->getStrataElements())
                box->addItem(
                    swatch(colorOf(element)), elementTitle(*project, name), QString::fromStdWString(name));
        const int place = chosen.isValid() ? box->findData(chosen) : -1;
        box->setCurrentIndex(place >= 0 ? place : qMin(box == second_ ? 1 : 0, box->count() - 1));
        isChosen = isChosen || place >= 0;
    }
    if (!project)
        return compareChosen();
    const SiteLaboratory laboratory(*project, languageOf(screen_));
    if (!isChosen)
        chooseTwoWithSamples(laboratory);
    compareIn(&laboratory);
}

// Two that have enough to compare.
void ComparisonPage::chooseTwoWithSamples(const SiteLaboratory& laboratory)
{
    std::vector<int> places;
    for (std::size_t element = 0; element < laboratory.elements().size() && places.size() < 2; ++element)
        if (laboratory.elements()[element].samples.size() >= 3)
            places.push_back(int(element));
    if (places.size() < 2)
        return;
    first_->setCurrentIndex(places[0]);
    second_->setCurrentIndex(places[1]);
}

void ComparisonPage::tellView(ITellurixController& controller) const
{
    controller.setIgeView(3);
}

void ComparisonPage::compareChosen()
{
    const bool canCompare = screen_.project() && first_->currentData() != second_->currentData();
    if (!canCompare)
        return compareIn(nullptr);
    const SiteLaboratory laboratory(*screen_.project(), languageOf(screen_));
    compareIn(&laboratory);
}

void ComparisonPage::compareIn(const SiteLaboratory* laboratory)
{
    const std::wstring one = first_->currentData().toString().toStdWString();
    const std::wstring other = second_->currentData().toString().toStdWString();
    table_->setRows({});
    if (!laboratory || one == other) {
        answer_->setText(QStringLiteral("Выберите два разных элемента."));
        return;
    }
    const SiteElement* a = laboratory->element(one);
    const SiteElement* b = laboratory->element(other);
    if (!a || !b)
        return;
    QVector<ResultRow> rows;
    int differing = 0;
    int known = 0;
    for (const int property : propertiesOf(*a)) {
        const Statistics* first = statisticsOf(*a, property);
        const Statistics* second = statisticsOf(*b, property);
        if (!second || !first->mean || !second->mean)
            continue;
        const Comparison comparison = compare({first->count, *first->mean, first->deviation.value_or(0)},
            {second->count, *second->mean, second->deviation.value_or(0)});
        known += comparison.isKnown ? 1 : 0;
        differing += comparison.spreadsDiffer || comparison.meansDiffer ? 1 : 0;
        const int decimals = propertyDecimals(property);
        rows.append({{QString::fromStdWString(elementPropertyName(property, languageOf(screen_)))},
            {QString::fromStdWString(comparisonSentence(comparison))},
            {QString::number(first->count)},
            {QString::number(second->count)},
            {number(first->mean, decimals)},
            {number(second->mean, decimals)},
            {number(comparison.fisher, 2)},
            {number(comparison.fisherProbability, 3)},
            {number(comparison.student, 2)},
            {number(comparison.studentProbability, 3)}});
    }
    table_->setRows(rows);
    answer_->setText(known == 0 ? QStringLiteral("Общих определений слишком мало, чтобы сравнить.")
            : differing == 0
            ? QStringLiteral("Ни по одному показателю элементы не различаются: их можно объединить.")
            : QStringLiteral("Элементы различаются по показателям: %1 из %2. Объединять их не следует.")
                  .arg(differing)
                  .arg(known));
}
