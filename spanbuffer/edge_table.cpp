#include "spanbuffer/edge_table.h"

#include "support/arithmetic.h"

#include <assert.h>

namespace kardeno {

constinit EdgePoolRecord EdgePool = {};
constinit ScanEdge EdgeStartTable[scanlineCount] = {};
constinit ScanEdge* EdgeEndTable[scanlineCount] = {};
constinit ScanEdge LeftGuardEdge = {};
constinit ScanEdge RightGuardEdge = {};

namespace {

constexpr f64 fixedOne = 65536.0;

i32 columnToFixed(i32 column)
{
    return wrappingShiftLeft(column, 16);
}

// Grows the pool by one step. A refusal leaves the pool as it was.
EdgePass growEdgePool(HostContext& context)
{
    EdgePool.capacity += edgePoolGrowth;
    const u32 bytes = static_cast<u32>(EdgePool.capacity) * u32{sizeof(ScanEdge)};
    void* const block = context.realloc(EdgePool.edges, bytes);
    if (!block) {
        EdgePool.capacity -= edgePoolGrowth;
        return EdgePass::poolRefused;
    }
    EdgePool.edges = static_cast<ScanEdge*>(block);
    return EdgePass::poolGrew;
}

// Adds the side from (xa, ya) to (xb, yb). A side that covers no row of the rectangle takes no record of the pool.
void addSide(const DrawnRectangle& drawn, ScreenPolygon* polygon, f32 xa, i32 ya, f32 xb, i32 yb)
{
    const i32 dy = wrappingDifference(yb, ya);
    if (dy == 0) return;

    const bool down = dy > 0;
    const i32 top = down ? ya : yb;
    const i32 bottom = down ? yb : ya;
    const i32 start = top < drawn.top ? drawn.top : top;
    const i32 end = bottom > drawn.bottom ? drawn.bottom : bottom;
    if (start >= end) return;

    assert(start >= 0 && end <= scanlineCount);
    assert(EdgePool.count < EdgePool.capacity);
    ScanEdge& edge = EdgePool.edges[EdgePool.count];
    edge.entering = down ? 1 : 0;
    edge.x = truncated((down ? xa : xb) * fixedOne);
    edge.xStep = truncated(((static_cast<f64>(xb) - xa) * fixedOne) * (1.0 / dy));
    edge.x = wrappingSum(edge.x, wrappingProduct(edge.xStep, start - top));
    edge.polygon = polygon;

    edge.next = EdgeStartTable[start].next;
    EdgeStartTable[start].next = &edge;
    edge.nextEnding = EdgeEndTable[end - 1];
    EdgeEndTable[end - 1] = &edge;
    ++EdgePool.count;
}

} // namespace

void setGuardEdges(const DrawnRectangle& drawn, ScreenPolygon* background)
{
    LeftGuardEdge.x = wrappingDifference(columnToFixed(drawn.left), 65536);
    LeftGuardEdge.xStep = 0;
    LeftGuardEdge.entering = 1;
    LeftGuardEdge.next = &RightGuardEdge;
    LeftGuardEdge.prev = nullptr;
    LeftGuardEdge.polygon = background;

    RightGuardEdge.x = columnToFixed(drawn.right);
    RightGuardEdge.xStep = 0;
    RightGuardEdge.entering = 0;
    RightGuardEdge.next = nullptr;
    RightGuardEdge.prev = &LeftGuardEdge;
    RightGuardEdge.polygon = background;
}

void ResetEdgeTable(const DrawnRectangle& drawn)
{
    EdgePool.count = 0;
    for (i32 y = drawn.top; y < drawn.bottom; ++y) {
        EdgeStartTable[y].next = &RightGuardEdge;
        EdgeEndTable[y] = nullptr;
    }
}

EdgePass AddPolygonEdges(HostContext& context, const DrawnRectangle& drawn, ScreenPolygon* polygon)
{
    const i32 count = polygon->vertexCount;
    assert(count <= maxCorners);
    for (i32 a = 0; a < count; ++a) {
        // Intended: room is asked for before the side is looked at, horizontal or not.
        if (EdgePool.count >= EdgePool.capacity) return growEdgePool(context);
        const i32 b = a + 1 < count ? a + 1 : 0;
        addSide(drawn, polygon, polygon->screenX[a], polygon->scanY[a], polygon->screenX[b], polygon->scanY[b]);
    }
    return EdgePass::done;
}

} // namespace kardeno
