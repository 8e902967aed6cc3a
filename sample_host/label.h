// Text and marks in a finished picture.
#pragma once

#include "sample_host/image.h"

namespace sample_host {

// Small plain letters, about 7 pixels high. What lies outside the picture is left out.
void drawText(Image& image, int left, int top, const std::string& text, Colour colour);
int textWidth(const std::string& text);

// A line of one pixel's width, both ends included. What lies outside the picture is left out.
struct Pixel {
    int x = 0, y = 0;
};
void drawLine(Image& image, Pixel from, Pixel to, Colour colour);

} // namespace sample_host
