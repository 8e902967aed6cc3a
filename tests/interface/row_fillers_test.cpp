// Every row draws with its own filler: one pixel of each, worked out by hand.
#include "host/render_modes.h"
#include "interface/render_mode_table.h"
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr u16 background = 0x4208;
constexpr u16 faceColour = 0x1234;
constexpr u16 diffuse = 0x8410;
constexpr u16 texel = 0x1863;
constexpr u32 paletteIndex = 5;

// The square of columns and rows 2 to 5 in a frame of one colour, drawn with a row. The ramp's entry k is the pixel k;
// light intensity 100 is level 25; the colour channels are 128, 64 and 248.
struct OneSquare {
    TestHost host;
    TestScene scene{host, {.right = 8, .bottom = 8}};
    TestFrame frame{8, 8, background};
    TestTexture trueColour{16, 4, 4};
    TestTexture palettised{8, 4, 4};
    std::vector<RampEntry> ramp = std::vector<RampEntry>(16384);
    MaterialPrivate privateRecord = {nullptr, nullptr};
    TestMaterial& material = scene.bareMaterial();

    OneSquare(RenderModeRow row, bool eightBit, u32 index = paletteIndex)
    {
        for (u32 i = 0; i < 16384; ++i) ramp[i] = i << 16;
        for (i32 y = 0; y < 4; ++y) {
            for (i32 x = 0; x < 4; ++x) {
                trueColour.setTexel(x, y, texel);
                palettised.setTexel(x, y, index);
            }
        }
        privateRecord = {&RenderModeTable[row], ramp.data()};
        material.renderPrivate = &privateRecord;
        material.diffuseColour.packed = diffuse;
        material.textureMap = eightBit ? &palettised.map : &trueColour.map;
        palettised.map.transparentIndex = 99;
        scene.addFace(scene.addRoot(), material, TestScene::rectangle(2, 2, 6, 6, 2), faceColour);
        for (VertexShade& shade : host.shades) shade = {128, 64, 248, 100};
    }

    u16 pixel()
    {
        scene.draw(frame);
        CHECK(frame.at(1, 3) == background);
        CHECK(frame.at(6, 3) == background);
        CHECK(frame.at(3, 1) == background);
        CHECK(frame.at(3, 6) == background);
        CHECK(frame.at(2, 2) == frame.at(3, 3));
        CHECK(frame.at(5, 5) == frame.at(3, 3));
        CHECK(frame.fencesStand());
        return frame.at(3, 3);
    }
};

u16 unlitPixel(RenderModeRow row)
{
    return OneSquare(row, false).pixel();
}

u16 litPixel(RenderModeRow row)
{
    return OneSquare(row, true).pixel();
}

} // namespace

// Half blends keep 0xf7df of both pixels and halve the sum; of the background that is all: 0x4208.

TEST_CASE("FallbackFlat repeats the low byte of the face's colour")
{
    CHECK(unlitPixel(rowFallbackFlat) == 0x3434);
}

TEST_CASE("FallbackBlend half blends the face's colour")
{
    CHECK(unlitPixel(rowFallbackBlend) == (0x1214 + 0x4208) / 2);
}

TEST_CASE("UnlitPlain stores the material's diffuse colour")
{
    CHECK(unlitPixel(rowUnlitPlain) == diffuse);
}

TEST_CASE("UnlitTextured copies the texel")
{
    CHECK(unlitPixel(rowUnlitTextured) == texel);
}

TEST_CASE("UnlitTexturedShade1 copies the texel unless it is the transparent colour")
{
    CHECK(unlitPixel(rowUnlitTexturedShade1) == texel);
    OneSquare keyed(rowUnlitTexturedShade1, false);
    keyed.trueColour.map.transparentColour = texel;
    CHECK(keyed.pixel() == background);
}

TEST_CASE("UnlitTranslucent half blends the diffuse colour")
{
    CHECK(unlitPixel(rowUnlitTranslucent) == (0x8410 + 0x4208) / 2);
}

TEST_CASE("UnlitTexturedTranslucent half blends the texel")
{
    CHECK(unlitPixel(rowUnlitTexturedTranslucent) == (0x1043 + 0x4208) / 2);
}

TEST_CASE("UnlitTexturedShade2, 10 and 11 add the texel")
{
    // No channel overflows: bits 0x20, 0x800 and 0x10000 of the sum are clear.
    CHECK(unlitPixel(rowUnlitTexturedShade2) == 0x1043 + 0x4208);
    CHECK(unlitPixel(rowUnlitTexturedShade10) == 0x1043 + 0x4208);
    CHECK(unlitPixel(rowUnlitTexturedShade11) == 0x1043 + 0x4208);
}

TEST_CASE("UnlitTexturedShade10 adds over what hides it, UnlitTexturedShade11 does not")
{
    for (const RenderModeRow row : {rowUnlitTexturedShade10, rowUnlitTexturedShade11}) {
        OneSquare square(row, false);
        TestMaterial& wall = square.scene.addMaterial();
        wall.diffuseColour.packed = 0x2104;
        square.scene.addFace(square.scene.addRoot(), wall, TestScene::rectangle(2, 2, 6, 6, 1));
        const u16 pixel = square.pixel();
        CHECK(pixel == (row == rowUnlitTexturedShade10 ? 0x1043 + 0x2104 : 0x2104));
    }
}

TEST_CASE("UnlitPalettised shows the ramp's level 63")
{
    CHECK(litPixel(rowUnlitPalettised) == 63 * 256 + 5);
}

TEST_CASE("LitPlain shows the light level's entry")
{
    CHECK(litPixel(rowLitPlain) == 25);
}

TEST_CASE("LitTextured shows the palette entry at the light level")
{
    CHECK(litPixel(rowLitTextured) == 25 * 256 + 5);
}

TEST_CASE("LitTexturedShade1 does the same unless the index is the transparent one")
{
    CHECK(litPixel(rowLitTexturedShade1) == 25 * 256 + 5);
    CHECK(OneSquare(rowLitTexturedShade1, true, 0).pixel() == 25 * 256);
    OneSquare keyed(rowLitTexturedShade1, true);
    keyed.palettised.map.transparentIndex = 5;
    CHECK(keyed.pixel() == background);
}

TEST_CASE("LitTranslucent half blends the light level's entry")
{
    CHECK(litPixel(rowLitTranslucent) == (0x0019 + 0x4208) / 2);
}

TEST_CASE("LitTexturedTranslucent half blends the lit texel, index 0 included")
{
    // 25 x 256 + 5 = 0x1905, of which the mask leaves 0x1105.
    CHECK(litPixel(rowLitTexturedTranslucent) == (0x1105 + 0x4208) / 2);
    CHECK(OneSquare(rowLitTexturedTranslucent, true, 0).pixel() == (0x1100 + 0x4208) / 2);
}

TEST_CASE("LitTexturedShade1Translucent half blends the lit texel and leaves index 0 out")
{
    CHECK(OneSquare(rowLitTexturedShade1Translucent, true, 0).pixel() == background);
    OneSquare keyed(rowLitTexturedShade1Translucent, true);
    keyed.palettised.map.transparentIndex = 5; // not looked at
    CHECK(keyed.pixel() == (0x1105 + 0x4208) / 2);
}

TEST_CASE("LitTexturedShade2 adds the lit texel")
{
    CHECK(litPixel(rowLitTexturedShade2) == 0x1105 + 0x4208);
}

TEST_CASE("SpareA packs the three colour channels")
{
    // 128 >> 3 = 16, 64 >> 2 = 16, 248 >> 3 = 31
    CHECK(unlitPixel(rowSpareA) == (16 * 64 + 16) * 32 + 31);
}

TEST_CASE("SpareB scales the texel by the three colour channels")
{
    // The texel is red 3, green 3, blue 3. Blue 3 x 248 / 255 = 2; green (3 x 64 << 5) / 255 = 24, below the field;
    // red (24 x 128 << 8) / 255 = 3084 = 0x0c0c, of which the field takes 0x0800.
    CHECK(unlitPixel(rowSpareB) == 0x0802);
}
