// What textures that are made by code are made of.
#pragma once

#include "sample_host/pictures/image.h"

#include <memory>

namespace sample_host {

// A number that looks random, from 0 to 255, always the same for the same place.
int scattered(int x, int y);

// Value noise from 0 to 255 on a grid of cells, repeating after `cells` cells each way; `size` pixels make the image.
int cloud(int x, int y, int size, int cells);

// Coarse and fine noise together, from 0 to 255.
int grain(int x, int y, int size);

// A colour made lighter or darker.
Colour shaded(Colour colour, int percent);

// A colour between two: 0 gives the first one, 256 the second.
Colour between(Colour first, Colour second, int part);

// An image whose every pixel is computed by itself.
template <class Pixel>
std::shared_ptr<Image> painted(int width, int height, Pixel pixel)
{
    auto image = std::make_shared<Image>(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) image->set(x, y, pixel(x, y));
    return image;
}

} // namespace sample_host
