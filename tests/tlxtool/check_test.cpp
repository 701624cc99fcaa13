#include "support/random_project.h"
#include "tlxtool/check.h"
#include "tlxtool/opened_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace
{

std::vector<Finding> findingsOf(const Bytes& bytes)
{
    OpenedProject opened = fileOf(bytes);
    return checkProject(opened);
}

std::string listOf(const std::vector<Finding>& findings)
{
    std::string list;
    for (const Finding& finding : findings)
        list += toText(finding) + "\n";
    return list;
}

std::size_t placeOf(const Bytes& bytes, std::string_view text)
{
    const auto sameByte = [](std::uint8_t byte, char character) {
        return byte == static_cast<std::uint8_t>(character);
    };
    const auto place = std::search(bytes.begin(), bytes.end(), text.begin(), text.end(), sameByte);
    EXPECT_NE(place, bytes.end()) << text;
    return static_cast<std::size_t>(place - bytes.begin());
}

PointRow rowWithMark(const std::wstring& mark)
{
    return {L"", L"", mark, 0, L"", L"", L"", L"", 0};
}

// A small site without a fault; the rows of the table below spoil it.
Reference<DBProject> site()
{
    auto project = projectInPlace();
    project->addPointRegisterEntry({L"1", 1}, {rowWithMark(L"100.5")});
    project->addPointRegisterEntry({L"2", 1}, {rowWithMark(L"")});
    project->addLithology({L"1", L"1.5"}, {L"aQ", L"Песок"});
    project->addSample({L"2", L"3"}, {1});
    project->addSounding({L"2", 3, L"", L""}, {{L"0.2", {}}});
    project->addSectionLine(L"Разрез 1-1'", {{L"1", 0}, {L"2", 0}});
    return project;
}

struct Row {
    std::string expected; // a finding contains this
    std::function<void(DBProject&)> spoil;
};

const Row rows[] = {
    {"lithology, байт ",
        [](DBProject& project) {
            project.addLithology({L"7", L"1"}, {});
        }},
    {"точки «7» нет в реестре точек (строк: 2)",
        [](DBProject& project) {
            project.addChemistry({L"7", L"1"}, {});
            project.addChemistry({L"7", L"2"}, {});
        }},
    {"sections, байт ",
        [](DBProject& project) {
            project.addTerrainLine(L"Разрез 2-2'", {{L"Скв-9", 0}});
        }},
    {"точки «3» нет в реестре",
        [](DBProject& project) {
            project.setSubsidence({{L"3", {{1, L"0.1", L""}}}});
        }},
    {"имена «01», «1» читаются как одно число 1",
        [](DBProject& project) {
            project.addSample({L"01", L"9"}, {});
        }},
    {"имя «Скв-3» сравнивается как текст, а имя «1» как число",
        [](DBProject& project) {
            project.addPointRegisterEntry({L"Скв-3", 1}, {});
        }},
    {"consistency, байт ",
        [](DBProject& project) {
            project.addConsistency({L"0", L"1"}, {});
        }},
    {"имя «0» читается как 0",
        [](DBProject& project) {
            project.addConsistency({L"0", L"1"}, {});
        }},
    // The only row of a register gets there without a comparison, so files hold such rows.
    {"consistency, байт ",
        [](DBProject& project) {
            project.getConsistency().insert({{L"1", L""}, {}});
        }},
    {"«1 / »: глубина или отметка не читается как число",
        [](DBProject& project) {
            project.getConsistency().insert({{L"1", L""}, {}});
        }},
    {"глубина «inf» не читается как число",
        [](DBProject& project) {
            project.addWaterLevel({L"1", L"inf"}, {});
        }},
    {"глубина «3,5» читается до запятой, как «3»",
        [](DBProject& project) {
            project.addWaterLevel({L"1", L"3,5"}, {});
        }},
    {"точка «1»: глубина «» не читается как число",
        [](DBProject& project) {
            project.addSounding({L"1", 3, L"", L""}, {{L"", {}}});
        }},
    {"точка «3»: абсолютная отметка «нет» не читается",
        [](DBProject& project) {
            project.addPointRegisterEntry({L"3", 1}, {rowWithMark(L"нет")});
        }},
    {"записан путь «C:\\П\\Иной.TLX»",
        [](DBProject& project) {
            project.setFilePath(L"C:\\П\\Иной.TLX");
            project.setFileStem(L"Иной");
        }},
    {"записано краткое имя «Иной», при сохранении станет «Участок»",
        [](DBProject& project) { project.setFileStem(L"Иной"); }},
    {"head, байт 59: отсюда сохранённый файл отличался бы",
        [](DBProject& project) { project.setFileStem(L"Иной"); }},
    {"strataElements, байт ",
        [](DBProject& project) {
            StrataElement element;
            element.texts[0] = L"\u201E"; // the byte comes back as a control character without a place
            project.addStrataElement(L"1", element);
        }},
};

} // namespace

TEST(Check, FindsNothingInASoundProject)
{
    EXPECT_EQ(listOf(findingsOf(encodeProject(*site()))), "");
    EXPECT_EQ(listOf(findingsOf(sampleBytes("PORTADOWN.TLX"))).find("lithology"), std::string::npos);
}

TEST(Check, FindsWhatWillBiteLater)
{
    for (const Row& row : rows) {
        const auto project = site();
        row.spoil(*project);
        const std::string list = listOf(findingsOf(encodeProject(*project)));
        EXPECT_NE(list.find(row.expected), std::string::npos) << row.expected << "\nis not in\n" << list;
    }
}

TEST(Check, OffsetsPointAtTheRow)
{
    const auto project = site();
    project->addChemistry({L"77", L"1"}, {});
    const Bytes bytes = encodeProject(*project);
    const auto findings = findingsOf(bytes);
    ASSERT_EQ(findings.size(), 1U) << listOf(findings);
    EXPECT_EQ(findings[0].section, "chemistry");
    EXPECT_EQ(findings[0].offset, placeOf(bytes, "77") - 4);
    // Behind a stretch that a save would change, the places are those in the file all the same.
    project->setFileStem(L"Короткое имя");
    const Bytes longer = encodeProject(*project);
    const auto again = findingsOf(longer);
    ASSERT_EQ(again.size(), 3U) << listOf(again);
    EXPECT_EQ(again.back().offset, placeOf(longer, "77") - 4);
}

// The walk counts the bytes that the writer writes, whatever fields a project has: its last finding would
// stand elsewhere otherwise.
TEST(Check, CountsTheBytesOfEveryField)
{
    for (std::uint32_t seed = 1; seed <= 10; ++seed) {
        const auto project = randomProject(seed, true);
        project->setStrataElements({});
        project->addChemistry({L"Яяя", L"9"}, {});
        const Bytes bytes = encodeProject(*project);
        const auto findings = findingsOf(bytes);
        const auto last = std::find_if(findings.begin(), findings.end(), [](const Finding& finding) {
            return finding.text.find("«Яяя»") != std::string::npos;
        });
        ASSERT_NE(last, findings.end()) << listOf(findings);
        ASSERT_EQ(last->offset, placeOf(bytes, "\xDF\xFF\xFF") - 4) << "seed " << seed;
    }
}

TEST(Check, RowsRefusedWhileReadingStandWithTheirPlace)
{
    const auto project = site();
    project->addLithology({L"2", L"2.75"}, {});
    Bytes bytes = encodeProject(*project);
    bytes[placeOf(bytes, "2.75") - 5] = '0';
    const std::string list = listOf(findingsOf(bytes));
    const std::string expected =
        "lithology, байт " + std::to_string(placeOf(bytes, "2.75") - 9) + ": строка «0 / 2.75» отвергнута";
    EXPECT_NE(list.find(expected), std::string::npos) << list;
}

TEST(Check, SaysWhereAndWhyAFileCannotBeRead)
{
    struct Case {
        std::string expected;
        std::function<void(Bytes&)> spoil;
    };
    const Bytes good = encodeProject(*site());
    const std::size_t description = placeOf(good, "aQ") + 2 + 4;
    const Case cases[] = {
        {"lithology, байт " + std::to_string(description) + ": файл обрывается",
            [&](Bytes& bytes) { bytes.resize(description + 2); }},
        {"head, байт 3: это не проект", [](Bytes& bytes) { bytes[3] = 'x'; }},
        {"head, байт 0: это не проект", [](Bytes& bytes) { bytes.clear(); }},
        {"head, байт 12: файл обрывается", [](Bytes& bytes) { bytes.resize(12); }},
        {"head, байт 12: версия файла 103", [](Bytes& bytes) { bytes[12] = 103; }},
    };
    for (const Case& each : cases) {
        Bytes bytes = good;
        each.spoil(bytes);
        const auto findings = findingsOf(bytes);
        ASSERT_EQ(findings.size(), 1U) << listOf(findings);
        EXPECT_EQ(listOf(findings).find(each.expected), 0U) << listOf(findings);
    }
}

TEST(Check, BytesBehindTheEndAndInTheUnreadGapAreFound)
{
    Bytes bytes = encodeProject(*site());
    const std::size_t end = bytes.size();
    bytes.resize(end + 5);
    bytes[11] = 1;
    const std::string list = listOf(findingsOf(bytes));
    EXPECT_NE(
        list.find("байт " + std::to_string(end) + ": за концом проекта лишние байты (5)"), std::string::npos)
        << list;
    EXPECT_NE(list.find("head, байт 11: отсюда сохранённый файл"), std::string::npos) << list;
}
