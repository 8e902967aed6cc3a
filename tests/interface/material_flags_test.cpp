#include "host/render_modes.h"
#include "interface/render_mode_table.h"
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// The flag word after Kardeno_Set_Material_Fct_Dll, whatever was in it before.
u32 flagWord(bool textured, i32 transparency, i32 shadingMode)
{
    TestHost host;
    TestScene scene(host);
    TestTexture texture(16, 4, 4);
    TestMaterial& material = scene.bareMaterial();
    material.textureMap = textured ? &texture.map : nullptr;
    material.transparency = transparency;
    material.shadingMode = shadingMode;
    material.flagBlock.flags = 0xffffffff;
    Kardeno_Set_Material_Fct_Dll(&material);
    return material.flagBlock.flags;
}

} // namespace

TEST_CASE("a plain material has no flags")
{
    CHECK(flagWord(false, 0, 0) == 0);
}

TEST_CASE("a texture map sets bit 0")
{
    CHECK(flagWord(true, 0, 0) == 1);
}

TEST_CASE("transparency 50 sets 4, any other but 0 sets 8")
{
    CHECK(flagWord(false, 50, 0) == 4);
    for (const i32 transparency : {1, 49, 51, 100, 1000, -1, -50}) {
        CAPTURE(transparency);
        CHECK(flagWord(false, transparency, 0) == 8);
    }
}

TEST_CASE("shading modes 1, 2, 10 and 11 set 2, 64, 256 and 512, others nothing")
{
    CHECK(flagWord(false, 0, 1) == 2);
    CHECK(flagWord(false, 0, 2) == 64);
    CHECK(flagWord(false, 0, 10) == 256);
    CHECK(flagWord(false, 0, 11) == 512);
    for (const i32 mode : {3, 4, 5, 6, 7, 8, 9, 12, 13, 26, 27, 100, -1, -2, -10}) {
        CAPTURE(mode);
        CHECK(flagWord(false, 0, mode) == 0);
    }
}

TEST_CASE("flags add up")
{
    CHECK(flagWord(true, 50, 1) == 7);
    CHECK(flagWord(true, 30, 2) == 73);
    CHECK(flagWord(true, 50, 10) == 261);
    CHECK(flagWord(true, 10, 11) == 521);
    CHECK(flagWord(false, 50, 1) == 6);
}

TEST_CASE("setting the flags chooses no row, builds no ramp and asks for nothing")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.addMaterial(0);
    const RenderMode* const row = material.renderPrivate->mode;
    host.calls.clear();
    material.transparency = 50;
    material.shadingMode = 1;

    Kardeno_Set_Material_Fct_Dll(&material);
    CHECK(material.flagBlock.flags == 6);
    CHECK(material.renderPrivate->mode == row);
    CHECK(material.renderPrivate->shadeRamp == nullptr);
    CHECK(host.calls.empty());
}

TEST_CASE("choosing a render state recomputes the flags too, updating a material does not")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.addMaterial(1);
    material.transparency = 50;

    Kardeno_Update_Material_Dll(&material);
    CHECK(material.flagBlock.flags == 0);
    CHECK(material.renderPrivate->mode == &RenderModeTable[rowLitPlain]);

    Kardeno_Set_Material_Render_State_Dll(&material, 1);
    CHECK(material.flagBlock.flags == 4);
    CHECK(material.renderPrivate->mode == &RenderModeTable[rowLitTranslucent]);
}
