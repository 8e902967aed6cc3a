// The span pool filling up while rows are resolved.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

// Three spans a row: the background left and right of a post. 4,096 spans are 1,365 rows and one span.
static const TestView::Settings tall{.right = 30, .bottom = 2000};

TEST_CASE("a pool that grows in mid-frame leaves every list whole")
{
    SpanScene scene(tall);
    const ScreenPolygon& post = scene.addRectangle(10, 0, 20, 2000);
    scene.resolve();

    CHECK(SpanPool.count == 6000);
    CHECK(SpanPool.capacity == 8192);
    const Runs runs = runsOf(post);
    REQUIRE(runs.size() == 2000);
    for (i32 i = 0; i < 2000; ++i) REQUIRE(runs[static_cast<size_t>(i)] == Run{10, 20, 1999 - i});
    CHECK(runsOf(BackgroundPolygon).size() == 4000);
}

TEST_CASE("a refused growth ends the resolution at once; the spans made so far stay")
{
    SpanScene scene(tall);
    const ScreenPolygon& post = scene.addRectangle(10, 0, 20, 2000);
    scene.host.refuse(3); // after the edges' and the spans' first blocks
    scene.resolve();

    CHECK(SpanPool.count == 4096);
    CHECK(background(1365) == Runs{{0, 10, 1365}}); // the 4,096th; the post's own run was the next
    CHECK(runsOf(post).front() == Run{10, 20, 1364});
    CHECK(runsOf(post).size() == 1365);
    CHECK(background(1366).empty());
    CHECK(scene.host.calls.size() == 3); // it is not asked for again
}

TEST_CASE("no row is walked after a refused growth, though the stored capacity says that there is room")
{
    SpanScene scene(tall);
    const ScreenPolygon& post = scene.addRectangle(10, 0, 20, 2000);
    // Two runs more on row 0: the growth is refused to the last run of row 1,364, with no polygon entered.
    scene.addRectangle(25, 0, 28, 1);
    scene.host.refuse(3);
    scene.resolve();

    CHECK(SpanPool.capacity == 8192);
    CHECK(SpanPool.count == 4096);
    CHECK(background(1364) == Runs{{0, 10, 1364}});
    CHECK(runsOf(post).front() == Run{10, 20, 1364});
    CHECK(background(1365).empty());
}

TEST_CASE("a refusal while a polygon is entered leaves no trace in the next frame")
{
    // 4 spans a row, so that the 4,096th is the last of row 1,023. The first of row 1,024 is the glass's, closed when
    // the front polygon is entered.
    SpanScene scene(tall);
    const ScreenPolygon& wall = scene.addRectangle(0, 0, 30, 2000, 1);
    const ScreenPolygon& glass = scene.addSeeThrough(4, 0, 20, 2000, 2);
    const ScreenPolygon& front = scene.addRectangle(8, 0, 20, 2000, 3);
    scene.host.refuse(3);
    scene.resolve();
    CHECK(SpanPool.count == 4096);
    CHECK(runsOf(glass).front().y == 1023);
    CHECK(runsOf(wall).front().y == 1023);

    scene.resolve();
    for (const i32 row : {0, 1023, 1024, 1999}) {
        CHECK(runsOf(wall, row) == Runs{{20, 30, row}, {0, 8, row}});
        CHECK(runsOf(glass, row) == Runs{{4, 8, row}});
        CHECK(runsOf(front, row) == Runs{{8, 20, row}});
        CHECK(background(row).empty());
    }
}

TEST_CASE("a refused first growth leaves a frame without spans")
{
    SpanScene scene({.right = 30, .bottom = 4});
    const ScreenPolygon& wall = scene.addRectangle(10, 0, 20, 4);
    scene.host.refuse(2);
    scene.resolve();
    CHECK(wall.spanHead == -1);
    CHECK(runsOf(BackgroundPolygon).empty());

    scene.resolve();
    CHECK(runsOf(wall).size() == 4);
}

TEST_CASE("runs that are cut to nothing do not grow the pool")
{
    SpanScene scene({.left = 5, .right = 5, .bottom = 4});
    scene.addRectangle(2, 0, 9, 4);
    scene.resolve();
    CHECK(SpanPool.count == 0);
    CHECK(scene.host.calls.size() == 1); // the edges'
}
