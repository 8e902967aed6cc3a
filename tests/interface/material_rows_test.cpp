// Which row a render state chooses, for every combination of texture, transparency and shading mode.
#include "host/render_modes.h"
#include "interface/render_mode_table.h"
#include "kardeno_soft/kardeno_soft.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

enum Texture { none, trueColour, palettised };

struct Choice {
    Texture texture;
    i32 transparency;
    i32 shadingMode;
    RenderModeRow row;
};

constexpr Choice unlitChoices[] = {
    {none, 0, 0, rowUnlitPlain},
    {none, 50, 0, rowUnlitTranslucent},
    {trueColour, 0, 0, rowUnlitTextured},
    {trueColour, 0, 1, rowUnlitTexturedShade1},
    {trueColour, 50, 0, rowUnlitTexturedTranslucent},
    {trueColour, 0, 2, rowUnlitTexturedShade2},
    {trueColour, 0, 10, rowUnlitTexturedShade10},
    {trueColour, 0, 11, rowUnlitTexturedShade11},
    {palettised, 0, 0, rowUnlitPalettised},
};

constexpr Choice litChoices[] = {
    {none, 0, 0, rowLitPlain},
    {none, 50, 0, rowLitTranslucent},
    {palettised, 0, 0, rowLitTextured},
    {palettised, 0, 1, rowLitTexturedShade1},
    {palettised, 50, 0, rowLitTexturedTranslucent},
    {palettised, 50, 1, rowLitTexturedShade1Translucent},
    {palettised, 0, 2, rowLitTexturedShade2},
};

constexpr i32 unknownMode = 7; // adds no flag: chooses as mode 0 does

template <size_t count>
RenderModeRow listed(const Choice (&choices)[count], const Choice& asked)
{
    const i32 mode = asked.shadingMode == unknownMode ? 0 : asked.shadingMode;
    for (const Choice& choice : choices) {
        if (choice.texture == asked.texture && choice.transparency == asked.transparency && choice.shadingMode == mode)
            return choice.row;
    }
    return rowFallbackFlat;
}

// The row that a fresh material gets, as an index into the table.
u32 chosenRow(TestScene& scene, const Choice& asked, i32 state)
{
    TestTexture texture(asked.texture == palettised ? 8 : 16, 4, 4);
    TestMaterial& material = scene.bareMaterial();
    material.textureMap = asked.texture == none ? nullptr : &texture.map;
    material.transparency = asked.transparency;
    material.shadingMode = asked.shadingMode;
    REQUIRE(Kardeno_Add_Material_Dll(&material) == 1);
    REQUIRE(Kardeno_Set_Material_Render_State_Dll(&material, state) == 1);
    CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == state);
    const u32 row = static_cast<u32>(material.renderPrivate->mode - RenderModeTable);
    Kardeno_Release_Material_Dll(&material);
    return row;
}

template <class Visit>
void forEachCombination(Visit visit)
{
    for (const Texture texture : {none, trueColour, palettised}) {
        for (const i32 transparency : {0, 50, 30}) {
            for (const i32 mode : {0, 1, 2, 10, 11, unknownMode}) {
                CAPTURE(texture);
                CAPTURE(transparency);
                CAPTURE(mode);
                visit(Choice{texture, transparency, mode, rowFallbackFlat});
            }
        }
    }
}

} // namespace

TEST_CASE("state 0 chooses the unlit rows by the whole flag word; any combination that is not listed is FallbackFlat")
{
    TestHost host;
    TestScene scene(host);
    forEachCombination(
        [&](const Choice& asked) { CHECK(chosenRow(scene, asked, 0) == u32{listed(unlitChoices, asked)}); });
}

TEST_CASE("states 1 and 2 choose the lit rows; any combination that is not listed is FallbackFlat")
{
    TestHost host;
    TestScene scene(host);
    for (const i32 state : {1, 2}) {
        CAPTURE(state);
        forEachCombination(
            [&](const Choice& asked) { CHECK(chosenRow(scene, asked, state) == u32{listed(litChoices, asked)}); });
    }
}

TEST_CASE("other states, negative ones included, choose FallbackBlend for transparency or mode 1, else FallbackFlat")
{
    TestHost host;
    TestScene scene(host);
    for (const i32 state : {3, 4, 100, 256, -1, -2, 2147483647, -2147483647 - 1}) {
        CAPTURE(state);
        forEachCombination([&](const Choice& asked) {
            const bool blends = asked.transparency != 0 || asked.shadingMode == 1;
            CHECK(chosenRow(scene, asked, state) == (blends ? rowFallbackBlend : rowFallbackFlat));
        });
    }
}

TEST_CASE("a true-colour texture is UnlitTextured in state 0 and FallbackFlat in state 1")
{
    TestHost host;
    TestScene scene(host);
    TestTexture texture(16, 4, 4);
    TestMaterial& material = scene.addMaterial(0, &texture);
    CHECK(material.flagBlock.flags == 1);
    CHECK(material.renderPrivate->mode == &RenderModeTable[rowUnlitTextured]);

    CHECK(Kardeno_Set_Material_Render_State_Dll(&material, 1) == 1);
    CHECK(material.renderPrivate->mode == &RenderModeTable[rowFallbackFlat]);
    CHECK(material.renderPrivate->shadeRamp == nullptr);
}

TEST_CASE("an 8-bit texture with shading mode 1 is FallbackFlat in state 0, not UnlitTexturedShade1")
{
    TestHost host;
    TestScene scene(host);
    TestTexture texture(8, 4, 4);
    const TestMaterial& material = scene.addMaterial(0, &texture, 1);
    CHECK(material.flagBlock.flags == 3);
    CHECK(material.renderPrivate->mode == &RenderModeTable[rowFallbackFlat]);
    CHECK(material.renderPrivate->shadeRamp != nullptr); // built all the same
}

TEST_CASE("in state 3 transparency 50 is FallbackBlend, shading mode 2 alone is FallbackFlat")
{
    TestHost host;
    TestScene scene(host);
    CHECK(scene.addMaterial(3, nullptr, 0, 50).renderPrivate->mode == &RenderModeTable[rowFallbackBlend]);

    const TestMaterial& shade2 = scene.addMaterial(3, nullptr, 2); // 64 is none of 0x1e
    CHECK(shade2.flagBlock.flags == 64);
    CHECK(shade2.renderPrivate->mode == &RenderModeTable[rowFallbackFlat]);
}

TEST_CASE("Intended: only the low byte counts, of which flagTextured and flagShade2 are not looked at")
{
    TestHost host;
    TestScene scene(host);
    TestTexture texture(16, 4, 4);
    const auto rowOf = [&](TestTexture* map, i32 shadingMode) {
        return scene.addMaterial(3, map, shadingMode).renderPrivate->mode;
    };
    const RenderMode* const flat = &RenderModeTable[rowFallbackFlat];
    CHECK(rowOf(&texture, 0) == flat);
    CHECK(rowOf(&texture, 2) == flat);
    CHECK(rowOf(nullptr, 10) == flat); // 256 and 512 lie above the low byte
    CHECK(rowOf(nullptr, 11) == flat);
    CHECK(rowOf(&texture, 1) == &RenderModeTable[rowFallbackBlend]);
}

TEST_CASE("rows are shared: of two materials of FallbackFlat with states 0 and 7 both report 7")
{
    TestHost host;
    TestScene scene(host);
    TestMaterial& first = scene.addMaterial(0, nullptr, 1); // flags 2: not listed
    CHECK(Kardeno_Get_Material_Render_State_Dll(&first) == 0);
    TestMaterial& second = scene.addMaterial(7);

    CHECK(first.renderPrivate->mode == second.renderPrivate->mode);
    CHECK(Kardeno_Get_Material_Render_State_Dll(&first) == 7);
    CHECK(Kardeno_Get_Material_Render_State_Dll(&second) == 7);
}

TEST_CASE("no state chooses a spare row")
{
    TestHost host;
    TestScene scene(host);
    for (const i32 state : {0, 1, 2, 3, -1}) {
        forEachCombination([&](const Choice& asked) { CHECK(chosenRow(scene, asked, state) < u32{rowSpareA}); });
    }
}
