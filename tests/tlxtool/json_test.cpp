#include "section/gl_block.h"
#include "support/random_project.h"
#include "tlxtool/base64.h"
#include "tlxtool/json_text.h"
#include "tlxtool/json_words.h"
#include "tlxtool/opened_bytes.h"
#include "tlxtool/project_json.h"
#include "tlxtool/tool_error.h"

#include <gtest/gtest.h>

#include <bit>
#include <functional>
#include <limits>
#include <random>

namespace
{

Json jsonOf(const Bytes& bytes)
{
    OpenedProject opened = fileOf(bytes);
    EXPECT_FALSE(decode(opened));
    return projectToJson(opened);
}

Json parsed(const std::string& text)
{
    return parseJson(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

// Through the text of a file, as the commands do it.
Bytes rebuilt(const Json& json, bool compact)
{
    return encodeProject(*projectFromJson(parsed(jsonText(json, compact))));
}

template <class Act>
std::string faultOf(Act act)
{
    try {
        act();
    } catch (const ToolError& fault) {
        return fault.what();
    }
    return "none";
}

} // namespace

TEST(ProjectJson, BuildsTheSameBytesFromEverySample)
{
    for (const char* name : {"ALLNUM.TLX", "ALLTEXT.TLX", "LURGAN.TLX", "PORTADOWN.TLX"}) {
        const Bytes bytes = sampleBytes(name);
        const Json json = jsonOf(bytes);
        EXPECT_EQ(rebuilt(json, false), bytes) << name;
        EXPECT_EQ(rebuilt(json, true), bytes) << name;
        EXPECT_TRUE(json["reading"]["difference"].is_null()) << name;
        EXPECT_TRUE(json["project"]["lithology"][0].contains("depth")) << name;
    }
}

TEST(ProjectJson, BuildsTheSameBytesFromProjectsWithEveryField)
{
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        const Bytes bytes = encodeProject(*randomProject(seed, seed % 2 == 0));
        ASSERT_EQ(rebuilt(jsonOf(bytes), true), bytes) << "seed " << seed;
    }
}

TEST(ProjectJson, KeepsWhatTheFileHasAndTheProjectHasNot)
{
    const auto project = projectInPlace();
    project->addLithology({L"5", L"1.5"}, {});
    project->addLithology({L"6", L"2.5"}, {});
    project->setFileStem(L"Другое");
    Bytes bytes = encodeProject(*project);
    const std::string_view depth = "2.5";
    const auto place = std::search(bytes.begin(), bytes.end(), depth.begin(), depth.end());
    const auto row = place - bytes.begin() - 9;
    *(place - 5) = '0'; // the point 6 becomes 0, which reads as equal to 5
    bytes.insert(bytes.end(), {1, 2, 3});

    const Json reading = jsonOf(bytes)["reading"];
    EXPECT_EQ(reading["storedStem"], "Другое");
    EXPECT_EQ(reading["bytesBehindEnd"], "AQID");
    ASSERT_EQ(reading["refusedRows"].size(), 1U);
    EXPECT_EQ(reading["refusedRows"][0]["key"], "0 / 2.5");
    EXPECT_EQ(reading["refusedRows"][0]["offset"], row);

    // The difference turns what the project would save back into the file.
    OpenedProject opened = fileOf(bytes);
    ASSERT_FALSE(decode(opened));
    Bytes saved = encodeProject(*opened.project);
    const auto begin = saved.begin() + reading["difference"]["offset"].get<std::ptrdiff_t>();
    const auto end = begin + reading["difference"]["savedLength"].get<std::ptrdiff_t>();
    const auto original = *fromBase64(reading["difference"]["bytes"].get<std::string>());
    saved.insert(saved.erase(begin, end), original.begin(), original.end());
    bytes.resize(bytes.size() - 3);
    EXPECT_EQ(saved, bytes);
}

TEST(ProjectJson, NamesThePathOfEveryFault)
{
    struct Row {
        const char* place;
        const char* value; // null: the member goes
        std::string message;
    };
    const Row rows[] = {
        {"/version", "103", "version: пишется только версия 104"},
        {"/format", "\"x\"", "format: "},
        {"/project", "[]", "project: здесь нужен объект"},
        {"/extra", "1", "extra: такого поля в проекте нет"},
        {"/project/granGost", "256", "project.granGost: здесь нужно целое число от 0 до 255"},
        {"/project/granGost", "-1", "project.granGost: здесь нужно"},
        {"/project/granGost", "1.5", "project.granGost: здесь нужно"},
        {"/project/granGost", "18446744073709551615", "project.granGost: здесь нужно"},
        {"/project/labOption", "1", "project.labOption: здесь нужно true"},
        {"/project/projectName", "null", "project.projectName: здесь нужен текст"},
        {"/project/projectName", nullptr, "project: нет поля \"projectName\""},
        {"/project/pointRegister", "{}", "project.pointRegister: здесь нужен массив"},
        {"/project/pointRegister/1/rows/0", "7", "project.pointRegister[1].rows[0]: здесь нужен"},
        {"/project/waterLevels/1/year", "2147483648", "project.waterLevels[1].year: здесь нужно целое"},
        {"/project/sectionViewPair/1", "-1", "project.sectionViewPair[1]: здесь нужно"},
        {"/project/sectionViewQuad", "[1, 2, 3]", "project.sectionViewQuad: нужно ровно 4 значений, здесь 3"},
        {"/project/strataElements/0/texts/10", nullptr, "project.strataElements[0].texts: нужно ровно 11"},
        {"/project/chemistry/2/cells", "[]", "project.chemistry[2].cells: нужно ровно 30"},
        {"/project/strataElements/0/patternA", "\"abc\"", "project.strataElements[0].patternA: здесь нужны"},
        {"/project/labTriple/valueA", "\"0x12\"", "project.labTriple.valueA: здесь нужно число"},
        {"/project/longGlObjects/0/class", "\"GLPlaneDB\"", "project.longGlObjects[0].class: класса чертежа"},
        {"/project/longGlObjects/0/id", "\"{}\"", "project.longGlObjects[0].id: здесь нужен"},
        {"/project/longGlObjects/0", "null", "project.longGlObjects[0]: здесь нужен объект"},
        {"/project/longInforms/0/kind", nullptr, "project.longInforms[0]: нет поля \"kind\""},
        {"/project/lithology/0/depht", "\"1\"", "project.lithology[0].depht: такого поля"},
        {"/project/lithology/1/depth", "\"\"", "project.lithology[1]: строка"},
        {"/project/lithology/0/pointName", "\"№5\"", "project.lithology[0]: строка \"№5 / "},
    };
    const Json good = jsonOf(sampleBytes("ALLNUM.TLX"));
    ASSERT_EQ(faultOf([&] { projectFromJson(good); }), "none");
    for (const Row& row : rows) {
        Json spoilt = good;
        const Json::json_pointer place(row.place);
        if (row.value) {
            spoilt[place] = Json::parse(row.value);
        } else {
            Json& parent = spoilt[place.parent_pointer()];
            parent.is_array() ? parent.erase(parent.size() - 1) : (parent.erase(place.back()), void());
        }
        const std::string fault = faultOf([&] { projectFromJson(spoilt); });
        EXPECT_EQ(fault.substr(0, row.message.size()), row.message) << row.place;
    }
}

TEST(ProjectJson, RefusesRowsAsTheRegistersDo)
{
    Json json = jsonOf(sampleBytes("ALLNUM.TLX"));
    json["project"]["samples"].push_back(json["project"]["samples"][0]);
    const std::string last = std::to_string(json["project"]["samples"].size() - 1);
    const std::string fault = faultOf([&] { projectFromJson(json); });
    EXPECT_NE(fault.find("project.samples[" + last + "]: строка \""), std::string::npos) << fault;
    EXPECT_NE(fault.find("отвергнута"), std::string::npos) << fault;
}

TEST(ProjectJson, NestingIsLimitedAsInFiles)
{
    Json block = jsonOf(sampleBytes("ALLNUM.TLX"))["project"]["longGlObjects"];
    block = {{"class", "GLBlockDB"},
        {"id", "00000000-0000-0000-0000-000000000000"},
        {"linkId", "00000000-0000-0000-0000-000000000000"},
        {"name", "Б"},
        {"objects", Json::array()}};
    const Json innermost = block;
    Json json = jsonOf(encodeProject(*projectInPlace()));
    for (int level = 1; level < 512; ++level) {
        Json outer = innermost;
        outer["objects"].push_back(std::move(block));
        block = std::move(outer);
    }
    json["project"]["longGlObjects"].push_back(block);
    const Bytes deepest = rebuilt(json, true);
    EXPECT_EQ(rebuilt(jsonOf(deepest), true), deepest);

    Json outer = innermost;
    outer["objects"].push_back(std::move(block));
    json["project"]["longGlObjects"][0] = std::move(outer);
    EXPECT_NE(faultOf([&] { projectFromJson(json); }).find("вложено глубже 512 уровней"), std::string::npos);
}

TEST(JsonText, FaultsAreNamedByLineAndColumn)
{
    struct Row {
        std::string text;
        std::string message;
    };
    const Row rows[] = {
        {"", "это не JSON в UTF-8 или число вне пределов: строка 1, столбец 1"},
        {"{\n  \"a\": ,\n}", "это не JSON в UTF-8 или число вне пределов: строка 2, столбец 8"},
        {"{\"a\": 1, \"a\": 2}", "поле \"a\" стоит в одном объекте дважды"},
        {"[{\"a\": {\"a\": 2}}, 1", "это не JSON в UTF-8"},
        {"\"\xFF\"", "это не JSON в UTF-8"},
        {"\"\\ud800\"", "это не JSON в UTF-8"},
        {"1e99", "это не JSON"},
    };
    for (const Row& row : rows) {
        const std::string fault = faultOf([&] { parsed(row.text); });
        EXPECT_EQ(fault.substr(0, row.message.size()), row.message) << row.text;
    }
    EXPECT_EQ(parsed("\xEF\xBB\xBF[1]"), Json::array({1}));
}

TEST(JsonText, WritesWhatItReads)
{
    const Json value = parsed(R"({"a": ["q\"\\\u0001\u001f\n", "Ёж", 1.5, -3, true, null, {}], "б": []})");
    EXPECT_EQ(jsonText(value, true),
        "{\"a\":[\"q\\\"\\\\\\u0001\\u001f\\n\",\"Ёж\",1.5,-3,true,null,{}],\"б\":[]}");
    EXPECT_EQ(jsonText(parsed(R"({"a":[1,{}]})"), false), "{\n  \"a\": [\n    1,\n    {}\n  ]\n}");
    EXPECT_EQ(parsed(jsonText(value, false)), value);
}

TEST(JsonText, DeepTextsEndInAFaultAndNotInTheStack)
{
    constexpr std::size_t levels = 1000000;
    EXPECT_NE(faultOf([] { projectFromJson(parsed(std::string(levels, '[') + std::string(levels, ']'))); }),
        "none");
}

TEST(Singles, StandInTheirShortestFormAndComeBack)
{
    std::mt19937 random(17);
    for (int i = 0; i < 200000; ++i) {
        const float value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        const std::string text = jsonText(singleToJson(value), true);
        const auto back = singleFromJson(parsed(text));
        ASSERT_TRUE(back);
        ASSERT_EQ(std::bit_cast<std::uint32_t>(*back), std::bit_cast<std::uint32_t>(value)) << text;
    }
    const auto textOf = [](float value) { return jsonText(singleToJson(value), true); };
    EXPECT_EQ(textOf(0.1F), "0.1");
    EXPECT_EQ(textOf(-0.0F), "-0.0");
    EXPECT_EQ(textOf(42057112.0F), "42057112.0");
    EXPECT_EQ(textOf(std::numeric_limits<float>::max()), "3.4028235e+38");
    EXPECT_EQ(textOf(std::numeric_limits<float>::denorm_min()), "1e-45");
    EXPECT_EQ(textOf(std::bit_cast<float>(0x7FC00001U)), "\"0x7fc00001\"");
    EXPECT_EQ(textOf(-std::numeric_limits<float>::infinity()), "\"0xff800000\"");
    EXPECT_EQ(singleFromJson(2), 2.0F);
    for (const char* text : {"0x7fc0000", "0x7fc000000", "7fc00000", "0x7fc0000g", "0x-fc00000"})
        EXPECT_FALSE(singleFromJson(text)) << text;
}

TEST(Base64, TakesExactlyWhatItGives)
{
    Bytes bytes;
    for (int length = 0; length < 70; ++length) {
        EXPECT_EQ(fromBase64(toBase64(bytes)), bytes);
        bytes.push_back(static_cast<std::uint8_t>(length * 37));
    }
    EXPECT_EQ(toBase64(Bytes{'M', 'a'}), "TWE=");
    for (const char* text : {"TWE", "TWF=", "TW=E", "T===", "TWE ", "TW\n=", "===="})
        EXPECT_FALSE(fromBase64(text)) << text;
}
