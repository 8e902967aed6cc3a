// The outline of a stored polygon, row by row, for the fillers that draw many polygons one after another. It is the
// edge walking of edge_walking.h, with all values of a corner in one vector:
//
//   lanes     value, value, value, x       what the corner begins with: see stored_polygon.h
//   further   shade, or red, green, blue   the values that follow in some formats
//
// Rows are counted from the polygon's top row, so that small polygons use the same few rows of the table again and
// again. A polygon that this table has no room for, or that reaches out of the scanline tables, is drawn by the plain
// filler.
#pragma once

#include "geometry/stored_polygon.h"
#include "host/drawn_rectangle.h"
#include "support/lanes.h"
#include "support/reciprocals.h"

namespace kardeno {

inline constexpr i32 laneRowCount = 1024;

// One end of a row. The column is the truncated x.
struct LaneSide {
    f32 lanes[4];
    f32 further[3];
    f32 unused;
};

struct LaneRow {
    LaneSide left;
    LaneSide right;
};

extern LaneRow LaneRowTable[laneRowCount];

// The corners of a polygon of a known format.
template <class Format>
class Corners {
public:
    explicit Corners(const StoredPolygon& polygon) : first(cornersOf(polygon)), count(polygon.cornerCount) {}

    i32 size() const { return count; }
    i32 row(i32 i) const { return placeOf(at(i), cornerLayout<Format>).y; }
    f32x4 lanes(i32 i) const { return loadedLanes(reinterpret_cast<const f32*>(at(i))); }
    const f32* further(i32 i) const { return reinterpret_cast<const f32*>(&placeOf(at(i), cornerLayout<Format>) + 1); }

    i32 after(i32 i) const { return i + 1 < count ? i + 1 : 0; }
    i32 before(i32 i) const { return i > 0 ? i - 1 : count - 1; }

private:
    const u8* const first;
    const i32 count;

    const u8* at(i32 i) const { return first + static_cast<u32>(i) * cornerLayout<Format>.bytes; }
};

// (to - from) x factor for each lane, formed in f64 and rounded once.
inline f32x4 scaledDifference(f32x4 from, f32x4 to, f64 factor)
{
    const f64x4 difference = __builtin_convertvector(to, f64x4) - __builtin_convertvector(from, f64x4);
    return __builtin_convertvector(difference * factor, f32x4);
}

inline f32 scaledDifference(f32 from, f32 to, f64 factor)
{
    return stored((static_cast<f64>(to) - from) * factor);
}

// Writes the side from corner a to corner b at the end of each row that belongs to the chain.
template <class Format>
inline void walkSide(const Corners<Format>& corners, i32 a, i32 b, i32 top, LaneSide LaneRow::*chain)
{
    constexpr u32 furtherCount = trailingValues<Format>;
    if (corners.row(a) >= corners.row(b)) return;
    const i32 rowsEnd = corners.row(b) - top;
    i32 row = corners.row(a) - top;

    LaneSide* side = &(LaneRowTable[row].*chain);
    f32x4 lanes = corners.lanes(a);
    storeLanes(side->lanes, lanes);
    for (u32 i = 0; i < furtherCount; ++i) side->further[i] = corners.further(a)[i];
    if (row + 1 == rowsEnd) return; // a side of one row needs no steps

    const f64 inverse = reciprocal(static_cast<u32>(rowsEnd - row));
    const f32x4 step = scaledDifference(lanes, corners.lanes(b), inverse);
    f32 further[furtherCount + 1] = {};
    f32 furtherStep[furtherCount + 1] = {};
    for (u32 i = 0; i < furtherCount; ++i) {
        further[i] = corners.further(a)[i];
        furtherStep[i] = scaledDifference(further[i], corners.further(b)[i], inverse);
    }
    for (++row; row < rowsEnd; ++row) {
        side = &(LaneRowTable[row].*chain);
        lanes += step; // a sum of two f32 that is rounded at once is the f64 sum rounded to f32
        storeLanes(side->lanes, lanes);
        for (u32 i = 0; i < furtherCount; ++i) side->further[i] = further[i] += furtherStep[i];
    }
}

// Walks both chains of the polygon. Returns its top row, or -1 when the table cannot hold it.
template <class Format>
inline i32 walkSides(const StoredPolygon& polygon)
{
    const Corners<Format> corners(polygon);
    i32 topCorner = 0;
    i32 bottomCorner = 0;
    i32 top = corners.row(0);
    i32 bottom = top;
    for (i32 i = 1; i < corners.size(); ++i) {
        const i32 row = corners.row(i);
        if (row < top) {
            top = row;
            topCorner = i;
        }
        if (row > bottom) {
            bottom = row;
            bottomCorner = i;
        }
    }
    if (top < 0 || bottom > scanlineCount || bottom - top > laneRowCount) return -1;

    for (i32 a = topCorner; a != bottomCorner; a = corners.after(a))
        walkSide(corners, a, corners.after(a), top, &LaneRow::left);
    for (i32 a = topCorner; a != bottomCorner; a = corners.before(a))
        walkSide(corners, a, corners.before(a), top, &LaneRow::right);
    return top;
}

} // namespace kardeno
