// Emission: one host face becomes one screen polygon in a frame list, or nothing. Twelve routines, made of a vertex
// format and a list; billboards.h has the two of them that turn a face into a square.
#pragma once

#include "geometry/plane_clipping.h"
#include "geometry/polygon_lists.h"
#include "geometry/projection.h"
#include "host/host_context.h"
#include "host/render_modes.h"

namespace kardeno {

inline constexpr u32 outcodeDepthPlanes = outcodeNear | outcodeFar;
inline constexpr i32 minCorners = 3;

// The steps of a routine that do not depend on its format. Each bool says whether the face survives.

// Folds the outcodes of the face's corners into outcodeAnd and outcodeOr. False when some plane has no corner inside
// it, and when the face has fewer than 3 or more than 16 corners.
bool foldOutcodes(const HostContext& context, ScreenPolygon& polygon, const SceneFace& face);

// Takes the face's corners, with their outcodes, from camera space.
void copyCameraOutline(const HostContext& context, ScreenPolygon& polygon, const SceneFace& face);

inline CameraVertex cameraCorner(const ScreenPolygon& polygon, i32 i)
{
    return {polygon.viewX[i], polygon.viewY[i], polygon.viewZ[i]};
}

// Clips against the near and far planes, where the face's outcodes ask for it.
bool clipToDepth(const RenderView& view, const ClipperFamily& clippers, ScreenPolygon& polygon);

// Clips against the four sides of the drawn rectangle, likewise, and then truncates the rows.
bool clipToScreen(const RenderView& view, const ClipperFamily& clippers, ScreenPolygon& polygon);

// The largest truncated camera depth of the outline's corners: the key of the depth sort.
i32 deepestCorner(const ScreenPolygon& polygon);

// The plane of inverse depth over the screen, from the face's own plane and not from the clipped outline.
void setDepthPlane(const HostContext& context, const RenderView& view, const SceneFace& face, ScreenPolygon& polygon);

// Sets what every emitted polygon starts the frame with.
void finishPolygon(const SceneFace& face, ScreenPolygon& polygon, bool occludes);

// What an attribute of corner i is made from.
template <class Format>
CornerSource cornerSource(const HostContext& context, const SceneFace& face, i32 i)
{
    CornerSource source = {.texCoord = nullptr, .image = nullptr, .shade = nullptr};
    source.shade = context.vertexShades + face.vertexIndices[i];
    if constexpr (carriesTexture<Format>) {
        source.texCoord = face.texCoords + i;
        source.image = face.material->textureMap->image;
    }
    return source;
}

// A face that crosses the near or the far plane: cut in camera space with unprojected attributes, then projected.
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

// A face inside both depth planes: its projected corners come from the vertex cache.
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

template <class Format, class TargetList>
void emit(const RenderView* view, const SceneFace* face)
{
    HostContext& context = *hostContext;
    ScreenPolygon* polygon = reservePolygon(context, TargetList::list());
    if (!polygon || !foldOutcodes(context, *polygon, *face)) return;

    const bool crossesDepthPlanes = (polygon->outcodeAnd & outcodeDepthPlanes) != outcodeDepthPlanes;
    if (!crossesDepthPlanes)
        fromCache<Format>(context, *view, *face, *polygon);
    else if (!throughCamera<Format>(context, *view, *face, *polygon))
        return;

    if constexpr (TargetList::sorted) polygon->maxDepth = deepestCorner(*polygon);
    if (!clipToScreen(*view, modeOf(*face->material).clip, *polygon)) return;
    setDepthPlane(context, *view, *face, *polygon);
    finishPolygon(*face, *polygon, TargetList::occludes);
    commitPolygon(TargetList::list());
}

} // namespace kardeno
