#include "dialogs/records/inform_record.h"
#include "dialogs/records/property_grid_item.h"
#include "platform/uuid.h"
#include "section/gl_arc.h"
#include "section/gl_block.h"
#include "section/gl_circle.h"
#include "section/gl_ellipse.h"
#include "section/gl_line.h"
#include "section/gl_plane.h"
#include "section/gl_polygon.h"
#include "section/gl_polyline.h"
#include "section/gl_spline.h"
#include "section/gl_text.h"
#include "support/project_bytes.h"

#include <bit>
#include <functional>

// A project with another value in every field, its bytes put together here one after the other as the format
// has them, and each field asked for by its name once the file is read. Two fields of one type that change
// places show; a file that only comes back as it was does not tell.

namespace
{

template <class Number>
requires std::is_integral_v<Number> std::string shown(Number value)
{
    return std::to_string(static_cast<std::uint32_t>(value));
}
std::string shown(float value)
{
    return std::to_string(value);
}
std::string shown(const std::wstring& value)
{
    return toUtf8(value);
}
std::string shown(const Uuid& value)
{
    return uuidToText(value);
}
std::string shown(const std::vector<std::uint8_t>& value)
{
    return {value.begin(), value.end()};
}

template <class Rows>
auto& only(Rows& rows)
{
    EXPECT_EQ(rows.size(), 1U);
    return *rows.begin();
}
template <class Class, class Object>
const Class& as(const std::vector<Object*>& objects, std::size_t place)
{
    return dynamic_cast<const Class&>(*objects.at(place));
}

// Each kind of field counts its values on, so that no two are alike.
class Sheet
{
public:
    using Ask = std::function<std::string(DBProject&)>;

    void byte(const char* name, Ask ask)
    {
        const std::uint8_t value = ++byte_;
        bytes.push_back(value);
        expect(name, std::move(ask), std::to_string(value));
    }
    void flag(bool value, const char* name, Ask ask)
    {
        bytes.push_back(value ? 1 : 0);
        expect(name, std::move(ask), value ? "1" : "0");
    }
    void word(const char* name, Ask ask)
    {
        const std::uint32_t value = 0x01020300U + ++word_;
        addWord(value);
        expect(name, std::move(ask), std::to_string(value));
    }
    void single(const char* name, Ask ask)
    {
        const float value = static_cast<float>(++single_) + 0.25F;
        addWord(std::bit_cast<std::uint32_t>(value));
        expect(name, std::move(ask), std::to_string(value));
    }
    // Texts are numbers: as keys they have to be.
    void text(const char* name, Ask ask) { text(std::to_string(1000 + ++text_), name, std::move(ask)); }
    void text(const std::string& ascii, const char* name, Ask ask)
    {
        raw(ascii);
        expect(name, std::move(ask), ascii);
    }
    void guid(const char* name, Ask ask)
    {
        const std::string value = "01234567-89ab-4cde-8f01-0000000" + std::to_string(10000 + ++guid_);
        raw(value);
        expect(name, std::move(ask), value);
    }
    // What is not taken from the file, and the form of a text and of a blob: length and bytes.
    void raw(const std::string& ascii)
    {
        addWord(static_cast<std::uint32_t>(ascii.size()));
        bytes.insert(bytes.end(), ascii.begin(), ascii.end());
    }
    void count(std::uint32_t number = 1) { addWord(number); }
    void code(std::uint8_t value) { bytes.push_back(value); }

    Bytes bytes;
    struct Expected {
        std::string name;
        Ask ask;
        std::string value;
    };
    std::vector<Expected> fields;

private:
    void addWord(std::uint32_t value)
    {
        for (const unsigned shift : {0U, 8U, 16U, 24U})
            bytes.push_back(static_cast<std::uint8_t>(value >> shift));
    }
    void expect(const char* name, Ask ask, std::string value)
    {
        fields.push_back({name, std::move(ask), std::move(value)});
    }

    std::uint8_t byte_ = 1;
    std::uint32_t word_ = 0;
    int single_ = 0;
    int text_ = 0;
    int guid_ = 0;
};

// clang-format off
#define ASK(field) #field, [](DBProject& p) { static_cast<void>(p); return shown(field); }
#define ASK_EACH(field) [i](DBProject& p) { return shown(field); }
#define VECTOR(field) s.single(ASK(field.x)); s.single(ASK(field.y)); s.single(ASK(field.z))
#define VIEW(Name)                                                                                           \
    s.word(ASK(p.get##Name##ViewMode()));                                                                    \
    for (std::size_t i = 0; i < 2; ++i) s.word(#Name "ViewPair", ASK_EACH(p.get##Name##ViewPair()[i]));      \
    for (std::size_t i = 0; i < 4; ++i) s.word(#Name "ViewQuad", ASK_EACH(p.get##Name##ViewQuad()[i]))
#define TEXTS(size, field)                                                                                   \
    for (std::size_t i = 0; i < (size); ++i) s.text(#field, ASK_EACH(field))

void head(Sheet& s)
{
    for (const char letter : {'T', 'e', 'l', 'l', 'u', 'r', 'i', 'x', 'D', 'B', '\0', '\0', '\x68', '\0', '\0', '\0'})
        s.code(static_cast<std::uint8_t>(letter));
    s.byte(ASK(p.getGranGost())); s.byte(ASK(p.getFileTagB()));
    s.text(ASK(p.getFilePath())); s.text(ASK(p.getProjectCode())); s.text(ASK(p.getProjectName()));
    s.raw("the stem is that of the path");
    s.byte(ASK(p.getTypeObject()));
}

#define KEY(rows) s.text(ASK(only(p.rows()).first.pointName)); s.text(ASK(only(p.rows()).first.depth))
void registers(Sheet& s)
{
#define POINT only(only(p.getPointRegister()).second)
    s.count();
    s.text(ASK(only(p.getPointRegister()).first.pointName)); s.byte(ASK(only(p.getPointRegister()).first.pointKind));
    s.count();
    s.text(ASK(POINT.text0)); s.text(ASK(POINT.text1)); s.text(ASK(POINT.absoluteMark)); s.text(ASK(POINT.text3));
    s.text(ASK(POINT.text4)); s.text(ASK(POINT.text5)); s.text(ASK(POINT.text6));
    s.byte(ASK(POINT.kindA)); s.byte(ASK(POINT.kindB));
    s.count(); KEY(getLithology);
    s.text(ASK(only(p.getLithology()).second.geoIndex)); s.text(ASK(only(p.getLithology()).second.description));
    s.count(); KEY(getSamples);
    s.byte(ASK(only(p.getSamples()).second.sampleKind));
#define WATER only(p.getWaterLevels()).second
    s.count(); KEY(getWaterLevels);
    s.word(ASK(WATER.date.year)); s.word(ASK(WATER.date.month)); s.word(ASK(WATER.date.day));
    s.byte(ASK(WATER.flagA)); s.byte(ASK(WATER.flagB));
    s.count(); KEY(getConsistency);
    s.byte(ASK(only(p.getConsistency()).second.consistencyKind));
}

#define THREE(row) s.byte(ASK(row.id)); s.text(ASK(row.textA)); s.text(ASK(row.textB)); s.text(ASK(row.textC))
void laboratory(Sheet& s)
{
    s.flag(true, ASK(p.getLabOption()));
    s.byte(ASK(p.getLabValueA())); s.byte(ASK(p.getLabValueB())); s.byte(ASK(p.getLabValueC()));
#define PHYSICAL only(p.getPhysicalTemplate())
    s.count(); s.byte(ASK(PHYSICAL.id)); s.flag(true, ASK(PHYSICAL.enabled)); s.text(ASK(PHYSICAL.value));
    s.count(); s.byte(ASK(only(p.getShearTemplate()).id)); s.text(ASK(only(p.getShearTemplate()).value));
    s.count(); THREE(only(p.getCompressionTemplate()));
    s.count(); THREE(only(p.getSwellingTemplate()));
    s.word(ASK(p.getLabTriple().number)); s.single(ASK(p.getLabTriple().valueA)); s.single(ASK(p.getLabTriple().valueB));
#define SAMPLE only(p.getLabSamples()).second
    s.count(); KEY(getLabSamples);
    s.word(ASK(SAMPLE.number)); s.text(ASK(SAMPLE.code));
    s.count(); s.byte(ASK(only(SAMPLE.physical).id)); s.flag(true, ASK(only(SAMPLE.physical).enabled));
    s.text(ASK(only(SAMPLE.physical).value));
    s.byte(ASK(SAMPLE.soilKind.code)); s.text(ASK(SAMPLE.soilKind.text));
    s.count(); s.byte(ASK(only(SAMPLE.grading).first)); s.text(ASK(only(SAMPLE.grading).second));
    s.count(); s.byte(ASK(only(SAMPLE.shear).first));
    s.count(); s.byte(ASK(only(only(SAMPLE.shear).second).id)); s.text(ASK(only(only(SAMPLE.shear).second).value));
    s.count(); s.byte(ASK(only(SAMPLE.compression).first));
    s.count(); THREE(only(only(SAMPLE.compression).second.cells));
    for (std::size_t i = 0; i < 4; ++i) s.byte("flags", ASK_EACH(only(SAMPLE.compression).second.flags[i]));
    for (std::size_t i = 0; i < 4; ++i) s.word("numbers", ASK_EACH(only(SAMPLE.compression).second.numbers[i]));
    s.count(); THREE(only(SAMPLE.swelling));
    s.count(); s.word(ASK(only(SAMPLE.shrinkage).stage)); TEXTS(6, only(SAMPLE.shrinkage).cells[i]);
}

void soundings(Sheet& s)
{
#define SOUNDING only(p.getSoundings())
    s.count(); s.text(ASK(SOUNDING.first.pointName)); s.byte(ASK(SOUNDING.first.pointKind));
    s.text(ASK(SOUNDING.first.device)); s.text(ASK(SOUNDING.first.date));
    s.count(); s.text(ASK(only(SOUNDING.second).depth)); TEXTS(4, only(SOUNDING.second).cells[i]);
    s.count(); s.text(ASK(only(p.getSoundingFlags()).first)); s.byte(ASK(only(p.getSoundingFlags()).second));
    s.count(); s.byte(ASK(only(p.getSoundingTriples()).first));
    for (std::size_t i = 0; i < 3; ++i) s.word("triple", ASK_EACH(only(p.getSoundingTriples()).second[i]));
    s.count(); TEXTS(8, only(p.getSoundingCalcRows()).cells[i]);
    s.flag(true, ASK(p.getSoundingOptionA())); s.flag(false, ASK(p.getSoundingOptionB()));
    s.byte(ASK(p.getSoundingValueA())); s.byte(ASK(p.getSoundingValueB()));
    s.byte(ASK(p.getSoundingValueC())); s.byte(ASK(p.getSoundingValueD()));
}

#define LAYERS(Name)                                                                                         \
    s.text(ASK(p.get##Name##LinesLayer())); s.text(ASK(p.get##Name##HatchLayer())); s.text(ASK(p.get##Name##TextLayer()))
#define LINES(lines, section)                                                                                   \
    s.count(); s.text(section, ASK(only(p.lines()).first));                                                     \
    s.count(); s.text(ASK(only(only(p.lines()).second).name)); s.word(ASK(only(only(p.lines()).second).number))
#define ENDS(points, section)                                                                                    \
    s.count(); s.text(section, ASK(only(p.points()).first));                                                     \
    s.text(ASK(only(p.points()).second.textA)); s.text(ASK(only(p.points()).second.textB));                  \
    s.word(ASK(only(p.points()).second.word0)); s.word(ASK(only(p.points()).second.word1));                  \
    s.single(ASK(only(p.points()).second.markA)); s.single(ASK(only(p.points()).second.markB))
void plainSection(Sheet& s)
{
    LAYERS(Section); s.text(ASK(p.getSectionGraphLayer()));
    VIEW(Section);
    LINES(getSectionLines, "1-1'"); ENDS(getSectionPoints, "2-2'");
    LINES(getTerrainLines, "3-3'"); ENDS(getTerrainPoints, "4-4'");
    s.count(); s.text(ASK(only(p.getSectionCurves()).first.first)); s.text(ASK(only(p.getSectionCurves()).first.second));
    s.count(); s.text(ASK(only(only(p.getSectionCurves()).second).textA));
    s.text(ASK(only(only(p.getSectionCurves()).second).textB));
}

// Code, identifier and link; then what every class has for itself.
#define OBJECT(number, Class)                                                                                \
    s.code(number); s.guid(ASK(OF(Class).getId())); s.guid(ASK(OF(Class).getLinkId()))
void drawings(Sheet& s)
{
    s.count(9);
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 0)
    OBJECT(0, GLLineDB); s.byte(ASK(OF(GLLineDB).data().style));
    VECTOR(OF(GLLineDB).data().from); VECTOR(OF(GLLineDB).data().to); VECTOR(OF(GLLineDB).data().color);
    s.single(ASK(OF(GLLineDB).data().width));
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 1)
    OBJECT(2, GLTextDB); VECTOR(OF(GLTextDB).data().position); VECTOR(OF(GLTextDB).data().color);
    s.single(ASK(OF(GLTextDB).data().height)); s.text(ASK(OF(GLTextDB).data().text));
    s.single(ASK(OF(GLTextDB).data().angle));
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 2)
    OBJECT(12, GLPolygonDB); VECTOR(OF(GLPolygonDB).data().color);
    s.count(); VECTOR(only(OF(GLPolygonDB).data().points));
    s.single(ASK(OF(GLPolygonDB).data().valueA)); s.single(ASK(OF(GLPolygonDB).data().valueB));
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 3)
    OBJECT(4, GLPolyLineDB); VECTOR(OF(GLPolyLineDB).data().color);
    s.count(); VECTOR(only(OF(GLPolyLineDB).data().points));
    s.byte(ASK(OF(GLPolyLineDB).data().style)); s.flag(true, ASK(OF(GLPolyLineDB).data().closed));
    s.single(ASK(OF(GLPolyLineDB).data().width));
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 4)
    OBJECT(6, GLCircleDB); VECTOR(OF(GLCircleDB).data().center); VECTOR(OF(GLCircleDB).data().color);
    s.count(); VECTOR(only(OF(GLCircleDB).data().points));
    s.single(ASK(OF(GLCircleDB).data().radius)); s.byte(ASK(OF(GLCircleDB).data().style));
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 5)
    OBJECT(7, GLSplineDB); VECTOR(OF(GLSplineDB).data().color);
    s.count(); s.single(ASK(only(OF(GLSplineDB).data().valuesX)));
    s.count(); s.single(ASK(only(OF(GLSplineDB).data().valuesY)));
    s.count(); s.single(ASK(only(OF(GLSplineDB).data().valuesZ)));
    s.byte(ASK(OF(GLSplineDB).data().style)); s.single(ASK(OF(GLSplineDB).data().width));
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 6)
    OBJECT(9, GLEllipseDB); VECTOR(OF(GLEllipseDB).data().center); VECTOR(OF(GLEllipseDB).data().color);
    s.single(ASK(OF(GLEllipseDB).data().radiusX)); s.single(ASK(OF(GLEllipseDB).data().radiusY));
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 7)
    OBJECT(11, GLArcDB); VECTOR(OF(GLArcDB).data().center); VECTOR(OF(GLArcDB).data().color);
    s.single(ASK(OF(GLArcDB).data().arcA)); s.single(ASK(OF(GLArcDB).data().arcB)); s.single(ASK(OF(GLArcDB).data().arcC));
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsA(), 8)
    OBJECT(1, GLBlockDB); s.text(ASK(OF(GLBlockDB).getName()));
    s.count(0);
#undef OF
#define OF(Class) as<Class>(p.getTerrainGlObjectsB(), 0)
    s.count(); s.guid(ASK(OF(GLPlaneDB).getId()));
    VECTOR(OF(GLPlaneDB).pointA()); VECTOR(OF(GLPlaneDB).pointB()); VECTOR(OF(GLPlaneDB).pointC());
#undef OF
}

// A profile's objects are told apart by the name of an empty block.
#define BLOCK_ALONE(objects)                                                                                 \
    s.count(); s.code(1); s.guid(ASK(as<GLBlockDB>(p.objects(), 0).getId()));                                   \
    s.guid(ASK(as<GLBlockDB>(p.objects(), 0).getLinkId())); s.text(ASK(as<GLBlockDB>(p.objects(), 0).getName())); s.count(0)
#define INFORM (*only(p.getLongInforms()))
#define ITEM as<ProfilePropertyGridItem>(INFORM.items(), 0)
#define FRAME(place) (Uuid{{INFORM.frame()[place], INFORM.frame()[place + 1], INFORM.frame()[place + 2], INFORM.frame()[place + 3]}})
void profiles(Sheet& s)
{
    s.text(ASK(p.getLongTextA())); s.text(ASK(p.getLongTextB()));
    LAYERS(Long); s.text(ASK(p.getLongGraphLayer()));
    VIEW(Long);
    BLOCK_ALONE(getLongGlObjects);
    s.count(); s.byte(ASK(INFORM.kind()));
    s.guid(ASK(FRAME(0))); s.guid(ASK(FRAME(4))); s.byte(ASK(INFORM.frame()[8]));
    s.text(ASK(INFORM.text())); s.guid(ASK(INFORM.boxA())); s.guid(ASK(INFORM.boxB())); s.guid(ASK(INFORM.boxC()));
    s.count(); s.guid(ASK(ITEM.boxC())); s.byte(ASK(ITEM.level()));
    s.count(2); s.text(ASK(ITEM.getLabels().at(0))); s.text(ASK(ITEM.getLabels().at(1)));
    s.text(ASK(ITEM.texts()[0])); s.text(ASK(ITEM.texts()[1])); s.byte(ASK(ITEM.kind()));
    s.guid(ASK(ITEM.boxA())); s.guid(ASK(ITEM.boxB())); s.count(0);
    s.count(0);
    s.count(); s.byte(ASK(only(INFORM.tail()).kind)); s.guid(ASK(only(INFORM.tail()).id));
    s.flag(true, ASK(INFORM.flag()));
    s.text(ASK(p.getCrossTextA())); s.text(ASK(p.getCrossTextB()));
    LAYERS(Cross);
    VIEW(Cross);
    BLOCK_ALONE(getCrossGlObjects);
    s.count(0);
}

void lastSections(Sheet& s)
{
    s.count(); s.text(ASK(only(p.getNumberedLinks()).first)); s.text(ASK(only(p.getNumberedLinks()).second));
#define CELL only(only(p.getSubsidence()).second)
    s.count(); s.text(ASK(only(p.getSubsidence()).first)); s.text(ASK(CELL.title));
    s.count(); s.byte(ASK(CELL.code)); s.text(ASK(CELL.text));
    s.count(); s.text(ASK(only(p.getSubsidenceNames()).first));
    s.count(); s.text(ASK(only(only(p.getSubsidenceNames()).second)));
    s.count(); s.text(ASK(only(p.getSubsidenceGroups()).first));
    s.count(); s.count(); s.text(ASK(only(only(only(p.getSubsidenceGroups()).second))));
    s.count(); KEY(getChemistry); TEXTS(30, only(p.getChemistry()).second.cells[i]);
#define ELEMENT only(p.getStrataElements()).second
    s.flag(true, ASK(p.getStrataElementsOption()));
    s.count(); s.text(ASK(only(p.getStrataElements()).first));
    s.word(ASK(ELEMENT.code)); s.word(ASK(ELEMENT.valueB)); s.word(ASK(ELEMENT.valueC));
    TEXTS(11, ELEMENT.texts[i]);
    s.text(ASK(ELEMENT.patternA)); s.byte(ASK(ELEMENT.patternFlagA));
    s.word(ASK(ELEMENT.lowerBound)); s.word(ASK(ELEMENT.middleValue)); s.word(ASK(ELEMENT.upperBound));
    s.text(ASK(ELEMENT.patternB)); s.byte(ASK(ELEMENT.patternFlagB));
}

Sheet wholeProject()
{
    Sheet s;
    head(s);
    registers(s);
    laboratory(s);
    soundings(s);
    plainSection(s);
    LAYERS(Terrain); s.text(ASK(p.getTerrainGraphLayer())); s.text(ASK(p.getSectionText()));
    VIEW(Terrain);
    drawings(s);
    s.count(); s.byte(ASK(only(p.getTerrainCells()).first)); s.count(); s.text(ASK(only(only(p.getTerrainCells()).second)));
    profiles(s);
    lastSections(s);
    return s;
}
// clang-format on

} // namespace

TEST(FieldsByHand, EachIsReadFromItsPlace)
{
    const Sheet sheet = wholeProject();
    ReadReport report;
    const auto project = openBytes(sheet.bytes, report);
    ASSERT_EQ(report.position, sheet.bytes.size());
    for (const Sheet::Expected& field : sheet.fields)
        EXPECT_EQ(field.ask(*project), field.value) << field.name;
    // A second title is not written; else it goes out as it came in.
    project->setLongTextA(project->getLongTextB());
    project->setCrossTextA(project->getCrossTextB());
    EXPECT_EQ(encodeProject(*project).size(), sheet.bytes.size() - 28 + project->getFileStem().size());
}
