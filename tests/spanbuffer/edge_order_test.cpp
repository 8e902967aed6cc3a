// What a side becomes: its edge, the row it is filed under, and its place among the edges of that row.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

static i32 fixed(f64 column)
{
    return static_cast<i32>(column * 65536);
}

TEST_CASE("a side that runs down the screen enters, begins at its first corner and steps by its slope")
{
    SpanScene scene;
    // Sides: (5.75, 3) down to (1.25, 7); along row 7; (9, 7) up to (5.75, 3).
    scene.add({{5.75f, 3}, {1.25f, 7}, {9, 7}});
    REQUIRE(scene.buildEdgeTable());

    REQUIRE(EdgePool.count == 2);
    const ScanEdge& edge = EdgePool.edges[0];
    CHECK(edge.entering());
    CHECK(edge.x == 376832);     // 5.75 x 65,536
    CHECK(edge.xStep == -73728); // (1.25 - 5.75) / 4 = -1.125, x 65,536
    CHECK(edgesStartingOn(3).size() == 2);
    CHECK(edgesEndingOn(6).size() == 2);
    CHECK(edge.polygon() == scene.stateOf(0));
}

TEST_CASE("the same side run up the screen leaves, and has the same x, step and rows")
{
    SpanScene scene;
    // Sides: (1.25, 7) up to (5.75, 3); (5.75, 3) down to (9, 7); along row 7.
    scene.add({{1.25f, 7}, {5.75f, 3}, {9, 7}});
    REQUIRE(scene.buildEdgeTable());

    const ScanEdge& edge = EdgePool.edges[0];
    CHECK_FALSE(edge.entering());
    CHECK(edge.x == 376832);
    CHECK(edge.xStep == -73728);
    CHECK(edgesStartingOn(3).size() == 2);
    CHECK(edgesEndingOn(6).size() == 2);
    CHECK(edgesEndingOn(7).empty());
}

TEST_CASE("steps and positions are truncated toward zero, on both sides of it")
{
    SpanScene scene({.left = -8});
    // 1 column over 3 rows: 65,536 / 3 = 21,845.33. -3 / 131,072 x 65,536 = -1.5.
    scene.add({{0, 0}, {1, 3}, {5, 3}, {5, 0}});
    scene.add({{0, 0}, {-1, 3}, {5, 3}, {5, 0}});
    scene.add({{-3.0f / 131072, 0}, {-3.0f / 131072, 3}, {5, 3}, {5, 0}});
    REQUIRE(scene.buildEdgeTable());

    CHECK(EdgePool.edges[0].xStep == 21845);
    CHECK(EdgePool.edges[2].xStep == -21845);
    CHECK(EdgePool.edges[4].x == -1);
    CHECK(EdgePool.edges[4].xStep == 0);
}

TEST_CASE("a step is formed in double precision from the single-precision corners")
{
    SpanScene scene({.right = 8192});
    // In units of 1/65,536 column the corners lie at 268,435,456 + 32 and at 4. Their difference has one bit too many
    // for a single-precision number, which would give -268,435,488.
    const f32 far = 4096 + 1.0f / 2048;
    const f32 near = 1.0f / 16384;
    scene.add({{far, 0}, {near, 2}, {far, 2}});
    REQUIRE(scene.buildEdgeTable());

    CHECK(EdgePool.edges[0].x == 268435488);
    CHECK(EdgePool.edges[0].xStep == -134217742);
}

TEST_CASE("the slope is the product with the reciprocal of the rows, not a quotient")
{
    SpanScene scene;
    // 49 x (1.0 / 49) is 0.9999999999999999 in double precision, 49 / 49 is 1: over 49 rows, 49 columns of 1/65,536.
    scene.add({{0, 0}, {49.0f / 65536, 49}, {5, 49}, {5, 0}});
    REQUIRE(scene.buildEdgeTable());

    CHECK(EdgePool.edges[0].xStep == 0);
}

TEST_CASE("a polygon whose corners all lie on one row files no edge")
{
    SpanScene scene;
    scene.add({{2, 10}, {8, 10.5f}, {5, 10.9f}}); // rows are truncated: 10, 10, 10
    REQUIRE(scene.buildEdgeTable());

    CHECK(EdgePool.count == 0);
    CHECK(edgesStartingOn(10).empty());
    CHECK(edgesEndingOn(10).empty());
}

TEST_CASE("a triangle with corners on rows 10, 10 and 20 files two edges, both of rows 10 to 19")
{
    SpanScene scene;
    scene.add({{30, 10}, {10, 10}, {20, 20}});
    REQUIRE(scene.buildEdgeTable());

    CHECK(EdgePool.count == 2);
    CHECK(edgesStartingOn(10).size() == 2);
    CHECK(edgesEndingOn(19).size() == 2);
    CHECK(edgesStartingOn(20).empty());
    CHECK(edgesEndingOn(20).empty());
}

TEST_CASE("sides are filed from the first corner on, the closing side last")
{
    SpanScene scene;
    scene.add({{10, 0}, {5, 4}, {10, 8}, {15, 4}});
    REQUIRE(scene.buildEdgeTable());

    REQUIRE(EdgePool.count == 4);
    const ScanEdge* const edges = EdgePool.edges;
    CHECK(EdgeStartTable[0] == 0); // the first and the closing side start here
    CHECK(EdgeStartTable[1] == 2);
    CHECK(EdgeStartTable[4] == 2); // and the other two here
    CHECK(EdgeStartTable[5] == 4);
    CHECK(edges[0].x == fixed(10)); // (10, 0) to (5, 4)
    CHECK(edges[0].xStep == fixed(-1.25));
    CHECK(edges[1].x == fixed(10)); // (15, 4) to (10, 0)
    CHECK(edges[1].xStep == fixed(1.25));
    CHECK(edges[2].x == fixed(5)); // (5, 4) to (10, 8)
    CHECK(edges[2].xStep == fixed(1.25));
    CHECK(edges[3].x == fixed(15)); // (10, 8) to (15, 4): begins at its upper corner
    CHECK(edges[3].xStep == fixed(-1.25));
    CHECK(edges[0].entering());
    CHECK_FALSE(edges[1].entering());
    CHECK(edges[2].entering());
    CHECK_FALSE(edges[3].entering());
}

TEST_CASE("the edges of a row ascend by x, and the rows beside it have none")
{
    SpanScene scene;
    for (const f32 x : {50.0f, 10.0f, 90.0f, 30.0f}) scene.addRectangle(x, 5, x + 100, 6);
    REQUIRE(scene.buildEdgeTable());

    std::vector<i32> columns;
    for (const ScanEdge& edge : edgesStartingOn(5)) columns.push_back(edge.x >> 16);
    CHECK(columns == std::vector<i32>{10, 30, 50, 90, 110, 130, 150, 190});
    CHECK(edgesStartingOn(4).empty());
    CHECK(edgesStartingOn(6).empty());
}

TEST_CASE("of two edges with the same row and x the one filed later comes first")
{
    SpanScene scene;
    scene.addRectangle(20, 5, 40, 9);
    scene.addRectangle(20, 5, 60, 9);
    REQUIRE(scene.buildEdgeTable());

    const Edges edges = edgesStartingOn(5);
    REQUIRE(edges.size() == 4);
    CHECK(edges[0].polygon() == scene.stateOf(1));
    CHECK(edges[1].polygon() == scene.stateOf(0));
}

TEST_CASE("the table has the rows of the view's whole rows and leaves all others alone")
{
    SpanScene scene({.top = 3.5f, .bottom = 9.5f});
    scene.addRectangle(20, 3.5f, 40, 9);
    constexpr u32 untouched = 0xa5a5a5a5;
    for (const i32 row : {2, 3, 8, 9, 10}) EdgeStartTable[row] = untouched;

    REQUIRE(scene.buildEdgeTable());

    CHECK(EdgePool.count == 2);
    CHECK(EdgePool.capacity == 4096);
    CHECK(EdgeStartTable[3] == 0);
    CHECK(EdgeStartTable[8] == 2);
    CHECK(EdgeStartTable[9] == 2); // where row 8, the last one, ends: 9 is cut off at 9.5
    CHECK(EdgeStartTable[2] == untouched);
    CHECK(EdgeStartTable[10] == untouched);
}

TEST_CASE("a table that is built again holds the edges of the new polygons alone")
{
    SpanScene scene;
    scene.addRectangle(20, 3, 40, 9);
    REQUIRE(scene.buildEdgeTable());
    scene.polygons.clear();
    scene.addRectangle(50, 4, 60, 9);
    REQUIRE(scene.buildEdgeTable());
    CHECK(EdgePool.count == 2);
    CHECK(edgesStartingOn(3).empty());
    CHECK(edgesStartingOn(4).size() == 2);
}
