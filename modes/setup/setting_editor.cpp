#include "setup/setting_editor.h"

#include "setup/color_button.h"
#include "setup/folder_edit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSpinBox>

#include <memory>
#include <utility>

static SettingEditor flagEditor(QWidget* parent)
{
    auto* box = new QCheckBox(parent);
    return {nullptr,
        box,
        [box] { return QVariant(box->isChecked()); },
        [box](const QVariant& value) { box->setChecked(value.toBool()); }};
}

static SettingEditor colorEditor(QWidget* parent)
{
    auto* button = new ColorButton(parent);
    return {nullptr,
        button,
        [button] { return QVariant(button->color()); },
        [button](const QVariant& value) { button->setColor(value.value<QColor>()); }};
}

static SettingEditor folderEditor(QWidget* parent)
{
    auto* edit = new FolderEdit(parent);
    return {nullptr,
        edit,
        [edit] { return QVariant(edit->folder()); },
        [edit](const QVariant& value) { edit->setFolder(value.toString()); }};
}

// A number that no choice stands for is kept, and shown as the number.
static SettingEditor choiceEditor(const SettingRow& row, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    const QStringList choices = QString::fromWCharArray(row.choices).split(QLatin1Char('|'));
    for (int i = 0; i < choices.size(); ++i)
        box->addItem(choices[i], row.smallest + i);
    return {nullptr,
        box,
        [box] { return box->currentData(); },
        [box](const QVariant& value) {
            if (box->findData(value) < 0)
                box->addItem(value.toString(), value);
            box->setCurrentIndex(box->findData(value));
        }};
}

template <class Box, class Number>
static SettingEditor numberEditor(Box* box, const SettingRow& row)
{
    box->setSuffix(QString::fromWCharArray(row.unit));
    box->setRange(Number(row.smallest), Number(row.largest));
    // The number as stored, and as the box shows it.
    const auto stored = std::make_shared<std::pair<Number, Number>>();
    return {nullptr,
        box,
        // A stored number with more digits than the box shows stays what it is until the user changes it.
        [box, stored] { return QVariant(box->value() == stored->second ? stored->first : box->value()); },
        // So does one outside of the range.
        [box, stored](const QVariant& value) {
            const auto number = value.value<Number>();
            box->setRange(qMin(box->minimum(), number), qMax(box->maximum(), number));
            box->setValue(number);
            *stored = {number, box->value()};
        }};
}

static SettingEditor editorFor(const SettingRow& row, const SettingAccess& access, QWidget* parent)
{
    if (*row.choices != 0)
        return choiceEditor(row, parent);
    switch (access.initial.userType()) {
    case QMetaType::Bool:
        return flagEditor(parent);
    case QMetaType::QColor:
        return colorEditor(parent);
    case QMetaType::Double: {
        auto* box = new QDoubleSpinBox(parent);
        box->setSingleStep(0.1);
        return numberEditor<QDoubleSpinBox, double>(box, row);
    }
    case QMetaType::Int:
        return numberEditor<QSpinBox, int>(new QSpinBox(parent), row);
    default:
        return folderEditor(parent);
    }
}

SettingEditor makeSettingEditor(const SettingRow& row, const SettingAccess& access, QWidget* parent)
{
    SettingEditor editor = editorFor(row, access, parent);
    editor.access = &access;
    editor.widget->setObjectName(QString::fromLatin1(row.key.data(), int(row.key.size())));
    editor.widget->setToolTip(QString::fromWCharArray(row.tip));
    return editor;
}
