#include "geometry/emission.h"

#include <assert.h>

namespace kardeno {

namespace {

// Calls the clipper when some corner of the face lies outside its plane. Returns whether a polygon is left.
bool survives(ClipRoutine clipper, u32 outcodeBit, const RenderView& view, ScreenPolygon& polygon)
{
    if (polygon.outcodeAnd & outcodeBit) return true;
    clipper(&view, &polygon);
    return polygon.vertexCount >= minCorners;
}

} // namespace

bool foldOutcodes(const HostContext& context, ScreenPolygon& polygon, const SceneFace& face)
{
    const FoldedOutcodes folded = foldedOutcodes(context, face);
    polygon.outcodeAnd = folded.all;
    polygon.outcodeOr = folded.any;
    return canBeSeen(folded, face);
}

void copyCameraOutline(const HostContext& context, ScreenPolygon& polygon, const SceneFace& face)
{
    polygon.vertexCount = face.vertexCount;
    for (i32 i = 0; i < face.vertexCount; ++i) {
        const i32 vertexIndex = face.vertexIndices[i];
        const CameraVertex& vertex = context.cameraVertices[vertexIndex];
        polygon.viewX[i] = vertex.x;
        polygon.viewY[i] = vertex.y;
        polygon.viewZ[i] = vertex.z;
        polygon.outcode[i] = context.vertexOutcodes[vertexIndex];
    }
}

bool clipToDepth(const RenderView& view, const ClipperFamily& clippers, ScreenPolygon& polygon)
{
    return survives(clippers.nearPlane, outcodeNear, view, polygon)
           && survives(clippers.farPlane, outcodeFar, view, polygon);
}

bool clipToScreen(const RenderView& view, const ClipperFamily& clippers, ScreenPolygon& polygon)
{
    const bool visible = survives(clippers.rightPlane, outcodeRight, view, polygon)
                         && survives(clippers.leftPlane, outcodeLeft, view, polygon)
                         && survives(clippers.bottomPlane, outcodeBottom, view, polygon)
                         && survives(clippers.topPlane, outcodeTop, view, polygon);
    if (!visible) return false;
    for (i32 i = 0; i < polygon.vertexCount; ++i) polygon.scanY[i] = truncated(polygon.screenY[i]);
    return true;
}

i32 deepestCorner(const ScreenPolygon& polygon)
{
    i32 deepest = truncated(polygon.viewZ[0]);
    for (i32 i = 1; i < polygon.vertexCount; ++i) {
        const i32 depth = truncated(polygon.viewZ[i]);
        if (depth > deepest) deepest = depth;
    }
    return deepest;
}

void finishPolygon(const SceneFace& face, ScreenPolygon& polygon, bool occludes)
{
    assert(polygon.vertexCount >= minCorners && polygon.vertexCount <= maxCorners);
    polygon.material = face.material;
    polygon.faceColour = colourOf(face);
    polygon.spanHead = -1;
    polygon.activeCount = 0;
    polygon.occludes = occludes ? 1 : 0;
    polygon.engineFlag = 1;
}

} // namespace kardeno
