#include "interface/render_mode_table.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A rectangle over a frame of four pixels, drawn and read back.
std::vector<u16> drawnRow(TestScene& scene)
{
    TestFrame frame(4, 1, 0x7777);
    scene.draw(frame);
    CHECK(frame.fencesStand());
    return frame.row(0, 0, 4);
}

} // namespace

TEST_CASE("a material whose record is refused says so, takes no state, and can be added again")
{
    TestHost host;
    TestScene scene(host, {.right = 4, .bottom = 1});
    TestMaterial& material = scene.bareMaterial();
    material.renderPrivate = reinterpret_cast<MaterialPrivate*>(8);
    material.transparency = 50;

    host.refuse(1);
    CHECK(Kardeno_Add_Material_Dll(&material) == 0);
    CHECK(material.renderPrivate == nullptr);

    // The flag word is written where there is no record either: 4 is half transparent.
    host.calls.clear();
    CHECK(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 0);
    CHECK(material.flagBlock.flags == 4);
    CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == 0);
    Kardeno_Update_Material_Dll(&material);
    Kardeno_Release_Material_Dll(&material);
    CHECK(host.calls.empty());

    CHECK(Kardeno_Add_Material_Dll(&material) == 1);
    CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == 0); // no row yet
    CHECK(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);
    CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == 1);
    Kardeno_Release_Material_Dll(&material);
    CHECK(host.liveBlocks() == 0);
}

TEST_CASE("a material whose ramp is refused keeps the row that it had, and is drawn with it")
{
    TestHost host;
    TestScene scene(host, {.right = 4, .bottom = 1});
    TestMaterial& material = scene.addMaterial(0);
    material.diffuseColour.packed = 0x1234;
    scene.addFace(scene.addRoot(), material, TestScene::rectangle(1, 0, 3, 1));
    const RenderMode* const plain = &RenderModeTable[rowUnlitPlain];

    host.refuse(1);
    CHECK(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 0);
    CHECK(material.renderPrivate->mode == plain);
    CHECK(plain->state == 0);
    CHECK(material.renderPrivate->shadeRamp == nullptr);
    Kardeno_Update_Material_Dll(&material); // without a ramp: nothing
    CHECK(drawnRow(scene) == std::vector<u16>{0x7777, 0x1234, 0x1234, 0x7777});

    // The next try gets its ramp: 64 entries of 4 bytes.
    host.calls.clear();
    CHECK(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);
    REQUIRE(host.calls.size() == 1);
    CHECK(host.calls[0].bytes == 256);
    CHECK(material.renderPrivate->mode == &RenderModeTable[rowLitPlain]);
}

TEST_CASE("every allocation of palettised materials refused in turn: each says so, and each works when tried again")
{
    for (const i32 state : {0, 1, 2}) {
        for (i32 n = 1; n <= 2; ++n) {
            CAPTURE(state);
            CAPTURE(n);
            TestHost host;
            TestScene scene(host, {.right = 4, .bottom = 1});
            TestTexture texture(8, 2, 2);
            TestMaterial& material = scene.bareMaterial();
            material.textureMap = &texture.map;

            host.refuse(n);
            const i32 added = Kardeno_Add_Material_Dll(&material);
            CHECK(added == (n == 1 ? 0 : 1));
            const i32 set = Kardeno_Set_Material_Render_State_Dll(&material, state);
            CHECK(set == 0);
            if (material.renderPrivate) CHECK(material.renderPrivate->mode == nullptr);

            if (!added) CHECK(Kardeno_Add_Material_Dll(&material) == 1);
            CHECK(Kardeno_Set_Material_Render_State_Dll(&material, state) == 1);
            CHECK(host.calls.back().bytes == 65536); // 64 x 256 entries
            Kardeno_Release_Material_Dll(&material);
            CHECK(host.liveBlocks() == 0);
        }
    }
}

TEST_CASE("a face whose colour block is refused says so, and is drawn in colour 0")
{
    TestHost host;
    TestScene scene(host, {.right = 4, .bottom = 1});
    TestMaterial& fallback = scene.addMaterial(7); // FallbackFlat: the low byte of the face's colour
    TestFace& face = scene.addFace(scene.addRoot(), fallback, TestScene::rectangle(1, 0, 3, 1));

    host.refuse(1);
    CHECK(Kardeno_Add_Face_Dll(&face) == 0);
    CHECK(face.faceColour == nullptr);
    CHECK(drawnRow(scene) == std::vector<u16>{0x7777, 0, 0, 0x7777});

    host.calls.clear();
    Kardeno_Release_Face_Dll(&face);
    CHECK(host.calls.empty());
    CHECK(Kardeno_Add_Face_Dll(&face) == 1);
    *face.faceColour = 0x1234;
    CHECK(drawnRow(scene) == std::vector<u16>{0x7777, 0x3434, 0x3434, 0x7777});
    Kardeno_Release_Face_Dll(&face);
}
