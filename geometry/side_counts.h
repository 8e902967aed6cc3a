// How many sides of the frame's polygons begin on each row. Emission counts while the corners are at hand, so that the
// edge table can put the edges in rows in one pass.
#pragma once

#include "geometry/stored_polygon.h"
#include "host/drawn_rectangle.h"
#include "support/lanes.h"

namespace kardeno {

// The rows that a side covers: from `start` up to, not including, `end`, after it was cut to the rows of a rectangle.
struct SideRows {
    i32 start, end;
    bool makesEdge; // whether the side covers any row; one that does not has no edge
};

// Returns the rows of the side between rows ya and yb. A difference of the rows that wraps to 0 makes no edge.
inline SideRows rowsOfSide(i32 ya, i32 yb, i32 firstRow, i32 rowsEnd)
{
    const i32 dy = wrappingDifference(yb, ya);
    const i32 top = dy > 0 ? ya : yb;
    const i32 bottom = dy > 0 ? yb : ya;
    const i32 start = top < firstRow ? firstRow : top;
    const i32 end = bottom > rowsEnd ? rowsEnd : bottom;
    return {.start = start, .end = end, .makesEdge = ((dy != 0) & (start < end)) != 0};
}

// The same for the three sides of a triangle at once, in the order of its corners. The fourth lane is rubbish.
struct TriangleSideRows {
    i32x4 start, end;
    i32x4 down;      // all bits set where the side runs down the screen
    i32x4 makesEdge; // likewise
};

inline TriangleSideRows rowsOfTriangle(i32x4 rows, i32 firstRow, i32 rowsEnd)
{
    const i32x4 next = __builtin_shufflevector(rows, rows, 1, 2, 0, 0);
    const i32x4 dy = wrappingDifference(next, rows);
    const i32x4 first = i32x4{firstRow, firstRow, firstRow, firstRow};
    const i32x4 last = i32x4{rowsEnd, rowsEnd, rowsEnd, rowsEnd};
    const i32x4 down = dy > 0;
    const i32x4 top = selected(down, rows, next);
    const i32x4 bottom = selected(down, next, rows);
    const i32x4 start = selected(top < first, first, top);
    const i32x4 end = selected(bottom > last, last, bottom);
    return {.start = start, .end = end, .down = down, .makesEdge = (dy != 0) & (start < end)};
}

struct SideCounts {
    i32 firstRow, rowsEnd; // of the rectangle that the sides are cut to, within the tables
    i32 edges;             // the sum of all rows
    u32 starting[scanlineCount];
};

extern SideCounts sideCounts;

// Begins to count for a rectangle. One that does not fit the tables counts no side.
void resetSideCounts(const DrawnRectangle& drawn);

// Whether the counts belong to the rectangle.
bool areCountedFor(const DrawnRectangle& drawn);

// Counts a side and returns whether it makes an edge.
inline bool countSide(i32 ya, i32 yb)
{
    const SideRows rows = rowsOfSide(ya, yb, sideCounts.firstRow, sideCounts.rowsEnd);
    const u32 made = rows.makesEdge ? 1 : 0;
    sideCounts.starting[static_cast<u32>(rows.start) % scanlineCount] += made;
    sideCounts.edges += static_cast<i32>(made);
    return rows.makesEdge;
}

// Counts the sides of a triangle and returns whether the last one makes an edge.
inline bool countTriangle(i32x4 rows)
{
    const TriangleSideRows sides = rowsOfTriangle(rows, sideCounts.firstRow, sideCounts.rowsEnd);
    const i32x4 start = sides.start & i32{scanlineCount - 1};
    sideCounts.starting[start[0]] -= static_cast<u32>(sides.makesEdge[0]);
    sideCounts.starting[start[1]] -= static_cast<u32>(sides.makesEdge[1]);
    sideCounts.starting[start[2]] -= static_cast<u32>(sides.makesEdge[2]);
    sideCounts.edges -= sides.makesEdge[0] + sides.makesEdge[1] + sides.makesEdge[2];
    return sides.makesEdge[2] != 0;
}

// Counts all sides of a stored polygon. Returns whether the last one, from the last corner to the first, makes an edge.
bool countSides(const StoredPolygon& polygon);

} // namespace kardeno
