#include "tests/library/raw_scene.h"

#include <algorithm>
#include <cstdlib>

namespace kardeno::tests {

namespace {

// Blocks that the library holds until it is unloaded.
std::vector<void*> heldBlocks;

void forget(void* block)
{
    heldBlocks.erase(std::remove(heldBlocks.begin(), heldBlocks.end(), block), heldBlocks.end());
}

// The host's functions. They compute with doubles and arrays, as hosts do, and stand on whatever stack they are given.

void* hostAlloc(u32 count, u32 size)
{
    RawScene::log += 'A';
    void* const block = std::calloc(count, size);
    heldBlocks.push_back(block);
    return block;
}

void* hostRealloc(void* block, u32 bytes)
{
    RawScene::log += 'R';
    RawScene::reallocBytes.push_back(bytes);
    if (!block) ++RawScene::firstReallocs;
    forget(block);
    void* const moved = std::realloc(block, bytes);
    heldBlocks.push_back(moved);
    return moved;
}

void hostFree(void* block)
{
    RawScene::log += 'F';
    forget(block);
    std::free(block);
}

void prepareCamera(void*, void*)
{
    RawScene::log += 'c';
}

void update(void*)
{
    RawScene::log += 'u';
}

void transform(void*, void*)
{
    RawScene::log += 't';
}

void* selectLevel(void* object, void*)
{
    RawScene::log += 's';
    return object;
}

void testBounds(void*, void* object, void*)
{
    RawScene::log += 'b';
    const i32 visible = 1;
    std::memcpy(static_cast<u8*>(object) + 92, &visible, 4);
}

void light(void*, void*, void*)
{
    RawScene::log += 'l';
}

void prepareVertices(void*, void*, void*)
{
    RawScene::log += 'p';
}

i32 testFace(void*)
{
    RawScene::log += 'f';
    return 1;
}

} // namespace

RawScene::RawScene(Content content)
{
    log.clear();
    reallocBytes.clear();
    firstReallocs = 0;

    setView();
    setFunctions();
    // Down the left side first; every plane has a corner inside it.
    const std::vector<Corner> cutEverywhere = {
        {-8, -8, 200, 0x29}, {-8, 12, 0.45f, 0x1a}, {24, 12, 0.45f, 0x16}, {24, -8, 200, 0x25}};
    const std::vector<Corner> cutAtTheSides = {
        {-8, -8, 1, 0x2b}, {-8, 12, 1, 0x1b}, {24, 12, 1, 0x17}, {24, -8, 1, 0x27}};
    switch (content) {
    case Content::walls: addWalls(); break;
    case Content::unlitTexture:
    case Content::litTexture:
        setTexture(content == Content::litTexture ? 8 : 16);
        addMaterial(content == Content::litTexture ? 1 : 0, 0).set(92, map.address());
        addFace(0, cutEverywhere);
        break;
    case Content::litGlass:
        addMaterial(1, 50);
        addFace(0, cutAtTheSides);
        break;
    }
    linkObject();
    setServices();
}

RawScene::~RawScene()
{
    for (void* block : heldBlocks) std::free(block);
    heldBlocks.clear();
}

void RawScene::addWalls()
{
    addMaterial(0, 0).set(54, u16{0x1234});
    addMaterial(1, 0);
    addMaterial(0, 50).set(54, u16{0xf000});
    addRectangle(0, 2, 1, 6, 3, 1);
    addRectangle(1, 6, 1, 10, 3, 1);
    addRectangle(2, 4, 2, 8, 3, 0.5f);
}

void RawScene::linkObject()
{
    for (RawRecord& face : faces) facePointers.push_back(face.address());
    object.set(80, static_cast<i32>(faces.size())).set(84, facePointers.data());
    for (size_t i = 0; i < nodes.size(); ++i) {
        nodes[i].set(0, materials[i].address());
        if (i + 1 < nodes.size()) nodes[i].set(4, nodes[i + 1].address());
    }
    object.set(104, nodes[0].address());
}

void RawScene::setServices()
{
    context.set(4, cameraVertices.data()).set(8, screenVertices.data()).set(16, shades.data());
    context.set(20, outcodes.data()).set(24, stamps.data());
    context.set(44, hostAlloc).set(48, hostRealloc).set(52, hostFree);
    context.set(352, i32{16}).set(16832, u32{1});
}

// One pixel to the unit at depth 1; y points up in camera space.
void RawScene::setView()
{
    const f32 numbers[10] = {width, height, 0, 0, 1, 1, 1, 1, 0, 0};
    for (u32 i = 0; i < 10; ++i) projection.set(i * 4, numbers[i]);
    camera.set(92, cameraFunctions.address());
    cameraFunctions.set(0, prepareCamera);
    view.set(0, object.address()).set(20, camera.address());
    view.set(32, f32{0}).set(36, f32{0}).set(48, f32{0.5f}).set(52, f32{100});
    view.set(60, i32{width}).set(64, projection.address());
}

void RawScene::setFunctions()
{
    functions.set(12, update).set(16, transform).set(20, selectLevel).set(24, testBounds);
    functions.set(28, light).set(36, prepareVertices);
    objectClass.set(108, functions.address());
    object.set(220, groupFlag.address()).set(228, objectClass.address());
    faceTest.set(0, testFace);
}

// 4 x 4 texels of one colour: the pixel 0x0841, or palette index 1, which is white.
void RawScene::setTexture(u32 bitsPerTexel)
{
    image.set(0, bitsPerTexel).set(16, u32{15}).set(20, u32{2}).set(24, f32{4}).set(28, f32{4});
    for (u32 i = 0; i < 16; ++i) {
        if (bitsPerTexel == 8)
            image.set(32 + i, u8{1});
        else
            image.set(32 + 2 * i, u16{0x0841});
    }
    palette.set(4, u32{0xffffff});
    map.set(56, image.address()).set(60, palette.address());
    texCoords = {0, 0, 0, 1, 1, 1, 1, 0};
}

// A white material.
RawRecord& RawScene::addMaterial(i32 state, i32 transparency)
{
    RawRecord& material = materials.emplace_back(116);
    RawRecord& flags = flagBlocks.emplace_back(8);
    nodes.emplace_back(8);
    states.push_back(state);
    for (u32 i = 0; i < 3; ++i) material.set(50 + i, u8{255}).set(62 + i, u8{255}); // diffuse and tint
    return material.set(76, transparency).set(108, flags.address());
}

void RawScene::addFace(size_t material, const std::vector<Corner>& corners)
{
    RawRecord& face = faces.emplace_back(68);
    std::vector<i32>& vertices = indices.emplace_back();
    for (const Corner& corner : corners) {
        vertices.push_back(static_cast<i32>(outcodes.size()));
        cameraVertices.insert(cameraVertices.end(), {corner.x * corner.z, -corner.y * corner.z, corner.z});
        screenVertices.insert(screenVertices.end(), {0, 0, 0});
        shades.insert(shades.end(), {0, 0, 0, 64}); // 64 quarter levels: level 16
        outcodes.push_back(corner.outcode);
        stamps.push_back(0);
    }
    face.set(0, static_cast<i32>(corners.size())).set(4, vertices.data()).set(8, texCoords.data());
    face.set(20, materials[material].address());
    face.set(40, f32{0}).set(44, f32{0}).set(48, f32{1}).set(64, faceTest.address());
}

void RawScene::addRectangle(size_t material, f32 x, f32 y, f32 xEnd, f32 yEnd, f32 z)
{
    addFace(material, {{x, y, z, 0x3f}, {x, yEnd, z, 0x3f}, {xEnd, yEnd, z, 0x3f}, {xEnd, y, z, 0x3f}});
}

} // namespace kardeno::tests
