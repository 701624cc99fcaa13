#include "laboratory/set_dialog.h"

#include "dictionaries/properties.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace
{

template <class Cells>
std::set<int> numbersOf(const Cells& cells)
{
    std::set<int> numbers;
    for (const auto& cell : cells)
        numbers.insert(cell.id);
    return numbers;
}

// Rows that stay keep what they hold.
template <class Cell>
std::vector<Cell> cellsWith(const std::vector<Cell>& old, const std::set<int>& numbers)
{
    std::vector<Cell> cells;
    for (const int number : numbers) {
        Cell cell{};
        cell.id = number;
        for (const Cell& each : old)
            if (each.id == number) {
                cell = each;
                break;
            }
        cells.push_back(cell);
    }
    return cells;
}

} // namespace

TemplateState templateOf(IDBProject& project, LabTest test)
{
    switch (test) {
    case LabTest::Compression:
        return {test, numbersOf(project.getCompressionTemplate())};
    case LabTest::Shear:
        return {test, numbersOf(project.getShearTemplate())};
    case LabTest::Swelling:
        return {test, numbersOf(project.getSwellingTemplate())};
    case LabTest::Physical:
    case LabTest::Grading:
    case LabTest::Shrinkage:
        break;
    }
    return {LabTest::Physical, numbersOf(project.getPhysicalTemplate())};
}

void putTemplate(IDBProject& project, const TemplateState& state)
{
    if (state.test == LabTest::Compression) {
        project.setCompressionTemplate(cellsWith(project.getCompressionTemplate(), state.numbers));
    } else if (state.test == LabTest::Shear) {
        project.setShearTemplate(cellsWith(project.getShearTemplate(), state.numbers));
    } else if (state.test == LabTest::Swelling) {
        project.setSwellingTemplate(cellsWith(project.getSwellingTemplate(), state.numbers));
    } else {
        const std::set<int> before = numbersOf(project.getPhysicalTemplate());
        std::vector<PropertyCell> cells = cellsWith(project.getPhysicalTemplate(), state.numbers);
        for (PropertyCell& cell : cells)
            cell.enabled = cell.enabled || !before.contains(cell.id);
        project.setPhysicalTemplate(cells);
    }
}

SetDialog::SetDialog(IDBProject& project, LabTest test, QWidget* parent)
    : QDialog(parent)
    , test_(test)
    , list_(new QListWidget(this))
{
    setWindowTitle(
        test == LabTest::Physical ? QStringLiteral("Набор свойств") : QStringLiteral("Набор нагрузок"));
    const std::set<int> chosen = templateOf(project, test).numbers;
    const auto add = [&](int number, const QString& text) {
        auto* item = new QListWidgetItem(text, list_);
        item->setData(Qt::UserRole, number);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(chosen.contains(number) ? Qt::Checked : Qt::Unchecked);
    };
    if (test == LabTest::Physical)
        for (const auto& row : propertyNames)
            add(row.number,
                QString::fromWCharArray(row.russian.data(), static_cast<int>(row.russian.size())));
    else
        for (int load = 0; !loadText(test, load).isEmpty(); ++load)
            add(load, loadText(test, load) + QStringLiteral(" МПа"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_, 1);
    layout->addWidget(buttons);
    resize(480, 560);
}

TemplateState SetDialog::chosen() const
{
    TemplateState state{test_, {}};
    for (int i = 0; i < list_->count(); ++i)
        if (list_->item(i)->checkState() == Qt::Checked)
            state.numbers.insert(list_->item(i)->data(Qt::UserRole).toInt());
    return state;
}
