#include "tests/reference/reference_emission.h"

#include "tests/reference/reference_arithmetic.h"
#include "tests/reference/reference_clipping.h"

#include <algorithm>
#include <cmath>

namespace kardeno::reference {

namespace {

constexpr Format positions = {};
constexpr Format coloured = {.colours = true};
constexpr Format colouredTextured = {.texture = true, .colours = true};
constexpr Format lit = {.intensity = true, .intensityOverDepth = true};
constexpr Format litTextured = {.texture = true, .intensity = true};
constexpr Format textured = {.texture = true};

size_t indexOf(const SceneFace& face, size_t corner)
{
    return static_cast<size_t>(face.vertexIndices[corner]);
}

f32 invDepthOf(f32 z)
{
    return single(1.0 / static_cast<f64>(z));
}

// x and y from the inverse depth as it is stored.
void project(f64 x, f64 y, f32 invDepth, const ViewProjection& projection, f32& screenX, f32& screenY)
{
    screenX = single(projection.scaleX * x * invDepth + projection.centreX);
    screenY = single(projection.centreY - y * projection.scaleY * invDepth);
}

// For faces that cross the near or the far plane: attributes are clipped before they are divided by depth.
bool throughCamera(const RenderView& view, const SceneFace& face, const Format& format, const HostContext& context,
                   Polygon& polygon)
{
    for (size_t i = 0; i < static_cast<size_t>(face.vertexCount); ++i) {
        const size_t vertex = indexOf(face, i);
        Corner corner;
        corner.viewX = context.cameraVertices[vertex].x;
        corner.viewY = context.cameraVertices[vertex].y;
        corner.viewZ = context.cameraVertices[vertex].z;
        corner.outcode = context.vertexOutcodes[vertex];
        if (format.texture) {
            const TextureImage& image = *face.material->textureMap->image;
            corner.texU = single((static_cast<f64>(face.texCoords[i].u) * image.width + 0.3) * 256.0);
            corner.texV = single((static_cast<f64>(face.texCoords[i].v) * image.height + 0.3) * 256.0);
        }
        if (format.intensity || format.colours) {
            const VertexShade& shade = context.vertexShades[vertex];
            corner.intensity = single(static_cast<f64>(shade.intensity) * 64.0);
            corner.red = shade.red;
            corner.green = shade.green;
            corner.blue = shade.blue;
        }
        polygon.corners.push_back(corner);
    }
    if (!(polygon.outcodeAnd & outcodeNear) && !clip(polygon, Plane::nearPlane, format, view)) return false;
    if (!(polygon.outcodeAnd & outcodeFar) && !clip(polygon, Plane::farPlane, format, view)) return false;

    for (Corner& corner : polygon.corners) {
        corner.invDepth = invDepthOf(corner.viewZ);
        project(corner.viewX, corner.viewY, corner.invDepth, *view.projection, corner.screenX, corner.screenY);
        const f64 invDepth = corner.invDepth;
        if (format.texture) {
            corner.texU = single(corner.texU * invDepth);
            corner.texV = single(corner.texV * invDepth);
        }
        if (format.intensityOverDepth) corner.intensity = single(corner.intensity * invDepth);
    }
    return true;
}

// For faces between near and far: each vertex is projected once for an object, whichever face comes first.
void throughCache(const RenderView& view, const SceneFace& face, const Format& format, HostContext& context,
                  Polygon& polygon)
{
    for (size_t i = 0; i < static_cast<size_t>(face.vertexCount); ++i) {
        const size_t vertex = indexOf(face, i);
        const CameraVertex& camera = context.cameraVertices[vertex];
        ScreenVertex& cached = context.screenVertices[vertex];
        if (context.vertexStamps[vertex] != context.projectionStamp) {
            cached.invDepth = invDepthOf(camera.z);
            project(camera.x, camera.y, cached.invDepth, *view.projection, cached.x, cached.y);
            context.vertexStamps[vertex] = context.projectionStamp;
        }
        Corner corner;
        corner.screenX = cached.x;
        corner.screenY = cached.y;
        corner.invDepth = cached.invDepth;
        corner.viewZ = camera.z;
        corner.outcode = context.vertexOutcodes[vertex];
        const f64 invDepth = corner.invDepth;
        if (format.texture) {
            const TextureImage& image = *face.material->textureMap->image;
            corner.texU = single((static_cast<f64>(face.texCoords[i].u) * image.width + 0.3) * invDepth * 256.0);
            corner.texV = single((static_cast<f64>(face.texCoords[i].v) * image.height + 0.3) * invDepth * 256.0);
        }
        if (format.intensity || format.colours) {
            const VertexShade& shade = context.vertexShades[vertex];
            const f64 intensity = shade.intensity;
            corner.intensity =
                format.intensityOverDepth ? single(intensity * invDepth * 64.0) : single(intensity * 64.0);
            corner.red = shade.red;
            corner.green = shade.green;
            corner.blue = shade.blue;
        }
        polygon.corners.push_back(corner);
    }
}

i32 deepestCorner(const Polygon& polygon)
{
    i32 deepest = truncated(polygon.corners[0].viewZ);
    for (const Corner& corner : polygon.corners) deepest = std::max(deepest, truncated(corner.viewZ));
    return deepest;
}

// Four corners become a square around their middle; depth and texture stay with the corner of the same number.
void becomeSquare(const RenderView& view, Polygon& polygon)
{
    f64 mx = 0.0, my = 0.0;
    for (const Corner& corner : polygon.corners) {
        mx += corner.screenX;
        my += corner.screenY;
    }
    mx /= 4;
    my /= 4;
    f64 hx = 0.0, hy = 0.0;
    for (const Corner& corner : polygon.corners) {
        hx = std::max(hx, std::fabs(corner.screenX - mx));
        hy = std::max(hy, std::fabs(corner.screenY - my));
    }
    const f64 r = hy > hx ? hy : hx;
    const f64 xs[4] = {mx - r, mx - r, mx + r, mx + r};
    const f64 ys[4] = {my - r, my + r, my + r, my - r};

    polygon.outcodeAnd = 0x3f;
    polygon.outcodeOr = 0;
    for (size_t i = 0; i < 4; ++i) {
        Corner& corner = polygon.corners[i];
        corner.screenX = single(xs[i]);
        corner.screenY = single(ys[i]);
        corner.outcode = outcodeNear | outcodeFar;
        if (corner.screenX >= view.left) corner.outcode |= outcodeLeft;
        if (corner.screenX <= view.projection->right) corner.outcode |= outcodeRight;
        if (corner.screenY >= view.top) corner.outcode |= outcodeTop;
        if (corner.screenY <= view.projection->bottom) corner.outcode |= outcodeBottom;
        polygon.outcodeAnd &= corner.outcode;
        polygon.outcodeOr |= corner.outcode;
    }
}

// The plane of the face, not of its clipped outline.
void setDepthPlane(const RenderView& view, const SceneFace& face, const HostContext& context, Polygon& polygon)
{
    const ViewProjection& projection = *view.projection;
    const CameraVertex& first = context.cameraVertices[indexOf(face, 0)];
    const f64 nx = face.normalX, ny = face.normalY, nz = face.normalZ;
    const f64 d = nz * first.z + ny * first.y + nx * first.x;
    const f64 r = 1.0 / d;
    polygon.invDepthStepX = single(projection.invScaleX * r * nx);
    polygon.invDepthStepY = single(-(projection.invScaleY * r * ny));
    polygon.invDepthOrigin = single(((projection.centreYOverScaleY * ny + nz) - projection.centreXOverScaleX * nx) * r);
}

} // namespace

Emission emissionOf(Row row)
{
    switch (row) {
    case Row::fallbackFlat: return {positions, List::resolved};
    case Row::fallbackBlend: return {positions, List::sorted};
    case Row::unlitPlain: return {positions, List::resolved};
    case Row::unlitTextured: return {textured, List::resolved};
    case Row::unlitTexturedShade1: return {textured, List::sorted};
    case Row::unlitTranslucent: return {positions, List::sorted};
    case Row::unlitTexturedTranslucent: return {textured, List::sorted};
    case Row::unlitTexturedShade2: return {textured, List::sorted};
    case Row::unlitTexturedShade10: return {textured, List::lateSorted, true};
    case Row::unlitTexturedShade11: return {textured, List::sorted, true};
    case Row::unlitPalettised: return {textured, List::resolved};
    case Row::litPlain: return {lit, List::resolved};
    case Row::litTextured: return {litTextured, List::resolved};
    case Row::litTexturedShade1: return {litTextured, List::sorted};
    case Row::litTranslucent: return {lit, List::sorted};
    case Row::litTexturedTranslucent: return {litTextured, List::sorted};
    case Row::litTexturedShade1Translucent: return {litTextured, List::sorted};
    case Row::litTexturedShade2: return {litTextured, List::sorted};
    case Row::spareA: return {coloured, List::resolved};
    case Row::spareB: return {colouredTextured, List::resolved};
    }
    return {};
}

void emit(const RenderView& view, const SceneFace& face, Row row, HostContext& context, PolygonLists& lists)
{
    const Emission emission = emissionOf(row);
    if (emission.billboard && face.vertexCount != 4) return;

    Polygon polygon;
    for (i32 i = 0; i < face.vertexCount; ++i) {
        const u32 outcode = context.vertexOutcodes[indexOf(face, static_cast<size_t>(i))];
        polygon.outcodeAnd &= outcode;
        polygon.outcodeOr |= outcode;
    }
    if (polygon.outcodeOr != 0x3f) return;
    if (face.vertexCount < static_cast<i32>(fewestCorners) || face.vertexCount > static_cast<i32>(mostCorners)) return;

    const u32 depthPlanes = outcodeNear | outcodeFar;
    if ((polygon.outcodeAnd & depthPlanes) == depthPlanes) {
        throughCache(view, face, emission.format, context, polygon);
    } else {
        if (emission.billboard) return;
        if (!throughCamera(view, face, emission.format, context, polygon)) return;
    }
    if (emission.list != List::resolved) polygon.maxDepth = deepestCorner(polygon);
    if (emission.billboard) becomeSquare(view, polygon);
    if (!clipToScreen(polygon, polygon.outcodeAnd, emission.format, view)) return;
    for (Corner& corner : polygon.corners) corner.scanY = truncated(corner.screenY);
    if (row != Row::unlitTexturedShade10) setDepthPlane(view, face, context, polygon);

    polygon.material = face.material;
    polygon.faceColour = face.faceColour ? *face.faceColour : 0;
    polygon.occludes = emission.list == List::resolved;
    lists[emission.list].push_back(polygon);
}

} // namespace kardeno::reference
