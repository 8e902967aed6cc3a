// Textures made by code, so that there is something to draw where no file is.
#pragma once

#include "sample_host/image.h"

#include <memory>

namespace sample_host {

using SharedImage = std::shared_ptr<const Image>;

// All repeat without a seam.
SharedImage floorTiles(); // 256 x 256
SharedImage bricks();     // 256 x 256
SharedImage plaster();    // 128 x 128
SharedImage marble();     // 64 x 64
SharedImage crate();      // 128 x 128
SharedImage stripes();    // 64 x 32

} // namespace sample_host
