#include "sample_host/pictures/image.h"

namespace sample_host {

void Image::set(int x, int y, Colour colour)
{
    std::uint8_t* pixel = &pixels[(std::size_t(y) * std::size_t(width) + std::size_t(x)) * 4];
    pixel[0] = colour.red;
    pixel[1] = colour.green;
    pixel[2] = colour.blue;
    pixel[3] = 255;
}

void Image::setIfInside(int x, int y, Colour colour)
{
    if (x >= 0 && x < width && y >= 0 && y < height) set(x, y, colour);
}

void Image::hide(int x, int y)
{
    pixels[(std::size_t(y) * std::size_t(width) + std::size_t(x)) * 4 + 3] = 0;
}

} // namespace sample_host
