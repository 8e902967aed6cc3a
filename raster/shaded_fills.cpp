#include "raster/shaded_fills.h"

#include "raster/textured_spans.h"

namespace kardeno {

namespace {

// Draws a span without a texture. The colour of a pixel is the ramp's entry for the light level there.
template <class Blend>
void drawShadedSpan(SpanGradients* span, u16* pixels)
{
    const RampEntry* const ramp = span->ramp;
    SubdividedShade shade(*span);
    drawInBlocks(*span, shade, [&](i32 count) {
        for (; count > 0; --count, ++pixels) {
            const u32 level = static_cast<u32>(shade.at[0] >> 8) & (rampLevels - 1);
            *pixels = Blend::over(*pixels, static_cast<u16>(ramp[level] >> 16));
            shade.nextPixel();
        }
    });
}

} // namespace

constinit const TexturedSpanRoutines litTexture = copied<Rounding, LitTexel, Opaque>;
constinit const TexturedSpanRoutines colourKeyedLitTexture = copied<Rounding, LitTexel, IndexKeyed>;
constinit const TexturedSpanRoutines litTextureHalfBlend = blended<Rounding, LitTexel, Opaque, HalfBlend>;
constinit const TexturedSpanRoutines colourKeyedLitHalfBlend = blended<Truncating, LitTexel, IndexZeroKeyed, HalfBlend>;
constinit const TexturedSpanRoutines litTextureAdd = blended<Truncating, LitTexel, Opaque, SaturatingAdd>;

constinit const PlainSpanRoutines shadedCopy = {drawShadedSpan<Replace>, drawShadedSpan<Replace>};
constinit const PlainSpanRoutines shadedHalfBlend = {drawShadedSpan<HalfBlend<rgb555>>,
                                                     drawShadedSpan<HalfBlend<rgb565>>};

} // namespace kardeno
