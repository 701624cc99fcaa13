#include "modules/isettings.h"
#include "support/row_hash.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <vector>

namespace
{

std::string shown(bool value)
{
    return value ? "true" : "false";
}
std::string shown(int value)
{
    return std::to_string(value);
}
std::string shown(double value)
{
    return std::to_string(std::lround(value * 10000));
}
std::string shown(int red, int green, int blue)
{
    return shown(red) + ',' + shown(green) + ',' + shown(blue);
}
std::string shown(const wchar_t* ascii)
{
    const std::wstring text = ascii;
    return std::string(text.begin(), text.end());
}

struct KeyRow {
    int save;
    std::string group;
    std::string key;
    std::string type;
    std::string initial;
    int slots; // operations of ISettings
};

// Rows of the table in slot order, the two without a key included.
const KeyRow rows[] = {
#define SETTING_PATH(save, group, key, Key) {save, group, #key, "string", "", 2},
#define SETTING_STYLE(save, group, key, initial) {save, group, #key, "string", shown(initial), 1},
#define SETTING_BOOL(save, group, key, Key, initial) {save, group, #key, "bool", shown(initial), 2},
#define SETTING_INT(save, group, key, Key, initial) {save, group, #key, "int", shown(initial), 2},
#define SETTING_DOUBLE(save, group, key, Key, initial) {save, group, #key, "double", shown(initial), 2},
#define SETTING_COLOR(save, group, key, Key, r, g, b) {save, group, #key, "color", shown(r, g, b), 4},
#define SETTING_LAUNCH_FLAG(key) {0, "", #key, "", "", 1},
#define SETTING_NEW_PROJECT_MODE(key, Key, initial) {0, "", #key, "", "", 2},
#include "modules/setting_keys.def"
};

} // namespace

// Group, key, type, initial value (a colour as red, green, blue; a fraction in ten thousandths) and the first
// of the operations by which modules call it, parted by '|', a line a setting in the order in which the file
// is saved. The hash was computed by another program from the settings as they were agreed upon with those
// who write modules.
TEST(SettingKeys, KeepTheirNamesPlacesAndInitialValues)
{
    std::vector<std::pair<int, std::string>> lines;
    int slot = 0;
    for (const KeyRow& row : rows) {
        if (row.save != 0)
            lines.emplace_back(row.save,
                row.group + '|' + row.key + '|' + row.type + '|' + row.initial + '|' + std::to_string(slot)
                    + '\n');
        slot += row.slots;
    }
    EXPECT_EQ(slot, 226) << "and the destructor behind them";
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].first, static_cast<int>(i + 1));
        text += lines[i].second;
    }
    EXPECT_EQ(rowHash(text), 0x32fa4765eb8a3192U) << text;
}
