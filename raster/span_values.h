// The values that fillers interpolate along spans. Each value knows its array in the polygon and its place in
// Interpolants, and sets itself up for a row and for a span. Which values a filler needs follows from the vertex
// format.
#pragma once

#include "geometry/vertex_formats.h"
#include "raster/span_gradients.h"
#include "support/arithmetic.h"
#include "support/list.h"

#include <type_traits>

namespace kardeno {

// One end of a polygon's row: the column and the attributes there.
struct OutlineSide {
    i32 x;
    Interpolants values;
};

struct OutlineRow {
    OutlineSide left;
    OutlineSide right;
};

// A value that is interpolated in floating point.
template <f32 (ScreenPolygon::*polygonArray)[maxCorners], f32 Interpolants::*slot>
struct Interpolated {
    static constexpr auto values = polygonArray;
    static constexpr auto place = slot;

    // Sets the value at the row's left end and its gradients. `inverse` is 1 / width of the row.
    static void setUpRow(SpanGradients& span, const OutlineRow& row, f32 inverse)
    {
        const f64 left = row.left.values.*slot;
        const f64 right = row.right.values.*slot;
        span.start.*slot = row.left.values.*slot;
        span.step.*slot = stored((right - left) * inverse);
        span.step8.*slot = stored(span.step.*slot * 8.0);
    }

    // Moves the start value along the row.
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

// The shade of textured polygons is linear on the screen. It becomes an integer at the row's left end.
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

// The value that a span interpolates for each attribute of the vertices. These are declared for their types only and
// are never called.
SpanTexU spanValueOf(TexU);
SpanTexV spanValueOf(TexV);
SpanShadeOverDepth spanValueOf(ShadeOverDepth);
SpanShadeOnScreen spanValueOf(ShadeOnScreen);
SpanRed spanValueOf(Red);
SpanGreen spanValueOf(Green);
SpanBlue spanValueOf(Blue);

template <class Attributes>
struct SpanValueList;
template <class... Attribute>
struct SpanValueList<List<Attribute...>> {
    // When an attribute is divided by depth, the inverse depth is interpolated too, to recover the attribute from it.
    static constexpr bool perspective = (Attribute::dividedByDepth || ...);
    using Type = std::conditional_t<perspective, List<SpanInvDepth, decltype(spanValueOf(Attribute{}))...>,
                                    List<decltype(spanValueOf(Attribute{}))...>>;
};

// The list of values that the fillers of a vertex format interpolate along their spans.
template <class Format>
using SpanValues = typename SpanValueList<typename Format::Attributes>::Type;

} // namespace kardeno
