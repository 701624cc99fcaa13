#include "persistence/grammar/project.h"
#include "tlxtool/csv_export.h"
#include "tlxtool/opened_bytes.h"
#include "tlxtool/text_table.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

std::string tableOf(IDBProject& project, const std::string& name)
{
    CsvArchive archive;
    projectFields(archive, project);
    for (const CsvTable& table : archive.tables())
        if (table.name == name)
            return csvText(table).substr(3);
    return "no table " + name;
}

} // namespace

TEST(Csv, QuotesWhatASpreadsheetWouldSplit)
{
    const CsvTable table = {
        "t",
        {"a", "b;c"},
        {{"просто", "x;y"}, {"он сказал \"да\"", "две\nстроки"}, {"  ", "'=1+1"}, {"", "\r"}},
    };
    EXPECT_EQ(csvText(table),
        "\xEF\xBB\xBF"
        "a;\"b;c\"\r\nпросто;\"x;y\"\r\n\"он сказал \"\"да\"\"\";\"две\nстроки\"\r\n  ;'=1+1\r\n;\"\r\"\r\n");
}

TEST(Csv, EveryRegisterIsATableWithTheKeyInEveryRow)
{
    const auto project = projectInPlace();
    PointRow row;
    row.absoluteMark = L"12.50";
    row.kindB = 7;
    project->addPointRegisterEntry({L"1", 3}, {row, {}});
    project->addPointRegisterEntry({L"2", 1}, {});
    LabSample sample;
    sample.code = L"П;1";
    sample.soilKind = {4, L"супесь"};
    sample.physical = {{5, true, L"1,5"}, {6, false, L""}};
    sample.compression[9].cells = {{1, L"a", L"b", L"c", 0, L""}};
    sample.compression[9].numbers = {1, 2, 3, -4};
    project->addLabSample({L"1", L"3"}, sample);
    project->setSectionPoints({{L"Разрез 1-1'", {L"1", L"2", 5, 6, 0.1F, 1e10F}}});
    project->addSubsidenceGroup(L"1", {{L"x", L"y"}, {}, {L"z"}});
    project->setSubsidence({{L"1", {{3, L"0,1", L"Т"}}}, {L"2", {}}});

    struct Expected {
        const char* name;
        const char* text;
    };
    const Expected tables[] = {
        {"pointRegister",
            "pointName;pointKind;text0;text1;absoluteMark;text3;text4;text5;text6;kindA;kindB\r\n"
            "1;3;;;12.50;;;;;0;7\r\n1;3;;;;;;;;0;0\r\n2;1;;;;;;;;;\r\n"},
        {"lithology", "pointName;depth;geoIndex;description\r\n"},
        {"labSamples",
            "pointName;depth;number;code;soilKind.code;soilKind.text\r\n1;3;0;\"П;1\";4;супесь\r\n"},
        {"labSamples.physical", "pointName;depth;id;enabled;value\r\n1;3;5;1;1,5\r\n1;3;6;0;\r\n"},
        {"labSamples.compression",
            "pointName;depth;test;flags1;flags2;flags3;flags4;numbers1;numbers2;numbers3;numbers4\r\n"
            "1;3;9;0;0;0;0;1;2;3;-4\r\n"},
        {"labSamples.compression.cells", "pointName;depth;test;id;textA;textB;textC\r\n1;3;9;1;a;b;c\r\n"},
        {"labSamples.swelling", "pointName;depth;id;textA;textB;textC\r\n"},
        {"sectionPoints", "section;textA;textB;word0;word1;markA;markB\r\nРазрез 1-1';1;2;5;6;0,1;1e+10\r\n"},
        {"subsidenceGroups", "name;groupsNumber;groups\r\n1;1;x\r\n1;1;y\r\n1;3;z\r\n"},
        {"subsidence", "pointName;code;text;title\r\n1;3;0,1;Т\r\n2;;;\r\n"},
    };
    for (const Expected& table : tables)
        EXPECT_EQ(tableOf(*project, table.name), table.text) << table.name;
    EXPECT_NE(tableOf(*project, "project").find("labTriple.valueA;2,5\r\n"), std::string::npos);
    EXPECT_NE(tableOf(*project, "project").find("sectionViewPair2;0\r\n"), std::string::npos);
}

TEST(TextTable, CountsCharactersAndNotBytes)
{
    const std::vector<TextColumn> columns = {
        {"имя", false, Cut::begin},
        {"текст", false, Cut::end},
        {"n", true, Cut::nothing},
    };
    const std::vector<std::vector<std::string>> rows = {
        {"папка/папка/Ёж.TLX", "Очень длинное наименование", "7"},
        {"a.TLX", "кратко", "123"},
    };
    EXPECT_EQ(formatTable(columns, rows, 0),
        "имя                 текст                         n\n"
        "папка/папка/Ёж.TLX  Очень длинное наименование    7\n"
        "a.TLX               кратко                      123\n");
    EXPECT_EQ(formatTable(columns, rows, 29),
        "имя          текст          n\n"
        "…пка/Ёж.TLX  Очень длин…    7\n"
        "a.TLX        кратко       123\n");
}
