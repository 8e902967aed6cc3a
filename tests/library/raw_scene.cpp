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

RawScene::RawScene()
{
    log.clear();
    reallocBytes.clear();
    firstReallocs = 0;

    setView();
    setFunctions();
    addMaterial(0x1234, 0, 0);
    addMaterial(0, 255, 0);
    addMaterial(0xf000, 0, 50);
    addRectangle(0, 2, 1, 6, 3, 1);
    addRectangle(1, 6, 1, 10, 3, 1);
    addRectangle(2, 4, 2, 8, 3, 0.5f);

    for (RawRecord& face : faces) facePointers.push_back(face.address());
    object.set(80, static_cast<i32>(faces.size())).set(84, facePointers.data());
    for (size_t i = 0; i < nodes.size(); ++i) {
        nodes[i].set(0, materials[i].address());
        if (i + 1 < nodes.size()) nodes[i].set(4, nodes[i + 1].address());
    }
    object.set(104, nodes[0].address());
    setServices();
}

RawScene::~RawScene()
{
    for (void* block : heldBlocks) std::free(block);
    heldBlocks.clear();
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

void RawScene::addMaterial(u16 packed, u8 channel, i32 transparency)
{
    RawRecord& material = materials.emplace_back(116);
    RawRecord& flags = flagBlocks.emplace_back(8);
    nodes.emplace_back(8);
    for (u32 i = 0; i < 3; ++i) material.set(50 + i, channel).set(62 + i, channel); // diffuse and tint
    material.set(54, packed).set(76, transparency).set(108, flags.address());
}

void RawScene::addRectangle(size_t material, f32 x, f32 y, f32 xEnd, f32 yEnd, f32 z)
{
    const f32 corners[4][2] = {{x, y}, {x, yEnd}, {xEnd, yEnd}, {xEnd, y}};
    RawRecord& face = faces.emplace_back(68);
    std::vector<i32>& corner = indices.emplace_back();
    for (const auto& [cornerX, cornerY] : corners) {
        corner.push_back(static_cast<i32>(outcodes.size()));
        cameraVertices.insert(cameraVertices.end(), {cornerX * z, -cornerY * z, z});
        screenVertices.insert(screenVertices.end(), {0, 0, 0});
        shades.insert(shades.end(), {0, 0, 0, 64}); // 64 quarter levels: level 16
        outcodes.push_back(0x3f);
        stamps.push_back(0);
    }
    face.set(0, i32{4}).set(4, corner.data()).set(20, materials[material].address());
    face.set(40, f32{0}).set(44, f32{0}).set(48, f32{1}).set(64, faceTest.address());
}

} // namespace kardeno::tests
