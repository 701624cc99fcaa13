#include "setup/setting_access.h"

#include "modules/isettings.h"

#include <QColor>

#include <algorithm>

const std::vector<SettingAccess>& settingAccesses()
{
    // clang-format off
    static const std::vector<SettingAccess> accesses{
#define SETTING_PATH(save, group, key, Key)                                                                  \
    {#key, {},                                                                                               \
        [](ISettings& settings) { return QVariant(QString::fromStdWString(settings.key())); },               \
        [](ISettings& settings, const QVariant& value) { settings.set##Key(value.toString().toStdWString()); }},
#define SETTING_STYLE(save, group, key, initial)
#define SETTING_BOOL(save, group, key, Key, initial)                                                         \
    {#key, QVariant(initial),                                                                                \
        [](ISettings& settings) { return QVariant(settings.key() != 0); },                                   \
        [](ISettings& settings, const QVariant& value) { settings.set##Key(value.toBool()); }},
#define SETTING_INT(save, group, key, Key, initial)                                                          \
    {#key, QVariant(initial),                                                                                \
        [](ISettings& settings) { return QVariant(settings.key()); },                                        \
        [](ISettings& settings, const QVariant& value) { settings.set##Key(value.toInt()); }},
#define SETTING_DOUBLE(save, group, key, Key, initial)                                                       \
    {#key, QVariant(initial),                                                                                \
        [](ISettings& settings) { return QVariant(settings.key()); },                                        \
        [](ISettings& settings, const QVariant& value) { settings.set##Key(value.toDouble()); }},
#define SETTING_COLOR(save, group, key, Key, red0, green0, blue0)                                               \
    {#key, QVariant(QColor(red0, green0, blue0)),                                                               \
        [](ISettings& settings) {                                                                            \
            return QVariant(QColor(settings.key##Red(), settings.key##Green(), settings.key##Blue()));       \
        },                                                                                                   \
        [](ISettings& settings, const QVariant& value) {                                                     \
            const auto color = value.value<QColor>();                                                        \
            settings.set##Key(color.red(), color.green(), color.blue());                                     \
        }},
#define SETTING_LAUNCH_FLAG(key)
#define SETTING_NEW_PROJECT_MODE(key, Key, initial) SETTING_INT(0, "", key, Key, initial)
#include "modules/setting_keys.def"
    };
    // clang-format on
    return accesses;
}

const SettingAccess* accessOf(std::string_view key)
{
    const auto& accesses = settingAccesses();
    const auto found = std::find_if(
        accesses.begin(), accesses.end(), [=](const SettingAccess& access) { return access.key == key; });
    return found == accesses.end() ? nullptr : &*found;
}
