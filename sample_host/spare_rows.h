// The two ways of drawing that no render state selects.
#pragma once

#include "sample_host/renderer_library.h"

namespace sample_host {

// Lets a material be drawn in the colours of its vertices' shades: by SpareA, or over its texture by SpareB. The
// material must be opaque, unlit and without a shading mode, and its map, if any, of 16 bits; the objects that have it
// are then lit.
void pointAtSpareRow(SceneMaterial& material);

} // namespace sample_host
