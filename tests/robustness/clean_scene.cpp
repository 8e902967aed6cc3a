#include "tests/robustness/clean_scene.h"

#include "interface/render_mode_table.h"
#include "tests/robustness/row_needs.h"

#include <map>

namespace kardeno::tests {

namespace {

// Four rows of five cells, one for each row of the table.
constexpr i32 columns = 5;
constexpr i32 lines = 4;
constexpr i32 cell = 12;

void fillTexture(TestTexture& texture, i32 side)
{
    for (i32 y = 0; y < side; ++y) {
        for (i32 x = 0; x < side; ++x) texture.setTexel(x, y, static_cast<u32>((x * 5 + y * 11) * 97));
    }
    for (u32 i = 0; i < 256; ++i)
        texture.setPalette(i, static_cast<u8>(i), static_cast<u8>(i * 3), static_cast<u8>(255 - i));
    texture.map.transparentIndex = 3;
    texture.map.transparentColour = 97 * 5;
}

void setColours(TestMaterial& material)
{
    material.diffuseColour = {.red = 200, .green = 120, .blue = 40, .gap3 = 0, .packed = 0x5a5a};
    material.tintColour = {.red = 250, .green = 200, .blue = 150, .gap3 = 0, .packed = 0};
}

// Every clean scene has the same maps: to fill them takes longer than to draw them.
struct Textures {
    TestTexture coloured{16, 16, 16};
    TestTexture palettised{8, 16, 16};
    TestTexture squareColoured{16, 256, 256, true};
    TestTexture squarePalettised{8, 256, 256, true};

    Textures()
    {
        fillTexture(coloured, 16);
        fillTexture(palettised, 16);
        fillTexture(squareColoured, 256);
        fillTexture(squarePalettised, 256);
    }
};

Textures& textures()
{
    static Textures all;
    return all;
}

} // namespace

CleanScene::CleanScene(TestHost& host)
    : scene(host, {.right = columns * cell, .bottom = lines * cell}), frame(columns * cell, lines * cell)
{
    // The ramps take long to fill too.
    litPlain = &scene.addMaterial(1);
    litTextured = &scene.addMaterial(1, &textures().palettised);
    for (TestMaterial* material : {litPlain, litTextured}) {
        setColours(*material);
        Kardeno_Update_Material_Dll(material);
    }

    // A ground that is cut at all four sides, with a hole at the bottom, and before it the faces of each row.
    TestObject& object = scene.addRoot();
    TestMaterial& ground = scene.addMaterial(0);
    ground.diffuseColour.packed = 0x1111;
    scene.addFace(object, ground, {{-20, -20, 9}, {-20, 30, 9}, {30, 44, 9}, {90, 30, 9}, {90, -20, 9}});
    for (u32 row = 0; row < renderModeRowCount; ++row) addFacesOfRow(object, row);
}

// Two slanted faces side by side: one with a map of any size, one with a map of 256 x 256.
void CleanScene::addFacesOfRow(TestObject& object, u32 row)
{
    const RowNeeds needs = needsOf(row);
    for (const bool square : {false, true}) {
        TestMaterial& material = scene.bareMaterial();
        setColours(material);
        Kardeno_Add_Material_Dll(&material);
        material.renderPrivate->mode = &RenderModeTable[row];
        material.renderPrivate->shadeRamp = litPlain->renderPrivate->shadeRamp;
        if (needs == RowNeeds::texels16)
            material.textureMap = square ? &textures().squareColoured.map : &textures().coloured.map;
        if (needs == RowNeeds::texels8) {
            material.textureMap = square ? &textures().squarePalettised.map : &textures().palettised.map;
            material.renderPrivate->shadeRamp = litTextured->renderPrivate->shadeRamp;
        }

        const f32 x = static_cast<f32>(static_cast<i32>(row) % columns * cell + (square ? cell / 2 : 0));
        const f32 y = static_cast<f32>(static_cast<i32>(row) / columns * cell);
        // It reaches a little into its neighbours, and at the sides of the view beyond it.
        const f32 left = x - 2, right = x + 8, top = y - 1, bottom = y + 13;
        TestFace& face =
            scene.addFace(object, material, {{left, top, 2}, {left, bottom, 3}, {right, bottom, 4}, {right, top, 3}},
                          std::vector<TexCoord>{{0, 0}, {0, 1}, {1, 1}, {1, 0}});
        *face.faceColour = 0x3c3c;
        for (size_t i = 0; i < 4; ++i) {
            const f32 light = static_cast<f32>(60 * i + 10);
            scene.host.shades[static_cast<size_t>(face.indices[i])] = {light, 255 - light, light, light};
        }
    }
}

CleanScene::Result CleanScene::draw()
{
    frame.clear(TestFrame::untouched);
    scene.draw(frame, 1);
    Result result = {.picture = frame.hash(), .pickedFace = 0, .pickedDepth = 0};
    Kardeno_Pick_Dll(&scene.view.record, 20.5f, 17.5f, &result.pickedFace, &result.pickedDepth);
    return result;
}

CleanScene::Result undisturbedResult(i32 bitsPerPixel)
{
    static std::map<i32, CleanScene::Result> results;
    const auto known = results.find(bitsPerPixel);
    if (known != results.end()) return known->second;

    TestHost host(bitsPerPixel);
    CleanScene scene(host);
    return results.emplace(bitsPerPixel, scene.draw()).first->second;
}

} // namespace kardeno::tests
