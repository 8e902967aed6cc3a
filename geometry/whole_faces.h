// The short way of the faces that lie inside all six planes, which are most faces of a scene: nothing is clipped, so
// their corners go from the host's arrays straight into the list. It comes to the same stored polygon as the long way
// of emission.h, which makes a ScreenPolygon first.
#pragma once

#include "geometry/face_steps.h"
#include "geometry/list_storing.h"
#include "geometry/projection.h"

namespace kardeno {

// Stores the corners of a face and notes their rows. `knownCount` is the number of corners, or 0 when any number is
// possible.
template <class Format, i32 knownCount>
[[gnu::always_inline]] inline void storeWholeCorners(HostContext& context, const RenderView& view,
                                                     const SceneFace& face, StoredPolygon& polygon, i32* rows)
{
    const i32 count = knownCount ? knownCount : face.vertexCount;
    const ViewProjection& projection = *view.projection;
    const i32* const indices = face.vertexIndices;
    u8* corner = cornersOf(polygon);
#pragma GCC unroll 4
    for (i32 i = 0; i < count; ++i, corner += cornerLayout<Format>.bytes) {
        const ScreenVertex& vertex = projectedThroughCache(context, projection, indices[i]);
        const CornerSource source = cornerSource<Format>(context, face, i);
        const f32 invDepth = vertex.invDepth;
        rows[i] = truncated(vertex.y);
        storeCorner<Format>(corner, {vertex.x, rows[i]}, invDepth,
                            [&]<class Attribute>() { return stored(Attribute::afterProjection(source, invDepth)); });
    }
}

template <i32 knownCount>
[[gnu::always_inline]] inline bool lieOnOneRow(const i32* rows, i32 count)
{
    if (knownCount == 3) return rows[0] == rows[1] && rows[0] == rows[2];
    for (i32 i = 1; i < count; ++i) {
        if (rows[i] != rows[0]) return false;
    }
    return true;
}

inline i32 deepestCorner(const HostContext& context, const SceneFace& face)
{
    i32 deepest = truncated(context.cameraVertices[face.vertexIndices[0]].z);
    for (i32 i = 1; i < face.vertexCount; ++i) {
        const i32 depth = truncated(context.cameraVertices[face.vertexIndices[i]].z);
        if (depth > deepest) deepest = depth;
    }
    return deepest;
}

// Stores a face at the list's reserved place and commits it.
template <class Format, class TargetList, i32 knownCount>
[[gnu::always_inline]] inline void storeWholeFace(HostContext& context, const RenderView& view, const SceneFace& face,
                                                  StoredPolygon& polygon)
{
    const i32 count = knownCount ? knownCount : face.vertexCount;
    i32 rows[static_cast<u32>(knownCount ? knownCount : maxCorners)];
    storeWholeCorners<Format, knownCount>(context, view, face, polygon, rows);

    PolygonList& list = TargetList::list();
    if (!TargetList::sorted && lieOnOneRow<knownCount>(rows, count)) return commitUnseenPolygon(list);
    setHeader<Format, TargetList>(polygon, face.material, static_cast<u32>(count));
    polygon.faceColour = colourOf(face);
    setDepthPlane(context, view, face, polygon);
    if constexpr (TargetList::sorted) polygon.maxDepth = deepestCorner(context, face);
    if constexpr (TargetList::resolved && knownCount == 3)
        list.lastSideMakesEdge = countTriangle(rows[0], rows[1], rows[2]);
    else if constexpr (TargetList::resolved)
        list.lastSideMakesEdge = countSides(polygon);
    commitPolygon(list, polygon);
}

} // namespace kardeno
