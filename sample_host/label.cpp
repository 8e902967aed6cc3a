#include "sample_host/label.h"

#include <stb/stb_easy_font.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace sample_host {

namespace {

void setInside(Image& image, int x, int y, Colour colour)
{
    if (x >= 0 && x < image.width && y >= 0 && y < image.height) image.set(x, y, colour);
}

// The letters come as rectangles with whole coordinates: four corners each, the first and the third lie opposite.
struct Corner {
    float x, y, z;
    unsigned char colour[4];
};

} // namespace

void drawText(Image& image, int left, int top, const std::string& text, Colour colour)
{
    std::string letters = text; // the font wants to write what it is given
    std::vector<std::array<Corner, 4>> rectangles(text.size() * 24);
    const int size = int(rectangles.size() * sizeof rectangles[0]);
    const int count = stb_easy_font_print(0, 0, letters.data(), nullptr, rectangles.data(), size);
    for (int i = 0; i < count; ++i) {
        const auto& [first, second, opposite, last] = rectangles[std::size_t(i)];
        for (int y = int(first.y); y < int(opposite.y); ++y)
            for (int x = int(first.x); x < int(opposite.x); ++x) setInside(image, left + x, top + y, colour);
    }
}

int textWidth(const std::string& text)
{
    std::string letters = text;
    return stb_easy_font_width(letters.data());
}

// Along the longer side a pixel for each step; the other side moves when its part of the way is due.
void drawLine(Image& image, Pixel from, Pixel to, Colour colour)
{
    const int right = to.x - from.x, down = to.y - from.y;
    const int steps = std::max({std::abs(right), std::abs(down), 1});
    for (int i = 0; i <= steps; ++i) {
        const auto part = [&](int way) { return (2 * way * i + (way < 0 ? -steps : steps)) / (2 * steps); };
        setInside(image, from.x + part(right), from.y + part(down), colour);
    }
}

} // namespace sample_host
