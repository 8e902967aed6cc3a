#include "interface/shade_ramp.h"

#include "host/pixel_format.h"
#include "support/arithmetic.h"

#include <assert.h>

namespace kardeno {

namespace {

constexpr i32 levels = i32{rampLevels};

// One channel of the material's four colours.
struct ChannelColours {
    i32 ambient, diffuse, specular, tint;
};

struct RampColours {
    ChannelColours red, green, blue;
};

RampColours coloursOf(const SceneMaterial& material)
{
    const auto channel = [&](u8 MaterialColour::*member) {
        return ChannelColours{material.ambientColour.*member, material.diffuseColour.*member,
                              material.specularColour.*member, material.tintColour.*member};
    };
    return {channel(&MaterialColour::red), channel(&MaterialColour::green), channel(&MaterialColour::blue)};
}

// The highlight reaches from the level `first` to the top of the ramp and grows by `step` per level.
struct Highlight {
    i32 first; // may be below 0, for a negative shininess, or beyond the top level, for one of 115 or more
    i32 step;
};

Highlight highlightOf(const SceneMaterial& material)
{
    const i32 narrowing = wrappingProduct(material.shininess, 28) / 100;
    const i32 count = wrappingDifference(32, narrowing);
    if (count <= 0) return {.first = levels, .step = 0};
    return {.first = wrappingDifference(levels, count),
            .step = wrappingProduct(material.specularLevel, 256) / wrappingProduct(count, 100)};
}

// Returns what the highlight adds to a channel at a level. All sums and products wrap; the shift is arithmetic.
i32 highlightAt(const Highlight& highlight, i32 level, i32 specular)
{
    if (level < highlight.first) return 0;
    const i32 distance = wrappingDifference(level, highlight.first);
    return wrappingProduct(wrappingProduct(distance, highlight.step), specular) >> 8;
}

// Returns a channel of a material without a texture at a level, without the highlight.
i32 plainChannel(i32 level, const ChannelColours& colours)
{
    return (((level * colours.diffuse * colours.tint * 3) >> 14) + colours.ambient) >> 2;
}

// Returns a channel of a palette entry at a level, without the highlight. The palette takes the place of the diffuse
// colour, and the ambient colour has no part in it.
i32 texturedChannel(i32 level, const ChannelColours& colours, i32 palette)
{
    return (((level * colours.tint) >> 8) * palette) >> 6;
}

u32 clamped(i32 channel)
{
    return channel < 0 ? 0u : channel > 255 ? 255u : static_cast<u32>(channel);
}

// Packs three channels, clamped to 0 to 255, into a pixel in the upper half of a ramp entry.
RampEntry packed(PixelFormat format, i32 red, i32 green, i32 blue)
{
    const PixelLayout& pixel = pixelLayouts[format];
    return (pixel.red.packed(clamped(red)) | pixel.green.packed(clamped(green)) | pixel.blue.packed(clamped(blue)))
           << 16;
}

void fillPlainRamp(const SceneMaterial& material, PixelFormat format)
{
    const RampColours colours = coloursOf(material);
    const Highlight highlight = highlightOf(material);
    const auto channelAt = [&](i32 level, const ChannelColours& channel) {
        return wrappingSum(plainChannel(level, channel), highlightAt(highlight, level, channel.specular));
    };
    for (i32 level = 0; level < levels; ++level) {
        material.renderPrivate->shadeRamp[level] = packed(
            format, channelAt(level, colours.red), channelAt(level, colours.green), channelAt(level, colours.blue));
    }
}

void fillTexturedRamp(const SceneMaterial& material, PixelFormat format)
{
    const RampColours colours = coloursOf(material);
    const Highlight highlight = highlightOf(material);
    const auto channelAt = [&](i32 level, const ChannelColours& channel, i32 palette) {
        return wrappingSum(texturedChannel(level, channel, palette), highlightAt(highlight, level, channel.specular));
    };
    RampEntry* entry = material.renderPrivate->shadeRamp;
    for (i32 level = 0; level < levels; ++level) {
        const u8* palette = material.textureMap->palette;
        for (u32 i = 0; i < paletteSize; ++i, palette += 4) {
            *entry++ = packed(format, channelAt(level, colours.red, palette[2]),
                              channelAt(level, colours.green, palette[1]), channelAt(level, colours.blue, palette[0]));
        }
    }
}

} // namespace

bool buildShadeRamp(HostContext& context, SceneMaterial& material)
{
    const bool textured = material.materialFlags->flags & flagTextured;
    const u32 entries = textured ? rampLevels * paletteSize : rampLevels;
    material.renderPrivate->shadeRamp = static_cast<RampEntry*>(context.alloc(entries, sizeof(RampEntry)));
    if (!material.renderPrivate->shadeRamp) return false;
    fillShadeRamp(context, material);
    return true;
}

void fillShadeRamp(const HostContext& context, const SceneMaterial& material)
{
    assert(material.renderPrivate->shadeRamp);
    const PixelFormat format = tableFormat(context);
    // When the texture map was taken away after the flag word was computed, there is no palette to fill from.
    if ((material.materialFlags->flags & flagTextured) && material.textureMap)
        fillTexturedRamp(material, format);
    else
        fillPlainRamp(material, format);
}

} // namespace kardeno
