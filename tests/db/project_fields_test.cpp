#include "core/base/reference.h"
#include "core/counted.h"
#include "db/db_project.h"
#include "dialogs/records/inform_record.h"
#include "platform/utf8.h"
#include "section/gl_arc.h"
#include "section/gl_line.h"

#include <gtest/gtest.h>

#include <functional>
#include <locale>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

// Every field of a project with its default, and every operation that changes one: it changes that one and no
// other.

namespace
{

std::wstring textOf(const std::wstring& value)
{
    return value;
}
std::wstring textOf(float value)
{
    // The standard library's own words for it would have the comma of the locale.
    std::wostringstream words;
    words.imbue(std::locale::classic());
    words << std::fixed << value;
    std::wstring text = words.str();
    text.erase(text.find_last_not_of(L'0') + 1);
    return text;
}
template <class Number>
requires std::is_integral_v<Number> std::wstring textOf(Number value)
{
    return std::to_wstring(value);
}
template <std::size_t Size>
std::wstring textOf(const std::array<std::uint32_t, Size>& value)
{
    std::wstring text;
    for (const std::uint32_t word : value)
        text += (text.empty() ? L"" : L" ") + std::to_wstring(word);
    return text;
}
std::wstring textOf(const Date3& date)
{
    return textOf(date.year) + L'.' + textOf(date.month) + L'.' + textOf(date.day);
}
std::wstring textOf(const RegisterHeader& header)
{
    return textOf(header.periodBegin) + L' ' + textOf(header.periodEnd) + L' ' + textOf(header.cellsA) + L' '
        + textOf(header.cellsB) + L' ' + textOf(header.option);
}
std::wstring textOf(const LabTriple& triple)
{
    return textOf(triple.valueA) + L' ' + textOf(triple.valueB) + L' ' + textOf(triple.number);
}
std::wstring textOf(const PointKey& key)
{
    return key.pointName + L'/' + textOf(key.pointKind);
}
std::wstring textOf(const PointDepthKey& key)
{
    return key.pointName + L'/' + key.depth;
}
std::wstring textOf(const SoundingKey& key)
{
    return key.pointName + L'/' + key.device + L'/' + key.date;
}
std::wstring textOf(const CurveKey& key)
{
    return key.first + L'/' + key.second;
}
template <class Key, class Value, class Order>
std::wstring textOf(const std::map<Key, Value, Order>& rows)
{
    std::wstring text;
    for (const auto& row : rows)
        text += textOf(row.first) + L';';
    return text;
}
template <class Cell>
std::wstring textOf(const std::vector<Cell>& cells)
{
    std::wstring text;
    for (const Cell& cell : cells) {
        if constexpr (requires { cell.id; })
            text += textOf(cell.id);
        else if constexpr (requires { cell.cells; })
            text += cell.cells[0];
        text += L';';
    }
    return text;
}

// A value with this number in it, unlike any default.
template <class Value>
void make(Value& value, int number)
{
    const std::wstring text = std::to_wstring(number);
    if constexpr (std::is_same_v<Value, bool>)
        value = true;
    else if constexpr (std::is_integral_v<Value>)
        value = static_cast<Value>(number);
    else if constexpr (std::is_same_v<Value, std::wstring>)
        value = text;
    else if constexpr (requires { value.periodBegin; })
        value = {{number, 2, 3}, {4, 5, number}, number + 1, number + 2, number + 3};
    else if constexpr (requires { value.valueA; })
        value = {static_cast<float>(number), 7.5F, number + 1};
    else
        value.fill(static_cast<std::uint32_t>(number));
}
void make(PointKey& key, int number)
{
    key = {std::to_wstring(number), 3};
}
void make(PointDepthKey& key, int number)
{
    key = {std::to_wstring(number), L"2.5"};
}
void make(SoundingKey& key, int number)
{
    key = {std::to_wstring(number), 3, L"C979", L"02.03.2020"};
}
void make(CurveKey& key, int number)
{
    key = {L"Разрез " + std::to_wstring(number), L"2"};
}
template <class Key, class Value, class Order>
void make(std::map<Key, Value, Order>& rows, int number)
{
    Key key{};
    make(key, number);
    // Links are ordered by what stands behind their colon, sections by what stands behind the blank.
    if constexpr (std::is_same_v<Order, ColonNumberOrder>)
        key = L"с:" + key;
    if constexpr (std::is_same_v<Order, SectionNameOrder>)
        key = L"Разрез " + key + L"'";
    rows.insert({key, Value{}});
}
template <class Cell>
void make(std::vector<Cell>& cells, int number)
{
    Cell cell{};
    if constexpr (requires { cell.id; })
        cell.id = number;
    else
        cell.cells[0] = std::to_wstring(number);
    cells = {cell};
}
template <class Inform, class... Tally>
Reference<Inform> makeInform(Tally&... tally)
{
    return makeReference<Inform>(tally...,
        0,
        Uuid(),
        Uuid(),
        InformRecord::Frame(),
        std::vector<PropertyGridItem*>(),
        std::vector<InformLink>(),
        L"",
        Uuid());
}

void make(GLObjectList& objects, int)
{
    objects = {makeReference<GLLineDB>(GLLineData(), Uuid(), L"", Uuid()).detach()};
}
void make(InformList& informs, int)
{
    static const auto inform = makeInform<InformRecord>();
    informs = {inform.get()};
}

struct Field {
    std::string name;
    std::wstring initial;
    std::wstring (*text)(IDBProject&);
    // Sets a value with the number in it; returns the text of what should be there then.
    std::wstring (*set)(IDBProject&, int);
    void (*setItself)(IDBProject&);
};

// clang-format off
#define FIELD(Name, initial)                                                                                 \
    Field{#Name, initial,                                                                                    \
        [](IDBProject& p) { return textOf(p.get##Name()); },                                                 \
        [](IDBProject& p, int number) {                                                                      \
            std::remove_cvref_t<decltype(p.get##Name())> value{};                                            \
            make(value, number);                                                                             \
            p.set##Name(value);                                                                              \
            return textOf(value);                                                                            \
        },                                                                                                   \
        [](IDBProject& p) { p.set##Name(p.get##Name()); }}
// A ratio is set by its text.
#define RATIO(Name, initial)                                                                                 \
    Field{#Name, initial,                                                                                    \
        [](IDBProject& p) { return textOf(p.get##Name()); },                                                 \
        [](IDBProject& p, int number) { p.set##Name(std::to_wstring(number) + L".5"); return std::to_wstring(number) + L".5"; }, \
        [](IDBProject&) {}}
// One that has no set operation.
#define ADDED(Name)                                                                                          \
    Field{#Name, L"", [](IDBProject& p) { return textOf(p.get##Name()); }, nullptr, nullptr}
const std::vector<Field> fields = {
    FIELD(ProjectState, L"0"),
    FIELD(GranGost, L"1"),
    FIELD(FileTagB, L"0"),
    FIELD(FilePath, L""),
    FIELD(ProjectCode, L"ШифрXXXX"),
    FIELD(ProjectName, L"Новый"),
    FIELD(FileStem, L"TLXXXXX"),
    FIELD(TypeObject, L"1"),
    FIELD(PointRegister, L""),
    FIELD(Lithology, L""),
    FIELD(PointRegisterHeader, L"2018.1.1 2018.1.1 10 10 0"),
    FIELD(Samples, L""),
    FIELD(LithologyHeader, L"2018.1.1 2018.1.1 10 10 0"),
    FIELD(WaterLevels, L""),
    FIELD(SamplesHeader, L"2018.1.1 2018.1.1 10 10 0"),
    FIELD(Consistency, L""),
    FIELD(WaterHeader, L"2018.1.1 2018.1.1 10 10 0"),
    FIELD(LabOption, L"0"),
    FIELD(LabValueA, L"0"),
    FIELD(LabValueB, L"0"),
    FIELD(LabValueC, L"1"),
    FIELD(PhysicalTemplate, L""),
    FIELD(ShearTemplate, L""),
    FIELD(CompressionTemplate, L""),
    FIELD(SwellingTemplate, L""),
    FIELD(LabTriple, L"2.5 2.5 0"),
    FIELD(LabSamples, L""),
    FIELD(LabHeader, L"2018.1.1 2018.1.1 10 10 0"),
    FIELD(Soundings, L""),
    FIELD(SoundingFlags, L""),
    FIELD(SoundingCalcRows, L""),
    FIELD(SoundingOptionA, L"0"),
    FIELD(SoundingOptionB, L"0"),
    FIELD(SoundingValueA, L"0"),
    FIELD(SoundingValueB, L"2"),
    FIELD(SoundingValueC, L"0"),
    FIELD(SoundingValueD, L"0"),
    FIELD(SectionLinesLayer, L"Разрез_линии"),
    FIELD(SectionHatchLayer, L"Разрез_штриховка"),
    FIELD(SectionTextLayer, L"Разрез_текст"),
    FIELD(SectionGraphLayer, L"Разрез_график"),
    FIELD(SectionLines, L""),
    FIELD(SectionPoints, L""),
    FIELD(TerrainLines, L""),
    FIELD(TerrainPoints, L""),
    FIELD(SectionCurves, L""),
    FIELD(SectionViewMode, L"0"),
    FIELD(SectionViewPair, L"0 0"),
    FIELD(SectionViewQuad, L"0 0 0 0"),
    FIELD(SectionFlagA, L"0"),
    FIELD(TerrainLinesLayer, L"Разрез_линии"),
    FIELD(TerrainHatchLayer, L"Разрез_штриховка"),
    FIELD(TerrainTextLayer, L"Разрез_текст"),
    FIELD(TerrainGraphLayer, L"Разрез_график"),
    FIELD(SectionText, L""),
    FIELD(TerrainGlObjectsA, L""),
    FIELD(TerrainGlObjectsB, L""),
    FIELD(TerrainCells, L""),
    FIELD(TerrainViewMode, L"0"),
    FIELD(TerrainViewPair, L"0 0"),
    FIELD(TerrainViewQuad, L"0 0 0 0"),
    FIELD(SectionFlagB, L"0"),
    FIELD(LongProfileMap, L""),
    FIELD(LongTextA, L""),
    FIELD(LongTextB, L""),
    FIELD(LongLinesLayer, L"Продольный_геология_линии"),
    FIELD(LongHatchLayer, L"Продольный_геология_штриховка"),
    FIELD(LongTextLayer, L"Продольный_геология_текст"),
    FIELD(LongGraphLayer, L"Продольный_геология_график"),
    FIELD(LongGlObjects, L""),
    FIELD(LongInforms, L""),
    FIELD(LongLayerMap, L""),
    FIELD(LongViewMode, L"0"),
    FIELD(LongViewPair, L"0 0"),
    FIELD(LongViewQuad, L"0 0 0 0"),
    FIELD(CrossTextA, L""),
    FIELD(CrossTextB, L""),
    FIELD(CrossLinesLayer, L"Поперечный_геология_линии"),
    FIELD(CrossHatchLayer, L"Поперечный_геология_штриховка"),
    FIELD(CrossTextLayer, L"Поперечный_геология_текст"),
    FIELD(CrossGlObjects, L""),
    FIELD(CrossInforms, L""),
    FIELD(CrossViewMode, L"0"),
    FIELD(CrossViewPair, L"0 0"),
    FIELD(CrossViewQuad, L"0 0 0 0"),
    FIELD(NumberedLinks, L""),
    FIELD(LinkViewMode, L"0"),
    FIELD(LinkViewPair, L"0 0"),
    FIELD(LinkViewQuad, L"0 0 0 0"),
    FIELD(Subsidence, L""),
    FIELD(SubsidenceGroups, L""),
    FIELD(Chemistry, L""),
    FIELD(StrataElementsOption, L"0"),
    RATIO(SoundingRatioA, L"0.0357"),
    RATIO(SoundingRatioB, L"0.0357"),
    RATIO(SoundingRatioC, L"0.09"),
    RATIO(SoundingRatioD, L"0.5"),
    RATIO(SoundingRatioE, L"0.8"),
    ADDED(SoundingTriples),
    ADDED(SubsidenceNames),
    ADDED(StrataElements),
};
#undef FIELD
#undef RATIO
#undef ADDED

// The operations besides set: the field that they change, and what is in it then, by its text.
struct Operation {
    const char* field;
    std::wstring after;
    std::function<void(DBProject&)> act;
};
const std::vector<Operation> additions = {
    {"PointRegister", L"9/3;", [](DBProject& p) { p.addPointRegisterEntry({L"9", 3}, {}); }},
    {"Lithology", L"9/2;", [](DBProject& p) { p.addLithology({L"9", L"2"}, {}); }},
    {"Samples", L"9/2;", [](DBProject& p) { p.addSample({L"9", L"2"}, {}); }},
    {"WaterLevels", L"9/2;", [](DBProject& p) { p.addWaterLevel({L"9", L"2"}, {}); }},
    {"Consistency", L"9/2;", [](DBProject& p) { p.addConsistency({L"9", L"2"}, {}); }},
    {"LabSamples", L"9/2;", [](DBProject& p) { p.addLabSample({L"9", L"2"}, {}); }},
    {"Soundings", L"9/C979/d;", [](DBProject& p) { p.addSounding({L"9", 1, L"C979", L"d"}, {}); }},
    {"SoundingFlags", L"9;", [](DBProject& p) { p.addSoundingFlag(L"9", 1); }},
    {"SoundingTriples", L"9;", [](DBProject& p) { p.addSoundingTriple(9, {}); }},
    {"SoundingCalcRows", L"9;", [](DBProject& p) { p.addSoundingCalcRow({{L"9"}}); }},
    {"SectionLines", L"Разрез 9';", [](DBProject& p) { p.addSectionLine(L"Разрез 9'", {}); }},
    {"SectionPoints", L"Разрез 9';", [](DBProject& p) { p.addSectionPoint(L"Разрез 9'", {}); }},
    {"TerrainLines", L"Разрез 9';", [](DBProject& p) { p.addTerrainLine(L"Разрез 9'", {}); }},
    {"TerrainPoints", L"Разрез 9';", [](DBProject& p) { p.addTerrainPoint(L"Разрез 9'", {}); }},
    {"SectionCurves", L"Разрез 9'/1;", [](DBProject& p) { p.addSectionCurve({L"Разрез 9'", L"1"}, {}); }},
    {"TerrainCells", L"9;", [](DBProject& p) { p.addTerrainCell(9, {}); }},
    {"NumberedLinks", L"с:9;", [](DBProject& p) { p.addNumberedLink(L"с:9", L""); }},
    {"SubsidenceNames", L"9;", [](DBProject& p) { p.addSubsidenceName(L"9", {}); }},
    {"SubsidenceGroups", L"9;", [](DBProject& p) { p.addSubsidenceGroup(L"9", {}); }},
    {"Chemistry", L"9/2;", [](DBProject& p) { p.addChemistry({L"9", L"2"}, {}); }},
    {"StrataElements", L"9;", [](DBProject& p) { p.addStrataElement(L"9", {}); }},
    {"StrataElements", L"8;", [](DBProject& p) { p.setStrataElements({{L"8", {}}}); }},
};
const std::vector<Operation> clearings = {
    {"PointRegister", L"", [](DBProject& p) { p.clearPointRegister(); }},
    {"SoundingFlags", L"", [](DBProject& p) { p.clearSoundingFlags(); }},
    {"TerrainLines", L"", [](DBProject& p) { p.clearTerrainLines(); }},
    {"SectionLines", L"", [](DBProject& p) { p.clearSectionLines(); }},
    {"LongProfileMap", L"", [](DBProject& p) { p.clearLongProfileMap(); }},
    {"LongLayerMap", L"", [](DBProject& p) { p.clearLongLayerMap(); }},
    {"NumberedLinks", L"", [](DBProject& p) { p.clearNumberedLinks(); }},
    {"StrataElements", L"", [](DBProject& p) { p.clearStrataElements(); }},
};
// clang-format on

using Texts = std::vector<std::wstring>;

Texts textsOf(IDBProject& project)
{
    Texts texts;
    for (const Field& field : fields)
        texts.push_back(field.text(project));
    return texts;
}

void expectOnly(const std::string& name, const std::wstring& after, Texts before, IDBProject& project)
{
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].name == name) {
            EXPECT_NE(before[i], after) << "a value that is there already shows nothing: " << name;
            before[i] = after;
        }
        EXPECT_EQ(toUtf8(fields[i].text(project)), toUtf8(before[i])) << fields[i].name << " after " << name;
    }
}

Reference<DBProject> filled()
{
    auto project = makeReference<DBProject>();
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i].set)
            fields[i].set(*project, static_cast<int>(i) + 20);
    for (const Operation& addition : additions)
        addition.act(*project);
    return project;
}

} // namespace

TEST(ProjectFields, EachHasItsDefault)
{
    const auto project = makeReference<DBProject>();
    for (const Field& field : fields)
        EXPECT_EQ(toUtf8(field.text(*project)), toUtf8(field.initial)) << field.name;
}

TEST(ProjectFields, EachOperationChangesItsOwnAlone)
{
    int number = 100;
    for (const Field& field : fields) {
        if (!field.set)
            continue;
        const auto project = makeReference<DBProject>();
        const Texts before = textsOf(*project);
        const std::wstring after = field.set(*project, ++number);
        expectOnly(field.name, after, before, *project);
    }
    for (const Operation& addition : additions) {
        const auto project = makeReference<DBProject>();
        const Texts before = textsOf(*project);
        addition.act(*project);
        expectOnly(addition.field, addition.after, before, *project);
    }
    for (const Operation& clearing : clearings) {
        const auto project = filled();
        const Texts before = textsOf(*project);
        clearing.act(*project);
        expectOnly(clearing.field, clearing.after, before, *project);
    }
}

TEST(ProjectFields, OneGivenItselfStaysAsItIs)
{
    const auto project = filled();
    const Texts before = textsOf(*project);
    for (const Field& field : fields)
        if (field.setItself)
            field.setItself(*project);
    EXPECT_EQ(textsOf(*project), before);
}

TEST(ProjectFields, TemplatesAreSortedByIdAndStayInOrderAmongEqualIds)
{
    const auto project = makeReference<DBProject>();
    const auto walk = [](const auto& cells, auto text) {
        std::wstring all;
        for (const auto& cell : cells)
            all += std::to_wstring(cell.id) + cell.*text;
        return all;
    };
    project->setPhysicalTemplate(
        {{5, true, L"a", 0, 0}, {1, true, L"b", 0, 0}, {5, true, L"c", 0, 0}, {3, true, L"d", 0, 0}});
    EXPECT_EQ(walk(project->getPhysicalTemplate(), &PropertyCell::value), L"1b3d5a5c");
    project->setShearTemplate({{5, L"a"}, {1, L"b"}, {5, L"c"}, {3, L"d"}});
    EXPECT_EQ(walk(project->getShearTemplate(), &ShearCell::value), L"1b3d5a5c");
    project->setCompressionTemplate({{5, L"a", {}, {}, 0, {}},
        {1, L"b", {}, {}, 0, {}},
        {5, L"c", {}, {}, 0, {}},
        {3, L"d", {}, {}, 0, {}}});
    EXPECT_EQ(walk(project->getCompressionTemplate(), &CompressionCell::textA), L"1b3d5a5c");
    project->setSwellingTemplate(
        {{5, L"a", {}, {}}, {1, L"b", {}, {}}, {5, L"c", {}, {}}, {3, L"d", {}, {}}});
    EXPECT_EQ(walk(project->getSwellingTemplate(), &SwellingCell::textA), L"1b3d5a5c");
}

// Add and set take one reference more, set and the end of the project give them back, clear does not.
TEST(ProjectFields, InformsAreHeldByReference)
{
    using Inform = Counted<InformRecord>;
    int alive = 0;
    for (const bool isLong : {true, false}) {
        auto project = makeReference<DBProject>();
        const auto add = [&](InformRecord* inform) {
            isLong ? project->addLongInform(inform) : project->addCrossInform(inform);
        };
        const auto set = [&](const InformList& list) {
            isLong ? project->setLongInforms(list) : project->setCrossInforms(list);
        };
        const auto made = [&alive] { return makeInform<Inform>(alive); };
        add(made().get());
        EXPECT_EQ(alive, 1) << "add holds one";
        const auto other = made();
        set({other.get()});
        EXPECT_EQ(alive, 1) << "set gives the old ones back";
        add(made().get());
        set(isLong ? project->getLongInforms() : project->getCrossInforms());
        EXPECT_EQ(alive, 2);
        set({});
        EXPECT_EQ(alive, 1);
        add(other.get());
        isLong ? project->clearLongInforms() : project->clearCrossInforms();
        EXPECT_TRUE(isLong ? project->getLongInforms().empty() : project->getCrossInforms().empty());
        other->release();
        add(made().get());
        project = {};
        EXPECT_EQ(alive, 1) << "the project gives back what it holds at its end";
    }
    EXPECT_EQ(alive, 0);
}

// A drawing's objects are handed over to the project, which gives them back once, at its end.
TEST(ProjectFields, DrawingsEndWithTheProject)
{
    using Arc = Counted<GLArcDB>;
    using Set = void (DBProject::*)(const GLObjectList&);
    for (const Set set : {&DBProject::setTerrainGlObjectsA,
             &DBProject::setTerrainGlObjectsB,
             &DBProject::setLongGlObjects,
             &DBProject::setCrossGlObjects}) {
        int alive = 0;
        auto project = makeReference<DBProject>();
        const auto arc = [&alive] {
            return makeReference<Arc>(alive, GLArcData(), Uuid(), L"GLArcDB", Uuid());
        };
        const auto kept = arc();
        kept->addRef();
        ((*project).*set)({kept.get(), arc().detach(), nullptr});
        EXPECT_EQ(alive, 2);
        project = {};
        EXPECT_EQ(alive, 1);
        EXPECT_EQ(kept->referenceCount(), 1);
    }
}
