// The rectangle that a frame draws, in whole pixels. The frame driver makes it once a frame from the view's floats, and
// hands it on: edge table, resolver and fillers see integers alone.
#pragma once

#include "kardeno_soft/host_records.h"

namespace kardeno {

// Rows that the scanline tables have room for.
inline constexpr i32 scanlineCount = 4096;

// Columns from left up to, not including, right; rows from top up to, not including, bottom.
struct DrawnRectangle {
    i32 left, top, right, bottom;
};

// Whether the view's rectangle lies where the tables have rows and 16.16 fixed point has columns. False for NaN and
// infinities. A left or top beyond the integers passes here, and is refused by fitsTables().
bool isDrawable(const RenderView& view);

// The four sides of the view, truncated.
DrawnRectangle truncatedRectangle(const RenderView& view);

// Whether every row and column of the rectangle has its place in the tables.
bool fitsTables(const DrawnRectangle& rectangle);

} // namespace kardeno
