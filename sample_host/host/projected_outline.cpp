#include "sample_host/host/projected_outline.h"

#include <algorithm>

namespace sample_host {

namespace {

// A corner may lie anywhere outside the picture. It is drawn at most this many pixels away, so that lines to it end
// soon.
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

} // namespace sample_host
