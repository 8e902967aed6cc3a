// The fillers of runs against the plain ones: whole frames must be the same without them.
#include "raster/run_fills.h"
#include "scenes/composed_scene.h"
#include "scenes/random_scene.h"
#include "tests/support/seeds.h"
#include "tests/support/test_frame.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace kardeno;
using namespace kardeno::scenes;
using kardeno::tests::forEachSeed;
using kardeno::tests::TestFrame;
using kardeno::tests::TestHost;
using kardeno::tests::TestMaterial;
using kardeno::tests::TestScene;
using kardeno::tests::TestTexture;
using kardeno::tests::TestView;

namespace {

// Takes the fillers of runs out of all rows and puts them back.
class WithoutRunFillers {
public:
    WithoutRunFillers()
    {
        std::copy_n(RunFillers, renderModeRowCount, kept);
        std::fill_n(RunFillers, renderModeRowCount, RunFiller{nullptr});
    }
    ~WithoutRunFillers() { std::copy_n(kept, renderModeRowCount, RunFillers); }

private:
    RunFiller kept[renderModeRowCount];
};

// Whether draw(frame) gives the same frame with the fillers of runs and without them.
template <class Draw>
bool drawsAlike(i32 width, i32 height, Draw draw)
{
    TestFrame runs(width, height);
    TestFrame plain(width, height);
    draw(runs);
    {
        const WithoutRunFillers without;
        draw(plain);
    }
    CHECK(runs.fencesStand());
    CHECK(plain.fencesStand());
    for (i32 y = 0; y < height; ++y) {
        if (runs.row(y, 0, width) != plain.row(y, 0, width)) return false;
    }
    return true;
}

bool drawsAlike(Scene& scene)
{
    TestFrame first(scene.width(), scene.height());
    scene.draw(first.pixels(), first.pitch()); // initialises the renderer with this scene
    return drawsAlike(scene.width(), scene.height(),
                      [&](TestFrame& frame) { scene.draw(frame.pixels(), frame.pitch()); });
}

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
    kardeno::tests::TestObject& object = scene.addRoot();

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
        return ::drawsAlike(8, 4096, [this](TestFrame& frame) { scene.draw(frame); });
    }
};

} // namespace

TEST_CASE("the composed scenes are the same frames by the fillers of runs and by the plain ones")
{
    for (const ComposedScene& composed : composedScenes) {
        CAPTURE(composed.name);
        for (const i32 bitsPerPixel : {15, 16}) CHECK(drawsAlike(*composed.make(bitsPerPixel)));
    }
}

TEST_CASE("random scenes of all rows are the same frames by the fillers of runs and by the plain ones")
{
    forEachSeed(60, [](u32 seed) {
        const i32 bitsPerPixel = seed % 2 ? 15 : 16;
        const i32 litState = seed % 4 < 2 ? 1 : 2;
        CHECK(drawsAlike(*makeTangledScene(seed, {.bitsPerPixel = bitsPerPixel, .litState = litState})));
        CHECK(
            drawsAlike(*makeLayeredScene(seed, {.bitsPerPixel = bitsPerPixel, .polygons = 20, .litState = litState})));
    });
}

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
