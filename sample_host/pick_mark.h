// Shows in a picture what was picked.
#pragma once

#include "sample_host/label.h"
#include "sample_host/scene.h"

namespace sample_host {

// Where an outline in camera space is on the screen: what lies nearer than the near plane is cut off, and an outline of
// which nothing is left gives no pixels.
std::vector<Pixel> projectedOutline(const std::vector<CameraVertex>& corners, const View& view);

// Outlines the picked face, if there is one, and puts a cross on the pixel.
void markPick(Image& image, const Pick& pick, const View& view, Pixel pixel);

} // namespace sample_host
