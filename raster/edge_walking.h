// Edge walking: every interpolating filler first walks down the two chains of its polygon's edges and notes, row by
// row, the column and the attributes at either end. Spans then interpolate between the two ends.
//
// The chains are called left and right after the order of the vertices; which one lies left on the screen is not asked.
#pragma once

#include "host/drawn_rectangle.h"
#include "raster/span_values.h"

namespace kardeno {

// Rebuilt by every filler, for its own polygon. Rows that the polygon's chains do not cover hold stale values.
extern OutlineRow OutlineTable[scanlineCount];

// The rows of an outline: from the top vertex's to the bottom vertex's, half open.
struct OutlineExtent {
    i32 topVertex;
    i32 bottomVertex;
};

// The highest and the lowest vertex; of several on one row, the one with the lowest index.
OutlineExtent outlineExtent(const ScreenPolygon& polygon);

// Lays out one side of the outline, vertex a to vertex b, in one chain's half of the table.
template <class Values>
void walkEdge(const ScreenPolygon& polygon, i32 a, i32 b, OutlineSide OutlineRow::*chain)
{
    i32 y = polygon.scanY[a];
    if (y >= polygon.scanY[b]) return; // horizontal, or running up: covers no row of this chain
    const i32 yEnd = polygon.scanY[b] < scanlineCount ? polygon.scanY[b] : scanlineCount;

    // From one end of the integers to the other the difference wraps; the rows are walked all the same.
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

    // An outline that begins absurdly far above the table is brought near in one go, lest the walk take for ever.
    if (y < -scanlineCount) {
        const f64 skipped = -static_cast<f64>(scanlineCount) - y;
        x = stored(x + xStep * skipped);
        Values::forEach(
            [&]<class Value>() { value.*Value::place = stored(value.*Value::place + step.*Value::place * skipped); });
        y = -scanlineCount;
    }

    // Sums of f32 values, rounded at every row: the row's column and attributes depend on it.
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

// Lays out both chains of the polygon. `Values` is the list of what the filler interpolates.
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
