// The frame's spans. They live in a pool that grows through the host's realloc and is kept from frame to frame.
//
// The resolver appends spans row after row, each with its polygon. Once all rows are resolved they are sorted by
// polygon, so that a filler reads those of a polygon one after another. The pool's block holds both forms:
//
//   SpanPool      the spans as they were made | the spans polygon by polygon, of each the one made last first
#pragma once

#include "host/drawn_rectangle.h"
#include "spanbuffer/polygon_states.h"

namespace kardeno {

inline constexpr i32 spanPoolGrowth = 4096;

// Bytes of the pool's block for each span that it has room for.
inline constexpr u32 spanPoolRecordBytes = 16;

// A run of pixels in which a polygon is visible, on the row that is being resolved.
struct MadeSpan {
    StateOffset polygon;
    i16 x;
    u16 length;
};

// A run of pixels on one row in which one polygon is visible.
struct Span {
    i16 x;      // first column
    u16 length; // pixels, at least 1
    u16 y;      // row
    u16 isLast; // 1 in the last span of a polygon
};
static_assert(sizeof(MadeSpan) + sizeof(Span) == spanPoolRecordBytes);

// After a refused growth `spans` and `capacity` are wrong until the next frame. `held` and `heldCapacity` always
// describe the block that the pool owns.
struct SpanPoolRecord {
    MadeSpan* spans;
    i32 count;
    i32 capacity;

    MadeSpan* held;
    i32 heldCapacity;

    // The second half of the block.
    Span* sorted() const { return reinterpret_cast<Span*>(held + heldCapacity); }
};

extern SpanPoolRecord SpanPool;

// How many spans had been made when a row was complete.
extern u32 SpanRowEnds[scanlineCount];

// Empties the pool for a frame. After a refused growth it recovers `spans` and `capacity` from the held values.
void resetSpanPool();

// Grows the pool by one step. Returns false when the host refused.
bool growSpanPool(HostContext& context);

// Sorts the spans that were made by polygon and sets `firstSpan` of all states.
void sortSpansByPolygon(const DrawnRectangle& drawn);

// The visible spans of one polygon.
struct SpanList {
    const Span* first;
    const Span* last; // behind the last one

    const Span* begin() const { return first; }
    const Span* end() const { return last; }
    bool empty() const { return first == last; }
};

inline SpanList spansOf(StateOffset polygon)
{
    const PolygonState& state = stateAt(polygon);
    const Span* const first = SpanPool.sorted() + state.firstSpan;
    return {first, first + state.spanCount};
}

} // namespace kardeno
