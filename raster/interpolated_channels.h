// Red, green and blue, interpolated linearly along a span, and the texels that are scaled by them.
#pragma once

#include "raster/colour_tables.h"
#include "raster/span_gradients.h"
#include "support/arithmetic.h"

namespace kardeno {

// The three channels along a span, in 8.8 fixed point. Their values and steps become integers at the span's start.
struct InterpolatedChannels {
    i32 red, green, blue;
    i32 redStep, greenStep, blueStep;

    explicit InterpolatedChannels(const SpanGradients& span)
        : red(fixed(span.start.colourR)), green(fixed(span.start.colourG)), blue(fixed(span.start.colourB)),
          redStep(fixed(span.step.colourR)), greenStep(fixed(span.step.colourG)), blueStep(fixed(span.step.colourB))
    {
    }

    // Packs a pixel from the top bits of the channels.
    template <PixelFormat format>
    u16 pixel() const
    {
        constexpr PixelLayout layout = pixelLayouts[format];
        return static_cast<u16>(fieldOf(layout.red, red) | fieldOf(layout.green, green) | fieldOf(layout.blue, blue));
    }

    void nextPixel()
    {
        red = wrappingSum(red, redStep);
        green = wrappingSum(green, greenStep);
        blue = wrappingSum(blue, blueStep);
    }

private:
    static i32 fixed(f32 value) { return truncated(value * 256.0); }

    // Places the top bits of a channel's 16-bit value in the channel's field. Bits above the 16 are cut off.
    static u32 fieldOf(const ChannelField& channel, i32 value)
    {
        return (static_cast<u32>(value >> (16 - channel.bits)) & channel.largest()) << channel.shift;
    }
};

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

} // namespace kardeno
