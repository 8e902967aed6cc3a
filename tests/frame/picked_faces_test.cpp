// When a point is inside a face, and how far away the face is there.
#include "tests/frame/pick_scene.h"

#include <doctest/doctest.h>

#include <cmath>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Centre of the screen at (160, 100), 100 pixels to the unit at depth 1.
TestView::Settings centred(f32 nearZ, f32 farZ)
{
    return {.nearZ = nearZ, .farZ = farZ, .centreX = 160, .centreY = 100, .scaleX = 100, .scaleY = 100};
}

// A floor one unit below the eye and two wide, from depth 0.5 to 4: on the screen at row 100 + 100 / Z.
const std::vector<ScreenCorner> floorCorners = {{135, 125, 4}, {-40, 300, 0.5f}, {360, 300, 0.5f}, {185, 125, 4}};

// A ring of corners around (100, 100), down its left side first, at depth 2.
std::vector<ScreenCorner> ring(i32 corners)
{
    std::vector<ScreenCorner> result;
    for (i32 i = 0; i < corners; ++i) {
        const f64 turn = i * 2 * 3.14159265358979 / corners;
        result.push_back({static_cast<f32>(100 - 50 * std::sin(turn)), static_cast<f32>(100 - 50 * std::cos(turn)), 2});
    }
    return result;
}

} // namespace

TEST_CASE("sides and corners belong to a face")
{
    PickScene scene({.scaleX = 1}); // 1 pixel to the unit, depth 1: corners lie exactly where they are given
    TestObject& object = scene.scene.addRoot();
    scene.addRectangle(object, 10, 20, 30, 40, 1);
    for (const f32 x : {10.0f, 20.0f, 30.0f})
        for (const f32 y : {20.0f, 30.0f, 40.0f}) CHECK(scene.pick(x, y) == Hit{&object, 0, 1});
    for (const f32 x : {std::nextafter(10.0f, 0.0f), std::nextafter(30.0f, 99.0f)})
        CHECK(scene.pick(x, 30) == scene.nothing());
    for (const f32 y : {std::nextafter(20.0f, 0.0f), std::nextafter(40.0f, 99.0f)})
        CHECK(scene.pick(20, y) == scene.nothing());
}

TEST_CASE("faces wound the other way on the screen are never hit")
{
    PickScene scene;
    scene.addFace(scene.scene.addRoot(), {{10, 10, 8}, {30, 10, 8}, {30, 30, 8}, {10, 30, 8}});
    CHECK(scene.pick(20, 20) == scene.nothing());
}

TEST_CASE("every side is tested, the closing one too")
{
    PickScene scene({.scaleX = 1});
    TestObject& object = scene.scene.addRoot();
    scene.addFace(object, {{20, 10}, {10, 20}, {20, 30}, {30, 20}});
    CHECK(scene.pick(20, 20) == Hit{&object, 0, 1});
    for (const auto& [x, y] : std::initializer_list<std::pair<f32, f32>>{{14, 14}, {14, 26}, {26, 26}, {26, 14}})
        CHECK(scene.pick(x, y) == scene.nothing()); // inside the bounding box
    for (const auto& [x, y] : std::initializer_list<std::pair<f32, f32>>{{15, 15}, {15, 25}, {25, 25}, {25, 15}})
        CHECK(scene.pick(x, y) == Hit{&object, 0, 1}); // on the sides
}

TEST_CASE("the side test is exact where single precision would see no difference")
{
    PickScene scene({.right = 3000, .bottom = 3000});
    TestObject& object = scene.scene.addRoot();
    scene.addFace(object, {{0, 0}, {1000, 2001}, {1500, 2001}, {1500, 0}});
    // -2,001 x + 1,000 y is 1 / 2,048 at the first point, just outside, and -1 / 2,048 at the second. The products are
    // near a million, where single precision counts in sixteenths.
    CHECK(scene.pick(1000999.0f / 2048, 2002999.0f / 2048) == scene.nothing());
    CHECK(scene.pick(1000001.0f / 2048, 2001002.0f / 2048) == Hit{&object, 0, 1});
}

TEST_CASE("a point on the line of a face seen edge-on is inside only between its corners")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    // The host brings its own projections, all on row 20: every side's line runs through the row.
    TestFace& face = scene.addRectangle(object, 10, 10, 30, 30, 8);
    object.onPrepare = [&] {
        const f32 columns[] = {10, 40, 30, 20};
        for (size_t i = 0; i < 4; ++i) {
            const size_t vertex = static_cast<size_t>(face.indices[i]);
            scene.host.screenVertices[vertex] = {columns[i], 20, 1};
            scene.host.stamps[vertex] = scene.host.context().projectionStamp;
        }
    };
    for (const f32 x : {10.0f, 25.0f, 40.0f}) CHECK(scene.pick(x, 20) == Hit{&object, 0, 8});
    for (const f32 x : {9.0f, 41.0f}) CHECK(scene.pick(x, 20) == scene.nothing());
    for (const f32 y : {19.0f, 21.0f}) CHECK(scene.pick(25, y) == scene.nothing());
}

TEST_CASE("the depth is that of the face's plane under the viewing ray")
{
    PickScene scene(centred(0.25f, 1000));
    TestObject& object = scene.scene.addRoot();
    scene.addFace(object, floorCorners);
    CHECK(scene.pick(160, 150) == Hit{&object, 0, 2}); // 100 + 100 / 2
    CHECK(scene.pick(120, 200) == Hit{&object, 0, 1});
    CHECK(scene.pick(160, 300) == Hit{&object, 0, 0.5f});
}

TEST_CASE("the viewing ray has the scale of its own axis")
{
    PickScene scene({.nearZ = 0.5f, .centreX = 160, .centreY = 100, .scaleX = 100, .scaleY = 50});
    TestObject& object = scene.scene.addRoot();
    // A wall one unit to the right, on the screen at column 160 + 100 / Z, and a floor one unit below, at row
    // 100 + 50 / Z.
    scene.addFace(object, {{185, 87.5f, 4}, {185, 112.5f, 4}, {260, 150, 1}, {260, 50, 1}});
    scene.addFace(object, {{135, 112.5f, 4}, {60, 150, 1}, {260, 150, 1}, {185, 112.5f, 4}});
    CHECK(scene.pick(210, 100) == Hit{&object, 0, 2});
    CHECK(scene.pick(160, 125) == Hit{&object, 1, 2});
}

TEST_CASE("a face partly behind the near plane is clipped first: its hidden part cannot be hit")
{
    PickScene scene(centred(1, 1000));
    TestObject& object = scene.scene.addRoot();
    scene.addFace(object, floorCorners);
    CHECK(scene.pick(160, 150) == Hit{&object, 0, 2});
    CHECK(scene.pick(160, 200) == Hit{&object, 0, 1}); // on the cut
    CHECK(scene.pick(160, 201) == scene.nothing());
    CHECK(scene.pick(160, 250) == scene.nothing());
}

TEST_CASE("a face partly beyond the far plane is clipped first")
{
    PickScene scene(centred(0.25f, 2));
    TestObject& object = scene.scene.addRoot();
    scene.addFace(object, floorCorners);
    CHECK(scene.pick(160, 180) == Hit{&object, 0, 1.25f}); // 100 / 80
    CHECK(scene.pick(160, 149) == scene.nothing());
    CHECK(scene.pick(160, 130) == scene.nothing());
}

TEST_CASE("a face that crosses both depth planes is clipped at both")
{
    PickScene scene(centred(1, 2));
    TestObject& object = scene.scene.addRoot();
    scene.addFace(object, floorCorners);
    CHECK(scene.pick(160, 180) == Hit{&object, 0, 1.25f});
    CHECK(scene.pick(160, 210) == scene.nothing());
    CHECK(scene.pick(160, 140) == scene.nothing());
}

TEST_CASE("a clipped face can be hit beside the drawn rectangle: a pick clips at the depth planes only")
{
    PickScene scene(centred(1, 1000));
    TestObject& object = scene.scene.addRoot();
    scene.scene.view.projection.bottom = 150;
    scene.addFace(object, floorCorners);
    CHECK(scene.pick(160, 200) == Hit{&object, 0, 1});
}

TEST_CASE("a face wholly outside one plane is not hit, even under the point")
{
    for (u32 plane = outcodeNear; plane <= outcodeBottom; plane <<= 1) {
        CAPTURE(plane);
        PickScene scene;
        TestFace& face = scene.addRectangle(scene.scene.addRoot(), 10, 10, 30, 30, 8);
        for (const i32 vertex : face.indices) scene.host.outcodes[static_cast<size_t>(vertex)] = outcodeAll & ~plane;
        CHECK(scene.pick(20, 20) == scene.nothing());
    }
}

TEST_CASE("corners outside the side planes do not keep a face from being hit")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    TestFace& face = scene.addRectangle(object, 10, 10, 30, 30, 8);
    const u32 outcodes[] = {0x3b, 0x37, 0x2f, 0x1f}; // each lacks another side
    for (size_t i = 0; i < 4; ++i) scene.host.outcodes[static_cast<size_t>(face.indices[i])] = outcodes[i];
    CHECK(scene.pick(20, 20) == Hit{&object, 0, 8});
}

TEST_CASE("a pick projects the corners of a face inside both depth planes into the vertex cache")
{
    PickScene scene({.centreX = 50, .centreY = 40, .scaleX = 100, .scaleY = 10});
    TestFace& face = scene.addRectangle(scene.scene.addRoot(), 60, 10, 80, 30, 4);
    for (ScreenVertex& vertex : scene.host.screenVertices) vertex = {-1, -1, -1};
    CHECK(scene.pick(300, 190) == scene.nothing()); // hit or not
    const f32 columns[] = {60, 60, 80, 80}, rows[] = {10, 30, 30, 10};
    for (size_t i = 0; i < 4; ++i) {
        const ScreenVertex& vertex = scene.host.screenVertices[static_cast<size_t>(face.indices[i])];
        CHECK(vertex.x == doctest::Approx(columns[i]));
        CHECK(vertex.y == doctest::Approx(rows[i]));
        CHECK(vertex.invDepth == 0.25f);
        CHECK(scene.host.stamps[static_cast<size_t>(face.indices[i])] == scene.host.context().projectionStamp);
    }
}

TEST_CASE("1 / Z is rounded before a corner's position is formed from it")
{
    PickScene scene;
    TestFace& face = scene.addRectangle(scene.scene.addRoot(), 10, 10, 30, 30, 8);
    // 1/3 rounds to 0.33333334327; 100 times that lies nearer to 33.333336 than to 33.333332, which 100/3 rounds to.
    scene.host.cameraVertices[static_cast<size_t>(face.indices[0])] = {1, -1, 3};
    scene.pick(300, 190);
    const ScreenVertex& vertex = scene.host.screenVertices[static_cast<size_t>(face.indices[0])];
    CHECK(vertex.x == 33.333336f);
    CHECK(vertex.y == 33.333336f);
}

TEST_CASE("a corner whose stamp is current is taken from the cache as it is")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    TestFace& face = scene.addRectangle(object, 10, 10, 30, 30, 8);
    object.onPrepare = [&] {
        for (const i32 index : face.indices) {
            const size_t vertex = static_cast<size_t>(index);
            scene.host.screenVertices[vertex] = {scene.host.cameraVertices[vertex].x / 8 * 100 + 200,
                                                 -scene.host.cameraVertices[vertex].y / 8 * 100, 0.5f};
            scene.host.stamps[vertex] = scene.host.context().projectionStamp;
        }
    };
    CHECK(scene.pick(20, 20) == scene.nothing());
    CHECK(scene.pick(220, 20) == Hit{&object, 0, 8}); // the depth comes from camera space
    CHECK(scene.host.screenVertices[static_cast<size_t>(face.indices[0])].invDepth == 0.5f);
}

TEST_CASE("a face that crosses a depth plane neither reads nor writes the vertex cache")
{
    for (const bool crossesNear : {true, false}) {
        CAPTURE(crossesNear);
        PickScene scene(crossesNear ? centred(1, 1000) : centred(0.25f, 2));
        TestObject& object = scene.scene.addRoot();
        TestFace& face = scene.addFace(object, floorCorners);
        const ScreenVertex mark = {-7, -7, -7};
        u32 stamp = 0;
        object.onPrepare = [&] {
            stamp = scene.host.context().projectionStamp;
            for (ScreenVertex& vertex : scene.host.screenVertices) vertex = mark;
            scene.host.stamps = {stamp, stamp, stamp - 1, stamp - 1};
            scene.host.context().vertexStamps = scene.host.stamps.data();
        };
        CHECK(scene.pick(160, 180) == Hit{&object, 0, 1.25f});
        for (const i32 vertex : face.indices) {
            const ScreenVertex& cached = scene.host.screenVertices[static_cast<size_t>(vertex)];
            CHECK((cached.x == mark.x && cached.y == mark.y && cached.invDepth == mark.invDepth));
        }
        CHECK(scene.host.stamps == std::vector<u32>{stamp, stamp, stamp - 1, stamp - 1});
    }
}

TEST_CASE("faces that are turned away by their outcodes or their own test leave the vertex cache alone")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    scene.addRectangle(object, 10, 10, 30, 30, 8).shown = false;
    TestFace& outside = scene.addRectangle(object, 10, 10, 30, 30, 8);
    for (const i32 vertex : outside.indices) scene.host.outcodes[static_cast<size_t>(vertex)] = 0x3b;
    scene.pick(20, 20);
    CHECK(scene.host.stamps == std::vector<u32>(8, 0));
}

TEST_CASE("the cache that a pick fills is stale for the next pick")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    TestFace& face = scene.addRectangle(object, 10, 10, 30, 30, 8);
    CHECK(scene.pick(20, 20) == Hit{&object, 0, 8});
    for (const i32 vertex : face.indices) scene.host.cameraVertices[static_cast<size_t>(vertex)].x += 8;
    CHECK(scene.pick(20, 20) == scene.nothing());
    CHECK(scene.pick(120, 20) == Hit{&object, 0, 8});
}

TEST_CASE("a face of fewer than 3 or more than 16 corners is never hit")
{
    for (const i32 corners : {3, 16}) {
        PickScene scene;
        TestObject& object = scene.scene.addRoot();
        scene.addFace(object, ring(corners));
        CHECK(scene.pick(100, 100) == Hit{&object, 0, 2});
    }
    for (const i32 corners : {17, 24}) {
        PickScene scene;
        scene.addFace(scene.scene.addRoot(), ring(corners));
        CHECK(scene.pick(100, 100) == scene.nothing());
    }
    for (const i32 corners : {2, 1, 0, -1}) {
        PickScene scene;
        scene.addFace(scene.scene.addRoot(), ring(4)).vertexCount = corners;
        CHECK(scene.pick(100, 50) == scene.nothing()); // the first corner itself
    }
}

TEST_CASE("a face that would pass 16 corners while it is clipped is never hit")
{
    for (const i32 corners : {15, 16}) {
        PickScene scene; // the near plane at depth 1
        TestObject& object = scene.scene.addRoot();
        std::vector<ScreenCorner> cut = ring(corners);
        cut[8].z = 0.5f; // makes two corners of one
        scene.addFace(object, cut);
        CHECK(scene.pick(100, 100) == (corners == 15 ? Hit{&object, 0, 2} : scene.nothing()));
    }
}

TEST_CASE("a face whose first side has no length has no depth and is not hit")
{
    PickScene scene;
    scene.addFace(scene.scene.addRoot(), {{10, 10, 8}, {10, 10, 8}, {10, 30, 8}, {30, 30, 8}, {30, 10, 8}});
    CHECK(scene.pick(20, 20) == scene.nothing());
}

TEST_CASE("the plane is that of the first three corners")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    TestFace& face = scene.addRectangle(object, 10, 10, 30, 30, 8);
    CameraVertex& fourth = scene.host.cameraVertices[static_cast<size_t>(face.indices[3])];
    for (f32* value : {&fourth.x, &fourth.y, &fourth.z}) *value *= 2; // the same place on the screen, twice as far
    CHECK(scene.pick(28, 12) == Hit{&object, 0, 8});
}

TEST_CASE("a face behind the eye's plane at the point is a hit only if its depth is below the best so far")
{
    PickScene scene;
    TestObject& object = scene.scene.addRoot();
    scene.addRectangle(object, 10, 10, 30, 30, 8);
    // Outcodes are taken as they are: a face at depth -8 that is said to be inside everything gives z = -8.
    TestFace& behind = scene.addRectangle(object, 10, 10, 30, 30, -8);
    for (const i32 vertex : behind.indices) scene.host.outcodes[static_cast<size_t>(vertex)] = outcodeAll;
    CHECK(scene.pick(20, 20) == Hit{&object, 1, -8});
}
