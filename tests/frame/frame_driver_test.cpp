#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("a rectangle of the material's colour covers its columns and rows, and nothing else is touched")
{
    TestHost host;
    TestScene scene(host, {.right = 16, .bottom = 8});
    TestFrame frame(16, 8);
    TestMaterial& material = scene.addMaterial();
    material.diffuseColour.packed = 0x1234;
    scene.addFace(scene.addRoot(), material, TestScene::rectangle(2, 3, 7, 5));

    scene.draw(frame);

    const u16 o = TestFrame::untouched;
    CHECK(frame.row(2, 0, 16) == std::vector<u16>(16, o));
    for (const i32 y : {3, 4}) {
        CHECK(frame.row(y, 0, 9) == std::vector<u16>{o, o, 0x1234, 0x1234, 0x1234, 0x1234, 0x1234, o, o});
    }
    CHECK(frame.row(5, 0, 16) == std::vector<u16>(16, o));
    CHECK(frame.fencesStand());
}
