// The packed forms of the inner routines: they draw eight pixels a step and leave what the plain routines leave. The
// plain ones, in raster/textured_spans.h and raster/shaded_fills.cpp, define the pixels. The policies are the same;
// here stands what each of them does to eight texels at once.
#pragma once

#include "raster/packed_blends.h"
#include "raster/packed_maps.h"
#include "raster/short_runs.h"

#include <type_traits>

namespace kardeno {

// Colours. of() returns the colour of the texel in a lane, scalar() the policy of the plain routines at the first lane.
template <class Colour>
struct PackedColour : Colour {
    using Colour::Colour;
    u16 of(u32 texel, u32) const { return Colour::of(texel); }
    void nextBlock() {}
    Colour scalar(const SpanGradients&) const { return *this; }
};

// Of a shade only the low half is looked at, which is what a lane holds.
template <>
struct PackedColour<LitTexel> {
    const RampEntry* ramp;
    u16x8 shades;
    u16x8 step8;
    u16x8 levels; // times 256

    explicit PackedColour(const SpanGradients& span) : ramp(span.ramp)
    {
        const u16x8 step = eightTimes(static_cast<u16>(span.shadeStep));
        shades = eightTimes(static_cast<u16>(span.shade)) + step * laneNumbers;
        step8 = step << 3;
        levels = shades & 0x3f00;
    }
    u16 of(u32 texel, u32 lane) const { return static_cast<u16>(ramp[levels[lane] + texel] >> 16); }
    void nextBlock()
    {
        shades += step8;
        levels = shades & 0x3f00;
    }
    LitTexel scalar(const SpanGradients& span) const
    {
        LitTexel colour(span);
        colour.shade = shades[0];
        return colour;
    }
};

// Drawing eight pixels. texel(lane) fetches the texel of a lane.
//
// Palette indices. An index and its colour would both have to be put into lanes, which takes longer than to choose
// pixel by pixel. The choice is made by masks: which pixels of a map are hidden, a processor cannot foretell.
template <class Key, class Blend>
struct PackedDrawing {
    template <class Fetch, class Colours>
    static void draw(const SpanGradients& span, u16* pixels, Fetch texel, const Colours& colours)
    {
        forEachLane([&](u32 lane) {
            const u32 index = texel(lane);
            const u32 there = pixels[lane];
            const u32 drawn = Blend::over(pixels[lane], colours.of(index, lane));
            const u32 hidden = 0u - static_cast<u32>(Key::hides(span, index));
            pixels[lane] = static_cast<u16>((there & hidden) | (drawn & ~hidden));
        });
    }
};

// The pixels that are there do not matter.
template <>
struct PackedDrawing<Opaque, Replace> {
    template <class Fetch, class Colours>
    static void draw(const SpanGradients&, u16* pixels, Fetch texel, const Colours& colours)
    {
        forEachLane([&](u32 lane) { pixels[lane] = colours.of(texel(lane), lane); });
    }
};

template <class Blend>
struct PackedDrawing<Opaque, Blend> {
    template <class Fetch, class Colours>
    static void draw(const SpanGradients&, u16* pixels, Fetch texel, const Colours& colours)
    {
        const u16x8 source = lanesOf([&](u32 lane) { return colours.of(texel(lane), lane); });
        storeLanes(pixels, PackedBlend<Blend>::over(loadedLanes(pixels), source));
    }
};

// A hidden pixel is written back as it was. The texels are the colours.
template <class Blend>
struct PackedDrawing<ColourKeyed, Blend> {
    template <class Fetch, class Colours>
    static void draw(const SpanGradients& span, u16* pixels, Fetch texel, const Colours&)
    {
        const u16x8 source = lanesOf([&](u32 lane) { return static_cast<u16>(texel(lane)); });
        const u16x8 hidden = std::bit_cast<u16x8>(source == eightTimes(static_cast<u16>(span.key)));
        const u16x8 there = loadedLanes(pixels);
        storeLanes(pixels, selected(hidden, there, PackedBlend<Blend>::over(there, source)));
    }
};

// The values as lanes, in the order of raster/short_runs.h.
inline f32x4 textureValues(const Interpolants& values)
{
    return f32x4{values.invDepth, values.texU, values.texV, 0};
}

inline f32x4 shadeValues(const Interpolants& values)
{
    return f32x4{values.invDepth, values.intensity, 0, 0};
}

// Draws a textured span. The division at the end of the next block is begun before the texels of a block are fetched.
// Everything is inlined: with calls in its loop the routine would be slower than the plain one.
template <class Map, class Colour, class Key, class Blend>
[[gnu::flatten]] void drawPackedTexturedSpan(SpanGradients* span, u16* pixels)
{
    using Texel = typename Colour::Texel;
    assert(span->count >= 0);
    i32 count = span->count;
    const ShortTexturedRun<Map, Colour, Key, Blend> shortRun(*span);
    PackedTextureSubdivision<typename Map::Conversion> uv(textureValues(span->start), textureValues(span->step8));
    if (count < blockLength) return shortRun.draw(uv.at, uv.step(), Colour(*span), count, pixels);

    const Texel* const texels = texelsOf<Texel>(*span->texture);
    const PackedMap<Map> map(*span->texture);
    PackedColour<Colour> colour(*span);
    do {
        const auto index = map.indices(uv.at, uv.step());
        uv.nextBlock();
        const auto texel = [&](u32 lane) { return static_cast<u32>(texels[index[lane]]); };
        PackedDrawing<Key, Blend>::draw(*span, pixels, texel, colour);
        colour.nextBlock();
        pixels += blockLength;
        count -= blockLength;
    } while (count >= blockLength);
    span->count = count;
    shortRun.draw(uv.at, uv.step(), colour.scalar(*span), count, pixels);
}

// Draws a span without a texture.
template <class Blend>
[[gnu::flatten]] void drawPackedShadedSpan(SpanGradients* span, u16* pixels)
{
    assert(span->count >= 0);
    i32 count = span->count;
    const RampEntry* const ramp = span->ramp;
    PackedShadeSubdivision shade(shadeValues(span->start), shadeValues(span->step8));
    for (; count >= blockLength; count -= blockLength, pixels += blockLength) {
        const u16x8 steps = eightTimes(static_cast<u16>(shade.step())) * laneNumbers;
        const u16x8 shades = eightTimes(static_cast<u16>(shade.at)) + steps;
        const StoredLanes levels((shades >> 8) & static_cast<u16>(rampLevels - 1));
        shade.nextBlock();
        const auto colourOf = [&](u32 lane) { return static_cast<u16>(ramp[levels[lane]] >> 16); };
        if constexpr (std::is_same_v<Blend, Replace>)
            forEachLane([&](u32 lane) { pixels[lane] = colourOf(lane); });
        else
            storeLanes(pixels, PackedBlend<Blend>::over(loadedLanes(pixels), lanesOf(colourOf)));
    }
    ShortShadedRun<Blend>(*span).draw(shade.at, shade.step(), count, pixels);
    span->count = count;
}

// The tables, made as those of the plain routines are.
template <class Conversion, class Colour, class Key>
inline constexpr TexturedSpanRoutines packedCopied = {
    .anyMap = {drawPackedTexturedSpan<AnyMap, Colour, Key, Replace>,
               drawPackedTexturedSpan<AnyMap, Colour, Key, Replace>},
    .map256x256 = {drawPackedTexturedSpan<Map256x256<Conversion>, Colour, Key, Replace>,
                   drawPackedTexturedSpan<Map256x256<Conversion>, Colour, Key, Replace>},
    .keyOf = Key::keyOf,
};

template <class Conversion, class Colour, class Key, template <PixelFormat> class Blend>
inline constexpr TexturedSpanRoutines packedBlended = {
    .anyMap = {drawPackedTexturedSpan<AnyMap, Colour, Key, Blend<rgb555>>,
               drawPackedTexturedSpan<AnyMap, Colour, Key, Blend<rgb565>>},
    .map256x256 = {drawPackedTexturedSpan<Map256x256<Conversion>, Colour, Key, Blend<rgb555>>,
                   drawPackedTexturedSpan<Map256x256<Conversion>, Colour, Key, Blend<rgb565>>},
    .keyOf = Key::keyOf,
};

} // namespace kardeno
