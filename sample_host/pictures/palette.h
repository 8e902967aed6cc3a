// Reduces an image to a palette.
#pragma once

#include "sample_host/pictures/image.h"

#include <array>

namespace sample_host {

struct PalettisedImage {
    std::array<std::uint8_t, 1024> palette{}; // 256 x { blue, green, red, 0 }, as a TextureMap wants it
    std::vector<std::uint8_t> indices;        // one for each pixel, rows from top to bottom
};

// The index of hidden pixels. Nothing else has it in an image that has hidden pixels.
constexpr std::uint8_t hiddenIndex = 255;

// Median cut: all colours lie in one box at first. Again and again the box from which most is to be gained is parted at
// the median of its longest side, until there are as many boxes as the palette has entries. The mean of each box
// becomes an entry, and every colour takes the nearest entry. An image of no more colours than there are entries is
// kept exactly. The result depends on nothing but the image.
PalettisedImage quantised(const Image& image);

} // namespace sample_host
