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

static std::string numberText(double value)
{
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

static void requireDashes(const Json& dashes)
{
    if (dashes.empty())
        return;
    double period = 0;
    bool drawn = false;
    for (const Json& dash : dashes) {
        period += std::abs(dash.get<double>());
        drawn = drawn || dash.get<double>() >= 0;
    }
    if (period <= 0 || !drawn)
        refuse("dashes that draw nothing or do not advance");
}

static std::string familyLine(const Json& family)
{
    requireMembers(family, 4);
    const Json& origin = family.at("origin");
    const Json& offset = family.at("offset");
    const Json& dashes = family.at("dashes");
    if (std::abs(family.at("angle").get<double>()) > 360)
        refuse("an angle beyond 360 degrees");
    if (!dashes.is_array() || origin.size() != 2 || offset.size() != 2)
        refuse("origin and offset have two numbers each, dashes are a list");
    if (offset.at(1).get<double>() <= 0)
        refuse("lines that do not part: the offset across must be above 0");
    requireDashes(dashes);

    std::string line = numberText(family.at("angle").get<double>());
    for (const Json* numbers : {&origin, &offset, &dashes})
        for (const Json& number : *numbers)
            line += ' ' + numberText(number.get<double>());
    return line + '\n';
}

static std::string patternText(const Json& hatch)
{
    requireMembers(hatch, 3);
    const auto name = hatch.at("name").get<std::string>();
    if (name.empty() || name.find('\n') != std::string::npos)
        refuse("no name of one line");
    std::string text = name + '\n';
    if (hatch.at("lines").empty())
        refuse("no lines");
    for (const Json& family : hatch.at("lines"))
        text += familyLine(family);
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
