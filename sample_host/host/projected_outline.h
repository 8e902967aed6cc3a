// Where an outline in camera space is in the picture.
#pragma once

#include "sample_host/host/camera.h"
#include "sample_host/pictures/marks.h"

namespace sample_host {

// The corners as pixels. What lies before the near plane is cut off; of an outline that lies wholly before it, no
// pixels are left.
std::vector<Pixel> projectedOutline(const std::vector<CameraVertex>& corners, const View& view);

} // namespace sample_host
