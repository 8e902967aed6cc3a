// The packed forms of the perspective subdivision: interpolated values stand side by side in lanes, and the divisions
// at both ends of a block are made together. raster/perspective_subdivision.h defines what the values are.
#pragma once

#include "raster/perspective_subdivision.h"
#include "support/lanes.h"

namespace kardeno {

// Converts the lower two lanes to integers.
template <class Conversion>
i32x4 toIntegers(f64x2 values);
template <>
inline i32x4 toIntegers<Truncating>(f64x2 values)
{
    return truncatedLanes(values);
}
template <>
inline i32x4 toIntegers<Rounding>(f64x2 values)
{
    return roundedLanes(values);
}

// The depths 1 / invDepth of two points, whose inverse depths are the first lanes.
inline f64x2 depthsOf(f32x4 a, f32x4 b)
{
    return 1.0 / widened(__builtin_shufflevector(a, b, 0, 4, 0, 4));
}

// Steps u and v along a span. The lanes of the values are { invDepth, u, v, not looked at }, those of the integers
// { u, v, -, - }. A sum of two f32 that is rounded once to f32 is the same whether it was formed in f64 or in f32.
template <class Conversion>
class PackedTextureSubdivision {
public:
    i32x4 at; // u and v at the current block's first pixel, in 8.8 fixed point

    PackedTextureSubdivision(f32x4 start, f32x4 step8) : value(start + step8), valueStep8(step8)
    {
        const f64x2 depths = depthsOf(start, value);
        at = exact(start, depths[0]);
        target = exact(value, depths[1]);
    }

    // What u and v change by from pixel to pixel of the block. The shift rounds toward minus infinity.
    i32x4 step() const { return wrappingDifference(target, at) >> 3; }

    void nextBlock()
    {
        at = target;
        value += valueStep8;
        target = exact(value, 1.0 / static_cast<f64>(value[0]));
    }

private:
    f32x4 value; // at the end of the block
    f32x4 valueStep8;
    i32x4 target; // u and v at the end of the block

    static i32x4 exact(f32x4 value, f64 depth)
    {
        return toIntegers<Conversion>(widened(__builtin_shufflevector(value, value, 1, 2, 1, 2)) * depth);
    }
};

// Steps the shade along a span. The lanes of the values are { invDepth, intensity, not looked at, not looked at }.
class PackedShadeSubdivision {
public:
    i32 at; // the shade at the current block's first pixel, in 8.8 fixed point

    PackedShadeSubdivision(f32x4 start, f32x4 step8) : value(start + step8), valueStep8(step8)
    {
        const f64x2 shades = widened(__builtin_shufflevector(start, value, 1, 5, 1, 5));
        const i32x4 ends = truncatedLanes(shades * depthsOf(start, value));
        at = ends[0];
        target = ends[1];
    }

    i32 step() const { return wrappingDifference(target, at) >> 3; }

    void nextBlock()
    {
        at = target;
        value += valueStep8;
        target = truncated(static_cast<f64>(value[1]) * (1.0 / static_cast<f64>(value[0])));
    }

private:
    f32x4 value;
    f32x4 valueStep8;
    i32 target;
};

} // namespace kardeno
