#include "core/base/reference.h"
#include "db/db_project.h"
#include "db/project_controller.h"
#include "modules/idb_stamp.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>
#include <type_traits>

namespace
{

std::vector<std::wstring> depthsOf(const LithologyRegister& layers)
{
    std::vector<std::wstring> depths;
    for (const auto& layer : layers)
        depths.push_back(layer.first.pointName + L"/" + layer.first.depth);
    return depths;
}

std::string failureOf(const std::function<void()>& act)
{
    try {
        act();
    } catch (const std::logic_error& failure) {
        return failure.what();
    }
    return "none";
}

} // namespace

TEST(Project, AddKeepsTheOldValueAndTellsWhetherItInserted)
{
    const auto project = makeReference<DBProject>();
    EXPECT_TRUE(project->addPointRegisterEntry({L"7", 1}, {PointRow()}));
    EXPECT_FALSE(project->addPointRegisterEntry({L"7", 2}, {}));
    EXPECT_FALSE(project->addPointRegisterEntry({L"7-1", 1}, {}));
    EXPECT_EQ(project->getPointRegister().begin()->second.size(), 1U);

    EXPECT_TRUE(project->addLithology({L"5", L"1"}, {}));
    EXPECT_FALSE(project->addLithology({L"0", L"9"}, {}));

    EXPECT_TRUE(project->addSubsidenceName(L"1", {L"a"}));
    EXPECT_TRUE(project->addSubsidenceName(L"1", project->getSubsidenceNames().begin()->second));
    EXPECT_TRUE(project->addSubsidenceName(L"1", {L"b", L"c"}));
    EXPECT_FALSE(project->addSubsidenceName(L"01", {L"d"}));
    EXPECT_EQ(project->getSubsidenceNames().begin()->second, (std::vector<std::wstring>{L"b", L"c"}));
}

// The very first row compares with nothing; without a look at its own key a bad one would go in and make
// every later operation fail.
TEST(Project, AddRefusesAKeyThatTheOrderingCannotRead)
{
    const auto project = makeReference<DBProject>();
    EXPECT_EQ(failureOf([&] { project->addLithology({L"1", L""}, {}); }), "invalid stof argument");
    EXPECT_EQ(failureOf([&] { project->addSample({L"", L"1"}, {}); }), "invalid stoi argument");
    EXPECT_EQ(failureOf([&] { project->addSectionLine(L"Разрез", {}); }), "invalid stoi argument");
    EXPECT_EQ(failureOf([&] { project->addNumberedLink(L"a:", L""); }), "invalid stoi argument");
    EXPECT_TRUE(project->getLithology().empty());
    EXPECT_TRUE(project->addLithology({L"Скв-1", L"2,5"}, {}));
}

TEST(Project, RatioKeepsItsValueWhereTheTextIsNoNumber)
{
    const auto project = makeReference<DBProject>();
    EXPECT_EQ(failureOf([&] { project->setSoundingRatioA(L"abc"); }), "invalid stof argument");
    EXPECT_EQ(failureOf([&] { project->setSoundingRatioA(L"1e60"); }), "stof argument out of range");
    EXPECT_EQ(project->getSoundingRatioA(), 0.0357F);
    project->setSoundingRatioA(L"0.5");
    EXPECT_EQ(project->getSoundingRatioA(), 0.5F);
}

TEST(Project, LayersOfAPointGoByExactName)
{
    const auto project = makeReference<DBProject>();
    for (const wchar_t* depth : {L"1", L"2", L"3"})
        project->addLithology({L"7", depth}, {});
    project->addLithology({L"07", L"4"}, {});
    // The name stands in the row that goes first.
    EXPECT_EQ(project->removeLithologyOfPoint(project->getLithology().begin()->first.pointName),
        project->getLithology().end());
    EXPECT_EQ(depthsOf(project->getLithology()), std::vector<std::wstring>{L"07/4"});
}

TEST(Project, MovingASoundingChangesDeviceDateAndSpelling)
{
    const auto project = makeReference<DBProject>();
    project->addSounding({L"3", 3, L"C979", L"05.06.2020"}, {SoundingRow{L"0.2", {}}});
    EXPECT_FALSE(project->addSounding({L"03", 1, L"", L"07.06.2020"}, {}));
    project->moveSoundingKey(L"4", 3, L"УралТИСИЗ");
    EXPECT_EQ(project->getSoundings().begin()->first.date, L"05.06.2020");
    project->moveSoundingKey(L"03", 2, L"УралТИСИЗ");
    ASSERT_EQ(project->getSoundings().size(), 1U);
    const auto& [key, rows] = *project->getSoundings().begin();
    EXPECT_EQ(key.pointName + L"|" + key.device + L"|" + key.date, L"03|УралТИСИЗ|01.01.2019");
    EXPECT_EQ(key.pointKind, 2U);
    EXPECT_EQ(rows.size(), 1U);
}

TEST(Project, MovingASoundingLeavesTheOthersWhereTheyAre)
{
    const auto project = makeReference<DBProject>();
    for (const wchar_t* name : {L"1", L"2", L"3"})
        project->addSounding({name, 3, L"C979", L"05.06.2020"}, {SoundingRow{name, {}}});
    // A screen walks the register and moves keys on its way.
    std::wstring depths;
    SoundingRegister& soundings = project->getSoundings();
    const auto* const last = &*soundings.rbegin();
    for (auto next = soundings.begin(); next != soundings.end();) {
        const auto& [key, rows] = *next++;
        ASSERT_EQ(&*soundings.rbegin(), last) << "a screen holds on to it";
        const SoundingRow& first = rows.front();
        project->moveSoundingKey(key.pointName == L"2" ? L"02" : key.pointName, 1, L"УралТИСИЗ");
        depths += first.depth;
    }
    EXPECT_EQ(depths, L"123");
}

// Numbers compare as numbers, a number with a name that has letters as text: there is no order in such a
// register, and it may refuse a name that it held a moment ago.
TEST(Project, MovingASoundingAmongMixedNamesLosesNone)
{
    for (const std::vector<std::wstring>& names : std::vector<std::vector<std::wstring>>{
             {L"9", L"10", L"1A", L"100", L"2B", L"3"}, {L"А", L"№5", L"1"}, {L"0", L"1а", L"2"}}) {
        SoundingRegister soundings;
        for (const std::wstring& name : names)
            soundings.insert({{name, 3, L"C979", L"05.06.2020"}, {SoundingRow{name, {}}}});
        for (const std::wstring& from : names) {
            const auto project = makeReference<DBProject>();
            project->setSoundings(soundings);
            try {
                project->moveSoundingKey(L"0" + from, 1, L"УралТИСИЗ");
            } catch (const std::logic_error&) {
                // A name that is no number.
            }
            ASSERT_EQ(project->getSoundings().size(), soundings.size());
            // Rows and keys stand in the copy as they stood, but for the one that moved.
            std::set<std::wstring> depths;
            for (const auto& [key, rows] : project->getSoundings())
                depths.insert(rows.front().depth);
            EXPECT_EQ(depths.size(), soundings.size());
        }
    }
}

TEST(Project, ElementsAnswerWithTheirNumbersOrTheKnownSentinels)
{
    const auto project = makeReference<DBProject>();
    StrataElement element;
    element.code = 4;
    element.lowerBound = 5;
    element.upperBound = 6;
    element.patternA = {1, 2};
    project->addStrataElement(L"2", element);
    EXPECT_TRUE(project->areStrataElementsEmpty());
    element.texts[10] = L"x";
    project->addStrataElement(L"3", element);
    EXPECT_FALSE(project->areStrataElementsEmpty());
    EXPECT_EQ(project->getStrataElementLowerBound(L"2"), 5);
    EXPECT_EQ(project->getStrataElementUpperBound(L"2"), 6);
    EXPECT_EQ(project->getStrataElementCode(L"2"), 4);
    EXPECT_EQ(project->getStrataElementLowerBound(L"02"), 999);
    EXPECT_EQ(project->getStrataElementUpperBound(L"02"), 777);
    EXPECT_EQ(project->getStrataElementCode(L"02"), 0);
}

TEST(ProjectController, MarksAndBottoms)
{
    const auto project = makeReference<DBProject>();
    DBProjectController controller(project.get());
    EXPECT_EQ(controller.getLithologyBottom(L"1"), 0);
    for (const wchar_t* depth : {L"3", L"12", L"7.5"})
        project->addLithology({L"1", depth}, {});
    project->addLithology({L"2", L"30"}, {});
    project->addConsistency({L"2", L"4.5"}, {});
    EXPECT_EQ(controller.getLithologyBottom(L"1"), 12);
    EXPECT_EQ(controller.getLithologyBottom(L"01"), 0);
    EXPECT_EQ(controller.getConsistencyBottom(L"2"), 4.5F);
    EXPECT_EQ(controller.getConsistencyBottom(L"1"), 0);

    PointRow row;
    row.absoluteMark = L"101.25";
    project->addPointRegisterEntry({L"1", 1}, {row});
    project->addPointRegisterEntry({L"2", 1}, {});
    EXPECT_EQ(controller.getPointMark(L"1"), 101.25F);
    EXPECT_EQ(controller.getPointMark(L"01"), 0) << "the ordering takes it for 1, the question does not";
    EXPECT_EQ(controller.getPointMark(L"3"), 0);
    project->addPointRegisterEntry({L"Скв-2а", 1}, {row});
    for (const wchar_t* other : {L"Скв-2", L"Скв-2аб", L"скв-2а", L"12", L""})
        EXPECT_EQ(controller.getPointMark(other), 0);
    EXPECT_EQ(failureOf([&] { controller.getPointMark(L"2"); }), "invalid stof argument");
}

TEST(ProjectController, SubsidenceCellsReplaceByCodeAndEmptyTextDeletes)
{
    const auto project = makeReference<DBProject>();
    DBProjectController controller(project.get());
    controller.setSubsidenceCell(L"1", {4, L"", L"t"});
    ASSERT_EQ(project->getSubsidence().size(), 1U);
    EXPECT_TRUE(project->getSubsidence().at(L"1").empty());
    controller.setSubsidenceCell(L"1", {4, L"a", L"t"});
    controller.setSubsidenceCell(L"1", {5, L"b", L"t"});
    controller.setSubsidenceCell(L"1", {4, L"c", L"t"});
    const auto cells = [&]() -> auto&
    {
        return project->getSubsidence().at(L"1");
    };
    ASSERT_EQ(cells().size(), 2U);
    EXPECT_EQ(cells()[0].text + cells()[1].text, L"bc");
    controller.setSubsidenceCell(L"1", cells()[1]);
    EXPECT_EQ(cells().back().text, L"c");
}

TEST(ProjectController, SubsidenceCellsReachTheProjectThroughItsSetter)
{
    // A project of another class may hold its rows elsewhere than in what its getter shows.
    class Watched : public DBProject
    {
    public:
        void setSubsidence(const SubsidenceMap& value) override
        {
            ++written;
            DBProject::setSubsidence(value);
        }
        int written = 0;
    };
    const auto project = makeReference<Watched>();
    DBProjectController(project.get()).setSubsidenceCell(L"1", {4, L"a", L"t"});
    EXPECT_EQ(project->written, 1);
    EXPECT_EQ(project->getSubsidence().at(L"1").size(), 1U);
    static_assert(std::is_abstract_v<IDBStamp>);
}
