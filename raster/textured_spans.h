// A textured span is four choices, each a small policy:
//   Map     how the map is addressed, and how its coordinates are rounded
//   Colour  what colour a texel is; it may carry a value along the span
//   Key     which texels stay undrawn
//   Blend   how the colour meets the pixel
// A routine is taken from a table once a polygon: no span asks what kind of map or frame buffer it has.
#pragma once

#include "raster/pixel_blends.h"
#include "raster/span_walk.h"
#include "raster/texture_maps.h"

namespace kardeno {

// Colours. 16-bit texels are pixels already.
struct TexelItself {
    using Texel = u16;
    explicit TexelItself(const SpanGradients&) {}
    u16 of(u32 texel) const { return static_cast<u16>(texel); }
    void nextPixel() {}
};

// Palette indices, at the ramp's brightest level.
struct FullyBright {
    using Texel = u8;
    const RampEntry* brightest;
    explicit FullyBright(const SpanGradients& span) : brightest(span.ramp + (rampLevels - 1) * paletteSize) {}
    u16 of(u32 texel) const { return static_cast<u16>(brightest[texel] >> 16); }
    void nextPixel() {}
};

// Palette indices, at the level of a shade that changes linearly along the span. The mask is the level times 256.
struct LitTexel {
    using Texel = u8;
    const RampEntry* ramp;
    i32 shade;
    i32 shadeStep;
    explicit LitTexel(const SpanGradients& span) : ramp(span.ramp), shade(span.shade), shadeStep(span.shadeStep) {}
    u16 of(u32 texel) const { return static_cast<u16>(ramp[(static_cast<u32>(shade) & 0x3f00) + texel] >> 16); }
    void nextPixel() { shade = wrappingSum(shade, shadeStep); }
};

// Keys. A hidden pixel is left as it was; the coordinates move on all the same.
struct Opaque {
    static bool hides(const SpanGradients&, u32) { return false; }
};
struct KeyedOut {
    static bool hides(const SpanGradients& span, u32 texel) { return texel == span.key; }
};
struct IndexZeroKeyedOut {
    static bool hides(const SpanGradients&, u32 texel) { return texel == 0; }
};

template <class Map, class Colour, class Key, class Blend>
void drawTexturedSpan(SpanGradients* span, u16* pixels)
{
    using Texel = typename Colour::Texel;
    const Texel* const texels = texelsOf<Texel>(*span->texture);
    const Map map(*span->texture);
    Colour colour(*span);
    typename Map::Walk walk(*span);

    drawInBlocks(*span, walk, [&](i32 count) {
        for (; count > 0; --count, ++pixels) {
            const u32 texel = texels[map.indexOf(walk.at[0], walk.at[1])];
            if (!Key::hides(*span, texel)) *pixels = Blend::over(*pixels, colour.of(texel));
            walk.nextPixel();
            colour.nextPixel();
        }
    });
}

// The inner routines of one filler: for any map and for a 256 x 256 one, in both pixel formats. Fillers that do not blend
// have the same routine for both.
struct SpanRoutines {
    SpanRoutine anyMap[pixelFormatCount];
    SpanRoutine squareMap[pixelFormatCount];

    SpanRoutine choose(const TextureImage& image, PixelFormat format) const
    {
        return image.is256x256 ? squareMap[format] : anyMap[format];
    }
};

template <class Conversion, class Colour, class Key>
inline constexpr SpanRoutines copied = {
    .anyMap = {drawTexturedSpan<AnyMap, Colour, Key, Replace>, drawTexturedSpan<AnyMap, Colour, Key, Replace>},
    .squareMap = {drawTexturedSpan<SquareMap<Conversion>, Colour, Key, Replace>,
                  drawTexturedSpan<SquareMap<Conversion>, Colour, Key, Replace>},
};

template <class Conversion, class Colour, class Key, template <class> class Blend>
inline constexpr SpanRoutines blended = {
    .anyMap = {drawTexturedSpan<AnyMap, Colour, Key, Blend<Rgb555>>,
               drawTexturedSpan<AnyMap, Colour, Key, Blend<Rgb565>>},
    .squareMap = {drawTexturedSpan<SquareMap<Conversion>, Colour, Key, Blend<Rgb555>>,
                  drawTexturedSpan<SquareMap<Conversion>, Colour, Key, Blend<Rgb565>>},
};

// Which field of the map a filler's key is.
struct NoKey {
    static u32 of(const TextureMap&) { return 0; }
};
struct ColourKey {
    static u32 of(const TextureMap& map) { return map.transparentColour; }
};
struct IndexKey {
    static u32 of(const TextureMap& map) { return map.transparentIndex; }
};

using UnlitValues = List<SpanInvDepth, SpanTexU, SpanTexV>;
using LitValues = List<SpanInvDepth, SpanTexU, SpanTexV, SpanShadeOnScreen>;

// What the material gives to every span of a polygon.
template <class Key>
SpanGradients texturedSpan(const SceneMaterial& material)
{
    SpanGradients span; // the set-up of each row fills in the rest
    span.texture = material.textureMap->image;
    span.ramp = material.renderPrivate->shadeRamp;
    span.key = Key::of(*material.textureMap);
    return span;
}

// The span filler of one set of inner routines.
template <class Values, const SpanRoutines& routines, class Key = NoKey>
void fillTextured(const ScreenPolygon* polygon, u16* frameBuffer, u32, u32 pitch)
{
    SpanGradients span = texturedSpan<Key>(*polygon->material);
    const SpanRoutine routine = routines.choose(*span.texture, fillerFormat(*hostContext));
    fillSpans<Values>(*polygon, frameBuffer, pitch, routine, span);
}

} // namespace kardeno
