// Text in a picture.
#pragma once

#include "sample_host/pictures/image.h"

#include <string>

namespace sample_host {

// Small plain letters, about 7 pixels high. What lies outside the picture is left out.
void drawText(Image& image, int left, int top, const std::string& text, Colour colour);
int textWidth(const std::string& text);

} // namespace sample_host
