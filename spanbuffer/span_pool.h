// The frame's visible runs of pixels, one list a polygon, in one pool that grows through the host's realloc and is kept
// from frame to frame. Spans are linked by index, so that a growth in mid-frame leaves every list valid.
#pragma once

#include "geometry/screen_polygon.h"

namespace kardeno {

inline constexpr i32 spanPoolGrowth = 4096;

// One visible run of one polygon on one row.
struct Span {
    i32 x;      // first column
    i32 length; // pixels, at least 1
    i32 y;      // row
    i32 next;   // index of the polygon's next span; -1 ends the list
};
KARDENO_SIZE(Span, 16, 16);
KARDENO_OFFSET(Span, x, 0, 0);
KARDENO_OFFSET(Span, length, 4, 4);
KARDENO_OFFSET(Span, y, 8, 8);
KARDENO_OFFSET(Span, next, 12, 12);

// Stored and held values differ only in a frame whose growth was refused: see appendSpan.
struct SpanPoolRecord {
    Span* spans;
    i32 count;
    i32 capacity;

    Span* held; // the block that really holds the spans
    i32 heldCapacity;
};

extern SpanPoolRecord SpanPool;

// Empties the pool for a frame. After a refused growth the pool goes on from the block and capacity really held.
void resetSpanPool();

// Puts the run of columns x up to, not including, xEnd on row y at the front of the polygon's list. A run of no length
// makes no span. False when the pool had to grow and the host refused.
bool appendSpan(HostContext& context, ScreenPolygon& polygon, i32 x, i32 xEnd, i32 y);

} // namespace kardeno
