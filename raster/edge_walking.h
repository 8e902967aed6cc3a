// Edge walking. Every interpolating filler first walks down the edges of its polygon, in two chains from the top vertex
// to the bottom one, and notes the column and the attributes at both ends of every row. Spans then interpolate between
// the two ends.
//
// The left chain follows the order of the vertices and the right chain goes against it. That is where they lie on the
// screen when the polygon has the winding that is seen; nothing tests it.
#pragma once

#include "host/drawn_rectangle.h"
#include "raster/span_values.h"

namespace kardeno {

// Every filler rebuilds the table for its own polygon. Rows that the polygon's chains do not cover hold stale values.
extern OutlineRow OutlineTable[scanlineCount];

// The vertices that bound the rows of an outline: it covers the row of the top vertex, but not that of the bottom one.
struct OutlineExtent {
    i32 topVertex;
    i32 bottomVertex;
};

// Returns the highest and the lowest vertex of a polygon; of several on one row, the one with the lowest index.
OutlineExtent outlineExtent(const ScreenPolygon& polygon);

// Writes the side from vertex a to vertex b into the table, at the end of each row that belongs to the chain.
template <class Values>
void walkEdge(const ScreenPolygon& polygon, i32 a, i32 b, OutlineSide OutlineRow::*chain)
{
    i32 y = polygon.scanY[a];
    if (y >= polygon.scanY[b]) return; // a side that is horizontal or runs up covers no row of this chain
    const i32 yEnd = polygon.scanY[b] < scanlineCount ? polygon.scanY[b] : scanlineCount;

    // The difference may wrap, when the side runs from one end of the integers to the other; the rows are walked all
    // the same.
    const f64 inverse = 1.0 / wrappingDifference(polygon.scanY[b], y);
    const auto stepFrom = [inverse](f32 from, f32 to) { return stored((static_cast<f64>(to) - from) * inverse); };

    f32 x = polygon.screenX[a];
    const f32 xStep = stepFrom(x, polygon.screenX[b]);
    Interpolants value;
    Interpolants step;
    Values::forEach([&]<class Value>() {
        const f32* corner = polygon.*Value::values;
        value.*Value::place = corner[a];
        step.*Value::place = stepFrom(corner[a], corner[b]);
    });

    // A side that begins absurdly far above the table is brought near it in one go, lest the walk take for ever.
    if (y < -scanlineCount) {
        const f64 skipped = -static_cast<f64>(scanlineCount) - y;
        x = stored(x + xStep * skipped);
        Values::forEach(
            [&]<class Value>() { value.*Value::place = stored(value.*Value::place + step.*Value::place * skipped); });
        y = -scanlineCount;
    }

    // The running sums are rounded to f32 at every row, which decides the column and the attributes of the rows below.
    for (; y < yEnd; ++y) {
        if (y >= 0) {
            OutlineSide& side = OutlineTable[y].*chain;
            side.x = truncated(x);
            Values::forEach([&]<class Value>() { side.values.*Value::place = value.*Value::place; });
        }
        x = stored(static_cast<f64>(x) + xStep);
        Values::forEach([&]<class Value>() {
            value.*Value::place = stored(static_cast<f64>(value.*Value::place) + step.*Value::place);
        });
    }
}

// Walks both chains of the polygon and returns its extent. `Values` is the list of what the filler interpolates.
template <class Values>
OutlineExtent walkEdges(const ScreenPolygon& polygon)
{
    const i32 count = polygon.vertexCount;
    const OutlineExtent extent = outlineExtent(polygon);

    for (i32 a = extent.topVertex; a != extent.bottomVertex;) {
        const i32 b = a + 1 < count ? a + 1 : 0;
        walkEdge<Values>(polygon, a, b, &OutlineRow::left);
        a = b;
    }
    for (i32 a = extent.topVertex; a != extent.bottomVertex;) {
        const i32 b = a > 0 ? a - 1 : count - 1;
        walkEdge<Values>(polygon, a, b, &OutlineRow::right);
        a = b;
    }
    return extent;
}

} // namespace kardeno
