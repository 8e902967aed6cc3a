// The two fillers that interpolate a red, a green and a blue value, linearly on the screen, instead of a shade. They are
// the only readers of the colour scaling tables.
#pragma once

#include "interface/colour_tables.h"
#include "raster/textured_spans.h"

namespace kardeno {

using ColourValues = List<SpanRed, SpanGreen, SpanBlue>;
using ColouredTextureValues = List<SpanInvDepth, SpanTexU, SpanTexV, SpanRed, SpanGreen, SpanBlue>;

// The three channels along a span, 8.8; values and steps become integers at the span's start.
struct ChannelWalk {
    i32 red, green, blue;
    i32 redStep, greenStep, blueStep;

    explicit ChannelWalk(const SpanGradients& span)
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

// Gouraud spans: the top bits of each channel make the pixel.
template <class Format>
void drawGouraudSpan(SpanGradients* span, u16* pixels)
{
    constexpr u32 greenBits = Format::format == rgb555 ? 5 : 6;
    ChannelWalk channels(*span);
    for (i32 i = 0; i < span->count; ++i) {
        const u32 red = static_cast<u32>(channels.red >> 11) & 31;
        const u32 green = static_cast<u32>(channels.green >> (16 - greenBits)) & ((1u << greenBits) - 1);
        const u32 blue = static_cast<u32>(channels.blue >> 11) & 31;
        pixels[i] = static_cast<u16>((((red << greenBits) + green) << 5) + blue);
        channels.nextPixel();
    }
}

inline constexpr SpanRoutine gouraud[pixelFormatCount] = {drawGouraudSpan<Rgb555>, drawGouraudSpan<Rgb565>};

// A 16-bit texel whose channels are scaled by the interpolated ones. Three bytes of the texel hold its three fields in
// either pixel format; the tables, built for the frame buffer's format, pick the field's bits out of the byte.
struct ScaledTexel {
    using Texel = u16;
    ChannelWalk channels;
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

inline constexpr SpanRoutines colourScaledTexture = copied<Truncating, ScaledTexel, Opaque>;

void fillGouraud(const ScreenPolygon* polygon, u16* frameBuffer, u32 argument, u32 pitch);

} // namespace kardeno
