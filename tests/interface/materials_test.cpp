// A material's life: its private record, its ramp's memory, and what happens when either is refused.
#include "host/render_modes.h"
#include "interface/render_mode_table.h"
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

TEST_CASE("adding a material allocates one zeroed record of two pointers: no mode, no ramp")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.bareMaterial();
    CHECK(Kardeno_Add_Material_Dll(&material) == 1);

    REQUIRE(host.calls.size() == 1);
    CHECK(host.calls[0].kind == ServiceCall::alloc);
    CHECK(host.calls[0].count == 1);
    CHECK(host.calls[0].bytes == sizeof(MaterialPrivate));
    if (sizeof(void*) == 4) CHECK(host.calls[0].bytes == 8);
    CHECK(material.renderPrivate == host.calls[0].result);
    CHECK(material.renderPrivate->mode == nullptr);
    CHECK(material.renderPrivate->shadeRamp == nullptr);
}

TEST_CASE("a refused private record is stored as 0 and reported")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.bareMaterial();
    MaterialPrivate earlier = {};
    material.renderPrivate = &earlier;
    host.refuse(1);
    CHECK(Kardeno_Add_Material_Dll(&material) == 0);
    CHECK(material.renderPrivate == nullptr);
}

TEST_CASE("a material without a private record: flags are written, everything else gives 0 and does nothing")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.bareMaterial();
    material.transparency = 50;

    for (const i32 state : {0, 1, 5}) {
        material.flagBlock.flags = 0xffffffff;
        CHECK(Kardeno_Set_Material_Render_State_Dll(&material, state) == 0);
        CHECK(material.flagBlock.flags == 4);
    }
    material.flagBlock.flags = 0xffffffff;
    Kardeno_Set_Material_Fct_Dll(&material);
    CHECK(material.flagBlock.flags == 4);

    material.flagBlock.flags = 99;
    CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == 0);
    Kardeno_Update_Material_Dll(&material);
    Kardeno_Release_Material_Dll(&material);
    CHECK(material.flagBlock.flags == 99);
    CHECK(material.renderPrivate == nullptr);
    CHECK(host.calls.empty());
}

TEST_CASE("a material that was given no state yet reports 0")
{
    TestHost host;
    TestScene scene(host);
    for (RenderMode& mode : RenderModeTable) mode.state = 5;
    TestMaterial& material = scene.bareMaterial();
    Kardeno_Add_Material_Dll(&material);
    CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == 0);
}

TEST_CASE("the state is written into the chosen row and into no other")
{
    TestHost host;
    TestScene scene(host);
    for (RenderMode& mode : RenderModeTable) mode.state = 5;
    scene.addMaterial(2);
    for (u32 i = 0; i < renderModeRowCount; ++i) {
        CAPTURE(i);
        CHECK(RenderModeTable[i].state == (i == rowLitPlain ? 2 : 5));
    }
}

TEST_CASE("a ramp has 64 entries without a texture map and 16,384 with one")
{
    TestHost host;
    TestScene scene(host);
    TestTexture texture(8, 4, 4);

    host.calls.clear();
    const TestMaterial& plain = scene.addMaterial(1);
    REQUIRE(host.calls.size() == 2);
    CHECK(host.calls[1].kind == ServiceCall::alloc);
    CHECK(host.calls[1].count == 64);
    CHECK(host.calls[1].bytes == 64 * 4);
    CHECK(plain.renderPrivate->shadeRamp == host.calls[1].result);

    host.calls.clear();
    const TestMaterial& textured = scene.addMaterial(2, &texture);
    REQUIRE(host.calls.size() == 2);
    CHECK(host.calls[1].count == 16384);
    CHECK(host.calls[1].bytes == 16384 * 4);
    CHECK(textured.renderPrivate->shadeRamp == host.calls[1].result);
}

TEST_CASE("a ramp is built only for states 1 and 2 without a true-colour map, and for 8-bit maps in state 0")
{
    TestHost host;
    TestScene scene(host);
    TestTexture trueColour(16, 4, 4);
    TestTexture palettised(8, 4, 4);
    const auto hasRamp = [&](i32 state, TestTexture* texture, i32 mode = 0, i32 transparency = 0) {
        return scene.addMaterial(state, texture, mode, transparency).renderPrivate->shadeRamp != nullptr;
    };

    CHECK_FALSE(hasRamp(0, nullptr));
    CHECK_FALSE(hasRamp(0, &trueColour));
    CHECK(hasRamp(0, &palettised));
    CHECK(hasRamp(0, &palettised, 2, 30)); // FallbackFlat, but the ramp comes first
    CHECK(hasRamp(1, nullptr));
    CHECK(hasRamp(2, nullptr));
    CHECK(hasRamp(1, nullptr, 10)); // FallbackFlat likewise
    CHECK_FALSE(hasRamp(1, &trueColour));
    CHECK(hasRamp(1, &palettised));
    CHECK_FALSE(hasRamp(3, nullptr));
    CHECK_FALSE(hasRamp(3, &palettised));
    CHECK_FALSE(hasRamp(-1, nullptr));
}

TEST_CASE("a refused ramp gives 0 and leaves row, states and ramp as they were, but the flags are new")
{
    TestHost host;
    TestScene scene(host);
    TestTexture palettised(8, 4, 4);
    for (const i32 state : {0, 1, 2}) {
        CAPTURE(state);
        TestMaterial& material = scene.addMaterial(0);
        const RenderMode* const before = material.renderPrivate->mode;
        for (RenderMode& mode : RenderModeTable) mode.state = 5;
        material.textureMap = &palettised.map;

        host.refuse(1);
        CHECK(Kardeno_Set_Material_Render_State_Dll(&material, state) == 0);
        CHECK(material.renderPrivate->mode == before);
        CHECK(material.renderPrivate->shadeRamp == nullptr);
        CHECK(material.flagBlock.flags == 1);
        for (const RenderMode& mode : RenderModeTable) CHECK(mode.state == 5);

        // It is asked for again the next time.
        CHECK(Kardeno_Set_Material_Render_State_Dll(&material, state) == 1);
        CHECK(material.renderPrivate->shadeRamp != nullptr);
    }
}

TEST_CASE("a ramp, once built, is kept: later states and other flags ask for no memory")
{
    TestHost host;
    TestScene scene(host);
    TestTexture palettised(8, 4, 4);
    TestMaterial& material = scene.addMaterial(1);
    const RampEntry* const ramp = material.renderPrivate->shadeRamp;
    host.calls.clear();

    Kardeno_Set_Material_Render_State_Dll(&material, 0);
    Kardeno_Set_Material_Render_State_Dll(&material, 2);
    material.transparency = 50;
    Kardeno_Set_Material_Render_State_Dll(&material, 1);
    material.transparency = 0;
    material.textureMap = &palettised.map; // wants the other size, and keeps this one
    Kardeno_Set_Material_Render_State_Dll(&material, 1);

    CHECK(host.calls.empty());
    CHECK(material.renderPrivate->shadeRamp == ramp);
    CHECK(material.renderPrivate->mode == &RenderModeTable[rowLitTextured]);
}

TEST_CASE("choosing a state again does not refill the ramp, updating the material does")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.addMaterial(1);
    CHECK(material.renderPrivate->shadeRamp[0] == 0);
    material.ambientColour = {252, 252, 252, 0, 0};

    Kardeno_Set_Material_Render_State_Dll(&material, 1);
    CHECK(material.renderPrivate->shadeRamp[0] == 0);
    Kardeno_Update_Material_Dll(&material);
    // 252 / 4 = 63 in each channel: red 7, green 15, blue 7.
    CHECK(material.renderPrivate->shadeRamp[0] == (7u << 11 | 15 << 5 | 7) << 16);
}

TEST_CASE("updating a material without a ramp builds none")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.addMaterial(0);
    host.calls.clear();
    Kardeno_Update_Material_Dll(&material);
    CHECK(material.renderPrivate->shadeRamp == nullptr);
    CHECK(host.calls.empty());
}

TEST_CASE(
    "Intended: which of the two ramps is filled follows the flag word of now, the size that of when the ramp was built")
{
    TestHost host;
    TestScene scene(host);
    TestTexture palettised(8, 4, 4);
    for (u32 i = 0; i < 256; ++i) palettised.setPalette(i, 255, 255, 255);
    TestMaterial& material = scene.bareMaterial();
    material.textureMap = &palettised.map;
    material.tintColour = {255, 255, 255, 0, 0};
    Kardeno_Add_Material_Dll(&material);
    Kardeno_Set_Material_Render_State_Dll(&material, 1);
    RampEntry* const ramp = material.renderPrivate->shadeRamp;
    const RampEntry last = ramp[16383];
    CHECK(last != 0);

    // Without the map, and with the flags set anew: 64 entries of the plain ramp, whose diffuse colour is black.
    material.textureMap = nullptr;
    Kardeno_Set_Material_Fct_Dll(&material);
    for (u32 i = 0; i < 16384; ++i) ramp[i] = 0x12340000;
    Kardeno_Update_Material_Dll(&material);
    CHECK(material.renderPrivate->shadeRamp == ramp);
    CHECK(ramp[0] == 0);
    CHECK(ramp[63] == 0);
    CHECK(ramp[64] == 0x12340000);
    CHECK(ramp[16383] == 0x12340000);
}

TEST_CASE("updating a material whose texture map was taken away fills the first 64 entries as for an untextured one")
{
    TestHost host;
    TestScene scene(host);
    TestTexture palettised(8, 8, 8);
    TestMaterial& material = scene.addMaterial(1, &palettised);
    material.ambientColour = {252, 252, 252, 0, 0};
    material.textureMap = nullptr;

    Kardeno_Update_Material_Dll(&material);

    // 252 / 4 = 63 in each channel: red 7, green 15, blue 7. The black palette's levels behind them stay.
    const RampEntry* const ramp = material.renderPrivate->shadeRamp;
    CHECK(ramp[0] == (7u << 11 | 15 << 5 | 7) << 16);
    CHECK(ramp[63] == (7u << 11 | 15 << 5 | 7) << 16);
    CHECK(ramp[64] == 0);
}

TEST_CASE("releasing a material frees its ramp, then its record, and clears neither pointer")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.addMaterial(1);
    MaterialPrivate* const record = material.renderPrivate;
    const RampEntry* const ramp = record->shadeRamp;
    host.calls.clear();

    Kardeno_Release_Material_Dll(&material);
    REQUIRE(host.calls.size() == 2);
    CHECK(host.calls[0].kind == ServiceCall::free);
    CHECK(host.calls[0].block == ramp);
    CHECK(host.calls[1].kind == ServiceCall::free);
    CHECK(host.calls[1].block == record);
    CHECK(material.renderPrivate == record);
    CHECK(host.liveBlocks() == 0);
}

TEST_CASE("releasing a material without a ramp frees its record alone")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& material = scene.addMaterial(0);
    host.calls.clear();
    Kardeno_Release_Material_Dll(&material);
    REQUIRE(host.calls.size() == 1);
    CHECK(host.calls[0].block == material.renderPrivate);
}
