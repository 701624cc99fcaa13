#include "core/base/mexception.h"
#include "exchange/sounding_file.h"
#include "platform/code_page.h"

#include <gtest/gtest.h>

namespace
{

SoundingTable readText(std::string_view text)
{
    return readSoundingFile({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

std::vector<ImportedReading> proposed(const SoundingTable& table)
{
    return importedReadings(table, table.columns);
}

constexpr std::string_view gef = "#GEFID= 1, 1, 0\r\n"
                                 "#TESTID= CPT-07\r\n"
                                 "#STARTDATE= 2019, 5, 27\r\n"
                                 "#COLUMNINFO= 1, m, penetration length, 1\r\n"
                                 "#COLUMNINFO= 2, MPa, cone resistance, 2\r\n"
                                 "#COLUMNINFO= 3, MPa, local friction, 3\r\n"
                                 "#COLUMNINFO= 4, %, friction number, 4\r\n"
                                 "#COLUMNINFO= 5, m, corrected depth, 11\r\n"
                                 "#COLUMNVOID= 3, -9999\r\n"
                                 "#COLUMNSEPARATOR= ;\r\n"
                                 "#RECORDSEPARATOR= !\r\n"
                                 "#EOH=\r\n"
                                 "0.02;1.500e+000;0.0150;1.0;0.019;!\r\n"
                                 "0.04;2.500e+000;-9999;1.0;0.039;!\r\n";

} // namespace

TEST(SoundingFile, TableWithHeadOfAnOffice)
{
    const SoundingTable table =
        readText("Объект;Дом\nГлубина, м;Лоб qc, МПа;Бок fs, кПа\n0,2;2,5;74\n0,4;2,1;\n0,6;1,9;64\n");
    EXPECT_EQ(table.head.size(), 2u);
    const std::vector<ImportedReading> readings = proposed(table);
    ASSERT_EQ(readings.size(), 3u);
    EXPECT_NEAR(*readings[1].tip, 2.1, 1e-12);
    EXPECT_FALSE(readings[1].sleeve);
}

TEST(SoundingFile, SeparatorsUnitsAndCodePages)
{
    struct Row {
        std::string text;
        double tip;
        double sleeve;
    };
    const Row rows[] = {
        {"0.2\t2.5\t74\n0.4\t2.6\t75\n", 2.5, 74},
        {"  0.2   2.5   74\n  0.4  2.6 75\n", 2.5, 74},
        {"depth,qc,fs\n0.2,2.5,74\n0.4,2.6,75\n", 2.5, 74},
        {"depth;fs, MPa;qc, kPa\n0.2;0.074;2500\n0.4;0.075;2600\n", 2.5, 74},
        {"0.2;2500;74\n0.4;2600;75\n", 2.5, 74}, // kPa by its size
        {toCodePage(L"Глубина;Лобовое;Боковое\n0,2;2,5;74\n0,4;2,6;75\n"), 2.5, 74},
        {"\xEF\xBB\xBF\"0,2\";\"2,5\";\"74\"\n0,4;2,6;75\n", 2.5, 74},
    };
    for (const Row& row : rows) {
        const std::vector<ImportedReading> readings = proposed(readText(row.text));
        ASSERT_EQ(readings.size(), 2u) << row.text;
        EXPECT_NEAR(readings[0].depth, 0.2, 1e-12) << row.text;
        EXPECT_NEAR(readings[0].tip.value_or(0), row.tip, 1e-12) << row.text;
        EXPECT_NEAR(readings[0].sleeve.value_or(0), row.sleeve, 1e-9) << row.text;
    }
}

TEST(SoundingFile, GefTellsItsColumnsUnitsAndVoids)
{
    const SoundingTable table = readText(gef);
    EXPECT_TRUE(table.isGef);
    EXPECT_EQ(table.point, L"CPT-07");
    EXPECT_EQ(table.date, L"27.05.2019");
    const std::vector<ImportedReading> readings = proposed(table);
    ASSERT_EQ(readings.size(), 2u);
    EXPECT_NEAR(readings[0].depth, 0.019, 1e-12); // the corrected one
    EXPECT_NEAR(*readings[0].tip, 1.5, 1e-12);
    EXPECT_NEAR(*readings[0].sleeve, 15.0, 1e-9);
    EXPECT_FALSE(readings[1].sleeve);
}

TEST(SoundingFile, WhatIsNoSoundingIsRefused)
{
    for (const std::string_view text : {std::string_view(""),
             std::string_view("слова и ничего больше\n"),
             std::string_view("1\n2\n3\n"),
             std::string_view("0.2;1;2\0\n", 9),
             std::string_view("#GEFID=1\n#EOH=\n")})
        EXPECT_THROW(readText(text), MException);
}

TEST(SoundingFile, CutAndSpoiltFilesDoNoHarm)
{
    std::string text(gef);
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string spoilt = text;
        spoilt[i] = static_cast<char>(spoilt[i] ^ 0x15);
        for (const std::string& one : {text.substr(0, i), spoilt})
            try {
                proposed(readText(one));
            } catch (const MException&) {
            }
    }
    EXPECT_EQ(proposed(readText("#GEFID=1\n#COLUMNINFO= 99999999999, m, x, 1\n#COLUMNINFO= -1, m, x, 1\n"
                                "#COLUMNVOID= 1e300, 1\n#EOH=\n1 2 3\n"))
                  .size(),
        0u);
}
