// Textures made by code, so that there is something to draw where no file is.
#pragma once

#include "sample_host/pictures/image.h"

#include <memory>

namespace sample_host {

using SharedImage = std::shared_ptr<const Image>;

// All repeat without a seam.
SharedImage floorTiles();  // 256 x 256
SharedImage bricks();      // 256 x 256
SharedImage plaster();     // 128 x 128
SharedImage marble();      // 64 x 64
SharedImage crate();       // 128 x 128
SharedImage stripes();     // 64 x 32
SharedImage metal();       // 128 x 128: plates with rivets
SharedImage lattice();     // 128 x 128: its holes are hidden
SharedImage leadedGlass(); // 128 x 128: panes of all colours
SharedImage duskSky();     // 256 x 256: the sky over hills; repeats to the sides only

// Drawn by addition: what is black does not show.
SharedImage glow(Colour colour); // 64 x 64: brightest in the middle, black at the border
SharedImage beam(Colour colour); // 64 x 64: a ray that fades downwards
SharedImage rings();             // 128 x 128
SharedImage dimmed(const SharedImage& image, int percent);

} // namespace sample_host
