// Where a cut and a projection are rounded: the products in f64, in the order in which they stand, and the sum to f32
// once.
#include "geometry/plane_clipping.h"
#include "geometry/projection.h"
#include "tests/geometry/one_face.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE(
    "a cut is difference times distance, times the inverse, plus where it starts: nothing is rounded to f32 before")
{
    // From x = -1 at depth 0 to x = 7 / 2^25 + 1 / 2^31 at depth 3, cut at 3 - 3 / 2^22. With D = 1 + 7/2^25 + 1/2^31:
    //
    //   D x distance           = 3 - 3/2^25 + 3/2^31 - 21/2^47 - 3/2^53, to the spacing 1/2^51 there:
    //                            3 - 3/2^25 + 3/2^31 - 21/2^47 - 1/2^51
    //   inverse                = 11184811 / 2^25 = (1 + 1/2^25) / 3, the f32 next to 1/3
    //   product                = 1 + 1/2^31 - (224 + 4 + 2/3 - 1/16) / 2^52, to the spacing 1/2^52 there:
    //                            1 + 1/2^31 - 229/2^52
    //   plus -1                = (2^21 - 229) / 2^52, which is an f32
    //
    // The exact product ends in 228.44: distance x inverse first, or D x inverse first (whose own rounding adds 0.19),
    // gives 228. A product that is rounded to f32 is 1 and leaves nothing.
    constexpr f32 farEnd = 449.0f / 2147483648.0f;
    const TestView view({.nearZ = 3 - 3.0f / 4194304, .farZ = 10});
    ScreenPolygon polygon = cameraPolygon({{-1, farEnd, 0}, {farEnd, -1, 3}, {0, 0, 4}}, view);
    polygon.viewY[0] = -1;
    polygon.viewY[1] = farEnd;
    clip<NearPlane, PositionsOnly>(&view.record, &polygon);

    REQUIRE(polygon.vertexCount == 4);
    constexpr f32 expected = (2097152 - 229) / 4503599627370496.0f; // 2^52
    CHECK(polygon.viewX[0] == expected);
    CHECK(polygon.viewY[0] == expected);
}

TEST_CASE("the products of a projection are rounded to f32 only after the centre was added")
{
    // (1 + 2^-12) squared is 1 + 2^-11 + 2^-24: one bit too many for an f32, and no more once the 1 is gone. Rounded
    // before, it would be 1 + 2^-11.
    constexpr f32 factor = 1 + 1.0f / 4096;
    constexpr f32 expected = 1.0f / 2048 + 1.0f / 16777216;
    const TestView view({.centreX = -1, .centreY = 1, .scaleX = factor, .scaleY = factor});
    const ScreenVertex vertex = projected(view.projection, {factor, factor, 1});
    CHECK(vertex.x == expected);
    CHECK(vertex.y == -expected);
}
