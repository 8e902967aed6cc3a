#include "scenes/texture_scene.h"

#include <cstring>

namespace kardeno::scenes {

namespace {

u32 log2Of(i32 value)
{
    u32 bits = 0;
    while ((1 << bits) < value) ++bits;
    return bits;
}

// The letter F in a cell of 8 x 8, which shows how a map is turned.
constexpr u8 letterF[8] = {0b00000000, 0b00111100, 0b00100000, 0b00111000, 0b00100000, 0b00100000, 0b00000000, 0};

} // namespace

u16 packedPixel(i32 bitsPerPixel, const Colour& colour)
{
    const u32 r = colour.red >> 3, g = colour.green, b = colour.blue >> 3;
    return static_cast<u16>(bitsPerPixel == 15 ? r << 10 | (g >> 3) << 5 | b : r << 11 | (g >> 2) << 5 | b);
}

Colour paletteColour(u8 index)
{
    if (index == keyIndex) return keyColour;
    constexpr Colour brightest[8] = {{255, 255, 255}, {248, 48, 40},  {248, 150, 40}, {248, 232, 80},
                                     {72, 208, 72},   {64, 216, 216}, {72, 96, 248},  {240, 112, 200}};
    const Colour& hue = brightest[index / 32];
    const i32 level = index % 32;
    const auto scaled = [level](u8 channel) { return static_cast<u8>(channel * level / 31); };
    return {scaled(hue.red), scaled(hue.green), scaled(hue.blue)};
}

u8 tiles(i32 x, i32 y, i32 width, i32 height)
{
    const i32 column = x * 8 / width, row = y * 8 / height;
    const i32 inX = x - column * width / 8, inY = y - row * height / 8;
    if (inX == 0 || inY == 0) return paletteIndex(grey, 6);
    const i32 letterX = inX * 64 / width, letterY = inY * 64 / height;
    if (letterF[letterY] >> (7 - letterX) & 1) return paletteIndex(grey, 31);
    return paletteIndex(static_cast<Hue>(1 + (column + 3 * row) % 7), 10 + 2 * row);
}

u8 bricks(i32 x, i32 y, i32 width, i32 height)
{
    const i32 row = y * 8 / height;
    const i32 inY = y - row * height / 8;
    const i32 shifted = (x + (row % 2) * width / 8) % width;
    const i32 column = shifted * 4 / width;
    const i32 inX = shifted - column * width / 4;
    if (inX * 32 < width || inY * 64 < height) return paletteIndex(grey, 20);
    return paletteIndex(red, 16 + (column * 5 + row * 3) % 7);
}

u8 planks(i32 x, i32 y, i32 width, i32 height)
{
    const i32 board = y * 4 / height;
    const i32 inY = y - board * height / 4;
    if (inY == 0 || (x + board * width * 3 / 8) % width == 0) return paletteIndex(orange, 4);
    return paletteIndex(orange, 13 + (board * 5) % 8 + (x * 7 / width + inY * 3) % 3);
}

u8 grating(i32 x, i32 y, i32 width, i32 height)
{
    const i32 barX = x * 16 / width % 4, barY = y * 16 / height % 4;
    if (barX == 0) return paletteIndex(cyan, 26);
    if (barY == 0) return paletteIndex(yellow, 26);
    return keyIndex;
}

u8 zeroGrating(i32 x, i32 y, i32 width, i32 height)
{
    const u8 index = grating(x, y, width, height);
    return index == keyIndex ? 0 : index;
}

u8 glow(i32 x, i32 y, i32 width, i32 height)
{
    const f64 fromX = (2.0 * x + 1 - width) / width, fromY = (2.0 * y + 1 - height) / height;
    const f64 brightness = 1 - (fromX * fromX + fromY * fromY);
    return brightness <= 0 ? u8{0} : paletteIndex(orange, static_cast<i32>(brightness * brightness * 31));
}

u8 noise(i32 x, i32 y, i32, i32)
{
    u32 value = static_cast<u32>(x) * 73856093u ^ static_cast<u32>(y) * 19349663u;
    value = (value ^ value >> 13) * 0x5bd1e995u;
    return static_cast<u8>(value >> 16);
}

Texture::Texture(i32 bitsPerTexel, i32 bitsPerPixel, i32 width, i32 height, Picture picture)
    : map(), palette(), storage((sizeof(TextureImage) + static_cast<size_t>(width * height * bitsPerTexel / 8) + 3) / 4)
{
    map.image = reinterpret_cast<TextureImage*>(storage.data());
    map.palette = palette;
    map.transparentIndex = keyIndex;
    map.transparentColour = packedPixel(bitsPerPixel, keyColour);
    for (u32 i = 0; i < 256; ++i) {
        const Colour colour = paletteColour(static_cast<u8>(i));
        palette[4 * i] = colour.blue;
        palette[4 * i + 1] = colour.green;
        palette[4 * i + 2] = colour.red;
    }

    TextureImage& record = image();
    record.bitsPerTexel = static_cast<u32>(bitsPerTexel);
    record.is256x256 = width == 256 && height == 256;
    record.indexMask = static_cast<u32>(width * height - 1);
    record.rowShift = log2Of(width);
    record.width = static_cast<f32>(width);
    record.height = static_cast<f32>(height);

    u8* texel = reinterpret_cast<u8*>(&record + 1);
    for (i32 y = 0; y < height; ++y) {
        for (i32 x = 0; x < width; ++x) {
            const u8 index = picture(x, y, width, height);
            if (bitsPerTexel == 8) {
                *texel++ = index;
            } else {
                const u16 pixel = packedPixel(bitsPerPixel, paletteColour(index));
                std::memcpy(texel, &pixel, sizeof pixel);
                texel += sizeof pixel;
            }
        }
    }
}

} // namespace kardeno::scenes
