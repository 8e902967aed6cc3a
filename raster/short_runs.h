// Runs of 1 to 7 pixels, which have no whole block. They are drawn from values and steps in registers, for a filler
// that makes no record of such a run. The pixels are those that the inner routines of raster/textured_spans.h and
// raster/shaded_fills.cpp draw when the record's step per 8 pixels is 8 times its step.
//
// Lanes of a textured run's values: { inverse depth, u, v, not looked at }
// Lanes of a shaded run's values:   { inverse depth, intensity over depth, not looked at, not looked at }
#pragma once

#include "raster/packed_subdivision.h"
#include "raster/textured_spans.h"

#include <type_traits>

namespace kardeno {

// The values 8 pixels on, of which a multiplication by 8 rounds nothing off.
inline f32x4 eightPixelsOf(f32x4 step)
{
    return step * 8.0f;
}

template <class Map, class Colour, class Key, class Blend>
class ShortTexturedRun {
public:
    // Of the span only what is the same for the whole polygon is read: the texture, the ramp and the key.
    explicit ShortTexturedRun(const SpanGradients& polygon)
        : span(polygon), texels(texelsOf<Texel>(*polygon.texture)), map(*polygon.texture)
    {
    }

    // Draws a run of one pixel, which needs no step.
    void one(f32x4 start, i32 shade, u16* pixels) const
    {
        const f64x2 coordinates = widened(__builtin_shufflevector(start, start, 1, 2, 1, 2));
        const i32x4 at = toIntegers<Conversion>(coordinates * (1.0 / static_cast<f64>(start[0])));
        draw(at, i32x4{}, colourAt(shade, 0), 1, pixels);
    }

    // Draws a run of 1 to 7 pixels.
    void few(f32x4 start, f32x4 step, i32 shade, i32 shadeStep, i32 count, u16* pixels) const
    {
        const PackedTextureSubdivision<Conversion> uv(start, eightPixelsOf(step));
        draw(uv.at, uv.step(), colourAt(shade, shadeStep), count, pixels);
    }

    // Draws pixels from the given integers on, of which { u, v } are the first two lanes.
    void draw(i32x4 at, i32x4 step, Colour colour, i32 count, u16* pixels) const
    {
        i32 u = at[0], v = at[1];
        const i32 uStep = step[0], vStep = step[1];
        for (; count > 0; --count, ++pixels) {
            const u32 texel = texels[map.indexOf(u, v)];
            if (!Key::hides(span, texel)) *pixels = Blend::over(*pixels, colour.of(texel));
            u = wrappingSum(u, uStep);
            v = wrappingSum(v, vStep);
            colour.nextPixel();
        }
    }

private:
    using Texel = typename Colour::Texel;
    using Conversion = typename Map::Conversion;

    const SpanGradients& span;
    const Texel* texels;
    Map map;

    Colour colourAt(i32 shade, i32 shadeStep) const
    {
        Colour colour(span);
        if constexpr (std::is_same_v<Colour, LitTexel>) {
            colour.shade = shade;
            colour.shadeStep = shadeStep;
        }
        return colour;
    }
};

template <class Blend>
class ShortShadedRun {
public:
    explicit ShortShadedRun(const SpanGradients& polygon) : ramp(polygon.ramp) {}

    void one(f32x4 start, i32, u16* pixels) const
    {
        draw(truncated(static_cast<f64>(start[1]) * (1.0 / static_cast<f64>(start[0]))), 0, 1, pixels);
    }

    void few(f32x4 start, f32x4 step, i32, i32, i32 count, u16* pixels) const
    {
        const PackedShadeSubdivision shade(start, eightPixelsOf(step));
        draw(shade.at, shade.step(), count, pixels);
    }

    void draw(i32 shade, i32 shadeStep, i32 count, u16* pixels) const
    {
        for (; count > 0; --count, ++pixels) {
            const u32 level = static_cast<u32>(shade >> 8) & (rampLevels - 1);
            *pixels = Blend::over(*pixels, static_cast<u16>(ramp[level] >> 16));
            shade = wrappingSum(shade, shadeStep);
        }
    }

private:
    const RampEntry* ramp;
};

// The runs of the opaque fillers, of which a scene has the most.
using ShortTextureCopy = ShortTexturedRun<Map256x256<Rounding>, TexelItself, Opaque, Replace>;
using ShortPalettisedCopy = ShortTexturedRun<Map256x256<Truncating>, FullyBright, Opaque, Replace>;
using ShortLitTexture = ShortTexturedRun<Map256x256<Rounding>, LitTexel, Opaque, Replace>;
using ShortShadedCopy = ShortShadedRun<Replace>;

} // namespace kardeno
