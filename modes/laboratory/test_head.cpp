#include "laboratory/test_head.h"

#include "core/base/typed_number.h"
#include "laboratory/sample_cells.h"
#include "site/cells.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <cmath>

namespace
{

constexpr double micrometres = 1000; // in a millimetre
constexpr double pascals = 1e6; // in a megapascal
constexpr double largest = 2e9; // of a number of the record

enum Count { ByRule, KeptOut, KeptIn };

Count countOf(const LabSample& sample, LabTest test, int method)
{
    const auto number = static_cast<std::uint8_t>(method);
    if (test == LabTest::Compression) {
        const auto group = sample.compression.find(number);
        if (group == sample.compression.end())
            return ByRule;
        return group->second.flags[compression_flag::KeptOut] == 1 ? KeptOut
            : group->second.flags[compression_flag::KeptIn] == 1   ? KeptIn
                                                                   : ByRule;
    }
    const auto cells = sample.shear.find(number);
    const ShearCell* note = cells == sample.shear.end() ? nullptr : existing(cells->second, shearTestNote);
    return !note                      ? ByRule
        : note->value == shearKeptOut ? KeptOut
        : note->value == shearKeptIn  ? KeptIn
                                      : ByRule;
}

void setCount(LabSample& sample, LabTest test, int method, Count count)
{
    const auto number = static_cast<std::uint8_t>(method);
    if (test == LabTest::Compression) {
        auto& flags = sample.compression[number].flags;
        flags[compression_flag::KeptOut] = count == KeptOut ? 1 : 0;
        flags[compression_flag::KeptIn] = count == KeptIn ? 1 : 0;
        return;
    }
    std::vector<ShearCell>& cells = sample.shear[number];
    std::erase_if(cells, [](const ShearCell& cell) { return cell.id == shearTestNote; });
    if (count != ByRule)
        cells.push_back({shearTestNote, std::wstring(count == KeptOut ? shearKeptOut : shearKeptIn)});
}

} // namespace

TestHead::TestHead(LabTest test, QWidget* parent)
    : QWidget(parent)
    , test_(test)
    , counts_(new QComboBox(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 4);
    if (test == LabTest::Compression) {
        addField("Высота образца, мм:", compression_number::FirstHeight, micrometres);
        addField("второго:", compression_number::SecondHeight, micrometres);
        addField("Природное давление, МПа:", compression_number::NaturalStress, pascals);
    }
    layout->addWidget(new QLabel(QStringLiteral("В статистике ИГЭ:"), this));
    counts_->setObjectName(QStringLiteral("counts"));
    counts_->setAccessibleName(QStringLiteral("В статистике ИГЭ"));
    counts_->addItems(
        {QStringLiteral("по правилу"), QStringLiteral("не учитывать"), QStringLiteral("всегда")});
    layout->addWidget(counts_);
    layout->addStretch(1);
    connect(counts_, qOverload<int>(&QComboBox::activated), this, &TestHead::takeCount);
}

void TestHead::addField(const char* name, std::size_t number, double unit)
{
    auto* label = new QLabel(QString::fromUtf8(name), this);
    auto* edit = new QLineEdit(this);
    edit->setAccessibleName(label->text());
    edit->setMaximumWidth(80);
    edit->setAlignment(Qt::AlignRight);
    label->setBuddy(edit);
    layout()->addWidget(label);
    layout()->addWidget(edit);
    const Field field{edit, number, unit};
    fields_.push_back(field);
    connect(edit, &QLineEdit::editingFinished, this, [this, field] { takeField(field); });
}

void TestHead::closeEditor()
{
    for (const Field& field : fields_)
        takeField(field);
}

void TestHead::read(const LabSample& sample, const LabTriple& rings, int method)
{
    sample_ = sample;
    method_ = method;
    const auto group = sample.compression.find(static_cast<std::uint8_t>(method));
    for (const Field& field : fields_) {
        const std::int32_t value =
            group == sample.compression.end() ? 0 : group->second.numbers[field.number];
        const Number shown = value > 0 ? Number(value / field.unit) : Number();
        field.edit->setText(shown ? qText(significantText(shown, 6)) : QString());
        field.edit->setPlaceholderText(field.number == compression_number::NaturalStress
                ? QStringLiteral("по слоям")
                : qText(numberText(Number(static_cast<double>(rings.valueA) * 10), 1)));
    }
    counts_->setCurrentIndex(countOf(sample, test_, method));
}

// What is no such number stays in the field and out of the record.
void TestHead::takeField(const Field& field)
{
    if (!field.edit->isModified())
        return;
    field.edit->setModified(false);
    const QString text = field.edit->text().trimmed();
    const Number typed = readNumber(text.toStdWString());
    const bool isPossible = text.isEmpty() || (typed && *typed > 0 && *typed * field.unit <= largest);
    if (!isPossible) {
        Q_EMIT told(QStringLiteral("«%1»: нужно положительное число.").arg(text));
        return;
    }
    LabSample made = sample_;
    made.compression[static_cast<std::uint8_t>(method_)].numbers[field.number] =
        typed ? static_cast<std::int32_t>(std::lround(*typed * field.unit)) : 0;
    Q_EMIT edited(made);
}

void TestHead::takeCount(int choice)
{
    LabSample made = sample_;
    setCount(made, test_, method_, static_cast<Count>(choice));
    Q_EMIT edited(made);
}
