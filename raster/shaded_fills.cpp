#include "raster/shaded_fills.h"

#include "raster/packed_spans.h"

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

constinit const TexturedSpanRoutines plainLitTexture = copied<Rounding, LitTexel, Opaque>;
constinit const TexturedSpanRoutines plainColourKeyedLitTexture = copied<Rounding, LitTexel, IndexKeyed>;
constinit const TexturedSpanRoutines plainLitTextureHalfBlend = blended<Rounding, LitTexel, Opaque, HalfBlend>;
constinit const TexturedSpanRoutines plainColourKeyedLitHalfBlend =
    blended<Truncating, LitTexel, IndexZeroKeyed, HalfBlend>;
constinit const TexturedSpanRoutines plainLitTextureAdd = blended<Truncating, LitTexel, Opaque, SaturatingAdd>;

constinit const PlainSpanRoutines plainShadedCopy = {drawShadedSpan<Replace>, drawShadedSpan<Replace>};
constinit const PlainSpanRoutines plainShadedHalfBlend = {drawShadedSpan<HalfBlend<rgb555>>,
                                                          drawShadedSpan<HalfBlend<rgb565>>};

constinit const TexturedSpanRoutines litTexture = packedCopied<Rounding, LitTexel, Opaque>;
constinit const TexturedSpanRoutines colourKeyedLitTexture = packedCopied<Rounding, LitTexel, IndexKeyed>;
constinit const TexturedSpanRoutines litTextureHalfBlend = packedBlended<Rounding, LitTexel, Opaque, HalfBlend>;
constinit const TexturedSpanRoutines colourKeyedLitHalfBlend =
    packedBlended<Truncating, LitTexel, IndexZeroKeyed, HalfBlend>;
constinit const TexturedSpanRoutines litTextureAdd = packedBlended<Truncating, LitTexel, Opaque, SaturatingAdd>;

constinit const PlainSpanRoutines shadedCopy = {drawPackedShadedSpan<Replace>, drawPackedShadedSpan<Replace>};
constinit const PlainSpanRoutines shadedHalfBlend = {drawPackedShadedSpan<HalfBlend<rgb555>>,
                                                     drawPackedShadedSpan<HalfBlend<rgb565>>};

} // namespace kardeno
