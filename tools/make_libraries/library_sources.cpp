#include "make_libraries/library_sources.h"

#include "dictionaries/section_captions.h"
#include "persistence/format.h"
#include "persistence/grammar/libraries.h"
#include "persistence/write_archive.h"
#include "platform/code_page.h"
#include "platform/utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string>

using Json = nlohmann::json;

[[noreturn]] static void refuse(const std::string& what)
{
    throw std::runtime_error(what);
}

static Json parse(std::string_view json)
{
    return Json::parse(json.begin(), json.end());
}

// A misspelt member would otherwise be passed over in silence.
static void requireMembers(const Json& object, std::size_t count)
{
    if (object.size() != count)
        refuse("members that do not belong here");
}

// A number of the source is never negative where the file has no sign, nor cut to fit.
static std::uint32_t wordOf(const Json& value)
{
    if (!value.is_number_unsigned() || value.get<std::uint64_t>() > 0xFFFFFFFF)
        refuse(value.dump() + " is no number from 0 to 4294967295");
    return value.get<std::uint32_t>();
}

static void requireTile(const Json& tile)
{
    const auto isSide = [](const Json& side) {
        return side.is_number_unsigned() && side.get<std::uint64_t>() >= 1
            && side.get<std::uint64_t>() <= 400;
    };
    if (!tile.is_array() || tile.size() != 2 || !isSide(tile[0]) || !isSide(tile[1]))
        refuse("a tile has two sides, whole numbers from 1 to 400");
}

static bool isNumber(const std::string& word)
{
    double value = 0;
    const char* const end = word.data() + word.size();
    const auto [stop, failure] = std::from_chars(word.data(), end, value);
    return failure == std::errc() && stop == end && std::abs(value) < 1000;
}

static void requireShape(const std::string& shape)
{
    static constexpr struct {
        std::string_view word;
        std::size_t least;
        std::size_t most;
    } strokes[] = {{"line", 4, 1000}, {"fill", 6, 1000}, {"dot", 3, 3}, {"oval", 5, 5}};
    std::vector<std::string> words;
    for (std::size_t begin = 0, end = 0; end != std::string::npos; begin = end + 1) {
        end = shape.find(' ', begin);
        words.push_back(shape.substr(begin, end - begin));
    }
    const std::size_t count = words.size() - 1;
    const auto* const row =
        std::ranges::find_if(strokes, [&](const auto& stroke) { return stroke.word == words.front(); });
    if (row == std::end(strokes))
        refuse("\"" + shape + "\" is no line, fill, dot or oval");
    const bool isWhole = row->least == row->most || count % 2 == 0;
    if (count < row->least || count > row->most || !isWhole
        || !std::all_of(words.begin() + 1, words.end(), isNumber))
        refuse("\"" + shape + "\" has not the numbers that it needs");
}

static std::string patternText(const Json& hatch)
{
    requireMembers(hatch, 5);
    // Of the file of its picture, which is not part of the library.
    if (hatch.at("picture").get<std::string>().empty())
        refuse("no name of the picture");
    const auto name = hatch.at("name").get<std::string>();
    if (name.empty() || name.find('\n') != std::string::npos)
        refuse("no name of one line");
    const Json& tile = hatch.at("tile");
    requireTile(tile);
    std::string text = name + '\n' + tile[0].dump() + ' ' + tile[1].dump() + '\n';
    if (hatch.at("shapes").empty())
        refuse("no shapes");
    for (const Json& shape : hatch.at("shapes")) {
        requireShape(shape.get<std::string>());
        text += shape.get<std::string>() + '\n';
    }
    return text;
}

IDBHatch::Patterns readHatchSource(std::string_view json)
{
    const Json source = parse(json);
    IDBHatch::Patterns patterns;
    for (const Json& hatch : source.at("hatches")) {
        const std::uint32_t number = wordOf(hatch.at("number"));
        try {
            const std::string text = patternText(hatch);
            if (!patterns.try_emplace(number, text.begin(), text.end()).second)
                refuse("the number is taken");
        } catch (const std::exception& failure) {
            refuse("hatch " + std::to_string(number) + ": " + failure.what());
        }
    }
    if (patterns.empty())
        refuse("no hatches");
    return patterns;
}

static IgkPreset presetOf(const Json& source)
{
    requireMembers(source, 4);
    IgkPreset preset;
    preset.active = source.at("active").get<bool>();
    preset.mode = wordOf(source.at("mode"));
    for (const Json& column : source.at("columns")) {
        requireMembers(column, 3);
        const IgkPresetItem item{
            wordOf(column.at("column")), column.at("shown").get<bool>(), column.at("turned").get<bool>()};
        // Throws where no column has the number.
        sectionColumnCaptions.at(0, static_cast<int>(item.id));
        if (std::ranges::any_of(preset.items, [&](const auto& other) { return other.id == item.id; }))
            refuse("column " + std::to_string(item.id) + " stands there twice");
        preset.items.push_back(item);
    }
    return preset;
}

IDBIgkPreset::Presets readPresetSource(std::string_view json)
{
    const Json source = parse(json);
    IDBIgkPreset::Presets presets;
    for (const Json& entry : source.at("presets")) {
        const auto name = entry.at("name").get<std::string>();
        try {
            const std::wstring wide = fromUtf8(name).value();
            if (wide.empty() || !std::ranges::all_of(wide, codePageHolds))
                refuse("no name that the file can keep");
            if (!presets.try_emplace(wide, presetOf(entry)).second)
                refuse("the name is taken");
        } catch (const std::exception& failure) {
            refuse("preset \"" + name + "\": " + failure.what());
        }
    }
    if (presets.empty())
        refuse("no presets");
    if (std::ranges::count_if(presets, [](const auto& preset) { return preset.second.active; }) > 1)
        refuse("more than one preset is active");
    return presets;
}

template <class Library>
static std::vector<std::uint8_t> encode(const format::Head& head, const EntryNames& names, Library library)
{
    WriteArchive archive;
    for (std::size_t offset = 0; offset < head.versionOffset; ++offset)
        archive.byte("signature", offset < head.signature.size() ? head.signature[offset] : '\0');
    archive.word("version", head.version);
    archive.map("library", names, library);
    return archive.takeBytes();
}

std::vector<std::uint8_t> encodeHatches(const IDBHatch::Patterns& hatches)
{
    return encode(format::hatchHead, {"number", "pattern"}, hatches);
}

std::vector<std::uint8_t> encodePresets(const IDBIgkPreset::Presets& presets)
{
    return encode(format::igkPresetHead, {"name", {}}, presets);
}
