// Growth of the edge pool: when room is asked for, and what a refusal leaves behind.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

constexpr u32 stepBytes = 4096 * edgePoolRecordBytes;

// A rectangle whose sides are filed in the order horizontal, down, horizontal, up: an edge is the last.
static void addEdgeLast(SpanScene& scene, f32 x, f32 y)
{
    scene.add({{x + 4, y}, {x, y}, {x, y + 4}, {x + 4, y + 4}});
}

TEST_CASE("the first polygon ever grows the pool from nothing before an edge is made")
{
    SpanScene scene;
    scene.addRectangle(10, 10, 20, 20);
    CHECK(EdgePool.edges == nullptr);
    CHECK(EdgePool.capacity == 0);

    CHECK(scene.buildEdgeTable());

    REQUIRE(scene.host.calls.size() == 1);
    CHECK(scene.host.calls[0].kind == ServiceCall::realloc);
    CHECK(scene.host.calls[0].block == nullptr);
    CHECK(scene.host.calls[0].bytes == stepBytes);
    CHECK(EdgePool.edges == scene.host.calls[0].result);
    CHECK(EdgePool.count == 2);
    CHECK(EdgePool.capacity == 4096);

    CHECK(scene.buildEdgeTable());
    CHECK(EdgePool.count == 2);
    CHECK(scene.host.calls.size() == 1);
}

TEST_CASE("room is asked for before a side is looked at: a polygon on one row grows the empty pool too")
{
    SpanScene scene;
    scene.add({{1, 10}, {5, 10}, {3, 10}});
    CHECK(scene.buildEdgeTable());
    CHECK(EdgePool.capacity == 4096);
    CHECK(EdgePool.count == 0);
}

TEST_CASE("a frame without polygons asks for no room")
{
    SpanScene scene;
    CHECK(scene.buildEdgeTable());
    CHECK(EdgePool.edges == nullptr);
    CHECK(scene.host.calls.empty());
}

TEST_CASE("a pool that is exactly full is enough when the last side filed is an edge")
{
    SpanScene scene;
    for (i32 i = 0; i < 2048; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64));
    CHECK(scene.buildEdgeTable());
    CHECK(EdgePool.count == 4096);
    CHECK(EdgePool.capacity == 4096);
}

TEST_CASE("a horizontal side asks for room in a full pool")
{
    SpanScene scene;
    for (i32 i = 0; i < 2048; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64));
    scene.add({{1, 10}, {5, 10}, {3, 10}});
    CHECK(scene.buildEdgeTable());
    CHECK(EdgePool.count == 4096);
    CHECK(EdgePool.capacity == 8192);
}

TEST_CASE("a side above the first row asks for room in a full pool, though it takes no record")
{
    SpanScene scene({.top = 2, .bottom = 200});
    for (i32 i = 0; i < 2048; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64 + 2));
    scene.addRectangle(1, 0, 5, 2);
    CHECK(scene.buildEdgeTable());
    CHECK(EdgePool.count == 4096);
    CHECK(EdgePool.capacity == 8192);
}

TEST_CASE("the pool grows by one step of 4,096 records after the other")
{
    SpanScene scene;
    for (i32 i = 0; i < 4500; ++i) scene.addRectangle(static_cast<f32>(i % 90), static_cast<f32>(i / 90), 100, 60);
    CHECK(scene.buildEdgeTable());

    CHECK(EdgePool.count == 9000);
    CHECK(EdgePool.capacity == 3 * 4096);
    const auto reallocs = scene.host.reallocs();
    REQUIRE(reallocs.size() == 3);
    for (u32 i = 0; i < 3; ++i) CHECK(reallocs[i].bytes == (i + 1) * stepBytes);
    CHECK(reallocs[1].block == reallocs[0].result);
    CHECK(reallocs[2].block == reallocs[1].result);
    CHECK(EdgePool.edges == reallocs[2].result);
}

TEST_CASE("the side that finds the pool full has its edge once the pool has grown")
{
    SpanScene scene;
    for (i32 i = 0; i < 2048; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64));
    scene.addRectangle(50, 100, 60, 110);
    CHECK(scene.buildEdgeTable());
    CHECK(EdgePool.count == 4098);
    CHECK(EdgePool.capacity == 8192);
    CHECK(edgesStartingOn(100).size() == 2);
}

TEST_CASE("a refused first growth leaves the pool empty and says so")
{
    SpanScene scene;
    scene.addRectangle(10, 10, 20, 20);
    scene.host.refuse(1);
    CHECK_FALSE(scene.buildEdgeTable());
    CHECK(EdgePool.edges == nullptr);
    CHECK(EdgePool.capacity == 0);

    CHECK(scene.buildEdgeTable()); // the next frame asks again
    CHECK(EdgePool.capacity == 4096);
}

TEST_CASE("a refused later growth keeps base and capacity, and the next frame asks for the same step again")
{
    SpanScene scene;
    for (i32 i = 0; i < 2049; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64));
    scene.host.refuse(2);
    CHECK_FALSE(scene.buildEdgeTable());
    CHECK(EdgePool.capacity == 4096);
    CHECK(EdgePool.edges == scene.host.calls[0].result);

    CHECK(scene.buildEdgeTable());
    const auto reallocs = scene.host.reallocs();
    REQUIRE(reallocs.size() == 3);
    CHECK(reallocs[1].bytes == 2 * stepBytes);
    CHECK(reallocs[2].bytes == 2 * stepBytes);
    CHECK(reallocs[2].block == reallocs[0].result);
    CHECK(EdgePool.count == 4098);
}
