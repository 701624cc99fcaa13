#pragma once

#include <QVariant>

#include <string_view>
#include <vector>

class ISettings;

// A preference as the dialog works on it: read, written and reset by its key. Colours are QColor.
struct SettingAccess {
    std::string_view key;
    QVariant initial; // invalid for the work folder, which has none of its own
    QVariant (*read)(ISettings&);
    void (*write)(ISettings&, const QVariant&);
};

// All that can be set, in the order in which it must be written: a background of 0 blackens its colour, so
// the colour comes behind it.
const std::vector<SettingAccess>& settingAccesses();

// Null for a key that cannot be set.
const SettingAccess* accessOf(std::string_view key);
