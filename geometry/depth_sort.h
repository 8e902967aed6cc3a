// The order in which see-through polygons are painted. It is found by a least-significant-digit radix sort of their
// `maxDepth` with 8-bit digits, in no more passes than the largest key needs.
#pragma once

#include "geometry/polygon_lists.h"

namespace kardeno {

// Fills sortOrder with the positions of the list's polygons in ascending order of maxDepth; the sort is stable. The
// list must have a polygon, and the sort arrays must be able to hold them all. The caller paints from the last entry,
// the farthest polygon, to the first.
void SortPolygonsByDepth(const PolygonList& list);

} // namespace kardeno
