#pragma once

#include <cstdint>
#include <string>

// The user's preferences as modules read and change them. setting_keys.def holds what can be asked for; a
// getter is named as its key, a setter "set" and the key, the getters of a colour the key and Red, Green,
// Blue.
//
// A getter answers at any time, before the file is loaded with the initial value. A setter changes the value
// in memory alone; the file follows when the user accepts the settings. Flags come back as a byte, 0 or 1,
// and go in as bool. Colour components run from 0 to 255; a colour that is set is opaque.
//
// Modules call these 227 operations by their position.
class ISettings
{
public:
#define SETTING_PATH(save, group, key, Key)                                                                  \
    virtual std::wstring& key() = 0;                                                                         \
    virtual void set##Key(const std::wstring& value) = 0;
#define SETTING_STYLE(save, group, key, initial) virtual std::wstring& key() = 0;
#define SETTING_BOOL(save, group, key, Key, initial)                                                         \
    virtual std::uint8_t key() = 0;                                                                          \
    virtual void set##Key(bool value) = 0;
#define SETTING_INT(save, group, key, Key, initial)                                                          \
    virtual std::int32_t key() = 0;                                                                          \
    virtual void set##Key(std::int32_t value) = 0;
#define SETTING_DOUBLE(save, group, key, Key, initial)                                                       \
    virtual double key() = 0;                                                                                \
    virtual void set##Key(double value) = 0;
#define SETTING_COLOR(save, group, key, Key, red, green, blue)                                               \
    virtual int key##Red() = 0;                                                                              \
    virtual int key##Green() = 0;                                                                            \
    virtual int key##Blue() = 0;                                                                             \
    virtual void set##Key(int redPart, int greenPart, int bluePart) = 0;
#define SETTING_LAUNCH_FLAG(key) virtual std::uint8_t key() = 0;
#define SETTING_NEW_PROJECT_MODE(key, Key, initial)                                                          \
    virtual std::int32_t& key() = 0;                                                                         \
    virtual void set##Key(const std::int32_t& value) = 0;
#include "modules/setting_keys.def"

    virtual ~ISettings() = default;
};
