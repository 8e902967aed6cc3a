#include "geometry/side_counts.h"

namespace kardeno {

constinit SideCounts sideCounts = {};

namespace {

// The rows of the rectangle, or none when they do not fit the tables.
DrawnRectangle countedRows(const DrawnRectangle& drawn)
{
    return fitsTables(drawn) ? drawn : DrawnRectangle{0, 0, 0, 0};
}

} // namespace

void resetSideCounts(const DrawnRectangle& drawn)
{
    const DrawnRectangle rows = countedRows(drawn);
    sideCounts.firstRow = rows.top;
    sideCounts.rowsEnd = rows.bottom;
    sideCounts.edges = 0;
    for (i32 y = rows.top; y < rows.bottom; ++y) sideCounts.starting[y] = 0;
}

bool areCountedFor(const DrawnRectangle& drawn)
{
    const DrawnRectangle rows = countedRows(drawn);
    return sideCounts.firstRow == rows.top && sideCounts.rowsEnd == rows.bottom;
}

bool countSides(const StoredPolygon& polygon)
{
    const CornerLayout layout = cornerLayouts[polygon.format];
    const u8* const first = cornersOf(polygon);
    const u8* corner = first;
    bool madeEdge = false;
    for (u32 a = 0; a < polygon.cornerCount; ++a) {
        const u8* const next = a + 1 < polygon.cornerCount ? corner + layout.bytes : first;
        madeEdge = countSide(placeOf(corner, layout).y, placeOf(next, layout).y);
        corner = next;
    }
    return madeEdge;
}

} // namespace kardeno
