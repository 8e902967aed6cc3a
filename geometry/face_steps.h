// The steps of emission that do not depend on whether a face is clipped.
#pragma once

#include "geometry/stored_polygon.h"

namespace kardeno {

inline constexpr i32 minCorners = 3;

// The outcodes of a face's corners, combined.
struct FoldedOutcodes {
    u32 all; // the bits that are set in all of them
    u32 any; // the bits that are set in any of them
};

inline FoldedOutcodes foldedTriangle(const HostContext& context, const SceneFace& face)
{
    const u32* const outcodes = context.vertexOutcodes;
    const i32* const indices = face.vertexIndices;
    const u32 a = outcodes[indices[0]];
    const u32 b = outcodes[indices[1]];
    const u32 c = outcodes[indices[2]];
    return {.all = a & b & c & outcodeAll, .any = a | b | c};
}

inline FoldedOutcodes foldedOutcodes(const HostContext& context, const SceneFace& face)
{
    FoldedOutcodes folded = {.all = outcodeAll, .any = 0};
    for (i32 i = 0; i < face.vertexCount; ++i) {
        const u32 outcode = context.vertexOutcodes[face.vertexIndices[i]];
        folded.all &= outcode;
        folded.any |= outcode;
    }
    return folded;
}

// Whether all corners lie inside all planes.
inline bool isWhole(const FoldedOutcodes& folded)
{
    return folded.all == outcodeAll && folded.any == outcodeAll;
}

// Whether a face with these outcodes is emitted at all: every plane has a corner inside, and the number of corners is
// one that a polygon can have.
inline bool canBeSeen(const FoldedOutcodes& folded, const SceneFace& face)
{
    return folded.any == outcodeAll && face.vertexCount >= minCorners && face.vertexCount <= maxCorners;
}

// Gathers what the attributes of the face's corner i are made from.
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

// Sets the plane of inverse depth over the screen. It follows from the face's own plane, not from the clipped outline.
// A ScreenPolygon and a StoredPolygon have the same fields for it.
template <class Polygon>
void setDepthPlane(const HostContext& context, const RenderView& view, const SceneFace& face, Polygon& polygon)
{
    const ViewProjection& projection = *view.projection;
    const CameraVertex& corner = context.cameraVertices[face.vertexIndices[0]];
    const f64 nx = face.normalX;
    const f64 ny = face.normalY;
    const f64 nz = face.normalZ;

    // The order of these sums and products decides the last bits of the result.
    const f64 d = nz * corner.z + ny * corner.y + nx * corner.x;
    const f64 r = 1.0 / d;
    polygon.invDepthStepX = stored(projection.invScaleX * r * nx);
    polygon.invDepthStepY = stored(-(projection.invScaleY * r * ny));
    polygon.invDepthOrigin = stored(((projection.centreYOverScaleY * ny + nz) - projection.centreXOverScaleX * nx) * r);
}

inline u16 colourOf(const SceneFace& face)
{
    return face.faceColour ? *face.faceColour : u16{0};
}

} // namespace kardeno
