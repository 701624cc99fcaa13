#pragma once

#include "core/base/mobject.h"
#include "modules/isettings.h"

#include <QColor>

#include <memory>

class QSettings;

// The one store of the user's preferences and its file, tellurix19.ini beside the program. Before initialise
// every getter answers with the initial value. A file that cannot be read leaves the initial values, one that
// cannot be written stays as it was and loses the save: neither is reported.
class Settings : public MObject, public ISettings
{
public:
    Settings();
    ~Settings() override;

    // Opens the file and loads what it holds; a key that is absent keeps its value. A style is taken only if
    // this system has it.
    void initialise();
    // Writes all 93 keys.
    void save();
    // Sets the style, and writes that key at once.
    void saveVisualStyle(const QString& name);

    // clang-format off
#define SETTING_PATH(save, group, key, Key)                                                                  \
    std::wstring& key() override { return key##_; }                                                          \
    void set##Key(const std::wstring& value) override;
#define SETTING_STYLE(save, group, key, initial)                                                             \
    std::wstring& key() override { return key##_; }
#define SETTING_BOOL(save, group, key, Key, initial)                                                         \
    std::uint8_t key() override { return key##_; }                                                           \
    void set##Key(bool value) override { key##_ = value; }
#define SETTING_INT(save, group, key, Key, initial)                                                          \
    std::int32_t key() override { return key##_; }                                                           \
    void set##Key(std::int32_t value) override { key##_ = value; }
#define SETTING_BACKGROUND(save, group, key, Key, initial)                                                   \
    std::int32_t key() override { return key##_; }                                                           \
    void set##Key(std::int32_t value) override                                                               \
    {                                                                                                        \
        key##_ = value;                                                                                      \
        if (value == 0)                                                                                      \
            setChoose##Key##Color(0, 0, 0);                                                                  \
    }
#define SETTING_DOUBLE(save, group, key, Key, initial)                                                       \
    double key() override { return key##_; }                                                                 \
    void set##Key(double value) override { key##_ = value; }
#define SETTING_COLOR(save, group, key, Key, red0, green0, blue0)                                               \
    int key##Red() override { return key##_.red(); }                                                         \
    int key##Green() override { return key##_.green(); }                                                     \
    int key##Blue() override { return key##_.blue(); }                                                       \
    void set##Key(int redPart, int greenPart, int bluePart) override                                         \
    {                                                                                                        \
        key##_ = QColor(redPart, greenPart, bluePart);                                                       \
    }
#define SETTING_LAUNCH_FLAG(key)                                                                             \
    std::uint8_t key() override { return key##_; }
#define SETTING_NEW_PROJECT_MODE(key, Key, initial)                                                          \
    std::int32_t& key() override { return key##_; }                                                          \
    void set##Key(const std::int32_t& value) override { key##_ = value; }
    // clang-format on
#include "modules/setting_keys.def"

private:
    friend struct SettingRows;

    std::unique_ptr<QSettings> file_;

#define SETTING_PATH(save, group, key, Key) std::wstring key##_;
#define SETTING_STYLE(save, group, key, initial) std::wstring key##_ = initial;
#define SETTING_BOOL(save, group, key, Key, initial) bool key##_ = initial;
#define SETTING_INT(save, group, key, Key, initial) std::int32_t key##_ = initial;
#define SETTING_DOUBLE(save, group, key, Key, initial) double key##_ = initial;
#define SETTING_COLOR(save, group, key, Key, red0, green0, blue0) QColor key##_{red0, green0, blue0};
#define SETTING_LAUNCH_FLAG(key) bool key##_ = false;
#define SETTING_NEW_PROJECT_MODE(key, Key, initial) std::int32_t key##_ = initial;
#include "modules/setting_keys.def"
};
