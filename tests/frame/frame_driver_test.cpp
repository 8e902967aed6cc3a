// What one call draws, clears and leaves alone.
#include "geometry/polygon_lists.h"
#include "spanbuffer/edge_table.h"
#include "tests/frame/fill_recorder.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

constexpr u16 untouched = TestFrame::untouched;

TEST_CASE("a rectangle of the material's colour covers its columns and rows, and nothing else is touched")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 8});
    TestFrame frame(16, 8);
    TestMaterial& material = scene.addMaterial();
    material.diffuseColour.packed = 0x1234;
    scene.addFace(scene.addRoot(), material, TestScene::rectangle(2, 3, 7, 5));

    scene.draw(frame);

    const u16 o = untouched;
    CHECK(frame.row(2, 0, 16) == std::vector<u16>(16, o));
    for (const i32 y : {3, 4}) {
        CHECK(frame.row(y, 0, 9) == std::vector<u16>{o, o, 0x1234, 0x1234, 0x1234, 0x1234, 0x1234, o, o});
    }
    CHECK(frame.row(5, 0, 16) == std::vector<u16>(16, o));
    CHECK(frame.fencesStand());
}

TEST_CASE("without a camera nothing is called, drawn or reset")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 8});
    TestFrame frame(16, 8);
    scene.addFace(scene.addRoot(), scene.addMaterial(), TestScene::rectangle(2, 3, 7, 5));
    scene.draw(frame);
    REQUIRE(resolvedPolygons.count == 1);
    frame.clear(0x7777);
    scene.log.clear();

    scene.view.record.camera = nullptr;
    scene.draw(frame, 1);

    CHECK(scene.log.empty());
    CHECK(frame.row(3, 0, 16) == std::vector<u16>(16, 0x7777));
    CHECK(resolvedPolygons.count == 1);
}

TEST_CASE("the camera's function is called with camera and view before anything else")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 8});
    TestFrame frame(16, 8);
    scene.addRoot("object");
    RenderView* given = nullptr;
    scene.onCamera = [&](RenderView* view) { given = view; };
    scene.draw(frame);
    CHECK(given == &scene.view.record);
    REQUIRE(scene.log.size() > 1);
    CHECK(scene.log[0] == "camera");
    CHECK(scene.log[1] == "update object");
}

TEST_CASE("the frame is drawn through the view that the camera's function leaves")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 8});
    TestFrame frame(16, 8);
    scene.onCamera = [&](RenderView* view) {
        view->left = 4;
        scene.view.projection.right = 6;
    };
    scene.draw(frame, 1);
    const u16 o = untouched;
    CHECK(frame.row(0, 2, 8) == std::vector<u16>{o, o, 0, 0, o, o});
}

TEST_CASE("an empty scene with the clear flag clears every pixel of the rectangle, and only those")
{
    TestHost host;
    // Columns 3 to 11: an odd first column and an odd count.
    TestScene scene(host, {.left = 3, .top = 2, .right = 12, .bottom = 6});
    TestFrame frame(16, 8);
    scene.draw(frame, 1);
    for (i32 y = 0; y < 8; ++y) {
        for (i32 x = 0; x < 16; ++x) {
            const bool inside = x >= 3 && x < 12 && y >= 2 && y < 6;
            CHECK(frame.at(x, y) == (inside ? 0 : untouched));
        }
    }
    CHECK(frame.fencesStand());
}

TEST_CASE("an empty scene without the clear flag leaves the frame buffer alone, whatever the other flags are")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 8});
    TestFrame frame(16, 8);
    for (const u8 flags : {u8{0}, u8{0xfe}}) {
        scene.draw(frame, flags);
        for (i32 y = 0; y < 8; ++y) CHECK(frame.row(y, 0, 16) == std::vector<u16>(16, untouched));
    }
    scene.draw(frame, 0xff);
    CHECK(frame.row(0, 0, 16) == std::vector<u16>(16, 0));
}

TEST_CASE("what an occluding polygon covers is not cleared, what a see-through one covers is")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 1});
    TestFrame frame(16, 1);
    FillRecorder recorder;
    TestObject& object = scene.addRoot();
    TestMaterial& wall = scene.addMaterial();
    TestMaterial& glass = scene.addMaterial(0, nullptr, 0, 50);
    scene.addFace(object, wall, TestScene::rectangle(2, 0, 5, 1));
    scene.addFace(object, glass, TestScene::rectangle(8, 0, 12, 1));
    recorder.watch(wall);
    recorder.watch(glass);

    scene.draw(frame, 1);

    const u16 o = untouched;
    CHECK(frame.row(0, 0, 16) == std::vector<u16>{0, 0, o, o, o, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
}

TEST_CASE("the clear comes before the fillers: a see-through polygon blends over the cleared background")
{
    TestHost host(16);
    TestScene scene(host, {.right = 4, .bottom = 1});
    TestFrame frame(4, 1, 0xffff);
    TestMaterial& glass = scene.addMaterial(0, nullptr, 0, 50);
    glass.diffuseColour.packed = 0xf000;
    scene.addFace(scene.addRoot(), glass, TestScene::rectangle(1, 0, 3, 1));
    scene.draw(frame, 1);
    // (0xf000 AND 0xf7df) / 2 over 0
    CHECK(frame.row(0, 0, 4) == std::vector<u16>{0, 0x7800, 0x7800, 0});
}

TEST_CASE("the clear comes before every filler")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 1});
    FillRecorder recorder;
    TestMaterial& wall = scene.addMaterial();
    scene.addFace(scene.addRoot(), wall, TestScene::rectangle(2, 0, 5, 1));
    recorder.watch(wall);
    std::vector<u16> pixels(16, untouched);
    for (const u8 flags : {u8{0}, u8{1}}) Kardeno_Render_Dll(&scene.view.record, pixels.data(), 0, flags);
    REQUIRE(recorder.calls.size() == 2);
    CHECK(recorder.calls[0].firstPixel == untouched);
    CHECK(recorder.calls[1].firstPixel == 0);
}

TEST_CASE("the clear uses the view's pitch")
{
    TestHost host;
    TestScene scene(host, {.right = 2, .bottom = 3});
    std::vector<u16> pixels(15, 7);
    scene.view.record.pitch = 5;
    Kardeno_Render_Dll(&scene.view.record, pixels.data(), 0, 1);
    CHECK(pixels == std::vector<u16>{0, 0, 7, 7, 7, 0, 0, 7, 7, 7, 0, 0, 7, 7, 7});
}

TEST_CASE("with a pitch of 0 all rows fall on one; with a negative one they run upward")
{
    TestHost host;
    TestScene scene(host, {.right = 4, .bottom = 3});
    TestMaterial& material = scene.addMaterial();
    material.diffuseColour.packed = 0x1234;
    scene.addFace(scene.addRoot(), material, TestScene::rectangle(1, 1, 3, 3));
    std::vector<u16> pixels(32, 7);

    scene.view.record.pitch = 0;
    Kardeno_Render_Dll(&scene.view.record, &pixels[8], 0, 0);
    std::vector<u16> expected(32, 7);
    expected[9] = expected[10] = 0x1234;
    CHECK((pixels == expected));

    // Row 0 from element 20 on, row 1 from 14 and row 2 from 8.
    pixels.assign(32, 7);
    scene.view.record.pitch = -6;
    Kardeno_Render_Dll(&scene.view.record, &pixels[20], 0, 0);
    expected.assign(32, 7);
    expected[15] = expected[16] = expected[9] = expected[10] = 0x1234;
    CHECK((pixels == expected));
}

TEST_CASE("every filler is given the frame buffer, the caller's argument and the view's pitch")
{
    TestHost host;
    TestScene scene(host, {.right = 64, .bottom = 64, .farZ = 100});
    FillRecorder recorder;
    TestTexture texture(16, 4, 4);
    TestObject& object = scene.addRoot();
    TestMaterial* const materials[] = {&scene.addMaterial(), &scene.addMaterial(0, nullptr, 0, 50),
                                       &scene.addMaterial(0, &texture, 10)};
    for (TestMaterial* material : materials) {
        scene.addFace(object, *material, TestScene::rectangle(2, 2, 9, 9));
        recorder.watch(*material);
    }
    u16 pixels[1] = {};
    scene.view.record.pitch = 4321;
    Kardeno_Render_Dll(&scene.view.record, pixels, 0xcafef00d, 0);

    REQUIRE(recorder.calls.size() == 3);
    for (const FillCall& call : recorder.calls) {
        CHECK(call.frameBuffer == pixels);
        CHECK(call.argument == 0xcafef00d);
        CHECK(call.pitch == 4321);
    }
}

TEST_CASE("resolved polygons are drawn in list order, then the sorted ones, then the late ones, each far to near")
{
    TestHost host;
    TestScene scene(host, {.right = 200, .bottom = 200});
    TestFrame frame(200, 200);
    FillRecorder recorder;
    TestTexture texture(16, 4, 4);
    TestObject& object = scene.addRoot();
    TestMaterial& wall = scene.addMaterial();
    TestMaterial& floor = scene.addMaterial(0, &texture);
    TestMaterial& glass = scene.addMaterial(0, nullptr, 0, 50);
    TestMaterial& spark = scene.addMaterial(0, &texture, 11); // a billboard of the sorted list
    TestMaterial& glow = scene.addMaterial(0, &texture, 10);  // one of the late list
    const auto add = [&](TestMaterial& material, f32 z) {
        scene.addFace(object, material, TestScene::rectangle(20, 20, 40, 40, z));
    };
    add(glow, 30);
    add(glass, 5);
    add(wall, 7);
    add(spark, 60);
    add(glow, 400);
    add(floor, 3);
    add(glass, 500);
    add(wall, 9);
    for (TestMaterial* material : {&wall, &floor, &glass, &spark, &glow}) recorder.watch(*material);

    scene.draw(frame);

    using Materials = std::vector<const SceneMaterial*>;
    CHECK(recorder.materials() == Materials{&wall, &floor, &wall, &glass, &spark, &glass, &glow, &glow});
    std::vector<i32> depths = recorder.depths();
    depths.erase(depths.begin(), depths.begin() + 3); // resolved polygons have none
    CHECK(depths == std::vector<i32>{500, 60, 5, 400, 30});
}

TEST_CASE("of sorted polygons with equal keys the one later in the list is painted first")
{
    TestHost host;
    TestScene scene(host, {.right = 200, .bottom = 200});
    TestFrame frame(200, 200);
    FillRecorder recorder;
    TestObject& object = scene.addRoot();
    std::vector<const SceneMaterial*> expected;
    for (const f32 z : {7.0f, 3.0f, 7.9f, 1.0f}) { // keys 7, 3, 7, 1: in the order 3, 1, 0, 2
        TestMaterial& glass = scene.addMaterial(0, nullptr, 0, 50);
        scene.addFace(object, glass, TestScene::rectangle(20, 20, 40, 40, z));
        recorder.watch(glass);
        expected.push_back(&glass);
    }
    scene.draw(frame);
    std::vector<const SceneMaterial*> painted = recorder.materials();
    REQUIRE(painted.size() == 4);
    for (const size_t i : {0, 1, 2, 3}) CHECK(painted[i] == expected[std::vector<size_t>{2, 0, 1, 3}[i]]);
}

TEST_CASE("a see-through polygon is drawn over an occluding one that was met later")
{
    TestHost host(16);
    TestScene scene(host, {.right = 4, .bottom = 1});
    TestFrame frame(4, 1);
    TestObject& object = scene.addRoot();
    TestMaterial& glass = scene.addMaterial(0, nullptr, 0, 50);
    TestMaterial& wall = scene.addMaterial();
    glass.diffuseColour.packed = 0x0010;
    wall.diffuseColour.packed = 0x8000;
    scene.addFace(object, glass, TestScene::rectangle(0, 0, 2, 1, 5));
    scene.addFace(object, wall, TestScene::rectangle(0, 0, 4, 1, 9));
    scene.draw(frame);
    CHECK(frame.row(0, 0, 4) == std::vector<u16>{0x4008, 0x4008, 0x8000, 0x8000});
}

TEST_CASE("late polygons file no edges, and are drawn where walls hide them")
{
    TestHost host(16);
    TestScene scene(host, {.right = 20, .bottom = 20});
    TestFrame frame(20, 20);
    TestTexture texture(16, 4, 4);
    for (i32 i = 0; i < 16; ++i) texture.setTexel(i % 4, i / 4, 0x0001);
    TestObject& object = scene.addRoot();
    TestMaterial& wall = scene.addMaterial();
    wall.diffuseColour.packed = 0x8000;
    scene.addFace(object, wall, TestScene::rectangle(0, 0, 20, 20, 2));
    scene.addFace(object, scene.addMaterial(0, &texture, 10), TestScene::rectangle(4, 4, 8, 8, 50));
    scene.draw(frame);

    CHECK(EdgePool.count == 2);
    CHECK(lateSortedPolygons.count == 1);
    // Added to the wall where each has its lowest bit cleared: 0x8000 + (0x0001 AND 0xf7df).
    CHECK(frame.at(5, 5) == 0x8001);
    CHECK(frame.at(9, 9) == 0x8000);
}

TEST_CASE("every frame starts from empty lists")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 8});
    TestFrame frame(16, 8);
    TestTexture texture(16, 4, 4);
    TestObject& object = scene.addRoot();
    scene.addFace(object, scene.addMaterial(), TestScene::rectangle(2, 1, 7, 5));
    scene.addFace(object, scene.addMaterial(0, nullptr, 0, 50), TestScene::rectangle(2, 1, 7, 5));
    scene.addFace(object, scene.addMaterial(0, &texture, 10), TestScene::rectangle(2, 1, 5, 4));
    for (i32 i = 0; i < 3; ++i) {
        scene.draw(frame);
        CHECK(resolvedPolygons.count == 1);
        CHECK(sortedPolygons.count == 1);
        CHECK(lateSortedPolygons.count == 1);
    }
    object.visible = object.boundsVisible = 0;
    scene.draw(frame);
    CHECK(resolvedPolygons.count == 0);
    CHECK(sortedPolygons.count == 0);
    CHECK(lateSortedPolygons.count == 0);
}

TEST_CASE("a nearer polygon hides a farther one whichever is met first")
{
    for (const bool nearFirst : {true, false}) {
        TestHost host;
        TestScene scene(host, {.right = 6, .bottom = 1});
        TestFrame frame(6, 1);
        TestObject& object = scene.addRoot();
        TestMaterial& near = scene.addMaterial();
        TestMaterial& far = scene.addMaterial();
        near.diffuseColour.packed = 1;
        far.diffuseColour.packed = 2;
        if (nearFirst) scene.addFace(object, near, TestScene::rectangle(2, 0, 4, 1, 5));
        scene.addFace(object, far, TestScene::rectangle(1, 0, 5, 1, 6));
        if (!nearFirst) scene.addFace(object, near, TestScene::rectangle(2, 0, 4, 1, 5));
        scene.draw(frame, 1);
        CHECK(frame.row(0, 0, 6) == std::vector<u16>{0, 2, 1, 1, 2, 0});
    }
}
