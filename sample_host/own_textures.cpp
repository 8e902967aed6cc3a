#include "sample_host/own_textures.h"

#include "sample_host/vector_maths.h"

#include <algorithm>

namespace sample_host {

namespace {

// A number that looks random, from 0 to 255, always the same for the same place.
int scattered(int x, int y)
{
    std::uint32_t bits = std::uint32_t(x) * 0x9e3779b1u ^ std::uint32_t(y) * 0x85ebca77u;
    bits = (bits ^ bits >> 15) * 0x2c1b3c6du;
    bits = (bits ^ bits >> 12) * 0x297a2d39u;
    return int((bits ^ bits >> 15) & 255);
}

// Value noise from 0 to 255 on a grid of cells, repeating after `cells` cells each way; `size` pixels make the image.
int cloud(int x, int y, int size, int cells)
{
    const int cell = size / cells;
    const int column = x / cell, row = y / cell, right = x % cell, down = y % cell;
    const auto knot = [&](int i, int j) { return scattered(i % cells + 1000 * cells, j % cells); };
    const int upper = knot(column, row) * (cell - right) + knot(column + 1, row) * right;
    const int lower = knot(column, row + 1) * (cell - right) + knot(column + 1, row + 1) * right;
    return (upper * (cell - down) + lower * down) / (cell * cell);
}

// Coarse and fine noise together, from 0 to 255.
int grain(int x, int y, int size)
{
    return (4 * cloud(x, y, size, size / 32 > 0 ? size / 16 : 2) + 2 * cloud(x, y, size, size / 4) + scattered(x, y))
           / 7;
}

// A colour made lighter or darker.
Colour shaded(Colour colour, int percent)
{
    const auto channel = [percent](int value) { return std::uint8_t(std::clamp(value * percent / 100, 0, 255)); };
    return {channel(colour.red), channel(colour.green), channel(colour.blue)};
}

// An image whose every pixel is computed by itself.
template <class Pixel>
SharedImage painted(int width, int height, Pixel pixel)
{
    auto image = std::make_shared<Image>(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) image->set(x, y, pixel(x, y));
    return image;
}

} // namespace

SharedImage floorTiles()
{
    return painted(256, 256, [](int x, int y) {
        if (x % 64 < 2 || y % 64 < 2) return shaded({70, 66, 60}, 80 + grain(x, y, 256) / 6);
        const bool dark = (x / 64 + y / 64) % 2 == 1;
        const Colour stone = dark ? Colour{98, 78, 66} : Colour{196, 184, 160};
        const int tile = scattered(x / 64 + 7, y / 64 + 3) % 16;
        return shaded(stone, 76 + tile + grain(x, y, 256) / 8);
    });
}

SharedImage bricks()
{
    return painted(256, 256, [](int x, int y) {
        const int row = y / 32, shiftedX = (x + (row % 2) * 32) % 256;
        const bool joint = y % 32 < 3 || shiftedX % 64 < 3;
        if (joint) return shaded({150, 142, 130}, 75 + grain(x, y, 256) / 6);
        const int brick = scattered(shiftedX / 64 + 11, row) % 36;
        return shaded({158, 74, 56}, 68 + brick + grain(x, y, 256) / 7);
    });
}

SharedImage plaster()
{
    return painted(128, 128, [](int x, int y) {
        if (x % 64 < 6) return shaded({96, 66, 40}, 75 + grain(x, y * 8 % 128, 128) / 5);
        return shaded({206, 200, 186}, 82 + grain(x, y, 128) / 10);
    });
}

SharedImage marble()
{
    return painted(64, 64, [](int x, int y) {
        const double vein = sineOfTurn((x + 2 * y) / 64.0 + cloud(x, y, 64, 4) / 200.0);
        return shaded({170, 196, 186}, 88 + int(vein * 14));
    });
}

SharedImage crate()
{
    return painted(128, 128, [](int x, int y) {
        const bool frame = std::min({x, y, 127 - x, 127 - y}) < 14 || std::abs(x - y) < 9;
        const bool gap = !frame && x % 22 < 2;
        const int wood = cloud(x * 4 % 128, y, 128, 8) / 9 + scattered(x, y) / 24;
        if (gap) return Colour{50, 32, 18};
        return shaded(frame ? Colour{190, 140, 78} : Colour{150, 102, 52}, 74 + wood);
    });
}

SharedImage stripes()
{
    return painted(64, 32, [](int x, int y) {
        const bool red = x / 8 % 2 == 0;
        return shaded(red ? Colour{214, 52, 44} : Colour{236, 226, 200}, 84 + scattered(x, y) / 12);
    });
}

} // namespace sample_host
