#include "tests/robustness/hostile_scene.h"

#include "interface/render_mode_table.h"
#include "support/arithmetic.h"
#include "tests/robustness/row_needs.h"

#include <algorithm>
#include <cmath>

namespace kardeno::tests {

namespace {

constexpr i32 largestArea = 60000;    // pixels of the rectangle: what a frame costs
constexpr i32 largestFrame = 1 << 18; // pixels from its first to its last
constexpr i32 mostIndices = 40;

struct Rectangle {
    i32 left = 0, top = 0, right = 0, bottom = 0;

    bool empty() const { return left >= right || top >= bottom; }
};

// The columns and rows that a frame of the view may write; empty for a view that is refused.
Rectangle rectangleOf(const RenderView& view)
{
    const f32 left = view.left, top = view.top, right = view.projection->right, bottom = view.projection->bottom;
    for (const f32 side : {left, top, right, bottom}) {
        if (!std::isfinite(side)) return {};
    }
    if (top < 0 || bottom > 4096 || left < -32768 || right > 32767) return {};
    if (left >= right || top >= bottom) return {};
    return {truncated(left), truncated(top), truncated(right), truncated(bottom)};
}

// The elements of the frame buffer from the first to the last that the rectangle holds.
struct Extent {
    long long first = 0, end = 0;
};

Extent extentOf(const Rectangle& rectangle, i32 pitch)
{
    if (rectangle.empty()) return {};
    const long long top = static_cast<long long>(rectangle.top) * pitch;
    const long long bottom = static_cast<long long>(rectangle.bottom - 1) * pitch;
    return {std::min(top, bottom) + rectangle.left, std::max(top, bottom) + rectangle.right};
}

void anyColour(ByteSource& source, MaterialColour& colour)
{
    colour = {.red = source.byte(), .green = source.byte(), .blue = source.byte(), .gap3 = 0, .packed = 0};
    colour.packed = static_cast<u16>(colour.red << 8 | colour.blue);
}

} // namespace

ExactFrame::ExactFrame(const RenderView& view)
{
    const Rectangle rectangle = rectangleOf(view);
    const Extent extent = extentOf(rectangle, view.pitch);
    first = static_cast<i32>(extent.first);
    storage.assign(static_cast<size_t>(extent.end - extent.first + 2 * guard), untouched);
    mayBeWritten.assign(storage.size(), false);
    if (rectangle.empty()) return;
    for (i32 y = rectangle.top; y < rectangle.bottom; ++y) {
        const auto row = mayBeWritten.begin() + (y * view.pitch - first + guard);
        std::fill(row + rectangle.left, row + rectangle.right, true);
    }
}

// Element 0 may lie far outside the storage.
u16* ExactFrame::pixels()
{
    return reinterpret_cast<u16*>(reinterpret_cast<uintptr_t>(storage.data() + guard)
                                  - static_cast<uintptr_t>(first) * sizeof(u16));
}

bool ExactFrame::onlyRectangleWritten() const
{
    for (size_t i = 0; i < storage.size(); ++i) {
        if (!mayBeWritten[i] && storage[i] != untouched) return false;
    }
    return true;
}

HostileScene::HostileScene(TestHost& host, ByteSource& theSource) : scene(host), source(theSource)
{
    makeView();
    makeTextures();
    for (i32 i = source.between(1, 6); i > 0; --i) makeMaterial();
    for (i32 i = source.between(1, 8); i > 0; --i) makeObject();
    for (i32 i = source.between(1, 24); i > 0; --i) makeFace();
}

void HostileScene::makeView()
{
    RenderView& view = scene.view.record;
    ViewProjection& projection = scene.view.projection;
    const f32 width = 8 + 56 * source.fraction();
    const f32 height = 4 + 36 * source.fraction();
    view.left = source.onceIn(2) ? 40 * source.fraction() - 20 : 0;
    view.top = source.onceIn(2) ? 20 * source.fraction() : 0;

    switch (source.below(8)) {
    case 0: view.left = -32768; break;
    case 1: view.left = 32767 - width; break;
    case 2: view.top = 4096 - height; break;
    default: break;
    }
    projection.right = view.left + width;
    projection.bottom = view.top + height;
    if (source.onceIn(8)) projection.right = 32767;
    if (source.onceIn(8)) projection.bottom = 4096;
    projection.scaleX = 8 + 64 * source.fraction();
    projection.scaleY = 8 + 64 * source.fraction();
    projection.centreX = view.left + width * source.fraction();
    projection.centreY = view.top + height * source.fraction();
    projection.invScaleX = 1 / projection.scaleX;
    projection.invScaleY = 1 / projection.scaleY;
    projection.centreXOverScaleX = projection.centreX / projection.scaleX;
    projection.centreYOverScaleY = projection.centreY / projection.scaleY;
    view.nearZ = 1;
    view.farZ = 100;

    if (source.onceIn(4)) {
        for (f32* field :
             {&view.left, &view.top, &view.nearZ, &view.farZ, &projection.right, &projection.bottom,
              &projection.centreX, &projection.centreY, &projection.scaleX, &projection.scaleY, &projection.invScaleX,
              &projection.invScaleY, &projection.centreXOverScaleX, &projection.centreYOverScaleY})
            *field = source.mostly(*field, 8);
    }
    limitWork();
    choosePitch();
}

// A rectangle of too many pixels loses rows.
void HostileScene::limitWork()
{
    const Rectangle rectangle = rectangleOf(scene.view.record);
    if (rectangle.empty()) return;
    const i32 rows = std::max(1, largestArea / (rectangle.right - rectangle.left));
    if (rectangle.bottom - rectangle.top > rows) scene.view.projection.bottom = static_cast<f32>(rectangle.top + rows);
}

void HostileScene::choosePitch()
{
    const Rectangle rectangle = rectangleOf(scene.view.record);
    const i32 width = rectangle.right - rectangle.left;
    i32& pitch = scene.view.record.pitch;
    switch (source.below(6)) {
    case 0: pitch = width; break;
    case 1: pitch = width + source.below(64); break;
    case 2: pitch = -width; break;
    case 3: pitch = -width - source.below(64); break;
    case 4: pitch = source.between(-3, 3); break;
    default: pitch = static_cast<i32>(source.word()); break;
    }
    const Extent extent = extentOf(rectangle, pitch);
    if (extent.end - extent.first > largestFrame || extent.first < -largestFrame * 64ll
        || extent.end > largestFrame * 64ll)
        pitch = 0;
}

void HostileScene::makeTextures()
{
    const auto add = [this](u32 bits, i32 width, i32 height, bool is256x256) {
        TestTexture& texture = textures.emplace_back(bits, width, height, is256x256);
        u8* const texels = reinterpret_cast<u8*>(&texture.image() + 1);
        const i32 bytes = width * height * (bits == 8 ? 1 : 2);
        const u32 factor = source.byte();
        for (i32 i = 0; i < bytes; ++i) texels[i] = static_cast<u8>(static_cast<u32>(i) * factor >> 3);
        for (u32 i = 0; i < 256; ++i) {
            const u8 level = static_cast<u8>(i * factor);
            texture.setPalette(i, level, static_cast<u8>(255 - level), static_cast<u8>(i));
        }
        texture.map.transparentIndex = source.byte();
        texture.map.transparentColour = static_cast<u16>(source.below(3) * 257);
    };
    for (const u32 bits : {16u, 8u}) add(bits, 1 << source.below(9), 1 << source.below(9), false);
    const u32 squareBits = source.onceIn(2) ? 8 : 16;
    const bool isSquare = source.onceIn(2);
    add(squareBits, isSquare ? 256 : 4, isSquare ? 256 : 2, isSquare);
    // Everything but 8 means 16-bit texels.
    if (source.onceIn(4)) textures.front().image().bitsPerTexel = source.onceIn(2) ? source.word() | 1 : 0;
}

void HostileScene::makeMaterial()
{
    TestMaterial& material = scene.bareMaterial();
    anyColour(source, material.ambientColour);
    anyColour(source, material.diffuseColour);
    anyColour(source, material.specularColour);
    anyColour(source, material.tintColour);
    material.shininess = source.anyInteger();
    material.specularLevel = source.anyInteger();
    material.transparency = source.onceIn(2) ? source.anyInteger() : source.below(2) * 50;
    static constexpr i32 modes[] = {0, 1, 2, 10, 11};
    material.shadingMode = source.onceIn(8) ? source.anyInteger() : modes[source.below(5)];
    const i32 texture = source.below(4);
    material.textureMap = texture < 3 ? &textures[static_cast<size_t>(texture)].map : nullptr;

    Kardeno_Add_Material_Dll(&material);
    for (i32 i = source.between(1, 3); i > 0; --i)
        Kardeno_Set_Material_Render_State_Dll(&material, source.onceIn(8) ? source.anyInteger() : source.below(4));
    if (source.onceIn(3)) pointAtAnyRow(material);
    if (source.onceIn(4)) {
        material.shininess = source.anyInteger();
        material.shadingMode = source.anyInteger();
        Kardeno_Set_Material_Fct_Dll(&material);
        Kardeno_Update_Material_Dll(&material);
    }
    materials.push_back(&material);
}

// Any of the twenty rows whose needs the material meets.
void HostileScene::pointAtAnyRow(TestMaterial& material)
{
    Kardeno_Set_Material_Render_State_Dll(&material, 1); // for the ramp
    const bool palettised = material.textureMap && material.textureMap->image->bitsPerTexel == 8;
    for (u32 row = static_cast<u32>(source.below(renderModeRowCount));; row = (row + 1) % renderModeRowCount) {
        const RowNeeds needs = needsOf(row);
        const bool met = needs == RowNeeds::nothing || (needs == RowNeeds::ramp && material.renderPrivate->shadeRamp)
                         || (needs == RowNeeds::texels16 && material.textureMap && !palettised)
                         || (needs == RowNeeds::texels8 && palettised);
        if (!met) continue;
        material.renderPrivate->mode = &RenderModeTable[row];
        return;
    }
}

void HostileScene::makeObject()
{
    const i32 parent = source.below(static_cast<i32>(objects.size()) + 2);
    const bool isRoot = parent >= static_cast<i32>(objects.size());
    TestObject& object = isRoot ? scene.addRoot() : scene.addObject("", objects[static_cast<size_t>(parent)]);
    object.isGroup = source.onceIn(3) ? source.anyInteger() : 0;
    object.partOfGroup = source.onceIn(3) ? source.anyInteger() : 0;
    object.boundsVisible = source.onceIn(6) ? 0 : source.between(1, 3);
    object.visible = source.below(2);
    objects.push_back(&object);
    if (source.onceIn(4)) object.level = objects[static_cast<size_t>(source.below(static_cast<i32>(objects.size())))];
}

i32 HostileScene::makeVertex(f32 screenX, f32 screenY, f32 z)
{
    const RenderView& view = scene.view.record;
    const ViewProjection& projection = scene.view.projection;
    const f32 x = (screenX - projection.centreX) / projection.scaleX * z;
    const f32 y = (projection.centreY - screenY) / projection.scaleY * z;
    u32 outcode = screenOutcode(view, screenX, screenY);
    if (!(z >= view.nearZ)) outcode &= ~u32{outcodeNear};
    if (!(z <= view.farZ)) outcode &= ~u32{outcodeFar};
    switch (source.below(12)) {
    case 9: outcode = outcodeAll; break;
    case 10: outcode = source.byte() & outcodeAll; break;
    case 11: outcode = source.onceIn(4) ? source.word() : source.byte(); break;
    default: break;
    }

    const i32 index = scene.host.addVertex(source.mostly(x, 24), source.mostly(y, 24), source.mostly(z, 24), outcode);
    VertexShade& shade = scene.host.shades.back();
    for (f32* value : {&shade.red, &shade.green, &shade.blue, &shade.intensity})
        *value = source.mostly(static_cast<f32>(source.byte()), 12);
    return index;
}

void HostileScene::makeFace()
{
    TestObject& object = *objects[static_cast<size_t>(source.below(static_cast<i32>(objects.size())))];
    TestMaterial& material = *materials[static_cast<size_t>(source.below(static_cast<i32>(materials.size())))];
    TestFace& face = scene.addFace(object, material, std::vector<ScreenCorner>{}, static_cast<u16>(source.word()));

    // Directions in the order in which outlines are drawn: up, left, down, right, with three steps between.
    static constexpr f32 directions[16][2] = {
        {0, -1}, {-.38f, -.92f}, {-.71f, -.71f}, {-.92f, -.38f}, {-1, 0}, {-.92f, .38f}, {-.71f, .71f}, {-.38f, .92f},
        {0, 1},  {.38f, .92f},   {.71f, .71f},   {.92f, .38f},   {1, 0},  {.92f, -.38f}, {.71f, -.71f}, {.38f, -.92f}};

    const Rectangle rectangle = rectangleOf(scene.view.record);
    const f32 width = rectangle.empty() ? 64 : static_cast<f32>(rectangle.right - rectangle.left);
    const f32 height = rectangle.empty() ? 48 : static_cast<f32>(rectangle.bottom - rectangle.top);
    const f32 centreX = static_cast<f32>(rectangle.left) + width * (1.5f * source.fraction() - 0.25f);
    const f32 centreY = static_cast<f32>(rectangle.top) + height * (1.5f * source.fraction() - 0.25f);
    const f32 radiusX = width * source.fraction();
    const f32 radiusY = height * source.fraction();
    const f32 z = 0.5f + 8 * source.fraction();
    const i32 corners = source.onceIn(4) ? source.between(3, 16) : source.between(3, 5);
    const bool slanted = source.onceIn(2);
    for (i32 i = 0; i < corners; ++i) {
        const f32* const direction = directions[i * 16 / corners];
        const f32 cornerZ = slanted ? z + 4 * source.fraction() : z;
        face.indices.push_back(makeVertex(centreX + radiusX * direction[0], centreY + radiusY * direction[1], cornerZ));
    }
    face.vertexCount = corners;

    // Outlines of any shape: vertices of any face in any order.
    const i32 vertices = static_cast<i32>(scene.host.cameraVertices.size());
    const bool shapeless = source.onceIn(4);
    if (shapeless) face.indices.clear();
    while (face.indices.size() < mostIndices)
        face.indices.push_back(static_cast<i32>(source.word() % static_cast<u32>(vertices)));
    if (shapeless) face.vertexCount = source.onceIn(8) ? -source.between(1, 200) : source.between(0, mostIndices);
    if (source.onceIn(24)) face.vertexCount = source.between(0, mostIndices);

    face.coordinates.clear();
    while (face.coordinates.size() < mostIndices) {
        const f32 u = 4 * source.fraction() - 1;
        const f32 v = 4 * source.fraction() - 1;
        face.coordinates.push_back({source.mostly(u, 24), source.mostly(v, 24)});
    }
    face.vertexIndices = face.indices.data();
    face.texCoords = face.coordinates.data();
    setNormal(face);
    face.shown = !source.onceIn(12);
    if (source.onceIn(12)) face.faceColour = nullptr;
}

void HostileScene::setNormal(TestFace& face)
{
    const auto vertex = [&](size_t corner) {
        return scene.host.cameraVertices[static_cast<size_t>(face.indices[corner])];
    };
    const CameraVertex a = vertex(0), b = vertex(1), c = vertex(2);
    const f32 ux = b.x - a.x, uy = b.y - a.y, uz = b.z - a.z;
    const f32 wx = c.x - a.x, wy = c.y - a.y, wz = c.z - a.z;
    face.normalX = source.mostly(uy * wz - uz * wy, 24);
    face.normalY = source.mostly(uz * wx - ux * wz, 24);
    face.normalZ = source.mostly(ux * wy - uy * wx, 24);
}

f32 HostileScene::pointX()
{
    const Rectangle rectangle = rectangleOf(scene.view.record);
    const f32 width = static_cast<f32>(rectangle.right - rectangle.left);
    return source.mostly(static_cast<f32>(rectangle.left) + width * source.fraction(), 6);
}

f32 HostileScene::pointY()
{
    const Rectangle rectangle = rectangleOf(scene.view.record);
    const f32 height = static_cast<f32>(rectangle.bottom - rectangle.top);
    return source.mostly(static_cast<f32>(rectangle.top) + height * source.fraction(), 6);
}

} // namespace kardeno::tests
