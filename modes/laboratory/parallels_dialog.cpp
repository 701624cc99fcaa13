#include "laboratory/parallels_dialog.h"

#include "calc/parallel_determinations.h"
#include "laboratory/sample_cells.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <vector>

namespace
{

struct PropertyRow {
    int property;
    const char* name;
    int decimals;
    bool isMoisture;
};

constexpr PropertyRow propertyRows[] = {
    {0, "Влажность природная", 3, true},
    {3, "Влажность на границе текучести", 3, true},
    {4, "Влажность на границе раскатывания", 3, true},
    {1, "Плотность грунта, г/см3", 2, false},
    {2, "Плотность частиц грунта, г/см3", 2, false},
};

const PropertyRow& rowOf(int index)
{
    return propertyRows[index < 0 ? 0 : index];
}

Number numberIn(const QLineEdit* edit)
{
    return readNumber(edit->text().toStdWString());
}

} // namespace

ParallelsDialog::ParallelsDialog(QWidget* parent)
    : QDialog(parent)
    , property_(new QComboBox(this))
    , isSand_(new QCheckBox(QStringLiteral("Песок"), this))
    , outcome_(new QLabel(this))
    , buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    for (const PropertyRow& row : propertyRows)
        property_->addItem(QString::fromUtf8(row.name));
    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("Свойство:"), this), 0, 0);
    layout->addWidget(property_, 0, 1, 1, 3);
    layout->addWidget(isSand_, 0, 4);
    const char* heads[] = {"Бюкс, г", "Влажный с бюксом, г", "Сухой с бюксом, г"};
    for (int i = 0; i < 3; ++i) {
        massHeads_[static_cast<std::size_t>(i)] = new QLabel(QString::fromUtf8(heads[i]), this);
        layout->addWidget(massHeads_[static_cast<std::size_t>(i)], 1, i + 1);
    }
    layout->addWidget(new QLabel(QStringLiteral("Значение"), this), 1, 4);
    for (std::size_t row = 0; row < rows; ++row) {
        const int at = static_cast<int>(row) + 2;
        layout->addWidget(new QLabel(QStringLiteral("Определение %1").arg(row + 1), this), at, 0);
        for (std::size_t i = 0; i < 3; ++i) {
            masses_[row][i] = new QLineEdit(this);
            layout->addWidget(masses_[row][i], at, static_cast<int>(i) + 1);
            connect(masses_[row][i], &QLineEdit::textEdited, this, [this] { work(); });
        }
        values_[row] = new QLineEdit(this);
        layout->addWidget(values_[row], at, 4);
        connect(values_[row], &QLineEdit::textEdited, this, [this] { work(); });
    }
    outcome_->setWordWrap(true);
    outcome_->setMinimumHeight(outcome_->fontMetrics().lineSpacing() * 2 + 8);
    layout->addWidget(outcome_, 6, 0, 1, 5);
    layout->addWidget(buttons_, 7, 0, 1, 5);
    buttons_->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Записать среднее"));
    buttons_->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(property_, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { work(); });
    connect(isSand_, &QCheckBox::toggled, this, [this] { work(); });
    work();
}

int ParallelsDialog::property() const
{
    return rowOf(property_->currentIndex()).property;
}

void ParallelsDialog::work()
{
    const PropertyRow& chosen = rowOf(property_->currentIndex());
    isSand_->setVisible(chosen.property == 1);
    std::vector<Number> values;
    for (QLabel* head : massHeads_)
        head->setVisible(chosen.isMoisture);
    for (std::size_t row = 0; row < rows; ++row) {
        for (QLineEdit* mass : masses_[row])
            mass->setVisible(chosen.isMoisture);
        values_[row]->setReadOnly(chosen.isMoisture);
        if (chosen.isMoisture) {
            const Number moisture =
                moistureOf({numberIn(masses_[row][0]), numberIn(masses_[row][1]), numberIn(masses_[row][2])});
            values_[row]->setText(qText(numberText(moisture, 4)));
            values.push_back(moisture);
        } else {
            values.push_back(numberIn(values_[row]));
        }
    }
    const ParallelMean mean = parallelMean(values, chosen.property, isSand_->isChecked());
    value_ = numberText(mean.mean, chosen.decimals);
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(!value_.empty());
    if (!mean.mean)
        outcome_->setText(QStringLiteral("Введите не меньше двух определений."));
    else if (!mean.difference)
        outcome_->setText(
            QStringLiteral("Среднее %1. Для расхождения нужно второе определение.").arg(qText(value_)));
    else
        outcome_->setText(
            QStringLiteral("Среднее <b>%1</b>. Расхождение %2, допускается %3: <b>%4</b>.")
                .arg(qText(value_),
                    qText(numberText(mean.difference, 4)),
                    qText(numberText(mean.permitted, 4)),
                    mean.agrees ? QStringLiteral("в норме")
                                : QStringLiteral("больше допустимого, нужно третье определение")));
}
