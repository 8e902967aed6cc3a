#include "sample_host/scenes/own_textures.h"

#include "sample_host/host/vector_maths.h"
#include "sample_host/pictures/painting.h"

#include <algorithm>
#include <array>

namespace sample_host {

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

SharedImage metal()
{
    return painted(128, 128, [](int x, int y) {
        const int right = x % 64, down = y % 64;
        if (right < 2 || down < 2) return Colour{58, 62, 70};
        const int fromRivetX = std::min(std::abs(right - 8), std::abs(right - 57));
        const int fromRivetY = std::min(std::abs(down - 8), std::abs(down - 57));
        if (fromRivetX * fromRivetX + fromRivetY * fromRivetY < 9) return Colour{210, 214, 220};
        return shaded({150, 156, 168}, 84 + cloud(x, y * 4 % 128, 128, 16) / 10 + scattered(x / 64 + 3, y / 64) % 14);
    });
}

SharedImage lattice()
{
    const auto bar = [](int x, int y) { return (x + y) % 64 < 17 || (x - y + 128) % 64 < 17; };
    const std::shared_ptr<Image> image = painted(128, 128, [](int x, int y) {
        const bool rising = (x + y) % 64 < 17;
        const int across = rising ? (x + y) % 64 : (x - y + 128) % 64;
        return shaded({206, 160, 62}, 112 - 6 * std::abs(across - 8));
    });
    for (int y = 0; y < 128; ++y)
        for (int x = 0; x < 128; ++x)
            if (!bar(x, y)) image->hide(x, y);
    return image;
}

SharedImage leadedGlass()
{
    return painted(128, 128, [](int x, int y) {
        constexpr std::array<Colour, 6> panes{
            {{214, 48, 40}, {40, 92, 208}, {240, 196, 52}, {44, 160, 84}, {150, 60, 180}, {236, 120, 40}}};
        const int slant = (x + y) / 32, fall = (x - y + 128) / 32;
        if ((x + y) % 32 < 3 || (x - y + 128) % 32 < 3) return Colour{24, 24, 28};
        // The diagonals come round after four panes each.
        const int pane = scattered(slant % 4 + 5, fall % 4 + 17) % int(panes.size());
        return shaded(panes[std::size_t(pane)], 88 + cloud(x, y, 128, 16) / 9);
    });
}

SharedImage duskSky()
{
    return painted(256, 256, [](int x, int y) {
        const auto ridge = [x](int height, double turns, double start) {
            return height + int(12 * sineOfTurn(turns * x / 256 + start) + 5 * sineOfTurn(3 * turns * x / 256));
        };
        if (y > ridge(222, 1, 0.3)) return shaded({34, 44, 40}, 90 + scattered(x, y) / 16);
        if (y > ridge(200, 2, 0)) return shaded({58, 62, 82}, 94 + scattered(x, y) / 26);
        const int part = y * 256 / 210;
        const Colour sky = part < 150
                               ? between({26, 34, 78}, {110, 92, 140}, part * 256 / 150)
                               : between({110, 92, 140}, {246, 176, 116}, std::min((part - 150) * 256 / 106, 256));
        const int haze = std::max(cloud(x, y * 4 % 256, 256, 8) - 150, 0) * (256 - y) / 256;
        return between(sky, {236, 200, 190}, haze);
    });
}

SharedImage glow(Colour colour)
{
    return painted(64, 64, [colour](int x, int y) {
        const int right = 2 * x - 63, down = 2 * y - 63;
        const int light = std::max(100 - 100 * (right * right + down * down) / (62 * 62), 0);
        return shaded(between(colour, {255, 255, 255}, std::max(light - 85, 0) * 8), light * light / 100);
    });
}

SharedImage beam(Colour colour)
{
    return painted(64, 64, [colour](int, int y) { return shaded(colour, (63 - y) * 100 / 63); });
}

SharedImage rings()
{
    return painted(128, 128, [](int x, int y) {
        const int right = x % 64 - 32, down = y % 64 - 32;
        const int out = (right * right + down * down) / 40;
        const bool lit = out < 4 || (out > 10 && out < 16);
        return lit ? Colour{210, 110, 40} : Colour{0, 0, 16};
    });
}

SharedImage dimmed(const SharedImage& image, int percent)
{
    return painted(image->width, image->height, [&](int x, int y) {
        return shaded(image->colour(std::size_t(y) * std::size_t(image->width) + std::size_t(x)), percent);
    });
}

} // namespace sample_host
