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
    std::memcpy(static_cast<u8*>(object) + at(92, 116), &visible, 4);
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
        addMaterial(content == Content::litTexture ? 1 : 0, 0).set(at(92, 96), map.address());
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
    object.set(at(80, 96), static_cast<i32>(faces.size())).set(at(84, 104), facePointers.data());
    for (size_t i = 0; i < nodes.size(); ++i) {
        nodes[i].set(0, materials[i].address());
        if (i + 1 < nodes.size()) nodes[i].set(at(4, 8), nodes[i + 1].address());
    }
    object.set(at(104, 128), nodes[0].address());
}

void RawScene::setServices()
{
    context.set(at(4, 8), cameraVertices.data()).set(at(8, 16), screenVertices.data()).set(at(16, 32), shades.data());
    context.set(at(20, 40), outcodes.data()).set(at(24, 48), stamps.data());
    context.set(at(44, 72), hostAlloc).set(at(48, 80), hostRealloc).set(at(52, 88), hostFree);
    context.set(at(352, 392), i32{16}).set(at(16832, 16872), u32{1});
}

// One pixel to the unit at depth 1; y points up in camera space.
void RawScene::setView()
{
    const f32 numbers[10] = {width, height, 0, 0, 1, 1, 1, 1, 0, 0};
    for (u32 i = 0; i < 10; ++i) projection.set(i * 4, numbers[i]);
    camera.set(at(92, 96), cameraFunctions.address());
    cameraFunctions.set(0, prepareCamera);
    view.set(0, object.address()).set(at(20, 24), camera.address());
    view.set(at(32, 40), f32{0}).set(at(36, 44), f32{0}).set(at(48, 56), f32{0.5f}).set(at(52, 60), f32{100});
    view.set(at(60, 68), i32{width}).set(at(64, 72), projection.address());
}

void RawScene::setFunctions()
{
    functions.set(at(12, 16), update)
        .set(at(16, 24), transform)
        .set(at(20, 32), selectLevel)
        .set(at(24, 40), testBounds);
    functions.set(at(28, 48), light).set(at(36, 64), prepareVertices);
    objectClass.set(at(108, 112), functions.address());
    object.set(at(220, 248), groupFlag.address()).set(at(228, 264), objectClass.address());
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
    map.set(56, image.address()).set(at(60, 64), palette.address());
    texCoords = {0, 0, 0, 1, 1, 1, 1, 0};
}

// A white material.
RawRecord& RawScene::addMaterial(i32 state, i32 transparency)
{
    RawRecord& material = materials.emplace_back(at(116, 136));
    RawRecord& flags = flagBlocks.emplace_back(8);
    nodes.emplace_back(at(8, 16));
    states.push_back(state);
    for (u32 i = 0; i < 3; ++i) material.set(50 + i, u8{255}).set(62 + i, u8{255}); // diffuse and tint
    return material.set(76, transparency).set(at(108, 120), flags.address());
}

void RawScene::addFace(size_t material, const std::vector<Corner>& corners)
{
    RawRecord& face = faces.emplace_back(at(68, 96));
    std::vector<i32>& vertices = indices.emplace_back();
    for (const Corner& corner : corners) {
        vertices.push_back(static_cast<i32>(outcodes.size()));
        cameraVertices.insert(cameraVertices.end(), {corner.x * corner.z, -corner.y * corner.z, corner.z});
        screenVertices.insert(screenVertices.end(), {0, 0, 0});
        shades.insert(shades.end(), {0, 0, 0, 64}); // 64 quarter levels: level 16
        outcodes.push_back(corner.outcode);
        stamps.push_back(0);
    }
    face.set(0, static_cast<i32>(corners.size())).set(at(4, 8), vertices.data()).set(at(8, 16), texCoords.data());
    face.set(at(20, 32), materials[material].address());
    face.set(at(40, 56), f32{0}).set(at(44, 60), f32{0}).set(at(48, 64), f32{1}).set(at(64, 88), faceTest.address());
}

void RawScene::addRectangle(size_t material, f32 x, f32 y, f32 xEnd, f32 yEnd, f32 z)
{
    addFace(material, {{x, y, z, 0x3f}, {x, yEnd, z, 0x3f}, {xEnd, yEnd, z, 0x3f}, {xEnd, y, z, 0x3f}});
}

} // namespace kardeno::tests
