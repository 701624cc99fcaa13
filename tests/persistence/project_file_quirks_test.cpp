#include "db/project_controller.h"
#include "section/gl_block.h"
#include "section/gl_line.h"
#include "support/project_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

Reference<DBProject> emptyProject()
{
    auto project = makeReference<DBProject>();
    project->setFilePath(L"C:\\П\\Участок.TLX");
    project->setFileStem(L"Участок");
    return project;
}

// The place of a text in the file, by its bytes.
Bytes::iterator placeOf(Bytes& bytes, std::string_view text)
{
    const auto place = std::search(bytes.begin(), bytes.end(), text.begin(), text.end());
    EXPECT_NE(place, bytes.end());
    return place;
}

void expectUnreadable(const Bytes& bytes, const std::wstring& message)
{
    try {
        openBytes(bytes);
        ADD_FAILURE() << "the file opened";
    } catch (const MException& failure) {
        EXPECT_EQ(failure.message(), message);
        EXPECT_EQ(failure.code(), 2);
    }
}

const std::wstring unreadable = L"Critical Error reading the file C:\\П\\Участок.TLX";

} // namespace

TEST(ProjectFile, HeadStandsAsTheFormatSays)
{
    const auto project = emptyProject();
    project->setProjectCode(L"Ш-1");
    const Bytes bytes = encodeProject(*project);
    const Bytes expected = {'T',
        'e',
        'l',
        'l',
        'u',
        'r',
        'i',
        'x',
        'D',
        'B',
        0,
        0,
        104,
        0,
        0,
        0,
        1,
        0,
        16,
        0,
        0,
        0,
        'C',
        ':',
        '\\',
        0xCF,
        '\\',
        0xD3,
        0xF7,
        0xE0,
        0xF1,
        0xF2,
        0xEE,
        0xEA,
        '.',
        'T',
        'L',
        'X',
        3,
        0,
        0,
        0,
        0xD8,
        '-',
        '1'};
    ASSERT_GE(bytes.size(), expected.size());
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), bytes.begin()));
}

TEST(ProjectFile, ATextEndsAtItsFirstZeroByteAndReadingGoesOnBehindAllOfIt)
{
    const auto project = emptyProject();
    project->setProjectCode(L"abcde");
    project->setProjectName(L"Мост");
    Bytes bytes = encodeProject(*project);
    *(placeOf(bytes, "abcde") + 1) = 0;
    ReadReport report;
    const auto again = openBytes(bytes, report);
    EXPECT_EQ(again->getProjectCode(), L"a");
    EXPECT_EQ(again->getProjectName(), L"Мост");
    EXPECT_EQ(report.dropCount, 1U);
}

TEST(ProjectFile, FlagsAreTrueForOneOnlyAndBytesBehindTheEndAreIgnored)
{
    const auto project = emptyProject();
    project->setStrataElementsOption(true);
    Bytes bytes = encodeProject(*project);
    bytes.push_back(7);
    EXPECT_TRUE(openBytes(bytes)->getStrataElementsOption());
    *(bytes.end() - 6) = 2;
    EXPECT_FALSE(openBytes(bytes)->getStrataElementsOption());
}

TEST(ProjectFile, CharactersWithoutAPlaceInTheCodePageBecomeQuestionMarks)
{
    const auto project = emptyProject();
    project->setProjectName(L"≥ 5 \U0001F30D Ґ\u0098");
    const auto again = reopened(*project);
    EXPECT_EQ(again->getProjectName(), L"? 5 ?? Ґ\u0098");
}

TEST(ProjectFile, NumbersKeepTheirLowByte)
{
    const auto project = emptyProject();
    project->setLabValueA(300);
    project->setLabValueB(-1);
    const auto again = reopened(*project);
    EXPECT_EQ(again->getLabValueA(), 44);
    EXPECT_EQ(again->getLabValueB(), 255);
}

TEST(ProjectFile, TitleBRepeatsTitleA)
{
    const auto project = emptyProject();
    project->setLongTextA(L"Продольный");
    project->setLongTextB(L"другой");
    project->setCrossTextB(L"другой");
    const auto again = reopened(*project);
    EXPECT_EQ(again->getLongTextB(), L"Продольный");
    EXPECT_EQ(again->getCrossTextB(), L"");
}

TEST(ProjectFile, ElementTextsKnowNoBlankAndNoCyrillicLetter)
{
    struct Row {
        std::wstring text;
        bool opens;
        std::wstring back;
    };
    const Row rows[] = {
        {L"", true, L""},
        {L"!Qz", true, L"!Qz"},
        {L"\u201E", true, L"\u0084"},
        {L"\u0084", true, L"?"},
        {L"a b", false, L""},
        {L"Q{", false, L""},
        {L"песок", false, L""},
    };
    for (const Row& row : rows) {
        const auto project = emptyProject();
        StrataElement element;
        element.texts[3] = row.text;
        project->addStrataElement(L"1", element);
        const Bytes bytes = encodeProject(*project);
        if (row.opens)
            EXPECT_EQ(openBytes(bytes)->getStrataElements().begin()->second.texts[3], row.back);
        else
            expectUnreadable(bytes, unreadable);
    }
}

TEST(ProjectFile, SubsidenceNamesStandOnlyBesideSubsidenceRows)
{
    const auto project = emptyProject();
    project->addSubsidenceName(L"1", {L"просадка", L""});
    project->addSubsidenceGroup(L"2", {{L"a"}, {}});
    EXPECT_TRUE(reopened(*project)->getSubsidenceNames().empty());

    // A row whose only cell was cleared keeps its place, and with it everything behind.
    DBProjectController(project.get()).setSubsidenceCell(L"Скв-1", {3, L"", L"Заголовок"});
    project->addChemistry({L"1", L"2"}, {});
    const auto again = reopened(*project);
    ASSERT_EQ(again->getSubsidence().size(), 1U);
    EXPECT_TRUE(again->getSubsidence().begin()->second.empty());
    EXPECT_EQ(again->getSubsidenceNames().size(), 1U);
    EXPECT_EQ(again->getSubsidenceGroups().begin()->second.size(), 2U);
    EXPECT_EQ(again->getChemistry().size(), 1U);
}

TEST(ProjectFile, CellsOfASubsidenceRowShareTheTitleOfTheFirst)
{
    const auto project = emptyProject();
    project->setSubsidence({{L"1", {{3, L"0,1", L"А"}, {300, L"0,2", L"Б"}}}});
    const auto again = reopened(*project);
    const auto& cells = again->getSubsidence().begin()->second;
    ASSERT_EQ(cells.size(), 2U);
    EXPECT_EQ(cells[1].title, L"А");
    EXPECT_EQ(cells[1].code, 44);
}

TEST(ProjectFile, EndsOfSectionsAreCompletedFromLinesAndPoints)
{
    const auto project = emptyProject();
    const auto point = [&](const wchar_t* name, std::uint8_t kind, const std::vector<std::wstring>& marks) {
        std::vector<PointRow> rows;
        rows.reserve(marks.size());
        for (const std::wstring& mark : marks)
            rows.push_back({L"", L"", mark, 0, L"", L"", L"", L"", 0});
        project->addPointRegisterEntry({name, kind}, rows);
    };
    point(L"1", 3, {L"12.5", L"13,5"});
    point(L"2", 1, {L"20", L"21"});
    point(L"3", 1, {});
    const std::wstring key = L"Разрез 1-1'";
    project->addSectionLine(key, {{L"1", 0}, {L"3", 0}, {L"2", 0}});

    struct Row {
        SectionPointValue given;
        SectionPointValue expected;
    };
    const Row rows[] = {
        {{L"", L"", 7, 8, 0, 0}, {L"1", L"2", 7, 8, 12.5F, 21}},
        {{L"02", L"1", 0, 0, -3, 0}, {L"02", L"1", 0, 0, 20, 13}},
        {{L"9", L"3", 0, 0, 0.00001F, 0.000001F}, {L"9", L"3", 0, 0, 0.00001F, 0}},
        {{L"9", L"№", 0, 0, -1, -1}, {L"9", L"№", 0, 0, 0, 0}},
    };
    for (const Row& row : rows) {
        project->setSectionPoints({{key, row.given}});
        const auto again = reopened(*project);
        const SectionPointValue& ends = again->getSectionPoints().begin()->second;
        EXPECT_EQ(ends.textA, row.expected.textA);
        EXPECT_EQ(ends.textB, row.expected.textB);
        EXPECT_EQ(ends.word1, row.expected.word1);
        EXPECT_EQ(ends.markA, row.expected.markA);
        EXPECT_EQ(ends.markB, row.expected.markB);
    }

    // Without a line of the section an empty name stays empty, and so does its mark.
    project->setTerrainPoints({{key, {L"", L"", 0, 0, -2, 0}}});
    EXPECT_EQ(reopened(*project)->getTerrainPoints().begin()->second.markA, -2);

    point(L"4", 1, {L""});
    project->setSectionPoints({{key, {L"4", L"1", 0, 0, 0, 5}}});
    expectUnreadable(encodeProject(*project), unreadable);
}

TEST(ProjectFile, RefusedRowsAreReportedWithTheirPlace)
{
    const auto project = emptyProject();
    project->addLithology({L"5", L"1.5"}, {L"aQ", L""});
    project->addLithology({L"6", L"2.5"}, {L"bQ", L""});
    Bytes bytes = encodeProject(*project);
    // The second row becomes one of the point 0, which is equivalent to every numeric point.
    *(placeOf(bytes, "2.5") - 5) = '0';
    ReadReport report;
    const auto again = openBytes(bytes, report);
    EXPECT_EQ(again->getLithology().size(), 1U);
    ASSERT_EQ(report.refusals.size(), 1U);
    EXPECT_EQ(report.refusals[0].section, "lithology");
    EXPECT_EQ(report.refusals[0].key, L"0 / 2.5");
    EXPECT_EQ(report.refusals[0].begin, static_cast<std::size_t>(placeOf(bytes, "2.5") - bytes.begin()) - 9);
}

TEST(ProjectFile, AnObjectOfNoListedClassIsCountedAndNotWritten)
{
    const auto project = emptyProject();
    project->setLongGlObjects({nullptr});
    Bytes bytes = encodeProject(*project);
    project->setLongGlObjects({});
    EXPECT_EQ(bytes.size(), encodeProject(*project).size());
    expectUnreadable(bytes, unreadable);
}

TEST(ProjectFile, NestingIsFollowedToTheLimitAndRefusedBeyond)
{
    const auto nested = [](int levels) {
        Reference<GLObjectDB> object = makeReference<GLLineDB>(GLLineData(), Uuid(), L"GLLineDB", Uuid());
        for (int level = 0; level < levels; ++level) {
            GLBlockData data;
            data.objects.push_back(object.detach());
            object = makeReference<GLBlockDB>(data, Uuid(), L"", Uuid());
        }
        return object;
    };
    const auto project = emptyProject();
    project->setCrossGlObjects({nested(512).detach()});
    const Bytes deepest = encodeProject(*project);
    EXPECT_EQ(encodeProject(*openBytes(deepest)), deepest);

    const auto deeper = emptyProject();
    deeper->setCrossGlObjects({nested(513).detach()});
    EXPECT_THROW(encodeProject(*deeper), MException);

    // The same one level deeper, as a damaged file would have it: every block is a head of fixed size.
    Bytes damaged = deepest;
    const std::string head = std::string("\x01\x24\0\0\0", 5);
    const auto block = std::search(damaged.begin(), damaged.end(), head.begin(), head.end());
    ASSERT_NE(block, damaged.end());
    const Bytes once(block, block + 1 + 40 + 40 + 4 + 4);
    damaged.insert(block, once.begin(), once.end());
    expectUnreadable(damaged, unreadable);
}

TEST(ProjectFile, RowsThatTheProjectTookComeBackWhateverTheirNames)
{
    // A name with a letter between numbers: the register took the three in this order, and so must a reader.
    const auto project = emptyProject();
    for (const wchar_t* name : {L"0", L"1а", L"2"})
        ASSERT_TRUE(project->addLithology({name, L"1"}, {}));
    EXPECT_EQ(reopened(*project)->getLithology().size(), 3U);
}
