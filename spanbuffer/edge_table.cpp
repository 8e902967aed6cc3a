#include "spanbuffer/edge_table.h"

#include "geometry/side_counts.h"
#include "support/arithmetic.h"
#include "support/lanes.h"
#include "support/reciprocals.h"

#include <assert.h>
#include <string.h>

namespace kardeno {

constinit EdgePoolRecord EdgePool = {};
constinit u32 EdgeStartTable[scanlineCount + 1] = {};

namespace {

constexpr f64 fixedOne = 65536.0;

// So many edges further on the memory of a row is fetched into the cache: two cache lines.
constexpr u32 lookAhead = 8;

// A row's slot in sideCounts.starting becomes the place of its next edge when the table is laid out.
u32& nextEdgeOf(u32 row)
{
    return sideCounts.starting[row];
}

// The host moved the view's rectangle after emission had counted for it.
void countAgain(const DrawnRectangle& drawn)
{
    PolygonList* const lists[] = {&resolvedPolygons, &sortedPolygons};
    resetSideCounts(drawn);
    for (PolygonList* list : lists) {
        bool madeEdge = false;
        const StoredPolygon* const end = list->end();
        for (const StoredPolygon* polygon = list->held; polygon != end; polygon = following(polygon))
            madeEdge = countSides(*polygon);
        list->lastSideMakesEdge = madeEdge && list->lastIsStored;
    }
}

bool growEdgePool(HostContext& context)
{
    EdgePool.capacity += edgePoolGrowth;
    void* const block = context.realloc(EdgePool.edges, static_cast<u32>(EdgePool.capacity) * edgePoolRecordBytes);
    if (!block) {
        EdgePool.capacity -= edgePoolGrowth;
        return false;
    }
    EdgePool.edges = static_cast<ScanEdge*>(block);
    return true;
}

// Grows the pool until every side that is looked at finds a free record.
// Intended: a side needs room when it is looked at, horizontal or not. The last side of all is looked at after all
// others have their edges.
bool makeRoomForEdges(HostContext& context)
{
    if (resolvedPolygons.count == 0 && sortedPolygons.count == 0) return true;
    const PolygonList& last = sortedPolygons.count > 0 ? sortedPolygons : resolvedPolygons;
    const i32 before = sideCounts.edges - (last.lastSideMakesEdge ? 1 : 0);
    while (before >= EdgePool.capacity) {
        if (!growEdgePool(context)) return false;
    }
    return true;
}

// Gives every row its part of the pool.
void ResetEdgeTable(const DrawnRectangle& drawn)
{
    EdgePool.count = sideCounts.edges;
    u32 place = 0;
    for (i32 y = drawn.top; y < drawn.bottom; ++y) {
        const u32 starting = sideCounts.starting[y];
        EdgeStartTable[y] = place;
        nextEdgeOf(static_cast<u32>(y)) = place;
        place += starting;
    }
    if (drawn.top < drawn.bottom) EdgeStartTable[drawn.bottom] = place;
}

// Adds the side from a to b of a polygon; `side` has the polygon's state and whether it occludes. A side that covers no
// row of the rectangle has no edge.
inline void addSide(const DrawnRectangle& drawn, u32 side, const CornerPlace& a, const CornerPlace& b)
{
    const SideRows rows = rowsOfSide(a.y, b.y, drawn.top, drawn.bottom);
    if (!rows.makesEdge) return;
    const bool down = wrappingDifference(b.y, a.y) > 0;
    const CornerPlace& top = down ? a : b;
    const CornerPlace& bottom = down ? b : a;
    const u32 height = static_cast<u32>(bottom.y) - static_cast<u32>(top.y);

    ScanEdge edge;
    edge.xStep = truncated(((static_cast<f64>(bottom.x) - top.x) * fixedOne) * reciprocal(height));
    edge.x =
        wrappingSum(truncated(top.x * fixedOne), wrappingProduct(edge.xStep, wrappingDifference(rows.start, top.y)));
    edge.side = side | (down ? ScanEdge::enters : 0);
    edge.lastRow = rows.end - 1;
    EdgePool.edges[nextEdgeOf(static_cast<u32>(rows.start))++] = edge;
}

// Adds the sides of a triangle, all three at once. Its corners must lie between the rows of the rectangle, so that no
// side has to be cut.
inline void addTriangle(u32 side, const CornerPlace& a, const CornerPlace& b, const CornerPlace& c)
{
    const i32x4 rows = {a.y, b.y, c.y, a.y};
    const i32x4 nextRows = __builtin_shufflevector(rows, rows, 1, 2, 0, 0);
    const f32x4 xs = {a.x, b.x, c.x, a.x};
    const f32x4 nextXs = __builtin_shufflevector(xs, xs, 1, 2, 0, 0);

    const i32x4 down = nextRows > rows; // all bits set where the side runs down the screen
    const i32x4 starts = selected(down, rows, nextRows);
    const i32x4 ends = selected(down, nextRows, rows);
    const i32x4 heights = ends - starts;
    const f32x4 topXs = selected(down, xs, nextXs);
    const f32x4 bottomXs = selected(down, nextXs, xs);

    const f64x2 reciprocals01 = {tableReciprocal(heights[0]), tableReciprocal(heights[1])};
    const f64x2 reciprocals2 = {tableReciprocal(heights[2]), 0.0};
    const f64x2 steps01 = (widened(bottomXs) - widened(topXs)) * fixedOne * reciprocals01;
    const f64x2 steps2 = (widened(upperLanes(bottomXs)) - widened(upperLanes(topXs))) * fixedOne * reciprocals2;

    // The fields of the edges. A multiplication by 65,536 rounds nothing off in f32 either.
    const i32x4 x = truncatedLanes(topXs * 65536.0f);
    const i32x4 xStep = joined(truncatedLanes(steps01), truncatedLanes(steps2));
    const i32x4 sideAndFlags = i32{static_cast<i32>(side)} - down;
    const i32x4 lastRow = ends - 1;

    const i32x4 lowX = __builtin_shufflevector(x, xStep, 0, 4, 1, 5);
    const i32x4 lowSide = __builtin_shufflevector(sideAndFlags, lastRow, 0, 4, 1, 5);
    const i32x4 highX = __builtin_shufflevector(x, xStep, 2, 6, 3, 7);
    const i32x4 highSide = __builtin_shufflevector(sideAndFlags, lastRow, 2, 6, 3, 7);
    const i32x4 edges[3] = {
        __builtin_shufflevector(lowX, lowSide, 0, 1, 4, 5),
        __builtin_shufflevector(lowX, lowSide, 2, 3, 6, 7),
        __builtin_shufflevector(highX, highSide, 0, 1, 4, 5),
    };

    for (i32 i = 0; i < 3; ++i) {
        if (heights[i] == 0) continue;
        u32& next = nextEdgeOf(static_cast<u32>(starts[i]));
        memcpy(EdgePool.edges + next, &edges[i], sizeof(ScanEdge));
        __builtin_prefetch(EdgePool.edges + next + lookAhead, 1);
        ++next;
    }
}

// Adds all sides of a polygon, from corner 0 to corner 1 first.
void AddPolygonEdges(const DrawnRectangle& drawn, const StoredPolygon& polygon)
{
    const CornerLayout layout = cornerLayouts[polygon.format];
    const u8* const first = cornersOf(polygon);
    const u8* corner = first;
    const u32 side = polygon.state | (polygon.occludes ? ScanEdge::occludes : 0);
    if (polygon.cornerCount == 3) {
        const CornerPlace& a = placeOf(first, layout);
        const CornerPlace& b = placeOf(first + layout.bytes, layout);
        const CornerPlace& c = placeOf(first + 2 * u32{layout.bytes}, layout);
        if (isBetween(a.y, drawn.top, drawn.bottom) && isBetween(b.y, drawn.top, drawn.bottom)
            && isBetween(c.y, drawn.top, drawn.bottom))
            return addTriangle(side, a, b, c);
    }
    for (u32 a = 0; a < polygon.cornerCount; ++a) {
        const u8* const next = a + 1 < polygon.cornerCount ? corner + layout.bytes : first;
        addSide(drawn, side, placeOf(corner, layout), placeOf(next, layout));
        corner = next;
    }
}

} // namespace

bool buildEdgeTable(HostContext& context, const DrawnRectangle& drawn)
{
    if (!areCountedFor(drawn)) countAgain(drawn);
    if (!makeRoomForEdges(context)) return false;
    ResetEdgeTable(drawn);
    layOutStates();

    StateOffset state = firstPolygonState;
    const PolygonList* const lists[] = {&resolvedPolygons, &sortedPolygons};
    for (const PolygonList* list : lists) {
        StoredPolygon* const end = list->end();
        for (StoredPolygon* polygon = list->held; polygon != end; polygon = following(polygon)) {
            polygon->state = state;
            setState(state, *polygon);
            AddPolygonEdges(drawn, *polygon);
            state += sizeof(PolygonState);
        }
    }
    return true;
}

} // namespace kardeno
