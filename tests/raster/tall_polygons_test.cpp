// Polygons that the fillers of runs leave to the plain ones, beside some that they just take.
#include "tests/support/plain_fillers.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A view of 8 columns and 4,096 rows, in which faces are drawn with any row of the render-mode table. All corners count
// as inside all planes, wherever they are.
class TallScene {
public:
    TallScene(u32 row, i32 bitsPerPixel) : host(bitsPerPixel)
    {
        for (i32 y = 0; y < 256; ++y) {
            for (i32 x = 0; x < 256; ++x) texture.setTexel(x, y, static_cast<u32>((y * 251 + x * 7) & 0xffff));
        }
        for (u32 i = 0; i < 64 * 256; ++i) ramp.push_back(i * 40503u << 8);
        privateRecord = {&RenderModeTable[row], ramp.data()};
        material.renderPrivate = &privateRecord;
        material.textureMap = &texture.map;
        material.diffuseColour.packed = 0x4321;
    }

    TestHost host;
    TestScene scene{host, {.right = 8, .bottom = 4096}};
    TestTexture texture{16, 256, 256, true};
    std::vector<RampEntry> ramp;
    MaterialPrivate privateRecord;
    TestMaterial& material = scene.bareMaterial();
    TestObject& object = scene.addRoot();

    void addFace(f32 top, f32 bottom, f32 left, f32 right)
    {
        scene.addFace(object, material, {{left, top, 4}, {left, bottom, 2}, {right, bottom, 1}, {right, top, 2}},
                      {{0, 0.1f}, {0.2f, 0.9f}, {0.8f, 1}, {1, 0}});
        static_cast<SceneFace&>(*object.faceList.back()).normalZ = 1;
        for (u32& outcode : host.outcodes) outcode = outcodeAll;
        f32 light = 0;
        for (VertexShade& shade : host.shades) {
            light = light > 200 ? 3 : light + 37;
            shade = {light, 255 - light, light / 2, light};
        }
    }

    bool drawsAlike()
    {
        return tests::drawsAlike(8, 4096, [this](TestFrame& frame) { scene.draw(frame); });
    }
};

} // namespace

TEST_CASE("polygons too tall for the fillers of runs, or that reach out of the tables, are drawn as by the plain ones")
{
    struct Extent {
        f32 top, bottom;
    };
    const Extent extents[] = {{0, 1023},    {0, 1024},     {0, 1025}, {7, 1031},    {7, 1032},    {0, 4096},
                              {100, 3000},  {-1, 20},      {-5, 900}, {4090, 4096}, {4090, 4097}, {3072, 4096},
                              {3071, 4096}, {-2000, 5000}, {-1, 0},   {4095, 4096}, {4096, 4099}};
    for (u32 row = 0; row < renderModeRowCount; ++row) {
        CAPTURE(row);
        TallScene all(row, row % 2 ? 15 : 16);
        for (const Extent& extent : extents) all.addFace(extent.top, extent.bottom, 0, 8);
        CHECK(all.drawsAlike());
    }
    for (const Extent& extent : extents) {
        CAPTURE(extent.top);
        CAPTURE(extent.bottom);
        for (const u32 row :
             {u32{rowUnlitTextured}, u32{rowLitTextured}, u32{rowLitPlain}, u32{rowSpareA}, u32{rowSpareB}}) {
            CAPTURE(row);
            TallScene one(row, 16);
            one.addFace(extent.top, extent.bottom, 1, 7);
            CHECK(one.drawsAlike());
        }
    }
}
