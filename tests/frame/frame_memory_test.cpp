// Frames whose pools and lists grow, and frames whose host has no more memory.
#include "geometry/polygon_lists.h"
#include "spanbuffer/edge_table.h"
#include "spanbuffer/span_pool.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr u32 edgeStep = 4096 * edgePoolRecordBytes;
constexpr u32 listStep = 512 * listRecordBytes;
constexpr u32 sortStep = 512 * 4;
constexpr u32 spanStep = 4096 * spanPoolRecordBytes;

// A grid of rectangles of two columns and one row, each in the colour of its number: 50 a row, two edges each.
class Grid {
public:
    explicit Grid(i32 count) : scene(host, {.right = 100, .bottom = 100})
    {
        TestObject& object = scene.addRoot("object");
        for (i32 i = 0; i < count; ++i) {
            TestMaterial& material = scene.addMaterial();
            material.diffuseColour.packed = static_cast<u16>(i + 1);
            const f32 x = static_cast<f32>(i % 50 * 2), y = static_cast<f32>(i / 50);
            scene.addFace(object, material, TestScene::rectangle(x, y, x + 2, y + 1));
        }
        host.calls.clear();
    }

    // How many of the rectangles stand in the frame, from the first on.
    i32 drawnUpTo() const
    {
        i32 i = 0;
        while (i < 5000 && frame.at(i % 50 * 2, i / 50) == i + 1) ++i;
        return i;
    }

    TestHost host;
    TestScene scene;
    TestFrame frame{100, 100};
};

std::vector<u32> bytesOf(const std::vector<ServiceCall>& calls)
{
    std::vector<u32> result;
    for (const ServiceCall& call : calls) result.push_back(call.bytes);
    return result;
}

// A post before the background: three runs a row, so that 4,096 spans are 1,365 rows and one run.
class Post {
public:
    explicit Post(i32 bottom) : scene(host, {.right = 12, .bottom = static_cast<f32>(bottom)}), frame(12, bottom)
    {
        TestMaterial& material = scene.addMaterial();
        material.diffuseColour.packed = 0x1111;
        scene.addFace(scene.addRoot(), material, TestScene::rectangle(4, 0, 8, static_cast<f32>(bottom)));
        host.calls.clear();
    }
    TestHost host;
    TestScene scene;
    TestFrame frame;
};

} // namespace

TEST_CASE("the first frame grows list, sort arrays, edges and spans once each, the next ones nothing")
{
    Grid grid(3);
    grid.scene.draw(grid.frame);
    CHECK(bytesOf(grid.host.calls) == std::vector<u32>{listStep, sortStep, sortStep, sortStep, edgeStep, spanStep});
    if (sizeof(void*) == 4)
        CHECK(bytesOf(grid.host.calls) == std::vector<u32>{524288, 2048, 2048, 2048, 131072, 65536});
    for (const ServiceCall& call : grid.host.calls) {
        CHECK(call.kind == ServiceCall::realloc);
        CHECK(call.block == nullptr);
    }
    CHECK(grid.drawnUpTo() == 3);

    grid.host.calls.clear();
    grid.scene.draw(grid.frame);
    CHECK(grid.host.calls.empty());
}

TEST_CASE("a frame without polygons grows the span pool only, and only for the background")
{
    TestHost host;
    TestScene scene(host, {.right = 12, .bottom = 4});
    TestFrame frame(12, 4);
    scene.draw(frame);
    CHECK(bytesOf(host.calls) == std::vector<u32>{spanStep});
}

TEST_CASE("600 faces grow the list a second time and are all drawn")
{
    Grid grid(600);
    grid.scene.draw(grid.frame);
    CHECK(grid.drawnUpTo() == 600);
    CHECK(resolvedPolygons.capacity == 1024);
    CHECK(bytesOf(grid.host.calls)
          == std::vector<u32>{listStep, sortStep, sortStep, sortStep, 2 * listStep, 2 * sortStep, 2 * sortStep,
                              2 * sortStep, edgeStep, spanStep});
}

TEST_CASE(
    "a frame that grows its edge pool step by step gives the picture of one that fits, and walks the objects once")
{
    Grid grid(5000); // 10,000 edges: three steps of 4,096
    grid.scene.draw(grid.frame, 1);
    CHECK(grid.drawnUpTo() == 5000);
    CHECK(EdgePool.count == 10000);
    CHECK(EdgePool.capacity == 3 * 4096);
    const u32 picture = grid.frame.hash();
    const std::vector<std::string> log = grid.scene.log;

    grid.frame.clear(TestFrame::untouched);
    grid.scene.log.clear();
    grid.host.calls.clear();
    grid.scene.draw(grid.frame, 1);
    CHECK(grid.host.calls.empty());
    CHECK(grid.frame.hash() == picture);
    CHECK(grid.scene.log == log);
}

TEST_CASE("a refused first edge pool abandons the frame: nothing is drawn, not even the clear")
{
    Grid grid(3);
    grid.host.refuse(5);
    grid.scene.draw(grid.frame, 1);
    for (i32 y = 0; y < 100; ++y) CHECK(grid.frame.row(y, 0, 100) == std::vector<u16>(100, TestFrame::untouched));
    CHECK(grid.host.calls.size() == 5);

    grid.scene.draw(grid.frame, 1);
    CHECK(grid.drawnUpTo() == 3);
}

TEST_CASE("a refused later growth of the edge pool abandons the frame too")
{
    Grid grid(2200);
    // Five lists of 512 with three sort arrays each come first, then the pool's first block.
    grid.host.refuse(22);
    grid.scene.draw(grid.frame, 1);
    REQUIRE(grid.host.calls.size() == 22);
    CHECK(grid.host.calls.back().bytes == 2 * edgeStep);
    for (i32 y = 0; y < 100; ++y) CHECK(grid.frame.row(y, 0, 100) == std::vector<u16>(100, TestFrame::untouched));
    CHECK(EdgePool.capacity == 4096);

    grid.scene.draw(grid.frame, 1);
    CHECK(grid.drawnUpTo() == 2200);
}

TEST_CASE("a frame abandoned for its edges does not touch the spans of the frame before")
{
    Grid grid(3);
    grid.scene.draw(grid.frame);
    const i32 spans = SpanPool.count;
    EdgePool = {};
    grid.host.refuse(1);
    grid.scene.draw(grid.frame);
    CHECK(SpanPool.count == spans);
}

TEST_CASE("after a refused span growth the fillers draw the spans made so far, and the next frame is whole")
{
    Post post(2000);
    const u16 o = TestFrame::untouched;
    const std::vector<u16> whole = {0, 0, 0, 0, 0x1111, 0x1111, 0x1111, 0x1111, 0, 0, 0, 0};
    post.host.refuse(7); // after one list, three sort arrays, edges and spans
    post.scene.draw(post.frame, 1);
    REQUIRE(post.host.calls.size() == 7);
    CHECK(post.host.calls.back().bytes == 2 * spanStep);
    for (i32 y = 0; y < 1365; ++y) REQUIRE(post.frame.row(y, 0, 12) == whole);
    CHECK(post.frame.row(1365, 0, 12) == std::vector<u16>{0, 0, 0, 0, o, o, o, o, o, o, o, o});
    for (i32 y = 1366; y < 2000; ++y) REQUIRE(post.frame.row(y, 0, 12) == std::vector<u16>(12, o));

    post.scene.draw(post.frame, 1);
    for (i32 y = 0; y < 2000; ++y) REQUIRE(post.frame.row(y, 0, 12) == whole);
    CHECK(post.host.calls.back().bytes == 2 * spanStep);
    CHECK(post.host.calls.back().block == post.host.calls[5].result);
}

TEST_CASE("without a span pool nothing is drawn, and polygons that need no spans still are")
{
    TestHost host(16);
    TestScene scene(host, {.right = 12, .bottom = 8});
    TestFrame frame(12, 8, 0);
    TestTexture texture(16, 2, 2);
    for (i32 i = 0; i < 4; ++i) texture.setTexel(i % 2, i / 2, 0x0002);
    TestObject& object = scene.addRoot();
    TestMaterial& wall = scene.addMaterial();
    wall.diffuseColour.packed = 0x1111;
    scene.addFace(object, wall, TestScene::rectangle(0, 0, 12, 8, 2));
    scene.addFace(object, scene.addMaterial(0, &texture, 10), TestScene::rectangle(2, 2, 4, 4));
    host.calls.clear();
    host.refuse(7); // two lists, three sort arrays, edges, spans
    scene.draw(frame, 1);
    CHECK(host.calls.size() == 7);
    CHECK(frame.row(1, 0, 12) == std::vector<u16>(12, 0));
    CHECK(frame.row(2, 0, 6) == std::vector<u16>{0, 0, 2, 2, 0, 0});
}
