// Growth of the edge pool: when room is asked for, what a restart discards, and what a refusal leaves behind.
#include "tests/spanbuffer/span_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

constexpr u32 stepBytes = 4096 * u32{sizeof(ScanEdge)};

// A rectangle whose sides are filed in the order horizontal, down, horizontal, up: an edge is the last.
static void addEdgeLast(SpanScene& scene, f32 x, f32 y)
{
    scene.add({{x + 4, y}, {x, y}, {x, y + 4}, {x + 4, y + 4}});
}

static EdgePass fileOnce(SpanScene& scene)
{
    ResetEdgeTable(scene.drawn());
    for (ScreenPolygon& polygon : scene.polygons) {
        const EdgePass result = AddPolygonEdges(scene.host.context(), scene.drawn(), &polygon);
        if (result != EdgePass::done) return result;
    }
    return EdgePass::done;
}

TEST_CASE("the first polygon ever filed grows the pool from nothing, files nothing and asks for a restart")
{
    SpanScene scene;
    scene.addRectangle(10, 10, 20, 20);
    CHECK(EdgePool.edges == nullptr);
    CHECK(EdgePool.capacity == 0);

    CHECK(fileOnce(scene) == EdgePass::poolGrew);

    REQUIRE(scene.host.calls.size() == 1);
    CHECK(scene.host.calls[0].kind == ServiceCall::realloc);
    CHECK(scene.host.calls[0].block == nullptr);
    CHECK(scene.host.calls[0].bytes == stepBytes);
    CHECK(EdgePool.edges == scene.host.calls[0].result);
    CHECK(EdgePool.count == 0);
    CHECK(EdgePool.capacity == 4096);
    CHECK(edgesStartingOn(10).empty());

    CHECK(fileOnce(scene) == EdgePass::done);
    CHECK(EdgePool.count == 2);
    CHECK(scene.host.calls.size() == 1);
}

TEST_CASE("room is asked for before a side is looked at: a polygon on one row grows the empty pool too")
{
    SpanScene scene;
    scene.add({{1, 10}, {5, 10}, {3, 10}});
    CHECK(fileOnce(scene) == EdgePass::poolGrew);
    CHECK(fileOnce(scene) == EdgePass::done);
    CHECK(EdgePool.count == 0);
}

TEST_CASE("a pool that is exactly full is enough when the last side filed is an edge")
{
    SpanScene scene;
    for (i32 i = 0; i < 2048; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64));
    CHECK(scene.buildEdgeTable() == EdgePass::done);
    CHECK(EdgePool.count == 4096);
    CHECK(EdgePool.capacity == 4096);
}

TEST_CASE("a horizontal side asks for room in a full pool")
{
    SpanScene scene;
    for (i32 i = 0; i < 2048; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64));
    scene.add({{1, 10}, {5, 10}, {3, 10}});
    CHECK(scene.buildEdgeTable() == EdgePass::done);
    CHECK(EdgePool.count == 4096);
    CHECK(EdgePool.capacity == 8192);
}

TEST_CASE("a side above the first row asks for room in a full pool, though it takes no record")
{
    SpanScene scene({.top = 2, .bottom = 200});
    for (i32 i = 0; i < 2048; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64 + 2));
    scene.addRectangle(1, 0, 5, 2);
    CHECK(scene.buildEdgeTable() == EdgePass::done);
    CHECK(EdgePool.count == 4096);
    CHECK(EdgePool.capacity == 8192);
}

TEST_CASE("a pass needs one restart for each step of 4,096 records")
{
    SpanScene scene;
    for (i32 i = 0; i < 4500; ++i) scene.addRectangle(static_cast<f32>(i % 90), static_cast<f32>(i / 90), 100, 60);
    i32 restarts = 0;
    while (fileOnce(scene) == EdgePass::poolGrew) ++restarts;

    CHECK(restarts == 3); // 9,000 edges
    CHECK(EdgePool.count == 9000);
    CHECK(EdgePool.capacity == 3 * 4096);
    const auto reallocs = scene.host.reallocs();
    REQUIRE(reallocs.size() == 3);
    for (u32 i = 0; i < 3; ++i) CHECK(reallocs[i].bytes == (i + 1) * stepBytes);
    CHECK(reallocs[1].block == reallocs[0].result);
    CHECK(reallocs[2].block == reallocs[1].result);
    CHECK(EdgePool.edges == reallocs[2].result);
}

TEST_CASE("a growth files nothing more, and the side that found the pool full is filed by the next pass")
{
    SpanScene scene;
    for (i32 i = 0; i < 2048; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64));
    scene.addRectangle(50, 100, 60, 110);
    REQUIRE(fileOnce(scene) == EdgePass::poolGrew); // from nothing
    REQUIRE(fileOnce(scene) == EdgePass::poolGrew);
    CHECK(EdgePool.count == 4096);
    CHECK(edgesStartingOn(100).empty());

    CHECK(fileOnce(scene) == EdgePass::done);
    CHECK(EdgePool.count == 4098);
    CHECK(edgesStartingOn(100).size() == 2);
}

TEST_CASE("a refused first growth leaves the pool empty and says so")
{
    SpanScene scene;
    scene.addRectangle(10, 10, 20, 20);
    scene.host.refuse(1);
    CHECK(fileOnce(scene) == EdgePass::poolRefused);
    CHECK(EdgePool.edges == nullptr);
    CHECK(EdgePool.capacity == 0);

    CHECK(scene.buildEdgeTable() == EdgePass::done); // the next frame asks again
    CHECK(EdgePool.capacity == 4096);
}

TEST_CASE("a refused later growth keeps base and capacity, and the next pass asks for the same step again")
{
    SpanScene scene;
    for (i32 i = 0; i < 2049; ++i) addEdgeLast(scene, static_cast<f32>(i % 64), static_cast<f32>(i / 64));
    scene.host.refuse(2);
    CHECK(scene.buildEdgeTable() == EdgePass::poolRefused);
    CHECK(EdgePool.capacity == 4096);
    CHECK(EdgePool.edges == scene.host.calls[0].result);

    CHECK(scene.buildEdgeTable() == EdgePass::done);
    const auto reallocs = scene.host.reallocs();
    REQUIRE(reallocs.size() == 3);
    CHECK(reallocs[1].bytes == 2 * stepBytes);
    CHECK(reallocs[2].bytes == 2 * stepBytes);
    CHECK(reallocs[2].block == reallocs[0].result);
    CHECK(EdgePool.count == 4098);
}

TEST_CASE("the results of filing are 0, 1 and 2")
{
    CHECK(static_cast<i32>(EdgePass::done) == 0);
    CHECK(static_cast<i32>(EdgePass::poolGrew) == 1);
    CHECK(static_cast<i32>(EdgePass::poolRefused) == 2);
}
