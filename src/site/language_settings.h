#pragma once

#include "modules/isettings.h"

// Settings that hold their initial values and a language: for the classification where there is no program
// around. Setters are of no account here.
class LanguageSettings : public ISettings
{
public:
    explicit LanguageSettings(std::int32_t language) { reportLanguage_ = language; }

    // clang-format off
#define SETTING_PATH(save, group, key, Key)                                                                  \
    std::wstring key##_;                                                                                     \
    std::wstring& key() override { return key##_; }                                                          \
    void set##Key(const std::wstring& value) override { key##_ = value; }
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
#define SETTING_DOUBLE(save, group, key, Key, initial)                                                       \
    double key##_ = initial;                                                                                 \
    double key() override { return key##_; }                                                                 \
    void set##Key(double value) override { key##_ = value; }
#define SETTING_COLOR(save, group, key, Key, red0, green0, blue0)                                            \
    int key##_[3] = {red0, green0, blue0};                                                                   \
    int key##Red() override { return key##_[0]; }                                                            \
    int key##Green() override { return key##_[1]; }                                                          \
    int key##Blue() override { return key##_[2]; }                                                           \
    void set##Key(int red, int green, int blue) override                                                     \
    {                                                                                                        \
        key##_[0] = red;                                                                                     \
        key##_[1] = green;                                                                                   \
        key##_[2] = blue;                                                                                    \
    }
#define SETTING_LAUNCH_FLAG(key)                                                                             \
    std::uint8_t key() override { return 0; }
#define SETTING_NEW_PROJECT_MODE(key, Key, initial)                                                          \
    std::int32_t key##_ = initial;                                                                           \
    std::int32_t& key() override { return key##_; }                                                          \
    void set##Key(const std::int32_t& value) override { key##_ = value; }
#include "modules/setting_keys.def"
    // clang-format on
};
