// How many sides of the frame's polygons begin on each row. Emission counts while the corners are at hand, so that the
// edge table can put the edges in rows in one pass.
#pragma once

#include "geometry/stored_polygon.h"
#include "host/drawn_rectangle.h"

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

struct SideCounts {
    i32 firstRow, rowsEnd;           // of the rectangle that the sides are cut to, within the tables
    i32 edges;                       // the sum of all rows
    u32 starting[scanlineCount + 1]; // the last one stays 0
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

// Whether a row lies within the rows from first to last, which need no cut then.
inline bool isBetween(i32 row, i32 first, i32 last)
{
    return row >= first && row <= last;
}

// Counts the sides of a triangle and returns whether the last one makes an edge. Sides between rows of the rectangle
// begin where their upper corner lies, and make an edge unless they are level.
inline bool countTriangle(i32 a, i32 b, i32 c)
{
    const i32 firstRow = sideCounts.firstRow;
    const i32 rowsEnd = sideCounts.rowsEnd;
    if (!isBetween(a, firstRow, rowsEnd) || !isBetween(b, firstRow, rowsEnd) || !isBetween(c, firstRow, rowsEnd)) {
        countSide(a, b);
        countSide(b, c);
        return countSide(c, a);
    }
    const auto count = [](i32 from, i32 to) {
        const u32 makesEdge = from != to ? 1 : 0;
        sideCounts.starting[from < to ? from : to] += makesEdge;
        sideCounts.edges += static_cast<i32>(makesEdge);
    };
    count(a, b);
    count(b, c);
    count(c, a);
    return a != c;
}

// Counts all sides of a stored polygon. Returns whether the last one, from the last corner to the first, makes an edge.
bool countSides(const StoredPolygon& polygon);

} // namespace kardeno
