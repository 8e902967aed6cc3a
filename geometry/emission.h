// Emission turns a face of the host into a polygon of one of the frame's lists, or drops it when nothing of it is in
// view. There are twelve emission routines. Ten of them are emit() with a vertex format and a list; billboards.h has
// the two that turn a face into a square.
//
// A face that some plane cuts becomes a ScreenPolygon first, which is clipped in place and then stored in the list.
// Most faces lie inside all planes and are stored at once, in whole_faces.h.
#pragma once

#include "geometry/plane_clipping.h"
#include "geometry/whole_faces.h"
#include "host/host_context.h"
#include "host/render_modes.h"

namespace kardeno {

inline constexpr u32 outcodeDepthPlanes = outcodeNear | outcodeFar;

// First come the steps that do not depend on the vertex format. Where a step returns a bool, it is true for a face that
// survives.

// Combines the outcodes of the face's corners into outcodeAnd and outcodeOr. The face does not survive when all corners
// are outside one plane, nor when it has fewer than 3 or more than 16 corners.
bool foldOutcodes(const HostContext& context, ScreenPolygon& polygon, const SceneFace& face);

// Copies the camera-space corners of the face and their outcodes to the polygon.
void copyCameraOutline(const HostContext& context, ScreenPolygon& polygon, const SceneFace& face);

inline CameraVertex cameraCorner(const ScreenPolygon& polygon, i32 i)
{
    return {polygon.viewX[i], polygon.viewY[i], polygon.viewZ[i]};
}

// Clips the polygon against the near and the far plane. A plane that has all corners of the face inside is skipped.
bool clipToDepth(const RenderView& view, const ClipperFamily& clippers, ScreenPolygon& polygon);

// Clips the projected polygon against the four sides of the drawn rectangle in the same way, and then fills scanY.
bool clipToScreen(const RenderView& view, const ClipperFamily& clippers, ScreenPolygon& polygon);

// Returns the largest truncated viewZ of the polygon's corners, which is the key of the depth sort.
i32 deepestCorner(const ScreenPolygon& polygon);

// Sets the fields that every emitted polygon has beside its outline and its depth plane.
void finishPolygon(const SceneFace& face, ScreenPolygon& polygon, bool occludes);

// Makes the projected outline of a face that crosses the near or the far plane. The face is clipped in camera space,
// with its attributes unprojected, and then projected.
template <class Format>
bool throughCamera(const HostContext& context, const RenderView& view, const SceneFace& face, ScreenPolygon& polygon)
{
    copyCameraOutline(context, polygon, face);
    for (i32 i = 0; i < face.vertexCount; ++i) {
        const CornerSource source = cornerSource<Format>(context, face, i);
        Format::Attributes::forEach(
            [&]<class Attribute>() { (polygon.*Attribute::values)[i] = stored(Attribute::beforeProjection(source)); });
    }

    if (!clipToDepth(view, modeOf(*face.material).clip, polygon)) return false;

    for (i32 i = 0; i < polygon.vertexCount; ++i) {
        const ScreenVertex vertex = projected(*view.projection, cameraCorner(polygon, i));
        polygon.screenX[i] = vertex.x;
        polygon.screenY[i] = vertex.y;
        polygon.invDepth[i] = vertex.invDepth;
        Format::Attributes::forEach([&]<class Attribute>() {
            f32& value = (polygon.*Attribute::values)[i];
            if constexpr (Attribute::dividedByDepth) value = stored(static_cast<f64>(value) * vertex.invDepth);
        });
    }
    return true;
}

// Makes the projected outline of a face inside both depth planes, whose projected corners come from the vertex cache.
template <class Format>
void fromCache(HostContext& context, const RenderView& view, const SceneFace& face, ScreenPolygon& polygon)
{
    polygon.vertexCount = face.vertexCount;
    for (i32 i = 0; i < face.vertexCount; ++i) {
        const i32 vertexIndex = face.vertexIndices[i];
        const ScreenVertex& vertex = projectedThroughCache(context, *view.projection, vertexIndex);
        polygon.screenX[i] = vertex.x;
        polygon.screenY[i] = vertex.y;
        polygon.invDepth[i] = vertex.invDepth;
        polygon.viewZ[i] = context.cameraVertices[vertexIndex].z;
        polygon.outcode[i] = context.vertexOutcodes[vertexIndex];

        const CornerSource source = cornerSource<Format>(context, face, i);
        Format::Attributes::forEach([&]<class Attribute>() {
            (polygon.*Attribute::values)[i] = stored(Attribute::afterProjection(source, vertex.invDepth));
        });
    }
}

// Makes the screen polygon of a face in a vertex format, as a list with these properties takes it. Returns false when
// nothing of the face is in view.
template <class Format, class TargetList>
bool makePolygon(HostContext& context, const RenderView& view, const SceneFace& face, ScreenPolygon& polygon)
{
    if (!foldOutcodes(context, polygon, face)) return false;

    const bool crossesDepthPlanes = (polygon.outcodeAnd & outcodeDepthPlanes) != outcodeDepthPlanes;
    if (!crossesDepthPlanes)
        fromCache<Format>(context, view, face, polygon);
    else if (!throughCamera<Format>(context, view, face, polygon))
        return false;

    if constexpr (TargetList::sorted) polygon.maxDepth = deepestCorner(polygon);
    if (!clipToScreen(view, modeOf(*face.material).clip, polygon)) return false;
    setDepthPlane(context, view, face, polygon);
    finishPolygon(face, polygon, TargetList::occludes);
    return true;
}

// Emits a face that some plane cuts.
template <class Format, class TargetList>
[[gnu::noinline]] void emitCutFace(HostContext& context, const RenderView& view, const SceneFace& face,
                                   StoredPolygon& stored)
{
    ScreenPolygon polygon;
    if (makePolygon<Format, TargetList>(context, view, face, polygon))
        storePolygon<Format, TargetList>(polygon, stored);
}

// Emits a face of any number of corners.
template <class Format, class TargetList>
[[gnu::noinline]] void emitAnyFace(HostContext& context, const RenderView& view, const SceneFace& face,
                                   StoredPolygon& stored)
{
    const FoldedOutcodes outcodes = foldedOutcodes(context, face);
    if (!canBeSeen(outcodes, face)) return;
    if (outcodes.all == outcodeAll)
        storeWholeFace<Format, TargetList, 0>(context, view, face, stored);
    else
        emitCutFace<Format, TargetList>(context, view, face, stored);
}

// Emits a face as a polygon of the format into the list. A face for which the list has no room is dropped.
template <class Format, class TargetList>
void emit(const RenderView* view, const SceneFace* face)
{
    HostContext& context = *hostContext;
    StoredPolygon* const stored = reservePolygon(context, TargetList::list());
    if (!stored) return;

    // Most faces are triangles that no plane cuts.
    if (face->vertexCount == 3 && isWhole(foldedTriangle(context, *face)))
        storeWholeFace<Format, TargetList, 3>(context, *view, *face, *stored);
    else
        emitAnyFace<Format, TargetList>(context, *view, *face, *stored);
}

} // namespace kardeno
