// Perspective subdivision: values divided by depth are exact every 8 pixels, and stepped as integers in between.
#pragma once

#include "raster/span_gradients.h"
#include "support/arithmetic.h"

#include <assert.h>

namespace kardeno {

struct Truncating {
    static i32 toInteger(f64 value) { return truncated(value); }
};

// Differs from truncation by one step of 1/256 texel at the ends of blocks, and is cheaper.
struct Rounding {
    static i32 toInteger(f64 value) { return rounded(value); }
};

inline constexpr i32 blockLength = 8;

// Steps one or two values along a span. The division for the block after next is begun before a block is drawn:
//
//   pixel      0               8              16
//              at ---step----> target         (value, q: already here when the first block is drawn)
//
template <class Conversion, f32 Interpolants::*... slots>
class PerspectiveSubdivision {
public:
    static constexpr u32 size = sizeof...(slots);

    i32 at[size];   // the values at the current pixel, 8.8
    i32 step[size]; // to the next pixel

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

    // After 8 pixels, of which `remaining` are left: takes the exact values, which discards the stepping error.
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
    f64 q; // depth at the point that `value` belongs to

    void advance()
    {
        invDepth = stored(static_cast<f64>(invDepth) + invDepthStep8);
        for (u32 i = 0; i < size; ++i) value[i] = stored(static_cast<f64>(value[i]) + valueStep8[i]);
        q = 1.0 / invDepth;
    }

    // Starts at the old target and heads for the next. The shift rounds toward minus infinity.
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

// Draws a span in blocks of 8 and a remainder: draw(n) draws n pixels and moves the values along. The record's count is
// left at what the remainder was.
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
