#include "raster/colour_fills.h"

#include "raster/colour_tables.h"
#include "raster/textured_spans.h"

namespace kardeno {

namespace {

// The three channels along a span, 8.8; values and steps become integers at the span's start.
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

// The field of a channel from the top bits of its 16-bit value; what lies above the 16 bits is cut off.
u32 fieldOf(const ChannelField& channel, i32 value)
{
    return (static_cast<u32>(value >> (16 - channel.bits)) & channel.largest()) << channel.shift;
}

// Gouraud spans: the top bits of each channel make the pixel.
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

// A 16-bit texel whose channels are scaled by the interpolated ones. Three bytes of the texel hold its three fields in
// either pixel format; the tables, built for the frame buffer's format, pick the field's bits out of the byte.
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
