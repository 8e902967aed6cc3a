#include "spanbuffer/scanline_resolver.h"

#include "spanbuffer/depth_plane.h"
#include "spanbuffer/edge_sort.h"
#include "spanbuffer/span_pool.h"
#include "support/arithmetic.h"

#include <assert.h>

namespace kardeno {

namespace {

// After so many places that edges were moved on one row, a sort of all active edges is the faster way.
constexpr u32 manyMoves = 500;

// How many edges ahead of the walk the state of a polygon is fetched into the cache.
constexpr u32 lookAhead = 8;

i32 columnOf(i32 fixedX)
{
    return fixedX >> 16;
}

// The active edges, in order of x. They lie at the start of one half of the pool's block; the part of the table whose
// rows are past is at their disposal as well.
struct ActiveEdges {
    ScanEdge* edges;
    u32 count;
    bool inWorkspace; // in which half of the block they lie

    ScanEdge* otherHalf() const { return inWorkspace ? EdgePool.edges : EdgePool.workspace(); }
};

// The walk along the current row.
class RowWalk {
public:
    RowWalk(HostContext& theContext, const DrawnRectangle& theRectangle, f32 firstY)
        : context(theContext), drawn(theRectangle), y(firstY), states(reinterpret_cast<u8*>(polygonStates)),
          spans(SpanPool.spans), spanCount(static_cast<u32>(SpanPool.count)),
          spanCapacity(static_cast<u32>(SpanPool.capacity))
    {
    }

    // Whether all spans could be stored. When one could not, the walk has ended there.
    bool memoryLeft = true;

    // Enters and leaves polygons along the row, drops the edges that end there, and moves the others to the next row.
    void walk(ActiveEdges& active, i32 row);

    void finishRow(i32 row)
    {
        SpanRowEnds[row] = spanCount;
        SpanPool.count = static_cast<i32>(spanCount);
        y = stored(y + 1.0);
    }

private:
    HostContext& context;
    const DrawnRectangle drawn;
    f32 y; // screen y at which depths are compared
    u8* const states;
    MadeSpan* spans;
    u32 spanCount;
    u32 spanCapacity;

    PolygonState& at(StateOffset polygon) const { return *reinterpret_cast<PolygonState*>(states + polygon); }

    bool growSpans();
    void closeRun(StateOffset offset, i32 column);
    void openRun(PolygonState& polygon, i32 column);
    void enter(StateOffset offset, i32 edgeX);
    void leave(StateOffset offset, i32 edgeX);
    bool replace(const ScanEdge& edge, const ScanEdge& other);
    void pass(const ScanEdge& edge);
    void passLast(const ScanEdge& edge);
};

bool RowWalk::growSpans()
{
    SpanPool.count = static_cast<i32>(spanCount);
    memoryLeft = growSpanPool(context);
    if (!memoryLeft) return false;
    spans = SpanPool.spans;
    spanCapacity = static_cast<u32>(SpanPool.capacity);
    return true;
}

// Ends the polygon's visible run before a column and makes a span of it, without what lies outside the drawn rectangle.
inline __attribute__((always_inline)) void RowWalk::closeRun(StateOffset offset, i32 column)
{
    PolygonState& polygon = at(offset);
    const i32 x = polygon.runStart < drawn.left ? drawn.left : polygon.runStart;
    const i32 xEnd = column > drawn.right ? drawn.right : column;
    if (__builtin_expect(spanCount >= spanCapacity, 0)) {
        if (x >= xEnd || !growSpans()) return;
    }
    // The span is written in any case, and counts if it has a pixel. This spares a branch that is hard to predict.
    const u32 made = x < xEnd ? 1 : 0;
    spans[spanCount] = {.polygon = offset, .x = static_cast<i16>(x), .length = static_cast<u16>(xEnd - x)};
    spanCount += made;
    polygon.spanCount += made;
}

inline void RowWalk::openRun(PolygonState& polygon, i32 column)
{
    polygon.isVisible = 1;
    polygon.runStart = static_cast<i16>(column);
}

// Puts a polygon into the depth stack where the walk passes its entering edge.
inline __attribute__((always_inline)) void RowWalk::enter(StateOffset offset, i32 edgeX)
{
    PolygonState& polygon = at(offset);
    StateOffset under = at(StackTopPolygon).below;
    if (under != BackgroundPolygon) {
        // Intended: depths are compared one whole pixel right of the edge, not at it.
        const SamplePoint point(stored(edgeX / 65536.0 + 1.0), y);
        // Intended: only the entering polygon's depth is rounded. On equal depth the one entered last lies nearer.
        const f64 depth = stored(point.depthOf(polygon));
        while (point.depthOf(at(under)) > depth) {
            under = at(under).below;
            if (under == BackgroundPolygon) break;
        }
    }
    const StateOffset above = at(under).above;
    polygon.below = under;
    polygon.above = above;
    at(above).below = offset;
    at(under).above = offset;

    if (!at(under).isVisible) {
        polygon.isVisible = 0; // a polygon that hides `under` lies above it, and so above this polygon too
        return;
    }
    const i32 column = columnOf(edgeX);
    openRun(polygon, column);
    if (!polygon.occludes) return;

    // The polygons below that were visible, down to the first one that occludes, are now hidden.
    StateOffset hidden = under;
    do {
        closeRun(hidden, column);
        if (!memoryLeft) return;
        at(hidden).isVisible = 0;
        hidden = at(hidden).below;
    } while (at(hidden).isVisible);
}

// Takes a polygon out of the depth stack where the walk passes its leaving edge.
inline __attribute__((always_inline)) void RowWalk::leave(StateOffset offset, i32 edgeX)
{
    PolygonState& polygon = at(offset);
    const StateOffset below = polygon.below;
    if (polygon.isVisible) {
        const i32 column = columnOf(edgeX);
        closeRun(offset, column);
        if (!memoryLeft) return;

        // The polygons that only this one hid become visible, down to the first one that occludes.
        PolygonState* revealed = &at(below);
        if (!revealed->isVisible) {
            openRun(*revealed, column);
            while (!revealed->occludes) {
                revealed = &at(revealed->below);
                openRun(*revealed, column);
            }
        }
    }
    const StateOffset above = polygon.above;
    at(above).below = below;
    at(below).above = above;
}

// At two neighbouring edges with the same x one polygon can take the other's place: one is left that lies alone before
// the background, and another one is entered. This is what most edges between the faces of a mesh are. Whichever edge
// comes first and whatever the depths are, the run of the one polygon ends and that of the other begins. Returns
// whether it was so; otherwise nothing is done.
inline __attribute__((always_inline)) bool RowWalk::replace(const ScanEdge& edge, const ScanEdge& other)
{
    // One of them enters, and both occlude.
    const u32 flags = ((edge.side ^ other.side) & ScanEdge::enters) | (edge.side & other.side & ScanEdge::occludes);
    if (flags != (ScanEdge::enters | ScanEdge::occludes)) return false;

    const bool entersFirst = edge.entering();
    const StateOffset left = (entersFirst ? other : edge).polygon();
    const StateOffset entered = (entersFirst ? edge : other).polygon();
    PolygonState& top = at(StackTopPolygon);
    if (top.below != left || at(left).below != BackgroundPolygon || at(left).activeCount != 1
        || at(entered).activeCount != 0)
        return false;

    const i32 column = columnOf(edge.x);
    closeRun(left, column);
    if (!memoryLeft) return true;
    at(left).activeCount = 0;
    PolygonState& polygon = at(entered);
    polygon.activeCount = 1;
    openRun(polygon, column);
    polygon.below = BackgroundPolygon;
    polygon.above = StackTopPolygon;
    top.below = entered;
    at(BackgroundPolygon).above = entered;
    return true;
}

// Enters or leaves the polygon of an edge where its count goes from outside to inside or back.
inline __attribute__((always_inline)) void RowWalk::pass(const ScanEdge& edge)
{
    const StateOffset polygon = edge.polygon();
    const i32 entering = static_cast<i32>(edge.side & ScanEdge::enters);
    const i32 count = at(polygon).activeCount + 2 * entering - 1;
    at(polygon).activeCount = count;
    if (count != entering) return;
    if (entering)
        enter(polygon, edge.x);
    else
        leave(polygon, edge.x);
}

// The last edge of a row, behind which no other one stands that could be compared with it.
[[gnu::noinline]] void RowWalk::passLast(const ScanEdge& edge)
{
    pass(edge);
}

// Moves edges that have been passed to the next row. They are kept in order of x: an edge that has crossed others is
// put back in its place among them, unless very many do.
class EdgeStepper {
public:
    explicit EdgeStepper(ScanEdge* edges) : first(edges), end(edges) {}

    // The edge lies where the last kept one ends, or behind that.
    void step(const ScanEdge& edge, i32 row)
    {
        if (edge.lastRow == row) return;

        // The edge is written in one piece, as the next row reads it.
        typedef u32 EdgeWords __attribute__((vector_size(16), aligned(4), may_alias)); // whose sums wrap
        constexpr EdgeWords onlyX = {~0u, 0, 0, 0};
        const EdgeWords words = *reinterpret_cast<const EdgeWords*>(&edge);
        const EdgeWords stepped = words + (__builtin_shufflevector(words, words, 1, 1, 1, 1) & onlyX);
        *reinterpret_cast<EdgeWords*>(end) = stepped;
        const i32 x = static_cast<i32>(stepped[0]);
        if (x >= greatest)
            greatest = x;
        else if (moves <= manyMoves)
            putBack(x);
        ++end;
    }

    u32 count() const { return static_cast<u32>(end - first); }
    bool areSorted() const { return moves <= manyMoves; }

private:
    ScanEdge* const first;
    ScanEdge* end;
    i32 greatest = smallestI32; // the x of the last edge
    u32 moves = 0;

    // Moves the edge that was just kept back to its place.
    void putBack(i32 x)
    {
        ScanEdge* place = end;
        const ScanEdge moved = *end;
        do {
            *place = place[-1];
            --place;
            ++moves;
        } while (place != first && x < place[-1].x);
        *place = moved;
    }
};

void RowWalk::walk(ActiveEdges& active, i32 row)
{
    PolygonState& background = at(BackgroundPolygon);
    background.activeCount = 1;
    background.runStart = static_cast<i16>(drawn.left);

    EdgeStepper stepper(active.edges);
    const ScanEdge* edge = active.edges;
    const ScanEdge* const end = edge + active.count;
    const ScanEdge* const fetchedEnd = end - (active.count < lookAhead ? active.count : lookAhead);
    while (end - edge > 1) {
        if (edge < fetchedEnd) __builtin_prefetch(&at(edge[lookAhead].polygon()));
        if (edge->x == edge[1].x && replace(*edge, edge[1])) {
            if (!memoryLeft) return;
            stepper.step(*edge++, row);
        } else {
            pass(*edge);
            if (!memoryLeft) return;
        }
        stepper.step(*edge++, row);
    }
    if (edge != end) {
        passLast(*edge);
        if (!memoryLeft) return;
        stepper.step(*edge, row);
    }

    // The right side of the rectangle is the background's leaving edge and ends its run.
    if (--background.activeCount == 0) leave(BackgroundPolygon, wrappingShiftLeft(drawn.right, 16));

    active.count = stepper.count();
    if (!stepper.areSorted()) sortStably(active.edges, active.count, active.otherHalf());
}

// Sorts the edges that start on the row, and merges them with the active edges. A starting edge goes before an active
// one with the same x.
void mergeStartingEdges(ActiveEdges& active, i32 row)
{
    const u32 first = EdgeStartTable[row];
    const u32 starting = EdgeStartTable[row + 1] - first;
    if (starting == 0) return;

    // The active edges come from rows before this one, so they end before `first` in either half.
    ScanEdge* const sorted = EdgePool.workspace() + first;
    sortStartingEdges(EdgePool.edges + first, starting, sorted);
    if (active.count == 0) {
        active = {.edges = sorted, .count = starting, .inWorkspace = true};
        return;
    }
    const ScanEdge* before = active.edges;
    const ScanEdge* const beforeEnd = before + active.count;
    const ScanEdge* added = sorted;
    const ScanEdge* const addedEnd = sorted + starting;
    ScanEdge* const merged = active.otherHalf();
    ScanEdge* to = merged;
    // Which list the next edge comes from is hard to predict: the choice is made without a branch.
    while (before != beforeEnd && added != addedEnd) {
        const u32 takesAdded = added->x <= before->x ? 1 : 0;
        *to++ = *(takesAdded ? added : before);
        added += takesAdded;
        before += 1 - takesAdded;
    }
    while (before != beforeEnd) *to++ = *before++;
    while (added != addedEnd) *to++ = *added++;
    active = {.edges = merged, .count = active.count + starting, .inWorkspace = !active.inWorkspace};
}

} // namespace

void ResolveScanlines(HostContext& context, const DrawnRectangle& drawn, f32 firstY)
{
    assert(fitsTables(drawn));
    RowWalk walk(context, drawn, firstY);
    ActiveEdges active = {.edges = EdgePool.workspace(), .count = 0, .inWorkspace = true};
    const i32 rowsEnd = drawn.left < drawn.right ? drawn.bottom : drawn.top; // without a column nothing is visible
    for (i32 row = drawn.top; row < rowsEnd && walk.memoryLeft; ++row) {
        mergeStartingEdges(active, row);
        walk.walk(active, row);
        walk.finishRow(row);
    }
    sortSpansByPolygon(drawn);
}

} // namespace kardeno
