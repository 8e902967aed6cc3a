// Images in memory.
#pragma once

#include <cstdint>
#include <vector>

namespace sample_host {

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;
};

// Rows of pixels from top to bottom, four bytes each: red, green, blue, opacity. A pixel whose opacity is below one
// half is hidden: a colour-keyed material leaves it undrawn.
struct Image {
    int width = 0, height = 0;
    std::vector<std::uint8_t> pixels;

    Image() = default;
    Image(int width_, int height_)
        : width(width_), height(height_), pixels(std::size_t(width_) * std::size_t(height_) * 4, 255)
    {
    }

    std::size_t pixelCount() const { return pixels.size() / 4; }
    Colour colour(std::size_t pixel) const { return {pixels[4 * pixel], pixels[4 * pixel + 1], pixels[4 * pixel + 2]}; }
    bool hidden(std::size_t pixel) const { return pixels[4 * pixel + 3] < 128; }
    void set(int x, int y, Colour colour);
    void setIfInside(int x, int y, Colour colour);
    void hide(int x, int y);
};

} // namespace sample_host
