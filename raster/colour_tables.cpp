#include "raster/colour_tables.h"

#include "support/arithmetic.h"

namespace kardeno {

constinit ColourScaleTables colourScaleTables = {};

namespace {

// Computes an entry: the bits of the channel that lie in the byte are scaled by intensity / 255, and the part of the
// result that lies in the channel's field is kept. `byteShift` is the lowest bit of the byte in the pixel.
u32 scaled(const ChannelField& channel, u32 byteShift, u32 byte, u32 intensity)
{
    const u32 value = byte & (channel.mask() >> byteShift);
    const i32 product = static_cast<i32>((value * intensity) << byteShift);
    return static_cast<u32>(truncated(product * 0.00392156862745098)) & channel.mask(); // 1/255
}

} // namespace

void buildColourScaleTables(PixelFormat format)
{
    const PixelLayout& pixel = pixelLayouts[format];
    u32 index = 0;
    for (u32 intensity = 0; intensity < 256; ++intensity) {
        for (u32 byte = 0; byte < 256; ++byte, ++index) {
            colourScaleTables.blueScale[index] = scaled(pixel.blue, 0, byte, intensity);
            colourScaleTables.greenScale[index] = scaled(pixel.green, 5, byte, intensity);
            colourScaleTables.redScale[index] = scaled(pixel.red, 8, byte, intensity);
        }
    }
}

} // namespace kardeno
