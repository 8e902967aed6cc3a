// Hidden-surface removal: a span buffer. Each row is walked once from left to right over the edges that cross it, with
// the polygons that the walk is inside of in a depth stack; every visible run that closes becomes a span of its
// polygon. Nothing is drawn here.
//
//   depth stack:   StackTopPolygon <-> nearest <-> ... <-> farthest <-> BackgroundPolygon
//
// Depth is decided once a polygon and row, where the walk enters the polygon; the order is not revised further along.
#pragma once

#include "spanbuffer/edge_table.h"

namespace kardeno {

// The two ends of the depth stack. The background lies behind everything, takes what no polygon covers, and its `below`
// is itself; the top is never compared, drawn or visible.
extern ScreenPolygon StackTopPolygon;
extern ScreenPolygon BackgroundPolygon;

// The depth of an empty pixel.
inline constexpr f32 emptyDepth = -1000000.0f;

// Sets both for a frame: an empty stack.
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

// Resolves every row of the rectangle into spans. `firstY` is where on the screen the first row is taken to lie, the
// view's own `top` with its fraction: depths are compared there and at whole steps below. Needs a complete edge pass
// and an emptied span pool. When the span pool cannot grow the rest of the frame stays unresolved, and the caller is
// not told.
void ResolveScanlines(HostContext& context, const DrawnRectangle& drawn, f32 firstY, const ScanlineTables& tables);

} // namespace kardeno
