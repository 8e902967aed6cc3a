// What a frame does in which order, where only a frame of a special kind shows it.
#include "tests/frame/fill_recorder.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("the pitch is read after the camera's function has run")
{
    TestHost host;
    TestScene scene(host, {.right = 2, .bottom = 3});
    FillRecorder recorder;
    TestMaterial& wall = scene.addMaterial();
    scene.addFace(scene.addRoot(), wall, TestScene::rectangle(1, 1, 2, 2));
    recorder.watch(wall);
    scene.view.record.pitch = 2;
    scene.onCamera = [](RenderView* view) { view->pitch = 5; };
    std::vector<u16> pixels(15, 7);

    Kardeno_Render_Dll(&scene.view.record, pixels.data(), 0, 1);

    // Rows begin at pixels 0, 5 and 10; the wall's pixel is its filler's to draw.
    CHECK(pixels == std::vector<u16>{0, 0, 7, 7, 7, 0, 7, 7, 7, 7, 0, 0, 7, 7, 7});
    REQUIRE(recorder.calls.size() == 1);
    CHECK(recorder.calls[0].pitch == 5);
}

TEST_CASE("resolved polygons are filed before sorted ones: of equal outlines and depths the wall lies before the glass")
{
    // Of equal edges the one filed later comes first in its row: the glass is entered first and the wall second, which
    // on equal depth lies in front. Which face was met first does not matter.
    for (const bool glassFirst : {true, false}) {
        CAPTURE(glassFirst);
        TestHost host;
        TestScene scene(host, {.right = 6, .bottom = 1});
        TestFrame frame(6, 1);
        TestObject& object = scene.addRoot();
        TestMaterial& wall = scene.addMaterial();
        TestMaterial& glass = scene.addMaterial(0, nullptr, 0, 50);
        wall.diffuseColour.packed = 0x1111;
        glass.diffuseColour.packed = 0x8000;
        for (const bool first : {true, false}) {
            TestMaterial& material = first == glassFirst ? glass : wall;
            scene.addFace(object, material, TestScene::rectangle(2, 0, 5, 1, 4));
        }
        scene.draw(frame);
        constexpr u16 o = TestFrame::untouched;
        CHECK(frame.row(0, 0, 6) == std::vector<u16>{o, o, 0x1111, 0x1111, 0x1111, o});
    }
}

TEST_CASE("a frame of late billboards alone is drawn in its own rectangle, whatever the frame before it had")
{
    TestHost host(16);
    TestScene scene(host, {.right = 20, .bottom = 20});
    TestTexture texture(16, 4, 4);
    for (i32 i = 0; i < 16; ++i) texture.setTexel(i % 4, i / 4, 0x0001);
    scene.addFace(scene.addRoot(), scene.addMaterial(0, &texture, 10), TestScene::rectangle(4, 4, 16, 16));

    struct Sides {
        i32 left, top, right, bottom;
    };
    for (const Sides& sides : {Sides{0, 0, 8, 9}, {0, 0, 20, 20}, {6, 5, 12, 11}, {1, 2, 19, 18}}) {
        CAPTURE(sides.right);
        scene.view.record.left = static_cast<f32>(sides.left);
        scene.view.record.top = static_cast<f32>(sides.top);
        scene.view.projection.right = static_cast<f32>(sides.right);
        scene.view.projection.bottom = static_cast<f32>(sides.bottom);
        TestFrame frame(20, 20, 0x8000);
        scene.draw(frame);
        // The billboard is the square of columns and rows 4 to 15; it adds 0x0001 wherever the rectangle shows it.
        i32 wrong = 0;
        for (i32 y = 0; y < 20; ++y) {
            for (i32 x = 0; x < 20; ++x) {
                const bool shown = x >= 4 && x < 16 && y >= 4 && y < 16 && x >= sides.left && x < sides.right
                                   && y >= sides.top && y < sides.bottom;
                wrong += frame.at(x, y) != (shown ? 0x8001 : 0x8000);
            }
        }
        CHECK(wrong == 0);
        CHECK(frame.fencesStand());
    }
}
