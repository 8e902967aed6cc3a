// The edge table: every side of the frame's polygons, listed under the first scanline that it crosses, sorted by x, and
// under the last. The scanline resolver merges a row's new edges into its active list and drops those that end there.
//
//   row list of y:   EdgeStartTable[y].next -> edge -> edge -> RightGuardEdge      ascending x, linked by next
//   end list of y:   EdgeEndTable[y] -> edge -> edge -> null                       linked by nextEnding
//
// Edges live in one pool that grows through the host's realloc and is kept from frame to frame. A growth may move it
// and so make every link stale: the whole edge pass is then begun again.
#pragma once

#include "geometry/screen_polygon.h"
#include "host/drawn_rectangle.h"

namespace kardeno {

inline constexpr i32 edgePoolGrowth = 4096;

// One side of a polygon. x and xStep are 16.16 fixed point.
struct ScanEdge {
    i32 x;        // on the current scanline; at first on the side's top row, at its upper vertex
    i32 xStep;    // from one scanline to the next
    u32 entering; // 1 when the side runs down the screen: passing it, the walk enters the polygon; 0: leaves it
    ScanEdge* next;
    ScanEdge* prev; // in the active list only
    ScanEdge* nextEnding;
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
    ScanEdge* edges; // null before the first frame that has a polygon
    i32 count;
    i32 capacity;
};

extern EdgePoolRecord EdgePool;
extern ScanEdge EdgeStartTable[scanlineCount]; // row heads: only `next` is used
extern ScanEdge* EdgeEndTable[scanlineCount];

// The ends of every list. They bound the drawn rectangle and belong to the background. Every walk stops at them by
// address, so that an edge which a rounding error has put beyond them does no harm.
extern ScanEdge LeftGuardEdge;
extern ScanEdge RightGuardEdge;

// Sets the guards for a frame: one pixel left of the rectangle, and at its right edge.
void setGuardEdges(const DrawnRectangle& drawn, ScreenPolygon* background);

// Empties the pool, and the lists of every row of the rectangle.
void ResetEdgeTable(const DrawnRectangle& drawn);

// How adding a polygon's edges ended.
enum class EdgePass : i32 {
    done = 0,
    poolGrew = 1,   // nothing more was added: begin the edge pass again
    poolRefused = 2 // the host gave no memory: abandon the frame
};

// Puts every side of one polygon into the table. Sides are cut to the rows of the rectangle.
EdgePass AddPolygonEdges(HostContext& context, const DrawnRectangle& drawn, ScreenPolygon* polygon);

} // namespace kardeno
