// The edge table: every side of the frame's polygons, listed twice, under the first and under the last scanline that it
// covers. At each scanline the resolver sorts the edges that start there by x, merges them into its active edge list,
// and removes those that end there.
//
//   edges that start on row y:   EdgeStartTable[y].next -> edge -> edge -> RightGuardEdge      linked by `next`
//   edges that end on row y:     EdgeEndTable[y] -> edge -> edge -> null                       linked by `nextEnding`
//
// Both lists begin with the edge that was added last.
//
// The edges live in a pool that grows through the host's realloc and is kept from frame to frame. A growth may move the
// pool, which makes all links between edges stale. The edge pass, which adds the sides of all polygons, then starts
// again from the beginning.
#pragma once

#include "geometry/screen_polygon.h"
#include "host/drawn_rectangle.h"

namespace kardeno {

inline constexpr i32 edgePoolGrowth = 4096;

// One side of a polygon. x and xStep are 16.16 fixed point.
struct ScanEdge {
    i32 x;          // on the current scanline; before the edge is active, on the first one that it covers
    i32 xStep;      // from one scanline to the next
    u32 entering;   // 1 when the side runs down the screen, so that a walk to the right enters the polygon; else 0
    ScanEdge* next; // in the start list, then in the active edge list
    ScanEdge* prev; // in the active edge list only
    ScanEdge* nextEnding; // in the end list
    ScreenPolygon* polygon;
    u32 reserved;
};
KARDENO_SIZE(ScanEdge, 32, 56);
KARDENO_OFFSET(ScanEdge, x, 0, 0);
KARDENO_OFFSET(ScanEdge, xStep, 4, 4);
KARDENO_OFFSET(ScanEdge, entering, 8, 8);
KARDENO_OFFSET(ScanEdge, next, 12, 16);
KARDENO_OFFSET(ScanEdge, prev, 16, 24);
KARDENO_OFFSET(ScanEdge, nextEnding, 20, 32);
KARDENO_OFFSET(ScanEdge, polygon, 24, 40);
KARDENO_OFFSET(ScanEdge, reserved, 28, 48);

struct EdgePoolRecord {
    ScanEdge* edges; // null until the first edge pass with a polygon
    i32 count;
    i32 capacity;
};

extern EdgePoolRecord EdgePool;
extern ScanEdge EdgeStartTable[scanlineCount]; // row heads: only `next` is used
extern ScanEdge* EdgeEndTable[scanlineCount];

// The two ends of the active edge list; the right one also ends every start list. They stand at the sides of the drawn
// rectangle and belong to the background polygon. Loops recognise them by address, not by x, so that an edge which a
// rounding error has put beyond them does no harm.
extern ScanEdge LeftGuardEdge;
extern ScanEdge RightGuardEdge;

// Sets the guards for a frame: one pixel left of the rectangle, and at its right side.
void setGuardEdges(const DrawnRectangle& drawn, ScreenPolygon* background);

// Empties the pool and the lists of all rows of the rectangle.
void ResetEdgeTable(const DrawnRectangle& drawn);

// How adding a polygon's edges ended.
enum class EdgePass : i32 {
    done = 0,
    poolGrew = 1,   // the polygon is not complete, and the caller must start the edge pass again
    poolRefused = 2 // the host gave no memory, and the caller must abandon the frame
};

// Adds the sides of a polygon to the table, each cut to the rows of the rectangle. A side that covers none of these
// rows is left out.
EdgePass AddPolygonEdges(HostContext& context, const DrawnRectangle& drawn, ScreenPolygon* polygon);

} // namespace kardeno
