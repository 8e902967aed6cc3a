// The fillers of lit rows: every pixel's colour is looked up in the material's shade ramp. Untextured polygons interpolate
// the shade with perspective; textured ones linearly on the screen.
#pragma once

#include "raster/textured_spans.h"

namespace kardeno {

inline constexpr SpanRoutines litTexture = copied<Rounding, LitTexel, Opaque>;
inline constexpr SpanRoutines colourKeyedLitTexture = copied<Rounding, LitTexel, KeyedOut>;
inline constexpr SpanRoutines litTextureHalfBlend = blended<Rounding, LitTexel, Opaque, HalfBlend>;
inline constexpr SpanRoutines colourKeyedLitHalfBlend = blended<Truncating, LitTexel, IndexZeroKeyedOut, HalfBlend>;
inline constexpr SpanRoutines litTextureAdd = blended<Truncating, LitTexel, Opaque, SaturatingAdd>;

using ShadedValues = List<SpanInvDepth, SpanShadeOverDepth>;

// Untextured spans: the ramp's colour at each pixel's level.
template <class Blend>
void drawShadedSpan(SpanGradients* span, u16* pixels)
{
    const RampEntry* const ramp = span->ramp;
    ShadeWalk walk(*span);
    drawInBlocks(*span, walk, [&](i32 count) {
        for (; count > 0; --count, ++pixels) {
            const u32 level = static_cast<u32>(walk.at[0] >> 8) & (rampLevels - 1);
            *pixels = Blend::over(*pixels, static_cast<u16>(ramp[level] >> 16));
            walk.nextPixel();
        }
    });
}

inline constexpr SpanRoutine shadedHalfBlend[pixelFormatCount] = {drawShadedSpan<HalfBlend<Rgb555>>,
                                                                  drawShadedSpan<HalfBlend<Rgb565>>};

void fillShaded(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);
void fillShadedHalfBlend(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

} // namespace kardeno
