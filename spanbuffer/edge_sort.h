// A stable sort of edge lists by x, for the row lists of the edge table and for active lists in which many edges have
// crossed. It takes no memory but the stack, and its time never grows with the square of the list's length.
#pragma once

#include "spanbuffer/edge_table.h"

namespace kardeno {

// Sorts the list from `first` up to, not including, `end` by ascending x; edges with the same x keep their order. The
// list is linked by `next` and has at least one edge. Returns the new first edge; the last one is linked to `end`. The
// links `prev` are left as they are.
ScanEdge* sortedByX(ScanEdge* first, ScanEdge* end);

} // namespace kardeno
