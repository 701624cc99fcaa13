#include "support/plain_settings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace
{

struct KeyRow {
    int save;
    std::string_view group;
    std::string_view key;
    int slots; // operations of ISettings
};

// Rows of the table in slot order, the two without a key included.
const KeyRow rows[] = {
#define SETTING_PATH(save, group, key, Key) {save, group, #key, 2},
#define SETTING_STYLE(save, group, key, initial) {save, group, #key, 1},
#define SETTING_BOOL(save, group, key, Key, initial) {save, group, #key, 2},
#define SETTING_INT(save, group, key, Key, initial) {save, group, #key, 2},
#define SETTING_DOUBLE(save, group, key, Key, initial) {save, group, #key, 2},
#define SETTING_COLOR(save, group, key, Key, red, green, blue) {save, group, #key, 4},
#define SETTING_LAUNCH_FLAG(key) {0, "", #key, 1},
#define SETTING_NEW_PROJECT_MODE(key, Key, initial) {0, "", #key, 2},
#include "modules/setting_keys.def"
};

int slotOf(std::string_view key)
{
    int slot = 0;
    for (const KeyRow& row : rows) {
        if (row.key == key)
            return slot;
        slot += row.slots;
    }
    return slot;
}

} // namespace

TEST(SettingKeys, StandInTheSlotsThatModulesCall)
{
    EXPECT_EQ(slotOf("visualStyleName"), 2);
    EXPECT_EQ(slotOf("launchFlag"), 9);
    EXPECT_EQ(slotOf("chooseBackgroundSectionColor"), 48);
    EXPECT_EQ(slotOf("isSectionEditorActivated"), 52);
    EXPECT_EQ(slotOf("backgroundSectionEditor"), 56);
    EXPECT_EQ(slotOf("patternSectionColorSand"), 80);
    EXPECT_EQ(slotOf("isStaticGraphProfileCheck"), 102);
    EXPECT_EQ(slotOf("staticGraphProfileValues"), 104);
    EXPECT_EQ(slotOf("newProjectMode"), 138);
    EXPECT_EQ(slotOf("typeGraphStatic"), 140);
    EXPECT_EQ(slotOf("isSmoothingGraphSubsidence"), 224);
    EXPECT_EQ(slotOf("behind the last"), 226);
}

TEST(SettingKeys, SaveOrderNumbersEveryKeyOnceAndKeepsGroupsTogether)
{
    std::vector<KeyRow> saved;
    std::copy_if(std::begin(rows), std::end(rows), std::back_inserter(saved), [](const KeyRow& row) {
        return row.save != 0;
    });
    std::sort(saved.begin(), saved.end(), [](const KeyRow& a, const KeyRow& b) { return a.save < b.save; });
    ASSERT_EQ(saved.size(), 93U);
    std::vector<std::string_view> groups;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        EXPECT_EQ(saved[i].save, static_cast<int>(i + 1));
        if (groups.empty() || groups.back() != saved[i].group)
            groups.push_back(saved[i].group);
    }
    const std::vector<std::string_view> expected = {"",
        "Section",
        "PatternSection",
        "CrossSection",
        "ScaleHatching",
        "DigitalModel",
        "Laboratory",
        "Static",
        "Ige",
        "Igk",
        "CommonSubsidence"};
    EXPECT_EQ(groups, expected);
}
