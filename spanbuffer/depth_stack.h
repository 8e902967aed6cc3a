// The depth stack of the current scanline: the polygons that cover the column where the walk stands, from the nearest
// to the farthest. It is a linked list through the states, and the spans are made where its visible part changes.
#pragma once

#include "spanbuffer/depth_plane.h"
#include "spanbuffer/edge_table.h"
#include "spanbuffer/span_pool.h"
#include "support/arithmetic.h"

namespace kardeno {

inline i32 columnOf(i32 fixedX)
{
    return fixedX >> 16;
}

// What is told of the runs that begin and end at an edge, where nobody wants to know.
struct NoNote {
    void beganRun(StateOffset) {}
    void endedRun(StateOffset) {}
};

class DepthStack {
public:
    DepthStack(HostContext& theContext, const DrawnRectangle& theRectangle, f32 firstY)
        : drawn(theRectangle), y(firstY), context(&theContext), states(reinterpret_cast<u8*>(polygonStates)),
          spans(SpanPool.spans), spanCount(static_cast<u32>(SpanPool.count)),
          spanCapacity(static_cast<u32>(SpanPool.capacity))
    {
    }

    DrawnRectangle drawn;
    f32 y; // screen y at which depths are compared

    // Whether all spans could be stored. When one could not, the walk has to end there.
    bool memoryLeft = true;

    PolygonState& at(StateOffset polygon) const { return *reinterpret_cast<PolygonState*>(states + polygon); }
    StateOffset top() const { return at(StackTopPolygon).below; }
    bool isEmpty() const { return top() == BackgroundPolygon; }

    void beginRow()
    {
        PolygonState& background = at(BackgroundPolygon);
        background.activeCount = 1;
        background.runStart = static_cast<i16>(drawn.left);
    }

    // The right side of the rectangle is the background's leaving edge and ends its run.
    void endRow(i32 row)
    {
        NoNote noNote;
        if (memoryLeft && --at(BackgroundPolygon).activeCount == 0)
            takeOut(BackgroundPolygon, wrappingShiftLeft(drawn.right, 16), noNote);
        SpanRowEnds[row] = spanCount;
        SpanPool.count = static_cast<i32>(spanCount);
        y = stored(y + 1.0);
    }

    void closeRun(StateOffset offset, i32 column);
    void openRun(PolygonState& polygon, i32 column);
    bool crosses(const ScanEdge& edge);
    StateOffset placeFor(const ScanEdge& edge) const;
    template <class Note>
    void putIn(StateOffset offset, StateOffset under, i32 edgeX, Note& note);
    template <class Note>
    void takeOut(StateOffset offset, i32 edgeX, Note& note);
    void pass(const ScanEdge& edge);
    bool replace(const ScanEdge& edge, const ScanEdge& other);

private:
    HostContext* context;
    u8* states;
    MadeSpan* spans;
    u32 spanCount;
    u32 spanCapacity;

    bool growSpans();
};

inline bool DepthStack::growSpans()
{
    SpanPool.count = static_cast<i32>(spanCount);
    memoryLeft = growSpanPool(*context);
    if (!memoryLeft) return false;
    spans = SpanPool.spans;
    spanCapacity = static_cast<u32>(SpanPool.capacity);
    return true;
}

// Ends the polygon's visible run before a column and makes a span of it, without what lies outside the drawn rectangle.
inline __attribute__((always_inline)) void DepthStack::closeRun(StateOffset offset, i32 column)
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

inline void DepthStack::openRun(PolygonState& polygon, i32 column)
{
    polygon.isVisible = 1;
    polygon.runStart = static_cast<i16>(column);
}

// Counts an edge that the walk passes. Returns whether its polygon goes from outside to inside there, or back.
inline __attribute__((always_inline)) bool DepthStack::crosses(const ScanEdge& edge)
{
    const i32 entering = static_cast<i32>(edge.side & ScanEdge::enters);
    PolygonState& polygon = at(edge.polygon());
    polygon.activeCount += 2 * entering - 1;
    return polygon.activeCount == entering;
}

// The polygon on which the one of an entering edge is to be put.
inline __attribute__((always_inline)) StateOffset DepthStack::placeFor(const ScanEdge& edge) const
{
    StateOffset under = top();
    if (under == BackgroundPolygon) return under;
    const SamplePoint point(sampleColumn(edge.x), y);
    // Intended: only the entering polygon's depth is rounded. On equal depth the one entered last lies nearer.
    const f64 depth = stored(point.depthOf(at(edge.polygon())));
    while (point.depthOf(at(under)) > depth) {
        under = at(under).below;
        if (under == BackgroundPolygon) break;
    }
    return under;
}

// Puts a polygon into the stack where the walk passes its entering edge.
template <class Note>
inline __attribute__((always_inline)) void DepthStack::putIn(StateOffset offset, StateOffset under, i32 edgeX,
                                                             Note& note)
{
    PolygonState& polygon = at(offset);
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
    if (!polygon.occludes) return note.beganRun(offset);

    // The polygons below that were visible, down to the first one that occludes, are now hidden.
    StateOffset hidden = under;
    do {
        closeRun(hidden, column);
        if (!memoryLeft) return;
        note.endedRun(hidden);
        at(hidden).isVisible = 0;
        hidden = at(hidden).below;
    } while (at(hidden).isVisible);
    note.beganRun(offset);
}

// Takes a polygon out of the stack where the walk passes its leaving edge.
template <class Note>
inline __attribute__((always_inline)) void DepthStack::takeOut(StateOffset offset, i32 edgeX, Note& note)
{
    PolygonState& polygon = at(offset);
    const StateOffset below = polygon.below;
    if (polygon.isVisible) {
        const i32 column = columnOf(edgeX);
        closeRun(offset, column);
        if (!memoryLeft) return;
        note.endedRun(offset);

        // The polygons that only this one hid become visible, down to the first one that occludes.
        if (!at(below).isVisible) {
            PolygonState* revealed = &at(below);
            openRun(*revealed, column);
            note.beganRun(below);
            while (!revealed->occludes) {
                const StateOffset next = revealed->below;
                revealed = &at(next);
                openRun(*revealed, column);
                note.beganRun(next);
            }
        }
    }
    const StateOffset above = polygon.above;
    at(above).below = below;
    at(below).above = above;
}

// Enters or leaves the polygon of an edge.
inline __attribute__((always_inline)) void DepthStack::pass(const ScanEdge& edge)
{
    if (!crosses(edge)) return;
    NoNote noNote;
    if (edge.entering())
        putIn(edge.polygon(), placeFor(edge), edge.x, noNote);
    else
        takeOut(edge.polygon(), edge.x, noNote);
}

// At two neighbouring edges with the same x one polygon can take the other's place: one is left that lies alone before
// the background, and another one is entered. This is what most edges between the faces of a mesh are. Whichever edge
// comes first and whatever the depths are, the run of the one polygon ends and that of the other begins. Returns
// whether it was so; otherwise nothing is done.
inline __attribute__((always_inline)) bool DepthStack::replace(const ScanEdge& edge, const ScanEdge& other)
{
    // One of them enters, and both occlude.
    const u32 flags = ((edge.side ^ other.side) & ScanEdge::enters) | (edge.side & other.side & ScanEdge::occludes);
    if (flags != (ScanEdge::enters | ScanEdge::occludes)) return false;

    const bool entersFirst = edge.entering();
    const StateOffset left = (entersFirst ? other : edge).polygon();
    const StateOffset entered = (entersFirst ? edge : other).polygon();
    PolygonState& topEnd = at(StackTopPolygon);
    if (topEnd.below != left || at(left).below != BackgroundPolygon || at(left).activeCount != 1
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
    topEnd.below = entered;
    at(BackgroundPolygon).above = entered;
    return true;
}

} // namespace kardeno
