// Stable sorts of edges by x, for the edges that start on a row and for active edges of which many have crossed.
#pragma once

#include "spanbuffer/edge_table.h"

namespace kardeno {

// Sorts the edges that start on a row into `sorted`, by ascending x. Of edges with the same x the one that was added
// last comes first. `edges` is used as a work space as well.
void sortStartingEdges(ScanEdge* edges, u32 count, ScanEdge* sorted);

// Sorts edges by ascending x, in place; edges with the same x keep their order. The work space has room for as many.
void sortStably(ScanEdge* edges, u32 count, ScanEdge* workspace);

} // namespace kardeno
