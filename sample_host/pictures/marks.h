// Lines and other marks in a picture. What lies outside the picture is left out.
#pragma once

#include "sample_host/pictures/image.h"

namespace sample_host {

struct Pixel {
    int x = 0, y = 0;
};

// A line of one pixel's width, both ends included.
void drawLine(Image& image, Pixel from, Pixel to, Colour colour);

// A closed line around the corners, in a colour that few scenes have.
void drawOutline(Image& image, const std::vector<Pixel>& corners);

// A white cross with a black shadow. It has a gap in its middle, so that the pixel itself stays visible.
void drawCross(Image& image, Pixel middle);

} // namespace sample_host
