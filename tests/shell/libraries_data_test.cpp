#include "dictionaries/section_captions.h"
#include "make_libraries/library_sources.h"
#include "persistence/project_file.h"
#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>

namespace
{

std::wstring builtFile(const std::string& name)
{
    return *fromUtf8(TELLURIX_PROGRAM_FOLDER "/" + name);
}

std::string refusalOf(const std::function<void()>& read)
{
    try {
        read();
    } catch (const std::exception& failure) {
        return failure.what();
    }
    return "accepted";
}

// One hatch, whose other members are given.
std::string hatchWith(const std::string& members)
{
    return R"({"hatches": [{"number": 6, "name": "Суглинок", "picture": "loam", )" + members + "}]}";
}

std::string presetsWith(const std::string& presets)
{
    return R"({"presets": [)" + presets + "]}";
}

} // namespace

TEST(LibraryFiles, HatchesHaveTheDocumentedForm)
{
    const auto library = readHatchFile(builtFile("hatch/gl/hatch.dat"));
    ASSERT_TRUE(library);
    const auto& hatches = library->getHatches();
    EXPECT_GE(hatches.size(), 20U);
    for (std::uint32_t group = 1; group <= 9; ++group)
        EXPECT_TRUE(hatches.contains(group)) << "soil group " << group;
    for (const auto& [number, bytes] : hatches) {
        SCOPED_TRACE(number);
        const std::string text(bytes.begin(), bytes.end());
        EXPECT_TRUE(fromUtf8(text).has_value());
        EXPECT_GE(std::ranges::count(text, '\n'), 3);
        EXPECT_EQ(bytes.back(), '\n');
    }
    const auto& loam = hatches.at(6);
    EXPECT_EQ(std::string(loam.begin(), loam.end()),
        "Суглинок\n24 24\nline 0 12 12 0\nline 0 24 24 0\nline 12 24 24 12\n");
}

TEST(LibraryFiles, PresetsShowColumnsThatThereAre)
{
    const auto library = readIgkPresetFile(builtFile("igkPreset/igkPreset.dat"));
    ASSERT_TRUE(library);
    EXPECT_EQ(library->getPresets().size(), 3U);
    EXPECT_EQ(library->getActiveName(), L"Полная");
    EXPECT_TRUE(library->isMode1(L"Краткая"));
    for (const auto& [name, preset] : library->getPresets()) {
        EXPECT_EQ(preset.active, name == L"Полная");
        EXPECT_FALSE(preset.items.empty());
        for (const IgkPresetItem& item : preset.items)
            EXPECT_NE(sectionColumnCaptions.find(0, static_cast<int>(item.id)), nullptr) << item.id;
    }
}

TEST(LibrarySources, HatchWithAMistakeIsRefused)
{
    const char* const good =
        R"("tile": [24, 20], "shapes": ["line 0 4 24 4.5", "dot 3 -3 1", "oval 1 2 3 4 -5"])";
    const auto patterns = readHatchSource(hatchWith(good));
    EXPECT_EQ(std::string(patterns.at(6).begin(), patterns.at(6).end()),
        "Суглинок\n24 20\nline 0 4 24 4.5\ndot 3 -3 1\noval 1 2 3 4 -5\n");

    const std::pair<const char*, const char*> cases[] = {
        {R"("tile": [24], "shapes": ["dot 1 1 1"])", "hatch 6: a tile has two sides"},
        {R"("tile": [24, 0], "shapes": ["dot 1 1 1"])", "a tile has two sides"},
        {R"("tile": [24, 8.5], "shapes": ["dot 1 1 1"])", "a tile has two sides"},
        {R"("tile": [24, 24], "shapes": [])", "no shapes"},
        {R"("tile": [24, 24], "shapes": ["circle 1 1 1"])", "is no line, fill, dot or oval"},
        {R"("tile": [24, 24], "shapes": ["line 1 1 2"])", "has not the numbers"},
        {R"("tile": [24, 24], "shapes": ["line 1 1 2 2 3"])", "has not the numbers"},
        {R"("tile": [24, 24], "shapes": ["dot 1  1 1"])", "has not the numbers"},
        {R"("tile": [24, 24], "shapes": ["dot 1 1 1,5"])", "has not the numbers"},
        {R"("tile": [24, 24], "shapes": ["dot 1 1 inf"])", "has not the numbers"},
        {R"("tile": [24, 24], "shapes": [5])", "hatch 6: "},
        {R"("tile": [24, 24], "shape": ["dot 1 1 1"])", "shapes"},
        {R"("tile": [24, 24], "shapes": ["dot 1 1 1"], "width": 2)", "do not belong"},
    };
    for (const auto& entry : cases) {
        const auto& members = entry.first;
        const std::string refusal = refusalOf([&] { readHatchSource(hatchWith(members)); });
        EXPECT_NE(refusal.find(entry.second), std::string::npos) << members << ": " << refusal;
    }
    const std::string one = R"({"number": 1, "name": "A", "picture": "a", )" + std::string(good) + "}";
    EXPECT_EQ(refusalOf([&] { readHatchSource(R"({"hatches": [)" + one + "," + one + "]}"); }),
        "hatch 1: the number is taken");
    EXPECT_EQ(refusalOf([] { readHatchSource(R"({"hatches": []})"); }), "no hatches");
    EXPECT_NE(refusalOf([] { readHatchSource("{"); }), "accepted");
}

TEST(LibrarySources, PresetWithAMistakeIsRefused)
{
    const std::string column = R"({"column": 1, "shown": true, "turned": false})";
    const auto preset = [](const char* name, const char* active, const std::string& columns) {
        return std::string(R"({"name": ")") + name + R"(", "active": )" + active
            + R"(, "mode": 0, "columns": [)" + columns + "]}";
    };
    EXPECT_EQ(readPresetSource(presetsWith(preset("Полная", "true", column))).at(L"Полная").items,
        (std::vector<IgkPresetItem>{{1, true, false}}));

    const std::pair<std::string, const char*> cases[] = {
        {preset("A", "true", column) + "," + preset("B", "true", column), "more than one preset is active"},
        {preset("A", "true", column) + "," + preset("A", "false", column), "the name is taken"},
        {preset("A", "true", column + "," + column), "column 1 stands there twice"},
        {preset("A", "true", R"({"column": 99, "shown": true, "turned": false})"), "invalid map"},
        {preset("A", "true", R"({"column": -1, "shown": true, "turned": false})"), "-1 is no number"},
        {preset("A", "1", column), "preset \"A\": "},
        {preset("", "true", column), "no name"},
        {preset("漢", "true", column), "no name that the file can keep"},
    };
    for (const auto& entry : cases) {
        const auto& presets = entry.first;
        const std::string refusal = refusalOf([&] { readPresetSource(presetsWith(presets)); });
        EXPECT_NE(refusal.find(entry.second), std::string::npos) << presets << ": " << refusal;
    }
}
