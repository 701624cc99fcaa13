#include "drawing/hatch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <string_view>

static std::vector<std::uint8_t> bytesOf(std::string_view text)
{
    return {text.begin(), text.end()};
}

static Hatches hatchOf(std::string_view text)
{
    return readHatches({{1, bytesOf(text)}});
}

static Area boxOf(double left, double top, double right, double bottom, double unit = 1)
{
    Area area;
    area.rings = {{{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
    area.hatch = 1;
    area.hatchUnit = unit;
    return area;
}

static double lengthOf(const HatchStrokes& strokes)
{
    return std::accumulate(strokes.lines.begin(), strokes.lines.end(), 0.0, [](double sum, const auto& line) {
        return sum + std::hypot(line.to.x - line.from.x, line.to.y - line.from.y);
    });
}

TEST(HatchTile, TakesWhatTheLibraryHoldsAndNothingElse)
{
    const std::optional<HatchTile> tile = readHatchTile(bytesOf(
        "Супесь\n24 20\nline 0 0 13.92 -13.92\ndot 18.96 -18.96 1.5\noval 1 2 3 4 45\nfill 0 0 1 0 1 1\n"));
    ASSERT_TRUE(tile);
    EXPECT_EQ(tile->name, L"Супесь");
    EXPECT_EQ(tile->width, 24);
    EXPECT_EQ(tile->height, 20);
    ASSERT_EQ(tile->shapes.size(), 4U);
    EXPECT_EQ(tile->shapes[0].numbers, (std::vector<double>{0, 0, 13.92, -13.92}));
    for (const char* text : {"",
             "a\n1 1\n",
             "a\n0 1\ndot 1 1 1\n",
             "a\n1 401\ndot 1 1 1\n",
             "a\n1 1 1\ndot 1 1 1\n",
             "a\n1 1\ndot 1 1\n",
             "a\n1 1\ndot 1 1 nan\n",
             "a\n1 1\ndot 1 1 1e999\n",
             "a\n1 1\nline 1 1 2\n",
             "a\n1 1\nline 1,5 1 2 2\n",
             "a\n1 1\nring 1 1 2\n",
             "a\n1 1\ndot 1 1 1",
             "\xff\n1 1\ndot 1 1 1\n"})
        EXPECT_FALSE(readHatchTile(bytesOf(text))) << text;
}

// Each corner of an oval or a dot lies on it: as far from its two foci as it is long.
TEST(HatchOutline, RoundStrokesHaveTheirCornersAllRound)
{
    struct Case {
        HatchTile::Shape shape;
        double length;
        Spot firstFocus;
        Spot secondFocus;
        bool isFilled;
    };
    const double slope = 4 * std::sqrt(0.5);
    for (const Case& row : {Case{{HatchTile::Stroke::Dot, {5, 7, 3}}, 3, {5, 7}, {5, 7}, true},
             {{HatchTile::Stroke::Oval, {5, 7, 10, 6, 0}}, 10, {1, 7}, {9, 7}, false},
             {{HatchTile::Stroke::Oval, {0, 0, 6, 10, 0}}, 10, {0, -4}, {0, 4}, false},
             {{HatchTile::Stroke::Oval, {1, 2, 10, 6, 45}},
                 10,
                 {1 - slope, 2 - slope},
                 {1 + slope, 2 + slope},
                 false}}) {
        const HatchOutline outline = hatchOutline(row.shape, 12);
        EXPECT_TRUE(outline.isClosed);
        EXPECT_EQ(outline.isFilled, row.isFilled);
        ASSERT_EQ(outline.corners.size(), 12U);
        Spot middle;
        for (const Spot& corner : outline.corners) {
            const auto distance = [&corner](const Spot& to) {
                return std::hypot(corner.x - to.x, corner.y - to.y);
            };
            EXPECT_NEAR(distance(row.firstFocus) + distance(row.secondFocus), row.length, 1e-9);
            middle = {middle.x + corner.x / 12, middle.y + corner.y / 12};
        }
        EXPECT_NEAR(middle.x, row.shape.numbers[0], 1e-9);
        EXPECT_NEAR(middle.y, row.shape.numbers[1], 1e-9);
    }
}

TEST(HatchStrokes, LinesFillTheBoxAndStayInside)
{
    const Hatches hatches = hatchOf("a\n10 10\nline 0 5 10 5\n");
    const HatchStrokes strokes = hatchStrokes(boxOf(3, 0, 28, 40), hatches);
    EXPECT_NEAR(lengthOf(strokes), 25 * 4, 1e-6);
    for (const HatchStrokes::Segment& line : strokes.lines) {
        EXPECT_GE(std::min(line.from.x, line.to.x), 3 - 1e-9);
        EXPECT_LE(std::max(line.from.x, line.to.x), 28 + 1e-9);
    }
}

// Strokes that go on from tile to tile, in any direction and cut into any pieces, are lines from edge to
// edge.
TEST(HatchStrokes, StraightStrokesRunThroughTheTiles)
{
    struct Case {
        const char* tile;
        double lengthOfTile;
        std::size_t lines; // in a box of four by two tiles
    };
    const double slope = std::sqrt(2.0);
    const Case cases[] = {
        {"a\n10 10\nline 0 5 10 5\n", 10, 2},
        {"a\n10 10\nline 7 10 7 0\n", 10, 4},
        {"a\n10 10\nline 0 5 4 5\nline 10 5 4 5\n", 10, 2},
        {"a\n10 10\nline 0 5 20 5\n", 10, 2}, // lies over its own next
        {"a\n10 10\nline 0 0 10 10\n", 10 * slope, 5},
        {"a\n24 24\nline 0 12 12 0\nline 0 24 24 0\nline 12 24 24 12\n", 48 * slope, 11},
        {"a\n10 10\nline 0 0 10 20\n", std::hypot(10, 20), 9},
        {"a\n10 10\nline 2 5 8 5\n", 6, 8},
        {"a\n10 10\nline 2 5 5 5\nline 5 5 8 5\n", 6, 8},
        {"a\n10 10\nline 2 5 12 5 12 6\n", 11, 18}, // bends: stays a stroke of each tile
    };
    for (const Case& row : cases) {
        const Hatches hatches = hatchOf(row.tile);
        const double side = hatches.at(1).width;
        const HatchStrokes box = hatchStrokes(boxOf(0, 0, 4 * side, 2 * side), hatches);
        EXPECT_NEAR(lengthOf(box), 8 * row.lengthOfTile, 1e-6) << row.tile;
        EXPECT_EQ(box.lines.size(), row.lines) << row.tile;
        // The same with sides that are walked over, in halves.
        Area half = boxOf(0, 0, 4 * side, 2 * side);
        half.rings = {{{0, 0}, {4 * side, 0}, {0, 2 * side}}};
        const double upper = lengthOf(hatchStrokes(half, hatches));
        half.rings = {{{4 * side, 0}, {4 * side, 2 * side}, {0, 2 * side}}};
        EXPECT_NEAR(upper + lengthOf(hatchStrokes(half, hatches)), 8 * row.lengthOfTile, 1e-6) << row.tile;
        EXPECT_GT(upper, 0.3 * 8 * row.lengthOfTile) << row.tile;
    }
}

TEST(HatchStrokes, HolesStayFree)
{
    Area area = boxOf(0, 0, 20, 20);
    area.rings.push_back({{5, 0}, {15, 0}, {15, 20}, {5, 20}});
    EXPECT_NEAR(lengthOf(hatchStrokes(area, hatchOf("a\n10 10\nline 0 5 10 5\n"))), 20, 1e-6);
    // A triangle: what is above the slope is left out.
    area.rings = {{{0, 0}, {20, 20}, {0, 20}}};
    EXPECT_NEAR(lengthOf(hatchStrokes(area, hatchOf("a\n10 10\nline 0 5 10 5\n"))), 5 + 15, 1e-6);
}

TEST(HatchStrokes, TheUnitIsTheDensityAndTheOriginMovesTheTiles)
{
    const Hatches hatches = hatchOf("a\n10 10\nline 0 5 10 5\n");
    EXPECT_NEAR(lengthOf(hatchStrokes(boxOf(0, 0, 20, 20, 0.25), hatches)), 20 * 8, 1e-6);
    Area area = boxOf(0, 0, 20, 20);
    area.origin = {0, 5};
    const HatchStrokes moved = hatchStrokes(area, hatches);
    ASSERT_FALSE(moved.lines.empty());
    for (const HatchStrokes::Segment& line : moved.lines)
        EXPECT_NEAR(std::remainder(line.from.y, 10), 0, 1e-9);
}

TEST(HatchStrokes, DotsAreWholeOrNotThere)
{
    const Hatches hatches = hatchOf("a\n10 10\ndot 10 5 4\n");
    // The dots at the two edges are cut, that in the middle is whole.
    const HatchStrokes strokes = hatchStrokes(boxOf(0, 0, 20, 10), hatches);
    ASSERT_EQ(strokes.dots.size(), 1U);
    EXPECT_EQ(strokes.dots.front().radius, 2);
    EXPECT_EQ(strokes.dots.front().centres, (std::vector<Spot>{{10, 5}}));
    const HatchStrokes oval = hatchStrokes(boxOf(0, 0, 20, 10), hatchOf("a\n10 10\noval 5 5 4 4 0\n"));
    EXPECT_NEAR(lengthOf(oval), 2 * 3.14159 * 2 * 2, 0.2);
}

TEST(HatchStrokes, NonsenseLeavesNothing)
{
    const Hatches hatches = hatchOf("a\n10 10\nline 0 5 10 5\n");
    Area area = boxOf(0, 0, 20, 20);
    area.hatch = 2;
    EXPECT_TRUE(hatchStrokes(area, hatches).lines.empty());
    EXPECT_TRUE(hatchStrokes(boxOf(0, 0, 20, 20, 0), hatches).lines.empty());
    EXPECT_TRUE(hatchStrokes(boxOf(0, 0, 20, 20, 1e-9), hatches).lines.empty());
    EXPECT_TRUE(hatchStrokes(boxOf(0, 0, std::nan(""), 20), hatches).lines.empty());
    EXPECT_TRUE(hatchStrokes(boxOf(5, 5, 5, 5), hatches).lines.empty());
}
