#include "interface/colour_tables.h"

#include "support/arithmetic.h"

namespace kardeno {

constinit ColourScaleTables colourScaleTables = {};

namespace {

// Which bits of the indexing byte belong to the channel, where the scaled value goes, and which bits it may take there.
struct ChannelPlace {
    i32 valueMask;
    u32 shift;
    u32 fieldMask;
};

struct FormatPlaces {
    ChannelPlace red, green, blue;
};

// Blue is not masked: its value never exceeds 31.
constexpr FormatPlaces places[pixelFormatCount] = {
    {.red = {0x7c, 8, 0x7c00}, .green = {0x1f, 5, 0x3e0}, .blue = {0x1f, 0, 0xffffffff}},
    {.red = {0xf8, 8, 0xf800}, .green = {0x3f, 5, 0x7e0}, .blue = {0x1f, 0, 0xffffffff}},
};

u32 scaled(const ChannelPlace& place, i32 value, i32 intensity)
{
    const i32 product = ((value & place.valueMask) * intensity) << place.shift;
    return static_cast<u32>(truncated(product * 0.00392156862745098)) & place.fieldMask; // 1/255
}

} // namespace

void buildColourScaleTables(PixelFormat format)
{
    const FormatPlaces& place = places[format];
    u32 index = 0;
    for (i32 intensity = 0; intensity < 256; ++intensity) {
        for (i32 value = 0; value < 256; ++value, ++index) {
            colourScaleTables.blueScale[index] = scaled(place.blue, value, intensity);
            colourScaleTables.greenScale[index] = scaled(place.green, value, intensity);
            colourScaleTables.redScale[index] = scaled(place.red, value, intensity);
        }
    }
}

} // namespace kardeno
