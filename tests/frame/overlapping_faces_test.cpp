// Frames of a few overlapping faces, pixel by pixel.
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr u16 o = TestFrame::untouched;

// A scene of whole-height faces in 16 columns and 4 rows: every row looks the same.
struct Strip {
    TestHost host;
    TestScene scene{host, {.right = 16, .bottom = 4}};
    TestObject& object = scene.addRoot();
    TestFrame frame{16, 4};

    TestFace& add(i32 transparency, u16 colour, const std::vector<ScreenCorner>& corners)
    {
        TestMaterial& material = scene.addMaterial(0, nullptr, 0, transparency);
        material.diffuseColour.packed = colour;
        return scene.addFace(object, material, corners);
    }

    void drawsRows(const std::vector<u16>& expected, u8 flags = 0)
    {
        scene.draw(frame, flags);
        for (i32 y = 0; y < 4; ++y) CHECK(frame.row(y, 0, 16) == expected);
        CHECK(frame.fencesStand());
    }
};

std::vector<ScreenCorner> columns(f32 x, f32 xEnd, f32 z)
{
    return TestScene::rectangle(x, 0, xEnd, 4, z);
}

} // namespace

TEST_CASE("an opaque face hides the part of a farther one that lies behind it")
{
    Strip strip;
    strip.add(0, 0x1111, columns(2, 10, 4));
    strip.add(0, 0x2222, columns(6, 14, 2));
    strip.drawsRows(
        {o, o, 0x1111, 0x1111, 0x1111, 0x1111, 0x2222, 0x2222, 0x2222, 0x2222, 0x2222, 0x2222, 0x2222, 0x2222, o, o});
}

TEST_CASE("a see-through face blends over an opaque one, which hides the see-through one behind it")
{
    Strip strip;
    strip.add(50, 0x0010, columns(2, 14, 1)); // nearest
    strip.add(0, 0x0400, columns(4, 12, 2));
    strip.add(50, 0x8000, columns(0, 16, 4)); // farthest
    // Over the cleared 0 the farthest is half of 0x8000, the nearest over that (0x4000 + 0x0010) / 2, and over the
    // opaque one (0x0400 + 0x0010) / 2.
    strip.drawsRows({0x4000, 0x4000, 0x2008, 0x2008, 0x0208, 0x0208, 0x0208, 0x0208, 0x0208, 0x0208, 0x0208, 0x0208,
                     0x2008, 0x2008, 0x4000, 0x4000},
                    1);
}

TEST_CASE("of two faces at the same depth the one entered second lies in front")
{
    Strip strip;
    strip.add(0, 0x1111, columns(2, 10, 2));
    strip.add(0, 0x2222, columns(6, 14, 2));
    strip.drawsRows(
        {o, o, 0x1111, 0x1111, 0x1111, 0x1111, 0x2222, 0x2222, 0x2222, 0x2222, 0x2222, 0x2222, 0x2222, 0x2222, o, o});
}

TEST_CASE("of two equal faces the one filed first lies in front: its edge comes second")
{
    Strip strip;
    strip.add(0, 0x1111, columns(2, 6, 2));
    strip.add(0, 0x2222, columns(2, 6, 2));
    strip.drawsRows({o, o, 0x1111, 0x1111, 0x1111, 0x1111, o, o, o, o, o, o, o, o, o, o});
}

TEST_CASE("a face whose outline runs clockwise on the screen is not drawn, opaque or see-through")
{
    for (const i32 transparency : {0, 50}) {
        Strip strip;
        std::vector<ScreenCorner> clockwise = columns(2, 10, 1);
        std::reverse(clockwise.begin(), clockwise.end());
        strip.add(transparency, 0x1111, clockwise);
        strip.drawsRows(std::vector<u16>(16, o));
    }
}
