// Reduces an image to a palette.
#pragma once

#include "sample_host/image.h"

#include <array>

namespace sample_host {

struct PalettisedImage {
    std::array<std::uint8_t, 1024> palette{}; // 256 x { blue, green, red, 0 }, as a TextureMap wants it
    std::vector<std::uint8_t> indices;        // one for each pixel, rows from top to bottom
};

// The index of hidden pixels. Nothing else has it in an image that has hidden pixels.
constexpr std::uint8_t hiddenIndex = 255;

// Median cut: the colours of the image are parted again and again, each time the box in which most is to be gained, at
// the median of its longest side; then every colour takes the nearest of the boxes' means. An image of no more colours
// than the palette has entries is kept exactly. The result depends on nothing but the image.
PalettisedImage quantised(const Image& image);

} // namespace sample_host
