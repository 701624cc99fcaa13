#include "static/graph_page.h"

#include "common/drawing_view.h"
#include "common/mode_screen.h"
#include "common/view_settings.h"
#include "dictionaries/report_language.h"
#include "modules/isettings.h"
#include "reports/sounding_report.h"
#include "site/by_point.h"
#include "site/cells.h"
#include "static/sounding_colors.h"
#include "static/sounding_states.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QSpinBox>
#include <QSplitter>
#include <QVBoxLayout>

namespace
{

constexpr std::array<std::int32_t, 3> usualScales = {100, 20, 50};

QSpinBox* scaleBox(QWidget* parent, int least, int greatest, int step)
{
    auto* box = new QSpinBox(parent);
    box->setRange(least, greatest);
    box->setSingleStep(step);
    box->setKeyboardTracking(false);
    return box;
}

std::array<std::int32_t, 3> storedScales(IDBProject& project)
{
    std::array<std::int32_t, 3> scales = usualScales;
    for (const auto& [key, triple] : project.getSoundingTriples())
        if (key == sounding_triple::GraphScales)
            for (std::size_t i = 0; i < 3; ++i)
                if (triple[i] > 0)
                    scales[i] = triple[i];
    return scales;
}

} // namespace

GraphPage::GraphPage(ModeScreen& screen, std::shared_ptr<SoundingChoice> choice)
    : screen_(screen)
    , choice_(std::move(choice))
    , points_(new QListWidget(this))
    , mode_(new QComboBox(this))
    , vertical_(scaleBox(this, 10, 1000, 10))
    , tip_(scaleBox(this, 1, 500, 5))
    , sleeve_(scaleBox(this, 1, 1000, 10))
    , view_(new DrawingView(this))
{
    mode_->addItems({QStringLiteral("Выбранная точка"),
        QStringLiteral("Отмеченные вместе"),
        QStringLiteral("Все подряд")});
    vertical_->setPrefix(QStringLiteral("1:"));
    tip_->setSuffix(QStringLiteral(" МПа / 10 см"));
    sleeve_->setSuffix(QStringLiteral(" кПа / см"));
    points_->setAccessibleName(QStringLiteral("Точки зондирования"));
    mode_->setAccessibleName(QStringLiteral("Какие точки на графике"));
    vertical_->setAccessibleName(QStringLiteral("Масштаб по глубине"));
    tip_->setAccessibleName(QStringLiteral("Масштаб qc"));
    sleeve_->setAccessibleName(QStringLiteral("Масштаб fs"));
    layOut();
    setFocusProxy(points_);
    connect(points_, &QListWidget::currentTextChanged, this, [this](const QString& name) {
        if (isReading_ || name.isEmpty())
            return;
        choice_->point = name.toStdWString();
        draw();
        Q_EMIT statesChanged();
    });
    connect(points_, &QListWidget::itemChanged, this, [this] {
        if (isReading_)
            return;
        const QSignalBlocker blocker(mode_);
        mode_->setCurrentIndex(Ticked);
        draw();
    });
    connect(mode_, qOverload<int>(&QComboBox::currentIndexChanged), this, [this](int) { draw(); });
    for (QSpinBox* box : {vertical_, tip_, sleeve_})
        connect(box, qOverload<int>(&QSpinBox::valueChanged), this, [this](int) { storeScales(); });
}

void GraphPage::layOut()
{
    auto* left = new QWidget(this);
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(mode_);
    leftLayout->addWidget(points_, 1);
    const auto add = [&](const char* name, QWidget* field) {
        leftLayout->addWidget(new QLabel(QString::fromUtf8(name), left));
        leftLayout->addWidget(field);
    };
    add("Масштаб по глубине", vertical_);
    add("Масштаб qc", tip_);
    add("Масштаб fs (Qs, кН / см)", sleeve_);
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(left);
    splitter->addWidget(view_);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    keepSplitter(splitter, QStringLiteral("static/graph"), {180, 800});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addWidget(splitter);
}

void GraphPage::read(IDBProject* project)
{
    isReading_ = true;
    setEnabled(project != nullptr);
    if (project) {
        readPoints(*project);
        readScales(*project);
    } else {
        points_->clear();
    }
    isReading_ = false;
    draw();
}

void GraphPage::readPoints(IDBProject& project)
{
    QSet<QString> ticked;
    for (int i = 0; i < points_->count(); ++i)
        if (points_->item(i)->checkState() == Qt::Checked)
            ticked.insert(points_->item(i)->text());
    points_->clear();
    QListWidgetItem* current = nullptr;
    for (const auto* journal : inReadingOrder(project.getSoundings())) {
        const SoundingKey& key = journal->first;
        const QString name = QString::fromStdWString(key.pointName);
        auto* item = new QListWidgetItem(name, points_);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(ticked.contains(name) ? Qt::Checked : Qt::Unchecked);
        if (key.pointName == choice_->point)
            current = item;
    }
    if (!current && points_->count() > 0) {
        current = points_->item(0);
        choice_->point = current->text().toStdWString();
    }
    points_->setCurrentItem(current);
}

void GraphPage::readScales(IDBProject& project)
{
    const std::array<std::int32_t, 3> scales = storedScales(project);
    vertical_->setValue(scales[0]);
    tip_->setValue(scales[1]);
    sleeve_->setValue(scales[2]);
}

void GraphPage::storeScales()
{
    IDBProject* project = screen_.project();
    if (isReading_ || !project)
        return;
    const PileState before = pileState(*project);
    PileState after = before;
    after.triples[sounding_triple::GraphScales] = {vertical_->value(), tip_->value(), sleeve_->value()};
    screen_.change<PileState>(putPile, before, after);
}

SoundingGraphLook GraphPage::look() const
{
    ISettings* settings = screen_.settings();
    SoundingGraphLook made;
    made.verticalScale = vertical_->value();
    made.tipPerTenCentimetres = tip_->value();
    made.sleevePerCentimetre = sleeve_->value();
    made.isSideForce = screen_.project() && screen_.project()->getSoundingValueB() == 1;
    made.hasGrid = settings->gridGraphStatic() != 0;
    made.isColoured = settings->isColorGraphStatic() != 0;
    made.tipColor = soundingTipColor(*settings);
    made.sideColor = soundingSideColor(*settings);
    return made;
}

std::vector<Drawing> GraphPage::drawings(IDBProject& project) const
{
    const SiteSoundings soundings =
        mode_->currentIndex() == OnePoint ? SiteSoundings(project, choice_->point) : SiteSoundings(project);
    const int language = knownLanguage(screen_.settings()->reportLanguage());
    std::vector<Drawing> pages;
    const auto add = [&](const std::vector<SoundingGraph>& graphs) {
        for (Drawing& page : soundingGraphPages(graphs, look()))
            pages.push_back(std::move(page));
    };
    if (mode_->currentIndex() == All) {
        for (const SiteSounding& sounding : soundings.all())
            if (!sounding.readings.empty())
                add({soundingGraph(sounding, language)});
        return pages;
    }
    std::vector<SoundingGraph> graphs;
    const auto take = [&](const std::wstring& name) {
        if (const SiteSounding* sounding = soundings.find(name); sounding && !sounding->readings.empty())
            graphs.push_back(soundingGraph(*sounding, language));
    };
    if (mode_->currentIndex() == OnePoint)
        take(choice_->point);
    else
        for (int i = 0; i < points_->count(); ++i)
            if (points_->item(i)->checkState() == Qt::Checked)
                take(points_->item(i)->text().toStdWString());
    add(graphs);
    return pages;
}

void GraphPage::draw()
{
    IDBProject* project = screen_.project();
    const std::vector<Drawing> pages = project ? drawings(*project) : std::vector<Drawing>();
    view_->setPages(
        pages, {}, QStringLiteral("Зондирование %1").arg(QString::fromStdWString(choice_->point)));
    view_->setMessage(pages.empty()
            ? QStringLiteral(
                "Нет отсчётов для графика. Введите их на странице «Журнал» или отметьте точки в списке.")
            : QString());
}

std::optional<Document> GraphPage::report()
{
    IDBProject* project = screen_.project();
    if (!project || view_->pages().empty())
        return std::nullopt;
    return soundingGraphs(view_->pages(), knownLanguage(screen_.settings()->reportLanguage()));
}

void GraphPage::tellView(ITellurixController& controller) const
{
    controller.setProbingView(4);
    controller.setProbingSubView(0);
    controller.setEditedSample(choice_->point);
}
