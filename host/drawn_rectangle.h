// The rectangle that a frame draws, in whole pixels. The frame driver makes it from the view's floating-point sides
// once per frame; the edge table, the scanline resolver and the fillers take it as integers.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// The number of rows that the scanline tables have room for.
inline constexpr i32 scanlineCount = 4096;

// A half-open rectangle: left and top belong to it, right and bottom do not.
struct DrawnRectangle {
    i32 left, top, right, bottom;
};

// Whether the view's rectangle lies within the rows of the scanline tables and the columns of 16.16 fixed point. A NaN
// or an infinity is not drawable. A left or top too large for an integer passes here and is refused by fitsTables().
bool isDrawable(const RenderView& view);

// The four sides of the view's rectangle, truncated to integers.
DrawnRectangle truncatedRectangle(const RenderView& view);

// Whether every row of the rectangle has its place in the scanline tables, and every column fits 16.16 fixed point.
bool fitsTables(const DrawnRectangle& rectangle);

} // namespace kardeno
