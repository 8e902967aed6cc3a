// Where and how exactly depth is compared.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

#include <limits>

using namespace kardeno;
using namespace kardeno::tests;

static const TestView::Settings oneRow{.right = 30, .bottom = 1};

TEST_CASE("Intended: depths are compared one whole pixel right of the edge, not at it")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 1, 1);
    // Depth 0 at column 10, where it is entered, and 1 at column 11: as near as the wall, and entered last.
    ScreenPolygon& rising = scene.addRectangle(10, 0, 20, 1);
    setPlane(rising, 1, 0, -10);
    scene.resolve();
    CHECK(runsOf(rising) == Runs{{10, 20, 0}});
    CHECK(runsOf(wall) == Runs{{20, 25, 0}, {2, 10, 0}});
}

TEST_CASE("a polygon that is nearer at its edge but farther one pixel on is entered behind")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 1, 1);
    ScreenPolygon& falling = scene.addRectangle(10, 0, 20, 1);
    setPlane(falling, -1, 0, 11.75f); // 1.75 at column 10, 0.75 at column 11
    scene.resolve();
    CHECK(falling.spanHead == -1);
    CHECK(runsOf(wall) == Runs{{2, 25, 0}});
}

TEST_CASE("the sample lies right of the edge itself, not of its column")
{
    SpanScene scene(oneRow);
    scene.addRectangle(2, 0, 25, 1, 1);
    // The edge is at 10.5, the sample at 11.5: 1 there, 0.5 at 11.
    ScreenPolygon& rising = scene.addRectangle(10.5f, 0, 20, 1);
    setPlane(rising, 1, 0, -10.5f);
    scene.resolve();
    CHECK(runsOf(rising) == Runs{{10, 20, 0}});
}

TEST_CASE("the polygons passed on the way down the stack are taken at the same sample point")
{
    SpanScene scene(oneRow);
    ScreenPolygon& falling = scene.addRectangle(2, 0, 25, 1);
    setPlane(falling, -1, 0, 12); // 2 at column 10, 1 at column 11
    const ScreenPolygon& entered = scene.addRectangle(10, 0, 20, 1, 1.5f);
    scene.resolve();
    CHECK(runsOf(entered) == Runs{{10, 20, 0}});
}

TEST_CASE("the order on a row is decided at the entry and not revised where planes cross")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 1, 5);
    ScreenPolygon& rising = scene.addRectangle(4, 0, 20, 1);
    setPlane(rising, 1, 0, 0); // nearer than the wall from column 5 on, and 5 at the sample: in front
    ScreenPolygon& late = scene.addRectangle(3, 0, 20, 1);
    setPlane(late, 1, 0, 0); // 4 at its sample: behind, though it is nearer from column 5 on
    scene.resolve();
    CHECK(late.spanHead == -1);
    CHECK(runsOf(rising) == Runs{{4, 20, 0}});
    CHECK(runsOf(wall) == Runs{{20, 25, 0}, {2, 4, 0}});
}

TEST_CASE("the row of the sample is the view's top, its fraction kept, plus the rows walked")
{
    SpanScene scene({.top = 0.5f, .right = 30, .bottom = 3});
    scene.addRectangle(2, 0, 25, 3, 1.25f);
    ScreenPolygon& rising = scene.addRectangle(10, 0, 20, 3);
    setPlane(rising, 0, 1, 0); // 0.5, 1.5, 2.5
    scene.resolve();
    CHECK(runsOf(rising) == Runs{{10, 20, 2}, {10, 20, 1}});
}

TEST_CASE("the sample's column is rounded to single precision")
{
    SpanScene scene({.right = 400, .bottom = 2});
    // Row 1: the edge has stepped to 300 + 65,535 / 65,536. One pixel on, 301.99998474 has a bit too many for a
    // single-precision number and rounds to 302.
    ScreenPolygon& slanted = scene.add({{300, 0}, {300 + 65535.0f / 32768, 2}, {350, 2}, {350, 0}});
    setPlane(slanted, 65536, 0, -65536.0f * 301); // 65,536 at 302, 65,535 at the exact sample
    const ScreenPolygon& wall = scene.addRectangle(100, 0, 380, 2, 65535.5f);
    scene.resolve();
    CHECK(EdgePool.edges[0].xStep == 65535);
    CHECK(runsOf(slanted, 1) == Runs{{300, 350, 1}});
    CHECK(runsOf(wall, 0) == Runs{{100, 380, 0}}); // row 0: 0 at 301
}

TEST_CASE("the entering polygon's depth is rounded to single precision before it is compared")
{
    SpanScene scene(oneRow);
    scene.addRectangle(2, 0, 25, 1, 1);
    ScreenPolygon& entered = scene.addRectangle(7, 0, 20, 1);
    setPlane(entered, -1.0f / 8589934592, 0, 1); // 1 - 2^-30 at column 8, which rounds to 1
    scene.resolve();
    CHECK(runsOf(entered) == Runs{{7, 20, 0}});
}

TEST_CASE("the depths that it is compared with are not rounded")
{
    SpanScene scene(oneRow);
    ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 1);
    setPlane(wall, 1.0f / 8589934592, 0, 1); // 1 + 2^-30 at column 8
    const ScreenPolygon& entered = scene.addRectangle(7, 0, 20, 1, 1);
    scene.resolve();
    CHECK(entered.spanHead == -1);
    CHECK(runsOf(wall) == Runs{{2, 25, 0}});
}

TEST_CASE("a polygon whose depth is no number is entered on top of the stack")
{
    SpanScene scene(oneRow);
    scene.addRectangle(2, 0, 25, 1, 1000);
    const ScreenPolygon& broken = scene.addRectangle(5, 0, 10, 1, __builtin_nanf(""));
    scene.resolve();
    CHECK(runsOf(broken) == Runs{{5, 10, 0}});
}

TEST_CASE("a polygon whose depth is no number is never passed on the way down")
{
    SpanScene scene(oneRow);
    scene.addRectangle(2, 0, 25, 1, __builtin_nanf(""));
    const ScreenPolygon& entered = scene.addRectangle(5, 0, 10, 1, -1000);
    scene.resolve();
    CHECK(runsOf(entered) == Runs{{5, 10, 0}});
}

TEST_CASE("the walk down the stack ends at the background, however far away a polygon is")
{
    const f32 infinity = std::numeric_limits<f32>::infinity();
    for (const f32 depth : {-1000000.0f, -1000001.0f, -3e38f, -infinity}) {
        CAPTURE(depth);
        SpanScene scene(oneRow);
        const ScreenPolygon& far = scene.addRectangle(5, 0, 15, 1, depth);
        const ScreenPolygon& near = scene.addRectangle(8, 0, 10, 1, 0);
        scene.resolve();
        CHECK(runsOf(near) == Runs{{8, 10, 0}});
        CHECK(runsOf(far) == Runs{{10, 15, 0}, {5, 8, 0}});
        CHECK(runsOf(BackgroundPolygon) == Runs{{15, 30, 0}, {0, 5, 0}});
    }
}

TEST_CASE("an infinitely near polygon hides all others")
{
    SpanScene scene(oneRow);
    const ScreenPolygon& wall = scene.addRectangle(2, 0, 25, 1, 1);
    const ScreenPolygon& near = scene.addRectangle(5, 0, 10, 1, std::numeric_limits<f32>::infinity());
    const ScreenPolygon& later = scene.addRectangle(7, 0, 9, 1, 1000);
    scene.resolve();
    CHECK(runsOf(near) == Runs{{5, 10, 0}});
    CHECK(later.spanHead == -1);
    CHECK(runsOf(wall) == Runs{{10, 25, 0}, {2, 5, 0}});
}
