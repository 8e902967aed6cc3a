// Perspective projection of vertices, for frames and picks. A vertex is projected either straight from camera space or
// through the cache in the host's vertex arrays, where each vertex of an object is projected only once.
#pragma once

#include "geometry/screen_polygon.h"
#include "support/arithmetic.h"

namespace kardeno {

// Projects a vertex. The inverse depth 1 / Z is rounded first, and x and y are formed from the rounded value. The
// product of two f32 is exact in f64, so each triple product rounds once, in whichever order it is formed.
inline ScreenVertex projected(const ViewProjection& projection, const CameraVertex& vertex)
{
    ScreenVertex result;
    result.invDepth = stored(1.0 / vertex.z);
    result.x = stored(static_cast<f64>(projection.scaleX) * vertex.x * result.invDepth + projection.centreX);
    result.y = stored(projection.centreY - static_cast<f64>(vertex.y) * projection.scaleY * result.invDepth);
    return result;
}

// Returns the cached projection of a vertex. It is computed anew when the stamp of the vertex is not the current one.
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
