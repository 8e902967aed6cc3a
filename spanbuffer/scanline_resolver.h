// The scanline resolver removes hidden surfaces with a span buffer. It walks each row once, from left to right over the
// active edges, and keeps the polygons that it is inside of in a depth stack. A run of columns in which a polygon is
// visible becomes a span of that polygon. Nothing is drawn here.
//
//   depth stack:   StackTopPolygon <-> nearest <-> ... <-> farthest <-> BackgroundPolygon
//
// The depth of a polygon is compared once per row, where the walk enters it. Where polygons intersect further along the
// row, the order of the stack is not revised.
#pragma once

#include "spanbuffer/edge_table.h"

namespace kardeno {

// How a row is resolved that has the edges of the row before in the same order: by notes of what happened there
// (row_notes.h), or like any other row. The spans are the same.
enum class AlikeRows { byNotes, walked };

// Resolves all rows of the rectangle into spans and sorts these by polygon. The edge table must be complete and the
// span pool empty. Depths of the first row are compared at the screen y `firstY`, which is the view's own `top` with
// its fraction, and those of the next rows at whole steps below. When the span pool cannot grow, the rest of the frame
// stays unresolved and the caller is not told.
void ResolveScanlines(HostContext& context, const DrawnRectangle& drawn, f32 firstY,
                      AlikeRows alikeRows = AlikeRows::byNotes);

} // namespace kardeno
