// The order in which see-through polygons are painted. It is found by a least-significant-digit radix sort of their
// `maxDepth` with 8-bit digits, in no more passes than the largest key needs.
#pragma once

#include "geometry/polygon_lists.h"

namespace kardeno {

// Fills sortOrder with the indices 0 to count - 1 in ascending order of maxDepth; the sort is stable. The count must be
// at least 1, and the sort arrays must be able to hold it. The caller paints from the last entry, the farthest polygon,
// to the first.
void SortPolygonsByDepth(const ScreenPolygon* list, i32 count);

} // namespace kardeno
