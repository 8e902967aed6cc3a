// Clipping against the near and the far plane, in camera space.
#include "geometry/plane_clipping.h"
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

const TestView::Settings depths = {.nearZ = 2, .farZ = 10};

} // namespace

TEST_CASE("a triangle with one corner before the near plane becomes a quadrilateral, beginning with its second corner")
{
    const TestView view(depths);
    ScreenPolygon polygon = cameraPolygon({{4, 0, 4}, {0, 8, 8}, {0, 0, 0}}, view);
    clip<NearPlane, PositionsOnly>(&view.record, &polygon);

    // From (0, 0, 0) a quarter of the way to the second corner, and half of the way to the first.
    CHECK(valuesOf(polygon, polygon.viewX) == Values{0, 0, 2, 4});
    CHECK(valuesOf(polygon, polygon.viewY) == Values{8, 2, 0, 0});
    CHECK(valuesOf(polygon, polygon.viewZ) == Values{8, 2, 2, 4});
}

TEST_CASE("a first corner before the near plane: the outline begins with the cut of the first side")
{
    const TestView view(depths);
    ScreenPolygon polygon = cameraPolygon({{0, 0, 0}, {4, 0, 4}, {0, 8, 8}}, view);
    clip<NearPlane, PositionsOnly>(&view.record, &polygon);
    CHECK(valuesOf(polygon, polygon.viewX) == Values{2, 4, 0, 0});
    CHECK(valuesOf(polygon, polygon.viewY) == Values{0, 0, 8, 2});
    CHECK(valuesOf(polygon, polygon.viewZ) == Values{2, 4, 8, 2});
}

TEST_CASE("two corners before the near plane leave a triangle")
{
    const TestView view(depths);
    ScreenPolygon polygon = cameraPolygon({{0, 0, 0}, {0, 8, 0}, {8, 4, 8}}, view);
    clip<NearPlane, PositionsOnly>(&view.record, &polygon);
    // (1, 2): a quarter of the way from the second corner; then the third corner; then a quarter from the first.
    CHECK(valuesOf(polygon, polygon.viewX) == Values{2, 8, 2});
    CHECK(valuesOf(polygon, polygon.viewY) == Values{7, 4, 1});
    CHECK(valuesOf(polygon, polygon.viewZ) == Values{2, 8, 2});
}

TEST_CASE("a corner beyond the far plane is cut at the far distance")
{
    const TestView view(depths);
    ScreenPolygon polygon = cameraPolygon({{0, 0, 8}, {8, 0, 12}, {0, 8, 4}}, view);
    clip<FarPlane, PositionsOnly>(&view.record, &polygon);
    // Toward the first corner half of the way, toward the third a quarter: (10 - 12) / (4 - 12).
    CHECK(valuesOf(polygon, polygon.viewX) == Values{4, 6, 0, 0});
    CHECK(valuesOf(polygon, polygon.viewY) == Values{0, 2, 8, 0});
    CHECK(valuesOf(polygon, polygon.viewZ) == Values{10, 10, 4, 8});
}

TEST_CASE("a near cut keeps the far bit of its outside corner, never the near bit")
{
    const TestView view(depths);
    for (const u32 farBit : {u32{outcodeFar}, 0u}) {
        ScreenPolygon polygon = cameraPolygon({{0, 0, 4}, {0, 0, 8}, {0, 0, 0}}, view);
        polygon.outcode[2] = farBit; // the side bits of the outside corner play no part
        polygon.outcode[0] = polygon.outcode[1] = outcodeNear;
        clip<NearPlane, PositionsOnly>(&view.record, &polygon);
        const u32 sides = outcodeLeft | outcodeRight | outcodeTop | outcodeBottom;
        CHECK(outcodesOf(polygon) == std::vector<u32>{outcodeNear, farBit | sides, farBit | sides, outcodeNear});
    }
}

TEST_CASE("a far cut has side bits alone")
{
    const TestView view(depths);
    ScreenPolygon polygon = cameraPolygon({{0, 0, 8}, {0, 0, 4}, {0, 0, 12}}, view);
    clip<FarPlane, PositionsOnly>(&view.record, &polygon);
    const u32 sides = outcodeLeft | outcodeRight | outcodeTop | outcodeBottom;
    CHECK(outcodesOf(polygon) == std::vector<u32>{outcodeAll, sides, sides, outcodeAll});
}

TEST_CASE("the side bits of a near or far cut compare its X and Y with the distance, a value on the bound being inside")
{
    struct Expected {
        f32 x, y; // of the cut, in units of the plane's distance
        u32 bits;
    };
    const Expected table[] = {
        {0, 0, outcodeLeft | outcodeRight | outcodeTop | outcodeBottom},
        {-1, 0, outcodeLeft | outcodeRight | outcodeTop | outcodeBottom},
        {-1.5, 0, outcodeRight | outcodeTop | outcodeBottom},
        {1, 0, outcodeLeft | outcodeRight | outcodeTop | outcodeBottom},
        {1.5, 0, outcodeLeft | outcodeTop | outcodeBottom},
        {0, 1, outcodeLeft | outcodeRight | outcodeTop | outcodeBottom},
        {0, 1.5, outcodeLeft | outcodeRight | outcodeBottom},
        {0, -1, outcodeLeft | outcodeRight | outcodeTop | outcodeBottom},
        {0, -1.5, outcodeLeft | outcodeRight | outcodeTop},
        {2, 2, outcodeLeft | outcodeBottom},
        {-2, -2, outcodeRight | outcodeTop},
    };
    const TestView view(depths);
    for (const Expected& expected : table) {
        CAPTURE(expected.x);
        CAPTURE(expected.y);
        // The first two corners and the cut of the sides between them and the third share X and Y.
        const f32 nearX = expected.x * 2;
        const f32 nearY = expected.y * 2;
        ScreenPolygon atNear = cameraPolygon({{nearX, nearY, 4}, {nearX, nearY, 8}, {nearX, nearY, 0}}, view);
        atNear.outcode[2] = 0;
        clip<NearPlane, PositionsOnly>(&view.record, &atNear);
        CHECK(atNear.outcode[1] == expected.bits);

        const f32 farX = expected.x * 10;
        const f32 farY = expected.y * 10;
        ScreenPolygon atFar = cameraPolygon({{farX, farY, 8}, {farX, farY, 4}, {farX, farY, 12}}, view);
        clip<FarPlane, PositionsOnly>(&view.record, &atFar);
        CHECK(atFar.outcode[1] == expected.bits);
    }
}

TEST_CASE("near and far clipping leave the screen coordinates alone")
{
    const TestView view(depths);
    ScreenPolygon polygon = cameraPolygon({{4, 0, 4}, {0, 8, 8}, {0, 0, 0}}, view);
    for (i32 i = 0; i < maxCorners; ++i) polygon.screenX[i] = polygon.screenY[i] = polygon.invDepth[i] = 7;
    clip<NearPlane, PositionsOnly>(&view.record, &polygon);
    CHECK(valuesOf(polygon, polygon.screenX) == Values{7, 7, 7, 7});
    CHECK(valuesOf(polygon, polygon.screenY) == Values{7, 7, 7, 7});
    CHECK(valuesOf(polygon, polygon.invDepth) == Values{7, 7, 7, 7});
}
