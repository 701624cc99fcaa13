#include "core/base/reference.h"
#include "section/gl_arc.h"
#include "section/gl_circle.h"
#include "section/gl_ellipse.h"
#include "section/gl_line.h"
#include "section/gl_plane.h"
#include "section/gl_polygon.h"
#include "section/gl_polyline.h"
#include "section/gl_spline.h"
#include "section/gl_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace
{

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();

Reference<GLPolyLineDB> polyline(std::vector<Vec3> points, bool closed = false)
{
    GLPolyLineData data;
    data.points = std::move(points);
    data.closed = closed;
    return makeReference<GLPolyLineDB>(std::move(data), Uuid(), L"", Uuid());
}

Reference<GLEllipseDB> ellipse(float radiusX, float radiusY, const Vec3& center = {})
{
    return makeReference<GLEllipseDB>(GLEllipseData{center, {}, radiusX, radiusY}, Uuid(), L"", Uuid());
}

Reference<GLPlaneDB> plane(const Vec3& a, const Vec3& b, const Vec3& c)
{
    return makeReference<GLPlaneDB>(GLPlaneData{a, b, c}, Uuid(), L"", Uuid());
}

void expectNear(const GLPolyLineDB::Quad& quad, const GLPolyLineDB::Quad& wanted)
{
    for (std::size_t i = 0; i < quad.size(); ++i) {
        EXPECT_NEAR(quad[i].x, wanted[i].x, 1e-5F) << i;
        EXPECT_NEAR(quad[i].y, wanted[i].y, 1e-5F) << i;
        EXPECT_EQ(quad[i].z, wanted[i].z) << i;
    }
}

} // namespace

TEST(Vertical, HoldsForDistinctEndsOneAboveTheOther)
{
    struct Case {
        Vec3 from;
        Vec3 to;
        bool vertical;
    };
    for (const Case& row : std::vector<Case>{
             {{3, 0, 0}, {3, 5, 0}, true},
             {{0, 5, 0}, {9e-6F, 0, 0}, true},
             {{0, 5, 0}, {-9e-6F, 0, 0}, true},
             {{0, 5, 0}, {1e-5F, 0, 0}, false},
             {{3, 5, 0}, {3, 5, 0}, false},
             // One above the other in depth of the drawing only.
             {{3, 5, 0}, {3, 5, 8}, false},
             {{3, 5, 0}, {3, 5.0001F, 0}, true},
         }) {
        SCOPED_TRACE(testing::Message() << row.to.x << ' ' << row.to.y << ' ' << row.to.z);
        const auto line =
            makeReference<GLLineDB>(GLLineData{0, row.from, row.to, {}, 1}, Uuid(), L"", Uuid());
        EXPECT_EQ(line->vertical(), row.vertical);
        EXPECT_EQ(polyline({row.from, row.to})->vertical(), row.vertical);
        EXPECT_FALSE(polyline({row.from, row.to}, true)->vertical()) << "three points are stored";
    }
    EXPECT_FALSE(polyline({{1, 0, 0}, {1, 1, 0}, {1, 2, 0}})->vertical());
}

TEST(PolylineQuads, OneForEachSegmentThatHasALength)
{
    const Vec3 a{0, 0, 0};
    const Vec3 b{1, 0, 0};
    const Vec3 aboveB{1, 0, 1};
    const Vec3 c{2, 2, 0};
    const Vec3 nowhere{notANumber, 0, 0};
    struct Case {
        std::vector<Vec3> points;
        bool closed;
        std::size_t stored;
        std::size_t quads;
    };
    for (const Case& row : std::vector<Case>{
             {{}, false, 0, 0},
             {{}, true, 0, 0},
             {{a}, false, 1, 0},
             {{a}, true, 2, 0},
             {{a, b}, false, 2, 0},
             {{a, b}, true, 3, 0},
             {{a, b, c}, false, 3, 2},
             // The segment that closes the line has none.
             {{a, b, c}, true, 4, 2},
             {{a, b, b, c}, false, 4, 2},
             {{a, a, a}, false, 3, 0},
             {{a, b, aboveB, c}, false, 4, 3},
             // What is no number is like nothing, itself included.
             {{a, nowhere, nowhere}, false, 3, 2},
         }) {
        SCOPED_TRACE(testing::Message() << row.points.size() << " points, closed " << row.closed);
        const auto line = polyline(row.points, row.closed);
        EXPECT_EQ(line->points().size(), row.stored);
        EXPECT_EQ(line->quads().size(), row.quads);
        if (row.stored > row.points.size()) {
            EXPECT_EQ(line->points().back(), row.points.front());
        }
        EXPECT_FALSE(row.points.size() < 2 && line->vertical()) << "both its ends are one";
    }
    // Behind a repeated point the next segment starts there.
    EXPECT_EQ(polyline({a, b, b, c})->quads()[1], polyline({a, b, c})->quads()[1]);
}

TEST(PolylineQuads, AreAsWideAsTheLengthAsks)
{
    // The third point only makes it a line with bands.
    const auto quad = [](const Vec3& p, const Vec3& q) { return polyline({p, q, q})->quads().at(0); };
    // Exactly 5 long is short: half as wide as long, each end turned by a right angle.
    const GLPolyLineDB::Quad square{{{4, -3, 0}, {7, 1, 0}, {-1, 7, 0}, {-4, 3, 0}}};
    EXPECT_EQ(quad({0, 0, 0}, {3, 4, 0}), square);
    expectNear(quad({0, 0, 0}, {3, 4.001F, 0}),
        {{{0.08002F, -0.06F, 0}, {3.08002F, 3.941F, 0}, {2.91998F, 4.061F, 0}, {-0.08002F, 0.06F, 0}}});
    // The third coordinate counts for the length alone.
    expectNear(quad({0, 0, 3}, {3, 4, 4}),
        {{{0.08F, -0.06F, 3}, {3.08F, 3.94F, 4}, {2.92F, 4.06F, 4}, {-0.08F, 0.06F, 3}}});
    // A length that is no number counts as long.
    EXPECT_NEAR(quad({0, 0, notANumber}, {3, 4, 4})[0].x, 0.08F, 1e-5F);
    expectNear(quad({2, 0, 3}, {2, 10, 4}), {{{2.05F, 0, 3}, {2.05F, 10, 4}, {1.95F, 10, 4}, {1.95F, 0, 3}}});
    expectNear(quad({10, 2, 0}, {0, 2, 0}), {{{10, 2.2F, 0}, {0, 2.2F, 0}, {0, 1.8F, 0}, {10, 1.8F, 0}}});
}

TEST(EllipseOutline, WalksInWholeUnits)
{
    struct Step {
        float x;
        float y;
    };
    struct Case {
        float radiusX;
        float radiusY;
        std::vector<Step> steps;
    };
    // Worked out by hand.
    for (const Case& row : std::vector<Case>{
             {1, 1, {{0, 1}, {1, 1}, {1, 0}}},
             {2, 1, {{0, 1}, {1, 1}, {2, 0}}},
             {3, 2, {{0, 2}, {1, 2}, {2, 2}, {3, 1}, {3, 0}}},
             // Below the turn the decision starts at a quarter, which rounds to nothing.
             {6, 5, {{0, 5}, {1, 5}, {2, 5}, {3, 4}, {4, 4}, {5, 3}, {6, 2}, {6, 1}, {6, 0}}},
             {4, 4, {{0, 4}, {1, 4}, {2, 3}, {3, 3}, {3, 2}, {4, 1}, {4, 0}}},
             {1.5F, 1.5F, {{0, 1.5F}, {1, 1.5F}, {2, 0.5F}, {2, -0.5F}}},
             {0, 2, {{0, 2}, {0, 1}, {0, 0}}},
             {2, 0, {{0, 0}}},
             // The walk ends where less than 1e-5 is left of the way down, not at nothing.
             {0, 1 + 5e-6F, {{0, 1 + 5e-6F}, {1, 1 + 5e-6F - 1}}},
             {0, 1 + 5e-5F, {{0, 1 + 5e-5F}, {1, 1 + 5e-5F - 1}, {1, 1 + 5e-5F - 2}}},
         }) {
        SCOPED_TRACE(testing::Message() << row.radiusX << " by " << row.radiusY);
        std::vector<Vec3> wanted;
        for (const Step& step : row.steps)
            wanted.insert(wanted.end(),
                {{10 + step.x, 20 + step.y, 0},
                    {10 - step.x, 20 + step.y, 0},
                    {10 + step.x, 20 - step.y, 0},
                    {10 - step.x, 20 - step.y, 0}});
        EXPECT_EQ(ellipse(row.radiusX, row.radiusY, {10, 20, 30})->outline(), wanted);
    }
}

TEST(EllipseOutline, EndsForEveryRadius)
{
    const float largest = GLEllipseDB::largestOutlineRadius;
    const std::vector<std::array<float, 2>> longest{{largest, largest},
        {largest, 1},
        {largest, 0.3F},
        {1, largest},
        {1e-20F, largest},
        {-largest, -largest}};
    for (const auto& [radiusX, radiusY] : longest) {
        const auto tall = ellipse(radiusX, radiusY);
        EXPECT_FALSE(tall->outline().empty()) << radiusX << " by " << radiusY;
        // No more steps than units along both radii, four points a step.
        EXPECT_LE(static_cast<float>(tall->outline().size()), 8 * (largest + 1));
    }
    const float beyond = std::nextafter(largest, infinity);
    for (const float radius : {beyond, -beyond, 16777216.0F, infinity, notANumber}) {
        EXPECT_TRUE(ellipse(radius, 1)->outline().empty()) << radius;
        EXPECT_TRUE(ellipse(1, radius)->outline().empty()) << radius;
    }
    // Where the ellipse stands has no part in it.
    const auto nowhere = ellipse(1, 1, {notANumber, infinity, 0});
    ASSERT_EQ(nowhere->outline().size(), 12U);
    EXPECT_TRUE(std::isnan(nowhere->outline()[0].x));
    EXPECT_EQ(nowhere->outline()[0].y, infinity);
}

TEST(Plane, NormalDistanceAndBoundsFollowFromTheCorners)
{
    const auto level = plane({4, 1, 2}, {6, 1, 2}, {5, -3, 2});
    EXPECT_EQ(level->normal, (Vec3{0, 0, -1})) << "the corners run clockwise";
    EXPECT_EQ(level->distance, -2);
    EXPECT_EQ(level->minX, 4);
    EXPECT_EQ(level->maxX, 6);
    EXPECT_EQ(level->minY, -3);
    EXPECT_EQ(level->maxY, 1);
    // Each corner can be the outermost one.
    for (const auto& turned : {plane({0, 3, 0}, {1, 1, 0}, {3, 0, 0}),
             plane({1, 1, 0}, {3, 0, 0}, {0, 3, 0}),
             plane({3, 0, 0}, {0, 3, 0}, {1, 1, 0})})
        EXPECT_TRUE(turned->minX == 0 && turned->maxX == 3 && turned->minY == 0 && turned->maxY == 3);

    const auto upright = plane({0, 7, 1}, {2, 7, 1}, {0, 7, 3});
    EXPECT_EQ(upright->normal, (Vec3{0, -1, 0}));
    EXPECT_EQ(upright->distance, -7);

    const auto slope = plane({1, 0, 0}, {0, 1, 0}, {0, 0, 1});
    EXPECT_FLOAT_EQ(slope->normal.x, 1 / std::sqrt(3.0F));
    EXPECT_FLOAT_EQ(slope->normal.y, slope->normal.x);
    EXPECT_FLOAT_EQ(slope->normal.z, slope->normal.x);
    EXPECT_FLOAT_EQ(slope->distance, slope->normal.x);
}

TEST(Plane, CornersInALineKeepTheirShortNormal)
{
    EXPECT_EQ(plane({0, 0, 0}, {1, 1, 1}, {2, 2, 2})->normal, Vec3());
    EXPECT_EQ(plane({3, 0, 0}, {4, 0, 0}, {3, 8e-6F, 0})->normal, (Vec3{0, 0, 8e-6F}));
    EXPECT_EQ(plane({3, 0, 0}, {4, 0, 0}, {3, 2e-5F, 0})->normal, (Vec3{0, 0, 1}));
}

template <class Object, class Data>
static void expectOwnColour(const Data& data, const Vec3& given)
{
    const Uuid id{{1, 2, 3, 4}};
    const Uuid link{{5, 6, 7, 8}};
    const auto object = makeReference<Object>(data, id, L"имя", link);
    GLObjectDB& base = *object;
    EXPECT_EQ(base.getColor(), given);
    base.setColor({0.25F, 0.5F, 0.75F});
    EXPECT_EQ(base.getColor(), (Vec3{0.25F, 0.5F, 0.75F}));
    EXPECT_EQ(base.objectState, 1);
    EXPECT_EQ(base.stateBytes, (std::array<std::uint8_t, 3>{}));
    EXPECT_EQ(base.getId(), id);
    EXPECT_EQ(base.getLinkId(), link);
    EXPECT_EQ(base.getName(), L"имя");
}

TEST(DrawingObjects, HaveAColourOfTheirOwnAndBeginInStateOne)
{
    const Vec3 given{0.1F, 0.2F, 0.3F};
    const auto coloured = [&given](auto data) {
        data.color = given;
        return data;
    };
    expectOwnColour<GLLineDB>(coloured(GLLineData{}), given);
    expectOwnColour<GLTextDB>(coloured(GLTextData{}), given);
    expectOwnColour<GLPolygonDB>(coloured(GLPolygonData{}), given);
    expectOwnColour<GLPolyLineDB>(coloured(GLPolyLineData{}), given);
    expectOwnColour<GLCircleDB>(coloured(GLCircleData{}), given);
    expectOwnColour<GLSplineDB>(coloured(GLSplineData{}), given);
    expectOwnColour<GLEllipseDB>(coloured(GLEllipseData{}), given);
    expectOwnColour<GLArcDB>(coloured(GLArcData{}), given);
    expectOwnColour<GLPlaneDB>(GLPlaneData{}, Vec3{});
}
