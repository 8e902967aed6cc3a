// Perspective subdivision. Values that are interpolated divided by depth are made perspective-correct every 8 pixels,
// by a division, and are stepped as integers in between.
#pragma once

#include "raster/span_gradients.h"
#include "support/arithmetic.h"

#include <assert.h>

namespace kardeno {

struct Truncating {
    static i32 toInteger(f64 value) { return truncated(value); }
};

// Rounding is cheaper than truncation. It differs from it by at most 1/256 texel at the ends of blocks.
struct Rounding {
    static i32 toInteger(f64 value) { return rounded(value); }
};

inline constexpr i32 blockLength = 8;

// Steps one or two values along a span. The division at the end of the next block is begun before a block is drawn, so
// that it runs while the pixels are drawn. This is the state while the first block of a longer span is drawn:
//
//   pixel      0               8              16
//              at ---step----> target         value, q
//
template <class Conversion, f32 Interpolants::*... slots>
class PerspectiveSubdivision {
public:
    static constexpr u32 size = sizeof...(slots);

    i32 at[size];   // the values at the current pixel, in 8.8 fixed point
    i32 step[size]; // what they change by from pixel to pixel

    explicit PerspectiveSubdivision(const SpanGradients& span)
        : at(), step(), value{span.start.*slots...}, valueStep8{span.step8.*slots...}, target(),
          invDepth(span.start.invDepth), invDepthStep8(span.step8.invDepth), q(1.0 / span.start.invDepth)
    {
        for (u32 i = 0; i < size; ++i) target[i] = Conversion::toInteger(value[i] * q);
        advance();
        aim();
        if (span.count > blockLength) advance();
    }

    void nextPixel()
    {
        for (u32 i = 0; i < size; ++i) at[i] = wrappingSum(at[i], step[i]);
    }

    // Goes on to the next block of a span that has `remaining` pixels left. The values become exact again, which
    // discards the error of the integer steps.
    void nextBlock(i32 remaining)
    {
        aim();
        if (remaining > blockLength) advance();
    }

private:
    f32 value[size];
    f32 valueStep8[size];
    i32 target[size]; // the exact values at the end of the block
    f32 invDepth;
    f32 invDepthStep8;
    f64 q; // the depth, 1 / invDepth, at the pixel that `value` belongs to

    // Moves `value` on by 8 pixels.
    void advance()
    {
        invDepth = stored(static_cast<f64>(invDepth) + invDepthStep8);
        for (u32 i = 0; i < size; ++i) value[i] = stored(static_cast<f64>(value[i]) + valueStep8[i]);
        q = 1.0 / invDepth;
    }

    // Starts at the old target and aims at the values 8 pixels on. The shift rounds the step toward minus infinity.
    void aim()
    {
        for (u32 i = 0; i < size; ++i) {
            at[i] = target[i];
            target[i] = Conversion::toInteger(value[i] * q);
            step[i] = wrappingDifference(target[i], at[i]) >> 3;
        }
    }
};

template <class Conversion>
using SubdividedTexture = PerspectiveSubdivision<Conversion, &Interpolants::texU, &Interpolants::texV>;
using SubdividedShade = PerspectiveSubdivision<Truncating, &Interpolants::intensity>;

// Draws a span in blocks of 8 pixels and a remainder. draw(n) draws n pixels and moves the values along. Afterwards the
// span's count is the length of the remainder.
template <class Values, class Draw>
void drawInBlocks(SpanGradients& span, Values& values, Draw draw)
{
    assert(span.count >= 0);
    while (span.count >= blockLength) {
        draw(blockLength);
        span.count -= blockLength;
        values.nextBlock(span.count);
    }
    draw(span.count);
}

} // namespace kardeno
