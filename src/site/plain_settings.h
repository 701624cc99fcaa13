#pragma once

#include "modules/isettings.h"

#include <algorithm>

// The settings where there is no program around and no settings file: the initial values, and what is set. Setters
// behave as those of the program's store.
class PlainSettings : public ISettings
{
    struct Color {
        int red;
        int green;
        int blue;
    };

public:
    // clang-format off
#define SETTING_PATH(save, group, key, Key)                                                                  \
    std::wstring key##_;                                                                                     \
    std::wstring& key() override { return key##_; }                                                          \
    void set##Key(const std::wstring& value) override                                                        \
    {                                                                                                        \
        key##_ = value;                                                                                      \
        std::replace(key##_.begin(), key##_.end(), L'/', L'\\');                                             \
    }
#define SETTING_STYLE(save, group, key, initial)                                                             \
    std::wstring key##_ = initial;                                                                           \
    std::wstring& key() override { return key##_; }
#define SETTING_BOOL(save, group, key, Key, initial)                                                         \
    bool key##_ = initial;                                                                                   \
    std::uint8_t key() override { return key##_; }                                                           \
    void set##Key(bool value) override { key##_ = value; }
#define SETTING_INT(save, group, key, Key, initial)                                                          \
    std::int32_t key##_ = initial;                                                                           \
    std::int32_t key() override { return key##_; }                                                           \
    void set##Key(std::int32_t value) override { key##_ = value; }
#define SETTING_BACKGROUND(save, group, key, Key, initial)                                                   \
    std::int32_t key##_ = initial;                                                                           \
    std::int32_t key() override { return key##_; }                                                           \
    void set##Key(std::int32_t value) override                                                               \
    {                                                                                                        \
        key##_ = value;                                                                                      \
        if (value == 0)                                                                                      \
            setChoose##Key##Color(0, 0, 0);                                                                  \
    }
#define SETTING_DOUBLE(save, group, key, Key, initial)                                                       \
    double key##_ = initial;                                                                                 \
    double key() override { return key##_; }                                                                 \
    void set##Key(double value) override { key##_ = value; }
#define SETTING_COLOR(save, group, key, Key, red0, green0, blue0)                                            \
    Color key##_ = {red0, green0, blue0};                                                                    \
    int key##Red() override { return key##_.red; }                                                           \
    int key##Green() override { return key##_.green; }                                                       \
    int key##Blue() override { return key##_.blue; }                                                         \
    void set##Key(int red, int green, int blue) override { key##_ = {red, green, blue}; }
#define SETTING_LAUNCH_FLAG(key)                                                                             \
    std::uint8_t key() override { return 0; }
#define SETTING_NEW_PROJECT_MODE(key, Key, initial)                                                          \
    std::int32_t key##_ = initial;                                                                           \
    std::int32_t& key() override { return key##_; }                                                          \
    void set##Key(const std::int32_t& value) override { key##_ = value; }
    // clang-format on
#include "modules/setting_keys.def"
};
