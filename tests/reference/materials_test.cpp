// What a material's settings make of it, by the library and by the reference renderer: flag word, row, state, ramp.
#include "tests/reference/comparison.h"
#include "tests/support/seeds.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// Both renderers' opinion on one material; `fallback` is a material of the table's first row.
void checkAlike(const TestMaterial& material, const TestMaterial& fallback, const reference::Materials& model)
{
    const reference::Material& expected = model.of(&material);
    CHECK(material.flagBlock.flags == expected.flags);
    if (!expected.hasRow) return;
    CHECK(libraryRow(material, fallback) == static_cast<i32>(expected.row));
    CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == model.renderState(&material));
    const u32* const ramp = libraryRamp(material);
    REQUIRE((ramp != nullptr) == !expected.ramp.empty());
    if (ramp) CHECK(std::memcmp(ramp, expected.ramp.data(), expected.ramp.size() * sizeof(u32)) == 0);
}

TestMaterial& addBareMaterial(TestScene& scene, reference::Renderer& model)
{
    TestMaterial& material = scene.bareMaterial();
    Kardeno_Add_Material_Dll(&material);
    model.materials.add(&material);
    return material;
}

} // namespace

TEST_CASE("every combination of state, texture, shading mode and transparency selects the same row")
{
    RandomNumbers random(1);
    for (const i32 format : {15, 16, 24}) {
        TestHost host(format);
        TestScene scene(host);
        reference::Renderer& model = referenceRenderer();
        model.initialise(&host.context());
        TestMaterial& fallback = addBareMaterial(scene, model);
        setRenderState(fallback, model, 9);
        for (const i32 texelBits : {0, 8, 16}) {
            for (const i32 shadingMode : {0, 1, 2, 3, 10, 11, -1}) {
                for (const i32 transparency : {0, 50, 49, -50}) {
                    for (const i32 state : {0, 1, 2, 3, -1}) {
                        TestMaterial& material = addBareMaterial(scene, model);
                        if (texelBits) material.textureMap = &someTexture(texelBits, random).map;
                        material.shadingMode = shadingMode;
                        material.transparency = transparency;
                        setRenderState(material, model, state);
                        CAPTURE(texelBits);
                        CAPTURE(shadingMode);
                        CAPTURE(transparency);
                        CAPTURE(state);
                        checkAlike(material, fallback, model.materials);
                        Kardeno_Release_Material_Dll(&material);
                    }
                }
            }
        }
    }
}

TEST_CASE("materials that change again and again keep the same rows, states and ramps")
{
    forEachSeed(40, [](u32 seed) {
        RandomNumbers random(seed);
        const i32 formats[] = {15, 16, 32};
        TestHost host(random.oneOf(formats));
        TestScene scene(host);
        reference::Renderer& model = referenceRenderer();
        model.initialise(&host.context());
        TestMaterial& fallback = addBareMaterial(scene, model);
        setRenderState(fallback, model, 9);

        std::vector<TestMaterial*> materials;
        for (i32 row = 0; row < reference::rowCount - 2; ++row) // no state selects the last two
            materials.push_back(&addMaterial(scene, model, static_cast<reference::Row>(row), random));
        for (i32 change = 0; change < 60; ++change) {
            TestMaterial& material = *materials[random.next() % materials.size()];
            const i32 modes[] = {0, 1, 2, 10, 11};
            const i32 transparencies[] = {0, 50, 3};
            switch (random.integer(0, 4)) {
            case 0: setRenderState(material, model, random.integer(-2, 4)); break;
            case 1: repaint(material, model, random); break;
            case 2: changeColours(material, random); break; // the ramp stays as it is, whatever state is set
            case 3:
                material.shadingMode = random.oneOf(modes);
                material.transparency = random.oneOf(transparencies);
                break;
            default:
                Kardeno_Set_Material_Fct_Dll(&material);
                model.materials.setFlags(&material);
                break;
            }
        }
        for (const TestMaterial* material : materials) checkAlike(*material, fallback, model.materials);
    });
}
