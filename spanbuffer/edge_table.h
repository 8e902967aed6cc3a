// The edge table: every side of the frame's polygons, under the first scanline that it covers. At each scanline the
// resolver sorts the edges that start there by x and merges them into its active edges, and drops those that end there.
//
// The edges live in a pool that grows through the host's realloc and is kept from frame to frame. How many edges start
// on each row is known before the first one is made, so each is written to its place at once:
//
//   EdgeStartTable    0    0    3    3    7 ...       where the edges of a row begin; row 1 has three of them
//   EdgePool          a b c d e f g ...               the edges of a row in the order in which they were added
//
// The table takes up half of the pool's block. The other half is where the resolver sorts and keeps its active edges.
#pragma once

#include "host/drawn_rectangle.h"
#include "spanbuffer/polygon_states.h"

namespace kardeno {

inline constexpr i32 edgePoolGrowth = 4096;

// Bytes of the pool's block for each edge that it has room for.
inline constexpr u32 edgePoolRecordBytes = sizeof(void*) == 4 ? 32 : 56;

// One side of a polygon. x and xStep are 16.16 fixed point.
struct ScanEdge {
    i32 x;     // on the current scanline; before the edge is active, on the first one that it covers
    i32 xStep; // from one scanline to the next
    u32 side;  // the polygon's StateOffset and two flags
    i32 lastRow;

    // A side that runs down the screen is an entering edge: a walk to the right comes from outside the polygon.
    static constexpr u32 enters = 1;
    static constexpr u32 occludes = 2; // the polygon hides what lies farther
    static constexpr u32 flags = enters | occludes;

    bool entering() const { return side & enters; }
    StateOffset polygon() const { return side & ~flags; }
};
static_assert(sizeof(ScanEdge) == 16 && 2 * sizeof(ScanEdge) <= edgePoolRecordBytes);

struct EdgePoolRecord {
    ScanEdge* edges; // null until the first edge pass with a polygon
    i32 count;
    i32 capacity;

    // The half of the block that is not the table.
    ScanEdge* workspace() const { return edges + capacity; }
};

extern EdgePoolRecord EdgePool;
extern u32 EdgeStartTable[scanlineCount + 1];

// Builds the table of the frame from the polygons of the resolved lists, and their states with it. Returns false when
// the pool could not grow, and the caller must abandon the frame.
bool buildEdgeTable(HostContext& context, const DrawnRectangle& drawn);

} // namespace kardeno
