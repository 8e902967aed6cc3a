// A host that moves the top or the bottom of its view while the objects are walked: faces were emitted for the
// rectangle of before, and the frame is drawn in the one of after.
#include "spanbuffer/edge_table.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr u16 colour = 0x1234;

// Faces of one object, and another one behind it whose callback moves the view. All corners count as inside all planes.
class MovedView {
public:
    explicit MovedView(const TestView::Settings& settings) : scene(host, settings)
    {
        material.diffuseColour.packed = colour;
        moving.onPrepare = [this] {
            scene.view.record.top = top;
            scene.view.projection.bottom = bottom;
        };
        top = settings.top;
        bottom = settings.bottom;
    }

    TestHost host;
    TestScene scene;
    TestMaterial& material = scene.addMaterial();
    TestObject& object = scene.addRoot();
    TestObject& moving = scene.addRoot();
    f32 top, bottom; // what the view gets
    TestFrame frame{64, 200};

    void addFace(const std::vector<ScreenCorner>& corners, TestObject& to)
    {
        scene.addFace(to, material, corners);
        for (u32& outcode : host.outcodes) outcode = outcodeAll;
    }
    void addFace(const std::vector<ScreenCorner>& corners) { addFace(corners, object); }

    // A rectangle of 4 rows, whose last side is an edge.
    void addPost(f32 y) { addFace({{8, y}, {4, y}, {4, y + 4}, {8, y + 4}}); }

    // The rows that show the colour at a column, from the first to behind the last one; all between must show it.
    struct Rows {
        i32 first, end;
        bool operator==(const Rows&) const = default;
    };
    Rows drawnRows(i32 x)
    {
        frame.clear(0);
        scene.draw(frame);
        CHECK(frame.fencesStand());
        Rows rows = {-1, -1};
        for (i32 y = 0; y < frame.height; ++y) {
            if (frame.at(x, y) != colour) continue;
            if (rows.first < 0) rows.first = y;
            CHECK((rows.end < 0 || rows.end == y));
            rows.end = y + 1;
        }
        return rows;
    }

    // The bytes that a frame asks for its edges, growth by growth.
    std::vector<u32> edgeRequests()
    {
        host.calls.clear();
        scene.draw(frame);
        std::vector<u32> bytes;
        for (const ServiceCall& call : host.calls) {
            if (call.bytes == 4096 * edgePoolRecordBytes || call.bytes == 8192 * edgePoolRecordBytes)
                bytes.push_back(call.bytes);
        }
        return bytes;
    }
};

using Rows = MovedView::Rows;

constexpr u32 oneStep = 4096 * edgePoolRecordBytes;

} // namespace

TEST_CASE("a face is cut to the rectangle that the view has when all objects are walked")
{
    MovedView view({.top = 10, .right = 64, .bottom = 50});
    view.addFace(TestScene::rectangle(4, 0, 40, 100));
    CHECK(view.drawnRows(20) == Rows{10, 50});

    view.bottom = 30;
    CHECK(view.drawnRows(20) == Rows{10, 30});
    view.bottom = 80;
    CHECK(view.drawnRows(20) == Rows{10, 80});
    view.top = 2;
    CHECK(view.drawnRows(20) == Rows{2, 80});
    view.top = 40;
    view.bottom = 41;
    CHECK(view.drawnRows(20) == Rows{40, 41});
    view.bottom = 40; // no rows are left
    CHECK(view.drawnRows(20) == Rows{-1, -1});
}

TEST_CASE("faces that lie outside the rectangle of before or of after leave no trace in the one of after")
{
    MovedView view({.right = 64, .bottom = 50});
    view.addFace(TestScene::rectangle(4, 10, 20, 20));
    view.addFace(TestScene::rectangle(30, 120, 40, 130));
    view.top = 100;
    view.bottom = 150;
    CHECK(view.drawnRows(35) == Rows{120, 130});
    CHECK(view.frame.at(10, 15) == 0);
}

TEST_CASE("the edge pool grows for the edges of the rectangle of after, not for those of before")
{
    // 2,100 posts make 4,200 edges where all are seen, and half of them in the upper half of the view.
    const auto check = [](f32 before, f32 after, const std::vector<u32>& requests, i32 edges) {
        MovedView view({.right = 64, .bottom = before});
        for (i32 i = 0; i < 2100; ++i) view.addPost(i % 2 ? 10 : 110);
        view.bottom = after;
        CHECK(view.edgeRequests() == requests);
        CHECK(EdgePool.count == edges);
    };
    check(200, 100, {oneStep}, 2100);
    check(100, 200, {oneStep, 2 * oneStep}, 4200);
}

TEST_CASE("the last side of all is looked at after all others, in the rectangle of after too")
{
    // 2,048 posts make just as many edges as a step has room for. A last side that is an edge is one of them; one that
    // is not needs room for itself.
    struct Last {
        const char* name;
        std::vector<ScreenCorner> corners; // none: the posts are all there is
        std::vector<u32> requests;
    };
    const Last cases[] = {
        {"an edge", {}, {oneStep}},
        {"a side outside the rectangle of after", {{8, 150}, {4, 150}, {4, 154}, {8, 154}}, {oneStep, 2 * oneStep}},
        {"a level side", {{4, 20}, {4, 24}, {8, 24}, {8, 20}}, {oneStep, 2 * oneStep}},
        {"a polygon on one row", {{4, 20}, {6, 20.5f}, {8, 20}}, {oneStep, 2 * oneStep}},
    };
    for (const Last& last : cases) {
        CAPTURE(last.name);
        MovedView view({.right = 64, .bottom = 200});
        const bool levelSide = last.corners.size() == 4 && last.corners[0].y == 20;
        for (i32 i = 0; i < (levelSide ? 2047 : 2048); ++i) view.addPost(20);
        if (!last.corners.empty()) view.addFace(last.corners);
        view.bottom = 100;
        CHECK(view.edgeRequests() == last.requests);
        CHECK(EdgePool.count == 4096);
    }
}

TEST_CASE("faces that are emitted after the view has moved are drawn with those of before")
{
    MovedView view({.right = 64, .bottom = 50});
    TestObject& later = view.scene.addRoot();
    view.addFace(TestScene::rectangle(4, 10, 20, 100));
    view.addFace(TestScene::rectangle(30, 20, 40, 100), later);
    view.bottom = 80;
    CHECK(view.drawnRows(10) == Rows{10, 80});
    CHECK(view.drawnRows(35) == Rows{20, 80});
}

TEST_CASE("a view that moves out of the tables in mid-frame draws nothing, and the next frame is whole again")
{
    MovedView view({.right = 64, .bottom = 50});
    view.addFace(TestScene::rectangle(4, 10, 20, 100));
    view.bottom = 4097;
    CHECK(view.drawnRows(10) == Rows{-1, -1});
    view.scene.view.projection.bottom = view.bottom = 50;
    CHECK(view.drawnRows(10) == Rows{10, 50});
}
