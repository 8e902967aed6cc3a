#include "geometry/polygon_lists.h"
#include "host/host_context.h"
#include "host/render_modes.h"
#include "kardeno_soft/kardeno_soft.h"
#include "raster/colour_tables.h"
#include "spanbuffer/edge_table.h"
#include "spanbuffer/span_pool.h"
#include "tests/support/test_scene.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace kardeno;
using namespace kardeno::tests;

namespace {

// A second context of the same host, whose realloc is counted.
i32 reallocsThroughSecond = 0;
void* (*firstRealloc)(void*, u32) = nullptr;

void* countedRealloc(void* block, u32 bytes)
{
    ++reallocsThroughSecond;
    return firstRealloc(block, bytes);
}

} // namespace

TEST_CASE("initialisation gives 1 for either pixel format, and for others")
{
    TestHost host;
    for (const i32 bitsPerPixel : {15, 16, 32}) {
        host.context().bitsPerPixel = bitsPerPixel;
        CHECK(Kardeno_Init_Render_Dll(&host.context()) == 1);
    }
}

TEST_CASE("initialisation asks the host for no memory")
{
    TestHost host;
    Kardeno_Init_Render_Dll(&host.context());
    CHECK(host.calls.empty());
}

TEST_CASE("adding an animation, camera, light, light map, map, object or spot light gives 1 whatever it is given")
{
    TestHost host;
    u8 record[64];
    std::memset(record, 0x5a, sizeof record);
    const std::vector<u8> before(record, record + sizeof record);

    for (const void* given : {static_cast<const void*>(nullptr), static_cast<const void*>(record),
                              reinterpret_cast<const void*>(uintptr_t{1})}) {
        CHECK(Kardeno_Add_Animation_Dll(given) == 1);
        CHECK(Kardeno_Add_Camera_Dll(given) == 1);
        CHECK(Kardeno_Add_Light_Dll(given) == 1);
        CHECK(Kardeno_Add_Light_Map_Dll(given) == 1);
        CHECK(Kardeno_Add_Map_Dll(given) == 1);
        CHECK(Kardeno_Add_Object_Dll(given) == 1);
        CHECK(Kardeno_Add_Spot_Light_Dll(given) == 1);
    }
    CHECK(std::vector<u8>(record, record + sizeof record) == before);
    CHECK(host.calls.empty());
}

TEST_CASE("releasing or updating what the renderer does not keep does nothing")
{
    TestHost host;
    u8 record[64];
    std::memset(record, 0x5a, sizeof record);
    const std::vector<u8> before(record, record + sizeof record);

    for (const void* given : {static_cast<const void*>(nullptr), static_cast<const void*>(record)}) {
        Kardeno_Release_Animation_Dll(given);
        Kardeno_Release_Camera_Dll(given);
        Kardeno_Release_Light_Dll(given);
        Kardeno_Release_Light_Map_Dll(given);
        Kardeno_Release_Map_Dll(given);
        Kardeno_Release_Object_Dll(given);
        Kardeno_Release_Render_Dll(given);
        Kardeno_Release_Spot_Light_Dll(given);
        Kardeno_Update_Light_Map_Dll(given);
        Kardeno_Update_Map_Dll(given);
    }
    CHECK(std::vector<u8>(record, record + sizeof record) == before);
    CHECK(host.calls.empty());
}

TEST_CASE("releasing the renderer frees nothing: the next frame draws with the same lists and pools")
{
    TestHost host;
    TestScene scene(host, {.right = 8, .bottom = 8});
    TestFrame frame(8, 8);
    TestMaterial& material = scene.addMaterial();
    material.diffuseColour.packed = 0x1234;
    scene.addFace(scene.addRoot(), material, TestScene::rectangle(0, 0, 8, 8));
    scene.draw(frame);
    const StoredPolygon* const records = resolvedPolygons.records;
    host.calls.clear();

    Kardeno_Release_Render_Dll(nullptr);
    frame.clear(0);
    scene.draw(frame);

    CHECK(host.calls.empty());
    CHECK(resolvedPolygons.records == records);
    CHECK(frame.at(3, 3) == 0x1234);
}

TEST_CASE("initialising again replaces the context and rebuilds the tables; materials keep rows, lists keep memory")
{
    TestHost host(16);
    TestScene scene(host, {.right = 8, .bottom = 8});
    TestFrame frame(8, 8);
    TestMaterial& material = scene.addMaterial(0);
    material.diffuseColour.packed = 0x1234;
    scene.addFace(scene.addRoot(), material, TestScene::rectangle(0, 0, 8, 8));
    scene.draw(frame);
    const RenderMode* const row = material.renderPrivate->mode;
    const StoredPolygon* const records = resolvedPolygons.records;
    CHECK(colourScaleTables.greenScale[255 * 256 + 0x3f] == 0x7e0);

    const auto second = std::make_unique<HostContext>(host.context());
    firstRealloc = second->realloc;
    reallocsThroughSecond = 0;
    second->realloc = countedRealloc;
    second->bitsPerPixel = 15;
    CHECK(Kardeno_Init_Render_Dll(second.get()) == 1);

    CHECK(hostContext == second.get());
    CHECK(colourScaleTables.greenScale[255 * 256 + 0x3f] == 0x3e0);
    CHECK(material.renderPrivate->mode == row);
    CHECK(Kardeno_Get_Material_Render_State_Dll(&material) == 0);
    CHECK(resolvedPolygons.records == records);
    CHECK(resolvedPolygons.capacity == 512);
    CHECK(EdgePool.capacity > 0);

    frame.clear(0);
    scene.draw(frame);
    CHECK(frame.at(3, 3) == 0x1234);
    CHECK(second->projectionStamp == host.context().projectionStamp + 1);
    CHECK(reallocsThroughSecond == 0);

    // A list that was not used yet grows through the new context; the sort arrays have room already.
    TestMaterial& translucent = scene.addMaterial(0, nullptr, 0, 50);
    scene.addFace(scene.addRoot(), translucent, TestScene::rectangle(0, 0, 8, 8));
    second->cameraVertices = host.context().cameraVertices;
    second->screenVertices = host.context().screenVertices;
    second->vertexShades = host.context().vertexShades;
    second->vertexOutcodes = host.context().vertexOutcodes;
    second->vertexStamps = host.context().vertexStamps;
    scene.draw(frame);
    CHECK(reallocsThroughSecond == 1);
}
