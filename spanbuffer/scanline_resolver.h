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

// The two ends of the depth stack. The background lies behind everything and gets a span wherever no occluding polygon
// is; its `below` is itself. The top is never compared, never visible and never drawn.
extern ScreenPolygon StackTopPolygon;
extern ScreenPolygon BackgroundPolygon;

// The inverse depth of both ends, which stands for an empty pixel.
inline constexpr f32 emptyDepth = -1000000.0f;

// Links the two ends to each other, which makes an empty stack for the frame.
void setStackEnds();

// The tables and sentinels that a frame is resolved with.
struct ScanlineTables {
    ScanEdge* edgeStartTable;
    ScanEdge* const* edgeEndTable;
    ScanEdge* leftGuard;
    ScanEdge* rightGuard;
    ScreenPolygon* stackTop;
    ScreenPolygon* background;
};

// Resolves all rows of the rectangle into spans. The edge table must be complete and the span pool empty. Depths of the
// first row are compared at the screen y `firstY`, which is the view's own `top` with its fraction, and those of the
// next rows at whole steps below. When the span pool cannot grow, the rest of the frame stays unresolved and the caller
// is not told.
void ResolveScanlines(HostContext& context, const DrawnRectangle& drawn, f32 firstY, const ScanlineTables& tables);

} // namespace kardeno
