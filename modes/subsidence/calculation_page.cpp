#include "subsidence/calculation_page.h"

#include "common/mode_screen.h"
#include "common/report_page.h"
#include "common/typed_text.h"
#include "dictionaries/report_language.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "reports/subsidence_report.h"
#include "site/subsidence.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace
{

struct Field {
    const char* name;
    const char* label;
    const char* tip;
};
constexpr Field fieldRows[] = {
    {"width", "Ширина, м:", "Ширина подошвы фундамента"},
    {"length", "Длина, м:", "Длина подошвы; пусто — ленточный фундамент"},
    {"depth", "Глубина, м:", "Глубина заложения подошвы от устья"},
    {"pressure", "Давление, кПа:", "Среднее давление под подошвой"},
};

} // namespace

int fillSubsidence(ModeScreen& screen, bool all)
{
    IDBProject* project = screen.project();
    if (!project)
        return 0;
    SubsidenceState before = subsidenceState(*project);
    SubsidenceState after;
    int known = 0;
    {
        const SiteLaboratory laboratory(
            *project, knownLanguage(screen.settings()->reportLanguage()), SiteLaboratory::Extent::Collapse);
        const std::vector<SubsidencePoint> points = subsidencePoints(*project, laboratory);
        for (const SubsidencePoint& point : points)
            known += point.result.totalCm ? 1 : 0;
        after = filledState(before, points, all ? FillPlaces::All : FillPlaces::Empty);
    }
    if (!isSame(before, after))
        screen.change<SubsidenceState>(setSubsidenceState, std::move(before), std::move(after));
    return known;
}

CalculationPage::CalculationPage(ModeScreen& screen)
    : screen_(screen)
    , kind_(new QComboBox(this))
    , page_(new ReportPage([this](IDBProject& project) { return make(project); },
          QStringLiteral("Просадка не рассчитана: ни у одной точки нет испытаний на просадочность.\n"
                         "Они вносятся в режиме лаборатории."),
          this))
{
    kind_->setObjectName(QStringLiteral("kind"));
    kind_->setAccessibleName(QStringLiteral("Вид расчета"));
    kind_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    kind_->addItems({QStringLiteral("От собственного веса"), QStringLiteral("И под фундаментом")});
    auto* bar = new QHBoxLayout;
    bar->addWidget(new QLabel(QStringLiteral("Расчет:"), this));
    bar->addWidget(kind_);
    for (std::size_t i = 0; i < std::size(fieldRows); ++i) {
        const Field& row = fieldRows[i];
        auto* label = new QLabel(QString::fromUtf8(row.label), this);
        fields_[i] = new QLineEdit(this);
        fields_[i]->setObjectName(QLatin1String(row.name));
        fields_[i]->setAccessibleName(QString::fromUtf8(row.label));
        fields_[i]->setToolTip(QString::fromUtf8(row.tip));
        fields_[i]->setMaximumWidth(70);
        label->setBuddy(fields_[i]);
        bar->addSpacing(8);
        bar->addWidget(label);
        bar->addWidget(fields_[i]);
        connect(fields_[i], &QLineEdit::editingFinished, this, &CalculationPage::store);
    }
    bar->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addLayout(bar);
    layout->addWidget(page_, 1);
    setFocusProxy(page_);
    connect(kind_, QOverload<int>::of(&QComboBox::activated), this, [this](int kind) {
        screen_.settings()->setTypeCalcSubsidence(kind);
        read(screen_.project());
    });
}

std::optional<Document> CalculationPage::make(IDBProject& project) const
{
    ISettings& settings = *screen_.settings();
    Document document = subsidenceReport(project,
        {knownLanguage(settings.reportLanguage()),
            settings.typeCalcSubsidence() == 1,
            settings.isSmoothingGraphSubsidence() != 0});
    if (document.blocks.empty())
        return std::nullopt;
    return document;
}

void CalculationPage::read(IDBProject* project)
{
    const bool withFoundation = screen_.settings()->typeCalcSubsidence() == 1;
    kind_->setCurrentIndex(withFoundation ? 1 : 0);
    const std::array<std::wstring, 4> texts =
        project ? foundationTexts(*project) : std::array<std::wstring, 4>();
    for (std::size_t i = 0; i < texts.size(); ++i) {
        fields_[i]->setText(QString::fromStdWString(texts[i]));
        fields_[i]->setEnabled(project && withFoundation);
    }
    page_->read(project);
    if (project && withFoundation && !siteFoundation(*project))
        Q_EMIT said(QStringLiteral("Для расчета под фундаментом введите его ширину и давление."));
    else
        Q_EMIT said({});
}

void CalculationPage::closeEditors()
{
    store();
}

void CalculationPage::calculate()
{
    const int known = fillSubsidence(screen_, false);
    Q_EMIT said(QStringLiteral("Рассчитано точек: %1. Введенное вручную не изменено.").arg(known));
}

std::optional<Document> CalculationPage::report()
{
    return page_->report();
}

void CalculationPage::store()
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    const std::array<std::wstring, 4> before = foundationTexts(*project);
    std::array<std::wstring, 4> texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const QString text = mendedNumber(fields_[i]->text().trimmed());
        const Number value = readNumber(text.toStdWString());
        if (!text.isEmpty() && (!value || *value < 0)) {
            Q_EMIT said(QStringLiteral("«%1» — не число: оставлено прежнее значение.").arg(text));
            fields_[i]->setText(QString::fromStdWString(before[i]));
            return;
        }
        texts[i] = text.toStdWString();
    }
    if (texts == before)
        return;
    const NumberedLinks links = project->getNumberedLinks();
    screen_.change<NumberedLinks>(
        [](IDBProject& open, const NumberedLinks& state) { open.setNumberedLinks(state); },
        links,
        withFoundation(links, texts));
}
