#include "raster/colour_fills.h"

#include "raster/packed_channels.h"

namespace kardeno {

namespace {

// Draws a Gouraud-shaded span, each pixel of which is packed from the top bits of the three channels.
template <PixelFormat format>
void drawGouraudSpan(SpanGradients* span, u16* pixels)
{
    InterpolatedChannels channels(*span);
    for (i32 i = 0; i < span->count; ++i) {
        pixels[i] = channels.pixel<format>();
        channels.nextPixel();
    }
}

} // namespace

constinit const PlainSpanRoutines plainGouraudColour = {drawGouraudSpan<rgb555>, drawGouraudSpan<rgb565>};
constinit const TexturedSpanRoutines plainColourScaledTexture = copied<Truncating, ScaledTexel, Opaque>;

constinit const PlainSpanRoutines gouraudColour = {drawPackedGouraudSpan<rgb555>, drawPackedGouraudSpan<rgb565>};
constinit const TexturedSpanRoutines colourScaledTexture = packedCopied<Truncating, ScaledTexel, Opaque>;

} // namespace kardeno
