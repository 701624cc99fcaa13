#include "core/base/reference.h"
#include "db/db_project.h"
#include "listCoords/point_cascade.h"
#include "persistence/project_codec.h"
#include "persistence/project_file.h"

#include <gtest/gtest.h>

#include <functional>
#include <numeric>

using Names = std::vector<std::wstring>;

static PointRow rowWithMark(const std::wstring& mark)
{
    PointRow row;
    row.absoluteMark = mark;
    return row;
}

// One row in each register for each of the names, which read as numbers between 10 and 90.
static Reference<DBProject> projectNaming(const Names& names)
{
    auto project = makeReference<DBProject>();
    std::vector<SectionRef> line;
    for (const std::wstring& name : names) {
        project->addPointRegisterEntry({name, 2}, {rowWithMark(L"101,5"), rowWithMark(L"7")});
        project->addLithology({name, L"1.5"}, {L"aQ", L"Песок"});
        project->addLithology({name, L"12"}, {L"dP", L"Глина"});
        project->addSample({name, L"2"}, {1});
        project->addWaterLevel({name, L"3"}, {});
        project->addConsistency({name, L"4"}, {2});
        LabSample sample;
        sample.code = name;
        project->addLabSample({name, L"2"}, sample);
        project->addSounding({name, 3, L"ССЗ-1", L"01.02.2019"}, {{L"0.2", {}}});
        project->addSoundingFlag(name, 4);
        project->addSectionCurve({name, L"90"}, {{L"a", name}});
        project->addSectionCurve({L"90", name}, {});
        project->addNumberedLink(name + L":3", name);
        project->getSubsidence()[name] = {{1, L"0.01", L"I"}};
        project->addSubsidenceName(name, {name});
        project->addSubsidenceGroup(name, {{name}});
        project->addChemistry({name, L"5"}, {});
        line.push_back({name, 1});
    }
    line.push_back({L"90", 2});
    project->addSectionLine(L"Разрез 1-1'", line);
    project->addTerrainLine(L"Разрез 2-2'", line);
    const std::wstring first = names.empty() ? L"" : names.front();
    project->addSectionPoint(L"Разрез 1-1'", {first, L"90", 1, 2, 100.5F, 99});
    project->addTerrainPoint(L"Разрез 2-2'", {L"90", first, 1, 2, 100.5F, 99});
    return project;
}

static std::vector<std::uint8_t> bytesOf(IDBProject& project)
{
    return encodeProject(project);
}

static std::size_t rowsIn(const std::vector<PointUse>& uses)
{
    return std::accumulate(
        uses.begin(), uses.end(), std::size_t{0}, [](std::size_t sum, const PointUse& use) {
            return sum + use.rows;
        });
}

TEST(PointCascade, RenamedPointIsAsIfItHadAlwaysHadTheName)
{
    // Texts inside cells and codes are nobody's links and keep the old name.
    const auto project = projectNaming({L"50"});
    const auto wanted = projectNaming({L"60"});
    for (auto& [key, sample] : wanted->getLabSamples())
        sample.code = L"50";
    wanted->getSectionCurves().find({L"60", L"90"})->second = {{L"a", L"50"}};
    wanted->getNumberedLinks().begin()->second = L"50";
    wanted->addSubsidenceName(L"60", {L"50"});
    wanted->getSubsidenceGroups().begin()->second = {{L"50"}};
    EXPECT_EQ(renamePoint(*project, L"50", L"60"), L"");
    EXPECT_EQ(bytesOf(*project), bytesOf(*wanted));
    EXPECT_TRUE(findPointUses(*project, {L"50"}).empty());
}

TEST(PointCascade, RemovedPointsLeaveTheOthersAlone)
{
    const auto project = projectNaming({L"20", L"30", L"40"});
    EXPECT_EQ(removePoints(*project, {L"20", L"40"}), L"");
    const auto wanted = projectNaming({L"30"});
    wanted->getSectionPoints().begin()->second.textA.clear();
    wanted->getTerrainPoints().begin()->second.textB.clear();
    EXPECT_EQ(bytesOf(*project), bytesOf(*wanted));
}

TEST(PointCascade, CountsRowsByRegister)
{
    const auto project = projectNaming({L"20", L"30"});
    const auto uses = findPointUses(*project, {L"20", L"30"});
    EXPECT_EQ(uses.size(), 17U);
    EXPECT_EQ(uses.front().where, L"Литология");
    EXPECT_EQ(uses.front().rows, 4U);
    // 14 keyed registers with a row, lithology and curves with two, two lines; ends name the first point
    // only.
    EXPECT_EQ(rowsIn(uses), 2U * (13 + 2 + 2) + 2);
    EXPECT_TRUE(findPointUses(*project, {L"2"}).empty());
}

TEST(PointCascade, PutBackRestoresEveryByte)
{
    for (const char* sample : {"ALLNUM.TLX", "ALLTEXT.TLX", "PORTADOWN.TLX"}) {
        const std::wstring path =
            std::wstring(std::string_view(TELLURIX_SAMPLES).begin(), std::string_view(TELLURIX_SAMPLES).end())
            + L"/" + std::wstring(std::string_view(sample).begin(), std::string_view(sample).end());
        std::vector<std::uint8_t> bytes;
        ASSERT_EQ(lookAtProjectFile(path, bytes), ProjectFileState::current);
        ReadReport report;
        const auto project = readProject(path, bytes, report);
        const auto written = bytesOf(*project);
        Names names;
        for (const auto& [key, rows] : project->getPointRegister())
            names.push_back(key.pointName);
        for (const std::wstring& name : names) {
            const RegistersCopy before(*project, {name});
            ASSERT_EQ(renamePoint(*project, name, name + L"77"), L"") << sample;
            const RegistersCopy after(*project, before);
            const auto renamed = bytesOf(*project);
            EXPECT_NE(renamed, written);
            before.putBack(*project);
            ASSERT_EQ(bytesOf(*project), written) << sample;
            after.putBack(*project);
            ASSERT_EQ(bytesOf(*project), renamed) << sample;
            before.putBack(*project);
        }
        const RegistersCopy before(*project, names);
        EXPECT_EQ(removePoints(*project, names), L"");
        EXPECT_TRUE(project->getLithology().empty());
        before.putBack(*project);
        EXPECT_EQ(bytesOf(*project), written);
    }
}

static void expectRemovalToAndFro(DBProject& project, const Names& names, const std::string& what)
{
    const auto written = bytesOf(project);
    const auto removal = PointsRemoval::prepare(project, names);
    ASSERT_EQ(bytesOf(project), written) << what;
    removal->put(project, true);
    const auto left = bytesOf(project);
    removal->put(project, true);
    EXPECT_EQ(bytesOf(project), left) << what;
    removal->put(project, false);
    EXPECT_EQ(bytesOf(project), written) << what;
    const RegistersCopy before(project, names);
    EXPECT_EQ(removePoints(project, names), L"") << what;
    EXPECT_EQ(bytesOf(project), left) << what << ": as if taken out row by row";
    before.putBack(project);
}

TEST(PointCascade, RemovalGoesToAndFroInOneStep)
{
    // Names that stand in no one order among them.
    const auto mixed = makeReference<DBProject>();
    for (const wchar_t* name : {L"1", L"10", L"2", L"1а", L"Скв-2", L"0", L"12б"}) {
        mixed->addPointRegisterEntry({name, 1}, {PointRow()});
        for (const wchar_t* depth : {L"0.5", L"12", L"3"})
            mixed->addLithology({name, depth}, {L"", name});
        mixed->addSounding({name, 3, L"", L""}, {{}});
        mixed->addNumberedLink(std::wstring(name) + L":1", L"1");
        mixed->getSectionLines()[L"Разрез 1-1'"].push_back({name, {}});
    }
    const auto uniform = makeReference<DBProject>();
    for (const wchar_t* name : {L"1", L"10", L"2", L"30"})
        for (const wchar_t* depth : {L"0.5", L"12", L"3"}) {
            uniform->addPointRegisterEntry({name, 1}, {PointRow()});
            uniform->addLithology({name, depth}, {L"", name});
            uniform->addLabSample({name, depth}, {});
        }
    for (const auto& project : {mixed, uniform})
        for (const Names& names : {Names{L"1"}, Names{L"10", L"2"}, Names{L"2", L"1", L"нет такой", L"0"}})
            expectRemovalToAndFro(*project, names, std::to_string(names.size()));
}

TEST(PointCascade, ARemovalThatIsCalledOffNeverBegan)
{
    const auto project = makeReference<DBProject>();
    for (int i = 1; i <= 3000; ++i)
        project->addLithology({i % 2 ? L"1" : L"2", std::to_wstring(i)}, {L"", L""});
    const auto written = bytesOf(*project);
    std::vector<double> shares;
    const auto goOn = [&](double share) {
        shares.push_back(share);
        return shares.size() < 3;
    };
    EXPECT_EQ(PointsRemoval::prepare(*project, {L"1"}, goOn), nullptr);
    EXPECT_EQ(bytesOf(*project), written);
    ASSERT_EQ(shares.size(), 3U);
    EXPECT_LT(shares[0], shares[1]);
    EXPECT_LT(shares[2], 0.6);
    EXPECT_NE(PointsRemoval::prepare(*project, {L"1"}, [](double share) { return share <= 1; }), nullptr);
}

TEST(PointCascade, RefusalChangesNothing)
{
    struct Row {
        const char* what;
        std::wstring newName;
        std::function<void(DBProject&)> prepare;
    };
    const Row rows[] = {
        {"rows left over under the new name",
            L"70",
            [](DBProject& project) {
                project.addSample({L"70", L"2"}, {2});
            }},
        {"rows under a name of the same number",
            L"70",
            [](DBProject& project) {
                project.addSample({L"70-1", L"2"}, {2});
            }},
        {"a register without order knows the name",
            L"70",
            [](DBProject& project) { project.getSubsidence()[L"70"] = {}; }},
        {"a name that reads as zero stands beside others",
            L"0",
            [](DBProject& project) {
                project.addChemistry({L"80", L"1"}, {});
            }},
        {"a name that no ordering reads", L"№5", [](DBProject&) {}},
        {"eleven digits", L"12345678901", [](DBProject&) {}},
        {"a colon, and the layers have elements", L"5:0", [](DBProject&) {}},
        {"the name of another point",
            L"80-1",
            [](DBProject& project) {
                project.addPointRegisterEntry({L"80", 1}, {});
            }},
    };
    for (const Row& row : rows) {
        const auto project = projectNaming({L"50"});
        row.prepare(*project);
        const auto before = bytesOf(*project);
        EXPECT_NE(renamePoint(*project, L"50", row.newName), L"") << row.what;
        EXPECT_EQ(bytesOf(*project), before) << row.what;
    }
}

// The rows of a lone point are compared with nothing, so a bad name would go in and spoil the next one.
TEST(PointCascade, UnreadableNameIsRefusedForALoneRowToo)
{
    auto project = makeReference<DBProject>();
    project->addPointRegisterEntry({L"1", 1}, {});
    EXPECT_NE(renamePoint(*project, L"1", L"№"), L"");
    EXPECT_EQ(project->getPointRegister().begin()->first.pointName, L"1");
}

TEST(PointCascade, NamesOfElementsStayTheirs)
{
    const auto project = projectNaming({L"50"});
    project->addStrataElement(L"50", {});
    EXPECT_EQ(removePoints(*project, {L"50"}), L"");
    EXPECT_TRUE(project->getSubsidence().empty());
    EXPECT_EQ(project->getSoundingFlags().size(), 1U);
    EXPECT_EQ(project->getSubsidenceNames().size(), 1U);
    EXPECT_EQ(project->getSubsidenceGroups().size(), 1U);
    EXPECT_EQ(project->getSectionCurves().size(), 2U);
    EXPECT_EQ(project->getStrataElements().size(), 1U);
}

TEST(PointCascade, LinksOfLayersGoWithTheirPointAndNoOthers)
{
    const auto project = makeReference<DBProject>();
    project->addPointRegisterEntry({L"ИГЭ 1", 1}, {});
    project->addLithology({L"ИГЭ 1", L"2"}, {});
    for (const wchar_t* key : {L"ИГЭ 1:0", L"ИГЭ 1:1", L"С-2:1", L"С-2:2", L"Коррозия:0"})
        project->addNumberedLink(key, L"1");
    const auto keys = [&] {
        std::wstring all;
        for (const auto& [key, element] : project->getNumberedLinks())
            all += key + L" ";
        return all;
    };
    EXPECT_EQ(renamePoint(*project, L"ИГЭ 1", L"С-2"), L"");
    EXPECT_EQ(keys(), L"ИГЭ 1:0 Коррозия:0 С-2:1 ") << "what was left of an older С-2 is gone";
    EXPECT_EQ(removePoints(*project, {L"С-2", L"Коррозия"}), L"");
    EXPECT_EQ(keys(), L"ИГЭ 1:0 Коррозия:0 ");
}

// A section that loses its end takes the next point's mark when the file is opened, which must be a number.
TEST(PointCascade, SectionEndWithoutMarkKeepsItsPoint)
{
    for (const bool hasMark : {false, true}) {
        auto project = makeReference<DBProject>();
        project->addPointRegisterEntry({L"1", 1}, {rowWithMark(L"10")});
        project->addPointRegisterEntry({L"2", 1}, {rowWithMark(hasMark ? L"11" : L"")});
        project->addSectionLine(L"Разрез 1-1'", {{L"1", 0}, {L"2", 0}, {L"3", 0}});
        project->addSectionPoint(L"Разрез 1-1'", {L"1", L"3", 0, 0, 0.F, 5.F});
        const auto written = bytesOf(*project);
        const std::wstring foreseen = removalRefusal(*project, {L"1"});
        EXPECT_EQ(bytesOf(*project), written);
        const std::wstring refusal = removePoints(*project, {L"1"});
        EXPECT_EQ(foreseen, refusal);
        EXPECT_EQ(refusal.empty(), hasMark);
        EXPECT_EQ(project->getPointRegister().size(), hasMark ? 1U : 2U);
        EXPECT_EQ(refusal.find(L"Разрез 1-1'") == std::wstring::npos, hasMark);
    }
}
