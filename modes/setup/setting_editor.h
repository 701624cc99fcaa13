#pragma once

#include "setup/setting_access.h"
#include "setup/setting_pages.h"

#include <QVariant>

#include <functional>

class QWidget;

// The editor of one preference, made for the kind of its value.
struct SettingEditor {
    const SettingAccess* access = nullptr;
    QWidget* widget = nullptr; // owned by its parent
    std::function<QVariant()> value;
    std::function<void(const QVariant&)> show;
};

SettingEditor makeSettingEditor(const SettingRow& row, const SettingAccess& access, QWidget* parent);
