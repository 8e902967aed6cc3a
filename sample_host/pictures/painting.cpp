#include "sample_host/pictures/painting.h"

#include <algorithm>

namespace sample_host {

int scattered(int x, int y)
{
    std::uint32_t bits = std::uint32_t(x) * 0x9e3779b1u ^ std::uint32_t(y) * 0x85ebca77u;
    bits = (bits ^ bits >> 15) * 0x2c1b3c6du;
    bits = (bits ^ bits >> 12) * 0x297a2d39u;
    return int((bits ^ bits >> 15) & 255);
}

int cloud(int x, int y, int size, int cells)
{
    const int cell = size / cells;
    const int column = x / cell, row = y / cell, right = x % cell, down = y % cell;
    const auto knot = [&](int i, int j) { return scattered(i % cells + 1000 * cells, j % cells); };
    const int upper = knot(column, row) * (cell - right) + knot(column + 1, row) * right;
    const int lower = knot(column, row + 1) * (cell - right) + knot(column + 1, row + 1) * right;
    return (upper * (cell - down) + lower * down) / (cell * cell);
}

int grain(int x, int y, int size)
{
    return (4 * cloud(x, y, size, size / 32 > 0 ? size / 16 : 2) + 2 * cloud(x, y, size, size / 4) + scattered(x, y))
           / 7;
}

Colour shaded(Colour colour, int percent)
{
    const auto channel = [percent](int value) { return std::uint8_t(std::clamp(value * percent / 100, 0, 255)); };
    return {channel(colour.red), channel(colour.green), channel(colour.blue)};
}

Colour between(Colour first, Colour second, int part)
{
    const auto channel = [part](int a, int b) { return std::uint8_t(a + (b - a) * part / 256); };
    return {channel(first.red, second.red), channel(first.green, second.green), channel(first.blue, second.blue)};
}

} // namespace sample_host
