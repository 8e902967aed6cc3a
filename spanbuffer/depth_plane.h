// The plane of inverse depth of a polygon, over the columns of one row.
#pragma once

#include "spanbuffer/depth_plane_sse2.h"
#include "spanbuffer/polygon_states.h"

namespace kardeno {

// The depth of a polygon's plane at a point of the screen, in full precision. A larger value is nearer. This plain form
// defines the result on every machine.
inline f64 planeDepthPlain(const PolygonState& polygon, f64 x, f64 y)
{
    return static_cast<f64>(polygon.invDepthStepX) * x + static_cast<f64>(polygon.invDepthStepY) * y
           + polygon.invDepthOrigin;
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
