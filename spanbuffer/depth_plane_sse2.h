// The SSE2 form of a plane's depth: both products are formed at once. They are exact, as all products of two f32 are in
// f64, and the sums are formed in the order of the plain form.
#pragma once

#include "spanbuffer/polygon_states.h"

#if defined(__SSE2__)
#include <emmintrin.h>

#define KARDENO_DEPTH_INSTRUCTIONS 1

namespace kardeno {

class PackedSamplePoint {
public:
    PackedSamplePoint(f64 x, f64 y) : point(_mm_set_pd(y, x)) {}

    f64 depthOf(const PolygonState& polygon) const
    {
        // The two steps lie side by side in the state.
        const __m128d bits = _mm_load_sd(reinterpret_cast<const f64*>(&polygon.invDepthStepX));
        const __m128d products = _mm_mul_pd(_mm_cvtps_pd(_mm_castpd_ps(bits)), point);
        return _mm_cvtsd_f64(_mm_add_sd(products, _mm_unpackhi_pd(products, products))) + polygon.invDepthOrigin;
    }

private:
    __m128d point;
};

} // namespace kardeno
#endif
