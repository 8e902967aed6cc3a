// Sides that a rounding error has put beyond the drawn rectangle: rows above and below, columns left and right of it.
#include "support/arithmetic.h"
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("a side that begins above the first row is filed on the first row, moved along its slope")
{
    SpanScene scene({.top = 10, .bottom = 20});
    scene.add({{0, 4}, {12, 16}, {40, 16}, {40, 4}}); // one column a row: on row 10 at column 6
    REQUIRE(scene.buildEdgeTable());

    REQUIRE(EdgePool.count == 2);
    CHECK(EdgePool.edges[0].x == 6 * 65536);
    CHECK(EdgePool.edges[0].xStep == 65536);
    CHECK(edgesStartingOn(10).size() == 2);
    CHECK(edgesEndingOn(15).size() == 2);
}

TEST_CASE("a moved side is moved by its truncated step, row by row")
{
    SpanScene scene({.top = 10, .bottom = 20});
    scene.add({{0, 7}, {10, 14}, {40, 14}, {40, 7}});
    REQUIRE(scene.buildEdgeTable());

    CHECK(EdgePool.edges[0].xStep == 93622); // 10 / 7 x 65,536 = 93,622.86
    CHECK(EdgePool.edges[0].x == 3 * 93622); // and not 280,868
}

TEST_CASE("a side that ends at or above the first row makes no edge and takes no record")
{
    SpanScene scene({.top = 10, .bottom = 20});
    scene.add({{0, 4}, {0, 10}, {40, 9}, {40, 3}});
    REQUIRE(scene.buildEdgeTable());
    CHECK(EdgePool.count == 0);
    CHECK(edgesStartingOn(10).empty());
}

TEST_CASE("rows from the bottom on are cut off")
{
    SpanScene scene({.top = 10, .bottom = 20});
    scene.addRectangle(5, 16, 9, 26);
    scene.addRectangle(5, 20, 9, 26); // wholly below
    REQUIRE(scene.buildEdgeTable());

    CHECK(EdgePool.count == 2);
    CHECK(edgesStartingOn(16).size() == 2);
    CHECK(edgesEndingOn(19).size() == 2);
}

TEST_CASE("the first and the last row are those of the truncated rectangle")
{
    SpanScene scene({.top = 10.75f, .bottom = 20.75f});
    scene.addRectangle(5, 8, 9, 30);
    REQUIRE(scene.buildEdgeTable());

    CHECK(edgesStartingOn(10).size() == 2);
    CHECK(edgesEndingOn(19).size() == 2);
}

TEST_CASE("a polygon that reaches over both ends of the table is cut to its 4,096 rows")
{
    SpanScene scene({.bottom = 4096});
    ScreenPolygon& tall = scene.addRectangle(5, 0, 9, 1);
    for (const i32 upper : {0, 3}) tall.scanY[upper] = -1000000;
    for (const i32 lower : {1, 2}) tall.scanY[lower] = 1000000;
    scene.resolve();

    const Runs runs = runsOf(tall);
    REQUIRE(runs.size() == 4096);
    CHECK(runs.front() == Run{5, 9, 4095});
    CHECK(runs.back() == Run{5, 9, 0});
}

TEST_CASE("edges beyond the right side of the rectangle are sorted among themselves")
{
    SpanScene scene({.right = 100});
    scene.addRectangle(50, 0, 104, 4);
    scene.addRectangle(60, 0, 102, 4);
    scene.addRectangle(70, 0, 103, 4);
    REQUIRE(scene.buildEdgeTable());

    std::vector<i32> columns;
    for (const ScanEdge& edge : edgesStartingOn(0)) columns.push_back(edge.x >> 16);
    CHECK(columns == std::vector<i32>{50, 60, 70, 102, 103, 104});
}

TEST_CASE("spans of edges beyond the right side of the rectangle end at that side")
{
    SpanScene scene({.right = 100, .bottom = 4});
    const ScreenPolygon& behind = scene.addRectangle(50, 0, 104, 4, 1);
    const ScreenPolygon& front = scene.addRectangle(60, 0, 102, 4, 2);
    const ScreenPolygon& outside = scene.addRectangle(101, 0, 103, 4, 3);
    scene.resolve();

    for (const i32 row : {0, 1, 2, 3}) {
        CHECK(runsOf(behind, row) == Runs{{50, 60, row}});
        CHECK(runsOf(front, row) == Runs{{60, 100, row}});
        CHECK(runsOf(outside, row).empty());
        CHECK(background(row) == Runs{{0, 50, row}});
    }
}

TEST_CASE("edges that step beyond the right side of the rectangle, and back, do no harm")
{
    SpanScene scene({.right = 100, .bottom = 8});
    // Leaves at 96 + 4 row until row 4, then comes back: 96, 100, 104, 108, 112, 108, 104, 100.
    const ScreenPolygon& arrow = scene.add({{20, 0}, {20, 8}, {96, 8}, {112, 4}, {96, 0}});
    const ScreenPolygon& inner = scene.addRectangle(30, 0, 40, 8, 2);
    scene.resolve();

    CHECK(runsOf(arrow, 0) == Runs{{40, 96, 0}, {20, 30, 0}});
    for (i32 row = 1; row < 8; ++row) {
        CHECK(runsOf(arrow, row) == Runs{{40, 100, row}, {20, 30, row}});
        CHECK(runsOf(inner, row) == Runs{{30, 40, row}});
        CHECK(background(row) == Runs{{0, 20, row}});
    }
}

TEST_CASE("edges that cross left of the rectangle are passed in their own order")
{
    SpanScene scene({.right = 100, .bottom = 4});
    // Both left sides step below column 0, the second one past the first.
    const ScreenPolygon& first = scene.add({{2, 0}, {-10, 4}, {50, 4}, {50, 0}}, 1);
    const ScreenPolygon& second = scene.add({{4, 0}, {-20, 4}, {30, 4}, {30, 0}}, 2);
    scene.resolve();

    CHECK(runsOf(first, 0) == Runs{{30, 50, 0}, {2, 4, 0}});
    CHECK(runsOf(second, 0) == Runs{{4, 30, 0}});
    for (const i32 row : {1, 2, 3}) { // the second enters at -2, -8, -14, the first at -1, -4, -7: it enters behind
        CHECK(runsOf(second, row) == Runs{{0, 30, row}});
        CHECK(runsOf(first, row) == Runs{{30, 50, row}});
        CHECK(background(row) == Runs{{50, 100, row}});
    }
}

TEST_CASE("a corner whose position is no number files an edge at the smallest x and stays inside the rectangle")
{
    SpanScene scene({.right = 100, .bottom = 4});
    const ScreenPolygon& broken = scene.addRectangle(__builtin_nanf(""), 0, 50, 4);
    REQUIRE(scene.buildEdgeTable());
    CHECK(EdgePool.edges[0].x == smallestI32);

    scene.resolve();
    for (const i32 row : {0, 1, 2, 3}) CHECK(runsOf(broken, row).size() <= 1);
    for (const Run& run : runsOf(broken)) {
        CHECK(run.x >= 0);
        CHECK(run.xEnd <= 100);
    }
}
