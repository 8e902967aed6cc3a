// Render states 1 and 2 of the same material, seen through whole frames.
#include "interface/render_mode_table.h"
#include "tests/raster/filler_setup.h"

using namespace kardeno;
using namespace kardeno::tests;

namespace {

struct Look {
    bool textured;
    i32 shadingMode;
    i32 transparency;
    RenderModeRow row;
};

// A lit rectangle, darker on the left, in one render state.
Pixels drawn(const Look& look, i32 state)
{
    TestHost host;
    TestScene scene(host, {.right = 32, .bottom = 4});
    TestTexture texture(8, 256, 256, true);
    for (u32 index = 0; index < 256; ++index) {
        texture.setPalette(index, static_cast<u8>(index), static_cast<u8>(255 - index), 128);
    }
    for (i32 y = 0; y < 256; ++y) {
        for (i32 x = 0; x < 256; ++x) texture.setTexel(x, y, static_cast<u32>(x));
    }
    TestMaterial& material =
        scene.addMaterial(state, look.textured ? &texture : nullptr, look.shadingMode, look.transparency);
    material.diffuseColour = {.red = 200, .green = 100, .blue = 50};
    material.tintColour = {.red = 255, .green = 255, .blue = 255};
    Kardeno_Update_Material_Dll(&material);
    CHECK(&modeOf(material) == &RenderModeTable[look.row]);

    TestObject& object = scene.addRoot();
    TestFace& face = scene.addFace(object, material, TestScene::rectangle(2, 1, 30, 3),
                                   {{0, 0}, {0, 0.5f}, {0.5f, 0.5f}, {0.5f, 0}});
    for (size_t i = 0; i < 4; ++i) {
        host.shades[static_cast<size_t>(face.indices[i])].intensity = i < 2 ? 40.0f : 200.0f;
    }
    TestFrame frame(32, 4, 0x1234);
    scene.draw(frame);
    CHECK(frame.fencesStand());
    CHECK(frame.at(10, 2) != 0x1234);
    return frame.row(2, 0, 32);
}

} // namespace

TEST_CASE("render states 1 and 2 draw the same pixels, whatever the material looks like")
{
    const Look looks[] = {
        {false, 0, 0, rowLitPlain},
        {false, 0, 50, rowLitTranslucent},
        {true, 0, 0, rowLitTextured},
        {true, 1, 0, rowLitTexturedShade1},
        {true, 0, 50, rowLitTexturedTranslucent},
        {true, 1, 50, rowLitTexturedShade1Translucent},
        {true, 2, 0, rowLitTexturedShade2},
    };
    for (const Look& look : looks) {
        CAPTURE(look.row);
        CHECK(text(drawn(look, 1)) == text(drawn(look, 2)));
    }
}
