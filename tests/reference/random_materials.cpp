#include "tests/reference/random_materials.h"

#include <deque>

namespace kardeno::tests {

namespace {

using reference::Row;

struct TextureKind {
    i32 width, height;
    bool fast;
};

constexpr TextureKind textureKinds[] = {{256, 256, true}, {256, 256, false}, {64, 64, false}, {128, 32, false},
                                        {16, 128, false}, {8, 8, false},     {1, 4, false},   {512, 128, false}};
constexpr size_t kindCount = sizeof textureKinds / sizeof *textureKinds;

void paint(TestTexture& texture, const TextureKind& kind, i32 bits, RandomNumbers& random)
{
    u32 colours[12]; // few, so that each key hides some
    for (u32& colour : colours) colour = random.next() & (bits == 8 ? 0xff : 0xffff);
    colours[0] = 0;
    for (i32 y = 0; y < kind.height; ++y) {
        for (i32 x = 0; x < kind.width; ++x) {
            const bool any = random.chance(30);
            const u32 colour = any ? random.next() & (bits == 8 ? 0xff : 0xffff) : random.oneOf(colours);
            texture.setTexel(x, y, colour);
        }
    }
    for (u32 index = 0; index < 256; ++index) {
        const u8 channels[3] = {random.byte(), random.byte(), random.byte()};
        texture.setPalette(index, channels[0], channels[1], channels[2]);
    }
    texture.map.transparentIndex = static_cast<u8>(random.oneOf(colours));
    texture.map.transparentColour = static_cast<u16>(random.oneOf(colours));
}

std::deque<TestTexture> makeTextures(i32 bits)
{
    RandomNumbers random(static_cast<u32>(bits));
    std::deque<TestTexture> textures;
    for (const TextureKind& kind : textureKinds) {
        textures.emplace_back(static_cast<u32>(bits), kind.width, kind.height, kind.fast);
        paint(textures.back(), kind, bits, random);
    }
    return textures;
}

MaterialColour randomColour(RandomNumbers& random)
{
    MaterialColour colour = {random.byte(), random.byte(), random.byte(), random.byte(), 0};
    colour.packed = static_cast<u16>(random.next());
    return colour;
}

} // namespace

void changeColours(TestMaterial& material, RandomNumbers& random)
{
    material.ambientColour = randomColour(random);
    material.diffuseColour = randomColour(random);
    material.specularColour = randomColour(random);
    material.tintColour = randomColour(random);
    if (random.chance(30)) material.tintColour.red = material.tintColour.green = material.tintColour.blue = 255;
    material.shininess = random.integer(0, 100);
    material.specularLevel = random.integer(0, 120);
    if (random.chance(3)) material.shininess = random.integer(-150, 130);
}

TestTexture& someTexture(i32 texelBits, RandomNumbers& random)
{
    static std::deque<TestTexture> palettised = makeTextures(8);
    static std::deque<TestTexture> trueColour = makeTextures(16);
    // Every other one is the kind with the fast path.
    const size_t kind = random.chance(50) ? 0 : random.next() % kindCount;
    return texelBits == 8 ? palettised[kind] : trueColour[kind];
}

MaterialRecipe recipeFor(Row row, RandomNumbers& random)
{
    const i32 lit = random.integer(1, 2);
    const MaterialRecipe flatFallbacks[] = {{lit, 16, 0, 0}, {0, 8, 1, 0},   {0, 0, 0, 20}, {5, 0, 2, 0},
                                            {0, 16, 1, 50},  {lit, 0, 2, 0}, {-3, 8, 0, 0}, {0, 0, 10, 0}};
    const MaterialRecipe blendFallbacks[] = {{3, 0, 0, 50}, {-1, 16, 1, 0}, {7, 0, 0, 30}, {4, 8, 1, 50}};
    switch (row) {
    case Row::fallbackFlat: return random.oneOf(flatFallbacks);
    case Row::fallbackBlend: return random.oneOf(blendFallbacks);
    case Row::unlitPlain: return {0, 0, 0, 0};
    case Row::unlitTextured: return {0, 16, random.chance(50) ? 0 : 7, 0};
    case Row::unlitTexturedShade1: return {0, 16, 1, 0};
    case Row::unlitTranslucent: return {0, 0, 0, 50};
    case Row::unlitTexturedTranslucent: return {0, 16, 0, 50};
    case Row::unlitTexturedShade2: return {0, 16, 2, 0};
    case Row::unlitTexturedShade10: return {0, 16, 10, 0};
    case Row::unlitTexturedShade11: return {0, 16, 11, 0};
    case Row::unlitPalettised: return {0, 8, 0, 0};
    case Row::litPlain: return {lit, 0, 0, 0};
    case Row::litTextured: return {lit, 8, 0, 0};
    case Row::litTexturedShade1: return {lit, 8, 1, 0};
    case Row::litTranslucent: return {lit, 0, 0, 50};
    case Row::litTexturedTranslucent: return {lit, 8, 0, 50};
    case Row::litTexturedShade1Translucent: return {lit, 8, 1, 50};
    case Row::litTexturedShade2: return {lit, 8, 2, 0};
    case Row::spareA: return {9, 0, 0, 0};
    case Row::spareB: return {9, 16, 0, 0};
    }
    return {};
}

TestMaterial& addMaterial(TestScene& scene, reference::Renderer& model, Row row, RandomNumbers& random)
{
    const MaterialRecipe recipe = recipeFor(row, random);
    TestMaterial& material = scene.bareMaterial();
    if (recipe.texelBits != 0) material.textureMap = &someTexture(recipe.texelBits, random).map;
    material.shadingMode = recipe.shadingMode;
    material.transparency = recipe.transparency;
    changeColours(material, random);

    Kardeno_Add_Material_Dll(&material);
    model.materials.add(&material);
    setRenderState(material, model, recipe.state);
    if (row == Row::spareA || row == Row::spareB) { // from FallbackFlat, the first row of the table
        material.renderPrivate->mode += static_cast<u32>(row);
        model.materials.pointAt(&material, row);
    }
    return material;
}

void repaint(TestMaterial& material, reference::Renderer& model, RandomNumbers& random)
{
    changeColours(material, random);
    Kardeno_Update_Material_Dll(&material);
    model.materials.update(&material);
}

void setRenderState(TestMaterial& material, reference::Renderer& model, i32 state)
{
    Kardeno_Set_Material_Render_State_Dll(&material, state);
    model.materials.setRenderState(&material, state);
}

const u32* libraryRamp(const SceneMaterial& material)
{
    return material.renderPrivate->shadeRamp;
}

i32 libraryRow(const SceneMaterial& material, const SceneMaterial& ofFallbackFlat)
{
    return static_cast<i32>(material.renderPrivate->mode - ofFallbackFlat.renderPrivate->mode);
}

} // namespace kardeno::tests
