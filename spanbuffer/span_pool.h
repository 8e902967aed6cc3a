// The frame's spans, in one linked list per polygon. They live in a pool that grows through the host's realloc and is
// kept from frame to frame. Spans are linked by index, so a growth in mid-frame leaves all lists valid.
#pragma once

#include "geometry/screen_polygon.h"

namespace kardeno {

inline constexpr i32 spanPoolGrowth = 4096;

// A run of pixels on one row in which one polygon is visible.
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

// After a refused growth `spans` and `capacity` are wrong until the next frame. `held` and `heldCapacity` always
// describe the block that the pool owns.
struct SpanPoolRecord {
    Span* spans;
    i32 count;
    i32 capacity;

    Span* held;
    i32 heldCapacity;
};

extern SpanPoolRecord SpanPool;

// Empties the pool for a frame. After a refused growth it recovers `spans` and `capacity` from the held values.
void resetSpanPool();

// Adds the span of the columns x to xEnd - 1 on row y to the front of the polygon's list. An empty run makes no span.
// Returns false when the pool had to grow and the host refused.
bool appendSpan(HostContext& context, ScreenPolygon& polygon, i32 x, i32 xEnd, i32 y);

} // namespace kardeno
