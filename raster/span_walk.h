// The walk over a polygon's spans that all fillers share, and the scanline set-up of the interpolating fillers.
#pragma once

#include "raster/edge_walking.h"
#include "spanbuffer/span_pool.h"

#include <assert.h>

namespace kardeno {

// The rectangle in which pixels may be written. The frame driver sets it for the fillers, whose signature has no place
// for it. Spans lie inside it already; a filler that draws the whole outline of a polygon has to cut it to this
// rectangle.
extern DrawnRectangle drawnRectangle;

inline u16* pixelAt(u16* frameBuffer, u32 pitch, i32 x, i32 y)
{
    return frameBuffer + wrappingSum(wrappingProduct(y, static_cast<i32>(pitch)), x);
}

// Calls draw(span) for each span of the polygon, beginning with the one that was made last.
template <class Draw>
void forEachSpan(const ScreenPolygon& polygon, Draw draw)
{
    if (polygon.spanHead == -1) return;
    const Span* span = SpanPool.sorted() + polygon.spanHead;
    for (; !span->isLast; ++span) draw(*span);
    draw(*span);
}

// Scanline set-up: sets the start values, which belong to the row's left end, and the gradients along the row. A row
// without width has gradients of 0.
template <class Values>
void setUpRow(SpanGradients& span, const OutlineRow& row)
{
    const i32 width = wrappingDifference(row.right.x, row.left.x);
    const f32 inverse = width == 0 ? 0.0f : stored(1.0 / width);
    span.x = row.left.x;
    Values::forEach([&]<class Value>() { Value::setUpRow(span, row, inverse); });
}

// Moves the start values along the row to column x. The values are rounded at every move, and a span goes on from the
// values of the row's previous span.
template <class Values>
void advanceTo(SpanGradients& span, i32 x)
{
    if (x == span.x) return;
    const i32 columns = wrappingDifference(x, span.x);
    Values::forEach([&]<class Value>() { Value::advance(span, columns); });
    span.x = x;
}

// Draws all spans of a polygon with one inner routine. The caller sets those fields of `span` that are the same for the
// whole polygon.
template <class Values>
void fillSpans(const ScreenPolygon& polygon, u16* frameBuffer, u32 pitch, SpanRoutine routine, SpanGradients& span)
{
    if (polygon.spanHead == -1) return;
    walkEdges<Values>(polygon);

    const Span* previous = nullptr;
    forEachSpan(polygon, [&](const Span& visible) {
        assert(visible.y >= 0 && visible.y < scanlineCount);
        if (!previous || previous->y != visible.y) setUpRow<Values>(span, OutlineTable[visible.y]);
        previous = &visible;
        advanceTo<Values>(span, visible.x);
        span.count = visible.length;
        routine(&span, pixelAt(frameBuffer, pitch, visible.x, visible.y));
    });
}

} // namespace kardeno
