#include "laboratory/set_dialog.h"

#include "dictionaries/properties.h"
#include "laboratory/sample_cells.h"

#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

template <class Cell>
void choose(std::vector<Cell>& cells, const std::set<int>& numbers)
{
    std::vector<Cell> chosen;
    for (const int number : numbers) {
        Cell cell{};
        cell.id = number;
        const Cell* old = existing(cells, number);
        chosen.push_back(old ? *old : cell);
    }
    cells = std::move(chosen);
}

} // namespace

SetState setStateOf(IDBProject& project)
{
    return {project.getPhysicalTemplate(),
        project.getShearTemplate(),
        project.getCompressionTemplate(),
        project.getSwellingTemplate(),
        project.getLabTriple()};
}

void putSetState(IDBProject& project, const SetState& state)
{
    project.setPhysicalTemplate(state.physical);
    project.setShearTemplate(state.shear);
    project.setCompressionTemplate(state.compression);
    project.setSwellingTemplate(state.swelling);
    project.setLabTriple(state.rings);
}

SetState withSet(SetState state, LabTest test, const std::set<int>& numbers)
{
    if (test == LabTest::Compression) {
        choose(state.compression, numbers);
    } else if (test == LabTest::Shear) {
        choose(state.shear, numbers);
    } else if (test == LabTest::Swelling) {
        choose(state.swelling, numbers);
    } else if (test == LabTest::Physical) {
        const std::vector<PropertyCell> before = state.physical;
        choose(state.physical, numbers);
        for (PropertyCell& cell : state.physical)
            cell.enabled = cell.enabled || !existing(before, cell.id);
    }
    return state;
}

SetDialog::SetDialog(IDBProject& project, LabTest test, QWidget* parent)
    : QDialog(parent)
    , test_(test)
    , before_(setStateOf(project))
    , list_(new QListWidget(this))
{
    setWindowTitle(
        test == LabTest::Physical ? QStringLiteral("Набор свойств") : QStringLiteral("Набор нагрузок"));
    fillList(project);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    const QPushButton* main =
        buttons->addButton(QStringLiteral("Основной набор"), QDialogButtonBox::ResetRole);
    connect(main, &QPushButton::clicked, this, [this] { check(mainSet(test_)); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_, 1);
    if (test == LabTest::Compression || test == LabTest::Swelling) {
        ring_ = new QDoubleSpinBox(this);
        ring_->setRange(0, 100);
        ring_->setSingleStep(0.1);
        ring_->setValue(
            static_cast<double>(test == LabTest::Compression ? before_.rings.valueA : before_.rings.valueB));
        firstRing_ = ring_->value();
        auto* row = new QFormLayout;
        row->addRow(QStringLiteral("Высота образца (кольца), см:"), ring_);
        layout->addLayout(row);
    }
    layout->addWidget(buttons);
    resize(480, 560);
}

void SetDialog::fillList(IDBProject& project)
{
    const auto add = [this](int number, const QString& text) {
        auto* item = new QListWidgetItem(text, list_);
        item->setData(Qt::UserRole, number);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    };
    if (test_ == LabTest::Physical)
        for (const auto& row : propertyNames)
            add(row.number, qText(row.russian));
    else
        for (int load = 0; !loadText(test_, load).isEmpty(); ++load)
            add(load, loadText(test_, load) + QStringLiteral(" МПа"));
    const std::set<int> own = ownSet(project, test_);
    check(own.empty() ? mainSet(test_) : own);
    first_ = checked();
}

void SetDialog::check(const std::set<int>& numbers)
{
    for (int i = 0; i < list_->count(); ++i) {
        QListWidgetItem* item = list_->item(i);
        const bool isChosen = numbers.contains(item->data(Qt::UserRole).toInt());
        item->setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
    }
}

std::set<int> SetDialog::checked() const
{
    std::set<int> numbers;
    for (int i = 0; i < list_->count(); ++i)
        if (list_->item(i)->checkState() == Qt::Checked)
            numbers.insert(list_->item(i)->data(Qt::UserRole).toInt());
    return numbers;
}

bool SetDialog::hasChanged() const
{
    return checked() != first_ || (ring_ && ring_->value() != firstRing_);
}

SetState SetDialog::chosen() const
{
    SetState state = before_;
    if (const std::set<int> numbers = checked(); numbers != first_)
        state = withSet(state, test_, numbers == mainSet(test_) ? std::set<int>() : numbers);
    if (ring_ && ring_->value() != firstRing_)
        (test_ == LabTest::Compression ? state.rings.valueA : state.rings.valueB) =
            static_cast<float>(ring_->value());
    return state;
}
