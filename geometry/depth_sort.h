// The order in which see-through polygons are painted: a least-significant-digit radix sort on 8-bit digits of
// `maxDepth`, with no more passes than the largest key needs.
#pragma once

#include "geometry/polygon_lists.h"

namespace kardeno {

// Leaves in sortOrder the indices 0 to count - 1 in ascending order of maxDepth, equal keys in list order. Needs a
// count of at least 1 and sort arrays that can hold it. The caller paints from the last entry to the first.
void SortPolygonsByDepth(const ScreenPolygon* list, i32 count);

} // namespace kardeno
