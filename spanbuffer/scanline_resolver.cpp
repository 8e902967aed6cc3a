#include "spanbuffer/scanline_resolver.h"

#include "spanbuffer/edge_sort.h"
#include "spanbuffer/span_pool.h"
#include "support/arithmetic.h"

#include <assert.h>

namespace kardeno {

constinit ScreenPolygon StackTopPolygon = {};
constinit ScreenPolygon BackgroundPolygon = {};

namespace {

// After so many swaps on one row, a sort of all active edges is the faster way.
constexpr i32 manySwaps = 500;

// The walk along the current row.
struct RowWalk {
    HostContext& context;
    const DrawnRectangle& drawn;
    const ScanlineTables& tables;
    i32 row;
    f32 y;           // screen y at which depths are compared
    bool memoryLeft; // turns false when a span cannot be stored, which ends the walk
};

i32 columnOf(i32 fixedX)
{
    return fixedX >> 16;
}

// Ends the polygon's visible run before a column and makes a span of it, without what lies outside the drawn rectangle.
void closeRun(RowWalk& walk, ScreenPolygon& polygon, i32 column)
{
    const i32 x = polygon.engineWord < walk.drawn.left ? walk.drawn.left : polygon.engineWord;
    const i32 xEnd = column > walk.drawn.right ? walk.drawn.right : column;
    if (!appendSpan(walk.context, polygon, x, xEnd, walk.row)) walk.memoryLeft = false;
}

void openRun(ScreenPolygon& polygon, i32 column)
{
    polygon.engineFlag = 1;
    polygon.engineWord = column;
}

// Puts a polygon into the depth stack where the walk passes its entering edge.
void enter(RowWalk& walk, ScreenPolygon& polygon, i32 edgeX)
{
    // Intended: depths are compared one whole pixel right of the edge, not at it.
    const f32 sampleX = stored(edgeX / 65536.0 + 1.0);
    const f32 depth = stored(planeDepth(polygon, sampleX, walk.y));

    // Intended: only the entering polygon's depth is rounded. On equal depth the one entered last lies nearer.
    ScreenPolygon* under = walk.tables.stackTop->below;
    while (under != walk.tables.background && planeDepth(*under, sampleX, walk.y) > depth) under = under->below;

    polygon.below = under;
    polygon.above = under->above;
    under->above->below = &polygon;
    under->above = &polygon;

    if (!under->engineFlag) {
        polygon.engineFlag = 0; // a polygon that hides `under` lies above it, and so above this polygon too
        return;
    }
    const i32 column = columnOf(edgeX);
    openRun(polygon, column);
    if (!polygon.occludes) return;

    // The polygons below that were visible, down to the first one that occludes, are now hidden.
    ScreenPolygon* hidden = under;
    do {
        closeRun(walk, *hidden, column);
        if (!walk.memoryLeft) return;
        hidden->engineFlag = 0;
        hidden = hidden->below;
    } while (hidden->engineFlag);
}

// Takes a polygon out of the depth stack where the walk passes its leaving edge.
void leave(RowWalk& walk, ScreenPolygon& polygon, i32 edgeX)
{
    if (polygon.engineFlag) {
        const i32 column = columnOf(edgeX);
        closeRun(walk, polygon, column);
        if (!walk.memoryLeft) return;

        // The polygons that only this one hid become visible, down to the first one that occludes.
        ScreenPolygon* revealed = polygon.below;
        if (!revealed->engineFlag) {
            openRun(*revealed, column);
            while (!revealed->occludes) {
                revealed = revealed->below;
                openRun(*revealed, column);
            }
        }
    }
    polygon.above->below = polygon.below;
    polygon.below->above = polygon.above;
}

// Sorts the edges that start on the row, and merges them into the active edge list in one forward walk over both lists.
// Of starting edges with the same x the one that was added to the table last comes first, as it does in the row's list.
void mergeStartingEdges(const ScanlineTables& tables, i32 row)
{
    ScanEdge* edge = tables.edgeStartTable[row].next;
    if (edge == tables.rightGuard) return;
    edge = sortedByX(edge, tables.rightGuard);

    ScanEdge* cursor = tables.leftGuard->next;
    while (edge != tables.rightGuard) {
        ScanEdge* const following = edge->next;
        while (cursor != tables.rightGuard && edge->x > cursor->x) cursor = cursor->next;
        edge->next = cursor;
        edge->prev = cursor->prev;
        cursor->prev->next = edge;
        cursor->prev = edge;
        edge = following;
    }
}

// Enters and leaves polygons along the row. The right guard is the background's leaving edge and ends its run.
void walkActiveEdges(RowWalk& walk)
{
    ScreenPolygon& background = *walk.tables.background;
    background.activeCount = 1;
    background.engineWord = walk.drawn.left;

    for (ScanEdge* edge = walk.tables.leftGuard->next; edge; edge = edge->next) {
        ScreenPolygon& polygon = *edge->polygon;
        if (edge->entering) {
            if (++polygon.activeCount == 1) enter(walk, polygon, edge->x);
        } else {
            if (--polygon.activeCount == 0) leave(walk, polygon, edge->x);
        }
        if (!walk.memoryLeft) return;
    }
}

void dropEndingEdges(const ScanlineTables& tables, i32 row)
{
    for (ScanEdge* edge = tables.edgeEndTable[row]; edge; edge = edge->nextEnding) {
        edge->prev->next = edge->next;
        edge->next->prev = edge->prev;
    }
}

//   ... before <-> previous <-> edge <-> after ...   becomes   ... before <-> edge <-> previous <-> after ...
void swapWithPrevious(ScanEdge* edge)
{
    ScanEdge* const previous = edge->prev;
    ScanEdge* const before = previous->prev;
    ScanEdge* const after = edge->next;
    before->next = edge;
    edge->prev = before;
    edge->next = previous;
    previous->prev = edge;
    previous->next = after;
    after->prev = previous;
}

void sortActiveEdges(const ScanlineTables& tables)
{
    tables.leftGuard->next = sortedByX(tables.leftGuard->next, tables.rightGuard);
    ScanEdge* previous = tables.leftGuard;
    for (ScanEdge* edge = previous->next; edge; edge = edge->next) {
        edge->prev = previous;
        previous = edge;
    }
}

// Moves the active edges to the next row. Edges may cross on the way. An insertion sort puts right the few that usually
// do; where very many do, a stable sort of the whole list comes to the same order.
void stepEdges(const ScanlineTables& tables)
{
    i32 swaps = 0;
    ScanEdge* edge = tables.leftGuard->next;
    while (edge != tables.rightGuard) {
        ScanEdge* const following = edge->next;
        edge->x = wrappingSum(edge->x, edge->xStep);
        if (swaps <= manySwaps) {
            for (; edge->prev != tables.leftGuard && edge->x < edge->prev->x; ++swaps) swapWithPrevious(edge);
        }
        edge = following;
    }
    if (swaps > manySwaps) sortActiveEdges(tables);
}

} // namespace

void setStackEnds()
{
    const auto setEnd = [](ScreenPolygon& end, ScreenPolygon& above, ScreenPolygon& below, i32 visible) {
        end.faceColour = 0;
        end.spanHead = -1;
        end.invDepthStepX = 0.0f;
        end.invDepthStepY = 0.0f;
        end.invDepthOrigin = emptyDepth;
        end.above = &above;
        end.below = &below;
        end.occludes = 1;
        end.engineFlag = visible;
    };
    setEnd(BackgroundPolygon, StackTopPolygon, BackgroundPolygon, 1);
    setEnd(StackTopPolygon, StackTopPolygon, BackgroundPolygon, 0);
}

void ResolveScanlines(HostContext& context, const DrawnRectangle& drawn, f32 firstY, const ScanlineTables& tables)
{
    assert(fitsTables(drawn));
    RowWalk walk = {
        .context = context,
        .drawn = drawn,
        .tables = tables,
        .row = drawn.top,
        .y = firstY,
        .memoryLeft = true,
    };
    for (; walk.row < drawn.bottom; ++walk.row) {
        mergeStartingEdges(tables, walk.row);
        walkActiveEdges(walk);
        if (!walk.memoryLeft) return;
        dropEndingEdges(tables, walk.row);
        stepEdges(tables);
        walk.y = stored(walk.y + 1.0);
    }
}

} // namespace kardeno
