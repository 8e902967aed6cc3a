#include "sample_host/pictures/label.h"

#include <stb/stb_easy_font.h>

#include <array>
#include <vector>

namespace sample_host {

namespace {

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
            for (int x = int(first.x); x < int(opposite.x); ++x) image.setIfInside(left + x, top + y, colour);
    }
}

int textWidth(const std::string& text)
{
    std::string letters = text;
    return stb_easy_font_width(letters.data());
}

} // namespace sample_host
