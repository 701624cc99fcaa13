#include "ige/element_dialogs.h"

#include "common/soil_patterns.h"
#include "ige/element_look.h"
#include "ige/result_table.h"
#include "modules/idb_hatch.h"
#include "site/layers.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

static QIcon hatchIcon(const SoilPatterns& patterns, std::uint32_t number)
{
    QPixmap picture(72, 44);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    QPainterPath area;
    area.addRect(0, 0, 72, 44);
    patterns.fill(painter, area, number);
    painter.drawRect(0, 0, 71, 43);
    painter.end();
    return QIcon(picture);
}

std::optional<std::uint32_t> askHatch(QWidget* parent, IDBHatch& library, const SoilPatterns& patterns)
{
    QDialog dialog(parent);
    dialog.setWindowTitle(QStringLiteral("Штриховка элемента"));
    dialog.resize(560, 460);
    auto* list = new QListWidget(&dialog);
    list->setViewMode(QListView::IconMode);
    list->setIconSize({72, 44});
    list->setGridSize({128, 84});
    list->setResizeMode(QListView::Adjust);
    list->setMovement(QListView::Static);
    list->setWordWrap(true);
    const auto add = [&](std::uint32_t number, const QString& title) {
        auto* item = new QListWidgetItem(hatchIcon(patterns, number), title, list);
        item->setData(Qt::UserRole, number);
    };
    add(0, QStringLiteral("по виду грунта"));
    for (const auto& [number, bytes] : library.getHatches())
        if (patterns.has(number))
            add(number, patterns.name(number));
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(list);
    QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
    if (dialog.exec() != QDialog::Accepted || !list->currentItem())
        return std::nullopt;
    return list->currentItem()->data(Qt::UserRole).toUInt();
}

std::vector<std::pair<std::wstring, std::size_t>> askLayersToSplit(
    QWidget* parent, IDBProject& project, const std::wstring& element)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("split"));
    dialog.setWindowTitle(QStringLiteral("Разделить элемент"));
    dialog.resize(620, 460);
    auto* list = new QListWidget(&dialog);
    std::vector<std::pair<std::wstring, std::size_t>> layers;
    const SiteLayers site(project);
    for (const SiteLayers::Point& point : site.points())
        for (const SiteLayer& layer : point.layers) {
            if (layer.element != element)
                continue;
            layers.emplace_back(point.name, layer.number);
            auto* item = new QListWidgetItem(QStringLiteral("%1: %2–%3 м   %4   %5")
                                                 .arg(fromWide(point.name),
                                                     fromWide(layer.topText),
                                                     fromWide(layer.bottomText),
                                                     fromWide(layer.index),
                                                     fromWide(layer.description)),
                list);
            item->setToolTip(fromWide(layer.description).toHtmlEscaped());
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            item->setCheckState(Qt::Unchecked);
        }
    auto* head = new QLabel(QStringLiteral("Отметьте слои ИГЭ %1, которые станут новым элементом "
                                           "(пробел — отметить):")
                                .arg(fromWide(shortElementName(element))),
        &dialog);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Разделить"));
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(head);
    layout->addWidget(list, 1);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    // Neither none nor all: both elements need layers.
    const auto chosen = [list] {
        int count = 0;
        for (int row = 0; row < list->count(); ++row)
            count += list->item(row)->checkState() == Qt::Checked ? 1 : 0;
        return count;
    };
    const auto allow = [=] {
        const int count = chosen();
        buttons->button(QDialogButtonBox::Ok)->setEnabled(count > 0 && count < list->count());
    };
    QObject::connect(list, &QListWidget::itemChanged, &dialog, allow);
    allow();
    list->setCurrentRow(0);
    list->setFocus();
    if (dialog.exec() != QDialog::Accepted)
        return {};
    std::vector<std::pair<std::wstring, std::size_t>> split;
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->checkState() == Qt::Checked)
            split.push_back(layers[std::size_t(row)]);
    return split;
}
