#include "ige/assignment_page.h"

#include "common/mode_screen.h"
#include "common/view_settings.h"
#include "db/exact_key.h"
#include "ige/element_look.h"
#include "ige/result_table.h"
#include "modules/idbproject.h"
#include "site/element_edits.h"
#include "site/element_links.h"
#include "site/layers.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <map>

static constexpr int placeRole = Qt::UserRole; // point and layer of a list's row

AssignmentPage::AssignmentPage(ModeScreen& screen, QWidget* parent)
    : Page(parent)
    , screen_(screen)
    , view_(new AssignmentView(this))
    , elements_(new QListWidget(this))
    , missing_(new QListWidget(this))
    , missingTitle_(new QLabel(this))
    , banner_(new QFrame(this))
{
    makeBanner();
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(view_);
    splitter->addWidget(makeSide());
    splitter->setStretchFactor(0, 1);
    keepSplitter(splitter, QStringLiteral("ige/assignment"), {760, 280});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addWidget(banner_);
    layout->addWidget(splitter, 1);
    setFocusProxy(view_);
    connect(view_, &AssignmentView::assigned, this, &AssignmentPage::assign);
    connect(elements_, &QListWidget::currentRowChanged, this, [this] { chooseBrush(); });
    connect(missing_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item && item->data(placeRole).isValid()) {
            const QPoint place = item->data(placeRole).toPoint();
            view_->showLayer({place.x(), place.y()});
        }
    });
}

void AssignmentPage::makeBanner()
{
    banner_->setFrameShape(QFrame::StyledPanel);
    banner_->setAutoFillBackground(true);
    QPalette soft = banner_->palette();
    soft.setColor(QPalette::Window, QColor(0xe6, 0xf1, 0xfb));
    banner_->setPalette(soft);
    bannerText_ = new QLabel(banner_);
    bannerText_->setWordWrap(true);
    auto* take = new QPushButton(QStringLiteral("Принять"), banner_);
    take->setObjectName(QStringLiteral("takeProposal"));
    auto* drop = new QPushButton(QStringLiteral("Отменить"), banner_);
    auto* layout = new QHBoxLayout(banner_);
    layout->addWidget(bannerText_, 1);
    layout->addWidget(take);
    layout->addWidget(drop);
    connect(take, &QPushButton::clicked, this, [this] { screen_.attempt([this] { takeProposal(); }); });
    connect(drop, &QPushButton::clicked, this, [this] {
        proposal_.reset();
        read(screen_.project());
    });
    banner_->hide();
}

QWidget* AssignmentPage::makeSide()
{
    auto* side = new QWidget(this);
    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* hint = new QLabel(
        QStringLiteral(
            "Выберите элемент и проведите мышью по слоям. Стрелки, пробел и Del — то же с клавиатуры."),
        side);
    hint->setWordWrap(true);
    elements_->setObjectName(QStringLiteral("palette"));
    elements_->setAccessibleName(QStringLiteral("Элементы"));
    elements_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    elements_->setWordWrap(true);
    elements_->setResizeMode(QListView::Adjust);
    auto* buttons = new QHBoxLayout;
    auto* proposing = new QPushButton(QStringLiteral("Предложить"), side);
    proposing->setObjectName(QStringLiteral("propose"));
    proposing->setToolTip(QStringLiteral(
        "Составить элементы для слоёв без элемента: по геоиндексу, виду грунта и консистенции"));
    auto* adding = new QPushButton(QStringLiteral("Новый элемент"), side);
    adding->setToolTip(QStringLiteral("Отдать текущий слой новому элементу"));
    buttons->addWidget(proposing);
    buttons->addWidget(adding);
    missing_->setAccessibleName(QStringLiteral("Без элемента"));
    layout->addWidget(hint);
    layout->addWidget(elements_, 3);
    layout->addLayout(buttons);
    layout->addWidget(missingTitle_);
    layout->addWidget(missing_, 2);
    connect(proposing, &QPushButton::clicked, this, [this] { screen_.attempt([this] { propose(); }); });
    connect(
        adding, &QPushButton::clicked, this, [this] { screen_.attempt([this] { addElementForLayer(); }); });
    return side;
}

void AssignmentPage::read(IDBProject* project)
{
    if (!project) {
        elements_->clear();
        missing_->clear();
        missingTitle_->clear();
        banner_->hide();
        view_->setPoints({}, {});
        return;
    }
    readElements(*project);
    readLayers(*project);
    readMissing(*project);
    showProposal();
}

void AssignmentPage::forget()
{
    proposal_.reset();
}

void AssignmentPage::tellView(ITellurixController& controller) const
{
    controller.setIgeView(1);
}

void AssignmentPage::readElements(IDBProject& project)
{
    const QVariant chosen =
        elements_->currentItem() ? elements_->currentItem()->data(Qt::UserRole) : QVariant();
    const QSignalBlocker quiet(elements_);
    elements_->clear();
    const auto add = [&](const QString& name, const QString& title, const QColor& color) {
        auto* item = new QListWidgetItem(swatch(color), title, elements_);
        item->setData(Qt::UserRole, name);
        if (chosen.isValid() && name == chosen.toString())
            elements_->setCurrentItem(item);
    };
    for (const auto& [name, element] : project.getStrataElements())
        add(QString::fromStdWString(name), elementTitle(project, name), colorOf(element));
    add(QString(), QStringLiteral("без элемента"), Qt::white);
    if (!elements_->currentItem())
        elements_->setCurrentRow(0);
    chooseBrush();
}

void AssignmentPage::chooseBrush()
{
    view_->setBrush(elements_->currentItem()
            ? std::optional<QString>(elements_->currentItem()->data(Qt::UserRole).toString())
            : std::nullopt);
}

void AssignmentPage::readLayers(IDBProject& project)
{
    QHash<QString, QColor> colors;
    for (const auto& [name, element] : project.getStrataElements())
        colors.insert(QString::fromStdWString(name), colorOf(element));
    std::map<std::pair<std::wstring, std::size_t>, std::size_t> proposed;
    if (proposal_) {
        for (const ElementProposal::Layer& layer : proposal_->layers)
            proposed[{layer.point, layer.number}] = layer.element;
        for (const ElementProposal::Element& element : proposal_->elements) {
            StrataElement record;
            record.code = static_cast<std::int32_t>(element.kind);
            if (element.isNew)
                colors.insert(QString::fromStdWString(element.name), colorOf(record));
        }
    }
    const SiteLayers site(project);
    double highest = 0;
    bool hasMark = false;
    for (const SiteLayers::Point& point : site.points())
        if (const Number mark = readNumber(point.markText)) {
            highest = hasMark ? qMax(highest, *mark) : *mark;
            hasMark = true;
        }
    QVector<AssignedPoint> points;
    for (const SiteLayers::Point& point : site.points()) {
        AssignedPoint shown{
            fromWide(point.name), readNumber(point.markText).value_or(highest), canBeLinked(point.name), {}};
        for (const SiteLayer& layer : point.layers) {
            const auto found = proposed.find({std::wstring(point.name), layer.number});
            shown.layers.append({int(layer.number),
                layer.top,
                layer.bottom,
                fromWide(layer.element),
                found == proposed.end() ? QString()
                                        : QString::fromStdWString(proposal_->elements[found->second].name),
                QStringLiteral("<p><b>%1</b>, %2–%3 м, %4</p><p>%5</p>")
                    .arg(shown.name.toHtmlEscaped(),
                        fromWide(layer.topText),
                        fromWide(layer.bottomText),
                        fromWide(layer.index).toHtmlEscaped(),
                        fromWide(layer.description).toHtmlEscaped())});
        }
        points.append(shown);
    }
    view_->setPoints(points, colors);
}

void AssignmentPage::readMissing(IDBProject& project)
{
    constexpr int most = 500; // of a list that somebody still reads
    missing_->clear();
    int layers = 0;
    const QVector<AssignedPoint>& points = view_->points();
    for (int point = 0; point < points.size(); ++point)
        for (int layer = 0; layer < points[point].layers.size(); ++layer) {
            const AssignedLayer& shown = points[point].layers[layer];
            const bool isGone = !shown.element.isEmpty()
                && findExact(project.getStrataElements(), shown.element.toStdWString())
                    == project.getStrataElements().end();
            if ((!shown.element.isEmpty() && !isGone) || ++layers > most)
                continue;
            auto* item = new QListWidgetItem(
                QStringLiteral("%1, слой %2: %3–%4 м%5%6")
                    .arg(points[point].name)
                    .arg(shown.number)
                    .arg(shown.top)
                    .arg(shown.bottom)
                    .arg(isGone ? QStringLiteral(", элемента %1 нет").arg(shown.element) : QString())
                    .arg(points[point].canBeLinked ? QString() : QStringLiteral(", двоеточие в имени точки")),
                missing_);
            item->setData(placeRole, QPoint(point, layer));
        }
    const SiteLayers site(project);
    int samples = 0;
    for (const auto& [key, sample] : project.getLabSamples()) {
        const Number depth = readNumber(key.depth);
        if (depth && site.layerAt(key.pointName, *depth))
            continue;
        if (++samples <= most)
            new QListWidgetItem(
                QStringLiteral("Проба %1, %2 м: слоя нет")
                    .arg(QString::fromStdWString(key.pointName), QString::fromStdWString(key.depth)),
                missing_);
    }
    missingTitle_->setText(layers + samples == 0
            ? QStringLiteral("Все слои и пробы распределены.")
            : QStringLiteral("Слоёв без элемента: %1, проб вне слоёв: %2").arg(layers).arg(samples));
    missing_->setVisible(layers + samples > 0);
}

void AssignmentPage::assign(const QVector<LayerPlace>& layers, const QString& element)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    const ElementsState before = elementsOf(*project);
    ElementsState after = before;
    for (const LayerPlace& place : layers) {
        const AssignedPoint& point = view_->points()[place.point];
        assignElement(after.links,
            point.name.toStdWString(),
            static_cast<std::size_t>(point.layers[place.layer].number),
            element.toStdWString());
    }
    if (after.links != before.links)
        screen_.change<ElementsState>(putElements, before, after);
}

void AssignmentPage::addElementForLayer()
{
    IDBProject* project = screen_.project();
    const LayerPlace place = view_->currentLayer();
    if (!project || place.point >= view_->points().size())
        return;
    const AssignedPoint& point = view_->points()[place.point];
    if (place.layer >= point.layers.size())
        return;
    const ElementsState before = elementsOf(*project);
    ElementsState after = before;
    const std::wstring name = freeElementName(after.elements);
    addElement(after, name);
    assignElement(after.links,
        point.name.toStdWString(),
        static_cast<std::size_t>(point.layers[place.layer].number),
        name);
    screen_.change<ElementsState>(putElements, before, after);
}

void AssignmentPage::propose()
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    proposal_ = proposeElements(*project);
    read(project);
}

void AssignmentPage::showProposal()
{
    banner_->setVisible(proposal_.has_value());
    if (!proposal_)
        return;
    QStringList texts;
    for (const ElementProposal::Element& element : proposal_->elements)
        texts += QStringLiteral("%1%2 — %3, слоёв: %4")
                     .arg(element.isNew ? QStringLiteral("новый ") : QString(),
                         QString::fromStdWString(element.name),
                         QString::fromStdWString(element.words))
                     .arg(element.layers);
    QString text = proposal_->layers.empty()
        ? QStringLiteral("Предложить нечего: подходящих слоёв без элемента нет.")
        : texts.join(QStringLiteral("; ")) + QLatin1Char('.');
    if (proposal_->leftOut > 0)
        text += QStringLiteral(" По описанию не определить грунт у слоёв: %1.").arg(proposal_->leftOut);
    bannerText_->setText(text);
}

void AssignmentPage::takeProposal()
{
    IDBProject* project = screen_.project();
    if (!project || !proposal_)
        return;
    const ElementProposal proposal = *std::exchange(proposal_, std::nullopt);
    const ElementsState before = elementsOf(*project);
    ElementsState after = before;
    for (const ElementProposal::Element& element : proposal.elements) {
        if (!element.isNew)
            continue;
        StrataElement record;
        record.code = static_cast<std::int32_t>(element.kind);
        record.texts[element_text::GeologicalIndex] = element.index;
        addElement(after, element.name, record);
        setElementName(after.links, element.name, element.words);
    }
    for (const ElementProposal::Layer& layer : proposal.layers)
        assignElement(after.links, layer.point, layer.number, proposal.elements[layer.element].name);
    screen_.change<ElementsState>(putElements, before, after);
}
