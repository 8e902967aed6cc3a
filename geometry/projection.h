// Perspective projection of vertices, for frames and picks: straight from camera space, or through the host's vertex
// cache, which projects every shared vertex once for an object.
#pragma once

#include "geometry/screen_polygon.h"
#include "support/arithmetic.h"

namespace kardeno {

// 1/Z is rounded first, and x and y are formed from the rounded value. The product of two f32 is exact in f64, so that
// each triple product rounds once, in whichever order it is formed.
inline ScreenVertex projected(const ViewProjection& projection, const CameraVertex& vertex)
{
    ScreenVertex result;
    result.invDepth = stored(1.0 / vertex.z);
    result.x = stored(static_cast<f64>(projection.scaleX) * vertex.x * result.invDepth + projection.centreX);
    result.y = stored(projection.centreY - static_cast<f64>(vertex.y) * projection.scaleY * result.invDepth);
    return result;
}

// The cached projection of a vertex, made when the vertex's stamp is not the current one.
inline const ScreenVertex& projectedThroughCache(HostContext& context, const ViewProjection& projection,
                                                 i32 vertexIndex)
{
    ScreenVertex& cached = context.screenVertices[vertexIndex];
    u32& stamp = context.vertexStamps[vertexIndex];
    if (stamp != context.projectionStamp) {
        cached = projected(projection, context.cameraVertices[vertexIndex]);
        stamp = context.projectionStamp;
    }
    return cached;
}

} // namespace kardeno
