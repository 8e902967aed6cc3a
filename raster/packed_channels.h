// The packed forms of what raster/colour_fills.cpp interpolates: eight pixels of the three channels at once.
#pragma once

#include "raster/interpolated_channels.h"
#include "raster/packed_spans.h"

namespace kardeno {

// One channel at eight pixels. Only the low halves of the values are looked at, which is what the lanes hold.
struct PackedChannel {
    u16x8 values;
    u16x8 step8;

    PackedChannel(i32 start, i32 step)
        : values(eightTimes(static_cast<u16>(start)) + eightTimes(static_cast<u16>(step)) * laneNumbers),
          step8(eightTimes(static_cast<u16>(static_cast<u32>(step) << 3)))
    {
    }

    u16x8 in(const ChannelField& field) const
    {
        return (values >> static_cast<u16>(16 - field.bits)) << static_cast<u16>(field.shift);
    }
};

struct PackedChannels {
    PackedChannel red, green, blue;

    explicit PackedChannels(const InterpolatedChannels& channels)
        : red(channels.red, channels.redStep), green(channels.green, channels.greenStep),
          blue(channels.blue, channels.blueStep)
    {
    }

    template <PixelFormat format>
    u16x8 pixels() const
    {
        constexpr PixelLayout layout = pixelLayouts[format];
        return red.in(layout.red) | green.in(layout.green) | blue.in(layout.blue);
    }

    void nextBlock()
    {
        red.values += red.step8;
        green.values += green.step8;
        blue.values += blue.step8;
    }
};

// The colours of texels that are scaled by the channels.
template <>
struct PackedColour<ScaledTexel> {
    PackedChannels channels;
    StoredLanes red, green, blue; // the intensities of the current block, times 256

    explicit PackedColour(const SpanGradients& span)
        : channels(InterpolatedChannels(span)), red(channels.red.values & 0xff00),
          green(channels.green.values & 0xff00), blue(channels.blue.values & 0xff00)
    {
    }
    u16 of(u32 texel, u32 lane) const
    {
        const ColourScaleTables& tables = colourScaleTables;
        return static_cast<u16>(tables.blueScale[blue[lane] + (texel & 0xff)]
                                + tables.greenScale[green[lane] + ((texel >> 5) & 0xff)]
                                + tables.redScale[red[lane] + (texel >> 8)]);
    }
    void nextBlock()
    {
        channels.nextBlock();
        red = StoredLanes(channels.red.values & 0xff00);
        green = StoredLanes(channels.green.values & 0xff00);
        blue = StoredLanes(channels.blue.values & 0xff00);
    }
    ScaledTexel scalar(const SpanGradients& span) const
    {
        ScaledTexel colour(span);
        colour.channels.red = channels.red.values[0];
        colour.channels.green = channels.green.values[0];
        colour.channels.blue = channels.blue.values[0];
        return colour;
    }
};

// Draws a Gouraud-shaded span. The count stays, as the plain routine leaves it.
template <PixelFormat format>
[[gnu::flatten]] void drawPackedGouraudSpan(SpanGradients* span, u16* pixels)
{
    InterpolatedChannels channels(*span);
    i32 count = span->count;
    if (count < blockLength) {
        for (; count > 0; --count, channels.nextPixel()) *pixels++ = channels.pixel<format>();
        return;
    }
    PackedChannels packed(channels);
    for (; count >= blockLength; count -= blockLength, pixels += blockLength, packed.nextBlock()) {
        storeLanes(pixels, packed.pixels<format>());
    }
    const StoredLanes rest(packed.pixels<format>());
    for (u32 i = 0; i < static_cast<u32>(count); ++i) pixels[i] = static_cast<u16>(rest[i]);
}

} // namespace kardeno
