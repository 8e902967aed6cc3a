#include "sample_host/pick_mark.h"

#include <algorithm>

namespace sample_host {

namespace {

constexpr Colour outlineColour{255, 40, 220}, crossColour{255, 255, 255}, crossShadow{0, 0, 0};

// A corner of the screen polygon may lie far outside the picture; so far lines are still drawn.
Pixel onScreen(const Vector& p, const View& view)
{
    constexpr double farOutside = 10000;
    const ViewProjection& projection = *view.projection;
    const double x = projection.centreX + projection.scaleX * p.x / p.z;
    const double y = projection.centreY - projection.scaleY * p.y / p.z;
    return {int(std::clamp(x, -farOutside, farOutside)), int(std::clamp(y, -farOutside, farOutside))};
}

} // namespace

std::vector<Pixel> projectedOutline(const std::vector<CameraVertex>& corners, const View& view)
{
    std::vector<Pixel> outline;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const CameraVertex &from = corners[i], &to = corners[(i + 1) % corners.size()];
        const bool fromInside = from.z >= view.nearZ, toInside = to.z >= view.nearZ;
        if (fromInside) outline.push_back(onScreen({from.x, from.y, from.z}, view));
        if (fromInside == toInside) continue;
        const double part = (double(view.nearZ) - from.z) / (double(to.z) - from.z);
        const auto cut = [part](double a, double b) { return a + (b - a) * part; };
        outline.push_back(onScreen({cut(from.x, to.x), cut(from.y, to.y), view.nearZ}, view));
    }
    return outline;
}

void markPick(Image& image, const Pick& pick, const View& view, Pixel pixel)
{
    if (pick.object) {
        const std::vector<Pixel> outline = projectedOutline(pick.object->outline(pick.face), view);
        for (std::size_t i = 0; i < outline.size(); ++i)
            drawLine(image, outline[i], outline[(i + 1) % outline.size()], outlineColour);
    }
    // With a gap in its middle, so that the pixel itself stays visible.
    for (const int shadow : {1, 0}) {
        const Colour colour = shadow ? crossShadow : crossColour;
        const Pixel middle{pixel.x + shadow, pixel.y + shadow};
        for (const int side : {-1, 1}) {
            drawLine(image, {middle.x + 3 * side, middle.y}, {middle.x + 9 * side, middle.y}, colour);
            drawLine(image, {middle.x, middle.y + 3 * side}, {middle.x, middle.y + 9 * side}, colour);
        }
    }
}

} // namespace sample_host
