#include "sample_host/pictures/marks.h"

#include <algorithm>
#include <cstdlib>

namespace sample_host {

// One pixel for each step along the longer side; along the other side, the nearest pixel to the line.
void drawLine(Image& image, Pixel from, Pixel to, Colour colour)
{
    const int right = to.x - from.x, down = to.y - from.y;
    const int steps = std::max({std::abs(right), std::abs(down), 1});
    for (int i = 0; i <= steps; ++i) {
        const auto part = [&](int way) { return (2 * way * i + (way < 0 ? -steps : steps)) / (2 * steps); };
        image.setIfInside(from.x + part(right), from.y + part(down), colour);
    }
}

void drawOutline(Image& image, const std::vector<Pixel>& corners)
{
    constexpr Colour pink{255, 40, 220};
    for (std::size_t i = 0; i < corners.size(); ++i)
        drawLine(image, corners[i], corners[(i + 1) % corners.size()], pink);
}

void drawCross(Image& image, Pixel middle)
{
    constexpr Colour white{255, 255, 255}, black{0, 0, 0};
    const auto draw = [&](Pixel at, Colour colour) {
        for (const int side : {-1, 1}) {
            drawLine(image, {at.x + 3 * side, at.y}, {at.x + 9 * side, at.y}, colour);
            drawLine(image, {at.x, at.y + 3 * side}, {at.x, at.y + 9 * side}, colour);
        }
    };
    draw({middle.x + 1, middle.y + 1}, black);
    draw(middle, white);
}

} // namespace sample_host
