#include "persistence/save_losses.h"
#include "section/gl_line.h"
#include "support/project_bytes.h"
#include "support/random_project.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using Kind = SaveLoss::Kind;

namespace
{

bool has(const std::vector<SaveLoss>& losses, Kind kind)
{
    return std::any_of(losses.begin(), losses.end(), [&](const SaveLoss& loss) { return loss.kind == kind; });
}

bool opens(IDBProject& project)
{
    try {
        reopened(project);
        return true;
    } catch (const MException&) {
        return false;
    }
}

PointRow rowWithMark(const std::wstring& mark)
{
    return {L"", L"", mark, 0, L"", L"", L"", L"", 0};
}

void elementTextWithBlank(DBProject& project)
{
    StrataElement element;
    element.texts[0] = L"a b";
    project.addStrataElement(L"1", element);
}

void markThatIsNoNumber(DBProject& project)
{
    project.clearPointRegister();
    project.addPointRegisterEntry({L"1", 1}, {rowWithMark(L"—")});
    project.setSectionPoints({{L"Разрез 1-1'", {L"1", L"", 0, 0, 0, 0}}});
}

// In memory the name ~ meets letters only; the reader, row after row, lays it beside the number 1.
void nameThatIsNoNumber(DBProject& project)
{
    project.clearPointRegister();
    for (const wchar_t* name : {L"1", L"A", L"Скв", L"~"})
        project.addPointRegisterEntry({name, 1}, {});
}

void negativeMark(DBProject& project)
{
    project.addSectionPoint(L"Разрез 1-1'", {L"1", L"2", 0, 0, -4.2F, 3});
}

void frameBeyondAByte(DBProject& project)
{
    const InformRecord::Frame frame{1, 2, 3, 4, 5, 6, 7, 8, 256};
    const auto inform = makeReference<InformRecord>(0,
        Uuid(),
        Uuid(),
        frame,
        std::vector<PropertyGridItem*>(),
        std::vector<InformLink>(),
        std::wstring(L"ИГЭ-1"),
        Uuid());
    project.addLongInform(inform.get());
}

struct Row {
    Kind kind;
    std::function<void(DBProject&)> spoil;
};

const Row rows[] = {
    {Kind::elementText, elementTextWithBlank},
    {Kind::markUnread, markThatIsNoNumber},
    {Kind::unknownObject, [](DBProject& project) { project.getLongGlObjects().push_back(nullptr); }},
    {Kind::keyUnread, nameThatIsNoNumber},
    {Kind::textReplaced, [](DBProject& project) { project.setProjectName(L"σ ≥ 5"); }},
    {Kind::textCut, [](DBProject& project) { project.setProjectName(std::wstring(L"a\0b", 3)); }},
    {Kind::textCut,
        [](DBProject& project) {
            StrataElement element;
            element.texts[0] = std::wstring(L"a\0 b", 4);
            project.addStrataElement(L"1", element);
        }},
    {Kind::byteCut, [](DBProject& project) { project.setTypeObject(256); }},
    {Kind::byteCut, frameBeyondAByte},
    {Kind::markReplaced, negativeMark},
    {Kind::secondTitle, [](DBProject& project) { project.setCrossTextB(L"другой"); }},
    {Kind::sectionFlag, [](DBProject& project) { project.setSectionFlagB(true); }},
    {Kind::subsidence,
        [](DBProject& project) {
            project.setSubsidence({{L"1", {{1, L"", L"a"}}}});
        }},
    {Kind::subsidenceNames, [](DBProject& project) { project.addSubsidenceName(L"1", {L"a"}); }},
};

} // namespace

TEST(SaveLosses, EachKindIsFoundAndOnlyWhatIsThere)
{
    for (const Row& row : rows) {
        const auto project = makeReference<DBProject>();
        EXPECT_TRUE(findSaveLosses(*project).empty());
        row.spoil(*project);
        const auto losses = findSaveLosses(*project);
        EXPECT_TRUE(has(losses, row.kind)) << static_cast<int>(row.kind);
        EXPECT_EQ(losses.size(), 1U) << static_cast<int>(row.kind);
        EXPECT_EQ(opens(*project), !makesUnreadable(row.kind)) << static_cast<int>(row.kind);
        for (const SaveLoss& loss : losses)
            EXPECT_GT(describeLoss(loss).size(), 20U);
    }
}

// What the list calls unreadable does not open, and what it does not, opens: over projects that hold
// anything.
TEST(SaveLosses, TellExactlyWhichFilesWillNotOpen)
{
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        const auto project = randomProject(seed, seed % 2 == 0);
        EXPECT_TRUE(findSaveLosses(*project).empty())
            << "seed " << seed << ": " << toUtf8(describeLoss(findSaveLosses(*project).front()));
        const Row& row = rows[seed % std::size(rows)];
        row.spoil(*project);
        const auto losses = findSaveLosses(*project);
        const bool unreadable = std::any_of(
            losses.begin(), losses.end(), [](const SaveLoss& loss) { return makesUnreadable(loss.kind); });
        EXPECT_EQ(opens(*project), !unreadable) << "seed " << seed;
    }
}

TEST(SaveLosses, NamesThatTheOrderConfusesAreToldBeforeTheyAreLost)
{
    const auto project = makeReference<DBProject>();
    for (const wchar_t* name : {L"9", L"10", L"1A", L"100", L"2B", L"3", L"20", L"11"})
        project->addPointRegisterEntry({name, 1}, {});
    const auto losses = findSaveLosses(*project);
    const std::size_t lost =
        project->getPointRegister().size() - reopened(*project)->getPointRegister().size();
    EXPECT_EQ(losses.size(), lost);
}

// A letter that the code page lacks is a question mark in the file, and that is no letter: the names are then
// neither letters nor numbers, or one and the same.
TEST(SaveLosses, NamesAreJudgedAsTheFileWillHoldThem)
{
    const auto unreadable = makeReference<DBProject>();
    for (const wchar_t* name : {L"Ә-1", L"Ә-2"})
        unreadable->addPointRegisterEntry({name, 1}, {});
    EXPECT_TRUE(has(findSaveLosses(*unreadable), Kind::keyUnread));
    EXPECT_FALSE(opens(*unreadable));

    const auto merged = makeReference<DBProject>();
    for (const wchar_t* name : {L"СкӘ", L"СкҒ"})
        merged->addPointRegisterEntry({name, 1}, {rowWithMark(L"—")});
    EXPECT_TRUE(has(findSaveLosses(*merged), Kind::rowRefused));
    EXPECT_TRUE(opens(*merged));
    // This point is not in the register, yet the file will find one of its name.
    merged->addSectionPoint(L"Разрез 1-1'", {L"СкҢ", L"", 0, 0, 0, 1});
    EXPECT_TRUE(has(findSaveLosses(*merged), Kind::markUnread));
    EXPECT_FALSE(opens(*merged));
}

TEST(SaveLosses, AnyNumberOfSmallLossesLeavesRoomForTheOneThatMatters)
{
    const auto project = makeReference<DBProject>();
    project->setProjectName(L"σ ≥ 5");
    project->setProjectCode(L"σ");
    elementTextWithBlank(*project);
    const auto losses = findSaveLosses(*project, 2);
    ASSERT_EQ(losses.size(), 2U);
    EXPECT_EQ(losses[0].kind, Kind::elementText);
    EXPECT_EQ(losses[1].kind, Kind::textReplaced);
}

TEST(SaveLosses, EmptyPlacesInAListOfInformRecordsAreLeftOut)
{
    const auto project = makeReference<DBProject>();
    project->getLongInforms().push_back(nullptr);
    EXPECT_TRUE(findSaveLosses(*project).empty());
    EXPECT_TRUE(reopened(*project)->getLongInforms().empty());
}
