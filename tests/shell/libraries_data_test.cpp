#include "dictionaries/section_captions.h"
#include "make_libraries/library_sources.h"
#include "persistence/project_file.h"
#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <exception>
#include <locale>
#include <sstream>

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

// One hatch with one family of lines, whose members are given.
std::string hatchWith(const std::string& members)
{
    return R"({"hatches": [{"number": 6, "name": "Суглинок", "lines": [{)" + members + "}]}]}";
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
        std::istringstream text(std::string(bytes.begin(), bytes.end()));
        std::string line;
        ASSERT_TRUE(std::getline(text, line));
        EXPECT_TRUE(fromUtf8(line).has_value() && !line.empty());
        int families = 0;
        for (; std::getline(text, line); ++families) {
            std::istringstream row(line);
            row.imbue(std::locale::classic());
            std::vector<double> numbers;
            for (double value = 0; row >> value;)
                numbers.push_back(value);
            EXPECT_TRUE(row.eof()) << line;
            ASSERT_GE(numbers.size(), 5U) << line;
            EXPECT_GT(numbers[4], 0) << line;
        }
        EXPECT_GE(families, 1);
        EXPECT_EQ(bytes.back(), '\n');
    }
    const auto& loam = hatches.at(6);
    EXPECT_EQ(std::string(loam.begin(), loam.end()), "Суглинок\n45 0 0 0 12\n");
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
        R"("angle": 45, "origin": [0, 0], "offset": [0, 12], "dashes": [6, -2.5, 0, -3])";
    const auto patterns = readHatchSource(hatchWith(good));
    EXPECT_EQ(
        std::string(patterns.at(6).begin(), patterns.at(6).end()), "Суглинок\n45 0 0 0 12 6 -2.5 0 -3\n");

    const std::pair<const char*, const char*> cases[] = {
        {R"("angle": 45, "origin": [0, 0], "offset": [0, 0], "dashes": [])",
            "hatch 6: lines that do not part"},
        {R"("angle": 45, "origin": [0, 0], "offset": [0, -1], "dashes": [])", "lines that do not part"},
        {R"("angle": 361, "origin": [0, 0], "offset": [0, 1], "dashes": [])", "an angle beyond"},
        {R"("angle": 45, "origin": [0], "offset": [0, 1], "dashes": [])", "two numbers each"},
        {R"("angle": 45, "origin": [0, "a"], "offset": [0, 1], "dashes": [])", "hatch 6: "},
        {R"("angle": 45, "origin": [0, 0], "offset": [0, 1], "dashes": [0, 0])", "draw nothing"},
        {R"("angle": 45, "origin": [0, 0], "offset": [0, 1], "dashes": [-4])", "draw nothing"},
        {R"("angle": 45, "origin": [0, 0], "offset": [0, 1], "dash": [4, -4])", "dashes"},
        {R"("angle": 45, "origin": [0, 0], "offset": [0, 1], "dashes": [], "width": 2)", "do not belong"},
    };
    for (const auto& entry : cases) {
        const auto& members = entry.first;
        const std::string refusal = refusalOf([&] { readHatchSource(hatchWith(members)); });
        EXPECT_NE(refusal.find(entry.second), std::string::npos) << members << ": " << refusal;
    }
    const std::string one = R"({"number": 1, "name": "A", "lines": [{)" + std::string(good) + "}]}";
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
