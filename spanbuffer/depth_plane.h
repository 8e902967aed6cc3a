// The plane of inverse depth of a polygon, over the columns of one row.
#pragma once

#include "spanbuffer/depth_plane_sse2.h"
#include "spanbuffer/polygon_states.h"
#include "support/arithmetic.h"

namespace kardeno {

// The depth of a polygon's plane at a point of the screen, in full precision. A larger value is nearer. This plain form
// defines the result on every machine.
inline f64 planeDepthPlain(const PolygonState& polygon, f64 x, f64 y)
{
    return static_cast<f64>(polygon.invDepthStepX) * x + static_cast<f64>(polygon.invDepthStepY) * y
           + polygon.invDepthOrigin;
}

// The x at which depths are compared where a polygon is entered at an edge.
// Intended: it lies one whole pixel right of the edge, not at it. The plain form defines the result.
inline f32 sampleColumnPlain(i32 edgeX)
{
    return stored(edgeX / 65536.0 + 1.0);
}

// The same with one rounding less to wait for: a division by a power of two does not care whether it comes before the
// rounding or after it.
inline f32 sampleColumn(i32 edgeX)
{
    constexpr i32 largest = 2147483647 - 65536; // up to which the sum fits
    if (edgeX > largest) return sampleColumnPlain(edgeX);
    return static_cast<f32>(edgeX + 65536) * (1.0f / 65536);
}

// A point at which depths are compared.
class PlainSamplePoint {
public:
    PlainSamplePoint(f64 columnX, f64 rowY) : x(columnX), y(rowY) {}
    f64 depthOf(const PolygonState& polygon) const { return planeDepthPlain(polygon, x, y); }

private:
    f64 x, y;
};

#if defined(KARDENO_DEPTH_INSTRUCTIONS)
using SamplePoint = PackedSamplePoint;
#else
using SamplePoint = PlainSamplePoint;
#endif

} // namespace kardeno
