// A host that gives a material another row, map or colour while the objects are walked: faces were emitted with the
// one, and are drawn with the other.
#include "host/render_modes.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

constexpr i32 size = 16; // of the map and of the rectangle that shows it

u16 pixelOf(i32 x, i32 y)
{
    return static_cast<u16>(0x1000 + y * 0x100 + x);
}

u16 brightPixelOf(i32 x, i32 y)
{
    return static_cast<u16>(pixelOf(x, y) + 0x4000);
}

// A rectangle that shows its map texel by pixel, and an object behind it whose callback changes its material.
class ChangedMaterial {
public:
    explicit ChangedMaterial(RenderModeRow row)
    {
        for (i32 y = 0; y < size; ++y) {
            for (i32 x = 0; x < size; ++x) {
                palettised.setTexel(x, y, static_cast<u32>(y * size + x));
                trueColour.setTexel(x, y, pixelOf(x, y));
                otherColours.setTexel(x, y, static_cast<u32>(pixelOf(x, y) + 0x2000));
            }
        }
        for (u32 i = 0; i < 64 * 256; ++i) {
            // The lowest level has the pixels of the true-colour map, the highest one brighter ones.
            const u32 level = i / 256;
            const u32 pixel = pixelOf(static_cast<i32>(i % 16), static_cast<i32>(i / 16 % 16));
            ramp.push_back(level == 0 ? pixel << 16 : level == 63 ? (pixel + 0x4000) << 16 : 0xeeee0000);
        }
        privateRecord = {&RenderModeTable[row], ramp.data()};
        material.renderPrivate = &privateRecord;
        material.textureMap = &mapOf(row).map;
        material.diffuseColour.packed = 0x4321;

        const std::vector<ScreenCorner> corners = TestScene::rectangle(0, 0, size, size);
        scene.addFace(object, material, corners, {{0, 0}, {0, 1}, {1, 1}, {1, 0}});
        for (VertexShade& shade : host.shades) shade = {255, 255, 255, 100};
        object.faceList[0]->faceColour = &faceColour;
        changing.onPrepare = [this] {
            if (change) change();
        };
    }

    TestTexture& mapOf(RenderModeRow row)
    {
        const bool isPalettised = row == rowUnlitPalettised || row == rowLitTextured || row == rowLitTexturedShade1
                                  || row == rowLitTexturedTranslucent || row == rowLitTexturedShade1Translucent
                                  || row == rowLitTexturedShade2;
        return isPalettised ? palettised : trueColour;
    }

    TestHost host;
    TestScene scene{host, {.right = size, .bottom = size}};
    TestTexture palettised{8, size, size};
    TestTexture trueColour{16, size, size};
    TestTexture otherColours{16, size, size};
    std::vector<RampEntry> ramp;
    MaterialPrivate privateRecord;
    TestMaterial& material = scene.bareMaterial();
    TestObject& object = scene.addRoot();
    TestObject& changing = scene.addRoot();
    std::function<void()> change; // called after the rectangle was emitted
    u16 faceColour = 0x7788;
    TestFrame frame{size, size};

    void draw()
    {
        frame.clear(0);
        scene.draw(frame);
        CHECK(frame.fencesStand());
    }

    // Whether every pixel of the frame is the one that expected(x, y) gives.
    template <class Expected>
    bool shows(Expected expected)
    {
        for (i32 y = 0; y < size; ++y) {
            for (i32 x = 0; x < size; ++x) {
                if (frame.at(x, y) != expected(x, y)) return false;
            }
        }
        return true;
    }

    void changeRowTo(RenderModeRow row)
    {
        change = [this, row] { privateRecord.mode = &RenderModeTable[row]; };
    }
};

} // namespace

TEST_CASE("the set-up shows its map texel by pixel")
{
    ChangedMaterial trueColour(rowUnlitTextured);
    trueColour.draw();
    CHECK(trueColour.shows(pixelOf));
}

TEST_CASE("the set-up shows a palettised map at full light, and a lit one at its own")
{
    {
        ChangedMaterial palettised(rowUnlitPalettised);
        palettised.draw();
        CHECK(palettised.shows(brightPixelOf));
    }
    {
        ChangedMaterial lit(rowLitTextured);
        lit.draw();
        CHECK(lit.shows([](i32, i32) { return 0xeeee; }));
    }
}

TEST_CASE("a textured face whose material has a plain row when it is drawn shows the diffuse colour")
{
    for (const RenderModeRow row : {rowUnlitTextured, rowLitTextured, rowSpareB, rowLitPlain, rowSpareA}) {
        ChangedMaterial scene(row);
        scene.changeRowTo(rowUnlitPlain);
        scene.draw();
        CHECK(scene.shows([](i32, i32) { return 0x4321; }));
    }
}

TEST_CASE("a face whose material has a flat fallback row when it is drawn shows the low byte of its colour")
{
    ChangedMaterial scene(rowUnlitTextured);
    scene.changeRowTo(rowFallbackFlat);
    scene.draw();
    CHECK(scene.shows([](i32, i32) { return 0x8888; }));
}

TEST_CASE("a lit or coloured textured face whose material has an unlit row when it is drawn shows its map")
{
    {
        ChangedMaterial lit(rowLitTextured);
        lit.changeRowTo(rowUnlitPalettised);
        lit.draw();
        CHECK(lit.shows(brightPixelOf));
    }
    {
        ChangedMaterial coloured(rowSpareB);
        coloured.changeRowTo(rowUnlitTextured);
        coloured.draw();
        CHECK(coloured.shows(pixelOf));
    }
}

TEST_CASE("a lit face without a texture whose material has a textured row when it is drawn shows the map's first texel")
{
    // Its corners are stored without texture coordinates, which then count as 0. They take as many bytes as textured
    // ones, so that the intensity, 25 texels as a coordinate, could pass for one.
    {
        ChangedMaterial scene(rowLitPlain);
        scene.changeRowTo(rowUnlitTextured);
        scene.draw();
        CHECK(scene.shows([](i32, i32) { return pixelOf(0, 0); }));
    }
    {
        ChangedMaterial scene(rowLitPlain);
        scene.change = [&] {
            scene.privateRecord.mode = &RenderModeTable[rowUnlitPalettised];
            scene.material.textureMap = &scene.palettised.map;
        };
        scene.draw();
        CHECK(scene.shows([](i32, i32) { return brightPixelOf(0, 0); }));
    }
}

TEST_CASE("an unlit textured face whose material has a lit row when it is drawn is lit by level 0")
{
    ChangedMaterial scene(rowUnlitPalettised);
    scene.changeRowTo(rowLitTextured);
    scene.draw();
    CHECK(scene.shows(pixelOf));
}

TEST_CASE("a face is drawn with the map, the colour and the ramp that its material has when it is drawn")
{
    {
        ChangedMaterial scene(rowUnlitTextured);
        scene.change = [&] { scene.material.textureMap = &scene.otherColours.map; };
        scene.draw();
        CHECK(scene.shows([](i32 x, i32 y) { return pixelOf(x, y) + 0x2000; }));
    }
    {
        ChangedMaterial scene(rowUnlitPlain);
        scene.change = [&] { scene.material.diffuseColour.packed = 0x0505; };
        scene.draw();
        CHECK(scene.shows([](i32, i32) { return 0x0505; }));
    }
    {
        ChangedMaterial scene(rowUnlitPalettised);
        std::vector<RampEntry> other(64 * 256, 0x66660000);
        scene.change = [&] { scene.privateRecord.shadeRamp = other.data(); };
        scene.draw();
        CHECK(scene.shows([](i32, i32) { return 0x6666; }));
    }
}

TEST_CASE("polygons of one material that were emitted with different rows stand in one run and are drawn one by one")
{
    ChangedMaterial scene(rowLitTextured);
    TestObject& later = scene.scene.addRoot();
    const std::vector<ScreenCorner> right = TestScene::rectangle(8, 0, size, size, 0.5f); // nearer
    scene.scene.view.record.nearZ = 0.25f;
    scene.scene.addFace(later, scene.material, right, {{0.5f, 0}, {0.5f, 1}, {1, 1}, {1, 0}});
    for (u32& outcode : scene.host.outcodes) outcode = outcodeAll;
    scene.changeRowTo(rowUnlitPalettised);
    scene.draw();
    CHECK(scene.shows(brightPixelOf));
}

TEST_CASE("whatever row a material has in the place of that of emission, drawing stays inside the view")
{
    for (i32 from = 0; from < static_cast<i32>(renderModeRowCount); ++from) {
        for (i32 to = 0; to < static_cast<i32>(renderModeRowCount); ++to) {
            CAPTURE(from);
            CAPTURE(to);
            ChangedMaterial scene(static_cast<RenderModeRow>(from));
            scene.change = [&] {
                scene.privateRecord.mode = &RenderModeTable[to];
                scene.material.textureMap = &scene.mapOf(static_cast<RenderModeRow>(to)).map;
            };
            scene.draw();
        }
    }
}
