#include "drawing/hit_test.h"

#include <gtest/gtest.h>

TEST(HitTest, FindsTheUppermostThingWithAnId)
{
    Drawing drawing;
    Area area;
    area.rings = {{{0, 0}, {20, 0}, {20, 20}, {0, 20}}, {{5, 5}, {15, 5}, {15, 15}, {5, 15}}};
    drawing.items.push_back({Layer::Ground, 1, area});
    drawing.items.push_back({Layer::Text, 2, Text{L"12", {1, 4}, 2}});
    drawing.items.push_back({Layer::Boundary, 3, Line{{{0, 18}, {20, 18}}, {}, false}});
    drawing.items.push_back({Layer::Element, 4, Circle{{30, 10}, 3}});
    drawing.items.push_back({Layer::Frame, 0, Line{{{0, 0}, {40, 40}}, {}, false}});
    const struct {
        Spot place;
        std::int64_t id;
    } rows[] = {{{18, 10}, 1},
        {{10, 10}, 0},
        {{1.5, 3}, 2},
        {{10, 18.4}, 3},
        {{10, 17}, 1},
        {{33.3, 10}, 4},
        {{35, 35}, 0}};
    for (const auto& row : rows)
        EXPECT_EQ(idAt(drawing, row.place, 0.5), row.id) << row.place.x << ' ' << row.place.y;
    EXPECT_EQ(extentOf(drawing, 4), (Extent{27, 7, 33, 13}));
    EXPECT_FALSE(extentOf(drawing, 9));
}
