#include "static/journal_dialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QPushButton>

#include <cmath>

namespace
{

QDoubleSpinBox* numberBox(QWidget* parent, double value, double least, double greatest, int decimals)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setDecimals(decimals);
    box->setRange(least, greatest);
    box->setValue(value);
    return box;
}

void addButtons(QDialog& dialog, QFormLayout* form)
{
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    form->addRow(buttons);
}

} // namespace

std::vector<std::wstring> askDepths(QWidget* parent, double last)
{
    QDialog dialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    dialog.setWindowTitle(QStringLiteral("Глубины через равный шаг"));
    auto* form = new QFormLayout(&dialog);
    auto* from = numberBox(&dialog, last + 0.2, 0.0, 200.0, 2);
    auto* to = numberBox(&dialog, last + 10.0, 0.0, 200.0, 2);
    auto* step = numberBox(&dialog, 0.2, 0.01, 10.0, 2);
    form->addRow(QStringLiteral("От, м"), from);
    form->addRow(QStringLiteral("До, м"), to);
    form->addRow(QStringLiteral("Шаг, м"), step);
    addButtons(dialog, form);
    std::vector<std::wstring> depths;
    if (dialog.exec() != QDialog::Accepted)
        return depths;
    // Whole centimetres, so that the steps do not drift.
    const long first = std::lround(from->value() * 100.0);
    const long end = std::lround(to->value() * 100.0);
    const long by = std::max(1L, std::lround(step->value() * 100.0));
    const int decimals = by % 10 == 0 && first % 10 == 0 ? 1 : 2;
    for (long depth = first; depth <= end; depth += by)
        depths.push_back(numberText(static_cast<double>(depth) / 100.0, decimals));
    return depths;
}

std::optional<ProbeAreas> askAreas(QWidget* parent, double coneDiameter)
{
    QDialog dialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    dialog.setWindowTitle(QStringLiteral("Усилия в сопротивления"));
    auto* form = new QFormLayout(&dialog);
    const ProbeAreas usual;
    auto* cone = numberBox(&dialog, usual.cone, 0.1, 1000.0, 3);
    auto* sleeve = numberBox(&dialog, usual.sleeve, 0.1, 10000.0, 2);
    form->addRow(QStringLiteral("Площадь конуса, см²"), cone);
    form->addRow(QStringLiteral("Площадь муфты, см²"), sleeve);
    auto* byDiameter = new QPushButton(
        QStringLiteral("Конус по диаметру %1 мм").arg(coneDiameter * 1000.0, 0, 'f', 1), &dialog);
    QObject::connect(
        byDiameter, &QPushButton::clicked, &dialog, [=] { cone->setValue(circleAreaCm2(coneDiameter)); });
    form->addRow(byDiameter);
    addButtons(dialog, form);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return ProbeAreas{cone->value(), sleeve->value()};
}
