#include "drawing/dxf.h"
#include "drawing/dxf_pairs.h"
#include "drawing/dxf_texts.h"
#include "drawing/triangles.h"

#include <gtest/gtest.h>

#include <cmath>

using Records = std::vector<std::vector<DxfPair>>;

static Records recordsOf(const Records& records, const std::string& kind)
{
    Records found;
    for (const auto& record : records)
        if (record.front().value == kind)
            found.push_back(record);
    return found;
}

TEST(DxfTexts, AreBytesOfTheCodePage)
{
    EXPECT_EQ(dxfText(L"Суглинок №1 ±0,5°"), "\xD1\xF3\xE3\xEB\xE8\xED\xEE\xEA \xB9\x31 \xB1\x30,5\xB0");
    EXPECT_EQ(dxfText(L"м² α ґ ё"), "\xEC\\U+00B2 \\U+03B1 \xB4 \xB8");
    EXPECT_EQ(dxfText(L"50%%d a^b\n"), "50%%%d a^ b ");
    EXPECT_EQ(dxfText(std::wstring(1, wchar_t(0x98))), "\\U+0098");
    EXPECT_EQ(dxfName(L"Разрез:линии/А-1"), "\xD0\xE0\xE7\xF0\xE5\xE7_\xEB\xE8\xED\xE8\xE8_\xC0-1");
    EXPECT_EQ(dxfName(L""), "0");
    EXPECT_EQ(dxfName(std::wstring(60, L'a')).size(), 31U);
}

TEST(DxfTexts, ColoursAreTheNearestOfThePalette)
{
    EXPECT_EQ(dxfColor({0, 0, 0}), 7);
    EXPECT_EQ(dxfColor({255, 0, 0}), 1);
    EXPECT_EQ(dxfColor({0, 0, 255}), 5);
    EXPECT_EQ(dxfColor({255, 0, 255}), 6);
    EXPECT_EQ(dxfColor({255, 128, 0}), 30);
    EXPECT_EQ(dxfColor({255, 128, 128}), 11);
}

TEST(Dxf, HoldsEveryShape)
{
    Drawing drawing;
    drawing.width = 100;
    drawing.height = 50;
    drawing.layerNames[Layer::Hatch] = L"Разрез_штриховка";
    Area area;
    area.rings = {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}};
    area.hasGround = true;
    area.ground = {255, 0, 0};
    area.hatch = 7;
    area.hatchUnit = 1;
    Text text;
    text.text = L"Глина";
    text.at = {20, 10};
    text.align = Align::Centre;
    drawing.items.push_back({Layer::Hatch, 0, area});
    drawing.items.push_back({Layer::Text, 0, text});
    drawing.items.push_back(
        {Layer::Boundary, 0, Line{{{0, 0}, {5.25, 50}}, {0.25, {}, Dash::Dashed}, false}});
    drawing.items.push_back({Layer::Frame, 0, Line{{{0, 0}, {5, 0}}, {0.7}, false}});
    for (const double x : {30.0, 60.0})
        for (const double radius : {1.0, 2.0})
            drawing.items.push_back({Layer::Sample, 0, Circle{{x, 20}, radius}, "SAMPLE", {x, 20}});
    const Hatches hatches = readHatches({{7, [] {
                                              const std::string tile = "a\n5 5\nline 0 2 5 2\ndot 2 4 1\n";
                                              return std::vector<std::uint8_t>(tile.begin(), tile.end());
                                          }()}});
    const std::string file = toDxf(drawing, hatches);
    const Records records = dxfRecords(file);
    EXPECT_EQ(dxfPairs(file)[3], (DxfPair{1, "AC1009"}));
    EXPECT_EQ(dxfPairs(file)[5], (DxfPair{3, "ANSI_1251"}));
    EXPECT_EQ(records.back().front().value, "EOF");

    const Records lines = recordsOf(records, "LINE");
    ASSERT_EQ(lines.size(), 3U) << "two hatch lines through the tiles, one boundary";
    EXPECT_EQ(dxfValue(lines[0], 8), "\xD0\xE0\xE7\xF0\xE5\xE7_\xF8\xF2\xF0\xE8\xF5\xEE\xE2\xEA\xE0");
    EXPECT_EQ(dxfValue(lines[2], 6), "DASHED");
    EXPECT_EQ(dxfValue(lines[2], 11), "5.25");
    EXPECT_EQ(dxfValue(lines[2], 20), "50.0") << "y counts upwards";
    EXPECT_EQ(dxfValue(lines[2], 21), "0.0");

    const Records polylines = recordsOf(records, "POLYLINE");
    ASSERT_EQ(polylines.size(), 2U);
    EXPECT_EQ(dxfValue(polylines[0], 70), "1") << "the area is closed";
    EXPECT_EQ(dxfValue(polylines[1], 40), "0.7");
    EXPECT_EQ(recordsOf(records, "VERTEX").size(), 6U);
    EXPECT_EQ(recordsOf(records, "SEQEND").size(), 2U);
    const Records solids = recordsOf(records, "SOLID");
    ASSERT_EQ(solids.size(), 5U) << "three of a dot, two of the ground";
    EXPECT_EQ(dxfValue(solids[0], 62), "0") << "the colour of the place";
    EXPECT_EQ(dxfValue(solids[4], 62), "1");

    const Records texts = recordsOf(records, "TEXT");
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_EQ(dxfValue(texts[0], 1), "\xC3\xEB\xE8\xED\xE0");
    EXPECT_EQ(dxfValue(texts[0], 72), "1");
    EXPECT_EQ(dxfValue(texts[0], 21), "40.0");
    EXPECT_EQ(dxfValue(texts[0], 7), "lc_opengost-br");

    const Records blocks = recordsOf(records, "BLOCK");
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(dxfValue(blocks[0], 2), "DOT1000");
    EXPECT_EQ(recordsOf(records, "CIRCLE").size(), 2U) << "in the block alone";
    EXPECT_EQ(dxfValue(recordsOf(records, "CIRCLE")[0], 10), "0.0");
    const Records inserts = recordsOf(records, "INSERT");
    ASSERT_EQ(inserts.size(), 6U) << "four dots, two signs";
    EXPECT_EQ(dxfValue(inserts[3], 2), "DOT1000");
    EXPECT_EQ(dxfValue(inserts[3], 10), "7.0");
    EXPECT_EQ(dxfValue(inserts[3], 20), "41.0");
    EXPECT_EQ(dxfValue(inserts[3], 62), "7");
    EXPECT_EQ(dxfValue(inserts[5], 10), "60.0");
    EXPECT_EQ(dxfValue(inserts[5], 20), "30.0");
}

static double areaOf(const std::vector<std::array<Spot, 3>>& triangles)
{
    double sum = 0;
    for (const auto& [a, b, c] : triangles)
        sum += std::abs((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x)) / 2;
    return sum;
}

TEST(Triangles, CoverTheRingAndLeaveItsHolesFree)
{
    EXPECT_NEAR(areaOf(trianglesOf({{{0, 0}, {10, 0}, {10, 10}, {0, 10}}})), 100, 1e-9);
    // The letter L, either way round.
    EXPECT_NEAR(areaOf(trianglesOf({{{0, 0}, {10, 0}, {10, 2}, {2, 2}, {2, 10}, {0, 10}}})), 36, 1e-9);
    EXPECT_NEAR(areaOf(trianglesOf({{{0, 10}, {2, 10}, {2, 2}, {10, 2}, {10, 0}, {0, 0}}})), 36, 1e-9);
    EXPECT_NEAR(areaOf(trianglesOf({{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{4, 4}, {6, 4}, {6, 6}, {4, 6}}})),
        96,
        1e-9);
    EXPECT_TRUE(trianglesOf({{{0, 0}, {1, 1}}}).empty());
}
