// The outline walk: every interpolating filler first lays its polygon's two vertex chains out row by row, the column and
// the attributes at either end of each row. Spans then interpolate between the two ends.
//
// The chains are called left and right after the order of the vertices; which one lies left on the screen is not asked.
#pragma once

#include "geometry/screen_polygon.h"
#include "raster/span_gradients.h"
#include "support/arithmetic.h"
#include "support/list.h"

namespace kardeno {

inline constexpr i32 outlineRows = 4096;

struct OutlineSide {
    i32 x;
    Interpolants values;
};

struct OutlineRow {
    OutlineSide left;
    OutlineSide right;
};

// Rebuilt by every filler, for its own polygon. Rows that the polygon's chains do not cover hold stale values.
extern OutlineRow OutlineTable[outlineRows];

// One interpolated value: its array in the polygon, its place in the tables, and what a row and a span make of it.
template <f32 (ScreenPolygon::*polygonArray)[maxCorners], f32 Interpolants::*slot>
struct Interpolated {
    static constexpr auto values = polygonArray;
    static constexpr auto place = slot;

    // `inverse` is 1 / width of the row.
    static void setUpRow(SpanGradients& span, const OutlineRow& row, f32 inverse)
    {
        const f64 left = row.left.values.*slot;
        const f64 right = row.right.values.*slot;
        span.start.*slot = row.left.values.*slot;
        span.step.*slot = stored((right - left) * inverse);
        span.step8.*slot = stored(span.step.*slot * 8.0);
    }

    static void advance(SpanGradients& span, i32 columns)
    {
        span.start.*slot = stored(span.start.*slot + static_cast<f64>(span.step.*slot) * columns);
    }
};

struct SpanInvDepth : Interpolated<&ScreenPolygon::invDepth, &Interpolants::invDepth> {};
struct SpanTexU : Interpolated<&ScreenPolygon::texU, &Interpolants::texU> {};
struct SpanTexV : Interpolated<&ScreenPolygon::texV, &Interpolants::texV> {};
struct SpanShadeOverDepth : Interpolated<&ScreenPolygon::intensity, &Interpolants::intensity> {};
struct SpanRed : Interpolated<&ScreenPolygon::colourR, &Interpolants::colourR> {};
struct SpanGreen : Interpolated<&ScreenPolygon::colourG, &Interpolants::colourG> {};
struct SpanBlue : Interpolated<&ScreenPolygon::colourB, &Interpolants::colourB> {};

// The shade of textured rows: linear on the screen, and an integer from the row's left end on.
struct SpanShadeOnScreen {
    static constexpr auto values = &ScreenPolygon::intensity;
    static constexpr auto place = &Interpolants::intensity;

    static void setUpRow(SpanGradients& span, const OutlineRow& row, f32 inverse)
    {
        const f64 left = row.left.values.intensity;
        const f64 right = row.right.values.intensity;
        span.shade = truncated(left);
        span.shadeStep = truncated((right - left) * inverse);
    }

    static void advance(SpanGradients& span, i32 columns)
    {
        span.shade = wrappingSum(span.shade, wrappingProduct(span.shadeStep, columns));
    }
};

// The rows of an outline: from the top vertex's to the bottom vertex's, half open.
struct OutlineExtent {
    i32 topVertex;
    i32 bottomVertex;
};

// The highest and the lowest vertex; of several on one row, the one with the lowest index.
OutlineExtent outlineExtent(const ScreenPolygon& polygon);

// Lays out one side of the outline, vertex a to vertex b, in one chain's half of the table.
template <class Values>
void walkSide(const ScreenPolygon& polygon, i32 a, i32 b, OutlineSide OutlineRow::*chain)
{
    i32 y = polygon.scanY[a];
    if (y >= polygon.scanY[b]) return; // horizontal, or running up: covers no row of this chain
    const i32 yEnd = polygon.scanY[b] < outlineRows ? polygon.scanY[b] : outlineRows;

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
    if (y < -outlineRows) {
        const f64 skipped = -static_cast<f64>(outlineRows) - y;
        x = stored(x + xStep * skipped);
        Values::forEach(
            [&]<class Value>() { value.*Value::place = stored(value.*Value::place + step.*Value::place * skipped); });
        y = -outlineRows;
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
OutlineExtent walkOutline(const ScreenPolygon& polygon)
{
    const i32 count = polygon.vertexCount;
    const OutlineExtent extent = outlineExtent(polygon);

    for (i32 a = extent.topVertex; a != extent.bottomVertex;) {
        const i32 b = a + 1 < count ? a + 1 : 0;
        walkSide<Values>(polygon, a, b, &OutlineRow::left);
        a = b;
    }
    for (i32 a = extent.topVertex; a != extent.bottomVertex;) {
        const i32 b = a > 0 ? a - 1 : count - 1;
        walkSide<Values>(polygon, a, b, &OutlineRow::right);
        a = b;
    }
    return extent;
}

} // namespace kardeno
