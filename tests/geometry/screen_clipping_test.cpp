// Clipping against the four sides of the drawn rectangle.
#include "geometry/plane_clipping.h"
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

const TestView::Settings rectangle = {.left = 16, .top = 8, .right = 320, .bottom = 200};

} // namespace

TEST_CASE("a square half across the right edge is cut exactly at the edge, starting from its second corner")
{
    const TestView view(rectangle);
    ScreenPolygon square = screenPolygon({{300, 50}, {300, 90}, {340, 90}, {340, 50}}, view);
    square.invDepth[2] = 0.5f;
    square.invDepth[3] = 0.25f;
    clip<RightPlane, PositionsOnly>(&view.record, &square);
    CHECK(corners(square) == Corners{{300, 90}, {320, 90}, {320, 50}, {300, 50}});
    // Halfway between the ends of each side.
    CHECK(valuesOf(square, square.invDepth) == Values{1, 0.75f, 0.625f, 1});
}

TEST_CASE("a square half across the left edge is cut exactly at the edge")
{
    const TestView view(rectangle);
    ScreenPolygon square = screenPolygon({{0, 50}, {0, 90}, {32, 90}, {32, 50}}, view);
    square.invDepth[0] = 0.5f;
    clip<LeftPlane, PositionsOnly>(&view.record, &square);
    CHECK(corners(square) == Corners{{16, 90}, {32, 90}, {32, 50}, {16, 50}});
    CHECK(valuesOf(square, square.invDepth) == Values{1, 1, 1, 0.75f});
}

TEST_CASE("a square across the bottom edge is cut exactly at the edge")
{
    const TestView view(rectangle);
    ScreenPolygon square = screenPolygon({{40, 196}, {40, 212}, {80, 212}, {80, 196}}, view);
    square.invDepth[1] = 0.5f;
    clip<BottomPlane, PositionsOnly>(&view.record, &square);
    CHECK(corners(square) == Corners{{40, 200}, {80, 200}, {80, 196}, {40, 196}});
    // (200 - 212) / (196 - 212) = 3/4 of the way from the outside corner to the inside one.
    CHECK(valuesOf(square, square.invDepth) == Values{0.875f, 1, 1, 1});
}

TEST_CASE("a square across the top edge is cut exactly at the edge")
{
    const TestView view(rectangle);
    ScreenPolygon square = screenPolygon({{40, 4}, {40, 20}, {80, 20}, {80, 4}}, view);
    square.invDepth[0] = 0.5f;
    clip<TopPlane, PositionsOnly>(&view.record, &square);
    CHECK(corners(square) == Corners{{40, 8}, {40, 20}, {80, 20}, {80, 8}});
    // (8 - 4) / (20 - 4) = 1/4 of the way.
    CHECK(valuesOf(square, square.invDepth) == Values{0.625f, 1, 1, 1});
}

TEST_CASE("slanted sides are cut where they meet the edge")
{
    const TestView view(rectangle);
    ScreenPolygon right = screenPolygon({{304, 40}, {336, 56}, {312, 80}}, view);
    clip<RightPlane, PositionsOnly>(&view.record, &right);
    // Toward (304, 40) half of the way, toward (312, 80) two thirds: 56 + 24 x 2/3.
    CHECK(corners(right) == Corners{{320, 48}, {320, 72}, {312, 80}, {304, 40}});

    ScreenPolygon top = screenPolygon({{100, 12}, {132, 4}, {164, 20}}, view);
    clip<TopPlane, PositionsOnly>(&view.record, &top);
    CHECK(corners(top) == Corners{{116, 8}, {140, 8}, {164, 20}, {100, 12}});
}

TEST_CASE("cuts of the right and left edges get the bits that the clippers after them test")
{
    const TestView view(rectangle);
    struct Expected {
        f32 y;
        u32 rows;
    };
    const Expected table[] = {
        {100, outcodeTop | outcodeBottom}, {8, outcodeTop | outcodeBottom}, {7.75f, outcodeBottom},
        {200, outcodeTop | outcodeBottom}, {200.25f, outcodeTop},
    };
    for (const Expected& expected : table) {
        CAPTURE(expected.y);
        ScreenPolygon right = screenPolygon({{304, expected.y}, {312, expected.y}, {336, expected.y}}, view);
        clip<RightPlane, PositionsOnly>(&view.record, &right);
        REQUIRE(right.vertexCount == 4);
        CHECK(right.outcode[1] == (outcodeLeft | expected.rows));
        CHECK(right.outcode[2] == (outcodeLeft | expected.rows));

        ScreenPolygon left = screenPolygon({{32, expected.y}, {24, expected.y}, {0, expected.y}}, view);
        clip<LeftPlane, PositionsOnly>(&view.record, &left);
        REQUIRE(left.vertexCount == 4);
        CHECK(left.outcode[1] == expected.rows);
        CHECK(left.outcode[2] == expected.rows);
    }
}

TEST_CASE("cuts of the bottom edge get the top bit alone, whatever their coordinates")
{
    const TestView view(rectangle);
    ScreenPolygon polygon = screenPolygon({{-50, 100}, {400, 100}, {400, 300}}, view);
    clip<BottomPlane, PositionsOnly>(&view.record, &polygon);
    REQUIRE(polygon.vertexCount == 4);
    CHECK(polygon.outcode[1] == outcodeTop);
    CHECK(polygon.outcode[2] == outcodeTop);
}

TEST_CASE("a corner keeps its stored outcode through a clipper, also where it lies on the bound")
{
    const TestView view(rectangle);
    ScreenPolygon polygon = screenPolygon({{320, 50}, {300, 90}, {340, 90}}, view);
    polygon.outcode[1] = outcodeRight | 0x1234500; // nothing else of it is looked at
    clip<RightPlane, PositionsOnly>(&view.record, &polygon);
    CHECK(corners(polygon) == Corners{{300, 90}, {320, 90}, {320, 50}, {320, 50}});
    CHECK(polygon.outcode[0] == (outcodeRight | 0x1234500));
    CHECK(polygon.outcode[3] == screenOutcode(view.record, 320, 50));
}

TEST_CASE("inside is what the stored bit says, not what the coordinates say")
{
    const TestView view(rectangle);
    // On the bound, but stored as outside: both of its sides are cut, right there.
    ScreenPolygon onBound = screenPolygon({{300, 50}, {300, 90}, {320, 70}}, view);
    onBound.outcode[2] &= ~u32{outcodeRight};
    clip<RightPlane, PositionsOnly>(&view.record, &onBound);
    CHECK(corners(onBound) == Corners{{300, 90}, {320, 70}, {320, 70}, {300, 50}});

    // Beyond the bound, but stored as inside: stays.
    ScreenPolygon beyond = screenPolygon({{300, 50}, {300, 90}, {400, 70}}, view);
    beyond.outcode[2] |= outcodeRight;
    clip<RightPlane, PositionsOnly>(&view.record, &beyond);
    CHECK(corners(beyond) == Corners{{300, 90}, {400, 70}, {300, 50}});
}

TEST_CASE("clipping again against the same edge gives the same corners, rotated by one")
{
    const TestView view(rectangle);
    ScreenPolygon polygon = screenPolygon({{300, 50}, {300, 90}, {310, 90}, {312, 60}}, view);
    clip<RightPlane, PositionsOnly>(&view.record, &polygon);
    CHECK(corners(polygon) == Corners{{300, 90}, {310, 90}, {312, 60}, {300, 50}});
    clip<RightPlane, PositionsOnly>(&view.record, &polygon);
    CHECK(corners(polygon) == Corners{{310, 90}, {312, 60}, {300, 50}, {300, 90}});
}

TEST_CASE("an outline with no corner inside comes back empty")
{
    const TestView view(rectangle);
    ScreenPolygon polygon = screenPolygon({{330, 50}, {330, 90}, {340, 90}}, view);
    clip<RightPlane, PositionsOnly>(&view.record, &polygon);
    CHECK(polygon.vertexCount == 0);
}

TEST_CASE("the screen clippers leave the camera-space position alone")
{
    const TestView view(rectangle);
    ScreenPolygon square = screenPolygon({{300, 50}, {300, 90}, {340, 90}, {340, 50}}, view);
    for (i32 i = 0; i < maxCorners; ++i) square.viewX[i] = square.viewY[i] = square.viewZ[i] = static_cast<f32>(i);
    clip<RightPlane, PositionsOnly>(&view.record, &square);
    CHECK(valuesOf(square, square.viewX) == Values{0, 1, 2, 3});
    CHECK(valuesOf(square, square.viewY) == Values{0, 1, 2, 3});
    CHECK(valuesOf(square, square.viewZ) == Values{0, 1, 2, 3});
}
