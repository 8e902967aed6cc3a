#include "raster/edge_walking.h"

namespace kardeno {

constinit OutlineRow OutlineTable[scanlineCount] = {};

OutlineExtent outlineExtent(const ScreenPolygon& polygon)
{
    OutlineExtent extent = {.topVertex = 0, .bottomVertex = 0};
    for (i32 i = 1; i < polygon.vertexCount; ++i) {
        if (polygon.scanY[i] < polygon.scanY[extent.topVertex]) extent.topVertex = i;
        if (polygon.scanY[i] > polygon.scanY[extent.bottomVertex]) extent.bottomVertex = i;
    }
    return extent;
}

} // namespace kardeno
