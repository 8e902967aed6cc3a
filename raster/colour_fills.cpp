#include "raster/colour_fills.h"

#include "raster/colour_tables.h"
#include "raster/textured_spans.h"

namespace kardeno {

namespace {

// The three channels along a span, in 8.8 fixed point. Their values and steps become integers at the span's start.
struct InterpolatedChannels {
    i32 red, green, blue;
    i32 redStep, greenStep, blueStep;

    explicit InterpolatedChannels(const SpanGradients& span)
        : red(fixed(span.start.colourR)), green(fixed(span.start.colourG)), blue(fixed(span.start.colourB)),
          redStep(fixed(span.step.colourR)), greenStep(fixed(span.step.colourG)), blueStep(fixed(span.step.colourB))
    {
    }

    void nextPixel()
    {
        red = wrappingSum(red, redStep);
        green = wrappingSum(green, greenStep);
        blue = wrappingSum(blue, blueStep);
    }

private:
    static i32 fixed(f32 value) { return truncated(value * 256.0); }
};

// Places the top bits of a channel's 16-bit value in the channel's field. Bits above the 16 are cut off.
u32 fieldOf(const ChannelField& channel, i32 value)
{
    return (static_cast<u32>(value >> (16 - channel.bits)) & channel.largest()) << channel.shift;
}

// Draws a Gouraud-shaded span, each pixel of which is packed from the top bits of the three channels.
template <PixelFormat format>
void drawGouraudSpan(SpanGradients* span, u16* pixels)
{
    constexpr PixelLayout pixel = pixelLayouts[format];
    InterpolatedChannels channels(*span);
    for (i32 i = 0; i < span->count; ++i) {
        pixels[i] = static_cast<u16>(fieldOf(pixel.red, channels.red) | fieldOf(pixel.green, channels.green)
                                     | fieldOf(pixel.blue, channels.blue));
        channels.nextPixel();
    }
}

// The colour of a 16-bit texel whose channels are scaled by the interpolated ones. In both pixel formats each field
// lies within one of three bytes of the texel: bits 8 to 15, 5 to 12 and 0 to 7. The tables, which are built for the
// frame buffer's format, pick the field out of the byte.
struct ScaledTexel {
    using Texel = u16;
    InterpolatedChannels channels;
    explicit ScaledTexel(const SpanGradients& span) : channels(span) {}
    u16 of(u32 texel) const
    {
        const u32 blue = (static_cast<u32>(channels.blue) & 0xff00) + (texel & 0xff);
        const u32 green = (static_cast<u32>(channels.green) & 0xff00) + ((texel >> 5) & 0xff);
        const u32 red = (static_cast<u32>(channels.red) & 0xff00) + (texel >> 8);
        const ColourScaleTables& tables = colourScaleTables;
        return static_cast<u16>(tables.blueScale[blue] + tables.greenScale[green] + tables.redScale[red]);
    }
    void nextPixel() { channels.nextPixel(); }
};

} // namespace

constinit const PlainSpanRoutines gouraudColour = {drawGouraudSpan<rgb555>, drawGouraudSpan<rgb565>};
constinit const TexturedSpanRoutines colourScaledTexture = copied<Truncating, ScaledTexel, Opaque>;

} // namespace kardeno
