#include "igk/lane_list.h"

#include "dictionaries/section_captions.h"

#include <QInputDialog>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace
{

enum Role { Column = Qt::UserRole, Turned, Width };

// Number 5 is the strip of sections; columns have 11 instead.
constexpr std::int32_t allColumns[] = {1, 2, 3, 4, 11, 9, 8, 6, 7, 10};

} // namespace

LaneList::LaneList(QWidget* parent)
    : QListWidget(parent)
{
    setDragDropMode(QAbstractItemView::InternalMove);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setToolTip(
        QStringLiteral("Галочка (пробел) показывает графу, перетаскивание (Ctrl+стрелки) меняет порядок.\n"
                       "Двойной щелчок (F2) — ширина, правая кнопка — направление подписи."));
    connect(this, &QListWidget::itemChanged, this, [this] {
        if (!isFilling_)
            Q_EMIT lanesChanged();
    });
    connect(model(), &QAbstractItemModel::rowsMoved, this, &LaneList::lanesChanged);
    connect(this, &QWidget::customContextMenuRequested, this, &LaneList::showMenu);
    connect(this, &QListWidget::itemDoubleClicked, this, &LaneList::askWidth);
}

void LaneList::setPreset(const IgkPreset& preset, int language)
{
    language_ = language;
    isFilling_ = true;
    clear();
    std::vector<IgkPresetItem> items = preset.items;
    for (const std::int32_t column : allColumns) {
        const auto isColumn = [column](const IgkPresetItem& item) {
            return item.id == static_cast<std::uint32_t>(column);
        };
        if (std::none_of(items.begin(), items.end(), isColumn))
            items.push_back({static_cast<std::uint32_t>(column), false, true});
    }
    for (const IgkPresetItem& shown : items) {
        const auto column = static_cast<int>(shown.id);
        if (std::find(std::begin(allColumns), std::end(allColumns), column) == std::end(allColumns))
            continue;
        auto* item = new QListWidgetItem(this);
        item->setData(Column, column);
        item->setData(Turned, shown.flagB);
        item->setData(Width, 0.0);
        item->setFlags(
            Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled);
        item->setCheckState(shown.flagA ? Qt::Checked : Qt::Unchecked);
        describe(item);
    }
    isFilling_ = false;
}

void LaneList::describe(QListWidgetItem* item) const
{
    const std::wstring_view caption = sectionColumnCaptions.at(language_, item->data(Column).toInt());
    QString text = QString::fromWCharArray(caption.data(), static_cast<int>(caption.size()));
    text.replace(QStringLiteral("-\n"), QStringLiteral("-")).replace(QLatin1Char('\n'), QLatin1Char(' '));
    if (const double width = item->data(Width).toDouble(); width > 0)
        text += QStringLiteral(" — %1 мм").arg(width);
    item->setText(text);
}

IgkPreset LaneList::preset() const
{
    IgkPreset preset;
    for (int row = 0; row < count(); ++row)
        preset.items.push_back({item(row)->data(Column).toUInt(),
            item(row)->checkState() == Qt::Checked,
            item(row)->data(Turned).toBool()});
    return preset;
}

ColumnLane LaneList::laneOf(const QListWidgetItem* item)
{
    return {item->data(Column).toInt(), item->data(Turned).toBool(), item->data(Width).toDouble()};
}

std::vector<ColumnLane> LaneList::lanes() const
{
    std::vector<ColumnLane> lanes;
    for (int row = 0; row < count(); ++row)
        if (item(row)->checkState() == Qt::Checked)
            lanes.push_back(laneOf(item(row)));
    return lanes;
}

std::vector<ColumnLane> LaneList::allLanes() const
{
    std::vector<ColumnLane> lanes;
    lanes.reserve(static_cast<std::size_t>(count()));
    for (int row = 0; row < count(); ++row)
        lanes.push_back(laneOf(item(row)));
    return lanes;
}

void LaneList::setLanguage(int language)
{
    const bool wasFilling = std::exchange(isFilling_, true);
    language_ = language;
    for (int row = 0; row < count(); ++row)
        describe(item(row));
    isFilling_ = wasFilling;
}

void LaneList::keyPressEvent(QKeyEvent* event)
{
    const bool isWithControl = (event->modifiers() & Qt::ControlModifier) != 0;
    if (isWithControl && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down))
        move(event->key() == Qt::Key_Up ? -1 : 1);
    else if (event->key() == Qt::Key_F2 && currentItem())
        askWidth(currentItem());
    else
        QListWidget::keyPressEvent(event);
}

void LaneList::move(int by)
{
    const int row = currentRow();
    if (row < 0 || row + by < 0 || row + by >= count())
        return;
    const bool wasFilling = std::exchange(isFilling_, true);
    insertItem(row + by, takeItem(row));
    setCurrentRow(row + by);
    isFilling_ = wasFilling;
    Q_EMIT lanesChanged();
}

void LaneList::setWidths(const std::vector<ColumnLane>& lanes)
{
    isFilling_ = true;
    for (int row = 0; row < count(); ++row)
        for (const ColumnLane& lane : lanes)
            if (lane.column == item(row)->data(Column).toInt()) {
                item(row)->setData(Width, lane.width);
                describe(item(row));
            }
    isFilling_ = false;
}

void LaneList::showMenu(const QPoint& place)
{
    QListWidgetItem* chosen = itemAt(place) ? itemAt(place) : currentItem();
    if (!chosen)
        return;
    QMenu menu(this);
    QAction* turned = menu.addAction(QStringLiteral("Подпись вертикально"));
    turned->setCheckable(true);
    turned->setChecked(chosen->data(Turned).toBool());
    QAction* width = menu.addAction(QStringLiteral("Ширина…"));
    const QAction* picked = menu.exec(viewport()->mapToGlobal(place));
    if (picked == turned)
        chosen->setData(Turned, turned->isChecked());
    else if (picked == width)
        askWidth(chosen);
}

void LaneList::askWidth(QListWidgetItem* item)
{
    constexpr double widest = 100;
    bool isGiven = false;
    const double width = QInputDialog::getDouble(this,
        QStringLiteral("Ширина графы"),
        QStringLiteral("Ширина, мм (0 — обычная):"),
        item->data(Width).toDouble(),
        0,
        widest,
        1,
        &isGiven);
    if (!isGiven)
        return;
    const bool wasFilling = std::exchange(isFilling_, true);
    item->setData(Width, width);
    describe(item);
    isFilling_ = wasFilling;
    Q_EMIT lanesChanged();
}
